#pragma once

#include "platform/qt/control_view.h"

// A chart painted plainly: bars, a scale or amounts, and what the colours of its segments mean.
class ChartView : public WidgetView<QWidget> {
 public:
  ChartView(Screen& screen, Control& control, Hands& hands, QWidget* parent);
  void sync(const Situation& situation) override;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  void paintHead(QPainter& painter, QRect head) const;
  void paintLying(QPainter& painter, const QRect& area) const;
  void paintUpright(QPainter& painter, const QRect& area) const;
  void paintNames(QPainter& painter, const QRect& area) const;
  double highest() const;

  Chart chart_;
};
