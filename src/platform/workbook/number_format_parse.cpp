#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/text.h"
#include "platform/workbook/number_format.h"

namespace workbook {
namespace {

// clang-format off
constexpr std::array<std::pair<int, const char*>, 32> kBuiltins{{
  {0, "General"},            {1, "0"},                   {2, "0.00"},               {3, "#,##0"},
  {4, "#,##0.00"},           {5, "#,##0;-#,##0"},        {6, "#,##0;[Red]-#,##0"},  {7, "#,##0.00;-#,##0.00"},
  {8, "#,##0.00;[Red]-#,##0.00"},                        {9, "0%"},                 {10, "0.00%"},
  {11, "0.00E+00"},          {12, "# ?/?"},              {13, "# ?\?/??"},          {14, "dd/mm/yyyy"},
  {15, "d-mmm-yy"},          {16, "d-mmm"},              {17, "mmm-yy"},            {18, "h:mm AM/PM"},
  {19, "h:mm:ss AM/PM"},     {20, "h:mm"},               {21, "h:mm:ss"},           {22, "dd/mm/yyyy h:mm"},
  {37, "#,##0_);(#,##0)"},   {38, "#,##0_);[Red](#,##0)"},
  {39, "#,##0.00_);(#,##0.00)"},                         {40, "#,##0.00_);[Red](#,##0.00)"},
  {45, "mm:ss"},             {46, "[h]:mm:ss"},          {47, "mm:ss.0"},           {48, "##0.0E+0"},
  {49, "@"},
}};

struct NamedColour { const char* name; paint::Colour colour; };
constexpr std::array<NamedColour, 8> kColours{{
  {"black", {0, 0, 0}},    {"blue", {0, 0, 255}},      {"cyan", {0, 255, 255}},    {"green", {0, 128, 0}},
  {"red", {255, 0, 0}},    {"magenta", {255, 0, 255}}, {"white", {255, 255, 255}}, {"yellow", {255, 255, 0}},
}};
// clang-format on

size_t characterSize(std::string_view text, size_t at) {
  size_t size = 1;
  while (at + size < text.size() && (text[at + size] & 0xC0) == 0x80) ++size;
  return at < text.size() ? size : 0;
}

// Where the section ends that begins at `at`: its semicolon or the end of the code.
size_t sectionEnd(std::string_view code, size_t at) {
  for (bool quoted = false; at < code.size(); ++at) {
    if (code[at] == '"')
      quoted = !quoted;
    else if (!quoted && (code[at] == '\\' || code[at] == '_' || code[at] == '*'))
      ++at;
    else if (!quoted && code[at] == ';')
      return at;
  }
  return code.size();
}

}  // namespace

struct NumberFormat::Sign {
  char sign;
  Kind kind;
};
// clang-format off
constexpr std::array<NumberFormat::Sign, 8> NumberFormat::kSigns{{
  {'0', Kind::Digit}, {'#', Kind::Digit}, {'?', Kind::Digit},   {'.', Kind::Point},
  {',', Kind::Comma}, {'/', Kind::Slash}, {'%', Kind::Percent}, {'@', Kind::Text},
}};
// clang-format on

// Far more than any program writes.
constexpr size_t kMaxCode = 1000;

std::string_view NumberFormat::builtin(int id) {
  for (const auto& [number, code] : kBuiltins)
    if (number == id) return code;
  return "General";
}

NumberFormat::NumberFormat(std::string_view code) {
  if (code.size() > kMaxCode) code = "General";
  size_t at = 0;
  while (sections_.size() < 4) {
    const size_t end = sectionEnd(code, at);
    Section section;
    parse(section, code.substr(at, end - at));
    settleMinutes(section);
    settleCommas(section);
    sections_.push_back(std::move(section));
    if (end >= code.size()) break;
    at = end + 1;
  }
}

void NumberFormat::parse(Section& section, std::string_view code) {
  const auto put = [&](Kind kind, std::string_view text = {}) {
    section.tokens.push_back({.kind = kind, .text = std::string(text)});
  };
  for (size_t at = 0; at < code.size();) {
    const char c = code[at];
    const size_t next = characterSize(code, at + 1);
    if (const auto sign =
            std::find_if(kSigns.begin(), kSigns.end(), [c](const Sign& s) { return s.sign == c; });
        sign != kSigns.end()) {
      put(sign->kind, code.substr(at++, 1));
      section.percents += sign->kind == Kind::Percent;
      section.text = section.text || sign->kind == Kind::Text;
    } else if (c == '"') {
      const size_t end = std::min(code.find('"', at + 1), code.size());
      put(Kind::Literal, code.substr(at + 1, end - at - 1));
      at = end + 1;
    } else if (c == '\\' || c == '*') {
      put(c == '*' ? Kind::Fill : Kind::Literal, code.substr(at + 1, next));
      at += 1 + next;
    } else if (c == '_') {
      put(Kind::Literal, " ");
      at += 1 + next;
    } else {
      at = c == '[' ? parseBracket(section, code, at) : parseLetters(section, code, at);
    }
  }
}

size_t NumberFormat::parseBracket(Section& section, std::string_view code, size_t at) {
  const size_t end = std::min(code.find(']', at), code.size());
  const std::string inside = lower(code.substr(at + 1, end - at - 1));
  const size_t next = std::min(end + 1, code.size());
  if (inside.empty()) return next;
  if (inside[0] == '$') {
    const std::string_view symbol =
        code.substr(at + 2, inside.find('-') == std::string::npos ? inside.size() - 1 : inside.find('-') - 1);
    if (!symbol.empty()) section.tokens.push_back({.kind = Kind::Literal, .text = std::string(symbol)});
    return next;
  }
  if (inside[0] == '<' || inside[0] == '>' || inside[0] == '=') {
    const size_t size = inside.size() > 1 && (inside[1] == '=' || inside[1] == '>') ? 2 : 1;
    const std::string sign = inside.substr(0, size);
    section.test = sign == "<"    ? Test::Less
                   : sign == "<=" ? Test::LessEqual
                   : sign == "<>" ? Test::NotEqual
                   : sign == ">"  ? Test::Greater
                   : sign == ">=" ? Test::GreaterEqual
                                  : Test::Equal;
    std::from_chars(inside.data() + size, inside.data() + inside.size(), section.bound);
    return next;
  }
  const bool repeated = inside.find_first_not_of(inside[0]) == std::string::npos;
  if (repeated && (inside[0] == 'h' || inside[0] == 'm' || inside[0] == 's')) {
    const Kind kind = inside[0] == 'h'   ? Kind::ElapsedHours
                      : inside[0] == 'm' ? Kind::ElapsedMinutes
                                         : Kind::ElapsedSeconds;
    section.tokens.push_back({.kind = kind, .count = static_cast<int>(inside.size())});
    section.date = true;
    return next;
  }
  for (const NamedColour& named : kColours)
    if (inside == named.name) section.colour = named.colour;
  return next;
}

size_t NumberFormat::parseLetters(Section& section, std::string_view code, size_t at) {
  const std::string_view rest = code.substr(at);
  const auto part = [&](Kind kind, size_t size) {
    section.tokens.push_back({.kind = kind, .count = static_cast<int>(size)});
    section.date = section.date || dateKind(kind);
    return at + size;
  };
  if (startsWithNoCase(rest, "general")) return part(Kind::General, 7);
  if (startsWithNoCase(rest, "am/pm") || startsWithNoCase(rest, "a/p")) {
    section.twelveHours = true;
    return part(Kind::AmPm, startsWithNoCase(rest, "am/pm") ? 5 : 3);
  }
  if (startsWithNoCase(rest, "e+") || startsWithNoCase(rest, "e-")) {
    section.tokens.push_back({.kind = Kind::Exponent, .text = std::string(rest.substr(1, 1))});
    return at + 2;
  }
  const std::string letter = lower(rest.substr(0, 1));
  size_t size = 1;
  while (size < rest.size() && lower(rest.substr(size, 1)) == letter) ++size;
  switch (letter[0]) {
    case 'y':
      return part(Kind::Year, size);
    case 'm':
      return part(Kind::Month, size);
    case 'd':
      return part(Kind::Day, size);
    case 'h':
      return part(Kind::Hour, size);
    case 's':
      return part(Kind::Second, size);
    default:
      break;
  }
  size = characterSize(code, at);
  section.tokens.push_back({.kind = Kind::Literal, .text = std::string(code.substr(at, size))});
  return at + size;
}

// An m beside hours or seconds means minutes; a point and zeros behind seconds their parts.
void NumberFormat::settleMinutes(Section& section) {
  if (!section.date) return;
  Token* before = nullptr;
  for (Token& token : section.tokens) {
    if (!dateKind(token.kind)) continue;
    const Kind last = before ? before->kind : Kind::Literal;
    if (token.kind == Kind::Month && token.count < 3 && (last == Kind::Hour || last == Kind::ElapsedHours))
      token.kind = Kind::Minute;
    if ((token.kind == Kind::Second || token.kind == Kind::ElapsedSeconds) && last == Kind::Month)
      before->kind = Kind::Minute;
    before = &token;
  }
  std::vector<Token> settled;
  for (const Token& token : section.tokens) {
    const bool parts = settled.size() > 1 && settled.back().kind == Kind::Point &&
                       settled[settled.size() - 2].kind == Kind::Second;
    if (token.kind == Kind::Digit && parts)
      settled.back() = {.kind = Kind::SecondPart, .count = 1};
    else if (token.kind == Kind::Digit && !settled.empty() && settled.back().kind == Kind::SecondPart)
      ++settled.back().count;
    else
      settled.push_back(token);
  }
  section.tokens = std::move(settled);
}

// A comma among the whole digits groups them; behind the last one it divides by a thousand.
void NumberFormat::settleCommas(Section& section) {
  auto& tokens = section.tokens;
  size_t point = tokens.size(), first = tokens.size(), last = tokens.size();
  for (size_t i = 0; i < tokens.size(); ++i)
    if (tokens[i].kind == Kind::Point || tokens[i].kind == Kind::Exponent) {
      point = i;
      break;
    }
  for (size_t i = 0; i < point; ++i)
    if (tokens[i].kind == Kind::Digit) {
      if (first == tokens.size()) first = i;
      last = i;
    }
  std::vector<Token> settled;
  for (size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].kind != Kind::Comma) {
      settled.push_back(std::move(tokens[i]));
    } else if (!section.date && first < i && i < last) {
      section.groups = true;
    } else if (!section.date && i > last && settled.back().kind == Kind::Digit) {
      ++section.thousands;
    } else {
      settled.push_back({.kind = Kind::Literal, .text = ","});
    }
  }
  tokens = std::move(settled);
}

}  // namespace workbook
