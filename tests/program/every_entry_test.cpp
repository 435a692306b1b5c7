#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "frame/menu.h"
#include "frame/session.h"
#include "frame/start.h"
#include "program/all_screens.h"
#include "store/templates.h"
#include "support/temp_folder.h"
#include "support/test_host.h"

namespace {

// A person who opens everything: says Yes to questions (or No), nothing to input boxes, and
// leaves each lookup by Escape.
class Visitor : public TestHost {
 public:
  Visitor() : TestHost(allScreens()) {}

  bool says = true;
  std::vector<std::string> lookups;

  std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                   const std::string& initial) override {
    prompts.push_back({prompt, title, initial});
    return std::nullopt;
  }

 protected:
  bool answerTo(const Question& question) override {
    questions.push_back(question);
    return says;
  }
  void nest(Screen& modal) override {
    lookups.push_back(modal.spec.name);
    EXPECT_EQ(top(), &modal);
    escape();
    EXPECT_FALSE(isOpen(modal)) << modal.spec.name << " does not close by Escape";
    if (isOpen(modal)) close(modal);
  }
};

// What a person sees of the screen on top, and what the program has said.
std::string seen(const Visitor& host) {
  if (!host.top()) return "nothing";
  const Screen& screen = host.screen();
  std::string all =
      screen.spec.name + "|" + screen.caption + "|" + screen.mode + "|" + host.focus() + "|" + host.hint();
  for (const auto& c : screen.controls)
    all += "\n" + c->fullName() + (c->visible ? " " : " hidden ") + (c->enabled ? "" : "off ") + c->text +
           "|" + std::to_string(c->grid.count());
  for (const size_t said : {host.messages.size(), host.questions.size(), host.prompts.size(),
                            host.opened.size(), host.viewed.size(), host.lookups.size()})
    all += "|" + std::to_string(said);
  return all;
}

// A new company without a voucher or a party of its own.
class EveryEntry : public ::testing::Test {
 protected:
  EveryEntry() {
    makeTemplates(folder_.path());
    copyDatabase(folder_ / "SMPL.MDB", folder_ / "M00126.mdb");
    makeCatalogue(folder_ / "comp.mdb");
    Database catalogue;
    catalogue.open(folder_ / "comp.mdb");
    catalogue.exec(
        "INSERT INTO compny (comp_id, comp_name, fromyr, toyr) VALUES ('M001', 'NEW SHOP', '2026', '2027')");
    catalogue.close();
    startUp(host_, folder_.path());
    host_.enter();
    host_.ticks(4);
  }

  // By Escape, or by the key that the mode strip names where the screen ignores it.
  void backToTheShell(const std::string& from) {
    host_.says = true;
    for (int i = 0; i < 4 && host_.onTop() != "frmmain"; ++i)
      host_.key(host_.screen().escMeans == "Alt+C = Close" ? Key::Alt('C') : Key(KeyCode::Esc));
    ASSERT_EQ(host_.onTop(), "frmmain") << from << " does not close";
    for (const MenuEntry& menu : host_.shell()->menus) EXPECT_TRUE(menu.enabled) << menu.caption << from;
    EXPECT_EQ(session().mactiveforms, 0) << from;
  }

  // A fault in a statement or a handler ends in a message with the words of the machine.
  void expectNoFault(const std::string& where) {
    for (const auto& said : host_.messages)
      for (const char* fault : {"no such", "syntax error", "has no control", "no table", "bad_", "std::"})
        EXPECT_EQ(lower(said.text).find(fault), std::string::npos) << where << ": " << said.text;
    EXPECT_NE(host_.hint(), "Not built yet") << where;
    host_.messages.clear();
  }

  void open(const Command& command) {
    EXPECT_TRUE(host_.choose(command.key)) << command.caption;
    EXPECT_TRUE(sameText(host_.onTop(), screenOf(command))) << command.caption << " opens " << host_.onTop();
  }

  // To where fields are open: "cmdAdd" for a new row or voucher, "cmdEdit" for one that stands.
  void go(const std::string& mode) {
    if (mode.empty()) return;
    if (Control* const button = host_.screen().find(mode); button && button->visible) host_.click(*button);
  }

  std::vector<std::string> names(bool (*wanted)(const Control&)) {
    std::vector<std::string> found;
    for (const auto& c : host_.screen().controls)
      if (c->visible && c->enabled && wanted(*c)) found.push_back(c->fullName());
    return found;
  }

  TempFolder folder_;
  Visitor host_;
};

TEST_F(EveryEntry, OfTheToolBarAnswers) {
  for (const ToolEntry& tool : toolBar()) {
    const Command* const command = commandOf(tool);
    ASSERT_NE(command, nullptr) << tool.key;
    const std::string before = seen(host_);
    EXPECT_TRUE(host_.tool(tool)) << tool.key;
    EXPECT_NE(seen(host_), before) << tool.key;
    const std::string screen = screenOf(*command);
    EXPECT_TRUE(sameText(host_.onTop(), screen.empty() ? "frmmain" : screen)) << tool.key;
    backToTheShell(tool.key);
  }
}

TEST_F(EveryEntry, WithoutAScreenSaysSo) {
  host_.hint("");
  EXPECT_TRUE(host_.choose("log"));
  EXPECT_NE(host_.hint(), "");
  // What leads nowhere is not shown.
  for (const MenuEntry& menu : menuTree())
    for (const MenuEntry& entry : menu.entries) {
      const Command* const command = commandOf(entry);
      EXPECT_TRUE(!command || command->first || !screenOf(*command).empty()) << entry.key;
    }
}

// Each button of each screen as it opens and as it stands in its modes.
TEST_F(EveryEntry, HasNoButtonWithoutAnAnswer) {
  const auto isButton = [](const Control& c) { return c.kind == Kind::Button; };
  for (const Command& command : commands()) {
    if (screenOf(command).empty() || !leadsSomewhere(command)) continue;
    for (const char* mode : {"", "cmdAdd", "cmdEdit"}) {
      open(command);
      go(mode);
      const std::vector<std::string> buttons = names(isButton);
      backToTheShell(command.caption);
      for (const std::string& button : buttons) {
        const std::string where = join({command.caption, mode, button}, " ");
        open(command);
        go(mode);
        host_.says = false;
        host_.focusOn(host_.at(button));
        host_.hint("");
        const std::string before = seen(host_);
        EXPECT_TRUE(host_.click(host_.at(button))) << where;
        EXPECT_NE(seen(host_), before) << where;
        expectNoFault(where);
        backToTheShell(where);
      }
    }
  }
}

// Enter and every function key in every field that can be reached.
TEST_F(EveryEntry, LooksUpInAnEmptyCompany) {
  const auto isField = [](const Control& c) { return c.editable(); };
  constexpr KeyCode keys[] = {KeyCode::Enter, KeyCode::F1,  KeyCode::F2, KeyCode::F3,
                              KeyCode::F4,    KeyCode::F5,  KeyCode::F6, KeyCode::F7,
                              KeyCode::F8,    KeyCode::F11, KeyCode::F12};
  std::set<std::string> looked;
  for (const Command& command : commands()) {
    if (screenOf(command).empty() || !leadsSomewhere(command)) continue;
    for (const char* mode : {"cmdAdd", "cmdEdit"}) {
      open(command);
      go(mode);
      for (const std::string& field : names(isField))
        for (const KeyCode code : keys) {
          host_.says = false;
          if (!sameText(host_.onTop(), screenOf(command))) break;
          Control& here = host_.at(field);
          if (!here.enabled || !here.visible || !host_.focusOn(here)) continue;
          const size_t before = host_.lookups.size();
          host_.key(code);
          if (host_.lookups.size() > before) looked.insert(std::string(screenOf(command)));
          expectNoFault(command.caption + (", " + field));
        }
      backToTheShell(command.caption);
    }
  }
  for (const char* screen : {"frmacc", "frmtaxmast", "FRMITEM1", "GSTSAPU", "FRMQUOT", "FRMCHLN", "bwrcpy",
                             "frmreport", "regdlg1", "dlg1"})
    EXPECT_TRUE(looked.contains(screen)) << screen;
}

}  // namespace
