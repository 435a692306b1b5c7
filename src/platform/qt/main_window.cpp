#include "platform/qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include "base/words.h"
#include "platform/qt/icons.h"
#include "platform/qt/palette.h"

namespace {

// A window may be made narrower than any screen wants, which then scrolls.
constexpr int kLeastWidth = 480, kLeastHeight = 320;

}  // namespace

MainWindow::MainWindow(Screen& screen, Hands& hands, WindowEvents& events)
    : screen_(screen), events_(events), look_(&Look::at(1)) {
  setWindowIcon(icons::program());
  setWindowTitle(QString::fromStdString(words(screen.caption)));
  menuBar_ = new MenuBar([this](const std::vector<size_t>& path) { events_.menuChosen(path); }, this);
  toolBar_ = new ToolBar([this](size_t index) { events_.toolChosen(index); }, this);
  statusBar_ = new StatusBar(this);
  view_ = new ScreenView(screen, hands, this);
  menuBar_->dressFor(*look_);
  if (splash()) setWindowFlag(Qt::FramelessWindowHint);
  setFocusPolicy(Qt::StrongFocus);
}

bool MainWindow::splash() const { return screen_.spec.layout.width > 0 && screen_.spec.layout.height > 0; }

void MainWindow::present(std::optional<std::pair<int, int>> size) {
  if (isVisible()) return;
  QRect work = QGuiApplication::primaryScreen()->availableGeometry();
  if (size) work.setSize({size->first, size->second});
  if (splash()) {
    look_ = &Look::at(layout::scaleFor(work.width(), work.height()));
    setFixedSize(look_->px(screen_.spec.layout.width), look_->px(screen_.spec.layout.height));
    move(work.center() - rect().center());
    show();
  } else {
    setMinimumSize(std::min(kLeastWidth, work.width()), std::min(kLeastHeight, work.height()));
    setGeometry(work);
    size ? show() : showMaximized();
  }
  activateWindow();
  setFocus();
}

QRect MainWindow::room() const { return view_->geometry(); }

void MainWindow::rescale() {
  if (splash()) return;
  const QSize whole = frameGeometry().size().expandedTo(size());
  const Look& look =
      Look::at(layout::scaleFor(whole.width(), whole.height()), layout::isSmall(width(), height()));
  if (&look == look_) return;
  look_ = &look;
  menuBar_->dressFor(*look_);
}

// No frame is larger than its screen or has its title above the edge: what a window manager gives back
// when it is no longer maximized is made to fit, with some of the desktop in sight.
void MainWindow::fitScreen() {
  if (splash() || !isVisible() || windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) return;
  const QRect work = QWidget::screen()->availableGeometry(), frame = frameGeometry();
  if (frame.top() >= work.top() && frame.width() <= work.width() && frame.height() <= work.height()) return;
  constexpr int kShare = 16;
  const QRect inside = work.adjusted(work.width() / kShare, work.height() / kShare, -work.width() / kShare,
                                     -work.height() / kShare);
  const QSize border = frame.size() - size();
  resize(inside.size() - border);
  move(inside.topLeft());
}

void MainWindow::placeParts() {
  using namespace layout::size;
  const bool menus = !screen_.menus.empty(), tools = !screen_.tools.empty();
  const int menu = menus ? look_->px(kMenuBar) : 0, tool = tools ? look_->px(kToolBar) : 0;
  toolsShown_ = tools;
  const int status = screen_.panels.empty() ? 0 : look_->px(kStatusBar);
  menuBar_->setVisible(menus);
  toolBar_->setVisible(tool > 0);  // a small window has no tools; the menus have their entries
  statusBar_->setVisible(status > 0);
  menuBar_->setGeometry(0, 0, width(), menu);
  toolBar_->setGeometry(0, menu, width(), tool);
  view_->setGeometry(0, menu + tool, width(), height() - menu - tool - status);
  statusBar_->setGeometry(0, height() - status, width(), status);
}

void MainWindow::syncBars(const std::string& hint) {
  setWindowTitle(QString::fromStdString(words(screen_.caption)));
  if (menuBar_->isHidden() != screen_.menus.empty() || toolsShown_ == screen_.tools.empty()) placeParts();
  menuBar_->sync(screen_.menus);
  toolBar_->sync(screen_.tools, *look_);
  statusBar_->sync(screen_.panels, hint, *look_);
}

void MainWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  constexpr int kSettled = 150;  // milliseconds in which the frame comes to its place
  if (event->type() == QEvent::WindowStateChange) QTimer::singleShot(kSettled, this, [this] { fitScreen(); });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  events_.closeAsked();
}

void MainWindow::resizeEvent(QResizeEvent*) {
  rescale();
  placeParts();
  events_.resized();
}

void MainWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(palette::kScreen));
  if (!splash()) return;
  draw::box(painter, rect(), QColor(palette::kScreen), QColor(palette::kAccent), look_->px(2), 0);
}
