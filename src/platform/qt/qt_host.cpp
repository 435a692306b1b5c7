#include "platform/qt/qt_host.h"

#include <QAbstractEventDispatcher>
#include <QClipboard>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QThread>
#include <QUrl>
#include <algorithm>

#include "base/end_asked.h"
#include "base/log.h"
#include "base/text.h"
#include "base/words.h"
#include "platform/qt/icons.h"
#include "platform/qt/machine.h"
#include "platform/qt/paint_qt.h"

namespace {

constexpr double kTwipsPerPixel = 15;
constexpr int kBeatEvery = 20000;  // milliseconds

bool withoutDesktop() {
  const QString name = QGuiApplication::platformName();
  return name == "offscreen" || name == "minimal";
}

}  // namespace

QtHost::QtHost(const Screens& screens) : Desk(screens) {
  QApplication::setQuitOnLastWindowClosed(false);
  qApp->installEventFilter(this);
  endAsked() = [this] { return escWhileBusy(); };
  watch_.start();
  QObject::connect(&timer_, &QTimer::timeout, this, [this] {
    if (boxes_.empty() && !refreshing_) guarded([this] { tick(); });
  });
  QObject::connect(&beat_, &QTimer::timeout, this, [this] {
    if (!onBeat || refreshing_) return;
    guarded(onBeat);
    changed();
  });
  beat_.start(kBeatEvery);
}

QtHost::~QtHost() {
  endAsked() = {};
  qApp->removeEventFilter(this);
}

int QtHost::run() { return quitting() ? 0 : QApplication::exec(); }

// Nothing that a handler raises passes through Qt's loop.
void QtHost::guarded(const std::function<void()>& event) {
  try {
    event();
  } catch (const std::exception& error) {
    logFailure(kTold, error);
    busy(false);
    message(error.what(), kMessageTitle);
  }
}

// What the person does

bool QtHost::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::WindowDeactivate:
      altAlone_ = false;
      return false;
    case QEvent::Close:
      if (object == bare_.get() && !boxes_.empty()) boxes_.back()->key(KeyCode::Esc);
      return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      break;
    default:
      return false;
  }
  if (!object->isWidgetType() || choosing_ || QApplication::activePopupWidget()) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  key->accept();
  if (event->type() == QEvent::KeyPress) return keyDown(*key);
  if (event->type() == QEvent::KeyRelease && key->key() == Qt::Key_Alt && altAlone_) {
    altAlone_ = false;
    if (boxes_.empty() && window_ && top() == &window_->screen()) window_->menus().activate();
  }
  return true;
}

bool QtHost::keyDown(const QKeyEvent& event) {
  altAlone_ = event.key() == Qt::Key_Alt;
  const auto when = static_cast<qint64>(event.timestamp());
  if (when > 0) lag_ = std::min(lag_.value_or(watch_.elapsed() - when), watch_.elapsed() - when);
  const std::string text = keyboard::textOf(event);
  const Key key = keyboard::keyOf(event);
  if (!boxes_.empty()) {
    BoxPanel& box = *boxes_.back();
    const bool types = box.words().kind == BoxPanel::Kind::Input;
    const bool answers = key.code == KeyCode::Enter || key.code == KeyCode::Esc || (!text.empty() && !types);
    const bool held = event.isAutoRepeat() && answers;
    if (held || tooSoon(when)) return true;
    boxKey_ = event.key();
    if (key == Key::Ctrl('V'))
      box.paste(clipboard());
    else if (!text.empty())
      box.type(text);
    else if (key.code != KeyCode::None)
      box.key(key);
    return true;
  }
  // A key that answered a box and is still held types nothing behind it.
  if (event.isAutoRepeat() && (event.key() == boxKey_ || pressesOnce(key))) return true;
  boxKey_ = 0;
  if (!text.empty())
    guarded([&] { type(text); });
  else if (key.code != KeyCode::None && !menuLetter(key) && !scrollsAcross(key))
    guarded([&] { this->key(key); });
  return true;
}

// A box that opens in the middle of a word is not answered by the rest of it: it takes keys once the
// hands have rested. By the time of the events themselves; those without one are taken.
bool QtHost::tooSoon(qint64 when) {
  constexpr qint64 kRest = 300, kStale = 60000;  // ms
  const bool soon = when > 0 && quietSince_ > 0 && when < quietSince_ + kRest && when > quietSince_ - kStale;
  if (soon) quietSince_ = std::max(quietSince_, when);
  return soon;
}

// Held down, these go no further than the first press: a button is not pressed by the key that led to it,
// and Esc leaves one thing at a time.
bool QtHost::pressesOnce(const Key& key) const {
  if (key.code == KeyCode::Esc) return true;
  const Screen* const screen = top();
  const Control* const control = screen ? screen->focused() : nullptr;
  return control && control->kind == Kind::Button &&
         (key.code == KeyCode::Enter || key.code == KeyCode::Space);
}

// Alt and a letter open a menu while the shell itself has the keys.
bool QtHost::menuLetter(const Key& key) {
  if (!key.alt || key.ctrl || key.code != KeyCode::Char || !window_ || top() != &window_->screen())
    return false;
  return window_->menus().openByLetter(key.ch);
}

// Left and Right on a grid that is wider than its place, where the screen has nothing of its own for them.
bool QtHost::scrollsAcross(const Key& key) {
  if (key.code != KeyCode::Left && key.code != KeyCode::Right) return false;
  Screen* const screen = top();
  const Control* const grid = screen ? screen->focused() : nullptr;
  if (!grid || grid->kind != Kind::Grid || !window_) return false;
  if (!key.shift && screen->rule(grid, key)) return false;
  return viewOf(*screen).across(*grid, key.code == KeyCode::Left ? -1 : 1);
}

bool QtHost::reaches(const Screen& screen) const { return boxes_.empty() && top() == &screen; }

void QtHost::pressed(Screen& screen, Control& control) {
  if (reaches(screen)) guarded([&] { click(control); });
}

// A text that is marked whole when its field is entered is so by the mouse as well.
void QtHost::pointed(Screen& screen, Control& control, size_t anchor, size_t caret) {
  if (!reaches(screen)) return;
  guarded([&] {
    const bool enters = screen.focused() != &control;
    if (!focusOn(control) || (enters && (control.selectAll || control.given))) return;
    select(control, anchor, caret);
  });
}

// Nothing in place of what is selected takes it away.
void QtHost::committed(const std::string& text) {
  if (boxes_.empty()) guarded([&] { text.empty() ? key(KeyCode::Delete) : type(text); });
}

void QtHost::rowPressed(Screen& screen, Control& control, size_t row) {
  if (reaches(screen)) guarded([&] { rowTo(control, row); });
}

void QtHost::rowDoubled(Screen& screen, Control& control) {
  if (reaches(screen)) guarded([&] { doubleClick(control); });
}

void QtHost::menuChosen(const std::vector<size_t>& path) {
  if (!window_ || !boxes_.empty()) return;
  const std::vector<MenuEntry>* entries = &window_->screen().menus;
  const MenuEntry* entry = nullptr;
  for (const size_t i : path) {
    if (i >= entries->size()) return;
    entry = &(*entries)[i];
    entries = &entry->entries;
  }
  if (entry) guarded([&] { menu(MenuEntry(*entry)); });
}

void QtHost::toolChosen(size_t index) {
  if (!window_ || !boxes_.empty() || index >= window_->screen().tools.size()) return;
  guarded([&] { tool(ToolEntry(window_->screen().tools[index])); });
}

void QtHost::closeAsked() {
  QTimer::singleShot(0, this, [this] {
    if (boxes_.empty()) guarded([this] { closeTop(); });
  });
}

void QtHost::send(QEvent::Type type, const keyboard::Raw& raw) {
  QWidget* target = QApplication::activePopupWidget();
  if (!target) target = QApplication::focusWidget();
  if (!target) target = window_;
  if (!target) return;
  QKeyEvent event(type, raw.key, raw.modifiers, raw.text);
  QApplication::sendEvent(target, &event);
}

void QtHost::realKey(const Key& key) {
  const keyboard::Raw raw = keyboard::rawOf(key);
  send(QEvent::KeyPress, raw);
  send(QEvent::KeyRelease, raw);
  settle();
}

void QtHost::realText(const std::string& text) {
  for (const char32_t typed : QString::fromStdString(text).toStdU32String()) {
    send(QEvent::KeyPress, keyboard::rawOf(typed));
    send(QEvent::KeyRelease, keyboard::rawOf(typed));
  }
  settle();
}

void QtHost::settle() {
  constexpr int kMostRounds = 50;
  for (int i = 0; i < kMostRounds; ++i) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!QThread::currentThread()->eventDispatcher()->processEvents(QEventLoop::AllEvents)) return;
  }
}

bool QtHost::grab(const std::string& path) {
  redraw();
  QWidget* shown = window_ ? window_ : bare_.get();
  if (!shown) return false;
  QPixmap picture = shown->grab();
  QPainter painter(&picture);
  for (QWidget* popup : QApplication::topLevelWidgets())
    if (popup->isVisible() && popup->windowType() == Qt::Popup)
      painter.drawPixmap(shown->mapFromGlobal(popup->pos()), popup->grab());
  painter.end();
  return picture.save(QString::fromStdString(path), "PNG");
}

// Nesting

void QtHost::wait(const std::function<bool()>& over) {
  QEventLoop loop;
  waiting_.push_back({&loop, over});
  if (!over()) loop.exec();
  waiting_.pop_back();
  // What waits below may have ended meanwhile.
  QTimer::singleShot(0, this, [this] { wakeLoops(); });
}

void QtHost::wakeLoops() {
  if (!waiting_.empty() && (quitting() || waiting_.back().over())) waiting_.back().loop->quit();
}

void QtHost::nest(Screen& screen) {
  const bool wasBusy = busy_;
  busy(false);
  wait([this, at = &screen] { return quitting() || !isOpen(*at); });
  busy(wasBusy);
}

QWidget& QtHost::boxParent() {
  if (window_ && window_->isVisible()) return *window_;
  if (!bare_) {
    bare_ = std::make_unique<QWidget>();
    bare_->setWindowTitle(kTitle);
    bare_->setWindowIcon(icons::program());
    bare_->setFocusPolicy(Qt::StrongFocus);
  }
  bare_->resize(QGuiApplication::primaryScreen()->availableSize());
  return *bare_;
}

// What a box dims of the window: all above the status bar, which says what the keys do.
std::optional<int> QtHost::boxFoot() const {
  return window_ && window_->isVisible() ? std::optional(window_->foot()) : std::nullopt;
}

// A box that stands alone is a small window in the middle of the screen.
void QtHost::showBare(BoxPanel& panel) {
  bare_->setFixedSize(panel.size());
  bare_->move(QGuiApplication::primaryScreen()->availableGeometry().center() - bare_->rect().center());
  panel.move(0, 0);
  bare_->show();
  bare_->activateWindow();
  bare_->setFocus();
}

std::unique_ptr<BoxPanel> QtHost::answered(BoxPanel::Words words) {
  const bool wasBusy = busy_;
  busy(false);
  redraw();
  QWidget& parent = boxParent();
  const Look& look = window_ ? window_->look() : Look::at(1);
  boxes_.push_back(std::make_unique<BoxPanel>(
      *this, std::move(words), look, [this] { wakeLoops(); }, &parent));
  BoxPanel* const panel = boxes_.back().get();
  panel->place(boxFoot());
  panel->lift();
  if (&parent == bare_.get()) showBare(*panel);
  quietSince_ = lag_ ? watch_.elapsed() - *lag_ : 0;
  redraw();
  QTimer::singleShot(0, panel, [this] {
    if (const auto happens = onBox) happens();  // which may set another
  });
  wait([this, panel] { return quitting() || panel->done(); });
  std::unique_ptr<BoxPanel> answer = std::move(boxes_.back());
  boxes_.pop_back();
  answer->hide();
  answer->setParent(nullptr);
  if (boxes_.empty()) bare_.reset();
  busy(wasBusy);
  redraw();
  return answer;
}

// A refusal says to which field it goes back.
void QtHost::box(const std::string& text, const std::string& title) {
  const Screen* const screen = top();
  const Control* const field = screen ? screen->focused() : nullptr;
  const bool refuses = field && field->refused;
  const std::string label = refuses ? trim(words(field->label)) : "";
  answered({.kind = BoxPanel::Kind::Message,
            .text = text,
            .title = title,
            .yes = !refuses        ? words("&Go On")
                   : label.empty() ? words("&Back")
                                   : words("&Back To {field}", "field", label),
            .refuses = refuses});
}

bool QtHost::answerTo(const Question& question) {
  return answered({.kind = BoxPanel::Kind::Question,
                   .text = question.text,
                   .title = question.title,
                   .yes = question.yes,
                   .no = question.no,
                   .facts = question.facts,
                   .loses = question.loses})
      ->yes();
}

std::optional<std::string> QtHost::input(const std::string& prompt, const std::string& title,
                                         const std::string& initial) {
  const auto panel = answered({.kind = BoxPanel::Kind::Input,
                               .text = words(prompt),
                               .title = words(title),
                               .initial = initial,
                               .yes = words("&Ok"),
                               .no = words("&Cancel")});
  return panel->yes() ? std::optional(panel->value()) : std::nullopt;
}

// Opens where the last file was, at first where what comes from the internet is laid down.
std::optional<std::string> QtHost::chooseFile(const std::string& prompt, const std::string& title,
                                              const std::string& names) {
  if (withoutDesktop()) return input(prompt, title);
  if (filesFrom_.isEmpty()) filesFrom_ = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  const QString patterns = QString::fromStdString(names);
  QFileDialog dialog(window_, QString::fromStdString(words(title)), filesFrom_, patterns);
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (window_) dialog.resize(window_->size() * 0.6);
  const std::pair<QFileDialog::DialogLabel, const char*> labels[] = {
      {QFileDialog::LookIn,   english("Folder")   },
      {QFileDialog::FileName, english("File Name")},
      {QFileDialog::FileType, english("Of Type")  },
      {QFileDialog::Accept,   english("&Open")    },
      {QFileDialog::Reject,   english("&Cancel")  }
  };
  for (const auto& [label, text] : labels) dialog.setLabelText(label, QString::fromStdString(words(text)));
  choosing_ = true;
  const bool chosen = dialog.exec() == QDialog::Accepted;
  choosing_ = false;
  if (!chosen || dialog.selectedFiles().isEmpty()) return std::nullopt;
  filesFrom_ = dialog.directory().absolutePath();
  return dialog.selectedFiles().front().toStdString();
}

// The machine

void QtHost::busy(bool on) {
  if (on == busy_) return;
  busy_ = on;
  on ? QGuiApplication::setOverrideCursor(Qt::WaitCursor) : QGuiApplication::restoreOverrideCursor();
}

// Esc ends the statement that holds everything up. While something is drawn nothing can be asked.
bool QtHost::escWhileBusy() {
  if (!busy_ || drawing_ || refreshing_) return false;
  refreshing_ = true;
  const bool pressed = escWatch_.pressed();
  refreshing_ = false;
  return pressed;
}

void QtHost::refresh() {
  redraw();
  refreshing_ = true;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  refreshing_ = false;
}

Moment QtHost::now() const { return clock ? *clock : machine::now(); }

ScreenSize QtHost::display() const {
  if (size) return *size;
  const QSize pixels = QGuiApplication::primaryScreen()->size();
  return {pixels.width() * kTwipsPerPixel, pixels.height() * kTwipsPerPixel, kTwipsPerPixel, kTwipsPerPixel};
}

bool QtHost::online() const { return isOnline ? *isOnline : machine::online(); }
bool QtHost::running(const std::string& process) const { return machine::running(process); }
void QtHost::endProcess(const std::string& process) { machine::endProcess(process); }

void QtHost::launch(const std::string& program, const std::vector<std::string>& arguments) {
  QStringList given;
  for (const std::string& a : arguments) given << QString::fromStdString(a);
  if (!QProcess::startDetached(QString::fromStdString(program), given))
    message(words("{program} could not be started", "program", program), kMessageTitle);
}

void QtHost::openLink(const std::string& url) {
  if (!withoutDesktop() && !QDesktopServices::openUrl(QUrl(QString::fromStdString(url))))
    hint(words("No Program Opens {link}", "link", url));
}

void QtHost::view(const std::string& file) {
  const QString path = QFileInfo(QString::fromStdString(file)).absoluteFilePath();
  if (withoutDesktop()) return;
  // Where the desktop takes the file and shows nothing, the person still knows where it lies.
  const bool opened = QDesktopServices::openUrl(QUrl::fromLocalFile(path));
  hint(words(opened ? english("Opening {file}") : english("No Program Shows {file}"), "file", file));
}

paint::Painter& QtHost::painter() {
  if (!painter_) painter_ = paint::makePainter();
  return *painter_;
}

std::string QtHost::clipboard() const { return QGuiApplication::clipboard()->text().toStdString(); }
void QtHost::setClipboard(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}
