#pragma once

#include <QWidget>
#include <memory>

#include "platform/qt/hands.h"
#include "platform/qt/layout_engine.h"
#include "platform/qt/look.h"

// How a control stands on its screen beside what its record says.
struct Situation {
  bool focus = false;   // has the keys
  bool caller = false;  // had them when the screen on top was opened
  bool pair = false;    // its screen offers a primary and a secondary button
  Bgr focusColour = kWhite;
};

// What draws one control: a widget that shows its record and edits nothing itself.
class ControlView {
 public:
  ControlView(Screen& screen, Control& control, Hands& hands)
      : screen_(screen), control_(control), hands_(hands) {}
  virtual ~ControlView() = default;

  virtual QWidget& widget() = 0;
  // Takes over what differs from what is drawn, and repaints only when something does.
  virtual void sync(const Situation& situation) = 0;
  // A new place or scale.
  virtual void place(const layout::Spot& spot, const Look& look);

 protected:
  Screen& screen_;
  Control& control_;
  Hands& hands_;
  const Look* look_ = nullptr;
  layout::Spot spot_;
};

// A view that is a widget of that class itself.
template <class Widget>
class WidgetView : public Widget, public ControlView {
 public:
  WidgetView(Screen& screen, Control& control, Hands& hands, QWidget* parent)
      : Widget(parent), ControlView(screen, control, hands) {}
  QWidget& widget() override { return *this; }
};

std::unique_ptr<ControlView> makeView(Screen& screen, Control& control, Hands& hands, QWidget& parent);
