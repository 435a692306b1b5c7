#include "platform/workbook/functions.h"

#include <cmath>
#include <unordered_map>

#include "base/text.h"

namespace workbook {
namespace {

using Index = std::unordered_map<std::string, Function>;

Index buildIndex() {
  Index index;
  for (const auto& table : {mathFunctions(), totalFunctions(), textFunctions(), logicFunctions(),
                            lookupFunctions(), dateFunctions()})
    for (const Function& function : table) index.emplace(function.name, function);
  return index;
}

}  // namespace

const Function* findFunction(std::string_view name) {
  static const Index index = buildIndex();
  std::string key = upper(name);
  for (const std::string_view prefix : {"_XLFN.", "_XLWS."})
    if (key.starts_with(prefix)) key.erase(0, prefix.size());
  const auto found = index.find(key);
  return found == index.end() ? nullptr : &found->second;
}

bool Call::given(int i) const {
  return i < count() && expression_.arguments[static_cast<size_t>(i)].kind != Expression::Kind::Missing;
}

Operand Call::operand(int i) {
  if (i >= count()) return Value();
  return evaluator_.evaluate(expression_.arguments[static_cast<size_t>(i)], home_, arrays_);
}

Value Call::any(int i) {
  try {
    return evaluator_.single(operand(i), home_);
  } catch (const Failure& failure) {
    return failure.error;
  }
}

Value Call::value(int i) {
  Value result = evaluator_.single(operand(i), home_);
  if (const Error* error = result.error()) throw Failure{*error};
  return result;
}

double Call::number(int i) { return toNumber(value(i)); }

int Call::whole(int i) {
  const double number = std::floor(this->number(i));
  if (std::fabs(number) > 2e9) throw Failure{Error::Number};
  return static_cast<int>(number);
}

std::string Call::text(int i) { return toText(value(i)); }

bool Call::truth(int i) { return toTruth(value(i)); }

Block Call::block(int i) {
  const Operand found = operand(i);
  if (const Block* block = std::get_if<Block>(&found)) return *block;
  if (const Value* value = std::get_if<Value>(&found); value && value->error())
    throw Failure{*value->error()};
  throw Failure{Error::Value};
}

Table Call::table(int i) {
  const Operand found = operand(i);
  if (const Value* value = std::get_if<Value>(&found); value && value->error())
    throw Failure{*value->error()};
  return evaluator_.table(found);
}

void Call::each(int i, const std::function<void(const Value& value, bool direct)>& visit) {
  const Operand found = operand(i);
  if (const Value* only = std::get_if<Value>(&found)) {
    visit(*only, true);
  } else if (const Table* table = std::get_if<Table>(&found)) {
    for (const Value& item : table->values) visit(item, false);
  } else {
    evaluator_.visit(std::get<Block>(found), [&](int, int, const Value& value) {
      visit(value, false);
      return true;
    });
  }
}

void Call::numbers(int from, const std::function<void(double)>& visit) {
  for (int i = from; i < count(); ++i)
    each(i, [&](const Value& value, bool direct) {
      if (const Error* error = value.error()) throw Failure{*error};
      if (direct)
        visit(toNumber(value));
      else if (const double* number = value.number())
        visit(*number);
    });
}

bool hasPattern(std::string_view text) { return text.find_first_of("*?~") != std::string_view::npos; }

namespace {

// Both in lower case.
bool fits(std::string_view low, std::string_view wanted) {
  size_t at = 0, p = 0, star = std::string::npos, mark = 0;
  const auto next = [&](size_t from) {
    size_t to = from + 1;
    while (to < low.size() && (low[to] & 0xC0) == 0x80) ++to;
    return to;
  };
  while (at < low.size()) {
    const bool escaped = p + 1 < wanted.size() && wanted[p] == '~';
    if (!escaped && p < wanted.size() && wanted[p] == '*') {
      star = p++;
      mark = at;
      if (p == wanted.size()) return true;
    } else if (!escaped && p < wanted.size() && wanted[p] == '?') {
      ++p;
      at = next(at);
    } else if (p < wanted.size() && wanted[p + (escaped ? 1 : 0)] == low[at]) {
      p += escaped ? 2 : 1;
      ++at;
    } else if (star != std::string::npos) {
      p = star + 1;
      mark = next(mark);
      at = mark;
    } else {
      return false;
    }
  }
  while (p < wanted.size() && wanted[p] == '*') ++p;
  return p == wanted.size();
}

// What stands before the first "*".
std::string_view head(std::string_view pattern) {
  size_t at = 0;
  while (at < pattern.size() && pattern[at] != '*')
    at += pattern[at] == '~' && at + 1 < pattern.size() ? 2 : 1;
  return pattern.substr(0, at);
}

}  // namespace

bool matchesPattern(std::string_view text, std::string_view pattern) {
  return fits(lower(text), lower(pattern));
}

size_t findPattern(std::string_view text, std::string_view pattern, size_t from) {
  const std::string low = lower(text), wanted = lower(pattern);
  const std::string first = std::string(head(wanted)) + "*", whole = wanted + "*";
  for (size_t at = from; at <= low.size(); ++at) {
    if (at < low.size() && (low[at] & 0xC0) == 0x80) continue;
    const std::string_view rest = std::string_view(low).substr(at);
    // What is not found behind the first place of the head is behind no later one either.
    if (fits(rest, first)) return fits(rest, whole) ? at : std::string_view::npos;
  }
  return std::string_view::npos;
}

Criterion::Criterion(const Value& value) : wanted_(value) {
  const std::string* text = value.text();
  if (!text) {
    if (value.empty()) wanted_ = 0;
    return;
  }
  struct Sign {
    std::string_view sign;
    Operation operation;
  };
  static constexpr Sign kSigns[] = {
      {"<=", Operation::LessEqual   },
      {">=", Operation::GreaterEqual},
      {"<>", Operation::NotEqual    },
      {"<",  Operation::Less        },
      {">",  Operation::Greater     },
      {"=",  Operation::Equal       }
  };
  std::string rest = *text;
  for (const Sign& sign : kSigns)
    if (rest.starts_with(sign.sign)) {
      operation_ = sign.operation;
      rest.erase(0, sign.sign.size());
      if (rest.empty()) {  // "=" and "<>" alone ask for nothing and something
        wanted_ = Value();
        return;
      }
      break;
    }
  double number = 0;
  if (numberIn(rest, number))
    wanted_ = number;
  else if (sameText(rest, "TRUE") || sameText(rest, "FALSE"))
    wanted_ = sameText(rest, "TRUE");
  else
    wanted_ = rest;
  pattern_ = wanted_.text() && hasPattern(rest);
}

bool Criterion::matches(const Value& value) const {
  if (operation_ == Operation::Equal || operation_ == Operation::NotEqual) {
    bool same = false;
    double number = 0;
    if (wanted_.empty())
      same = value.empty();
    else if (wanted_.number() && value.text())
      same = numberIn(*value.text(), number) && number == *wanted_.number();
    else if (wanted_.text() && wanted_.text()->empty())
      same = value.empty() || (value.text() && value.text()->empty());
    else if (value.empty() || value.error())
      same = false;
    else if (pattern_)
      same = value.text() && matchesPattern(*value.text(), *wanted_.text());
    else
      same = compare(value, wanted_) == 0;
    return same == (operation_ == Operation::Equal);
  }
  const bool alike = (value.number() && wanted_.number()) || (value.text() && wanted_.text()) ||
                     (value.truth() && wanted_.truth());
  if (!alike) return false;
  const int order = compare(value, wanted_);
  switch (operation_) {
    case Operation::Less:
      return order < 0;
    case Operation::LessEqual:
      return order <= 0;
    case Operation::Greater:
      return order > 0;
    default:
      return order >= 0;
  }
}

}  // namespace workbook
