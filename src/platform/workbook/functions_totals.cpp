#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/workbook/functions.h"

// Functions that run over blocks: sums, counts, averages, extremes.
namespace workbook {
namespace {

double total(Call& call, int from) {
  double sum = 0;
  call.numbers(from, [&](double x) { sum = addNear(sum, x); });
  return sum;
}

Operand sum(Call& call) { return Value(total(call, 0)); }

Operand squares(Call& call) {
  double result = 0;
  call.numbers(0, [&](double x) { result += x * x; });
  return Value(result);
}

Operand product(Call& call) {
  double result = 1;
  bool any = false;
  call.numbers(0, [&](double x) {
    result *= x;
    any = true;
  });
  return Value(any ? result : 0);
}

Operand extreme(Call& call, bool most) {
  std::optional<double> found;
  call.numbers(0, [&](double x) {
    if (!found || (most ? x > *found : x < *found)) found = x;
  });
  return Value(found.value_or(0));
}

Operand average(Call& call) {
  double sum = 0;
  int count = 0;
  call.numbers(0, [&](double x) {
    sum = addNear(sum, x);
    ++count;
  });
  if (!count) throw Failure{Error::DivisionByZero};
  return Value(sum / count);
}

Operand count(Call& call) {
  int found = 0;
  for (int i = 0; i < call.count(); ++i)
    call.each(i, [&](const Value& value, bool direct) {
      double number = 0;
      found +=
          value.number() || (direct && (value.truth() || (value.text() && numberIn(*value.text(), number))));
    });
  return Value(found);
}

Operand countFilled(Call& call) {
  int found = 0;
  for (int i = 0; i < call.count(); ++i)
    call.each(i, [&](const Value& value, bool) { found += !value.empty(); });
  return Value(found);
}

Operand countBlank(Call& call) {
  const Block block = call.block(0);
  double filled = 0;
  call.each(0, [&](const Value& value, bool) { filled += !(value.text() && value.text()->empty()); });
  return Value(static_cast<double>(block.rows()) * block.columns() - filled);
}

std::vector<double> sorted(Call& call, int i) {
  std::vector<double> numbers;
  call.each(i, [&](const Value& value, bool) {
    if (const Error* error = value.error()) throw Failure{*error};
    if (const double* number = value.number()) numbers.push_back(*number);
  });
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

Operand ranked(Call& call, bool largest) {
  const std::vector<double> numbers = sorted(call, 0);
  const int place = call.whole(1);
  if (place < 1 || place > static_cast<int>(numbers.size())) throw Failure{Error::Number};
  const auto at = static_cast<size_t>(place);
  return Value(largest ? numbers[numbers.size() - at] : numbers[at - 1]);
}

Operand median(Call& call) {
  std::vector<double> numbers;
  call.numbers(0, [&](double x) { numbers.push_back(x); });
  if (numbers.empty()) throw Failure{Error::Number};
  std::sort(numbers.begin(), numbers.end());
  const size_t half = numbers.size() / 2;
  return Value(numbers.size() % 2 ? numbers[half] : (numbers[half - 1] + numbers[half]) / 2);
}

struct Condition {
  Block block;
  Criterion criterion;
};

// Calls `visit` with the place, counted from 0, of each cell where all conditions hold, as far
// as rows are used. Gives how many cells behind that hold them too, being empty.
double matching(Call& call, const std::vector<Condition>& conditions,
                const std::function<void(int, int)>& visit) {
  const Block& first = conditions.front().block;
  int rows = 0;
  for (const Condition& condition : conditions) {
    if (condition.block.rows() != first.rows() || condition.block.columns() != first.columns())
      throw Failure{Error::Value};
    rows = std::max(rows, call.evaluator().lastUsedRow(condition.block.sheet) - condition.block.firstRow + 1);
  }
  rows = std::clamp(rows, 0, first.rows());
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < first.columns(); ++column)
      if (std::all_of(conditions.begin(), conditions.end(), [&](const Condition& c) {
            return c.criterion.matches(
                call.evaluator().value(c.block.sheet, c.block.firstRow + row, c.block.firstColumn + column));
          }))
        visit(row, column);
  const bool empties = std::all_of(conditions.begin(), conditions.end(),
                                   [](const Condition& c) { return c.criterion.matches(Value()); });
  return empties ? static_cast<double>(first.rows() - rows) * first.columns() : 0;
}

std::vector<Condition> conditions(Call& call, int from) {
  std::vector<Condition> found;
  for (int i = from; i + 1 < call.count(); i += 2)
    found.push_back({.block = call.block(i), .criterion = Criterion(call.value(i + 1))});
  if (found.empty() || (call.count() - from) % 2) throw Failure{Error::Value};
  return found;
}

struct Sum {
  double sum = 0;
  int count = 0;
};

Sum sumWhere(Call& call, const std::vector<Condition>& wanted, const Block& from) {
  Sum result;
  matching(call, wanted, [&](int row, int column) {
    const Value& value = call.evaluator().value(from.sheet, from.firstRow + row, from.firstColumn + column);
    if (const Error* error = value.error()) throw Failure{*error};
    if (const double* number = value.number()) {
      result.sum = addNear(result.sum, *number);
      ++result.count;
    }
  });
  return result;
}

Sum sumIf(Call& call) {
  const std::vector<Condition> wanted{
      {.block = call.block(0), .criterion = Criterion(call.value(1))}
  };
  return sumWhere(call, wanted, call.given(2) ? call.block(2) : wanted.front().block);
}

Sum sumIfs(Call& call) {
  const Block from = call.block(0);
  const std::vector<Condition> wanted = conditions(call, 1);
  if (from.rows() != wanted.front().block.rows() || from.columns() != wanted.front().block.columns())
    throw Failure{Error::Value};
  return sumWhere(call, wanted, from);
}

// MAXIFS and MINIFS.
Operand extremeIfs(Call& call, bool greatest) {
  const Block from = call.block(0);
  std::optional<double> best;
  matching(call, conditions(call, 1), [&](int row, int column) {
    const Value& value = call.evaluator().value(from.sheet, from.firstRow + row, from.firstColumn + column);
    if (const double* number = value.number(); number && (!best || (*number > *best) == greatest))
      best = *number;
  });
  return Value(best.value_or(0));
}

// The place of a number among others, the greatest first unless `upward`.
Operand rankOf(Call& call) {
  const double number = call.number(0);
  const bool upward = call.truth(2, false);
  int before = 0;
  bool there = false;
  call.each(1, [&](const Value& value, bool) {
    if (!value.number()) return;
    there = there || *value.number() == number;
    before += upward ? *value.number() < number : *value.number() > number;
  });
  if (!there) throw Failure{Error::NotAvailable};
  return Value(before + 1);
}

Operand mean(const Sum& sum) {
  if (!sum.count) throw Failure{Error::DivisionByZero};
  return Value(sum.sum / sum.count);
}

Operand countIf(Call& call) {
  double found = 0;
  const double behind = matching(call, conditions(call, 0), [&](int, int) { ++found; });
  return Value(found + behind);
}

Operand sumProduct(Call& call) {
  const Table first = call.table(0);
  std::vector<double> products;
  for (int i = 0; i < call.count(); ++i) {
    const Table next = i ? call.table(i) : first;
    if (next.rows != first.rows || next.columns != first.columns) throw Failure{Error::Value};
    products.resize(next.values.size(), 1);
    for (size_t k = 0; k < next.values.size(); ++k) {
      const Value& value = next.values[k];
      if (const Error* error = value.error()) throw Failure{*error};
      products[k] *= value.number() ? *value.number() : 0;
    }
  }
  double result = 0;
  for (const double x : products) result = addNear(result, x);
  return Value(result);
}

// SUBTOTAL(9, ...) and its kin; 101 to 111 leave hidden rows out.
Operand subtotal(Call& call) {
  const int kind = call.whole(0) % 100;
  const bool visible = call.whole(0) > 100;
  std::vector<double> numbers;
  int filled = 0;
  for (int i = 1; i < call.count(); ++i) {
    const Block block = call.block(i);
    const auto& rows = call.evaluator().model().sheets[static_cast<size_t>(block.sheet)].rows;
    call.evaluator().visit(block, [&](int row, int, const Value& value) {
      if (visible && rows.at(row).hidden) return true;
      if (const Error* error = value.error()) throw Failure{*error};
      ++filled;
      if (value.number()) numbers.push_back(*value.number());
      return true;
    });
  }
  double sum = 0;
  for (const double x : numbers) sum = addNear(sum, x);
  const auto [low, high] = std::minmax_element(numbers.begin(), numbers.end());
  switch (kind) {
    case 1:
      if (numbers.empty()) throw Failure{Error::DivisionByZero};
      return Value(sum / static_cast<double>(numbers.size()));
    case 2:
      return Value(numbers.size());
    case 3:
      return Value(filled);
    case 4:
      return Value(numbers.empty() ? 0 : *high);
    case 5:
      return Value(numbers.empty() ? 0 : *low);
    case 9:
      return Value(sum);
    default:
      throw Failure{Error::Value};
  }
}

}  // namespace

std::vector<Function> totalFunctions() {
  constexpr Takes B = Takes::Blocks, A = Takes::Arrays;
  // clang-format off
  return {
    {"AVERAGE",    1, 255, A, average},
    {"AVERAGEIF",  2, 3,   B, [](Call& c) { return mean(sumIf(c)); }},
    {"AVERAGEIFS", 3, 255, B, [](Call& c) { return mean(sumIfs(c)); }},
    {"COUNT",      1, 255, A, count},
    {"COUNTA",     1, 255, B, countFilled},
    {"COUNTBLANK", 1, 1,   B, countBlank},
    {"COUNTIF",    2, 2,   B, countIf},
    {"COUNTIFS",   2, 255, B, countIf},
    {"LARGE",      2, 2,   A, [](Call& c) { return ranked(c, true); }},
    {"MAX",        1, 255, A, [](Call& c) { return extreme(c, true); }},
    {"MAXIFS",     3, 255, B, [](Call& c) { return extremeIfs(c, true); }},
    {"MEDIAN",     1, 255, A, median},
    {"MIN",        1, 255, A, [](Call& c) { return extreme(c, false); }},
    {"MINIFS",     3, 255, B, [](Call& c) { return extremeIfs(c, false); }},
    {"PRODUCT",    1, 255, A, product},
    {"RANK",       2, 3,   B, rankOf},
    {"RANK.EQ",    2, 3,   B, rankOf},
    {"SMALL",      2, 2,   A, [](Call& c) { return ranked(c, false); }},
    {"SUBTOTAL",   2, 255, B, subtotal},
    {"SUM",        1, 255, A, sum},
    {"SUMIF",      2, 3,   B, [](Call& c) { return Operand(Value(sumIf(c).sum)); }},
    {"SUMIFS",     3, 255, B, [](Call& c) { return Operand(Value(sumIfs(c).sum)); }},
    {"SUMPRODUCT", 1, 255, A, sumProduct},
    {"SUMSQ",      1, 255, A, squares},
  };
  // clang-format on
}

}  // namespace workbook
