#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "frame/menu.h"
#include "frame/start.h"
#include "platform/qt/look.h"
#include "platform/qt/qt_host.h"
#include "program/all_screens.h"
#include "store/templates.h"
#include "support/temp_folder.h"

// A person who goes through the program's own window, says Yes to questions and leaves lookups by Escape.
class Tourist : public QtHost {
 public:
  using QtHost::QtHost;
  virtual void look(const std::string& where) = 0;

  Moment now() const override { return {parseDate("2026-06-15").value(), 10, 30, 0}; }
  bool online() const override { return true; }
  void openLink(const std::string&) override {}
  void view(const std::string&) override {}

 protected:
  void nest(Screen& screen) override {
    look(screen.spec.name);
    key(KeyCode::Esc);
    if (isOpen(screen)) close(screen);
  }
};

// A new company in a folder of its own, and the way through every screen of the program.
template <class Host>
class EveryScreen : public testing::Test {
 protected:
  // One off-screen application for all tests.
  EveryScreen() {
    static int count = 1;
    static char name[] = "test", *arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* const app = new QApplication(count, arguments);
    dress(*app);
    makeTemplates(folder_.path());
    copyDatabase(folder_ / "SMPL.MDB", folder_ / "M00126.mdb");
    makeCatalogue(folder_ / "comp.mdb");
    Database catalogue;
    catalogue.open(folder_ / "comp.mdb");
    catalogue.exec(
        "INSERT INTO compny (comp_id, comp_name, fromyr, toyr) VALUES ('M001', 'NEW SHOP', '2026', '2027')");
    catalogue.close();
  }

  // To the shell; `opened` runs when the company is open.
  void start(int width, int height, const std::function<void()>& opened = {}) {
    host_ = std::make_unique<Host>(allScreens());
    host_->windowSize = {width, height};
    host_->onBox = [this] {
      host_->look("box");
      if (host_->box()->words().loses) host_->realKey(KeyCode::Right);
      host_->realKey(KeyCode::Enter);
    };
    ASSERT_TRUE(startUp(*host_, folder_.path()));
    host_->look("FRMCOMP");
    host_->key(KeyCode::Enter);
    for (int i = 0; i < 4; ++i) host_->tick(), host_->look("frmStartup");
    if (opened) opened();
  }

  // Each entry of the menus, at rest and in its modes; the fields by Enter, which looks up or moves on.
  void tour() {
    for (const MenuEntry& menu : menuTree())
      for (const MenuEntry& entry : menu.entries) {
        const Command* const command = commandOf(entry);
        if (command && command->first) continue;  // writes a workbook
        for (const char* mode : {"", "cmdAdd", "cmdEdit", "cmdDelete"}) {
          host_->menu(entry);
          host_->look(entry.caption);
          if (host_->top()->spec.name == "frmmain") break;
          Control* const button = *mode ? host_->top()->find(mode) : nullptr;
          if (*mode && !(button && host_->click(*button))) {
            backToTheShell();
            break;
          }
          // The fields are the same ones in the other modes.
          const std::string where = entry.key + " " + mode;
          if (*mode && std::string_view(mode) != "cmdAdd")
            host_->look(where);
          else
            walk(where);
          backToTheShell();
        }
      }
  }

  TempFolder folder_;
  std::unique_ptr<Host> host_;

 private:
  void backToTheShell() {
    for (int i = 0; i < 6 && host_->top()->spec.name != "frmmain"; ++i) {
      host_->closeTop();
      host_->settle();
    }
    ASSERT_EQ(host_->top()->spec.name, "frmmain");
  }

  void walk(const std::string& where) {
    Screen* const screen = host_->top();
    host_->look(where);
    for (const auto& c : screen->controls) {
      if (host_->top() != screen) return;
      if (!c->editable() || !c->focusable() || !host_->focusOn(*c)) continue;
      host_->key(KeyCode::Enter);
      host_->look(where + " " + c->fullName());
    }
  }
};
