#include "base/text.h"
#include "platform/workbook/functions.h"

namespace workbook {
namespace {

// A row or a column of values, read one by one: a block's cells are calculated when looked at.
class Row {
 public:
  Row(Call& call, Operand source) : call_(call), source_(std::move(source)) {
    if (const Value* value = std::get_if<Value>(&source_)) {
      if (value->error()) throw Failure{*value->error()};
      source_ = call.evaluator().table(source_);
    }
    if (const Block* block = std::get_if<Block>(&source_)) {
      rows_ = std::min(block->rows(),
                       std::max(call.evaluator().lastUsedRow(block->sheet) - block->firstRow + 1, 0));
      columns_ = block->columns();
    } else {
      const Table& table = std::get<Table>(source_);
      rows_ = table.rows;
      columns_ = table.columns;
    }
  }

  int rows() const { return rows_; }
  int columns() const { return columns_; }
  Value at(int row, int column) const {
    if (const Block* block = std::get_if<Block>(&source_))
      return call_.evaluator().value(block->sheet, block->firstRow + row, block->firstColumn + column);
    return std::get<Table>(source_).at(row, column);
  }

 private:
  Call& call_;
  Operand source_;
  int rows_ = 0, columns_ = 0;
};

enum class Match { Exact, AtMost, AtLeast };

bool alike(const Value& a, const Value& b) {
  return (a.number() && b.number()) || (a.text() && b.text()) || (a.truth() && b.truth());
}

// Place of the value among `count` values, counted from 0; -1 when there is none.
template <class At>
int position(const Value& wanted, int count, Match match, At at) {
  const bool pattern = match == Match::Exact && wanted.text() && hasPattern(*wanted.text());
  int best = -1;
  for (int i = 0; i < count; ++i) {
    const Value value = at(i);
    if (!alike(value, wanted)) continue;
    if (pattern) {
      if (matchesPattern(*value.text(), *wanted.text())) return i;
      continue;
    }
    const int order = compare(value, wanted);
    if (match == Match::Exact) {
      if (order == 0) return i;
    } else if (match == Match::AtMost ? order <= 0 : order >= 0) {
      best = i;
    } else if (match == Match::AtLeast) {
      break;
    }
  }
  return best;
}

Value wantedOf(Call& call, int i) {
  Value wanted = call.value(i);
  return wanted.empty() ? Value(0) : wanted;
}

Operand lookupTable(Call& call, bool vertical) {
  const Value wanted = wantedOf(call, 0);
  const Row table(call, call.operand(1));
  const int line = call.whole(2);
  const Match match = call.truth(3, true) ? Match::AtMost : Match::Exact;
  if (line < 1) throw Failure{Error::Value};
  if (line > (vertical ? table.columns() : table.rows())) throw Failure{Error::Reference};
  const int place = position(wanted, vertical ? table.rows() : table.columns(), match,
                             [&](int i) { return vertical ? table.at(i, 0) : table.at(0, i); });
  if (place < 0) throw Failure{Error::NotAvailable};
  return vertical ? table.at(place, line - 1) : table.at(line - 1, place);
}

Operand lookup(Call& call) {
  const Value wanted = wantedOf(call, 0);
  const Row keys(call, call.operand(1));
  const bool across = keys.columns() > keys.rows();
  const int place = position(wanted, across ? keys.columns() : keys.rows(), Match::AtMost,
                             [&](int i) { return across ? keys.at(0, i) : keys.at(i, 0); });
  if (place < 0) throw Failure{Error::NotAvailable};
  if (!call.given(2)) return across ? keys.at(keys.rows() - 1, place) : keys.at(place, keys.columns() - 1);
  const Row results(call, call.operand(2));
  const bool resultsAcross = results.columns() > 1;
  if (resultsAcross ? place >= results.columns() : place >= results.rows()) return Value();
  return resultsAcross ? results.at(0, place) : results.at(place, 0);
}

Operand match(Call& call) {
  const Value wanted = wantedOf(call, 0);
  const Row keys(call, call.operand(1));
  const double kind = call.number(2, 1);
  const bool across = keys.rows() == 1;
  if (!across && keys.columns() != 1) throw Failure{Error::NotAvailable};
  const int place = position(wanted, across ? keys.columns() : keys.rows(),
                             kind == 0  ? Match::Exact
                             : kind > 0 ? Match::AtMost
                                        : Match::AtLeast,
                             [&](int i) { return across ? keys.at(0, i) : keys.at(i, 0); });
  if (place < 0) throw Failure{Error::NotAvailable};
  return Value(place + 1);
}

// One line of a block or table, across or down, counted from 0.
Operand lineOf(Call& call, const Operand& source, bool across, int place) {
  if (const Block* block = std::get_if<Block>(&source)) {
    if (place >= (across ? block->rows() : block->columns())) throw Failure{Error::Value};
    Block part = *block;
    if (across)
      part.firstRow = part.lastRow = block->firstRow + place;
    else
      part.firstColumn = part.lastColumn = block->firstColumn + place;
    return part;
  }
  const Table table = call.evaluator().table(source);
  if (place >= (across ? table.rows : table.columns)) throw Failure{Error::Value};
  Table part{.rows = across ? 1 : table.rows, .columns = across ? table.columns : 1, .values = {}};
  for (int i = 0; i < (across ? table.columns : table.rows); ++i)
    part.values.push_back(across ? table.at(place, i) : table.at(i, place));
  return part;
}

// The nearest key below (or above) the wanted one, in whatever order the keys stand.
template <class At>
int nearest(const Value& wanted, int count, bool below, At at) {
  int best = -1;
  for (int i = 0; i < count; ++i) {
    const Value value = at(i);
    if (!alike(value, wanted)) continue;
    const int order = compare(value, wanted);
    if (order == 0) return i;
    const bool fits = below ? order < 0 : order > 0;
    if (fits && (best < 0 || (compare(value, at(best)) > 0) == below)) best = i;
  }
  return best;
}

// XLOOKUP(wanted, keys, results, otherwise, kind): 0 exact, -1 or the next below, 1 or the next
// above, 2 a pattern.
Operand lookupAny(Call& call) {
  const Value wanted = wantedOf(call, 0);
  const Row keys(call, call.operand(1));
  const Operand results = call.operand(2);
  const bool down = keys.columns() == 1;
  if (!down && keys.rows() != 1) throw Failure{Error::Value};
  const int count = down ? keys.rows() : keys.columns(), kind = call.whole(4, 0);
  const auto at = [&](int i) { return down ? keys.at(i, 0) : keys.at(0, i); };
  const int place = kind == 1 || kind == -1 ? nearest(wanted, count, kind < 0, at)
                                            : position(wanted, count, Match::Exact, at);
  if (place >= 0) return lineOf(call, results, down, place);
  if (!call.given(3)) throw Failure{Error::NotAvailable};
  return call.operand(3);
}

Operand transposed(Call& call) {
  const Table from = call.table(0);
  Table result = call.evaluator().sized(from.columns, from.rows);
  for (int r = 0; r < result.rows; ++r)
    for (int c = 0; c < result.columns; ++c)
      result.values[static_cast<size_t>(r) * static_cast<size_t>(result.columns) + static_cast<size_t>(c)] =
          from.at(c, r);
  return result;
}

Operand index(Call& call) {
  const Operand source = call.operand(0);
  int row = call.whole(1, 0), column = call.whole(2, 0);
  if (row < 0 || column < 0) throw Failure{Error::Value};
  if (const Block* block = std::get_if<Block>(&source)) {
    if (call.count() == 2 && block->rows() == 1) std::swap(row, column);
    if (row > block->rows() || column > block->columns()) throw Failure{Error::Reference};
    Block part = *block;
    if (row) part.firstRow = part.lastRow = block->firstRow + row - 1;
    if (column) part.firstColumn = part.lastColumn = block->firstColumn + column - 1;
    return part;
  }
  const Table table = call.evaluator().table(source);
  if (call.count() == 2 && table.rows == 1) std::swap(row, column);
  if (row > table.rows || column > table.columns) throw Failure{Error::Reference};
  Table part{.rows = row ? 1 : table.rows, .columns = column ? 1 : table.columns, .values = {}};
  for (int r = 0; r < part.rows; ++r)
    for (int c = 0; c < part.columns; ++c)
      part.values.push_back(table.at(row ? row - 1 : r, column ? column - 1 : c));
  return part;
}

Operand offset(Call& call) {
  Block block = call.block(0);
  const int rows = call.whole(3, block.rows()), columns = call.whole(4, block.columns());
  const long long row = static_cast<long long>(block.firstRow) + call.whole(1, 0);
  const long long column = static_cast<long long>(block.firstColumn) + call.whole(2, 0);
  if (!rows || !columns) throw Failure{Error::Reference};
  const long long top = rows > 0 ? row : row + rows + 1, left = columns > 0 ? column : column + columns + 1;
  const long long bottom = top + std::abs(rows) - 1, right = left + std::abs(columns) - 1;
  if (top < 1 || left < 1 || bottom > kMaxRow || right > kMaxColumn) throw Failure{Error::Reference};
  block.firstRow = static_cast<int>(top);
  block.lastRow = static_cast<int>(bottom);
  block.firstColumn = static_cast<int>(left);
  block.lastColumn = static_cast<int>(right);
  return block;
}

Operand indirect(Call& call) {
  if (!call.truth(1, true)) throw Failure{Error::Reference};
  return call.evaluator().reference(trim(call.text(0)), call.home());
}

// ROW and COLUMN: of the formula's own cell, or the numbers of all rows of a block.
Operand numbered(Call& call, bool rows) {
  if (!call.given(0)) return Value(rows ? call.home().row : call.home().column);
  const Block block = call.block(0);
  Table table = call.evaluator().sized(rows ? block.rows() : 1, rows ? 1 : block.columns());
  int number = rows ? block.firstRow : block.firstColumn;
  for (Value& value : table.values) value = number++;
  return table;
}

Operand counted(Call& call, bool rows) {
  const Operand source = call.operand(0);
  if (const Block* block = std::get_if<Block>(&source)) return Value(rows ? block->rows() : block->columns());
  const Table table = call.evaluator().table(source);
  return Value(rows ? table.rows : table.columns);
}

Operand address(Call& call) {
  const int row = call.whole(0), column = call.whole(1), kind = call.whole(2, 1);
  if (row < 1 || row > kMaxRow || column < 1 || column > kMaxColumn || kind < 1 || kind > 4)
    throw Failure{Error::Value};
  std::string name = kind == 1 || kind == 3 ? "$" : "";
  name += columnName(column) + (kind < 3 ? "$" : "") + std::to_string(row);
  return Value(call.given(4) ? call.text(4) + "!" + name : name);
}

}  // namespace

std::vector<Function> lookupFunctions() {
  constexpr Takes S = Takes::Singles, B = Takes::Blocks, A = Takes::Arrays;
  // clang-format off
  return {
    {"ADDRESS",   2, 5, S, address},
    {"COLUMN",    0, 1, B, [](Call& c) { return numbered(c, false); }},
    {"COLUMNS",   1, 1, B, [](Call& c) { return counted(c, false); }},
    {"HLOOKUP",   3, 4, B, [](Call& c) { return lookupTable(c, false); }},
    {"INDEX",     2, 3, A, index},
    {"INDIRECT",  1, 2, B, indirect},
    {"LOOKUP",    2, 3, A, lookup},
    {"MATCH",     2, 3, A, match},
    {"OFFSET",    3, 5, B, offset},
    {"ROW",       0, 1, B, [](Call& c) { return numbered(c, true); }},
    {"ROWS",      1, 1, B, [](Call& c) { return counted(c, true); }},
    {"SINGLE",    1, 1, B, [](Call& c) { return Operand(c.any(0)); }},
    {"TRANSPOSE", 1, 1, A, transposed},
    {"VLOOKUP",   3, 4, B, [](Call& c) { return lookupTable(c, true); }},
    {"XLOOKUP",   3, 6, A, lookupAny},
  };
  // clang-format on
}

}  // namespace workbook
