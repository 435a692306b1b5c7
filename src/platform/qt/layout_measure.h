#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "platform/qt/layout_engine.h"

// The first half of arranging a screen: what stands in its groups and how much room that wants.
// The second half, layout_engine.cpp, gives everything its place.
namespace layout {

bool roomy(const Group& g);    // rows stand far apart, here or in a group inside
bool framed(const Group& g);   // a border runs around it
bool ofLines(const Group& g);  // a row that goes with a grid of lines

// Pixels at scale 1 between a group's border and its cells, and the height of a cell.
double insetX(const Group& g);
double insetY(const Group& g);
double cellHeight(const Group& g);

// Beside its field; the framed amount keeps its label inside.
bool labelled(const Control& c);

// Shares `total` among lengths of which the fixed ones are already known in pixels.
std::vector<int> shares(const std::vector<Length>& lengths, const std::vector<int>& fixed, int total);

class Sizes {
 public:
  Sizes(const Screen& screen, const Measure& measure);

  // What stands in a group, as places in the screen's list of controls.
  const std::vector<size_t>& members(const Group& g) const;
  const Control* gridNamed(const std::string& name) const;
  bool allHidden(const Group& g) const;
  bool folded(const Band& band) const;
  int rowsOf(const Group& g) const;

  // Heights and gaps at scale 1.
  double natural(const Band& band) const;
  double natural(const std::vector<Band>& bands) const;
  double gapBetween(const Band& above, const Band& below) const;

  int dialogHeight() const;  // in pixels, for a dialog that says none

  // Widths in pixels.
  int fitWidth(const Group& g) const;
  int fitColumn(const Group& g, int column) const;
  int buttonWidth(const Control& c) const;

 private:
  double natural(const Group& g) const;
  const Control* linesOf(const Band& band) const;
  bool joined(const Band& above, const Band& below) const;
  bool isSectionHead(const Group& g) const;

  const Screen& screen_;
  const Measure& m_;
  std::map<std::string, std::vector<size_t>> members_;
};

}  // namespace layout
