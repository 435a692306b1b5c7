#include <cmath>

#include "platform/workbook/functions.h"

namespace workbook {
namespace {

Operand choose(Call& call) {
  if (call.truth(0)) return call.count() > 1 ? call.operand(1) : Operand(Value(true));
  if (call.count() < 3) return Value(false);
  return call.operand(2);
}

// AND, OR and XOR over all truths and numbers; texts in cells do not count.
struct Truths {
  int all = 0, yes = 0;
};

Truths truths(Call& call) {
  Truths found;
  for (int i = 0; i < call.count(); ++i)
    call.each(i, [&](const Value& value, bool direct) {
      if (const Error* error = value.error()) throw Failure{*error};
      if (!direct && (value.text() || value.empty())) return;
      ++found.all;
      found.yes += toTruth(value);
    });
  if (!found.all) throw Failure{Error::Value};
  return found;
}

Operand all(Call& call) {
  const Truths found = truths(call);
  return Value(found.yes == found.all);
}
Operand some(Call& call) { return Value(truths(call).yes > 0); }
Operand odd(Call& call) { return Value(truths(call).yes % 2 == 1); }

Operand instead(Call& call, bool missingOnly) {
  Value value = call.any(0);
  if (const Error* error = value.error(); error && (!missingOnly || *error == Error::NotAvailable))
    return call.operand(1);
  return value;
}

Operand firstTrue(Call& call) {
  for (int i = 0; i + 1 < call.count(); i += 2)
    if (call.truth(i)) return call.operand(i + 1);
  throw Failure{Error::NotAvailable};
}

Operand switched(Call& call) {
  const Value wanted = call.value(0);
  int i = 1;
  for (; i + 1 < call.count(); i += 2)
    if (compare(wanted, call.value(i)) == 0) return call.operand(i + 1);
  if (i < call.count()) return call.operand(i);
  throw Failure{Error::NotAvailable};
}

Operand pick(Call& call) {
  const int place = call.whole(0);
  if (place < 1 || place >= call.count()) throw Failure{Error::Value};
  return call.operand(place);
}

template <class Test>
Operand is(Call& call, Test test) {
  const Value value = call.any(0);
  return Value(static_cast<bool>(test(value)));
}

Operand isReference(Call& call) { return Value(std::holds_alternative<Block>(call.operand(0))); }

bool even(Call& call) { return std::fmod(std::trunc(call.number(0)), 2) == 0; }

Operand numberOf(Call& call) {
  const Value value = call.value(0);
  return Value(value.text() ? 0 : toNumber(value));
}

Operand type(Call& call) {
  const Value value = call.any(0);
  return Value(value.text() ? 2 : value.truth() ? 4 : value.error() ? 16 : 1);
}

bool isError(const Value& value) { return value.error() != nullptr; }
bool isMissing(const Value& value) { return value.error() && *value.error() == Error::NotAvailable; }

}  // namespace

std::vector<Function> logicFunctions() {
  constexpr Takes S = Takes::Singles, C = Takes::Choice, B = Takes::Blocks;
  // clang-format off
  return {
    {"AND",       1, 255, B, all},
    {"CHOOSE",    2, 255, C, pick},
    {"FALSE",     0, 0,   S, [](Call&) { return Operand(Value(false)); }},
    {"IF",        1, 3,   C, choose},
    {"IFERROR",   2, 2,   C, [](Call& c) { return instead(c, false); }},
    {"IFNA",      2, 2,   C, [](Call& c) { return instead(c, true); }},
    {"IFS",       2, 255, C, firstTrue},
    {"ISBLANK",   1, 1,   S, [](Call& c) { return is(c, [](const Value& v) { return v.empty(); }); }},
    {"ISERR",     1, 1,   S, [](Call& c) { return is(c, [](const Value& v) { return isError(v) && !isMissing(v); }); }},
    {"ISERROR",   1, 1,   S, [](Call& c) { return is(c, isError); }},
    {"ISEVEN",    1, 1,   S, [](Call& c) { return Operand(Value(even(c))); }},
    {"ISLOGICAL", 1, 1,   S, [](Call& c) { return is(c, [](const Value& v) { return v.truth(); }); }},
    {"ISNA",      1, 1,   S, [](Call& c) { return is(c, isMissing); }},
    {"ISNONTEXT", 1, 1,   S, [](Call& c) { return is(c, [](const Value& v) { return !v.text(); }); }},
    {"ISNUMBER",  1, 1,   S, [](Call& c) { return is(c, [](const Value& v) { return v.number(); }); }},
    {"ISODD",     1, 1,   S, [](Call& c) { return Operand(Value(!even(c))); }},
    {"ISREF",     1, 1,   B, isReference},
    {"ISTEXT",    1, 1,   S, [](Call& c) { return is(c, [](const Value& v) { return v.text(); }); }},
    {"N",         1, 1,   S, numberOf},
    {"NA",        0, 0,   S, [](Call&) { return Operand(Value(Error::NotAvailable)); }},
    {"NOT",       1, 1,   S, [](Call& c) { return Operand(Value(!c.truth(0))); }},
    {"OR",        1, 255, B, some},
    {"SWITCH",    3, 255, C, switched},
    {"TRUE",      0, 0,   S, [](Call&) { return Operand(Value(true)); }},
    {"TYPE",      1, 1,   S, type},
    {"XOR",       1, 255, B, odd},
  };
  // clang-format on
}

}  // namespace workbook
