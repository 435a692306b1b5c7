#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/paint.h"
#include "platform/workbook/decimal.h"
#include "platform/workbook/workbook.h"

// Number formats: "#,##0.00;[Red]-#,##0.00", "dd/mm/yyyy", lakh grouping by conditions
// "[>=10000000]##\,##\,##\,##0.00;[>=100000]##\,##\,##0.00;##,##0.00", "@", General.
namespace workbook {

struct Shown {
  std::string text;
  std::optional<paint::Colour> colour;  // from [Red] and its kind
  // Where the cell's spare width goes ("*" in the format), and with what character.
  std::optional<size_t> fillAt;
  std::string fill;
};

class NumberFormat {
 public:
  NumberFormat() : NumberFormat("General") {}
  // Never fails: what cannot be understood stands for itself.
  explicit NumberFormat(std::string_view code);

  // General takes at most `width` characters beside the sign.
  Shown show(const Value& value, int width = 11) const;
  // A number in General may lose decimals to fit its column.
  bool general() const;

  static std::string_view builtin(int id);

 private:
  // clang-format off
  enum class Kind {
    Literal, Comma, Digit, Point, Percent, Exponent, General, Text, Slash, Fill,
    Year, Month, Day, Hour, Minute, Second, SecondPart, AmPm, ElapsedHours, ElapsedMinutes, ElapsedSeconds
  };
  // clang-format on
  struct Token {
    Kind kind = Kind::Literal;
    std::string text{};  // of a literal; the letter of a digit place
    int count = 1;       // letters of a date part
  };
  struct Sign;
  static const std::array<Sign, 8> kSigns;
  enum class Test { None, Less, LessEqual, Equal, NotEqual, Greater, GreaterEqual };
  struct Section {
    std::vector<Token> tokens;
    std::optional<paint::Colour> colour;
    Test test = Test::None;
    double bound = 0;
    bool date = false, groups = false, text = false, twelveHours = false;
    int percents = 0, thousands = 0;  // factors of 100 and of 1/1000

    bool accepts(double x) const;
  };

  static bool dateKind(Kind kind) { return kind >= Kind::Year; }
  static void parse(Section& section, std::string_view code);
  static size_t parseBracket(Section& section, std::string_view code, size_t at);
  static size_t parseLetters(Section& section, std::string_view code, size_t at);
  static void settleMinutes(Section& section);
  static void settleCommas(Section& section);
  const Section* choose(double x, bool& sign) const;
  static std::string datePart(const Token& token, double serial, long long seconds, bool twelveHours);
  static void showDate(const Section& section, double serial, Shown& shown);
  static void showNumber(const Section& section, double x, bool sign, int width, Shown& shown);
  static void showDigits(const Section& section, const Decimal& number, int exponent, Shown& shown);
  static void showFraction(const Section& section, double x, Shown& shown);
  // Literals, fills and signs, which mean the same wherever they stand.
  static void showOther(const Token& token, Shown& shown);

  std::vector<Section> sections_;
};

}  // namespace workbook
