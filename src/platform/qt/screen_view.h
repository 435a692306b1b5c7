#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "platform/qt/control_view.h"
#include "platform/qt/lane_bar.h"

class GridView;

// One screen drawn from its table: groups, labels and mode strip painted here, one child
// widget a control. Where it is smaller than its least size it scrolls under its strip, and
// the control with the focus is kept in view.
class ScreenView : public QWidget {
 public:
  ScreenView(Screen& screen, Hands& hands, QWidget* parent);
  ~ScreenView() override;

  Screen& screen() const { return screen_; }
  // Draws what is different now. The screen on top has the keys. One below shows its focused
  // field as the caller of the dialog that lies over it (in its own coordinates).
  void sync(const Look& look, bool top, const QRect& dialog);
  QWidget* widgetOf(const Control* control) const;
  // Left and Right on a grid that is wider than its place; false where it is not.
  bool across(const Control& grid, int steps);
  const layout::Plan& plan() const { return plan_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void resizeEvent(QResizeEvent*) override { signature_ = 0; }

 private:
  struct Shown {
    std::string caption, mode, escMeans, reason;
    bool operator==(const Shown&) const = default;
  };

  // What the focus stands on; where that changes it is brought into view.
  struct Followed {
    const Control* control = nullptr;
    size_t caret = 0, row = 0;
    bool operator==(const Followed&) const = default;
  };
  class Strip;

  size_t signatureNow() const;
  void arrangeNow();
  void placeBars(const layout::Rect& least);
  void placeViews();
  void followFocus();
  void scrollTo(const QRect& box);
  QPoint offset() const { return {acrossBar_->value(), downBar_->value()}; }
  void cover(const QRect& dialog);
  void paintStrip(QPainter& painter, const QRect& strip) const;
  void paintGroup(QPainter& painter, const layout::GroupSpot& spot) const;
  void paintBlock(QPainter& painter, const layout::BlockSpot& block) const;
  void paintLabels(QPainter& painter, const QRect& clip) const;

  Screen& screen_;
  const Look* look_ = nullptr;
  layout::Plan plan_;
  std::vector<std::unique_ptr<ControlView>> views_;  // one for each control of the screen
  Strip* strip_;
  LaneBar *downBar_, *acrossBar_;
  Followed followed_;
  Shown shown_;
  size_t signature_ = 0;
  bool pair_ = false;
};
