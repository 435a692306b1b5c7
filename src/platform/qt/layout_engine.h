#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/screen.h"

// Where everything of a screen stands: arithmetic over its table and the size of its
// window, without a widget in sight. Lengths of a table are pixels at 1366 x 768 and are
// multiplied by one scale; results are whole pixels from the screen's top left corner.
// A small window has the same type and closer rows; under `leastSize` nothing gives way any
// more, and whoever shows the screen scrolls it.
namespace layout {

struct Rect {
  int x = 0, y = 0, w = 0, h = 0;
  int right() const { return x + w; }
  int bottom() const { return y + h; }
  bool empty() const { return w <= 0 || h <= 0; }
  Rect inset(int dx, int dy) const { return {x + dx, y + dy, w - 2 * dx, h - 2 * dy}; }
  bool operator==(const Rect&) const = default;
};

// A fixed size of the look, in pixels at scale 1: the usual one, and that of a small window.
struct Size {
  double usual, small;
};

namespace size {
inline constexpr Size kField{30, 26}, kPitch{35, 28}, kLabelLine{20, 20}, kGridRow{25, 24}, kCellInset{7, 5};
inline constexpr Size kButton{32, 28}, kButtonWidth{96, 88}, kButtonInset{16, 10}, kButtonGap{8, 6};
inline constexpr Size kButtonBand{34, 28}, kButtonPitch{38, 32}, kLane{14, 12};
inline constexpr Size kHeads{25, 24}, kEntry{34, 28}, kKeys{24, 0};
inline constexpr Size kMenuBar{28, 25}, kToolBar{40, 0}, kModeStrip{30, 24}, kStatusBar{26, 24};
inline constexpr Size kGap{6, 4}, kHeadGap{4, 2}, kRoomyGap{10, 4}, kColumnGap{8, 6}, kMargin{8, 5};
inline constexpr Size kDialogFrame{2, 2}, kDialogTitle{28, 26}, kBottomAnchor{120, 90};
inline constexpr Size kPicture{0, 132};        // the height of a chart; 0 is that of its table
inline constexpr double kFillingWidth = 1340;  // a dialog that takes all of 1366 takes all of any width
inline constexpr int kLeastRows = 5, kLeastRowsOfShell = 3;  // of a grid that stretches
}  // namespace size

// Whether a window is small, by the size of what is inside its frame.
bool isSmall(int width, int height);

// One factor for everything: the smaller of width / 1366 and height / 768, rounded down to
// a step of 0.25, from 1 to 1.5.
double scaleFor(int width, int height);

// The scale, and what only a host knows: how wide a text is in a style at that scale.
struct Measure {
  double scale = 1;
  std::function<int(const std::string& text, Style style)> width;
  bool small = false;
  double of(Size s) const { return small ? s.small : s.usual; }
  int px(double n) const;
  int px(Size s) const { return px(of(s)); }
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

// The size under which a screen on a small window would be squeezed; {0, 0} on any other.
Rect leastSize(const Screen& screen, const Measure& measure);

// The numbers of spare columns that a grid of a small window does without, as bits: those in which no row
// and no field holds a figure, save the last that would be left.
unsigned leftOut(const Screen& screen, const Control& grid);

// Where a dialog floats in a window whose working area is `area`.
Rect placeDialog(const Screen& screen, const Rect& window, const Rect& area, const Measure& measure);

// Borders of a grid's columns from 0 to `width`, one more than there are columns; of a small window beyond
// it where the columns need more. `without` are numbers of spare columns, as bits.
std::vector<int> columnEdges(const std::vector<GridColumn>& columns, int width, const Measure& measure,
                             unsigned without = 0);

// A caption without the & before its letter.
std::string plainCaption(const std::string& caption);

}  // namespace layout
