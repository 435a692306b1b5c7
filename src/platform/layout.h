#pragma once

#include <string>
#include <vector>

// Where the controls of a screen stand. Lengths are pixels at 1366 x 768; a host
// multiplies them by its scale step. On a small window a length gives way down to
// `least` pixels; below 0 it has none of its own, and keeps what its contents need.
struct Length {
  enum class Unit { Px, Part, Fit } unit = Unit::Part;
  double n = 1;
  double least = -1;
};
constexpr Length px(double n, double least = -1) { return {Length::Unit::Px, n, least}; }
constexpr Length part(double n, double least = -1) { return {Length::Unit::Part, n, least}; }
constexpr Length fit() { return {Length::Unit::Fit, 0}; }             // as wide as its widest label
constexpr Length twips(double n) { return {Length::Unit::Part, n}; }  // documented widths become shares

enum class Frame {
  Panel,    // a group of fields: panel colour, thin frame
  Off,      // the same in the off colour: facts that are only shown
  Plain,    // nothing drawn
  Heads,    // the heading row of the grid `columnsOf`; fields standing in it cover their titles
  Entry,    // the line-entry row over the columns of `columnsOf`
  Keys,     // the strip under the entry row
  Buttons,  // a row of buttons: visible ones flow from the left, `right` ones from the right
  Column,   // a column of buttons
};

struct Band;

// A rectangle of the screen with its own columns of cells, or with bands of groups inside.
struct Group {
  std::string name;
  Length width = part(1);
  Frame frame = Frame::Panel;
  std::vector<Length> columns = {};  // labels included
  std::string columnsOf = {};        // shares the columns of this grid
  double pitch = 35;                 // from one row of fields to the next
  std::vector<Band> bands;
};

struct Band {
  Length height = part(1);
  std::vector<Group> groups;
  bool folds = false;  // leaves its room to the others while all of it is hidden
};

enum class Anchor { Centre, Top, Bottom };

struct Layout {
  std::vector<Band> bands;
  double width = 0, height = 0;  // dialogs; 0 fills what there is
  Anchor anchor = Anchor::Centre;
  double margin = 8;
  double gap = 6;  // between groups
};

// The cell of a control: its group, row and column; the label takes the cell before it.
struct Place {
  std::string group;
  int row = 0, col = 0, span = 1, rows = 1;
  double width = 0;    // 0 fills the cell
  bool right = false;  // in a row of buttons: from the right edge
};
