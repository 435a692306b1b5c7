#include <QEventLoop>
#include <algorithm>

#include "platform/qt/qt_host.h"

// How the open screens stand in their windows.

void QtHost::changed() {
  redraw();
  setTimer();
  wakeLoops();
  if (quitting()) QCoreApplication::quit();
}

void QtHost::gone(Screen& screen) {
  // Their own events may still be running: they go when the loop comes back.
  if (const auto view = views_.find(&screen); view != views_.end()) {
    if (view->second) {
      view->second->hide();
      view->second->deleteLater();
    }
    views_.erase(view);
  }
  const auto window = windows_.find(&screen);
  if (window == windows_.end()) return;
  for (const auto& [child, view] : views_)
    if (view && view->parentWidget() == window->second.get()) view->deleteLater();
  if (window_ == window->second.get()) window_ = nullptr;
  window->second->hide();
  window->second.release()->deleteLater();
  windows_.erase(window);
}

void QtHost::resized() {
  if (drawing_) {
    again_ = true;
    return;
  }
  redraw();
  if (!window_) return;
  for (const auto& box : boxes_)
    if (box->parentWidget() == window_) box->restyle(window_->look(), boxFoot());
}

void QtHost::redraw() {
  if (drawing_) return;
  constexpr int kMostRounds = 3;  // showing a window resizes it
  drawing_ = true;
  for (int i = 0; i < kMostRounds; ++i) {
    again_ = false;
    drawWindow();
    if (!again_) break;
  }
  drawing_ = false;
  focusWidget();
}

// The screens in sight, the lowest first: the last main screen, the last child inside it,
// and the dialogs that came after.
std::vector<Screen*> QtHost::standing() const {
  Screen *main = nullptr, *child = nullptr;
  std::vector<Screen*> dialogs;
  for (const auto& screen : open()) {
    if (!screen->visible || !isOpen(*screen)) continue;
    switch (screen->spec.window) {
      case Window::Main:
        main = screen.get();
        child = nullptr;
        dialogs.clear();
        break;
      case Window::Child:
        child = screen.get();
        dialogs.clear();
        break;
      case Window::Dialog:
        dialogs.push_back(screen.get());
        break;
    }
  }
  std::vector<Screen*> all;
  if (main) all.push_back(main);
  if (child) all.push_back(child);
  all.insert(all.end(), dialogs.begin(), dialogs.end());
  return all;
}

void QtHost::drawWindow() {
  const std::vector<Screen*> screens = standing();
  if (screens.empty() || screens.front()->spec.window != Window::Main) return;
  std::unique_ptr<MainWindow>& window = windows_[screens.front()];
  if (!window) window = std::unique_ptr<MainWindow>(new MainWindow(*screens.front(), *this, *this));
  window_ = window.get();
  window_->syncBars(boxes_.empty() ? hint() : boxes_.back()->keys());
  window_->present(windowSize);
  for (const auto& [screen, other] : windows_)
    if (other.get() != window_ && other->isVisible()) other->hide();
  drawStanding(screens);
}

ScreenView& QtHost::viewOf(Screen& screen) {
  if (&screen == &window_->screen()) return window_->view();
  QPointer<ScreenView>& view = views_[&screen];
  if (view && view->parentWidget() != window_) {
    view->deleteLater();
    view = nullptr;
  }
  if (!view) view = new ScreenView(screen, *this, window_);
  return *view;
}

void QtHost::placeDialog(ScreenView& view) {
  const QRect whole = window_->rect(), room = window_->room();
  view.setGeometry(draw::rect(
      layout::placeDialog(view.screen(), {whole.x(), whole.y(), whole.width(), whole.height()},
                          {room.x(), room.y(), room.width(), room.height()}, window_->look().measure())));
}

void QtHost::drawStanding(const std::vector<Screen*>& screens) {
  for (const auto& [screen, view] : views_)
    if (view && view->isVisible() && std::ranges::find(screens, screen) == screens.end()) view->hide();
  const bool covered = screens.size() > 1 && screens[1]->spec.window == Window::Child;
  const Screen* const first = top();
  QRect dialog;
  for (size_t i = 1; i < screens.size(); ++i) {
    ScreenView& view = viewOf(*screens[i]);
    if (screens[i]->spec.window == Window::Dialog) {
      placeDialog(view);
      dialog = view.geometry();
    } else {
      view.setGeometry(window_->room());
    }
  }
  for (size_t i = covered ? 1 : 0; i < screens.size(); ++i) {
    ScreenView& view = viewOf(*screens[i]);
    const bool on = screens[i] == first;
    view.sync(window_->look(), on, on || dialog.isEmpty() ? QRect() : dialog.translated(-view.pos()));
    if (i > 0 && !view.isVisible()) {
      view.show();
      view.raise();
    }
  }
  for (size_t i = 1; i < screens.size(); ++i) viewOf(*screens[i]).raise();
  for (const auto& box : boxes_)
    if (box->isVisible()) box->lift();
}

// The widget of the control with the keys has the focus of the system as well: input methods
// and screen readers go by it.
void QtHost::focusWidget() {
  if (!window_ || QApplication::activePopupWidget()) return;
  QWidget* target = nullptr;
  if (!boxes_.empty()) {
    target = boxes_.back()->focusWidget();
  } else if (Screen* const screen = top(); screen && screen->focused()) {
    const bool main = screen == &window_->screen();
    const auto view = views_.find(screen);
    if (main)
      target = window_->view().widgetOf(screen->focused());
    else if (view != views_.end() && view->second)
      target = view->second->widgetOf(screen->focused());
  }
  if (!target) target = window_;
  if (!target->hasFocus()) target->setFocus(Qt::OtherFocusReason);
}

void QtHost::setTimer() {
  const Screen* const screen = top();
  const int interval = screen ? screen->timerMs : 0;
  if (interval <= 0)
    timer_.stop();
  else if (!timer_.isActive() || timer_.interval() != interval)
    timer_.start(interval);
}
