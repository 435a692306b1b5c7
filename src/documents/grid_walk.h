#pragma once

#include <string>

#include "documents/grid_layout.h"

// The walk over a report's grid that all papers share: page by page, row by row, the rules around
// the cells.

struct GridText {
  double x = 0, y = 0;  // of the line's left or right end
  std::string text;
  double room = 0;      // how wide it may be; what is wider is drawn narrower
  bool right = false;   // x is its right end
  bool narrow = false;  // was too long for its column
  bool bold = false;
};

class GridPaper {
 public:
  virtual ~GridPaper() = default;
  virtual GridPaperKind kind() const = 0;
  // Begins a page with what every page repeats, down to the row of headings. Returns the line of
  // that row.
  virtual double startPage(int number) = 0;
  virtual void endPage() = 0;
  virtual void text(const GridText& text) = 0;
  virtual void rule(double x1, double y1, double x2, double y2) = 0;
};

// The row of the columns' titles between two rules.
void layTitles(const GridOutput& out, const GridLayout& layout, GridPaper& paper, double y);

// All pages. A page that its last row fills is followed by another.
void layGrid(const GridOutput& out, const GridLayout& layout, GridPaper& paper);
