#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/layout.h"

enum class Align { Auto, Left, Centre, Right };

// Colours are written blue, green, red (0xC0FFFF is a light yellow), as the documented values are.
using Bgr = uint32_t;
constexpr Bgr kNoColour = 0xFF000000;
constexpr Bgr kWhite = 0xFFFFFF;

struct Cell {
  std::string text;
  Bgr back = kNoColour, fore = kNoColour;
  double fontSize = 0;  // points; 0 is the grid's own
  Align align = Align::Auto;
  bool bold = false;
};

struct GridColumn {
  std::string title;
  Length width = part(1);  // a width of 0 hides the column
  Align align = Align::Left;
  bool money = false;  // figures are grouped by the painter; the text stays plain
  int headSpan = 1;    // the title stands over this many columns
  int spare = 0;       // columns of one number go from a small window while they hold nothing
};

// What a grid shows. A host asks only for the rows in view, so a source over 100,000
// stored rows costs no more to open than one over 100.
class RowSource {
 public:
  virtual ~RowSource() = default;
  virtual size_t count() const = 0;
  virtual Cell cell(size_t row, size_t column) const = 0;
};

class CellRows : public RowSource {
 public:
  std::vector<std::vector<Cell>> rows;
  size_t count() const override { return rows.size(); }
  Cell cell(size_t row, size_t column) const override {
    return column < rows[row].size() ? rows[row][column] : Cell{};
  }
};

struct Grid {
  static constexpr size_t kNone = static_cast<size_t>(-1);

  std::vector<GridColumn> columns;
  std::shared_ptr<RowSource> source;
  size_t current = kNone;  // row under the cursor
  bool heading = true;
  // What is said in place of rows while there are none: lines, of which the first stands out.
  std::vector<std::string> instead;

  size_t count() const { return source ? source->count() : 0; }
  Cell cell(size_t row, size_t column) const { return row < count() ? source->cell(row, column) : Cell{}; }
  // Puts the cursor on the nearest row that there is.
  void moveTo(size_t row) { current = count() == 0 ? kNone : (row < count() ? row : count() - 1); }
};
