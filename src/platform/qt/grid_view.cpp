#include "platform/qt/grid_view.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "base/words.h"
#include "platform/qt/palette.h"

namespace {

bool sameCell(const Cell& a, const Cell& b) {
  return a.text == b.text && a.back == b.back && a.fore == b.fore && a.fontSize == b.fontSize &&
         a.align == b.align && a.bold == b.bold;
}

Qt::Alignment alignmentOf(Align align) {
  return align == Align::Right ? Qt::AlignRight : align == Align::Centre ? Qt::AlignHCenter : Qt::AlignLeft;
}

Qt::Alignment ofColumn(const GridColumn& column) {
  if (column.align == Align::Auto || column.align == Align::Left)
    return column.money ? Qt::AlignRight : Qt::AlignLeft;
  return alignmentOf(column.align);
}

}  // namespace

void paintHeading(QPainter& painter, const QRect& box, const std::vector<GridColumn>& columns,
                  const std::vector<int>& edges, const Look& look) {
  painter.fillRect(box, QColor(palette::kGridHead));
  const QRect foot(box.x(), box.bottom(), box.width(), 1);
  painter.setFont(look.font(Look::Face::Strong));
  const int inset = look.px(layout::size::kCellInset);
  for (size_t i = 0; i < columns.size() && i + 1 < edges.size();) {
    const size_t to = std::min(i + static_cast<size_t>(std::max(1, columns[i].headSpan)), edges.size() - 1);
    const QRect cell(box.x() + edges[i], box.y(), edges[to] - edges[i], box.height());
    const bool spans = to > i + 1;
    if (spans)
      painter.fillRect(QRect(cell.x(), cell.y() + 3, 1, cell.height() - 7), QColor(palette::kGridHeadMark));
    painter.setPen(QColor(palette::kInk));
    if (cell.width() > 2 * inset)
      draw::line(painter, cell.adjusted(inset, 0, -inset, -1),
                 QString::fromStdString(words(columns[i].title)),
                 spans ? Qt::AlignHCenter : ofColumn(columns[i]));
    i = to;
  }
  painter.fillRect(foot, QColor(palette::kGridHeadLine));
}

GridView::GridView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
    : WidgetView(screen, control, hands, parent),
      bar_(new LaneBar(Qt::Vertical, this)),
      acrossBar_(new LaneBar(Qt::Horizontal, this)) {
  setAttribute(Qt::WA_OpaquePaintEvent, false);
  setFocusPolicy(Qt::NoFocus);
  QObject::connect(bar_, &QScrollBar::valueChanged, this, [this](int first) {
    shown_.first = static_cast<size_t>(std::max(0, first));
    fetch();
    update();
  });
  QObject::connect(acrossBar_, &QScrollBar::valueChanged, this, [this] { update(); });
}

int GridView::frameWidth() const { return spot_.overlay ? look_->px(layout::size::kDialogFrame) : 1; }

// The widget is a pixel larger than its place on all sides, for the frame of the focus.
QRect GridView::inner() const {
  const int frame = frameWidth() + 1;
  const int top = spot_.joined ? 1 : frame;
  return rect().adjusted(frame, top, -frame, -frame);
}

QRect GridView::body() const {
  QRect area = inner();
  if (ownHeading()) area.setTop(area.top() + spot_.rowHeight);
  if (acrossBar_->maximum() > 0) area.setBottom(area.bottom() - acrossBar_->height());
  return area;
}

std::vector<int> GridView::edges() const {
  std::vector<int> scrolled = spot_.edges;
  for (int& e : scrolled) e -= acrossBar_->value();
  return scrolled;
}

bool GridView::across(int steps) {
  if (!look_ || acrossBar_->maximum() <= 0) return false;
  acrossBar_->setValue(acrossBar_->value() + steps * acrossBar_->singleStep());
  return true;
}

int GridView::rowsInView() const {
  return std::max(1, (body().height() - covered_) / std::max(1, spot_.rowHeight));
}

QRect GridView::rowRect(size_t row) const {
  const QRect area = body();
  const int y = area.y() + static_cast<int>(row - shown_.first) * spot_.rowHeight;
  return {area.x(), y, area.width(), spot_.rowHeight};
}

std::optional<size_t> GridView::rowAt(const QPoint& point) const {
  const QRect area = body();
  if (!area.contains(point) || spot_.rowHeight <= 0) return std::nullopt;
  const size_t row = shown_.first + static_cast<size_t>((point.y() - area.y()) / spot_.rowHeight);
  return row < shown_.count ? std::optional(row) : std::nullopt;
}

void GridView::place(const layout::Spot& spot, const Look& look) {
  layout::Spot wide = spot;
  wide.box = spot.box.inset(-1, -1);
  ControlView::place(wide, look);
  spot_.edges = spot.edges;
  const int lane = spot.lane, tall = look.px(layout::size::kLane);
  const int needed = spot.edges.empty() ? 0 : spot.edges.back() - spot.edges.front();
  const QRect within = inner();
  acrossBar_->setRange(0, spot.overlay ? 0 : std::max(0, needed - (within.width() - lane)));
  acrossBar_->setPageStep(std::max(1, within.width() - lane));
  acrossBar_->setSingleStep(look.px(90));
  acrossBar_->setGeometry(within.x(), within.bottom() + 1 - tall, within.width() - lane, tall);
  acrossBar_->setVisible(acrossBar_->maximum() > 0);
  const QRect area = body();
  bar_->setGeometry(area.right() + 1 - lane, area.y(), lane, area.height());
  bar_->setVisible(lane > 0);
  stale_ = true;
}

void GridView::cover(int pixels) {
  if (covered_ == pixels) return;
  covered_ = pixels;
  stale_ = true;
}

// Keeps the row under the cursor in view; where there is none, the newest. A fresh list that opens
// in its middle shows the row behind one other, with what follows it.
void GridView::follow(bool moved, bool grown, bool fresh) {
  const auto page = static_cast<size_t>(rowsInView());
  const size_t last = shown_.count > page ? shown_.count - page : 0;
  size_t first = std::min(shown_.first, last);
  if (shown_.current == Grid::kNone) {
    if (grown || covered_ > 0) first = last;
  } else if (moved || stale_) {
    if (shown_.current < first) first = shown_.current;
    if (shown_.current >= first + page)
      first = fresh ? std::min(shown_.current - 1, last) : shown_.current + 1 - page;
  }
  const QSignalBlocker quiet(bar_);
  bar_->setPageStep(static_cast<int>(page));
  bar_->setRange(0, static_cast<int>(last));
  bar_->setValue(static_cast<int>(first));
  shown_.first = first;
}

void GridView::sync(const Situation& situation) {
  if (!look_) return;
  const Grid& grid = control_.grid;
  const size_t count = grid.count(), current = grid.current < count ? grid.current : Grid::kNone;
  const bool focus = situation.focus || situation.caller;
  // In a lookup the row under the cursor belongs to the search field above it.
  const bool strongRow = focus || (spot_.joined && screen_.spec.window == Window::Dialog);
  const std::vector<std::string> instead = count == 0 ? grid.instead : std::vector<std::string>();
  const bool whole = stale_ || instead != shown_.instead || grid.source.get() != shown_.source ||
                     focus != shown_.focus || control_.back != shown_.back || strongRow != shown_.strongRow;
  const size_t before = shown_.first, oldCurrent = shown_.current, oldCount = shown_.count;
  const bool otherSource = grid.source.get() != shown_.source;
  // A source made anew with one row more is the same list with a new line.
  const bool oneMore = oldCount > 0 && count == oldCount + 1,
             akin = !otherSource || oneMore || count == oldCount;
  shown_.source = grid.source.get();
  shown_.count = count;
  shown_.current = current;
  shown_.focus = focus;
  shown_.strongRow = strongRow;
  shown_.back = control_.back;
  shown_.instead = instead;
  if (!akin && current == Grid::kNone) shown_.first = 0;
  follow(current != oldCurrent || otherSource, akin && count > oldCount, otherSource && !akin);
  std::vector<Row> old = std::move(shown_.rows);
  fetch();
  const bool all = whole || before != shown_.first;
  stale_ = false;
  if (all) {
    update();
    return;
  }
  const size_t rows = std::max(old.size(), shown_.rows.size());
  for (size_t i = 0; i < rows; ++i) {
    const size_t row = shown_.first + i;
    const bool both = i < old.size() && i < shown_.rows.size();
    const bool same = both && std::ranges::equal(old[i].cells, shown_.rows[i].cells, sameCell);
    const bool cursor = oldCurrent != current && (row == oldCurrent || row == current);
    if (!same || cursor) update(rowRect(row));
  }
  if (count != oldCount) bar_->update();
}

void GridView::fetch() {
  const Grid& grid = control_.grid;
  // One more than fits, for the row that is cut by the lower edge; a sliver of it is left out.
  const int height = body().height(), pitch = std::max(1, spot_.rowHeight);
  const auto rows = static_cast<size_t>(height / pitch + (height % pitch > pitch / 3 ? 1 : 0));
  const size_t to = std::min(shown_.count, shown_.first + rows);
  shown_.rows.clear();
  for (size_t row = shown_.first; row < to; ++row) {
    Row cells;
    for (size_t column = 0; column < grid.columns.size(); ++column) {
      const bool hidden = column + 1 >= spot_.edges.size() || spot_.edges[column + 1] <= spot_.edges[column];
      cells.cells.push_back(hidden ? Cell{} : grid.cell(row, column));
    }
    shown_.rows.push_back(std::move(cells));
  }
}

void GridView::paintEvent(QPaintEvent* event) {
  if (!look_) return;
  QPainter painter(this);
  const QRect area = inner();
  painter.fillRect(area, QColor(palette::kField));
  if (ownHeading()) {
    std::vector<int> heads = edges();
    for (int& e : heads) e -= frameWidth();
    const QRect head(area.x(), area.y(), area.width(), spot_.rowHeight);
    painter.setClipRect(head);
    paintHeading(painter, head, control_.grid.columns, heads, *look_);
    painter.setClipping(false);
  }
  painter.save();
  painter.setClipRect(body());
  for (size_t i = 0; i < shown_.rows.size(); ++i)
    if (rowRect(shown_.first + i).intersects(event->rect())) paintRow(painter, shown_.first + i);
  painter.restore();
  if (!shown_.instead.empty()) paintInstead(painter);
  const bool strong = shown_.focus || spot_.overlay;
  const int width = strong ? look_->px(2) : 1;
  QRect frame = rect().adjusted(1, 1, -1, -1);
  if (strong && !spot_.overlay) frame = frame.adjusted(-1, spot_.joined ? 0 : -1, 1, 1);
  const QColor line(strong ? palette::kAccent : palette::kGridFrame);
  if (!spot_.joined || strong) painter.fillRect(QRect(frame.x(), frame.y(), frame.width(), width), line);
  painter.fillRect(QRect(frame.x(), frame.bottom() + 1 - width, frame.width(), width), line);
  painter.fillRect(QRect(frame.x(), frame.y(), width, frame.height()), line);
  painter.fillRect(QRect(frame.right() + 1 - width, frame.y(), width, frame.height()), line);
}

// A sentence, and under it keys with what they do.
void GridView::paintInstead(QPainter& painter) const {
  const int inset = 3 * look_->px(layout::size::kCellInset), gap = look_->px(3);
  QRect line = body();
  painter.fillRect(line, groundOf(0));
  line.adjust(inset, look_->px(4), -inset, 0);
  line.setHeight(spot_.rowHeight);
  int keys = 0;
  const auto keyOf = [](const std::string& text) {
    const size_t equals = text.find(" = ");
    return QString::fromStdString(equals == std::string::npos ? "" : text.substr(0, equals));
  };
  const QFontMetrics& strong = look_->metrics(Look::Face::Strong);
  for (const std::string& text : shown_.instead)
    keys = std::max(keys, strong.horizontalAdvance(keyOf(text)) + 2 * inset);
  for (const std::string& text : shown_.instead) {
    const QString key = keyOf(text);
    QRect words = line;
    painter.setFont(look_->font(key.isEmpty() ? Look::Face::Strong : Look::Face::Plain));
    painter.setPen(QColor(palette::kInk));
    if (!key.isEmpty()) {
      const QRect cap(line.x() + keys - strong.horizontalAdvance(key) - inset, line.y() + gap,
                      strong.horizontalAdvance(key) + inset, line.height() - 2 * gap);
      draw::box(painter, cap, QColor(palette::kField), QColor(palette::kAccent), 1, 3);
      painter.setFont(look_->font(Look::Face::Strong));
      painter.setPen(QColor(palette::kAccent));
      draw::line(painter, cap, key, Qt::AlignHCenter);
      painter.setFont(look_->font(Look::Face::Plain));
      painter.setPen(QColor(palette::kInk));
      words.setLeft(line.x() + keys + inset / 2);
    }
    draw::line(painter, words, QString::fromStdString(text).mid(key.isEmpty() ? 0 : key.size() + 1),
               Qt::AlignLeft);
    line.translate(0, spot_.rowHeight);
  }
}

void GridView::paintRow(QPainter& painter, size_t row) const {
  const std::vector<Cell>& cells = shown_.rows[row - shown_.first].cells;
  const QRect box = rowRect(row);
  const bool current = row == shown_.current && (shown_.strongRow || !spot_.overlay);
  const std::vector<int> edges = this->edges();
  for (size_t column = 0; column < cells.size() && column + 1 < edges.size(); ++column) {
    const int from = edges[column], to = edges[column + 1];
    if (to <= from) continue;
    const QRect cell(1 + from, box.y(), to - from, box.height());
    QColor back = groundOf(row);
    QColor line = shown_.back == kWhite ? QColor(palette::kGridCell) : groundOf(0).darker(107);
    if (cells[column].back != kNoColour) {
      back = palette::fromBgr(cells[column].back);
      if (back != QColor(Qt::white)) line = back.darker(109);
    }
    if (current) {
      back = QColor(shown_.strongRow ? palette::kAccent : palette::kGridSeen);
      line = QColor(shown_.strongRow ? palette::kCurrentCell : palette::kGridCell);
    }
    painter.fillRect(cell, back);
    painter.fillRect(QRect(cell.right(), cell.y(), 1, cell.height()), line);
    painter.fillRect(QRect(cell.x(), cell.bottom(), cell.width(), 1),
                     current && shown_.strongRow ? back : line);
    paintCell(painter, cell, cells[column], column, current);
  }
}

// Every second row is lighter; a list with a colour of its own has it and half of it.
QColor GridView::groundOf(size_t row) const {
  const bool zebra = row % 2 == 1;
  if (shown_.back == kWhite) return QColor(zebra ? palette::kGridZebra : palette::kField);
  const QColor own = palette::fromBgr(shown_.back);
  const auto half = [](int value) { return (value + 0x100) / 2; };
  return zebra ? QColor(half(own.red()), half(own.green()), half(own.blue())) : own;
}

QString GridView::textOf(const Cell& cell, size_t column) const {
  const QString text =
      QString::fromStdString(control_.grid.columns[column].money ? groupedMoney(cell.text) : cell.text);
  return text.contains('\n') ? text.simplified() : text;
}

Qt::Alignment GridView::alignOf(const Cell& cell, size_t column) const {
  return cell.align == Align::Auto ? ofColumn(control_.grid.columns[column]) : alignmentOf(cell.align);
}

void GridView::paintCell(QPainter& painter, const QRect& box, const Cell& cell, size_t column,
                         bool current) const {
  if (cell.text.empty()) return;
  const Look::Face face = cell.bold ? Look::Face::Strong : Look::Face::Plain;
  painter.setFont(cell.fontSize > 0 ? look_->sized(face, std::clamp(cell.fontSize, 8.0, 14.0))
                                    : look_->font(face));
  QColor ink(palette::kInk);
  if (current && shown_.strongRow)
    ink = QColor(palette::kWhiteText);
  else if (cell.fore != kNoColour)
    ink = palette::fromBgr(cell.fore);
  painter.setPen(ink);
  const int inset = look_->px(layout::size::kCellInset);
  draw::line(painter, box.adjusted(inset, 0, -inset - 1, -1), textOf(cell, column), alignOf(cell, column));
}

void GridView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !look_) return;
  if (const auto row = rowAt(event->pos())) hands_.rowPressed(screen_, control_, *row);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && look_ && rowAt(event->pos())) hands_.rowDoubled(screen_, control_);
}

void GridView::wheelEvent(QWheelEvent* event) {
  constexpr int kStep = 120, kRows = 3;
  const QPoint turned = event->angleDelta();
  if (const int along = turned.x() != 0                          ? turned.x()
                        : event->modifiers() & Qt::ShiftModifier ? turned.y()
                                                                 : 0;
      along != 0 && across(-along / kStep))
    return event->accept();
  // A touchpad sends parts of a row, which add up; what is left of one way does not count for the other.
  const int down = turned.y() * kRows;
  wheel_ = (down > 0) == (wheel_ > 0) ? wheel_ + down : down;
  bar_->setValue(bar_->value() - wheel_ / kStep);
  wheel_ %= kStep;
  event->accept();
}

bool GridView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !look_) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QString whole;
  if (const auto row = rowAt(help->pos()); row && *row - shown_.first < shown_.rows.size()) {
    const std::vector<Cell>& cells = shown_.rows[*row - shown_.first].cells;
    const std::vector<int> edges = this->edges();
    for (size_t column = 0; column + 1 < edges.size() && column < cells.size(); ++column) {
      const int from = edges[column] + 1, to = edges[column + 1] + 1;
      if (help->pos().x() < from || help->pos().x() >= to) continue;
      const QString text = textOf(cells[column], column);
      const Look::Face face = cells[column].bold ? Look::Face::Strong : Look::Face::Plain;
      const int room = to - from - 2 * look_->px(layout::size::kCellInset);
      if (look_->metrics(face).horizontalAdvance(text) > room) whole = text;
    }
  }
  QToolTip::showText(help->globalPos(), whole, this);
  return true;
}
