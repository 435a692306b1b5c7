#include "store/value.h"

#include <cmath>

#include "base/number.h"

Value::Value(double number) {
  constexpr double exact = 9007199254740992.0;  // 2^53
  if (number == std::floor(number) && std::fabs(number) < exact)
    content_ = static_cast<std::int64_t>(number);
  else
    content_ = number;
}

Value::Value(Clock clock) : content_(formatTime({.hour = clock.hour, .minute = clock.minute}, "hh:mm")) {}

std::string Value::text() const {
  if (const auto* text = std::get_if<std::string>(&content_)) return *text;
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return std::to_string(*whole);
  return isNull() ? std::string() : numText(std::get<double>(content_));
}

double Value::number() const {
  if (const auto* text = std::get_if<std::string>(&content_)) return Val(*text);
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return static_cast<double>(*whole);
  return isNull() ? 0 : std::get<double>(content_);
}

std::int64_t Value::whole() const {
  if (const auto* whole = std::get_if<std::int64_t>(&content_)) return *whole;
  const double n = std::nearbyint(number());
  return std::fabs(n) < 9e18 ? static_cast<std::int64_t>(n) : 0;
}
