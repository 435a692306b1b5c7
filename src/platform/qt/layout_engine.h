#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/screen.h"

// Where everything of a screen stands: arithmetic over its table and the size of its
// window, without a widget in sight. Lengths of a table are pixels at 1366 x 768 and are
// multiplied by one scale; results are whole pixels from the screen's top left corner.
namespace layout {

struct Rect {
  int x = 0, y = 0, w = 0, h = 0;
  int right() const { return x + w; }
  int bottom() const { return y + h; }
  bool empty() const { return w <= 0 || h <= 0; }
  Rect inset(int dx, int dy) const { return {x + dx, y + dy, w - 2 * dx, h - 2 * dy}; }
  bool operator==(const Rect&) const = default;
};

// The fixed sizes of the look, in pixels at scale 1.
namespace size {
inline constexpr double kField = 30, kButton = 32, kButtonWidth = 96, kButtonInset = 16, kButtonGap = 8;
inline constexpr double kButtonBand = 34, kButtonPitch = 38;
inline constexpr double kLabelLine = 20, kPitch = 35, kGridRow = 25, kCellInset = 7, kLane = 14;
inline constexpr double kHeads = 25, kEntry = 34, kKeys = 24;
inline constexpr double kMenuBar = 28, kToolBar = 40, kModeStrip = 30, kStatusBar = 26;
inline constexpr double kGap = 6, kHeadGap = 4, kRoomyGap = 10, kColumnGap = 8;
inline constexpr double kDialogFrame = 2, kDialogTitle = 28, kBottomAnchor = 120;
inline constexpr double kFillingWidth = 1340;  // a dialog that takes all of 1366 takes all of any width
}  // namespace size

// One factor for everything: the smaller of width / 1366 and height / 768, rounded down to
// a step of 0.25, from 1 to 1.5.
double scaleFor(int width, int height);

// The scale, and what only a host knows: how wide a text is in a style at that scale.
struct Measure {
  double scale = 1;
  std::function<int(const std::string& text, Style style)> width;
  int px(double n) const;
};

struct Spot {
  Rect box;    // empty for a control without a place
  Rect label;  // its text stands at the right end; empty when the label is drawn inside
  Frame frame = Frame::Plain;
  int rowHeight = 0;       // of grids
  std::vector<int> edges;  // of grids: column borders from the grid's left edge; hidden columns have no width
  int lane = 0;            // of grids: what the scroll bar takes at the right
  bool joined = false;     // a grid whose heading stands in a Heads row above it
  bool overlay = false;    // lies over another grid
};

struct GroupSpot {
  const Group* group = nullptr;
  Rect box;
  bool empty = false;  // all its controls are hidden: nothing is drawn
};

// The heading row, line-entry row and key strip of one grid, with the grid itself.
struct BlockSpot {
  const Control* grid = nullptr;
  Rect box, heads, entry, keys;
};

struct Plan {
  Rect strip;  // mode strip, or a dialog's title strip
  std::vector<GroupSpot> groups;
  std::vector<BlockSpot> blocks;
  std::vector<Spot> spots;  // one for each control of the screen, in its order
  Rect reason;              // beside the buttons
};

Plan arrange(const Screen& screen, int width, int height, const Measure& measure);

// Where a dialog floats in a window whose working area is `area`.
Rect placeDialog(const Screen& screen, const Rect& window, const Rect& area, const Measure& measure);

// Borders of a grid's columns from 0 to `width`, one more than there are columns.
std::vector<int> columnEdges(const std::vector<GridColumn>& columns, int width, const Measure& measure);

// A caption without the & before its letter.
std::string plainCaption(const std::string& caption);

}  // namespace layout
