#include "base/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

struct LeadingNumber {
  double value = 0;
  size_t end = 0;  // behind its last character, 0 when there is none
};

LeadingNumber leadingNumber(std::string_view text) {
  size_t at = std::min(text.find_first_not_of(" \t"), text.size());
  std::string number;  // from_chars knows no plus sign
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
    if (text[at] == '-') number += '-';
    ++at;
  }
  bool digits = false;
  for (bool point = false; at < text.size() && (isDigit(text[at]) || (text[at] == '.' && !point)); ++at) {
    point = point || text[at] == '.';
    digits = digits || isDigit(text[at]);
    number += text[at];
  }
  if (!digits) return {};
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    size_t power = at + 1;
    if (power < text.size() && (text[power] == '-' || text[power] == '+')) ++power;
    if (power < text.size() && isDigit(text[power])) {
      while (power < text.size() && isDigit(text[power])) ++power;
      number += text.substr(at, power - at);
      at = power;
    }
  }
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc() || !std::isfinite(value)) return {};
  return {.value = value, .end = at};
}

}  // namespace

double Val(std::string_view text) { return leadingNumber(text).value; }

bool isNumberText(std::string_view text) {
  const auto end = leadingNumber(text).end;
  return end > 0 && text.find_first_not_of(' ', end) == std::string_view::npos;
}

double Round(double x, int d) {
  const double scale = std::pow(10.0, d);
  const double scaled = std::nearbyint(x * scale) / scale;
  return std::isfinite(scaled) ? scaled : x;
}

std::string numText(double x) {
  if (x == 0) return "0";
  std::array<char, 40> buffer{};
  char *const first = buffer.data(), *const last = first + buffer.size();
  // Whole numbers, which most are, the fast way: lists are searched in their texts.
  const bool whole = std::fabs(x) < 1e15 && x == std::trunc(x);
  const auto end = whole ? std::to_chars(first, last, static_cast<long long>(x))
                         : std::to_chars(first, last, x, std::chars_format::general, 15);
  return {first, end.ptr};
}

int toInt(double x) {
  using Limits = std::numeric_limits<int>;
  return std::isnan(x) ? 0 : static_cast<int>(std::clamp<double>(x, Limits::min(), Limits::max()));
}

long RoundUp(double x) {
  const double up = std::ceil(x);
  constexpr double limit = 9.2e18;
  if (!(up < limit)) return std::numeric_limits<long>::max();
  if (up < -limit) return std::numeric_limits<long>::min();
  return static_cast<long>(up);
}
