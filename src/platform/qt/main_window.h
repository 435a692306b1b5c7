#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "platform/qt/bars.h"
#include "platform/qt/screen_view.h"

// What a window asks of the host.
class WindowEvents {
 public:
  virtual ~WindowEvents() = default;
  virtual void menuChosen(const std::vector<size_t>& path) = 0;
  virtual void toolChosen(size_t index) = 0;
  virtual void closeAsked() = 0;
  virtual void resized() = 0;
};

// The window of one main screen: its bars, its own controls, and room for the screens that
// stand inside it and the panels that float above them.
class MainWindow : public QWidget {
 public:
  MainWindow(Screen& screen, Hands& hands, WindowEvents& events);

  Screen& screen() const { return screen_; }
  const Look& look() const { return *look_; }
  ScreenView& view() const { return *view_; }
  MenuBar& menus() { return *menuBar_; }
  void syncBars(const std::string& hint);
  // Shows it: a splash in its own size, all others over the whole screen or as large as asked for.
  void present(std::optional<std::pair<int, int>> size);
  // Where child screens stand, and where panels may float.
  QRect room() const;
  int foot() const {
    return statusBar_->isHidden() ? height() : statusBar_->y();
  }  // of all but the status bar

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent*) override;
  void paintEvent(QPaintEvent*) override;

 private:
  bool splash() const;
  void rescale();
  void fitScreen();
  void placeParts();

  Screen& screen_;
  WindowEvents& events_;
  const Look* look_;
  MenuBar* menuBar_;
  ToolBar* toolBar_;
  StatusBar* statusBar_;
  ScreenView* view_;
  bool toolsShown_ = false;
};
