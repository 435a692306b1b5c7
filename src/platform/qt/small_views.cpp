#include "platform/qt/small_views.h"

#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <stdexcept>

#include "platform/qt/chart_view.h"
#include "platform/qt/field_view.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/palette.h"
#include "platform/shown.h"

namespace {

QString toQt(const std::string& text) { return QString::fromStdString(text); }

// A caption's & marks a letter only in buttons; "&&" is one &.
QString plain(const std::string& text) { return QString::fromStdString(layout::plainCaption(text)); }

}  // namespace

void ControlView::place(const layout::Spot& spot, const Look& look) {
  spot_ = spot;
  look_ = &look;
  widget().setGeometry(draw::rect(spot.box));
  widget().update();
}

std::unique_ptr<ControlView> makeView(Screen& screen, Control& control, Hands& hands, QWidget& parent) {
  switch (control.kind) {
    case Kind::Text:
    case Kind::Date:
      return std::make_unique<FieldView>(screen, control, hands, &parent);
    case Kind::Button:
      return std::make_unique<ButtonView>(screen, control, hands, &parent);
    case Kind::Label:
      return std::make_unique<LabelView>(screen, control, hands, &parent);
    case Kind::Grid:
      return std::make_unique<GridView>(screen, control, hands, &parent);
    case Kind::Check:
      return std::make_unique<CheckView>(screen, control, hands, &parent);
    case Kind::Progress:
      return std::make_unique<ProgressView>(screen, control, hands, &parent);
    case Kind::Picture:
      return std::make_unique<PictureView>(screen, control, hands, &parent);
    case Kind::Chart:
      return std::make_unique<ChartView>(screen, control, hands, &parent);
  }
  throw std::logic_error(screen.spec.name + "." + control.fullName() + " is of a kind that nothing draws");
}

// Button

ButtonView::ButtonView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
    : WidgetView(screen, control, hands, parent) {
  setFocusPolicy(Qt::NoFocus);
  QObject::connect(this, &QAbstractButton::clicked, this, [this] { hands_.pressed(screen_, control_); });
}

void ButtonView::sync(const Situation& situation) {
  Shown now{.text = shownText(control_),
            .enabled = control_.enabled,
            .focus = situation.focus || situation.caller,
            .pair = situation.pair,
            .back = control_.back,
            .style = control_.style};
  if (now == shown_ && !text().isNull()) return;
  shown_ = std::move(now);
  setText(plain(shown_.text).isEmpty() ? QString("") : plain(shown_.text));
  update();
}

void ButtonView::paintEvent(QPaintEvent*) {
  using namespace palette;
  if (!look_) return;
  QPainter painter(this);
  const bool first = shown_.style == Style::Primary;
  QColor fill = fromBgr(shown_.back), line(kFieldLine), ink(kInk);
  int width = 1;
  bool strong = false;
  if (shown_.pair) fill = QColor(first ? kSavedPrint : kSavedNew);
  if (!shown_.enabled) {
    fill = QColor(kOff), line = QColor(kOffLine), ink = QColor(kOffText);
  } else if (shown_.focus && !shown_.pair) {
    fill = line = QColor(kAccent), ink = QColor(kWhiteText), strong = true;
  } else if (shown_.focus || (first && !shown_.pair)) {
    line = QColor(kAccent), width = look_->px(2), strong = true;
  }
  if (isDown() && shown_.enabled) fill = shown_.focus && !shown_.pair ? fill.darker(115) : QColor(kGridSeen);
  draw::box(painter, rect(), fill, line, width, look_->px(3));
  painter.setPen(ink);
  painter.setFont(look_->font(strong ? Look::Face::Strong : Look::Face::Plain));
  draw::line(painter, rect(), toQt(shown_.text), Qt::AlignHCenter, true);
}

// Check box

CheckView::CheckView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
    : WidgetView(screen, control, hands, parent) {
  setCheckable(true);
  setFocusPolicy(Qt::NoFocus);
  setText(plain(shownText(control)));
  QObject::connect(this, &QAbstractButton::clicked, this, [this] {
    setChecked(shown_.on);  // only the record says so
    hands_.pressed(screen_, control_);
  });
}

void CheckView::sync(const Situation& situation) {
  Shown now{.text = shownText(control_),
            .enabled = control_.enabled,
            .focus = situation.focus,
            .on = control_.value != 0};
  if (now == shown_) return;
  shown_ = std::move(now);
  setText(plain(shown_.text));
  setChecked(shown_.on);
  update();
}

void CheckView::paintEvent(QPaintEvent*) {
  using namespace palette;
  if (!look_) return;
  QPainter painter(this);
  const int side = look_->px(18);
  const QRect box(1, (height() - side) / 2, side, side);
  const QColor line(shown_.focus ? kAccent : shown_.enabled ? kFieldLine : kOffLine);
  draw::box(painter, box, QColor(shown_.enabled ? kField : kOff), line, shown_.focus ? look_->px(2) : 1,
            look_->px(2));
  if (shown_.on) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(shown_.enabled ? kAccent : kOffText), look_->px(2), Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) { return QPointF(box.x() + x * side, box.y() + y * side); };
    const QPointF tick[] = {at(0.24, 0.52), at(0.43, 0.72), at(0.78, 0.3)};
    painter.drawPolyline(tick, 3);
  }
  painter.setPen(QColor(shown_.enabled ? kInk : kOffText));
  painter.setFont(look_->font(shown_.focus ? Look::Face::Strong : Look::Face::Plain));
  draw::line(painter, rect().adjusted(side + look_->px(8), 0, 0, 0), toQt(shown_.text), Qt::AlignLeft, true);
}

// Label

LabelView::LabelView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
    : WidgetView(screen, control, hands, parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LabelView::sync(const Situation&) {
  Shown now{
      .text = shownText(control_), .style = control_.style, .back = control_.back, .align = control_.align};
  if (control_.money)
    now.text = control_.style == Style::Figure ? groupedFigures(now.text) : groupedMoney(now.text);
  if (now == shown_) return;
  shown_ = std::move(now);
  setText(toQt(shown_.text));
  update();
}

void LabelView::place(const layout::Spot& spot, const Look& look) {
  layout::Spot wide = spot;
  // Large type may stand above and below its cell.
  const int tall = look.metrics(Look::faceOf(control_.style)).height();
  if (wide.box.h < tall) {
    wide.box.y -= (tall - wide.box.h) / 2;
    wide.box.h = tall;
  }
  ControlView::place(wide, look);
}

Qt::Alignment LabelView::alignment() const {
  switch (shown_.align) {
    case Align::Centre:
      return Qt::AlignHCenter;
    case Align::Right:
      return Qt::AlignRight;
    case Align::Auto:
      return control_.money ? Qt::AlignRight : Qt::AlignLeft;
    case Align::Left:
      break;
  }
  return Qt::AlignLeft;
}

void LabelView::paintEvent(QPaintEvent*) {
  if (!look_ || shown_.text.empty()) return;
  QPainter painter(this);
  if (shown_.back != kWhite) painter.fillRect(rect(), palette::fromBgr(shown_.back));
  const QStringList lines = toQt(shown_.text).remove('\r').split('\n');
  if (shown_.style == Style::Warn)
    paintWarning(painter, lines);
  else
    paintLines(painter, lines);
}

void LabelView::paintWarning(QPainter& painter, const QStringList& lines) const {
  draw::box(painter, rect(), QColor(palette::kWarn), QColor(palette::kWarnLine), 1, 0);
  painter.setPen(QColor(palette::kInk));
  const int pitch = look_->px(22), top = (height() - pitch * static_cast<int>(lines.size())) / 2;
  for (int i = 0; i < lines.size(); ++i) {
    const bool head = i == 0 && lines.size() > 1;
    painter.setFont(look_->font(head ? Look::Face::Strong : Look::Face::Plain));
    draw::line(painter, QRect(look_->px(8), top + i * pitch, width() - look_->px(16), pitch), lines[i],
               Qt::AlignHCenter);
  }
}

// Beside the columns of a grid the texts stand as in its cells.
int LabelView::insetOf(Qt::Alignment side) const {
  switch (spot_.frame) {
    case Frame::Entry:
      return look_->px(layout::size::kCellInset);
    case Frame::Keys:
      if (side == Qt::AlignLeft) return look_->px(look_->of(layout::size::kCellInset) + 2);
      return shown_.style == Style::Quiet ? 0 : look_->px(look_->of(layout::size::kCellInset) - 1);
    case Frame::Buttons:
      return look_->px(6);
    default:
      return 0;
  }
}

// A fact that is a little too long, as a GSTIN may be, is drawn narrower before it is cut.
void LabelView::paintFact(QPainter& painter, const QRect& row, const QString& text) const {
  constexpr double kNarrowest = 0.85;
  const double share = double(row.width()) / std::max(1, painter.fontMetrics().horizontalAdvance(text));
  if (share >= 1 || share < kNarrowest) {
    draw::line(painter, row, text, alignment());
    return;
  }
  painter.save();
  painter.translate(row.left(), 0);
  painter.scale(share, 1);
  draw::line(painter, QRect(0, row.top(), static_cast<int>(row.width() / share) + 1, row.height()), text,
             Qt::AlignLeft);
  painter.restore();
}

// A line that ends in a figure behind " : " shows the figure strong and grouped.
void LabelView::paintLines(QPainter& painter, const QStringList& lines) const {
  static const QRegularExpression fact("^(.* : )(-?\\d+(?:\\.\\d+)?)$");
  const Look::Face face = Look::faceOf(shown_.style);
  const QRect area = rect().adjusted(insetOf(Qt::AlignLeft), 0, -insetOf(Qt::AlignRight), 0);
  painter.setPen(Look::inkOf(shown_.style));
  painter.setFont(look_->font(face));
  if (lines.size() == 1) {
    const bool wraps = control_.spec->at.rows > 1;
    if (wraps)
      painter.drawText(area, static_cast<int>(alignment() | Qt::AlignTop) | Qt::TextWordWrap, lines[0]);
    else
      draw::line(painter, area, lines[0], alignment());
    return;
  }
  const int usual = std::max(look_->px(25), painter.fontMetrics().height());
  const auto count = static_cast<int>(lines.size());
  const int pitch = std::min(usual, std::max(1, height() / count));
  const int top = (height() - pitch * count) / 2;
  for (int i = 0; i < count; ++i) {
    QRect row(area.x(), top + i * pitch, area.width(), pitch);
    const QRegularExpressionMatch match = fact.match(lines[i]);
    painter.setFont(look_->font(face));
    if (!match.hasMatch()) {
      paintFact(painter, row, lines[i]);
      continue;
    }
    draw::line(painter, row, match.captured(1), alignment());
    row.setLeft(row.left() + painter.fontMetrics().horizontalAdvance(match.captured(1)));
    painter.setFont(look_->font(Look::Face::Strong));
    draw::line(painter, row, toQt(groupedMoney(match.captured(2).toStdString())), Qt::AlignLeft);
  }
}

// Progress

void ProgressView::sync(const Situation&) {
  if (value_ == control_.value && maximum_ == control_.maximum) return;
  value_ = control_.value;
  maximum_ = control_.maximum;
  update();
}

void ProgressView::paintEvent(QPaintEvent*) {
  if (!look_) return;
  QPainter painter(this);
  const int tall = std::min(height(), look_->px(18));
  const QRect box(0, (height() - tall) / 2, width(), tall);
  draw::box(painter, box, QColor(palette::kField), QColor(palette::kFieldLine), 1, look_->px(2));
  if (maximum_ <= 0) return;
  const double done = std::clamp(value_ / maximum_, 0.0, 1.0);
  const QRect inner = box.adjusted(3, 3, -3, -3);
  painter.fillRect(QRect(inner.x(), inner.y(), static_cast<int>(inner.width() * done), inner.height()),
                   QColor(palette::kAccent));
}

// Picture

PictureView::PictureView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
    : WidgetView(screen, control, hands, parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PictureView::sync(const Situation&) {
  if (path_ == control_.picture) return;
  path_ = control_.picture;
  picture_ = path_.empty() ? QPixmap() : QPixmap(QString::fromStdString(path_));
  update();
}

void PictureView::paintEvent(QPaintEvent*) {
  if (!look_ || picture_.isNull()) return;
  QPainter painter(this);
  // Made smaller where it must be, never larger.
  const QPixmap fits = picture_.width() > width() || picture_.height() > height()
                           ? picture_.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)
                           : picture_;
  painter.drawPixmap((width() - fits.width()) / 2, (height() - fits.height()) / 2, fits);
}
