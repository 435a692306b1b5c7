#pragma once

#include <QScrollBar>

// A scroll bar of the look: the lane is always there, the thumb only when there is something to scroll.
class LaneBar : public QScrollBar {
 public:
  LaneBar(Qt::Orientation along, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent*) override;
};
