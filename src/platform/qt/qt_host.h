#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/desk.h"
#include "platform/qt/box_panel.h"
#include "platform/qt/esc_watch.h"
#include "platform/qt/keyboard.h"
#include "platform/qt/main_window.h"

class QEventLoop;

// The desk in windows: draws any screen from its table and passes on what the person does.
// An application (QApplication) stands before it; dress() has been called.
//
// Main screens are windows, child screens stand inside the shell's window, dialogs and boxes
// float over it as panels. Whatever a handler raises is shown as a message; the screen stays.
class QtHost : public QObject, public Desk, private Hands, private WindowEvents {
 public:
  explicit QtHost(const Screens& screens);
  ~QtHost() override;

  // Runs until the last screen has closed; the program's exit status.
  int run();

  // The machine as the host sees it; a script or a test sets it otherwise.
  std::optional<Moment> clock;
  std::optional<bool> isOnline;
  std::optional<ScreenSize> size;
  std::optional<std::pair<int, int>> windowSize;  // in place of the whole screen
  // Runs every twenty seconds, whatever stands on the screen, between the things that the person does.
  std::function<void()> onBeat;
  // Runs when a box stands on the screen, from inside the loop that waits for its answer.
  std::function<void()> onBox;
  const BoxPanel* box() const { return boxes_.empty() ? nullptr : boxes_.back().get(); }

  // Real key events through the application, as from a keyboard.
  void realKey(const Key& key);
  void realText(const std::string& text);
  // Handles events until there are none left.
  void settle();
  // A picture of the window in front, as PNG; false when it cannot be written.
  bool grab(const std::string& path);
  MainWindow* window() const { return window_; }

  // Host
  std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                   const std::string& initial = "") override;
  std::optional<std::string> chooseFile(const std::string& prompt, const std::string& title,
                                        const std::string& names) override;
  void busy(bool on) override;
  void refresh() override;
  Moment now() const override;
  ScreenSize display() const override;
  bool online() const override;
  bool running(const std::string& process) const override;
  void endProcess(const std::string& process) override;
  void launch(const std::string& program, const std::vector<std::string>& arguments) override;
  void openLink(const std::string& url) override;
  void view(const std::string& file) override;
  paint::Painter& painter() override;
  std::string clipboard() const override;
  void setClipboard(const std::string& text) override;

 protected:
  // Desk
  void box(const std::string& text, const std::string& title) override;
  bool answerTo(const Question& question) override;
  void nest(Screen& screen) override;
  void changed() override;
  void gone(Screen& screen) override;

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct Waiting {
    QEventLoop* loop;
    std::function<bool()> over;
  };

  // Hands
  void pressed(Screen& screen, Control& control) override;
  void pointed(Screen& screen, Control& control, size_t anchor, size_t caret) override;
  void committed(const std::string& text) override;
  void rowPressed(Screen& screen, Control& control, size_t row) override;
  void rowDoubled(Screen& screen, Control& control) override;
  // WindowEvents
  void menuChosen(const std::vector<size_t>& path) override;
  void toolChosen(size_t index) override;
  void closeAsked() override;
  void resized() override;

  void guarded(const std::function<void()>& event);
  bool reaches(const Screen& screen) const;
  bool escWhileBusy();
  void send(QEvent::Type type, const keyboard::Raw& raw);
  bool keyDown(const QKeyEvent& event);
  bool menuLetter(const Key& key);
  bool scrollsAcross(const Key& key);
  bool tooSoon(qint64 when);
  bool pressesOnce(const Key& key) const;
  QWidget& boxParent();
  std::optional<int> boxFoot() const;
  void showBare(BoxPanel& panel);
  std::unique_ptr<BoxPanel> answered(BoxPanel::Words words);
  void wait(const std::function<bool()>& over);
  void wakeLoops();

  void redraw();
  void drawWindow();
  void drawStanding(const std::vector<Screen*>& screens);
  std::vector<Screen*> standing() const;
  ScreenView& viewOf(Screen& screen);
  void placeDialog(ScreenView& view);
  void focusWidget();
  void setTimer();

  std::map<Screen*, std::unique_ptr<MainWindow>> windows_;
  std::map<Screen*, QPointer<ScreenView>> views_;
  std::vector<std::unique_ptr<BoxPanel>> boxes_;
  std::vector<Waiting> waiting_;
  std::unique_ptr<QWidget> bare_;  // holds a box when there is no window yet
  MainWindow* window_ = nullptr;
  QTimer timer_, beat_;
  EscWatch escWatch_;
  QElapsedTimer watch_;
  std::optional<qint64> lag_;  // of this clock behind that of the events
  int boxKey_ = 0;             // Qt's, the last one that a box took
  qint64 quietSince_ = 0;      // in the time of the events: since then a box waits for hands at rest
  std::unique_ptr<paint::Painter> painter_;
  bool drawing_ = false, again_ = false, busy_ = false, refreshing_ = false, altAlone_ = false,
       choosing_ = false;  // a file, whose window takes its own keys
  QString filesFrom_;
};
