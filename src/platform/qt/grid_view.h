#pragma once

#include "platform/qt/control_view.h"
#include "platform/qt/lane_bar.h"

// A grid: rows drawn straight from their source, only those in view. Columns that need more than its width
// scroll sideways.
class GridView : public WidgetView<QWidget> {
 public:
  GridView(Screen& screen, Control& control, Hands& hands, QWidget* parent);
  void sync(const Situation& situation) override;
  void place(const layout::Spot& spot, const Look& look) override;
  // So many pixels at its foot lie under a dialog: the newest rows move into what is left.
  void cover(int pixels);
  // Sideways by a column's worth; false where there is nothing to scroll.
  bool across(int steps);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Row {
    std::vector<Cell> cells;
  };
  struct Shown {
    const RowSource* source = nullptr;
    size_t count = 0, current = Grid::kNone, first = 0;
    bool focus = false, strongRow = false;
    Bgr back = kWhite;
    std::vector<Row> rows;
    std::vector<std::string> instead;
  };

  bool ownHeading() const { return control_.grid.heading && !spot_.joined; }
  int frameWidth() const;
  QRect inner() const;             // without the frame
  QRect body() const;              // without frame, heading and the lane below
  std::vector<int> edges() const;  // of the columns as they are scrolled, from the grid's left edge
  int rowsInView() const;
  QRect rowRect(size_t row) const;
  std::optional<size_t> rowAt(const QPoint& point) const;
  void follow(bool moved, bool grown, bool fresh);
  void fetch();
  void paintRow(QPainter& painter, size_t row) const;
  void paintInstead(QPainter& painter) const;
  void paintCell(QPainter& painter, const QRect& box, const Cell& cell, size_t column, bool current) const;
  QColor groundOf(size_t row) const;
  QString textOf(const Cell& cell, size_t column) const;
  Qt::Alignment alignOf(const Cell& cell, size_t column) const;

  Shown shown_;
  LaneBar *bar_, *acrossBar_;
  int wheel_ = 0;  // turned, and not yet scrolled
  int covered_ = 0;
  bool stale_ = true;
};

// The heading row of a grid, here or in a row of its own above; `edges` from the left end of `box`.
void paintHeading(QPainter& painter, const QRect& box, const std::vector<GridColumn>& columns,
                  const std::vector<int>& edges, const Look& look);
