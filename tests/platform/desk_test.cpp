#include "platform/desk.h"

#include <gtest/gtest.h>

#include <deque>

namespace {

// A small bill: two fields that check on Enter and on leaving, a date, a list, buttons.
const ScreenSpec& billSpec() {
  static const ScreenSpec spec{
      .name = "BILL",
      .caption = "BILL",
      .focusColour = 0xFFC0FF,
      .layout = {                                                                    },
      .controls =
          {
                 {.name = "Text1", .index = 0, .label = "No", .tab = 1, .limit = 3, .keys = KeyClass::Number},
                 {.name = "Text1", .index = 1, .label = "Party", .tab = 2, .limit = 6, .keys = KeyClass::Text},
                 {.name = "Text1", .index = 2, .label = "Off", .tab = 3, .enabled = false},
                 {.name = "MaskEdBox1", .index = 0, .kind = Kind::Date, .label = "Date", .tab = 4},
                 {.name = "lst", .kind = Kind::Grid, .columns = {{"Name"}}},
                 {.name = "CMDSAVE", .kind = Kind::Button, .label = "&Save", .tab = 5},
                 {.name = "CMDCANCEL", .kind = Kind::Button, .label = "&Cancel", .tab = 6},
                 },
  };
  return spec;
}

std::vector<std::string> happened;

class Bill : public Screen {
 public:
  explicit Bill(Host& theHost) : Screen(theHost, billSpec()) {
    auto rows = std::make_shared<CellRows>();
    for (const char* name : {"A", "B", "C"}) rows->rows.push_back({{.text = name}});
    at("lst").grid.source = rows;
    wire<Bill>(*this, {
                          {"Text1(0)",  KeyCode::Enter, &Bill::number    },
                          {"Text1(0)",  On::Validate,   &Bill::numberLeft},
                          {"Text1",     On::Leave,      &Bill::left      },
                          {"Text1",     On::Focus,      &Bill::entered   },
                          {"Text1",     On::Change,     &Bill::changed   },
                          {"Text1(1)",  KeyCode::Enter, &Bill::party     },
                          {"Text1(1)",  KeyCode::F1,    &Bill::find      },
                          {"Text1(1)",  KeyCode::F2,    &Bill::fail      },
                          {"lst",       On::Row,        &Bill::moved     },
                          {"CMDSAVE",   On::Click,      &Bill::save      },
                          {"CMDCANCEL", On::Click,      &Bill::cancel    },
                          {"",          KeyCode::Esc,   &Bill::escape    },
    });
  }
  void activated() override { happened.push_back("activated"); }

  Go number() {
    happened.push_back("number");
    if (here().text == "9") {
      focus(at("Text1", 1));
      return Go::Stay;
    }
    if (here().text == "0") {
      host.message("Not 0");
      return Go::Stay;
    }
    return Go::On;
  }
  Go numberLeft() {
    happened.push_back("validate");
    if (here().text != "7") return Go::On;
    host.message("Not 7");
    return Go::Stay;
  }
  void left() { happened.push_back("leave " + here().fullName()); }
  void entered() { happened.push_back("enter " + here().fullName()); }
  void changed() { happened.push_back("change " + here().text); }
  Go party() {
    if (here().text.empty()) return find();
    happened.push_back("party " + here().text);
    return Go::On;
  }
  Go find() {
    if (const auto chosen = host.openModal("HELP")) {
      set(here(), *chosen);
      enterAgain(here());
    }
    return Go::Stay;
  }
  void fail() { throw std::runtime_error("disk is full"); }
  void moved() { happened.push_back("row " + at("lst").grid.cell(at("lst").grid.current, 0).text); }
  void save() {
    happened.push_back(host.ask("Sure", "Check") ? "saved" : "kept");
    host.open("OTHER");
    happened.push_back("handler ends");
  }
  void cancel() { host.close(*this); }
  void escape() { host.close(*this); }
};

const ScreenSpec& helpSpec() {
  static const ScreenSpec spec{.name = "HELP",
                               .caption = "Help",
                               .window = Window::Dialog,
                               .layout = {},
                               .controls = {{.name = "Text1", .tab = 1}}};
  return spec;
}

class Help : public Screen {
 public:
  explicit Help(Host& theHost) : Screen(theHost, helpSpec()) {
    wire<Help>(*this, {
                          {"", KeyCode::Enter, &Help::choose},
                          {"", KeyCode::Esc,   &Help::leave }
    });
  }
  Go choose() {
    result = at("Text1").text;
    host.close(*this);
    return Go::Stay;
  }
  void leave() { host.close(*this); }
};

class Other : public Screen {
 public:
  explicit Other(Host& theHost) : Screen(theHost, otherSpec()) {}
  void opened(const Entry&) override { happened.push_back("other opened"); }
  static const ScreenSpec& otherSpec() {
    static const ScreenSpec spec{.name = "OTHER", .caption = "Other", .layout = {}, .controls = {}};
    return spec;
  }
};

class TestDesk : public Desk {
 public:
  using Desk::Desk;
  std::deque<std::function<void()>> nested;  // what the person does while a modal screen is up
  std::vector<std::string> messages;
  bool answer = true;

  bool ask(const std::string&, const std::string&) override { return answer; }
  std::optional<std::string> input(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  void busy(bool) override {}
  void refresh() override {}
  Moment now() const override { return {}; }
  ScreenSize display() const override { return {}; }
  bool online() const override { return false; }
  bool running(const std::string&) const override { return false; }
  void endProcess(const std::string&) override {}
  void launch(const std::string&, const std::vector<std::string>&) override {}
  void openLink(const std::string&) override {}
  void view(const std::string&) override {}
  paint::Painter& painter() override { throw std::logic_error("no painter"); }
  std::string clipboard() const override { return clip; }
  void setClipboard(const std::string& text) override { clip = text; }
  std::string clip;

 protected:
  void box(const std::string& text, const std::string&) override { messages.push_back(text); }
  void nest(Screen& screen) override {
    while (isOpen(screen)) {
      auto act = nested.front();
      nested.pop_front();
      act();
    }
  }
  void changed() override {}
};

class DeskTest : public testing::Test {
 protected:
  DeskTest() {
    screens.add<Bill>("BILL");
    screens.add<Help>("HELP");
    screens.add<Other>("OTHER");
    desk = std::make_unique<TestDesk>(screens);
    desk->start("BILL");
    happened.clear();
  }
  Control& field(int i) { return desk->top()->at("Text1", i); }
  std::string focus() { return desk->top()->focused()->fullName(); }
  Screens screens;
  std::unique_ptr<TestDesk> desk;
};

using Events = std::vector<std::string>;

TEST_F(DeskTest, EnterChecksOnceAndMovesOnPastFieldsThatAreOff) {
  desk->type("12");
  desk->key(KeyCode::Enter);
  EXPECT_EQ(happened, (Events{"change 1", "change 12", "number", "leave Text1(0)", "enter Text1(1)"}));
  EXPECT_EQ(field(0).back, kWhite);
  EXPECT_EQ(field(1).back, 0xFFC0FFu);
  desk->type("ab");
  desk->key(KeyCode::Enter);
  EXPECT_EQ(focus(), "MaskEdBox1(0)");
  desk->key(Key::Shift(KeyCode::Tab));
  EXPECT_EQ(focus(), "Text1(1)");
  EXPECT_EQ(field(1).text, "AB");
}

TEST_F(DeskTest, AHandlerMovesTheFocusAfterItHasReturnedAndARefusalKeepsIt) {
  desk->type("9");
  desk->key(KeyCode::Enter);
  EXPECT_EQ(focus(), "Text1(1)");
  desk->key(Key::Shift(KeyCode::Tab));
  desk->key(Key::Ctrl('A'));
  desk->type("0");
  desk->key(KeyCode::Enter);
  EXPECT_EQ(desk->messages, Events{"Not 0"});
  EXPECT_TRUE(field(0).refused);
  desk->key(KeyCode::Backspace);
  EXPECT_FALSE(field(0).refused);
  desk->type("7");
  happened.clear();
  desk->key(KeyCode::Tab);
  EXPECT_EQ(happened, Events{"validate"});
  EXPECT_EQ(focus(), "Text1(0)");
  EXPECT_FALSE(desk->focusOn(field(1)));
  // A mnemonic is a click: the field may refuse that too.
  desk->key(Key::Alt('S'));
  EXPECT_EQ(desk->top()->spec.name, "BILL");
}

TEST_F(DeskTest, TheLookupFillsTheFieldAndEnterRunsOnce) {
  desk->focusOn(field(1));
  happened.clear();
  desk->nested = {[&] { desk->type("A00001"); }, [&] { desk->key(KeyCode::Enter); }};
  desk->key(KeyCode::Enter);
  EXPECT_EQ(happened, (Events{"party A00001", "leave Text1(1)"}));
  EXPECT_EQ(focus(), "MaskEdBox1(0)");

  desk->focusOn(field(1));
  happened.clear();
  desk->nested = {[&] { desk->key(KeyCode::Esc); }};
  desk->key(KeyCode::F1);
  EXPECT_TRUE(happened.empty());
  EXPECT_EQ(field(1).text, "A00001");
  EXPECT_EQ(focus(), "Text1(1)");
}

TEST_F(DeskTest, OtherScreensOpenAfterTheHandlerAndTheOneBelowIsActivatedAgain) {
  desk->click(desk->top()->at("CMDSAVE"));
  EXPECT_EQ(happened, (Events{"validate", "leave Text1(0)", "saved", "handler ends", "other opened"}));
  EXPECT_EQ(desk->top()->spec.name, "OTHER");
  happened.clear();
  desk->closeTop();
  EXPECT_EQ(happened, Events{"activated"});
  desk->start("NOWHERE");
  EXPECT_EQ(desk->hint(), "Not built yet");
  EXPECT_FALSE(desk->quitting());
  desk->key(KeyCode::Esc);
  EXPECT_TRUE(desk->quitting());
}

TEST_F(DeskTest, AFailureOfAHandlerIsToldAndTheScreenStays) {
  desk->focusOn(field(1));
  desk->type("X");
  desk->key(KeyCode::F2);
  EXPECT_EQ(desk->messages, Events{"disk is full"});
  EXPECT_EQ(field(1).text, "X");
  EXPECT_EQ(focus(), "Text1(1)");
}

TEST_F(DeskTest, TypingPassesFiltersLimitsAndMasks) {
  desk->type("1a-2.5");
  EXPECT_EQ(field(0).text, "1-2");
  desk->focusOn(field(1));
  desk->type("o'\u0A95!");  // a Gujarati letter passes, "!" does not
  EXPECT_EQ(field(1).text, "O'\u0A95");
  desk->key(KeyCode::Home);
  desk->paste("ab cdefg");  // unfiltered, cut to six
  EXPECT_EQ(field(1).text, "ab O'\u0A95");
  desk->key({KeyCode::Home, 0, false, false, true});
  desk->key(Key::Ctrl('X'));
  EXPECT_EQ(desk->clip, "ab ");
  EXPECT_EQ(field(1).text, "O'\u0A95");

  Control& date = desk->top()->at("MaskEdBox1", 0);
  desk->focusOn(date);
  desk->type("15/06/2026");
  EXPECT_EQ(date.text, "15/06/2026");
  desk->key(KeyCode::Backspace);
  desk->key(KeyCode::Backspace);
  desk->type("31x");
  EXPECT_EQ(date.text, "15/06/2031");
  desk->key(Key::Ctrl('A'));
  desk->type("0");
  EXPECT_EQ(date.text, "0_/__/____");
}

TEST_F(DeskTest, ListsAndButtonsAnswerTheArrows) {
  Control& list = desk->top()->at("lst");
  desk->rowTo(list, 1);
  desk->key(KeyCode::Down);
  desk->key(KeyCode::Down);
  desk->key(KeyCode::Home);
  EXPECT_EQ(happened, (Events{"validate", "leave Text1(0)", "row B", "row C", "row A"}));
  desk->focusOn(desk->top()->at("CMDSAVE"));
  desk->key(KeyCode::Right);
  EXPECT_EQ(focus(), "CMDCANCEL");
  desk->type(" ");
  EXPECT_EQ(desk->top(), nullptr);
}

TEST_F(DeskTest, AControlThatIsSwitchedOffLosesTheFocusToTheNext) {
  desk->focusOn(field(0));
  field(0).enabled = false;
  desk->key(KeyCode::F5);
  EXPECT_EQ(focus(), "Text1(1)");
}

}  // namespace
