#pragma once

#include <vector>

#include "platform/paint.h"
#include "platform/workbook/layout.h"

// Draws one laid-out page: fills, borders, texts, pictures.
namespace workbook {

class PageDrawing {
 public:
  // `letters` counts what is written on all pages; WorkbookError beyond some millions.
  PageDrawing(const Model& model, const SheetModel& sheet, const SheetLayout& layout, size_t page,
              paint::Canvas& canvas, const paint::Metrics& metrics, size_t& letters);
  void draw();

 private:
  // A place of the page's grid, rows and columns counted from 0.
  struct Spot {
    const Cell* cell = nullptr;
    const CellStyle* style = nullptr;
    int merge = -1;
  };
  struct Merge {
    int firstRow, firstColumn, lastRow, lastColumn;  // on the page's grid
    const Cell* cell;
    const CellStyle* style;
    bool starts;  // the text stands on this page
  };

  int rows() const { return static_cast<int>(page_.rows.size()); }
  int columns() const { return static_cast<int>(page_.columns.size()); }
  Spot& spot(int row, int column) {
    return spots_[static_cast<size_t>(row) * page_.columns.size() + static_cast<size_t>(column)];
  }
  paint::Rect rect(int firstRow, int firstColumn, int lastRow, int lastColumn) const;
  void gather();
  void gatherMerges();
  [[noreturn]] void tooMuch() const;
  bool blank(int row, int column);

  void fills();
  void borders();
  void diagonals();
  void rule(bool across, double along, double from, double to, const Side& side);
  void texts();
  paint::Text placed(const Value& value, const CellStyle& style, paint::Rect box) const;
  void text(int row, int column, const Cell& cell, const CellStyle& style, paint::Rect box, bool merged);
  std::vector<paint::Text::Run> runsOf(const Cell& cell, const paint::Text& text) const;
  std::string fitted(const Cell& cell, const CellStyle& style, const paint::Font& font, double room,
                     paint::Colour& colour) const;
  paint::Rect overflow(int row, int firstColumn, int lastColumn, double needed, paint::HAlign align,
                       paint::Rect box);
  void pictures();

  const Model& model_;
  const SheetModel& sheet_;
  const SheetLayout& layout_;
  const PageLayout& page_;
  double scale_;
  paint::Canvas& canvas_;
  const paint::Metrics& metrics_;
  size_t& letters_;
  std::vector<Spot> spots_;
  std::vector<Merge> merges_;
};

// header_footer.cpp
void drawHeaderFooter(const Model& model, const SheetModel& sheet, const PageLayout& page, int place,
                      int pages, double scale, paint::Canvas& canvas, const paint::Metrics& metrics);

}  // namespace workbook
