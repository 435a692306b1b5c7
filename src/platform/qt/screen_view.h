#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "platform/qt/control_view.h"

class GridView;

// One screen drawn from its table: groups, labels and mode strip painted here, one child
// widget a control.
class ScreenView : public QWidget {
 public:
  ScreenView(Screen& screen, Hands& hands, QWidget* parent);
  ~ScreenView() override;

  Screen& screen() const { return screen_; }
  // Draws what is different now. The screen on top has the keys. One below shows its focused
  // field as the caller of the dialog that lies over it (in its own coordinates).
  void sync(const Look& look, bool top, const QRect& dialog);
  QWidget* widgetOf(const Control* control) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent*) override { signature_ = 0; }

 private:
  struct Shown {
    std::string caption, mode, escMeans, reason;
    bool operator==(const Shown&) const = default;
  };

  size_t signatureNow() const;
  void arrangeNow();
  void cover(const QRect& dialog);
  void paintStrip(QPainter& painter) const;
  void paintGroup(QPainter& painter, const layout::GroupSpot& spot) const;
  void paintBlock(QPainter& painter, const layout::BlockSpot& block) const;
  void paintLabels(QPainter& painter, const QRect& clip) const;

  Screen& screen_;
  const Look* look_ = nullptr;
  layout::Plan plan_;
  std::vector<std::unique_ptr<ControlView>> views_;  // one for each control of the screen
  Shown shown_;
  size_t signature_ = 0;
  bool pair_ = false;
};
