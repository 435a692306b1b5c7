#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/qt/layout_engine.h"

// The first half of arranging a screen: what stands in its groups and how much room that wants.
// The second half, layout_engine.cpp, gives everything its place.
namespace layout {

bool roomy(const Group& g);    // rows stand far apart, here or in a group inside
bool framed(const Group& g);   // a border runs around it
bool ofLines(const Group& g);  // a row that goes with a grid of lines

// Beside its field; the framed amount keeps its label inside.
bool labelled(const Control& c);

// Shares `total` among lengths of which the fixed ones are already known in pixels. Where these and what the
// parts need at the least are more than that, the fixed ones give way down to their own least.
std::vector<int> shares(const std::vector<Length>& lengths, std::vector<int> fixed,
                        const std::vector<int>& least, int total);

// What the columns of a grid need together at the least, in pixels.
int leastColumnsWidth(const std::vector<GridColumn>& columns, const Measure& measure, unsigned without);

class Sizes {
 public:
  Sizes(const Screen& screen, const Measure& measure);

  // What stands in a group, as places in the screen's list of controls.
  const std::vector<size_t>& members(const Group& g) const;
  const Control* gridNamed(const std::string& name) const;
  bool isOfLines(const Control& grid) const;  // its heading stands in a row of its own
  bool allHidden(const Group& g) const;
  bool folded(const Band& band) const;
  int rowsOf(const Group& g) const;
  std::vector<size_t> sums() const;  // shown in a strip of keys, at its right

  // Pixels at scale 1 between a group's border and its cells, the height of a cell, and from one row to the
  // next.
  double insetX(const Group& g) const;
  double insetY(const Group& g) const;
  double cellHeight(const Group& g) const;
  double pitch(const Group& g) const;
  double rowHeight(const Group& g) const;  // of a grid in it

  // Heights and gaps at scale 1.
  double margin() const;
  double gap() const;
  double natural(const Band& band) const { return natural(band, m_.small); }
  double gapBetween(const Band& above, const Band& below) const;
  double leastHeight(const std::vector<Band>& bands) const;

  int dialogHeight() const;  // in pixels, for a dialog that says none

  // Widths in pixels.
  int fitWidth(const Group& g) const;
  int fitColumn(const Group& g, int column) const;
  int buttonWidth(const Control& c) const;
  int groupGap(const Band& band) const;
  int sumWidth(const Control& c) const;
  int ownWidth(const Group& g) const;  // of a group that says its width
  int leastWidth(const Group& g) const;
  int leastWidth(const std::vector<Band>& bands) const;
  std::vector<int> leastColumns(const Group& g) const;

 private:
  double natural(const Group& g, bool small) const;
  double natural(const Band& band, bool small) const;
  double natural(const std::vector<Band>& bands, bool small) const;
  double leastHeight(const Group& g) const;
  int leastOf(const Control& c) const;
  void collectLines(const std::vector<Band>& bands);
  bool chartsAlone(const Band& band) const;
  const Control* linesOf(const Band& band) const;
  bool joined(const Band& above, const Band& below) const;
  bool isSectionHead(const Group& g) const;

  const Screen& screen_;
  const Measure& m_;
  std::map<std::string, std::vector<size_t>> members_;
  std::set<const Control*> lines_;
  std::vector<size_t> strips_;  // what stands in strips of keys
};

}  // namespace layout
