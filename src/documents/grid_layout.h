#pragma once

#include <optional>
#include <string>
#include <vector>

#include "documents/grid_output.h"

// Where a report's grid stands on paper, in points from the lower left corner of the page, and what
// of a cell's text is shown.

enum class GridPaperKind { Pdf, Printer };

struct GridPlace {
  size_t column = 0;  // of the output
  double left = 0;    // points
  double width = 0;
  double twips = 0;
  bool toRight = false;  // its cells stand there
  double right() const { return left + width; }
};

struct GridLayout {
  bool landscape = false;
  double pageWidth = 0, pageHeight = 0;
  double middle = 0;           // on which heading lines are centred
  double top = 0;              // the first of them
  int rows = 0;                // of a page
  bool ruled = true;           // lines between rows and columns
  double left = 0, right = 0;  // the table's edges
  std::vector<GridPlace> columns;
};

// Nothing when the first kPaperColumns columns are wider than a page.
std::optional<GridLayout> gridLayout(const GridOutput& out, GridPaperKind kind);

// What is told then.
std::string tooWideWords(GridPaperKind kind);

// The text of a cell that stands to the left: too long for its column it is cut (a figure never is),
// and `narrow` says that it is to be written narrower or smaller. A control character is a blank.
struct GridWords {
  std::string text;
  bool narrow = false;
};
GridWords gridWords(std::string text, ColumnType type, double twips, GridPaperKind kind);
