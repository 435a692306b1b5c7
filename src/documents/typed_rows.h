#pragma once

#include <string>
#include <variant>

#include "base/date.h"
#include "platform/grid.h"

// The columns and rows of a report as the screen, paper and files draw them. What a cell is its
// column says, or its row where rows of two sorts share a column; nothing guesses it from a text.

enum class ColumnType {
  Text,
  Date,
  Money,     // an amount or a price: its digits stand in Indian groups
  Rate,      // a percentage
  Quantity,  // of goods
  Count,     // a whole number: of a voucher, of days
};
// Stands to the right on the screen, with two decimals.
constexpr bool isFigure(ColumnType type) {
  return type == ColumnType::Money || type == ColumnType::Rate || type == ColumnType::Quantity;
}

struct TypedColumn {
  std::string heading;
  double twips = 0;  // of width on paper; 0 is no column
  ColumnType type = ColumnType::Text;
  bool right = false;  // on paper its cells stand to the right
};

using TypedValue = std::variant<std::string, double, Date>;

class TypedRows : public RowSource {
 public:
  virtual ColumnType type(size_t row, size_t column) const = 0;
  // A number or a date where the type says so; what does not read as one stays text.
  TypedValue value(size_t row, size_t column) const;
};
