#pragma once

#include <vector>

#include "platform/workbook/model.h"

// A sheet cut into pages. Lengths are points on the paper, after scaling.
namespace workbook {

struct Slice {
  int index = 0;            // row or column
  double at = 0, size = 0;  // from the edge of the paper
};

struct PageLayout {
  std::vector<Slice> rows, columns;  // the visible ones, repeated titles first
  int number = 1;                    // as the header counts
};

// Where a picture stands, before scaling: from the corner of its first cell.
struct PlacedPicture {
  int row = 0, column = 0;
  double x = 0, y = 0, w = 0, h = 0;
  const Picture* picture = nullptr;
};

struct SheetLayout {
  double scale = 1;
  std::vector<PageLayout> pages;
  std::vector<PlacedPicture> pictures;
};

// Unscaled sizes; 0 for what is hidden.
double rowHeight(const SheetModel& sheet, int row);
double columnWidth(const Model& model, const SheetModel& sheet, int column);

// Raises WorkbookError beyond 2,000 pages.
SheetLayout layOut(const Model& model, const SheetModel& sheet);

}  // namespace workbook
