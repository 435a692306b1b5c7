#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "base/date.h"

// One stored value: null, whole number, number or text. Dates and times of day are texts,
// "2026-06-15" and "10:30".
//
// A whole double becomes a whole number, so that a text column takes it as "30" and not as
// "30.0"; a division of two bound values must therefore say 100.0 or CAST.
class Value {
 public:
  Value() = default;
  Value(std::string text) : content_(std::move(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(const char* text) : content_(std::string(text)) {}
  Value(double number);
  template <typename Whole, std::enable_if_t<std::is_integral_v<Whole>, int> = 0>
  Value(Whole whole) : content_(static_cast<std::int64_t>(whole)) {}
  Value(char) = delete;  // 'D' would be stored as 68
  Value(Date date) : content_(isoDate(date)) {}
  Value(Clock clock);
  template <typename T>
  Value(const std::optional<T>& maybe) {
    if (maybe) *this = Value(*maybe);
  }

  bool isNull() const { return std::holds_alternative<std::monostate>(content_); }
  bool isWhole() const { return std::holds_alternative<std::int64_t>(content_); }
  bool isText() const { return std::holds_alternative<std::string>(content_); }
  bool isNumber() const { return !isNull() && !isText(); }

  // Numbers as number text, null as an empty text.
  std::string text() const;
  // The number at the start of a text; null is 0.
  double number() const;
  std::int64_t whole() const;
  std::optional<Date> date() const { return parseDate(text()); }

  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string> content_;
};
