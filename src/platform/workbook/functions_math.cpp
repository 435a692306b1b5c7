#include <cmath>
#include <numbers>

#include "platform/workbook/functions.h"

namespace workbook {
namespace {

Operand checked(double x) {
  if (!std::isfinite(x)) throw Failure{Error::Number};
  return Value(x);
}

int places(Call& call, int i) { return std::clamp(call.whole(i, 0), -300, 300); }

double rounded(double x, int digits) {
  Decimal number = Decimal::of(x);
  number.round(digits);
  return number.value();
}

// Away from zero or toward it, on the decimal form: 2.3 to one place stays 2.3.
double roundedBy(double x, int digits, bool away) {
  const Decimal exact = Decimal::of(x);
  Decimal number = exact;
  const int keep = exact.point + digits;
  if (exact.digits.empty() || keep >= static_cast<int>(exact.digits.size())) return x;
  number.digits.resize(static_cast<size_t>(std::max(keep, 0)));
  if (away) {
    number.digits += '9';  // anything cut off counts as more than half
    if (keep < 0) number.point = -digits;
    number.round(digits);
  }
  return number.value();
}

double modulo(double x, double by) {
  if (by == 0) throw Failure{Error::DivisionByZero};
  const double quotient = std::floor(x / by);
  if (std::fabs(quotient) > 1e15) throw Failure{Error::Number};
  return addNear(x, -by * quotient);
}

// The multiple of `step` next to x: up, down or nearest.
double multiple(double x, double step, double (*to)(double)) {
  if (step == 0) return 0;
  const double count = Decimal::of(x / step).value();
  return Decimal::of(to(count) * step).value();
}

double ceiling(double x, double step) {
  if (x > 0 && step < 0) throw Failure{Error::Number};
  return multiple(x, step, std::ceil);
}

double floorTo(double x, double step) {
  if (x > 0 && step < 0) throw Failure{Error::Number};
  if (step == 0 && x != 0) throw Failure{Error::DivisionByZero};
  return multiple(x, step, std::floor);
}

double logarithm(double x, double base) {
  if (x <= 0 || base <= 0) throw Failure{Error::Number};
  if (base == 1) throw Failure{Error::DivisionByZero};
  return base == 10 ? std::log10(x) : std::log(x) / std::log(base);
}

double factorial(double x) {
  if (x < 0 || x > 170) throw Failure{Error::Number};
  return std::round(std::tgamma(std::floor(x) + 1));
}

double evenUp(double x) { return std::copysign(2 * std::ceil(std::fabs(x) / 2), x); }
double oddUp(double x) { return x == 0 ? 1 : std::copysign(2 * std::ceil((std::fabs(x) - 1) / 2) + 1, x); }
double sign(double x) { return x > 0 ? 1 : x < 0 ? -1 : 0; }

double powerOf(double base, double exponent) {
  if (base == 0 && exponent == 0) throw Failure{Error::Number};
  if (base == 0 && exponent < 0) throw Failure{Error::DivisionByZero};
  return std::pow(base, exponent);
}

double quotient(double top, double bottom) {
  if (bottom == 0) throw Failure{Error::DivisionByZero};
  return std::trunc(top / bottom);
}

template <double (*run)(double)>
Operand of1(Call& call) {
  return checked(run(call.number(0)));
}
template <double (*run)(double, double)>
Operand of2(Call& call) {
  return checked(run(call.number(0), call.number(1)));
}

double absolute(double x) { return std::fabs(x); }
double root(double x) { return std::sqrt(x); }
double exponential(double x) { return std::exp(x); }
double natural(double x) { return logarithm(x, std::numbers::e); }
double decadic(double x) { return logarithm(x, 10); }
double whole(double x) { return std::floor(Decimal::of(x).value()); }
double nearest(double x, double step) { return multiple(x, step, std::round); }

}  // namespace

std::vector<Function> mathFunctions() {
  constexpr Takes S = Takes::Singles;
  // clang-format off
  return {
    {"ABS",          1, 1, S, of1<absolute>},
    {"CEILING",      1, 2, S, [](Call& c) { return checked(ceiling(c.number(0), c.number(1, 1))); }},
    {"CEILING.MATH", 1, 2, S, [](Call& c) { return checked(multiple(c.number(0), std::fabs(c.number(1, 1)), std::ceil)); }},
    {"EVEN",         1, 1, S, of1<evenUp>},
    {"EXP",          1, 1, S, of1<exponential>},
    {"FACT",         1, 1, S, of1<factorial>},
    {"FLOOR",        1, 2, S, [](Call& c) { return checked(floorTo(c.number(0), c.number(1, 1))); }},
    {"FLOOR.MATH",   1, 2, S, [](Call& c) { return checked(multiple(c.number(0), std::fabs(c.number(1, 1)), std::floor)); }},
    {"INT",          1, 1, S, of1<whole>},
    {"LN",           1, 1, S, of1<natural>},
    {"LOG",          1, 2, S, [](Call& c) { return checked(logarithm(c.number(0), c.number(1, 10))); }},
    {"LOG10",        1, 1, S, of1<decadic>},
    {"MOD",          2, 2, S, of2<modulo>},
    {"MROUND",       2, 2, S, of2<nearest>},
    {"ODD",          1, 1, S, of1<oddUp>},
    {"PI",           0, 0, S, [](Call&) { return checked(std::numbers::pi); }},
    {"POWER",        2, 2, S, of2<powerOf>},
    {"QUOTIENT",     2, 2, S, of2<quotient>},
    {"ROUND",        1, 2, S, [](Call& c) { return checked(rounded(c.number(0), places(c, 1))); }},
    {"ROUNDDOWN",    1, 2, S, [](Call& c) { return checked(roundedBy(c.number(0), places(c, 1), false)); }},
    {"ROUNDUP",      1, 2, S, [](Call& c) { return checked(roundedBy(c.number(0), places(c, 1), true)); }},
    {"SIGN",         1, 1, S, of1<sign>},
    {"SQRT",         1, 1, S, of1<root>},
    {"TRUNC",        1, 2, S, [](Call& c) { return checked(roundedBy(c.number(0), places(c, 1), false)); }},
  };
  // clang-format on
}

}  // namespace workbook
