#include "platform/qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>

#include "base/words.h"
#include "platform/qt/icons.h"
#include "platform/qt/palette.h"

namespace {

// The smallest work area in which every field of every screen is in view.
constexpr int kLeastWidth = 1366, kLeastHeight = 690;

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
  const double scale = layout::scaleFor(whole.width(), whole.height());
  if (scale == look_->scale()) return;
  look_ = &Look::at(scale);
  menuBar_->dressFor(*look_);
}

void MainWindow::placeParts() {
  using namespace layout::size;
  const bool menus = !screen_.menus.empty(), tools = !screen_.tools.empty();
  const int menu = menus ? look_->px(kMenuBar) : 0, tool = tools ? look_->px(kToolBar) : 0;
  const int status = screen_.panels.empty() ? 0 : look_->px(kStatusBar);
  menuBar_->setVisible(menus);
  toolBar_->setVisible(tools);
  statusBar_->setVisible(status > 0);
  menuBar_->setGeometry(0, 0, width(), menu);
  toolBar_->setGeometry(0, menu, width(), tool);
  view_->setGeometry(0, menu + tool, width(), height() - menu - tool - status);
  statusBar_->setGeometry(0, height() - status, width(), status);
}

void MainWindow::syncBars(const std::string& hint) {
  setWindowTitle(QString::fromStdString(words(screen_.caption)));
  if (menuBar_->isHidden() != screen_.menus.empty() || toolBar_->isHidden() != screen_.tools.empty())
    placeParts();
  menuBar_->sync(screen_.menus);
  toolBar_->sync(screen_.tools, *look_);
  statusBar_->sync(screen_.panels, hint, *look_);
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
