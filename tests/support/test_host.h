#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/desk.h"
#include "platform/edit.h"

// A host whose person is a test: keys and clicks go through the desk as real ones do,
// answers are queued beforehand, and whatever the program says is kept in order. A question
// without a queued answer fails the test and counts as No or Cancel.
class TestHost : public Desk {
 public:
  explicit TestHost(const Screens& screens) : Desk(screens) {}

  // What the machine answers.
  Moment clock{
      Date{std::chrono::year{2026}, std::chrono::June, std::chrono::day{15}},
      10, 30, 0
  };
  ScreenSize screenSize;
  bool isOnline = true;
  bool hasViewer = true;  // of papers
  std::vector<std::string> processes;

  // What the person answers, in order.
  std::deque<bool> answers;                       // to questions: true is Yes
  std::deque<std::optional<std::string>> inputs;  // to input boxes: nothing is Cancel
  std::deque<std::function<void()>> insideModal;  // what happens in each modal screen
  std::function<void()> whileAsked;               // what another program does while the next question stands

  // What the program said and asked for.
  struct Said {
    std::string text, title;
    std::string initial{};  // what an input box offers
  };
  std::vector<Said> messages, prompts;
  std::vector<Question> questions;
  std::vector<std::string> opened, launched, viewed;
  bool isBusy = false;

  std::string lastMessage() const { return messages.empty() ? "" : messages.back().text; }
  std::string lastQuestion() const { return questions.empty() ? "" : questions.back().text; }

  // The screen on top, its name and its controls by full name ("Text1(4)") or field ("party").
  Screen& screen() const {
    if (!top()) throw std::logic_error("no screen is open");
    return *top();
  }
  std::string onTop() const { return top() ? top()->spec.name : ""; }
  Control& at(const std::string& name) const {
    Control* const found = screen().find(name);
    if (!found) throw std::logic_error(screen().spec.name + " has no control " + name);
    return *found;
  }
  const std::string& text(const std::string& name) const { return at(name).text; }
  // The field that has it by its name, another control by its full name.
  std::string focus() const {
    const Control* const c = screen().focused();
    if (!c) return "";
    const std::string_view field = c->spec->field.text;
    return field.empty() ? c->fullName() : std::string(field);
  }
  std::string cell(const std::string& grid, size_t row, size_t column) const {
    return at(grid).grid.cell(row, column).text;
  }

  // What the person does.
  void press(const std::string& button) {
    if (!click(at(button))) ADD_FAILURE() << button << " cannot be pressed";
  }
  void go(const std::string& field) {
    if (!focusOn(at(field))) ADD_FAILURE() << field << " does not take the focus, which is on " << focus();
  }
  void keys(std::initializer_list<Key> sequence) {
    for (const Key& k : sequence) key(k);
  }
  void enter() { key(KeyCode::Enter); }
  void escape() { key(KeyCode::Esc); }
  // Focuses the field, empties it and types.
  void fill(const std::string& field, const std::string& typed) {
    go(field);
    edit::selectAll(at(field));
    key(KeyCode::Delete);
    type(typed);
  }
  void fillEnter(const std::string& field, const std::string& typed) {
    fill(field, typed);
    enter();
  }
  // A menu entry of the shell by its key, or its control where it has none; false when it or its
  // menu is off.
  bool choose(const std::string& key) {
    if (!shell()) return false;
    for (const MenuEntry& menu : shell()->menus) {
      if (menu.entries.empty() && menu.control == key) return this->menu(menu);
      for (const MenuEntry& entry : menu.entries)
        if ((entry.key.empty() ? entry.control : entry.key) == key) return menu.enabled && this->menu(entry);
    }
    ADD_FAILURE() << "no menu entry " << key;
    return false;
  }
  void ticks(int n) {
    for (int i = 0; i < n; ++i) tick();
  }

  // Host
  std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                   const std::string& initial) override {
    prompts.push_back({prompt, title, initial});
    if (inputs.empty()) {
      ADD_FAILURE() << "unexpected input box: " << prompt;
      return std::nullopt;
    }
    auto given = inputs.front();
    inputs.pop_front();
    return given;
  }
  void busy(bool on) override { isBusy = on; }
  void refresh() override {}
  Moment now() const override { return clock; }
  ScreenSize display() const override { return screenSize; }
  bool online() const override { return isOnline; }
  bool running(const std::string& process) const override {
    return std::ranges::find(processes, process) != processes.end();
  }
  void endProcess(const std::string& process) override { std::erase(processes, process); }
  void launch(const std::string& program, const std::vector<std::string>& arguments) override {
    std::string line = program;
    for (const std::string& a : arguments) line += " " + a;
    launched.push_back(line);
  }
  void openLink(const std::string& url) override { opened.push_back(url); }
  void view(const std::string& file) override {
    viewed.push_back(file);
    if (!hasViewer) hint("No Program Shows " + file);
  }
  paint::Painter& painter() override { throw std::logic_error("this test does not paint"); }
  std::string clipboard() const override { return clip_; }
  void setClipboard(const std::string& text) override { clip_ = text; }

 protected:
  void box(const std::string& text, const std::string& title) override { messages.push_back({text, title}); }
  bool answerTo(const Question& question) override {
    questions.push_back(question);
    if (const auto meanwhile = std::exchange(whileAsked, nullptr)) meanwhile();
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected question: " << question.text;
      return false;
    }
    const bool yes = answers.front();
    answers.pop_front();
    return yes;
  }
  void nest(Screen& modal) override {
    if (insideModal.empty()) {
      ADD_FAILURE() << "unexpected modal screen: " << modal.spec.name;
    } else {
      const auto act = insideModal.front();
      insideModal.pop_front();
      act();
    }
    if (isOpen(modal)) close(modal);
  }
  void changed() override {}

 private:
  std::string clip_;
};
