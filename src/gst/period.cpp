#include "gst/period.h"

#include "base/number.h"
#include "base/text.h"

using namespace std::chrono;

Date ReturnPeriod::first() const {
  const Date begin{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)}, day{1}};
  return filing == Filing::Quarter ? addMonths(begin, -2) : begin;
}

Date ReturnPeriod::last() const {
  return std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} / std::chrono::last;
}

std::string ReturnPeriod::text() const {
  return padLeft(std::to_string(month), 2, '0') + std::to_string(year);
}

ReturnPeriod returnPeriod(std::string_view text) {
  ReturnPeriod period;
  if (startsWithNoCase(text, "IFF")) {
    period.filing = ReturnPeriod::Filing::Iff;
    text.remove_prefix(3);
  } else if (startsWithNoCase(text, "Q")) {
    period.filing = ReturnPeriod::Filing::Quarter;
    text.remove_prefix(1);
  }
  if (text.size() != 6 || text.find_first_not_of("0123456789") != std::string_view::npos) return period;
  const int month = toInt(Val(text.substr(0, 2))), year = toInt(Val(text.substr(2)));
  const bool ends = period.filing != ReturnPeriod::Filing::Quarter || month % 3 == 0;
  if (month >= 1 && month <= 12 && year >= 2017 && ends) {
    period.month = month;
    period.year = year;
  }
  return period;
}

Date yearStart(Date day) {
  const year begins = day.month() < April ? day.year() - years{1} : day.year();
  return begins / April / 1;
}
