#include "base/pattern.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/number.h"

namespace {

constexpr int significantDigits = 15;

// 0.digits * 10^point
struct Decimal {
  bool negative = false;
  std::string digits{};
  int point = 0;
};

Decimal decimalOf(double value) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                 std::chars_format::scientific, significantDigits - 1);
  const std::string_view text(buffer.data(), static_cast<size_t>(end.ptr - buffer.data()));
  const auto e = text.find('e');
  Decimal decimal{.negative = value < 0};
  for (const char c : text.substr(0, e))
    if (c != '.') decimal.digits += c;
  decimal.point = static_cast<int>(Val(text.substr(e + 1))) + 1;
  return decimal;
}

// Cuts behind the given count of decimals, half away from zero.
void roundAt(Decimal& decimal, int decimals) {
  const int keep = decimal.point + decimals;
  if (keep >= static_cast<int>(decimal.digits.size())) return;
  if (keep < 0) {
    decimal.digits.clear();
    return;
  }
  const bool up = decimal.digits[static_cast<size_t>(keep)] >= '5';
  decimal.digits.resize(static_cast<size_t>(keep));
  if (!up) return;
  int at = keep - 1;
  while (at >= 0 && decimal.digits[static_cast<size_t>(at)] == '9')
    decimal.digits[static_cast<size_t>(at--)] = '0';
  if (at >= 0) {
    ++decimal.digits[static_cast<size_t>(at)];
  } else {
    decimal.digits.insert(0, "1");
    ++decimal.point;
  }
}

std::string groupedByThree(const std::string& whole) {
  std::string result;
  for (size_t i = 0; i < whole.size(); ++i) {
    if (i > 0 && (whole.size() - i) % 3 == 0) result += ',';
    result += whole[i];
  }
  return result;
}

}  // namespace

std::string Format(double value, std::string_view pattern) {
  const auto first = pattern.find_first_of("0#.");
  if (first == std::string_view::npos || !std::isfinite(value)) return numText(value);
  const auto last = pattern.find_last_of("0#.");
  const auto body = pattern.substr(first, last - first + 1);
  const auto point = std::min(body.find('.'), body.size());
  const auto wholePart = body.substr(0, point);
  const auto fraction = body.substr(std::min(point + 1, body.size()));
  const auto least = static_cast<size_t>(std::count(wholePart.begin(), wholePart.end(), '0'));
  const auto leastDecimals =
      fraction.find_last_of('0') == std::string_view::npos ? 0 : fraction.find_last_of('0') + 1;

  Decimal decimal = decimalOf(value);
  roundAt(decimal, static_cast<int>(fraction.size()));

  std::string whole;
  for (int i = 0; i < decimal.point; ++i)
    whole += i < static_cast<int>(decimal.digits.size()) ? decimal.digits[static_cast<size_t>(i)] : '0';
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  if (whole.size() < least) whole.insert(0, least - whole.size(), '0');

  std::string decimals;
  for (int i = 0; i < static_cast<int>(fraction.size()); ++i) {
    const int at = decimal.point + i;
    decimals += at >= 0 && at < static_cast<int>(decimal.digits.size())
                    ? decimal.digits[static_cast<size_t>(at)]
                    : '0';
  }
  while (decimals.size() > leastDecimals && decimals.back() == '0') decimals.pop_back();

  const bool zero = (whole + decimals).find_first_not_of('0') == std::string::npos;
  if (wholePart.find(',') != std::string_view::npos) whole = groupedByThree(whole);
  std::string result(decimal.negative && !zero ? "-" : "");
  result.append(pattern.substr(0, first)).append(whole);
  if (point < body.size()) result += '.' + decimals;
  return result.append(pattern.substr(last + 1));
}

std::string indianGroups(std::string_view numberText) {
  const auto start = numberText.find_first_of("0123456789");
  if (start == std::string_view::npos) return std::string(numberText);
  const auto end = std::min(numberText.find_first_not_of("0123456789", start), numberText.size());
  const auto whole = numberText.substr(start, end - start);
  std::string grouped;
  for (size_t i = 0; i < whole.size(); ++i) {
    const auto behind = whole.size() - i;
    if (i > 0 && (behind == 3 || (behind > 3 && behind % 2 == 1))) grouped += ',';
    grouped += whole[i];
  }
  return std::string(numberText.substr(0, start)) + grouped + std::string(numberText.substr(end));
}
