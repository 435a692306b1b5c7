// The same program in its window: from a real key event until all that it changed is drawn.

#include <QApplication>
#include <memory>
#include <string>

#include "bench_program.h"
#include "frame/session.h"
#include "frame/start.h"
#include "platform/edit.h"
#include "platform/qt/look.h"
#include "platform/qt/qt_host.h"
#include "program/all_screens.h"

namespace {

using State = benchmark::State;

class BenchWindow : public QtHost {
 public:
  BenchWindow() : QtHost(allScreens()) { windowSize = {1366, 768}; }

  std::function<void()> inside;  // runs while a modal screen stands, which closes then

  void press(KeyCode key) { realKey(key); }
  void write(const std::string& text) { realText(text); }
  Control& at(const std::string& name) { return *top()->find(name); }
  std::string focus() const { return top()->focused() ? top()->focused()->fullName() : ""; }
  void fill(const std::string& field, const std::string& text) {
    focusOn(at(field));
    edit::selectAll(at(field));
    press(KeyCode::Delete);
    write(text);
  }
  void shown(const std::string& screen) {
    require(top() && top()->spec.name == screen, screen + " is not shown");
  }

  void openYear() {
    press(KeyCode::Enter);
    for (int i = 0; i < 4; ++i) tick();
    settle();
    shown("frmmain");
  }
  void toShell() {
    while (top()->spec.name != "frmmain") press(KeyCode::Esc);
  }
  void bill() {
    toShell();
    realKey(Key::Ctrl('G'));
    shown("GSTSAPU");
  }
  void toItem() {
    bill();
    realKey(Key::Alt('A'));
    press(KeyCode::Enter);
    fill("Text1(4)", "A00001");
    press(KeyCode::Enter);
    focusOn(at("Text1(47)"));
    for (int i = 0; i < 4; ++i) press(KeyCode::Enter);
    require(focus() == "Text1(5)", "a new bill does not come to its first item");
  }

 protected:
  bool answerTo(const Question&) override { return true; }
  void box(const std::string&, const std::string&) override {}
  void nest(Screen& screen) override {
    settle();
    if (inside) inside();
    if (isOpen(screen)) Desk::close(screen);
  }
};

std::unique_ptr<QApplication> application;
std::unique_ptr<BenchWindow> running;

BenchWindow& freshWindow() {
  const auto clock = running ? running->clock : std::nullopt;
  running.reset();
  running = std::make_unique<BenchWindow>();
  running->clock = clock;
  require(startUp(*running, folder()), "the program does not start");
  running->settle();
  return *running;
}

BenchWindow& window() {
  if (!running) {
    freshWindow().openYear();
    running->clock = Moment{session().menddt, 10, 30};
  }
  if (running->top()->spec.name == "FRMCOMP") running->openYear();
  running->inside = {};
  running->toShell();
  return *running;
}

void startToShell(State& state) {
  window();
  BenchWindow* w = nullptr;
  each(
      state, [&] { w = &freshWindow(); }, [&] { w->openYear(); });
}

void billScreen(State& state) {
  BenchWindow& w = window();
  each(
      state, [&] { w.toShell(); }, [&] { w.bill(); });
}

void letter(State& state) {
  BenchWindow& w = window();
  w.toItem();
  each(
      state, [&] { w.fill("Text1(29)", "TO BE DELIVERED A"); }, [&] { w.write("T"); });
  require(w.at("Text1(29)").text == "TO BE DELIVERED AT", "a letter does not arrive");
}

void party(State& state) {
  BenchWindow& w = window();
  w.toItem();
  each(
      state, [&] { w.fill("Text1(4)", "A00002"); }, [&] { w.press(KeyCode::Enter); });
  require(w.focus() == "Text1(32)", "the party is not accepted");
}

void storedLine(State& state) {
  BenchWindow& w = window();
  w.toItem();
  w.write("I0000007");
  for (int i = 0; i < 3; ++i) w.press(KeyCode::Enter);
  w.write("3");
  for (int i = 0; i < 4; ++i) w.press(KeyCode::Enter);
  const auto amount = [&] {
    w.press(KeyCode::Up);
    w.focusOn(w.at("Text1(14)"));
    w.settle();
  };
  each(state, amount, [&] { w.press(KeyCode::Enter); });
  require(w.at("DataGrid1").grid.count() == 1 && w.focus() == "Text1(5)",
          "the line is not stored over itself");
}

void toNumber(BenchWindow& w) {
  w.bill();
  w.realKey(Key::Alt('M'));
  require(w.focus() == "Text1(0)", "Modify does not ask for the number");
}

void openedLookup(State& state, void (*go)(BenchWindow&)) {
  BenchWindow& w = window();
  go(w);
  bool found = false;
  w.inside = [&] { found = w.at("grdDataGrid").grid.count() > 0; };
  for (auto _ : state) w.press(KeyCode::Enter);
  require(found, "the lookup is empty");
}

void searched(State& state, void (*go)(BenchWindow&), const std::string& text) {
  BenchWindow& w = window();
  go(w);
  bool typed = false;
  w.inside = [&] {
    w.fill("Text2", text);
    each(
        state, [&] { w.press(KeyCode::Backspace); }, [&] { w.write(text.substr(text.size() - 1)); });
    typed = w.at("Text2").text == text;
  };
  w.press(KeyCode::Enter);
  require(typed, "the search is not typed");
}

}  // namespace

void addMeasurements() {
  static int count = 0;
  application = std::make_unique<QApplication>(count, nullptr);
  dress(*application);
  const auto toItem = [](BenchWindow& w) { w.toItem(); };
  measure("Drawn/start to shell", startToShell, true);
  measure("Drawn/bill screen opened", billScreen);
  measure("Drawn/letter typed", letter);
  measure("Drawn/party accepted", party);
  measure("Drawn/line stored", storedLine);
  measure("Drawn/lookup opened/bills", [](State& s) { openedLookup(s, toNumber); });
  measure("Drawn/lookup opened/items", [=](State& s) { openedLookup(s, toItem); });
  measure("Drawn/search/bills/RAM", [](State& s) { searched(s, toNumber, "RAM"); });
  measure("Drawn/search/items/CAB", [=](State& s) { searched(s, toItem, "CAB"); });
}

void endProgram() {
  running.reset();
  application.reset();
}
