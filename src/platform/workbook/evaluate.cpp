#include "platform/workbook/evaluate.h"

#include <cmath>

#include "base/text.h"
#include "base/words.h"
#include "platform/workbook/functions.h"

namespace workbook {
namespace {

constexpr int kCellDepth = 600, kMaxDepth = 2500;
constexpr size_t kMaxTable = 1 << 20, kMaxText = 32767;
// Some seconds of work.
constexpr size_t kMaxSteps = 30000000;
// Letters of a text to a step, where it takes memory and where it is read and let go.
constexpr size_t kKept = 1, kPassing = 8;
// Nobody reads more.
constexpr size_t kMaxWarnings = 200;
constexpr double kNear = 1.0 / (1LL << 48);

const Value kNothing;

bool near(double a, double b) { return a == b || std::fabs(a - b) < std::fabs(a) * kNear; }

Value finite(double x) { return std::isfinite(x) ? Value(x) : Value(Error::Number); }

Value power(double base, double exponent) {
  if (base == 0 && exponent == 0) return Error::Number;
  if (base == 0 && exponent < 0) return Error::DivisionByZero;
  return finite(std::pow(base, exponent));
}

// Raises Failure for a text where a number is needed; an error on either side is the result.
Value calculated(Operation operation, const Value& left, const Value& right) {
  if (left.error()) return left;
  if (right.error()) return right;
  switch (operation) {
    case Operation::Add:
      return finite(addNear(toNumber(left), toNumber(right)));
    case Operation::Subtract:
      return finite(addNear(toNumber(left), -toNumber(right)));
    case Operation::Multiply:
      return finite(toNumber(left) * toNumber(right));
    case Operation::Divide: {
      const double top = toNumber(left), bottom = toNumber(right);
      return bottom == 0 ? Value(Error::DivisionByZero) : finite(top / bottom);
    }
    case Operation::Power:
      return power(toNumber(left), toNumber(right));
    case Operation::Join: {
      std::string text = toText(left) + toText(right);
      return text.size() > kMaxText ? Value(Error::Value) : Value(std::move(text));
    }
    case Operation::Equal:
      return compare(left, right) == 0;
    case Operation::NotEqual:
      return compare(left, right) != 0;
    case Operation::Less:
      return compare(left, right) < 0;
    case Operation::LessEqual:
      return compare(left, right) <= 0;
    case Operation::Greater:
      return compare(left, right) > 0;
    case Operation::GreaterEqual:
      return compare(left, right) >= 0;
    case Operation::Negate:
      return -toNumber(left);
    case Operation::Percent:
      return toNumber(left) / 100;
    case Operation::Plus:
      return left;
    case Operation::Range:
      break;
  }
  return Error::Value;
}

bool several(const Operand& operand) {
  if (const Block* block = std::get_if<Block>(&operand)) return block->rows() > 1 || block->columns() > 1;
  return std::holds_alternative<Table>(operand);
}

// A table's value where a larger one is calculated: a single row or column repeats.
Value spreadAt(const Table& from, int row, int column) {
  const int r = from.rows == 1 ? 0 : row, c = from.columns == 1 ? 0 : column;
  return r < from.rows && c < from.columns ? from.at(r, c) : Value(Error::NotAvailable);
}

int placed(const Coordinate& coordinate, int home) {
  return coordinate.fixed ? coordinate.at : home + coordinate.at;
}

Operand blockOf(const Reference& reference, const Home& home) {
  Block block{.sheet = reference.sheet < 0 ? home.sheet : reference.sheet,
              .firstRow = placed(reference.first.row, home.row),
              .firstColumn = placed(reference.first.column, home.column),
              .lastRow = placed(reference.last.row, home.row),
              .lastColumn = placed(reference.last.column, home.column)};
  if (block.firstRow > block.lastRow) std::swap(block.firstRow, block.lastRow);
  if (block.firstColumn > block.lastColumn) std::swap(block.firstColumn, block.lastColumn);
  if (block.firstRow < 1 || block.firstColumn < 1 || block.lastRow > kMaxRow || block.lastColumn > kMaxColumn)
    return Value(Error::Reference);
  return block;
}

int rank(const Value& value) { return value.truth() ? 2 : value.text() ? 1 : 0; }

}  // namespace

double addNear(double left, double right) {
  const double sum = left + right;
  return (left < 0) != (right < 0) && near(left, -right) ? 0 : sum;
}

double toNumber(const Value& value) {
  if (const double* number = value.number()) return *number;
  if (const bool* truth = value.truth()) return *truth ? 1 : 0;
  if (const Error* error = value.error()) throw Failure{*error};
  if (const std::string* text = value.text()) {
    double number = 0;
    if (!numberIn(*text, number)) throw Failure{Error::Value};
    return number;
  }
  return 0;
}

std::string toText(const Value& value) {
  if (const Error* error = value.error()) throw Failure{*error};
  return textOf(value);
}

bool toTruth(const Value& value) {
  if (const std::string* text = value.text()) {
    if (sameText(*text, "TRUE")) return true;
    if (sameText(*text, "FALSE")) return false;
    throw Failure{Error::Value};
  }
  return toNumber(value) != 0;
}

int compare(const Value& left, const Value& right) {
  // Nothing takes the kind of the other side: 0, "" or FALSE.
  if (left.empty() && right.text()) return right.text()->empty() ? 0 : -1;
  if (right.empty() && left.text()) return left.text()->empty() ? 0 : 1;
  if (left.empty() && right.truth()) return *right.truth() ? -1 : 0;
  if (right.empty() && left.truth()) return *left.truth() ? 1 : 0;
  if (rank(left) != rank(right)) return rank(left) < rank(right) ? -1 : 1;
  if (left.text() && right.text()) {
    const int order = lower(*left.text()).compare(lower(*right.text()));
    return order < 0 ? -1 : order > 0;
  }
  const double a = toNumber(left), b = toNumber(right);
  return near(a, b) ? 0 : a < b ? -1 : 1;
}

void Evaluator::spend(size_t steps) {
  spent_ += steps;
  if (spent_ > kMaxSteps) throw Failure{Error::Number};
}

void Evaluator::spendOn(const Value& value, size_t letters) {
  if (const std::string* text = value.text()) spend(text->size() / letters);
}

void Evaluator::refresh() {
  if (!model_.stale) return;
  model_.stale = false;
  for (FormulaCell& formula : model_.formulas)
    if (formula.live && formula.expression) {
      formula.state = FormulaCell::State::Stale;
      formula.circular = false;
    }
}

void Evaluator::all() {
  model_.stale = true;
  model_.warnings = model_.loadWarnings;
  refresh();
  for (int i = 0; i < static_cast<int>(model_.formulas.size()); ++i)
    if (model_.formulas[static_cast<size_t>(i)].state == FormulaCell::State::Stale) settle(i);
}

const Value& Evaluator::value(int sheet, int row, int column) {
  if (running_.empty())
    refresh();
  else
    spend(1);
  Cell* cell = model_.sheets[static_cast<size_t>(sheet)].cell(row, column);
  if (!cell) return kNothing;
  if (running_.empty() && cell->formula >= 0 &&
      model_.formulas[static_cast<size_t>(cell->formula)].state == FormulaCell::State::Stale)
    settle(cell->formula);
  return cellValue(*cell);
}

const Value& Evaluator::cellValue(Cell& cell) {
  if (!running_.empty()) spend(1);
  if (cell.formula < 0) return cell.value;
  switch (model_.formulas[static_cast<size_t>(cell.formula)].state) {
    case FormulaCell::State::Stored:
    case FormulaCell::State::Done:
      break;
    case FormulaCell::State::Running:
    case FormulaCell::State::Waiting:
      circle(cell.formula);
      throw Failure{Error::Reference};
    case FormulaCell::State::Stale:
      if (depth_ > kCellDepth) throw TooDeep{cell.formula};
      run(cell.formula);
  }
  return cell.value;
}

// Each waiting formula is needed, by way of others, by the one below it.
void Evaluator::settle(int formula) {
  waiting_.push_back(formula);
  while (!waiting_.empty()) {
    const int top = waiting_.back();
    try {
      run(top);
      waiting_.pop_back();
    } catch (const TooDeep& deeper) {
      model_.formulas[static_cast<size_t>(top)].state = FormulaCell::State::Waiting;
      waiting_.push_back(deeper.formula);
    }
  }
}

void Evaluator::run(int formula) {
  struct Running {
    Running(Evaluator& owner, FormulaCell& cell, int number)
        : evaluator(owner), formula(cell), depth(owner.depth_) {
      formula.state = FormulaCell::State::Running;
      evaluator.running_.push_back(number);
    }
    ~Running() {
      evaluator.running_.pop_back();
      evaluator.depth_ = depth;
      if (formula.state == FormulaCell::State::Running) formula.state = FormulaCell::State::Stale;
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    Evaluator& evaluator;
    FormulaCell& formula;
    int depth;
  };
  FormulaCell& cell = model_.formulas[static_cast<size_t>(formula)];
  const Running running(*this, cell, formula);
  const Home home{
      .sheet = cell.sheet, .row = cell.row - cell.arrayRow, .column = cell.column - cell.arrayColumn};
  Value result;
  try {
    const Operand found = evaluate(*cell.expression, home, cell.array);
    result = cell.array ? spreadAt(table(found), cell.arrayRow, cell.arrayColumn) : single(found, home);
    if (result.empty()) result = 0;
    spendOn(result, kKept);
  } catch (const Failure& failure) {
    result = failure.error;
  }
  if (cell.circular) {
    result = Error::Reference;
    warn(formula, words("the formula refers to itself"));
  }
  model_.sheets[static_cast<size_t>(cell.sheet)].cell(cell.row, cell.column)->value = std::move(result);
  cell.state = FormulaCell::State::Done;
}

// Everything between the formula and itself is part of the circle.
void Evaluator::circle(int formula) {
  const auto mark = [&](const std::vector<int>& chain) {
    const auto start = std::find(chain.begin(), chain.end(), formula);
    for (auto i = start; i != chain.end(); ++i) model_.formulas[static_cast<size_t>(*i)].circular = true;
    return start != chain.end();
  };
  if (mark(waiting_)) {
    for (const int i : running_) model_.formulas[static_cast<size_t>(i)].circular = true;
  } else {
    mark(running_);
  }
}

Operand Evaluator::evaluate(const Expression& expression, const Home& home, bool arrays) {
  struct Level {
    explicit Level(int& counter) : depth(counter) {
      if (++depth > kMaxDepth) {
        --depth;
        throw Failure{Error::Number};
      }
    }
    ~Level() { --depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    int& depth;
  } const level(depth_);
  switch (expression.kind) {
    case Expression::Kind::Constant:
      return expression.constant;
    case Expression::Kind::Missing:
      return Value();
    case Expression::Kind::Reference:
      return blockOf(expression.reference, home);
    case Expression::Kind::Operation:
      return operation(expression, home, arrays);
    case Expression::Kind::Call:
      return call(expression, home, arrays);
    case Expression::Kind::Name:
      return named(expression, home, arrays);
    case Expression::Kind::Unknown:
      if (!running_.empty())
        warn(running_.back(), words("the function {name} is not known", "name", expression.name()));
      return Value(Error::Name);
    case Expression::Kind::Array: {
      Table table;
      table.rows = expression.rows;
      table.columns = static_cast<int>(expression.arguments.size()) / expression.rows;
      for (const Expression& item : expression.arguments) table.values.push_back(item.constant);
      return table;
    }
  }
  return Value();
}

Operand Evaluator::call(const Expression& expression, const Home& home, bool arrays) {
  const Takes takes = expression.function->takes;
  if (arrays && takes == Takes::Singles) return lifted(expression, home);
  if (arrays && takes == Takes::Choice && several(caught(expression.arguments[0], home)))
    return lifted(expression, home);
  Call call(*this, expression, home, arrays || takes == Takes::Arrays);
  Operand result = expression.function->run(call);
  if (const Value* value = std::get_if<Value>(&result)) spendOn(*value, kPassing);
  return result;
}

Operand Evaluator::caught(const Expression& expression, const Home& home) {
  try {
    return evaluate(expression, home, true);
  } catch (const Failure& failure) {
    return Value(failure.error);
  }
}

Table Evaluator::spread(int rows, int columns, const std::function<Value(int, int)>& calculate) {
  Table result = sized(rows, columns);
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column) {
      Value& into =
          result
              .values[static_cast<size_t>(row) * static_cast<size_t>(columns) + static_cast<size_t>(column)];
      try {
        into = calculate(row, column);
        spendOn(into, kKept);
      } catch (const Failure& failure) {
        if (spent_ > kMaxSteps) throw;
        into = failure.error;
      }
    }
  return result;
}

Table Evaluator::sized(int rows, int columns) {
  const size_t count = static_cast<size_t>(rows) * static_cast<size_t>(columns);
  if (count > kMaxTable) throw Failure{Error::Number};
  spend(2 * count);  // they are made before they are filled
  return {.rows = rows, .columns = columns, .values = std::vector<Value>(count)};
}

// Runs a function of single values for every cell of the blocks among its arguments.
Operand Evaluator::lifted(const Expression& expression, const Home& home) {
  std::vector<Table> tables;
  int rows = 1, columns = 1;
  bool any = false;
  for (const Expression& argument : expression.arguments) {
    const Operand operand = caught(argument, home);
    any = any || several(operand);
    tables.push_back(table(operand));
    rows = std::max(rows, tables.back().rows);
    columns = std::max(columns, tables.back().columns);
  }
  Expression one;
  one.kind = Expression::Kind::Call;
  one.function = expression.function;
  one.arguments.resize(expression.arguments.size());
  Table result = spread(rows, columns, [&](int row, int column) {
    for (size_t i = 0; i < tables.size(); ++i) {
      const bool missing = expression.arguments[i].kind == Expression::Kind::Missing;
      one.arguments[i].kind = missing ? Expression::Kind::Missing : Expression::Kind::Constant;
      one.arguments[i].constant = spreadAt(tables[i], row, column);
      spendOn(one.arguments[i].constant, kPassing);
    }
    Call call(*this, one, home, false);
    return single(one.function->run(call), home);
  });
  if (!any) return result.values.front();
  return result;
}

Operand Evaluator::operation(const Expression& expression, const Home& home, bool arrays) {
  if (expression.operation == Operation::Plus) return evaluate(expression.arguments[0], home, arrays);
  const Operand left = evaluate(expression.arguments[0], home, arrays);
  const bool two = expression.arguments.size() > 1;
  const Operand right = two ? evaluate(expression.arguments[1], home, arrays) : Operand();
  if (expression.operation == Operation::Range) {
    const Block* a = std::get_if<Block>(&left);
    const Block* b = std::get_if<Block>(&right);
    if (!a || !b || a->sheet != b->sheet) return Value(Error::Reference);
    return Block{.sheet = a->sheet,
                 .firstRow = std::min(a->firstRow, b->firstRow),
                 .firstColumn = std::min(a->firstColumn, b->firstColumn),
                 .lastRow = std::max(a->lastRow, b->lastRow),
                 .lastColumn = std::max(a->lastColumn, b->lastColumn)};
  }
  if (!arrays || (!several(left) && !several(right)))
    return calculated(expression.operation, single(left, home), single(right, home));
  const Table a = table(left), b = table(right);
  return spread(std::max(a.rows, b.rows), std::max(a.columns, b.columns), [&](int row, int column) {
    return calculated(expression.operation, spreadAt(a, row, column), spreadAt(b, row, column));
  });
}

Operand Evaluator::named(const Expression& expression, const Home& home, bool arrays) {
  const int scope = expression.reference.sheet < 0 ? home.sheet : expression.reference.sheet;
  DefinedName* found = nullptr;
  if (!running_.empty()) spend(model_.names.size() / 16);
  for (DefinedName& name : model_.names)
    if (sameText(name.name, expression.name()) && (name.sheet == scope || (name.sheet < 0 && !found)))
      found = &name;
  if (!found) {
    if (!running_.empty())
      warn(running_.back(), words("the name {name} is not known", "name", expression.name()));
    return Value(Error::Name);
  }
  if (!found->expression) {
    try {
      found->expression = std::make_shared<const Expression>(parseFormula(found->text, 1, 1, model_));
    } catch (const FormulaError&) {
      return Value(Error::Name);
    }
  }
  return evaluate(*found->expression, home, arrays);
}

Operand Evaluator::reference(std::string_view text, const Home& home) {
  try {
    const Expression parsed = parseFormula(text, home.row, home.column, model_);
    if (parsed.kind != Expression::Kind::Reference && parsed.kind != Expression::Kind::Name)
      throw Failure{Error::Reference};
    Operand found = evaluate(parsed, home, false);
    if (!std::holds_alternative<Block>(found)) throw Failure{Error::Reference};
    return found;
  } catch (const FormulaError&) {
    throw Failure{Error::Reference};
  }
}

Value Evaluator::single(const Operand& operand, const Home& home) {
  if (const Value* value = std::get_if<Value>(&operand)) return *value;
  if (const Table* table = std::get_if<Table>(&operand))
    return table->values.empty() ? Value() : table->values.front();
  const Block& block = std::get<Block>(operand);
  if (block.rows() == 1 && block.columns() == 1) return value(block.sheet, block.firstRow, block.firstColumn);
  if (block.columns() == 1 && home.row >= block.firstRow && home.row <= block.lastRow)
    return value(block.sheet, home.row, block.firstColumn);
  if (block.rows() == 1 && home.column >= block.firstColumn && home.column <= block.lastColumn)
    return value(block.sheet, block.firstRow, home.column);
  return Error::Value;
}

Table Evaluator::table(const Operand& operand) {
  if (const Value* value = std::get_if<Value>(&operand)) return {.rows = 1, .columns = 1, .values = {*value}};
  if (const Table* table = std::get_if<Table>(&operand)) return *table;
  Block block = std::get<Block>(operand);
  if (block.rows() == kMaxRow) block.lastRow = std::max(lastUsedRow(block.sheet), 1);
  Table table = sized(block.rows(), block.columns());
  visit(block, [&](int row, int column, const Value& value) {
    table.values[static_cast<size_t>(row - block.firstRow) * static_cast<size_t>(table.columns) +
                 static_cast<size_t>(column - block.firstColumn)] = value;
    return true;
  });
  return table;
}

int Evaluator::lastUsedRow(int sheet) const {
  const auto& rows = model_.sheets[static_cast<size_t>(sheet)].rows;
  return rows.empty() ? 0 : rows.rbegin()->first;
}

const NumberFormat& Evaluator::format(const std::string& code) {
  const auto found = formats_.find(code);
  return found != formats_.end() ? found->second : formats_.emplace(code, NumberFormat(code)).first->second;
}

void Evaluator::warn(int formula, const std::string& text) {
  if (model_.warnings.size() >= kMaxWarnings) return;
  const FormulaCell& cell = model_.formulas[static_cast<size_t>(formula)];
  std::string warning = model_.place(cell.sheet, cell.row, cell.column) + ": " + text;
  if (std::find(model_.warnings.begin(), model_.warnings.end(), warning) == model_.warnings.end())
    model_.warnings.push_back(std::move(warning));
}

}  // namespace workbook
