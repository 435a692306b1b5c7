#pragma once

#include <chrono>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

// Dates and times of day as the screens show them and the database keeps them (ISO text).

using Date = std::chrono::year_month_day;

struct Clock {
  int hour = 0;
  int minute = 0;
  auto operator<=>(const Clock&) const = default;
};

struct Moment {
  Date date{};
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Reads dd/MM/yyyy, d/M/yy, dd/MMM/yyyy (English month names, short or whole), dd-MM-yyyy and
// yyyy-MM-dd. Two-digit years: 00 to 29 are 20xx, the rest 19xx. An impossible date and the
// empty mask "__/__/____" are none.
std::optional<Date> parseDate(std::string_view text);
// "HH:MM", seconds allowed and dropped.
std::optional<Clock> parseClock(std::string_view text);

// Pattern letters d dd M MM MMM MMMM yy yyyy, in either case; all else stands for itself.
std::string formatDate(Date date, std::string_view pattern);
// Pattern letters HH MM SS (H alone without a leading zero), in either case.
std::string formatTime(const Moment& moment, std::string_view pattern);
std::string isoDate(Date date);

Date addDays(Date date, int days);
// Clamps to the end of the month: 31 January + 1 month is 28 or 29 February.
Date addMonths(Date date, int months);
// Days from the first to the second; negative when the second is earlier.
int daysBetween(Date from, Date to);

// "YYMMDD_HHMM", the name piece of files being made.
std::string MakeStamp(const Moment& now);
