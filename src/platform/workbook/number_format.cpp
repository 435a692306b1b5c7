#include "platform/workbook/number_format.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace workbook {
namespace {

constexpr std::array<const char*, 12> kMonths{"January",   "February", "March",    "April",
                                              "May",       "June",     "July",     "August",
                                              "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> kDays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                           "Thursday", "Friday", "Saturday"};
constexpr double kLastDay = 2958466;

std::string padded(long long number, int digits) {
  std::string text = std::to_string(number);
  if (static_cast<int>(text.size()) < digits) text.insert(0, static_cast<size_t>(digits) - text.size(), '0');
  return text;
}

}  // namespace

bool NumberFormat::Section::accepts(double x) const {
  switch (test) {
    case Test::None:
      return true;
    case Test::Less:
      return x < bound;
    case Test::LessEqual:
      return x <= bound;
    case Test::Equal:
      return x == bound;
    case Test::NotEqual:
      return x != bound;
    case Test::Greater:
      return x > bound;
    case Test::GreaterEqual:
      return x >= bound;
  }
  return true;
}

bool NumberFormat::general() const {
  const auto& tokens = sections_.front().tokens;
  return sections_.size() == 1 && tokens.size() == 1 && tokens.front().kind == Kind::General;
}

// Without conditions the sections are positive, negative, zero and text; `sign` says whether
// the number's own minus is written.
const NumberFormat::Section* NumberFormat::choose(double x, bool& sign) const {
  size_t count = std::min<size_t>(sections_.size(), 3);
  if (count > 1 && sections_[count - 1].text) --count;
  const auto end = sections_.begin() + static_cast<std::ptrdiff_t>(count);
  if (std::any_of(sections_.begin(), end, [](const Section& s) { return s.test != Test::None; })) {
    const auto tested = std::find_if(sections_.begin(), end,
                                     [x](const Section& s) { return s.test != Test::None && s.accepts(x); });
    const auto found = tested != end ? tested : std::find_if(sections_.begin(), end, [](const Section& s) {
      return s.test == Test::None;
    });
    if (found == end) return nullptr;
    const bool below = (found->test == Test::Less || found->test == Test::LessEqual) && found->bound <= 0;
    sign = x < 0 && !below;
    return &*found;
  }
  sign = x < 0 && count == 1;
  if (count > 1 && x < 0) return &sections_[1];
  return &sections_[count > 2 && x == 0 ? 2 : 0];
}

Shown NumberFormat::show(const Value& value, int width) const {
  Shown shown;
  if (const double* number = value.number()) {
    bool sign = false;
    const Section* section = choose(*number, sign);
    if (!section) {
      shown.text = "########";
    } else if (section->text) {
      shown.text = generalText(*number, width);
    } else {
      shown.colour = section->colour;
      if (section->date)
        showDate(*section, *number, shown);
      else
        showNumber(*section, *number, sign, width, shown);
    }
  } else if (const std::string* text = value.text()) {
    // The fourth section is that of texts, else the last one that has a place for them.
    auto section =
        std::find_if(sections_.rbegin(), sections_.rend(), [](const Section& s) { return s.text; });
    if (sections_.size() == 4) section = sections_.rbegin();
    if (section == sections_.rend()) {
      shown.text = *text;
      return shown;
    }
    shown.colour = section->colour;
    for (const Token& token : section->tokens)
      if (token.kind == Kind::Text)
        shown.text += *text;
      else
        showOther(token, shown);
  } else {
    shown.text = textOf(value);
  }
  return shown;
}

void NumberFormat::showOther(const Token& token, Shown& shown) {
  switch (token.kind) {
    case Kind::Literal:
      shown.text += token.text;
      break;
    case Kind::Percent:
      shown.text += '%';
      break;
    case Kind::Point:
      shown.text += '.';
      break;
    case Kind::Slash:
      shown.text += '/';
      break;
    case Kind::Digit:
      if (token.text == "0") shown.text += '0';
      break;
    case Kind::Fill:
      shown.fillAt = shown.text.size();
      shown.fill = token.text;
      break;
    default:
      break;
  }
}

// A part of the moment that began so many whole seconds after day 0.
std::string NumberFormat::datePart(const Token& token, double serial, long long seconds, bool twelveHours) {
  const std::chrono::year_month_day date = dayOf(static_cast<double>(seconds / 86400));
  const int year = static_cast<int>(date.year()), two = token.count > 1 ? 2 : 1;
  const long long hour = seconds / 3600 % 24;
  const auto named = [&](unsigned number, const std::string& name, int whole) {
    return token.count < 3        ? padded(number, two)
           : token.count == whole ? name
                                  : name.substr(0, token.count == 5 ? 1 : 3);
  };
  switch (token.kind) {
    case Kind::Year:
      return token.count > 2 ? padded(year, 4) : padded(year % 100, 2);
    case Kind::Month: {
      const auto month = static_cast<unsigned>(date.month());
      return named(month, kMonths[month - 1], 4);
    }
    case Kind::Day:
      return named(static_cast<unsigned>(date.day()), kDays[static_cast<size_t>((seconds / 86400 + 6) % 7)],
                   4);
    case Kind::Hour:
      return padded(twelveHours ? (hour + 11) % 12 + 1 : hour, two);
    case Kind::Minute:
      return padded(seconds / 60 % 60, two);
    case Kind::Second:
      return padded(seconds % 60, two);
    case Kind::SecondPart: {
      const int places = std::min(token.count, 6);
      const auto scale = std::pow(10, places);
      const auto part = (serial * 86400 - static_cast<double>(seconds)) * scale + 1e-3;
      return "." + padded(static_cast<long long>(std::clamp(part, 0.0, scale - 1)), places);
    }
    case Kind::AmPm:
      return std::string(hour < 12 ? "AM" : "PM").substr(0, token.count == 5 ? 2 : 1);
    case Kind::ElapsedHours:
      return padded(seconds / 3600, token.count);
    case Kind::ElapsedMinutes:
      return padded(seconds / 60, token.count);
    case Kind::ElapsedSeconds:
      return padded(seconds, token.count);
    default:
      return {};
  }
}

void NumberFormat::showDate(const Section& section, double serial, Shown& shown) {
  if (serial < 0 || serial >= kLastDay) {
    shown.text = "########";
    return;
  }
  const bool parts = std::any_of(section.tokens.begin(), section.tokens.end(),
                                 [](const Token& token) { return token.kind == Kind::SecondPart; });
  const double exact = serial * 86400;
  const auto seconds = static_cast<long long>(parts ? std::floor(exact + 1e-6) : std::round(exact));
  for (const Token& token : section.tokens)
    if (dateKind(token.kind))
      shown.text += datePart(token, serial, seconds, section.twelveHours);
    else
      showOther(token, shown);
}

void NumberFormat::showNumber(const Section& section, double x, bool sign, int width, Shown& shown) {
  if (sign) shown.text = "-";
  const auto has = [&](Kind kind) {
    return std::any_of(section.tokens.begin(), section.tokens.end(),
                       [kind](const Token& t) { return t.kind == kind; });
  };
  if (has(Kind::General)) {
    for (const Token& token : section.tokens)
      if (token.kind == Kind::General)
        shown.text += generalText(std::fabs(x), width);
      else
        showOther(token, shown);
    return;
  }
  if (has(Kind::Slash) && has(Kind::Digit)) return showFraction(section, std::fabs(x), shown);

  const double scale = std::pow(100, section.percents) / std::pow(1000, section.thousands);
  Decimal number = Decimal::of(std::fabs(x) * scale);
  int whole = 0, places = 0;
  bool behind = false, power = false;
  for (const Token& token : section.tokens) {
    behind = behind || token.kind == Kind::Point;
    power = power || token.kind == Kind::Exponent;
    if (token.kind == Kind::Digit && !power) ++(behind ? places : whole);
  }
  int exponent = 0;
  if (power && !number.digits.empty()) {
    // The exponent is a multiple of the whole digits, so that ##0.0E+0 gives 12.3E+3.
    const int step = std::max(whole, 1);
    const auto below = [step](int point) { return (point - 1 - ((point - 1) % step + step) % step); };
    exponent = below(number.point);
    number.round(places - exponent);
    exponent = below(number.point);
    number.point -= exponent;
  }
  number.round(places);
  showDigits(section, number, exponent, shown);
}

void NumberFormat::showDigits(const Section& section, const Decimal& number, int exponent, Shown& shown) {
  int left = 0;
  for (const Token& token : section.tokens) {
    if (token.kind == Kind::Point || token.kind == Kind::Exponent) break;
    left += token.kind == Kind::Digit;
  }
  const auto digit = [&](int place) {  // 0 is the first behind the point
    const int at = number.point + place;
    return at >= 0 && at < static_cast<int>(number.digits.size()) ? number.digits[static_cast<size_t>(at)]
                                                                  : '0';
  };
  const auto whole = [&](char c, int place) {  // place 1 is that of the ones
    shown.text += c;
    if (section.groups && place > 1 && place % 3 == 1) shown.text += ',';
  };
  enum { Before, Behind, Power } stage = Before;
  bool first = true;
  int place = 0;
  std::string power = std::to_string(std::abs(exponent));
  int powerPlaces = 0;
  for (const Token& token : section.tokens) {
    if (token.kind == Kind::Exponent) {
      stage = Power;
      shown.text += 'E';
      if (exponent < 0 || token.text == "+") shown.text += exponent < 0 ? '-' : '+';
      for (const Token& next : section.tokens) powerPlaces += &next > &token && next.kind == Kind::Digit;
      if (static_cast<int>(power.size()) < powerPlaces)
        power.insert(0, static_cast<size_t>(powerPlaces) - power.size(), '0');
      shown.text += power;
    } else if (token.kind == Kind::Point && stage == Before) {
      // A format such as ".00" has no place for whole digits: they stand all the same.
      for (int p = number.point; first && p > 0; --p) whole(digit(-p), p);
      stage = Behind;
      place = 0;
      shown.text += '.';
    } else if (token.kind != Kind::Digit) {
      showOther(token, shown);
    } else if (stage == Before) {
      if (first)
        for (int p = number.point; p > left; --p) whole(digit(-p), p);
      first = false;
      if (left <= number.point || token.text == "0")
        whole(digit(-left), left);
      else if (token.text == "?")
        shown.text += ' ';
      --left;
    } else if (stage == Behind) {
      const bool there = number.point + place < static_cast<int>(number.digits.size());
      if (there || token.text == "0")
        shown.text += digit(place);
      else if (token.text == "?")
        shown.text += ' ';
      ++place;
    }
  }
}

// "# ?/?" : the whole part, then the nearest fraction whose denominator has as many digits.
void NumberFormat::showFraction(const Section& section, double x, Shown& shown) {
  constexpr double kWhole = 1e14;  // from here on no fraction is left in 15 digits
  if (std::fabs(x) >= kWhole) {
    shown.text += joinedText(x);
    return;
  }
  int places = 0;
  bool behind = false, mixed = false, blank = false;
  for (const Token& token : section.tokens) {
    if (token.kind == Kind::Slash) behind = true;
    if (token.kind == Kind::Digit && behind) ++places;
    if (token.kind == Kind::Digit && !behind) mixed = mixed || blank;
    if (token.kind == Kind::Literal && !behind) blank = true;
  }
  const int limit = static_cast<int>(std::pow(10, std::clamp(places, 1, 4))) - 1;
  const double whole = mixed ? std::floor(x) : 0;
  long long top = 0, bottom = 1;
  for (int d = 1; d <= limit; ++d) {
    const auto n = std::llround((x - whole) * d);
    if (std::fabs((x - whole) - static_cast<double>(n) / d) + 1e-12 <
        std::fabs((x - whole) - static_cast<double>(top) / static_cast<double>(bottom))) {
      top = n;
      bottom = d;
    }
  }
  const bool carried = mixed && top == bottom;
  const long long units = static_cast<long long>(whole) + (carried ? 1 : 0);
  if (carried) top = 0;
  if (mixed && (units != 0 || top == 0)) shown.text += std::to_string(units);
  if (mixed && top != 0 && units != 0) shown.text += ' ';
  if (!mixed || top != 0) shown.text += std::to_string(top) + "/" + std::to_string(bottom);
}

}  // namespace workbook
