#include "platform/qt/chart_view.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "base/pattern.h"
#include "base/words.h"
#include "platform/qt/palette.h"

namespace {

// The older, the darker; the last one calls for something to be done.
constexpr QRgb kSegments[] = {palette::kGridHead, palette::kGridHeadLine, palette::kAccent,
                              palette::kWarnLine};

QColor colourOf(size_t segment, size_t count) {
  if (count <= 1) return QColor(palette::kGridHeadLine);
  return QColor(kSegments[std::min(segment, std::size(kSegments) - 1)]);
}

// A round one, of which four at the most reach the top.
double stepOf(double top) {
  const double least = std::max(top, 4.0) / 4, power = std::pow(10, std::floor(std::log10(least)));
  for (const double n : {1.0, 2.0, 2.5, 5.0})
    if (n * power >= least) return n * power;
  return 10 * power;
}

QString grouped(double amount, const char* pattern) {
  return QString::fromStdString(indianGroups(Format(amount, pattern)));
}

}  // namespace

ChartView::ChartView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
    : WidgetView(screen, control, hands, parent) {
  setFocusPolicy(Qt::NoFocus);
}

void ChartView::sync(const Situation&) {
  if (chart_ == control_.chart) return;
  chart_ = control_.chart;
  setAccessibleName(QString::fromStdString(control_.text));
  update();
}

void ChartView::paintEvent(QPaintEvent*) {
  if (!look_) return;
  QPainter painter(this);
  draw::box(painter, rect(), QColor(palette::kField), QColor(palette::kGridFrame), 1, 0);
  const int inset = look_->px(10), head = look_->px(28);
  const QRect inside = rect().adjusted(inset, look_->px(2), -inset, -look_->px(6));
  paintHead(painter, {inside.x(), inside.y(), inside.width(), head});
  if (chart_.bars.empty()) return;
  const QRect area = inside.adjusted(0, head, 0, 0);
  chart_.lying ? paintLying(painter, area) : paintUpright(painter, area);
}

// The title, and from the right end what the colours mean.
void ChartView::paintHead(QPainter& painter, QRect head) const {
  painter.setFont(look_->font(Look::Face::Strong));
  painter.setPen(QColor(palette::kInk));
  draw::line(painter, head, QString::fromStdString(words(chart_.title)), Qt::AlignLeft);
  painter.setFont(look_->font(Look::Face::Plain));
  const int side = look_->px(12), gap = look_->px(6);
  for (size_t i = chart_.legend.size(); i-- > 0;) {
    const QString name = QString::fromStdString(words(chart_.legend[i]));
    const int width = painter.fontMetrics().horizontalAdvance(name);
    painter.setPen(QColor(palette::kQuiet));
    draw::line(painter, {head.right() - width, head.y(), width + 1, head.height()}, name, Qt::AlignRight);
    head.setRight(head.right() - width - gap - side);
    painter.fillRect(head.right(), head.y() + (head.height() - side) / 2, side, side,
                     colourOf(i, chart_.legend.size()));
    head.setRight(head.right() - 3 * gap);
  }
}

double ChartView::highest() const {
  double most = 0;
  for (const Chart::Bar& bar : chart_.bars) {
    double sum = 0;
    for (const double segment : bar.segments) sum += std::max(segment, 0.0);
    most = std::max(most, sum);
  }
  return most;
}

void ChartView::paintLying(QPainter& painter, const QRect& area) const {
  painter.setFont(look_->font(Look::Face::Plain));
  const QFontMetrics& metrics = look_->metrics(Look::Face::Plain);
  const auto count = static_cast<int>(chart_.bars.size());
  int names = 0, amounts = 0;
  for (const Chart::Bar& bar : chart_.bars) {
    names = std::max(names, metrics.horizontalAdvance(QString::fromStdString(bar.label)));
    amounts = std::max(amounts, metrics.horizontalAdvance(grouped(bar.total(), "0.00")));
  }
  const int gap = look_->px(10);
  names = std::min(names, area.width() / 3);
  const int room = std::max(0, area.width() - names - amounts - 2 * gap);
  const int pitch = std::min(area.height() / count, look_->px(25));
  const double top = std::max(highest(), 1.0);
  for (int n = 0; n < count; ++n) {
    const Chart::Bar& bar = chart_.bars[static_cast<size_t>(n)];
    const QRect row(area.x(), area.y() + n * pitch, area.width(), pitch);
    painter.setPen(QColor(palette::kInk));
    draw::line(painter, {row.x(), row.y(), names, pitch}, QString::fromStdString(bar.label), Qt::AlignLeft);
    double sum = 0;
    const int left = row.x() + names + gap;
    const auto edge = [&] { return left + static_cast<int>(std::lround(room * sum / top)); };
    for (size_t i = 0; i < bar.segments.size(); ++i) {
      const int from = edge();
      sum += std::max(bar.segments[i], 0.0);
      painter.fillRect(from, row.y() + pitch / 8, edge() - from, pitch - pitch / 4,
                       colourOf(i, chart_.legend.size()));
    }
    draw::line(painter, {edge() + gap, row.y(), amounts + 1, pitch}, grouped(bar.total(), "0.00"),
               Qt::AlignLeft);
  }
}

void ChartView::paintUpright(QPainter& painter, const QRect& area) const {
  painter.setFont(look_->font(Look::Face::Plain));
  const QFontMetrics& metrics = look_->metrics(Look::Face::Plain);
  const double step = stepOf(highest()), top = step * std::max(1.0, std::ceil(highest() / step));
  const int scale = metrics.horizontalAdvance(grouped(top, "0")) + look_->px(8), line = metrics.height();
  const QRect field(area.x() + scale, area.y() + line / 2, area.width() - scale,
                    area.height() - line * 3 / 2 - look_->px(4));
  const auto height = [&](double amount) {
    return static_cast<int>(std::lround(field.height() * amount / top));
  };
  for (double at = 0; at <= top; at += step) {
    const int y = field.bottom() + 1 - height(at);
    painter.fillRect(field.x(), y, field.width(), 1,
                     QColor(at == 0 ? palette::kGridFrame : palette::kGridCell));
    painter.setPen(QColor(palette::kQuiet));
    draw::line(painter, {area.x(), y - line / 2, scale - look_->px(8), line}, grouped(at, "0"),
               Qt::AlignRight);
  }
  const auto count = static_cast<int>(chart_.bars.size());
  for (int n = 0; n < count; ++n) {
    const int from = field.x() + field.width() * n / count, to = field.x() + field.width() * (n + 1) / count;
    const int space = to - from > 12 ? (to - from) / 3 : to - from > 2 ? 1 : 0;
    const int width = std::clamp(to - from - space, 1, look_->px(60));
    double sum = 0;
    for (size_t i = 0; i < chart_.bars[static_cast<size_t>(n)].segments.size(); ++i) {
      const int low = height(sum);
      sum += std::max(chart_.bars[static_cast<size_t>(n)].segments[i], 0.0);
      painter.fillRect((from + to - width) / 2, field.bottom() + 1 - height(sum), width, height(sum) - low,
                       colourOf(i, chart_.legend.size()));
    }
  }
  paintNames(painter, {field.x(), field.bottom() + look_->px(4), field.width(), line});
}

// As many as there is room for.
void ChartView::paintNames(QPainter& painter, const QRect& area) const {
  painter.setPen(QColor(palette::kQuiet));
  const auto count = static_cast<int>(chart_.bars.size());
  int free = area.x() - look_->px(40);
  for (int n = 0; n < count; ++n) {
    const QString name = QString::fromStdString(chart_.bars[static_cast<size_t>(n)].label);
    const int width = painter.fontMetrics().horizontalAdvance(name) + 1;
    const int middle = area.x() + area.width() * (2 * n + 1) / (2 * count);
    const int left = std::min(middle - width / 2, area.right() - width);
    if (left < free) continue;
    draw::line(painter, {left, area.y(), width, area.height()}, name, Qt::AlignLeft);
    free = left + width + look_->px(10);
  }
}
