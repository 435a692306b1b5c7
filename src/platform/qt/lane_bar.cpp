#include "platform/qt/lane_bar.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include "platform/qt/look.h"
#include "platform/qt/palette.h"

LaneBar::LaneBar(Qt::Orientation along, QWidget* parent) : QScrollBar(along, parent) {
  setFocusPolicy(Qt::NoFocus);
}

void LaneBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(palette::kLane));
  if (maximum() <= minimum()) return;
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect thumb =
      style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
  const QRect box =
      orientation() == Qt::Vertical ? thumb.adjusted(3, 1, -3, -1) : thumb.adjusted(1, 3, -1, -3);
  draw::box(painter, box, QColor(palette::kThumb), QColor(palette::kThumb), 1, 3);
}
