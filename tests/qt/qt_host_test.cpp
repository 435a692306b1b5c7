#include "platform/qt/qt_host.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProcess>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <QWindow>
#include <stdexcept>

#include "base/end_asked.h"
#include "platform/qt/palette.h"

namespace {

// One off-screen application for all tests; real key and mouse events go through it.
QApplication& application() {
  static int count = 1;
  static char name[] = "test", *arguments[] = {name, nullptr};
  static const bool set = qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication* const app = new QApplication(count, arguments);
  static const bool dressed = (dress(*app), set);
  (void)dressed;
  return *app;
}

// Rows made while they are asked for.
class ManyRows : public RowSource {
 public:
  static constexpr size_t kCount = 100000;
  mutable size_t asked = 0;
  size_t count() const override { return kCount; }
  Cell cell(size_t row, size_t) const override {
    ++asked;
    return {.text = "row " + std::to_string(row)};
  }
};

// clang-format off
const ScreenSpec& shellTable() {
  static const ScreenSpec s{
      .name = "shell", .caption = "Shell", .window = Window::Main,
      .layout = {.bands = {{part(1), {{.name = "g", .columns = {px(100), part(1)}}}}}},
      .controls = {{.name = "Company", .kind = Kind::Label, .at = {.group = "g"}}}};
  return s;
}

const ScreenSpec& billTable() {
  static const ScreenSpec s{
      .name = "bill", .caption = "Bill", .focusColour = 0xFFC0FF,
      .layout = {.bands = {{px(116), {{.name = "g", .columns = {px(100), px(200), px(100), part(1)}}}},
                           {part(1), {{.name = "list", .frame = Frame::Plain}}},
                           {px(34), {{.name = "buttons", .frame = Frame::Buttons}}}}},
      .controls = {
          {.name = "Code", .label = "Code", .at = {.group = "g", .row = 0, .col = 1}, .tab = 1, .limit = 6, .keys = KeyClass::Text},
          {.name = "Qty", .label = "Qty", .at = {.group = "g", .row = 1, .col = 1}, .tab = 2, .keys = KeyClass::Number},
          {.name = "Total", .label = "Total", .at = {.group = "g", .row = 2, .col = 1}, .enabled = false, .money = true},
          {.name = "Day", .kind = Kind::Date, .label = "Day", .at = {.group = "g", .row = 0, .col = 3}, .tab = 3},
          {.name = "List", .kind = Kind::Grid, .at = {.group = "list"}, .tab = 4, .columns = {{.title = "Name"}, {.title = "More"}}},
          {.name = "Close", .kind = Kind::Button, .label = "&Close", .at = {.group = "buttons"}, .tab = 5},
      }};
  return s;
}

const ScreenSpec& lookupTable() {
  static const ScreenSpec s{
      .name = "lookup", .caption = "Help", .window = Window::Dialog, .focusColour = 0xFFC0FF,
      .layout = {.bands = {{part(1), {{.name = "g", .columns = {px(60), part(1)}}}}}, .width = 400, .height = 200},
      .controls = {{.name = "Search", .label = "Find", .at = {.group = "g", .col = 1}, .tab = 1}}};
  return s;
}
// clang-format on

class Shell : public Screen {
 public:
  explicit Shell(Host& h) : Screen(h, shellTable()) {
    menus = {
        {.caption = "&Entry", .control = "entry", .entries = {{.caption = "&Bill", .control = "bill"}}},
        { .caption = "&Lists",
         .control = "lists",
         .enabled = false,
         .entries = {{.caption = "&All", .control = "all"}}}
    };
    panels = {"Company", "", "Today"};
  }
  void chosen(const MenuEntry& entry) override { host.open(entry.control); }
};

class Bill : public Screen {
 public:
  explicit Bill(Host& h) : Screen(h, billTable()), rows(std::make_shared<ManyRows>()) {
    at("List").grid.source = rows;
    set(at("Total"), "1234567.50");
    wire<Bill>(*this, {
                          {"Code",  KeyCode::Enter, &Bill::check   },
                          {"Code",  On::Validate,   &Bill::check   },
                          {"Close", On::Click,      &Bill::leave   },
                          {"",      KeyCode::F1,    &Bill::help    },
                          {"",      KeyCode::F2,    &Bill::question},
                          {"",      KeyCode::F7,    &Bill::risk    },
                          {"",      KeyCode::F6,    &Bill::tell    },
                          {"",      KeyCode::F3,    &Bill::prompt  },
                          {"",      KeyCode::F4,    &Bill::fail    },
                          {"",      KeyCode::F5,    &Bill::work    }
    });
  }
  Go check() {
    if (here().text != "BAD") return Go::On;
    host.message("NO SUCH CODE", "Mirav Check");
    return Go::Stay;
  }
  void leave() { host.close(*this); }
  void help() {
    if (const auto found = host.openModal("lookup")) set(at("Code"), *found);
  }
  void question() { answer = host.ask("Sure", "Mirav Confirmation"); }
  void risk() {
    answer = host.ask({.text = "Leave", .yes = "&Throw Away", .no = "&Keep Typing", .loses = true});
  }
  void tell() { host.message(story); }
  void prompt() { typed = host.input("New name", "Mirav", "OLD"); }
  void fail() { throw std::runtime_error("disk I/O error"); }
  void work() {
    const Busy busy(host);
    during();
  }

  std::shared_ptr<ManyRows> rows;
  std::optional<bool> answer;
  std::optional<std::string> typed;
  std::string story;
  std::function<void()> during;
};

class Lookup : public Screen {
 public:
  explicit Lookup(Host& h) : Screen(h, lookupTable()) {
    wire<Lookup>(*this, {
                            {"", KeyCode::Enter, &Lookup::choose},
                            {"", KeyCode::Esc,   &Lookup::leave }
    });
  }
  Go choose() {
    result = at("Search").text;
    host.close(*this);
    return Go::Stay;
  }
  void leave() { host.close(*this); }
};

class QtHostTest : public testing::Test {
 protected:
  QtHostTest() {
    application();
    screens_.add<Shell>("shell");
    screens_.add<Bill>("bill");
    screens_.add<Lookup>("lookup");
    host_ = std::make_unique<QtHost>(screens_);
    host_->windowSize = {1366, 738};
    host_->start("shell");
    host_->settle();
  }

  Bill& bill() {
    if (!host_->find("bill")) host_->open("bill");
    host_->settle();
    return static_cast<Bill&>(*host_->find("bill"));
  }
  QLineEdit* field(const char* label) const {
    for (QLineEdit* edit : host_->window()->findChildren<QLineEdit*>())
      if (edit->accessibleName() == label) return edit;
    return nullptr;
  }
  QRgb pixel(const QWidget& widget, QPoint at) const {
    return host_->window()->grab().toImage().pixel(widget.mapTo(host_->window(), at));
  }
  static void clickInto(QWidget& widget, QPoint at) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(&widget, &event);
    }
  }
  // What happens while the next box waits for its answer.
  void inBox(std::function<void()> happens) {
    host_->onBox = [this, happens = std::move(happens)] {
      host_->onBox = nullptr;
      happens();
    };
  }
  void inModal(std::function<void()> happens) { QTimer::singleShot(0, host_.get(), std::move(happens)); }
  std::string focus() const { return host_->top()->focused() ? host_->top()->focused()->fullName() : ""; }

  Screens screens_;
  std::unique_ptr<QtHost> host_;
};

TEST_F(QtHostTest, TypingPassesTheFilterAndTheLimit) {
  Bill& b = bill();
  host_->realText("abc$defgh");
  EXPECT_EQ(b.at("Code").text, "ABCDEF");
  host_->realKey(KeyCode::Enter);
  host_->realText("1x2.5");
  EXPECT_EQ(b.at("Qty").text, "12.5");
  host_->realKey(Key::Shift(KeyCode::Tab));
  EXPECT_EQ(focus(), "Code");
  host_->realKey(KeyCode::Tab);
  host_->realKey(KeyCode::Tab);
  host_->realText("15062026");
  EXPECT_EQ(b.at("Day").text, "15/06/2026");
}

TEST_F(QtHostTest, StatesHaveTheColoursOfTheLook) {
  Bill& b = bill();
  host_->realText("A1");
  QLineEdit &code = *field("Code"), &qty = *field("Qty"), &total = *field("Total");
  const QPoint middle(100, 15), frame(100, 1);
  EXPECT_EQ(pixel(code, middle), 0xFFFFC0FFu);
  EXPECT_EQ(pixel(code, frame), palette::kAccent);
  EXPECT_EQ(pixel(qty, middle), palette::kField);
  EXPECT_EQ(pixel(qty, {100, 0}), palette::kFieldLine);
  EXPECT_EQ(pixel(total, {60, 15}), palette::kOff);
  b.at("Qty").locked = true;
  host_->refresh();
  EXPECT_EQ(pixel(qty, middle), palette::kLocked);
  for (const bool visible : {false, true}) {
    b.at("Qty").visible = visible;
    host_->refresh();
    EXPECT_EQ(qty.isVisible(), visible);
  }

  QRgb refused = 0, caller = 0, callerBack = 0;
  Screen::set(b.at("Code"), "BAD");
  inBox([&] {
    refused = pixel(code, frame);
    host_->realKey(KeyCode::Enter);
  });
  host_->realKey(KeyCode::Enter);
  EXPECT_EQ(pixel(code, frame), palette::kError);
  EXPECT_NE(refused, palette::kError) << "all behind a box is dimmed";
  inModal([&] {
    caller = pixel(code, frame);
    callerBack = pixel(code, middle);
    host_->realKey(KeyCode::Esc);
  });
  host_->realKey(KeyCode::F1);
  EXPECT_EQ(caller, palette::kAccent);
  EXPECT_EQ(callerBack, palette::kField);
}

TEST_F(QtHostTest, OnlyThePainterGroupsFigures) {
  Bill& b = bill();
  EXPECT_EQ(field("Total")->text(), "12,34,567.50");
  EXPECT_EQ(b.at("Total").text, "1234567.50");
  EXPECT_EQ(groupedFigures("-1234.5"), "-1,234.5");
  for (const char* plain : {"", "-", "A1234", "12/06/2026", "1 234", "Dr"})
    EXPECT_EQ(groupedFigures(plain), plain);
}

TEST_F(QtHostTest, QuestionsAreAnsweredByTheirKeys) {
  const struct {
    std::vector<Key> keys;
    const char* text;
    bool yes;
  } rows[] = {
      {{KeyCode::Enter},                              "",  true },
      {{KeyCode::Esc},                                "",  false},
      {{KeyCode::Right, KeyCode::Enter},              "",  false},
      {{KeyCode::Tab, KeyCode::Left, KeyCode::Enter}, "",  true },
      {{Key::Alt('N')},                               "",  false},
      {{KeyCode::F5},                                 "n", false},
      {{KeyCode::Down},                               "y", true },
  };
  Bill& b = bill();
  for (const auto& [keys, text, yes] : rows) {
    b.answer.reset();
    inBox([&] {
      for (const Key& k : keys) host_->realKey(k);
      host_->realText(text);
    });
    host_->realKey(KeyCode::F2);
    EXPECT_EQ(b.answer, yes);
    EXPECT_EQ(b.at("Code").text, "") << "nothing of the answer reaches the screen";
  }
}

TEST_F(QtHostTest, WhatKeepsTheWorkStandsFirstAndWhoTypesOnAnswersNothing) {
  Bill& b = bill();
  quint64 opened = 0;  // ms
  const auto press = [&](int key, const char* text, quint64 after, bool held = false) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text, held);
    event.setTimestamp(opened + after);
    QApplication::sendEvent(host_->window(), &event);
  };
  const auto answerOf = [&](const std::function<void()>& happens) {
    b.answer.reset();
    opened += 1000000;
    inBox(happens);
    press(Qt::Key_F7, "", 0);
    return b.answer;
  };
  EXPECT_EQ(answerOf([&] {
              EXPECT_EQ(host_->box()->keys(),
                        "Enter = Marked Button  ::  Left / Right = Other Button  ::  Esc = Keep Typing");
              press(Qt::Key_Return, "", 60000);
            }),
            false);
  EXPECT_EQ(answerOf([&] { press(Qt::Key_Escape, "", 60000); }), false);
  EXPECT_EQ(answerOf([&] { press(Qt::Key_T, "t", 60000); }), true);
  // The rest of a word, and a key that is held, go nowhere; after a rest the box listens.
  EXPECT_EQ(answerOf([&] {
              for (const quint64 when : {50, 250, 500}) press(Qt::Key_T, "t", when);
              press(Qt::Key_Space, " ", 60000, true);
              press(Qt::Key_Escape, "", 60000, true);
              EXPECT_FALSE(host_->box()->done());
              press(Qt::Key_K, "k", 60000);
            }),
            false);
  press(Qt::Key_K, "k", 60100, true);
  EXPECT_EQ(b.at("Code").text, "") << "it is still held";
}

TEST_F(QtHostTest, ALongMessageScrollsAboveItsButtonInsideTheWindow) {
  Bill& b = bill();
  for (int i = 0; i < 60; ++i) b.story += "line\n";
  inBox([&] {
    const BoxPanel& box = *host_->box();
    EXPECT_TRUE(host_->window()->rect().contains(box.geometry()));
    EXPECT_TRUE(box.rect().contains(box.buttonRect(0)));
    const QImage before = host_->window()->grab().toImage();
    host_->realKey(KeyCode::PgDn);
    EXPECT_NE(host_->window()->grab().toImage(), before);
    host_->realKey(KeyCode::Enter);
  });
  host_->realKey(KeyCode::F6);
}

TEST_F(QtHostTest, BoxesGiveWhatWasTypedOrNothingAndTellOfFailures) {
  Bill& b = bill();
  inBox([&] {
    EXPECT_EQ(host_->box()->words().text, "New name");
    host_->realText("New ");  // the first text is selected and goes
    host_->setClipboard("name");
    host_->realKey(Key::Ctrl('V'));
    host_->realKey(KeyCode::Enter);
  });
  host_->realKey(KeyCode::F3);
  EXPECT_EQ(b.typed, "New name");
  inBox([&] { host_->realKey(KeyCode::Esc); });
  host_->realKey(KeyCode::F3);
  EXPECT_EQ(b.typed, std::nullopt);
  std::string words;
  inBox([&] {
    words = host_->box()->words().text;
    // The Enter that led to the box and is still held does not answer it.
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "", true);
    QApplication::sendEvent(host_->window(), &held);
    EXPECT_FALSE(host_->box()->done());
    host_->realKey(KeyCode::Enter);
  });
  host_->realKey(KeyCode::F4);
  EXPECT_EQ(words, "disk I/O error");
  EXPECT_EQ(host_->top()->spec.name, "bill");
}

TEST_F(QtHostTest, PointerMovesTheFocusUnlessTheFieldRefuses) {
  Bill& b = bill();
  host_->realText("ABCDEF");
  Screen::set(b.at("Qty"), "1640");
  clickInto(*field("Qty"), {20, 10});
  EXPECT_EQ(focus(), "Qty");
  host_->realText("2");
  EXPECT_EQ(b.at("Qty").text, "2") << "what the program put is replaced";
  clickInto(*field("Code"), {195, 10});
  EXPECT_EQ(b.at("Code").caret, 6u) << "behind the text";
  clickInto(*field("Code"), {8, 10});
  EXPECT_EQ(b.at("Code").caret, 0u);
  // A hand that trembles selects nothing else than it clicked on.
  QMouseEvent drag(QEvent::MouseMove, QPointF(11, 10), field("Code")->mapToGlobal(QPointF(11, 10)),
                   Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
  QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(8, 10), field("Code")->mapToGlobal(QPointF(8, 10)),
                    Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(field("Code"), &twice);
  QApplication::sendEvent(field("Code"), &drag);
  EXPECT_EQ(b.at("Code").anchor, 0u);
  EXPECT_EQ(b.at("Code").caret, 6u);
  // An input method puts two letters right that it has committed.
  host_->realKey(KeyCode::End);
  QInputMethodEvent mended;
  mended.setCommitString("XY", -2, 2);
  QApplication::sendEvent(field("Code"), &mended);
  EXPECT_EQ(b.at("Code").text, "ABCDXY");
  Screen::set(b.at("Code"), "BAD");
  inBox([&] { host_->realKey(KeyCode::Enter); });
  clickInto(*field("Qty"), {20, 10});
  EXPECT_EQ(focus(), "Code");
}

TEST_F(QtHostTest, MenusOpenByTheirLettersWhileTheShellHasTheKeys) {
  host_->realKey(Key::Alt('L'));
  EXPECT_FALSE(QApplication::activePopupWidget()) << "it is off";
  host_->realKey(Key::Alt('E'));
  ASSERT_TRUE(QApplication::activePopupWidget());
  host_->realText("b");
  EXPECT_EQ(host_->top()->spec.name, "bill");
  host_->realKey(Key::Alt('E'));
  EXPECT_FALSE(QApplication::activePopupWidget());
  host_->realKey(Key::Alt('C'));
  EXPECT_EQ(host_->top()->spec.name, "shell");
}

TEST_F(QtHostTest, GridsAskOnlyForTheRowsInView) {
  Bill& b = bill();
  host_->focusOn(b.at("List"));
  host_->settle();
  b.rows->asked = 0;
  host_->realKey(KeyCode::End);
  EXPECT_EQ(b.at("List").grid.current, ManyRows::kCount - 1);
  EXPECT_LT(b.rows->asked, 1000u);
  const auto bars = host_->window()->findChildren<QScrollBar*>();
  EXPECT_TRUE(std::ranges::any_of(bars, [](const QScrollBar* bar) {
    return bar->value() > 99000 && bar->value() == bar->maximum();
  })) << "the last row is in view";

  // A touchpad turns by parts of a row.
  QScrollBar* const bar = *std::ranges::max_element(bars, {}, &QScrollBar::value);
  const int last = bar->value();
  for (int i = 0; i < 12; ++i) {
    QWheelEvent turn(QPointF(5, 5), bar->parentWidget()->mapToGlobal(QPointF(5, 5)), {}, {0, 10},
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(bar->parentWidget(), &turn);
  }
  EXPECT_EQ(bar->value(), last - 3);
}

// Counts what is painted.
class Painted : public QObject {
 public:
  int count = 0;
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint;
    return false;
  }
};

TEST_F(QtHostTest, AKeyPaintsOnlyWhatItChanged) {
  bill();
  Painted code, qty;
  field("Code")->installEventFilter(&code);
  field("Qty")->installEventFilter(&qty);
  host_->realText("A");
  EXPECT_EQ(code.count, 1);
  EXPECT_EQ(qty.count, 0);
}

// What is typed while work goes on comes after it, save Esc, which ends the work.
TEST_F(QtHostTest, EscEndsWhatHoldsTheLoopUp) {
  std::vector<bool> told;
  const auto press = [&](int key, const QString& text) {
    QWindow* const window = host_->window()->windowHandle();
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      QCoreApplication::postEvent(window, new QKeyEvent(type, key, Qt::NoModifier, text));
  };
  Bill& b = bill();
  b.during = [&] {
    press(Qt::Key_A, "A");
    told.push_back(endAsked()());
    press(Qt::Key_Escape, {});
    press(Qt::Key_B, "B");
    told.push_back(endAsked()());
    told.push_back(endAsked()());
    EXPECT_EQ(b.at("Code").text, "") << "nothing runs inside the work";
  };
  host_->realKey(KeyCode::F5);
  EXPECT_EQ(told, (std::vector{false, true, false}));
  EXPECT_EQ(b.at("Code").text, "AB");
  EXPECT_EQ(host_->top()->spec.name, "bill");
  EXPECT_FALSE(endAsked()()) << "nothing is looked for while nobody waits";
}

TEST_F(QtHostTest, AWindowThatIsNoLongerMaximizedFitsItsScreen) {
  MainWindow& window = *host_->window();
  const QRect work = QGuiApplication::primaryScreen()->availableGeometry();
  window.showMaximized();
  window.showNormal();
  window.setGeometry(work.adjusted(-20, -30, 20, 30));
  QElapsedTimer waited;
  for (waited.start(); !work.contains(window.frameGeometry()) && waited.elapsed() < 2000;) host_->settle();
  EXPECT_TRUE(work.contains(window.frameGeometry()));
}

TEST_F(QtHostTest, FindsAndEndsAProgramByItsName) {
  QTemporaryDir folder;
  const QString probe = folder.filePath("MiravProbe"), other = folder.filePath("OtherProbe");
  for (const QString& name : {probe, other}) ASSERT_TRUE(QFile::copy("/bin/sleep", name));
  QProcess first, second;
  first.start(probe, {"60"});
  second.start(other, {"60"});
  ASSERT_TRUE(first.waitForStarted() && second.waitForStarted());
  EXPECT_TRUE(host_->running("miravprobe.EXE"));
  EXPECT_FALSE(host_->running("miravprobes.exe"));
  host_->endProcess("miravprobe.exe");
  EXPECT_TRUE(first.waitForFinished(5000));
  EXPECT_FALSE(host_->running("miravprobe.exe"));
  EXPECT_EQ(second.state(), QProcess::Running);
  second.kill();
  second.waitForFinished();
}

}  // namespace
