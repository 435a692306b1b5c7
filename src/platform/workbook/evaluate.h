#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "platform/workbook/model.h"
#include "platform/workbook/number_format.h"

// Calculates formulas lazily: a cell is calculated when its value is asked for, once.
namespace workbook {

// The cell a formula stands in.
struct Home {
  int sheet = 0, row = 1, column = 1;
};

// Cells of one sheet by their place, not yet looked at.
struct Block {
  int sheet = 0;
  int firstRow = 1, firstColumn = 1, lastRow = 1, lastColumn = 1;
  int rows() const { return lastRow - firstRow + 1; }
  int columns() const { return lastColumn - firstColumn + 1; }
};

struct Table {
  int rows = 0, columns = 0;
  std::vector<Value> values;  // row by row
  const Value& at(int row, int column) const {
    return values[static_cast<size_t>(row) * static_cast<size_t>(columns) + static_cast<size_t>(column)];
  }
};

using Operand = std::variant<Value, Block, Table>;

// An error value on its way out of a formula.
struct Failure {
  Error error;
};

class Evaluator {
 public:
  explicit Evaluator(Model& model) : model_(model) {}

  Model& model() { return model_; }
  // Calculates the cell when it holds a formula that is stale.
  const Value& value(int sheet, int row, int column);
  // Fills Model::warnings.
  void all();

  Operand evaluate(const Expression& expression, const Home& home, bool arrays);
  // One value of a block: the only one, or that in the formula's own row or column.
  Value single(const Operand& operand, const Home& home);
  // Large blocks are cut to the cells that are used.
  Table table(const Operand& operand);
  // Of empty values; raises #NUM! beyond a million.
  Table sized(int rows, int columns);
  // Every filled cell of the block, row by row, until the visitor gives false.
  template <class Visit>
  void visit(const Block& block, Visit visit);
  int lastUsedRow(int sheet) const;
  Operand reference(std::string_view text, const Home& home);
  const NumberFormat& format(const std::string& code);

 private:
  // A chain of cells is longer than the stack should carry: this one is calculated first.
  struct TooDeep {
    int formula;
  };

  const Value& cellValue(Cell& cell);
  void settle(int formula);
  void run(int formula);
  void circle(int formula);
  // Counts what a workbook makes us do: one that would keep us for ever gets #NUM! instead.
  void spend(size_t steps);
  void spendOn(const Value& value, size_t letters);
  void refresh();
  Operand call(const Expression& expression, const Home& home, bool arrays);
  Operand caught(const Expression& expression, const Home& home);
  Operand lifted(const Expression& expression, const Home& home);
  // A table calculated cell by cell; a Failure becomes the cell's error.
  Table spread(int rows, int columns, const std::function<Value(int, int)>& calculate);
  Operand operation(const Expression& expression, const Home& home, bool arrays);
  Operand named(const Expression& expression, const Home& home, bool arrays);
  void warn(int formula, const std::string& text);

  Model& model_;
  std::vector<int> running_, waiting_;
  int depth_ = 0;
  size_t spent_ = 0;
  std::map<std::string, NumberFormat> formats_;
};

// Turns a value into what an operator needs; raises Failure.
double toNumber(const Value& value);
std::string toText(const Value& value);
bool toTruth(const Value& value);
// -1, 0, 1: numbers before texts before truths; texts without regard to case.
int compare(const Value& left, const Value& right);
// Sums without the last bits that decimal fractions leave behind.
double addNear(double left, double right);

template <class Visit>
void Evaluator::visit(const Block& block, Visit visit) {
  auto& rows = model_.sheets[static_cast<size_t>(block.sheet)].rows;
  for (auto row = rows.lower_bound(block.firstRow); row != rows.end() && row->first <= block.lastRow; ++row) {
    auto& cells = row->second.cells;
    auto cell = std::lower_bound(cells.begin(), cells.end(), block.firstColumn,
                                 [](const Cell& c, int column) { return c.column < column; });
    for (; cell != cells.end() && cell->column <= block.lastColumn; ++cell) {
      const Value& value = cellValue(*cell);
      if (!value.empty() && !visit(row->first, cell->column, value)) return;
    }
  }
}

}  // namespace workbook
