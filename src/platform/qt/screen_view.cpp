#include "platform/qt/screen_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <functional>

#include "base/text.h"
#include "base/words.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/palette.h"

namespace {

void mix(size_t& seed, size_t value) { seed ^= value + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2); }

struct StripRow {
  std::string_view mode;
  QRgb back;
};

constexpr StripRow kStrips[] = {
    {"ADD",  palette::kAccent},
    {"EDIT", palette::kModify},
    {"DEL",  palette::kDelete},
};

}  // namespace

// The strip stands over what is scrolled.
class ScreenView::Strip : public QWidget {
 public:
  explicit Strip(ScreenView& screen) : QWidget(&screen), screen_(screen) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    screen_.paintStrip(painter, rect());
  }

 private:
  ScreenView& screen_;
};

ScreenView::ScreenView(Screen& screen, Hands& hands, QWidget* parent)
    : QWidget(parent),
      screen_(screen),
      strip_(new Strip(*this)),
      downBar_(new LaneBar(Qt::Vertical, this)),
      acrossBar_(new LaneBar(Qt::Horizontal, this)) {
  for (LaneBar* bar : {downBar_, acrossBar_})
    QObject::connect(bar, &QScrollBar::valueChanged, this, [this] { placeViews(); });
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(QString::fromStdString(words(screen.caption)));
  for (const auto& control : screen.controls) views_.push_back(makeView(screen, *control, hands, *this));
  pair_ = std::ranges::any_of(
      screen.controls, [](const auto& c) { return c->kind == Kind::Button && c->style == Style::Secondary; });
}

ScreenView::~ScreenView() = default;

// What the places of the controls depend on.
size_t ScreenView::signatureNow() const {
  size_t seed = std::hash<int>{}(width());
  mix(seed, static_cast<size_t>(height()));
  mix(seed, reinterpret_cast<size_t>(look_));
  const bool small = look_->small();
  const std::hash<std::string> text;
  for (const auto& c : screen_.controls) {
    mix(seed, c->visible ? 1 : 2);
    if (!c->label.empty()) mix(seed, text(c->label));
    if (c->kind == Kind::Button || c->kind == Kind::Label || c->kind == Kind::Check) mix(seed, text(c->text));
    if (c->kind != Kind::Grid) continue;
    if (small) mix(seed, layout::leftOut(screen_, *c));
    if (!c->spec->over.empty()) mix(seed, c->grid.count());
    for (const GridColumn& column : c->grid.columns) {
      mix(seed, text(column.title));
      mix(seed, std::hash<double>{}(column.width.n));
      mix(seed, static_cast<size_t>(column.width.unit));
    }
  }
  return seed == 0 ? 1 : seed;
}

void ScreenView::arrangeNow() {
  const layout::Rect least = layout::leastSize(screen_, look_->measure());
  placeBars(least);
  const int across = downBar_->isHidden() ? 0 : downBar_->width();
  const int down = acrossBar_->isHidden() ? 0 : acrossBar_->height();
  plan_ = layout::arrange(screen_, std::max(least.w, width() - across), std::max(least.h, height() - down),
                          look_->measure());
  const layout::Rect& strip = plan_.strip;
  strip_->setGeometry(strip.x, strip.y, width() - across - 2 * strip.x, strip.h);
  followed_ = {};
  placeViews();
}

// Bars only where something is out of sight; each takes room from the other.
void ScreenView::placeBars(const layout::Rect& least) {
  const int lane = look_->px(layout::size::kLane);
  const int frame = screen_.spec.window == Window::Dialog ? look_->px(layout::size::kDialogFrame) : 0;
  const bool down = least.h > height() || (least.h > height() - lane && least.w > width());
  const bool across = least.w > width() - (down ? lane : 0);
  const int w = width() - (down ? lane : 0), h = height() - (across ? lane : 0);
  const QSignalBlocker quietDown(downBar_), quietAcross(acrossBar_);
  downBar_->setRange(0, down ? std::max(0, least.h - h) : 0);
  downBar_->setPageStep(h);
  downBar_->setSingleStep(look_->px(layout::size::kPitch));
  acrossBar_->setRange(0, across ? std::max(0, least.w - w) : 0);
  acrossBar_->setPageStep(w);
  acrossBar_->setSingleStep(look_->px(layout::size::kPitch));
  downBar_->setGeometry(width() - lane - frame, frame, lane, height() - 2 * frame);
  acrossBar_->setGeometry(frame, height() - lane - frame, w - 2 * frame, lane);
  downBar_->setVisible(down);
  acrossBar_->setVisible(across);
}

void ScreenView::placeViews() {
  const QPoint by = offset();
  for (size_t i = 0; i < views_.size(); ++i) {
    layout::Spot spot = plan_.spots[i];
    spot.box.x -= by.x();
    spot.box.y -= by.y();
    const bool shown = screen_.controls[i]->visible && !spot.box.empty();
    if (shown) views_[i]->place(spot, *look_);
    views_[i]->widget().setVisible(shown);
    if (spot.overlay && shown) views_[i]->widget().raise();
  }
  strip_->setVisible(!plan_.strip.empty());
  strip_->raise();
  downBar_->raise();
  acrossBar_->raise();
  update();
}

bool ScreenView::across(const Control& grid, int steps) {
  for (size_t i = 0; i < views_.size(); ++i)
    if (screen_.controls[i].get() == &grid && grid.kind == Kind::Grid)
      return static_cast<GridView&>(*views_[i]).across(steps);
  return false;
}

void ScreenView::followFocus() {
  const Control* focused = screen_.focused();
  const Followed now{focused, focused ? focused->caret : 0, focused ? focused->grid.current : 0};
  if (now == followed_) return;
  followed_ = now;
  if (!focused || (downBar_->isHidden() && acrossBar_->isHidden())) return;
  for (size_t i = 0; i < views_.size(); ++i) {
    if (screen_.controls[i].get() != focused) continue;
    const QRect box = draw::rect(plan_.spots[i].box), label = draw::rect(plan_.spots[i].label);
    scrollTo(label.isEmpty() ? box : box.united(label));
  }
}

// The left and upper edge first, where the box is larger than the view.
void ScreenView::scrollTo(const QRect& box) {
  const int near = look_->px(layout::size::kMargin), top = plan_.strip.bottom();
  const auto along = [&](LaneBar& bar, int from, int to, int before) {
    const int page = bar.pageStep(), at = bar.value();
    int value = at;
    if (to + near > value + page) value = to + near - page;
    if (from - near < value + before) value = from - near - before;
    bar.setValue(value);
  };
  along(*acrossBar_, box.left(), box.right(), 0);
  along(*downBar_, box.top(), box.bottom(), top);
}

void ScreenView::wheelEvent(QWheelEvent* event) {
  constexpr int kStep = 120, kRows = 2;
  const bool turned = event->modifiers() & Qt::ShiftModifier || downBar_->isHidden();
  LaneBar& bar = turned ? *acrossBar_ : *downBar_;
  if (bar.isHidden()) return event->ignore();
  bar.setValue(bar.value() - event->angleDelta().y() * kRows * bar.singleStep() / kStep);
  event->accept();
}

void ScreenView::sync(const Look& look, bool top, const QRect& dialog) {
  look_ = &look;
  if (const size_t now = signatureNow(); now != signature_) {
    signature_ = now;
    arrangeNow();
  }
  followFocus();
  cover(dialog);
  const Control* focused = screen_.focused();
  for (size_t i = 0; i < views_.size(); ++i) {
    const Control& c = *screen_.controls[i];
    if (!c.visible) continue;
    const bool its = &c == focused;
    views_[i]->sync({.focus = its && top,
                     .caller = its && !dialog.isEmpty(),
                     .pair = pair_ && c.style != Style::Normal,
                     .focusColour = screen_.spec.focusColour});
  }
  Shown shown{words(screen_.caption), screen_.mode, words(screen_.escMeans), words(screen_.reason)};
  if (shown != shown_) {
    if (shown.reason != shown_.reason) update(draw::rect(plan_.reason).translated(-offset()));
    strip_->update();
    shown_ = std::move(shown);
  }
}

void ScreenView::cover(const QRect& dialog) {
  for (size_t i = 0; i < views_.size(); ++i) {
    if (screen_.controls[i]->kind != Kind::Grid) continue;
    const QRect box = draw::rect(plan_.spots[i].box).translated(-offset());
    const bool foot = dialog.intersects(box) && dialog.top() > box.top();
    static_cast<GridView&>(*views_[i]).cover(foot ? box.bottom() + 1 - dialog.top() : 0);
  }
}

QWidget* ScreenView::widgetOf(const Control* control) const {
  for (size_t i = 0; i < views_.size(); ++i)
    if (screen_.controls[i].get() == control) return &views_[i]->widget();
  return nullptr;
}

void ScreenView::paintEvent(QPaintEvent* event) {
  if (!look_) return;
  QPainter painter(this);
  const bool dialog = screen_.spec.window == Window::Dialog;
  painter.fillRect(event->rect(), QColor(dialog ? palette::kPanel : palette::kScreen));
  const QRect clip = event->rect().translated(offset());
  painter.translate(-offset());
  for (const layout::GroupSpot& group : plan_.groups)
    if (clip.intersects(draw::rect(group.box))) paintGroup(painter, group);
  for (const layout::BlockSpot& block : plan_.blocks)
    if (clip.intersects(draw::rect(block.box))) paintBlock(painter, block);
  paintLabels(painter, clip);
  if (!shown_.reason.empty() && !plan_.reason.empty()) {
    painter.setPen(QColor(palette::kQuiet));
    painter.setFont(look_->font(Look::Face::Plain));
    draw::line(painter, draw::rect(plan_.reason), QString::fromStdString(shown_.reason), Qt::AlignLeft);
  }
  painter.translate(offset());
  if (dialog)
    draw::box(painter, rect(), Qt::transparent, QColor(palette::kAccent),
              look_->px(layout::size::kDialogFrame), 0);
}

void ScreenView::paintStrip(QPainter& painter, const QRect& strip) const {
  QRgb back = palette::kIdle;
  const bool dialog = screen_.spec.window == Window::Dialog;
  if (dialog) back = palette::kAccent;
  for (const StripRow& row : kStrips)
    if (row.mode == shown_.mode) back = row.back;
  painter.fillRect(strip, QColor(back));
  painter.setPen(QColor(back == palette::kIdle ? palette::kInk : palette::kWhiteText));
  const int inset = look_->px(dialog ? 12 : 14);
  QRect text = strip.adjusted(inset, 0, -inset, 0);
  painter.setFont(look_->font(Look::Face::Plain));
  const QString esc = QString::fromStdString(shown_.escMeans);
  draw::line(painter, text, esc, Qt::AlignRight);
  if (!esc.isEmpty()) text.setRight(text.right() - painter.fontMetrics().horizontalAdvance(esc) - inset);
  painter.setFont(look_->font(dialog ? Look::Face::Strong : Look::Face::Strip));
  draw::line(painter, text, QString::fromStdString(shown_.caption), Qt::AlignLeft);
}

void ScreenView::paintGroup(QPainter& painter, const layout::GroupSpot& spot) const {
  if (spot.empty) return;
  const bool off = spot.group->frame == Frame::Off;
  if (spot.group->frame != Frame::Panel && !off) return;
  draw::box(painter, draw::rect(spot.box), QColor(off ? palette::kOff : palette::kPanel),
            QColor(palette::kPanelLine), 1, look_->px(3));
}

void ScreenView::paintBlock(QPainter& painter, const layout::BlockSpot& block) const {
  const QRect box = draw::rect(block.box);
  painter.fillRect(box, QColor(palette::kEntry));
  // While the grid is hidden its place stays.
  for (size_t i = 0; i < views_.size(); ++i)
    if (screen_.controls[i].get() == block.grid)
      painter.fillRect(draw::rect(plan_.spots[i].box), QColor(palette::kField));
  const layout::Rect& heads = block.heads;
  if (!heads.empty()) {
    std::vector<int> edges;
    for (size_t i = 0; i < views_.size(); ++i)
      if (screen_.controls[i].get() == block.grid) edges = plan_.spots[i].edges;
    for (int& e : edges) e -= 1;
    paintHeading(painter, QRect(heads.x + 1, heads.y + 1, heads.w - 2, heads.h), block.grid->grid.columns,
                 edges, *look_);
  }
  painter.setPen(QColor(palette::kGridFrame));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(box.adjusted(0, 0, -1, -1));
  const layout::Rect& last = block.keys.empty() ? block.entry : block.keys;
  if (!last.empty())
    painter.fillRect(QRect(box.x() + 1, last.bottom() - 1, box.width() - 2, 1), QColor(palette::kGridFrame));
}

void ScreenView::paintLabels(QPainter& painter, const QRect& clip) const {
  painter.setFont(look_->font(Look::Face::Plain));
  painter.setPen(QColor(palette::kQuiet));
  for (size_t i = 0; i < plan_.spots.size(); ++i) {
    const Control& c = *screen_.controls[i];
    const QRect box = draw::rect(plan_.spots[i].label);
    if (!c.visible || box.isEmpty() || !box.intersects(clip)) continue;
    // A label wider than its cell may reach to the left.
    const QString text = QString::fromStdString(layout::plainCaption(words(c.label))).trimmed();
    painter.drawText(
        box, static_cast<int>(Qt::AlignRight | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip,
        text);
  }
}
