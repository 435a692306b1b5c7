#pragma once

#include <string>
#include <string_view>

#include "platform/workbook/workbook.h"

// Numbers as a spreadsheet sees them: the 15 significant decimal digits of the double.
namespace workbook {

// The number is 0.DIGITS times 10 to the power of `point`; zero has no digits.
struct Decimal {
  std::string digits;  // neither leading nor trailing zeros
  int point = 0;
  bool negative = false;

  static Decimal of(double x);
  // Half away from zero, to so many places behind the point (below 0: before it).
  void round(int places);
  double value() const;
};

// The way of the format General: at most `width` characters beside the sign, as a cell shows
// it, or all digits as text formulas join it.
std::string generalText(double x, int width);
std::string joinedText(double x);

// "TRUE", "#N/A", the joined text of a number.
std::string textOf(const Value& value);
const char* errorText(Error error);

// The number that a typed text means: blanks around, thousands commas, percent, a date or a
// time of day; false when it is none.
bool numberIn(std::string_view text, double& number);

// Dates as numbers: 1 is 1 January 1900 and 29 February 1900 is counted, as everywhere.
double serialOf(std::chrono::year_month_day day);
// Clamped into 1900 to 9999.
std::chrono::year_month_day dayOf(double serial);
struct TimeOfDay {
  int hour = 0, minute = 0, second = 0;
};
// To the nearest second.
TimeOfDay timeOf(double serial);
double systemNow();

}  // namespace workbook
