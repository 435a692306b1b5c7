#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbook/workbook.h"

// A formula parsed into a tree. References are kept relative to the formula's own cell, so
// that one tree serves all cells of a shared formula.
namespace workbook {

constexpr int kMaxRow = 1048576, kMaxColumn = 16384;

struct Function;

// A row or column: counted from the formula's cell, or from 1 when fixed by "$".
struct Coordinate {
  int at = 0;
  bool fixed = false;
};

struct Point {
  Coordinate row, column;
};

// A cell or block. Whole columns run from row 1 to the last, whole rows likewise.
struct Reference {
  int sheet = -1;  // -1: the formula's own
  Point first, last;
  bool cell = false;  // one cell, not a block of one
};

enum class Operation {
  Add,
  Subtract,
  Multiply,
  Divide,
  Power,
  Join,
  Equal,
  NotEqual,
  Less,
  LessEqual,
  Greater,
  GreaterEqual,
  Range,
  Negate,
  Plus,
  Percent
};

struct Expression {
  enum class Kind { Constant, Missing, Reference, Operation, Call, Unknown, Name, Array };
  Kind kind = Kind::Constant;
  Value constant;  // the name of an unknown function, and a defined name
  Reference reference;
  Operation operation = Operation::Add;
  const Function* function = nullptr;
  int rows = 1;                       // of an array constant; its values are the arguments
  std::vector<Expression> arguments;  // operands, too

  const std::string& name() const { return *constant.text(); }
};

// Raised for what is passed over: another workbook, a table's column, broken text.
struct FormulaError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What a formula's text may name.
struct Names {
  virtual ~Names() = default;
  virtual int sheet(std::string_view name) const = 0;  // -1: none
};

// The text without its "=", the place of its cell.
Expression parseFormula(std::string_view text, int row, int column, const Names& names);

// The same formula as another cell's text: relative references moved.
std::string movedFormula(std::string_view text, int rows, int columns);

// "BC12" to column 55, row 12; false when it is no cell's name.
bool parseCell(std::string_view text, int& row, int& column);
std::string columnName(int column);
std::string cellName(int row, int column);

}  // namespace workbook
