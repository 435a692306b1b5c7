#include "platform/qt/field_view.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>
#include <QToolTip>
#include <algorithm>

#include "base/words.h"
#include "platform/qt/palette.h"
#include "platform/shown.h"
#include "platform/utf8.h"

namespace {

// Positions of the record count code points, those of Qt UTF-16 units.
int unitsBefore(const std::string& text, size_t points) {
  const std::u32string all = utf8::decode(text);
  return static_cast<int>(QString::fromStdU32String(all.substr(0, std::min(points, all.size()))).size());
}

size_t pointsBefore(const QString& text, int units) {
  return static_cast<size_t>(text.left(units).toStdU32String().size());
}

}  // namespace

FieldView::FieldView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
    : WidgetView(screen, control, hands, parent) {
  setFrame(false);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(false);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_InputMethodEnabled);
  if (control.secret()) setEchoMode(QLineEdit::Password);  // for what types and what reads aloud
  setAccessibleName(QString::fromStdString(layout::plainCaption(words(control.label))));
}

FieldView::State FieldView::stateNow(const Situation& s) const {
  const bool bare = spot_.frame == Frame::Off || spot_.frame == Frame::Keys;
  if (bare && !control_.enabled) return State::Bare;
  if (!control_.enabled) return State::Off;
  if (s.focus) return control_.refused ? State::Error : State::Focus;
  if (s.caller) return State::Caller;
  if (control_.locked) return State::Locked;
  return State::Ready;
}

void FieldView::sync(const Situation& situation) {
  situation_ = situation;
  Shown now{.text = shownText(control_),
            .placeholder = spot_.frame == Frame::Heads ? words(control_.label) : std::string(),
            .state = stateNow(situation),
            .back = control_.back,
            .caret = control_.caret,
            .anchor = control_.anchor};
  if (now.state != State::Focus && now.state != State::Error) now.caret = now.anchor = 0;
  if (now.state == State::Off || now.state == State::Bare) {
    now.back = kWhite;
    const bool whole = control_.style == Style::Amount && now.text.find('.') == std::string::npos;
    if (control_.money && spot_.frame != Frame::Entry)
      now.text = whole ? groupedFigures(now.text) : groupedMoney(now.text);
  }
  if (now.state == State::Ready || now.state == State::Bare)
    if (control_.kind == Kind::Date && now.text == kEmptyDate) now.text.clear();
  if (now == shown_) return;
  const bool otherText = now.text != shown_.text;
  shown_ = std::move(now);
  if (otherText) setText(QString::fromStdString(shown_.text));  // for those who listen to the screen
  if (!typing()) preedit_.clear();
  update();
}

void FieldView::place(const layout::Spot& spot, const Look& look) {
  ControlView::place(spot, look);
  shown_.state = stateNow(situation_);
  scroll_ = 0;
}

Qt::Alignment FieldView::alignment() const {
  switch (control_.align) {
    case Align::Left:
      return Qt::AlignLeft;
    case Align::Centre:
      return Qt::AlignHCenter;
    case Align::Right:
      return Qt::AlignRight;
    case Align::Auto:
      break;
  }
  return control_.money ? Qt::AlignRight : Qt::AlignLeft;
}

Look::Face FieldView::face() const {
  if (control_.style == Style::Amount) return Look::Face::Amount;
  if (control_.style != Style::Normal) return Look::faceOf(control_.style);
  const bool total = shown_.state == State::Off && control_.money && spot_.frame != Frame::Entry;
  const bool strong = shown_.state == State::Focus || shown_.state == State::Bare || total;
  return strong ? Look::Face::Strong : Look::Face::Plain;
}

QRect FieldView::textRect() const {
  const int inset = look_->px(layout::size::kCellInset);
  const int left =
      shown_.state == State::Bare && alignment() == Qt::AlignLeft && spot_.frame == Frame::Off ? 0 : inset;
  return rect().adjusted(left, 0, -inset, 0);
}

void FieldView::paintBox(QPainter& painter) const {
  using namespace palette;
  const double radius = look_->px(2);
  const int strong = look_->px(2);
  const QRect box = rect();
  const QColor focus = fromBgr(shown_.back == kWhite ? situation_.focusColour : shown_.back);
  if (control_.style == Style::Amount) {
    draw::box(painter, box, QColor(kField), QColor(kAccent), strong, radius);
    return;
  }
  switch (shown_.state) {
    case State::Bare:
      break;
    case State::Off:
      draw::box(painter, box, QColor(kOff), QColor(kOffLine), 1, radius);
      break;
    case State::Locked:
      draw::box(painter, box, QColor(kLocked), QColor(kFieldLine), 1, radius, true);
      break;
    case State::Focus:
      draw::box(painter, box, focus, QColor(kAccent), strong, radius);
      break;
    case State::Error:
      draw::box(painter, box, focus, QColor(kError), strong, radius);
      break;
    case State::Caller:
      draw::box(painter, box, QColor(kField), QColor(kAccent), strong, radius);
      break;
    case State::Ready:
      draw::box(painter, box, fromBgr(shown_.back), QColor(kFieldLine), 1, radius);
      break;
  }
}

void FieldView::paintEvent(QPaintEvent*) {
  if (!look_) return;
  QPainter painter(this);
  paintBox(painter);
  QRect area = textRect();
  QFont font = look_->font(face());
  if (control_.style == Style::Amount) {
    area.adjust(look_->px(7), 0, -look_->px(5), 0);
    const QString label = QString::fromStdString(words(control_.label));
    painter.setFont(look_->font(Look::Face::Strong));
    painter.setPen(QColor(palette::kAccent));
    draw::line(painter, area, label, Qt::AlignLeft);
    // The largest amounts shrink to what their label leaves.
    const int room = area.width() - painter.fontMetrics().horizontalAdvance(label) - look_->px(12);
    const int wide = look_->metrics(face()).horizontalAdvance(QString::fromStdString(shown_.text));
    if (wide > room) font.setPixelSize(font.pixelSize() * room / wide);
  }
  painter.setPen(QColor(palette::kInk));
  painter.setFont(font);
  if (typing()) {
    paintTyping(painter);
    return;
  }
  if (shown_.text.empty() && !shown_.placeholder.empty()) {
    painter.setPen(QColor(palette::kQuiet));
    draw::line(painter, area, QString::fromStdString(shown_.placeholder), alignment());
    return;
  }
  draw::line(painter, area, QString::fromStdString(shown_.text), alignment());
}

void FieldView::layOut(QTextLayout& lines, const QString& text) const {
  lines.setText(text);
  lines.setFont(look_->font(face()));
  lines.setCacheEnabled(true);
  lines.beginLayout();
  QTextLine line = lines.createLine();
  if (line.isValid()) line.setLineWidth(1e6);
  lines.endLayout();
}

// Where the text begins: its alignment, moved so that the caret stays in view.
double FieldView::leftOf(const QTextLayout& lines) const {
  const QRect area = textRect();
  const double caretWidth = look_->px(2), width = lines.lineAt(0).naturalTextWidth() + caretWidth;
  if (width <= area.width()) {
    scroll_ = 0;
    const Qt::Alignment align = alignment();
    const double spare = area.width() - width;
    return area.left() + (align == Qt::AlignRight ? spare : align == Qt::AlignHCenter ? spare / 2 : 0);
  }
  const double caret =
      lines.lineAt(0).cursorToX(unitsBefore(shown_.text, shown_.caret) + static_cast<int>(preedit_.size()));
  scroll_ = std::clamp(scroll_, std::max(0.0, caret + caretWidth - area.width()), std::max(0.0, caret));
  scroll_ = std::min(scroll_, width - area.width());
  return area.left() - scroll_;
}

void FieldView::paintTyping(QPainter& painter) const {
  const int at = unitsBefore(shown_.text, shown_.caret), from = unitsBefore(shown_.text, shown_.anchor);
  QString text = QString::fromStdString(shown_.text);
  text.insert(at, preedit_);
  QTextLayout lines;
  layOut(lines, text);
  const double left = leftOf(lines);
  const QRect area = textRect();
  QList<QTextLayout::FormatRange> marks;
  if (!preedit_.isEmpty()) {
    QTextCharFormat format;
    format.setFontUnderline(true);
    marks.append({at, static_cast<int>(preedit_.size()), format});
  } else if (at != from) {
    QTextCharFormat format;
    format.setBackground(QColor(palette::kAccent));
    format.setForeground(Qt::white);
    marks.append({std::min(at, from), std::abs(at - from), format});
  }
  painter.setClipRect(area.adjusted(-1, 0, look_->px(2), 0));
  const double height = lines.lineAt(0).height(), top = (rect().height() - height) / 2.0;
  lines.draw(&painter, QPointF(left, top), marks);
  const double x = left + lines.lineAt(0).cursorToX(at + static_cast<int>(preedit_.size()));
  const int tall = look_->px(20);
  painter.fillRect(QRect(static_cast<int>(std::lround(x)), (rect().height() - tall) / 2, look_->px(2), tall),
                   QColor(palette::kInk));
}

size_t FieldView::placeAt(int x) const {
  QTextLayout lines;
  const QString text = QString::fromStdString(shown_.text);
  layOut(lines, text);
  return pointsBefore(text, lines.lineAt(0).xToCursor(x - leftOf(lines)));
}

void FieldView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !look_) return;
  pressedAt_ = placeAt(event->pos().x());
  pressed_ = event->pos();
  dragging_ = false;
  hands_.pointed(screen_, control_, pressedAt_, pressedAt_);
}

void FieldView::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton) || !typing()) return;
  // A hand that trembles drags nothing.
  const int way = (event->pos() - pressed_).manhattanLength();
  if (!dragging_ && way < QGuiApplication::styleHints()->startDragDistance()) return;
  dragging_ = true;
  hands_.pointed(screen_, control_, pressedAt_, placeAt(event->pos().x()));
}

void FieldView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = event->pos();
  dragging_ = false;
  hands_.pointed(screen_, control_, 0, utf8::length(control_.text));
}

void FieldView::inputMethodEvent(QInputMethodEvent* event) {
  preedit_ = event->preeditString();
  const std::string typed = event->commitString().toStdString();
  event->accept();
  update();
  // Letters that it has committed before and takes back, counted from the caret.
  const int length = event->replacementLength();
  if (length > 0) {
    const QString text = QString::fromStdString(control_.text);
    const auto unit = [&](int n) { return std::clamp(n, 0, static_cast<int>(text.size())); };
    const int from = unitsBefore(control_.text, control_.caret) + event->replacementStart();
    hands_.pointed(screen_, control_, pointsBefore(text, unit(from)),
                   pointsBefore(text, unit(from + length)));
  }
  if (!typed.empty() || length > 0) hands_.committed(typed);
}

QVariant FieldView::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (!look_) return QLineEdit::inputMethodQuery(query);
  switch (query) {
    case Qt::ImEnabled:
      return control_.enabled && !control_.locked;
    case Qt::ImCursorRectangle: {
      QTextLayout lines;
      layOut(lines, QString::fromStdString(shown_.text));
      const double x = leftOf(lines) + lines.lineAt(0).cursorToX(unitsBefore(shown_.text, shown_.caret));
      return QRect(static_cast<int>(x), 0, look_->px(2), height());
    }
    case Qt::ImCursorPosition:
      return unitsBefore(shown_.text, shown_.caret);
    case Qt::ImAnchorPosition:
      return unitsBefore(shown_.text, shown_.anchor);
    case Qt::ImSurroundingText:
      return QString::fromStdString(shown_.text);
    default:
      return QLineEdit::inputMethodQuery(query);
  }
}

bool FieldView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && look_ && !typing()) {
    const QString text = QString::fromStdString(shown_.text);
    const auto* help = static_cast<QHelpEvent*>(event);
    const bool cut = look_->metrics(face()).horizontalAdvance(text) > textRect().width();
    QToolTip::showText(help->globalPos(), cut ? text : QString(), this);
    return true;
  }
  return QLineEdit::event(event);
}
