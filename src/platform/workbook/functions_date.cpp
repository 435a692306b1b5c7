#include <cmath>

#include "base/date.h"
#include "base/text.h"
#include "platform/workbook/functions.h"

namespace workbook {
namespace {

using std::chrono::year;

double dayNumber(Call& call, int i) {
  const double serial = call.number(i);
  if (serial < 0 || serial >= 2958466) throw Failure{Error::Number};
  return serial;
}

std::chrono::year_month_day day(Call& call, int i) { return dayOf(dayNumber(call, i)); }
int yearOf(const Date& date) { return static_cast<int>(date.year()); }
int monthOf(const Date& date) { return static_cast<int>(static_cast<unsigned>(date.month())); }
int dayOfMonth(const Date& date) { return static_cast<int>(static_cast<unsigned>(date.day())); }

Operand serial(const Date& date) {
  if (date.year() < year(1900) || date.year() > year(9999)) throw Failure{Error::Number};
  return Value(serialOf(date));
}

// Months and days outside their range move on: month 14 is February of the next year.
Operand date(Call& call) {
  const int y = call.whole(0);
  const long long months = (y < 1900 ? y + 1900LL : y) * 12 + call.whole(1) - 1;
  if (months < 1899 * 12 || months > 10000 * 12) throw Failure{Error::Number};
  const int days = call.whole(2);
  if (std::abs(days) > 4000000) throw Failure{Error::Number};
  const Date first{year(static_cast<int>(months / 12)),
                   std::chrono::month(static_cast<unsigned>(months % 12 + 1)), std::chrono::day(1)};
  return serial(addDays(first, days - 1));
}

Operand time(Call& call) {
  const double seconds = call.number(0) * 3600 + call.number(1) * 60 + call.number(2);
  if (seconds < 0) throw Failure{Error::Number};
  return Value(std::fmod(seconds / 86400, 1));
}

Operand moved(Call& call, bool end) {
  const int months = call.whole(1);
  if (std::abs(months) > 120000) throw Failure{Error::Number};
  const Date target = addMonths(day(call, 0), months);
  return end ? serial(Date(target.year() / target.month() / std::chrono::last)) : serial(target);
}

Operand weekday(Call& call) {
  const auto day = static_cast<long long>(dayNumber(call, 0));
  const int kind = call.whole(1, 1);
  const int sunday = static_cast<int>((day + 6) % 7);  // 0 for Sunday
  switch (kind) {
    case 1:
      return Value(sunday + 1);
    case 2:
      return Value((sunday + 6) % 7 + 1);
    case 3:
      return Value((sunday + 6) % 7);
    default:
      throw Failure{Error::Number};
  }
}

Operand dateIn(Call& call) {
  double number = 0;
  if (!numberIn(call.text(0), number) || number < 0) throw Failure{Error::Value};
  return Value(std::floor(number));
}

Operand between(Call& call) {
  const Date from = day(call, 0), to = day(call, 1);
  if (std::chrono::sys_days(from) > std::chrono::sys_days(to)) throw Failure{Error::Number};
  const std::string unit = call.text(2);
  const auto is = [&](const char* name) { return sameText(unit, name); };
  int months = (yearOf(to) - yearOf(from)) * 12 + monthOf(to) - monthOf(from);
  if (dayOfMonth(to) < dayOfMonth(from)) --months;
  if (is("Y")) return Value(months / 12);
  if (is("M")) return Value(months);
  if (is("D")) return Value(daysBetween(from, to));
  if (is("YM")) return Value(months % 12);
  if (is("MD")) return Value(daysBetween(addMonths(from, months), to));
  if (is("YD")) return Value(daysBetween(addMonths(from, months / 12 * 12), to));
  throw Failure{Error::Number};
}

}  // namespace

std::vector<Function> dateFunctions() {
  constexpr Takes S = Takes::Singles;
  // clang-format off
  return {
    {"DATE",      3, 3, S, date},
    {"DATEDIF",   3, 3, S, between},
    {"DATEVALUE", 1, 1, S, dateIn},
    {"DAY",       1, 1, S, [](Call& c) { return Operand(Value(dayOfMonth(day(c, 0)))); }},
    {"DAYS",      2, 2, S, [](Call& c) { return Operand(Value(std::floor(c.number(0)) - std::floor(c.number(1)))); }},
    {"EDATE",     2, 2, S, [](Call& c) { return moved(c, false); }},
    {"EOMONTH",   2, 2, S, [](Call& c) { return moved(c, true); }},
    {"HOUR",      1, 1, S, [](Call& c) { return Operand(Value(timeOf(dayNumber(c, 0)).hour)); }},
    {"MINUTE",    1, 1, S, [](Call& c) { return Operand(Value(timeOf(dayNumber(c, 0)).minute)); }},
    {"MONTH",     1, 1, S, [](Call& c) { return Operand(Value(monthOf(day(c, 0)))); }},
    {"NOW",       0, 0, S, [](Call& c) { return Operand(Value(c.evaluator().model().nowSerial())); }},
    {"SECOND",    1, 1, S, [](Call& c) { return Operand(Value(timeOf(dayNumber(c, 0)).second)); }},
    {"TIME",      3, 3, S, time},
    {"TODAY",     0, 0, S, [](Call& c) { return Operand(Value(std::floor(c.evaluator().model().nowSerial()))); }},
    {"WEEKDAY",   1, 2, S, weekday},
    {"YEAR",      1, 1, S, [](Call& c) { return Operand(Value(yearOf(day(c, 0)))); }},
  };
  // clang-format on
}

}  // namespace workbook
