#pragma once

// Which rows of a design's long sheet a document does not need. The sheet is made for a
// number of pages: head, item slots and foot of each page, the closing foot after the
// slots of the last one. A design without a row of line settings counts 1 everywhere.
struct PageModel {
  double head = 1;   // rows of a page head (HDLINES)
  double foot = 1;   // rows of a page foot (FTLINES)
  int slots = 1;     // item slots of a page (INVLINES)
  double slot = 1;   // rows of a slot (ITMLINES)
  double pages = 1;  // pages that the sheet is made for (BLPGS)
  int copies = 1;    // wanted (PRNCPY); a design carries them on its own sheet
};

// How many slots a page keeps when the sheet is made for one page.
enum class SlotsKept {
  All,                // quotation, challan
  LinesOfLargePages,  // invoice: a single page of more than 25 slots keeps as many as there are lines
  Lines,              // delivery slip: a single page keeps as many as there are lines
};

struct RowRange {
  int first = 0, last = 0;
  // Nothing is hidden unless the last row lies beyond the first.
  bool any() const { return last > first; }
};

RowRange rowsToHide(const PageModel& model, int lines, SlotsKept kept);
