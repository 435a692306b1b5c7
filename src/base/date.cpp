#include "base/date.h"

#include <array>
#include <vector>

#include "base/number.h"
#include "base/text.h"

namespace {

constexpr std::array<std::string_view, 12> monthNames = {"January",   "February", "March",    "April",
                                                         "May",       "June",     "July",     "August",
                                                         "September", "October",  "November", "December"};

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

int whole(std::string_view digits) { return toInt(Val(digits)); }

std::string twoDigits(int n) { return padLeft(std::to_string(n), 2, '0'); }

std::optional<unsigned> monthOf(std::string_view text) {
  if (isNumber(text)) {
    if (text.size() > 2) return {};
    return static_cast<unsigned>(whole(text));
  }
  if (text.size() < 3) return {};
  for (unsigned m = 0; m < monthNames.size(); ++m)
    if (startsWithNoCase(monthNames[m], text)) return m + 1;
  return {};
}

std::optional<int> yearOf(std::string_view text) {
  if (!isNumber(text)) return {};
  const int year = whole(text);
  if (text.size() <= 2) return year <= 29 ? 2000 + year : 1900 + year;
  if (text.size() != 4 || year < 100) return {};
  return year;
}

// Runs of one letter become a value; everything else is copied.
template <typename Value>
std::string fillPattern(std::string_view pattern, Value value) {
  std::string result;
  for (size_t at = 0; at < pattern.size();) {
    const char letter = lower(pattern.substr(at, 1)).front();
    size_t end = at;
    while (end < pattern.size() && lower(pattern.substr(end, 1)).front() == letter) ++end;
    const auto text = value(letter, end - at);
    result += text ? *text : std::string(pattern.substr(at, end - at));
    at = end;
  }
  return result;
}

}  // namespace

std::optional<Date> parseDate(std::string_view text) {
  std::vector<std::string> parts(1);
  const std::string trimmed = trim(text);
  for (const char c : trimmed) {
    if (c == '/' || c == '-' || c == '.' || c == ' ')
      parts.emplace_back();
    else
      parts.back() += c;
  }
  if (parts.size() != 3) return {};
  if (parts[0].size() == 4) std::swap(parts[0], parts[2]);
  if (!isNumber(parts[0]) || parts[0].size() > 2) return {};

  const auto month = monthOf(parts[1]);
  const auto year = yearOf(parts[2]);
  if (!month || !year) return {};
  const Date date{std::chrono::year(*year), std::chrono::month(*month),
                  std::chrono::day(static_cast<unsigned>(whole(parts[0])))};
  return date.ok() ? std::optional(date) : std::nullopt;
}

std::optional<Clock> parseClock(std::string_view text) {
  const auto parts = split(trim(text), ":");
  if (parts.size() < 2 || parts.size() > 3) return {};
  for (const auto& part : parts)
    if (!isNumber(part) || part.size() > 2) return {};
  const Clock clock{.hour = whole(parts[0]), .minute = whole(parts[1])};
  if (clock.hour > 23 || clock.minute > 59 || (parts.size() == 3 && whole(parts[2]) > 59)) return {};
  return clock;
}

std::string formatDate(Date date, std::string_view pattern) {
  const int day = static_cast<int>(static_cast<unsigned>(date.day()));
  const unsigned month = static_cast<unsigned>(date.month());
  const int year = static_cast<int>(date.year());
  return fillPattern(pattern, [&](char letter, size_t count) -> std::optional<std::string> {
    if (letter == 'd') return count == 1 ? std::to_string(day) : twoDigits(day);
    if (letter == 'y') return count <= 2 ? twoDigits(year % 100) : padLeft(std::to_string(year), 4, '0');
    if (letter != 'm') return std::nullopt;
    if (count == 1) return std::to_string(month);
    if (count == 2) return twoDigits(static_cast<int>(month));
    const auto name = month >= 1 && month <= 12 ? monthNames[month - 1] : std::string_view();
    return std::string(count == 3 ? name.substr(0, 3) : name);
  });
}

std::string formatTime(const Moment& moment, std::string_view pattern) {
  return fillPattern(pattern, [&](char letter, size_t count) -> std::optional<std::string> {
    if (letter != 'h' && letter != 'm' && letter != 's') return std::nullopt;
    const int value = letter == 'h' ? moment.hour : letter == 'm' ? moment.minute : moment.second;
    return count == 1 ? std::to_string(value) : twoDigits(value);
  });
}

std::string isoDate(Date date) { return formatDate(date, "yyyy-mm-dd"); }

Date addDays(Date date, int days) { return std::chrono::sys_days(date) + std::chrono::days(days); }

Date addMonths(Date date, int months) {
  const Date moved = date + std::chrono::months(months);
  return moved.ok() ? moved : Date(moved.year() / moved.month() / std::chrono::last);
}

int daysBetween(Date from, Date to) {
  return static_cast<int>((std::chrono::sys_days(to) - std::chrono::sys_days(from)).count());
}

std::string MakeStamp(const Moment& now) {
  return formatDate(now.date, "yymmdd") + "_" + formatTime(now, "hhmm");
}
