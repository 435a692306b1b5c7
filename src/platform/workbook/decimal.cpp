#include "platform/workbook/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "base/date.h"
#include "base/text.h"

namespace workbook {
namespace {

void trimZeros(std::string& digits) {
  while (digits.ends_with('0')) digits.pop_back();
}

// Digits with the point set in, zeros added where the digits end before it.
std::string plain(const Decimal& number) {
  const int count = static_cast<int>(number.digits.size());
  std::string out = number.negative ? "-" : "";
  if (number.digits.empty()) return "0";
  if (number.point <= 0)
    return out + "0." + std::string(static_cast<size_t>(-number.point), '0') + number.digits;
  if (number.point >= count)
    return out + number.digits + std::string(static_cast<size_t>(number.point - count), '0');
  return out + number.digits.substr(0, static_cast<size_t>(number.point)) + "." +
         number.digits.substr(static_cast<size_t>(number.point));
}

std::string scientific(const Decimal& number) {
  const int exponent = number.point - 1;
  std::string out = number.negative ? "-" : "";
  out += number.digits[0];
  if (number.digits.size() > 1) out += "." + number.digits.substr(1);
  out += exponent < 0 ? "E-" : "E+";
  const std::string power = std::to_string(std::abs(exponent));
  return out + (power.size() < 2 ? "0" : "") + power;
}

bool timeIn(std::string_view text, double& number) {
  int parts[3] = {0, 0, 0}, count = 0;
  const char* at = text.data();
  const char* end = at + text.size();
  while (count < 3) {
    const auto [next, error] = std::from_chars(at, end, parts[count]);
    if (error != std::errc() || next - at > 2 || parts[count] < 0) return false;
    ++count;
    at = next;
    if (at == end) break;
    if (*at++ != ':') return false;
  }
  if (at != end || count < 2 || parts[1] > 59 || parts[2] > 59) return false;
  number = parts[0] / 24.0 + parts[1] / 1440.0 + parts[2] / 86400.0;
  return true;
}

bool dateIn(std::string_view text, double& number) {
  const size_t blank = text.rfind(' ');
  double time = 0;
  if (blank != std::string_view::npos && timeIn(text.substr(blank + 1), time)) text = text.substr(0, blank);
  const auto day = parseDate(text);
  if (!day) return false;
  number = serialOf(*day) + time;
  return true;
}

}  // namespace

Decimal Decimal::of(double x) {
  Decimal result;
  if (x == 0 || !std::isfinite(x)) return result;
  char text[32];
  std::snprintf(text, sizeof text, "%.14e", std::fabs(x));
  result.negative = x < 0;
  result.digits = text[0];
  result.digits.append(text + 2, 14);
  result.point = std::atoi(text + 17) + 1;
  trimZeros(result.digits);
  return result;
}

void Decimal::round(int places) {
  const int keep = point + places;
  if (keep >= static_cast<int>(digits.size())) return;
  const bool up = keep >= 0 && digits[static_cast<size_t>(keep)] >= '5';
  digits.resize(static_cast<size_t>(std::max(keep, 0)));
  if (up) {
    size_t at = digits.size();
    while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
    if (at > 0) {
      ++digits[at - 1];
    } else {
      digits.insert(digits.begin(), '1');
      ++point;
    }
  }
  trimZeros(digits);
  if (digits.empty()) point = 0;
}

double Decimal::value() const {
  if (digits.empty()) return 0;
  const std::string text = digits + "e" + std::to_string(point - static_cast<int>(digits.size()));
  double result = 0;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return negative ? -result : result;
}

std::string generalText(double x, int width) {
  Decimal number = Decimal::of(x);
  if (number.digits.empty()) return "0";
  width = std::max(width, 1);
  const int size = static_cast<int>(number.digits.size());
  if (number.point > width || number.point < -3) {
    // Mantissa, point and "E+nn" share the width.
    const int room = width - (std::abs(number.point - 1) > 99 ? 5 : 4);
    number.round(std::max(room - 2, 0) + 1 - number.point);
    return scientific(number);
  }
  if (size <= number.point) return plain(number);
  const int places = width - (number.point > 0 ? number.point + 1 : 2);
  number.round(std::max(places, 0));
  return number.digits.empty() ? "0" : plain(number);
}

std::string joinedText(double x) {
  const Decimal number = Decimal::of(x);
  if (number.digits.empty()) return "0";
  return number.point > 21 || number.point < -8 ? scientific(number) : plain(number);
}

std::string textOf(const Value& value) {
  if (const auto* number = value.number()) return joinedText(*number);
  if (const auto* text = value.text()) return *text;
  if (const auto* truth = value.truth()) return *truth ? "TRUE" : "FALSE";
  if (const auto* error = value.error()) return errorText(*error);
  return {};
}

const char* errorText(Error error) {
  switch (error) {
    case Error::Null:
      return "#NULL!";
    case Error::DivisionByZero:
      return "#DIV/0!";
    case Error::Value:
      return "#VALUE!";
    case Error::Reference:
      return "#REF!";
    case Error::Name:
      return "#NAME?";
    case Error::Number:
      return "#NUM!";
    case Error::NotAvailable:
      return "#N/A";
  }
  return "#VALUE!";
}

bool numberIn(std::string_view text, double& number) {
  const std::string trimmed = trim(text);
  std::string_view rest = trimmed;
  if (rest.empty()) return false;
  std::string digits;
  bool percent = false, brackets = rest.size() > 2 && rest.front() == '(' && rest.back() == ')';
  if (brackets) rest = rest.substr(1, rest.size() - 2);
  if (rest.starts_with('+')) rest.remove_prefix(1);
  if (rest.ends_with('%')) {
    percent = true;
    rest.remove_suffix(1);
  }
  for (size_t i = 0; i < rest.size(); ++i) {
    const bool separator = rest[i] == ',' && i > 0 && i + 1 < rest.size();
    if (!separator) digits += rest[i];
  }
  double result = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, result);
  if (digits.empty() || error != std::errc() || stop != end || !std::isfinite(result))
    return dateIn(trimmed, number) || timeIn(trimmed, number);
  number = (brackets ? -result : result) / (percent ? 100 : 1);
  return true;
}

double serialOf(std::chrono::year_month_day day) {
  const std::chrono::sys_days start = std::chrono::year(1899) / 12 / 30;
  const auto days = (std::chrono::sys_days(day) - start).count();
  return static_cast<double>(days < 61 ? days - 1 : days);
}

std::chrono::year_month_day dayOf(double serial) {
  const double whole = std::floor(std::clamp(serial, 0.0, 2958465.0));
  const std::chrono::sys_days start = std::chrono::year(1899) / 12 / 30;
  return start + std::chrono::days(static_cast<int>(whole < 61 ? whole + 1 : whole));
}

TimeOfDay timeOf(double serial) {
  const int seconds = static_cast<int>(std::lround((serial - std::floor(serial)) * 86400)) % 86400;
  return {.hour = seconds / 3600, .minute = seconds / 60 % 60, .second = seconds % 60};
}

double systemNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  using namespace std::chrono;
  const year_month_day day{year(local.tm_year + 1900), month(static_cast<unsigned>(local.tm_mon + 1)),
                           std::chrono::day(static_cast<unsigned>(local.tm_mday))};
  return serialOf(day) + (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0;
}

}  // namespace workbook
