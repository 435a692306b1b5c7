#include <array>

#include "base/text.h"
#include "platform/utf8.h"
#include "platform/workbook/functions.h"

namespace workbook {
namespace {

constexpr size_t kMaxText = 32767;

Operand limited(std::string text) {
  if (text.size() > kMaxText) throw Failure{Error::Value};
  return Value(std::move(text));
}

int notBelow(Call& call, int i, int least, int otherwise) {
  const int number = call.whole(i, otherwise);
  if (number < least) throw Failure{Error::Value};
  return number;
}

Operand leftPart(Call& call) { return Value(left(call.text(0), notBelow(call, 1, 0, 1))); }
Operand rightPart(Call& call) { return Value(right(call.text(0), notBelow(call, 1, 0, 1))); }
Operand middle(Call& call) {
  return Value(mid(call.text(0), notBelow(call, 1, 1, 1), notBelow(call, 2, 0, 0)));
}

// Blanks around are dropped, several between words become one.
Operand trimmed(Call& call) {
  std::string out;
  for (const char c : trim(call.text(0)))
    if (c != ' ' || !out.ends_with(' ')) out += c;
  return Value(std::move(out));
}

Operand cleaned(Call& call) {
  std::string out;
  for (const char c : call.text(0))
    if (static_cast<unsigned char>(c) >= 32) out += c;
  return Value(std::move(out));
}

Operand proper(Call& call) {
  std::string text = lower(call.text(0));
  bool inside = false;
  for (char& c : text) {
    const bool small = c >= 'a' && c <= 'z';
    if (small && !inside) c = static_cast<char>(c - 'a' + 'A');
    inside = small || (c & 0x80);
  }
  return Value(std::move(text));
}

Operand joined(Call& call) {
  std::string out;
  for (int i = 0; i < call.count(); ++i) out += call.text(i);
  return limited(std::move(out));
}

Operand joinedBlocks(Call& call) {
  std::string out;
  for (int i = 0; i < call.count(); ++i)
    call.each(i, [&](const Value& value, bool) { out += toText(value); });
  return limited(std::move(out));
}

Operand joinedBetween(Call& call) {
  const std::string separator = call.text(0);
  const bool skip = call.truth(1, true);
  std::string out;
  bool first = true;
  for (int i = 2; i < call.count(); ++i)
    call.each(i, [&](const Value& value, bool) {
      const std::string text = toText(value);
      if (skip && text.empty()) return;
      out += (first ? "" : separator) + text;
      first = false;
    });
  return limited(std::move(out));
}

Operand repeated(Call& call) {
  const std::string text = call.text(0);
  const auto times = static_cast<size_t>(notBelow(call, 1, 0, 0));
  if (!text.empty() && times > kMaxText / text.size()) throw Failure{Error::Value};
  std::string out;
  for (size_t i = 0; i < times && !text.empty(); ++i) out += text;
  return Value(std::move(out));
}

Operand substituted(Call& call) {
  const std::string text = call.text(0), what = call.text(1), by = call.text(2);
  const int wanted = call.given(3) ? notBelow(call, 3, 1, 1) : 0;
  if (what.empty()) return Value(text);
  std::string out;
  size_t from = 0;
  int seen = 0;
  for (size_t at; (at = text.find(what, from)) != std::string::npos; from = at + what.size()) {
    out.append(text, from, at - from);
    out += !wanted || ++seen == wanted ? by : what;
    if (out.size() > kMaxText) throw Failure{Error::Value};
  }
  return limited(out.append(text, from));
}

Operand replaced(Call& call) {
  const std::string text = call.text(0);
  const int start = notBelow(call, 1, 1, 1), count = notBelow(call, 2, 0, 0);
  const auto behind = static_cast<long long>(start) + count;
  return limited(left(text, start - 1) + call.text(3) +
                 (behind <= length(text) ? mid(text, static_cast<int>(behind)) : ""));
}

// Byte offset of the character at `start`, counted from 1.
size_t offset(const std::string& text, int start) {
  if (start < 1 || start > length(text) + 1) throw Failure{Error::Value};
  return left(text, start - 1).size();
}

Operand found(const std::string& text, size_t at) {
  if (at == std::string::npos) throw Failure{Error::Value};
  return Value(length(std::string_view(text).substr(0, at)) + 1);
}

Operand findExact(Call& call) {
  const std::string what = call.text(0), text = call.text(1);
  return found(text, text.find(what, offset(text, call.whole(2, 1))));
}

Operand search(Call& call) {
  const std::string what = lower(call.text(0)), text = lower(call.text(1));
  const size_t from = offset(text, call.whole(2, 1));
  if (!hasPattern(what)) return found(text, text.find(what, from));
  return found(text, findPattern(text, what, from));
}

// What the numbers 128 to 159 mean to CHAR and CODE.
constexpr std::array<char32_t, 32> kHigh{0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                                         0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,
                                         0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

Operand character(Call& call) {
  const int number = call.whole(0);
  if (number < 1 || number > 255) throw Failure{Error::Value};
  const bool high = number >= 128 && number < 160;
  return Value(utf8::encode(high ? kHigh[static_cast<size_t>(number - 128)] : static_cast<char32_t>(number)));
}

Operand code(Call& call) {
  const std::u32string text = utf8::decode(call.text(0));
  if (text.empty()) throw Failure{Error::Value};
  for (size_t i = 0; i < kHigh.size(); ++i)
    if (text[0] == kHigh[i]) return Value(i + 128);
  return Value(text[0] < 256 ? static_cast<int>(text[0]) : 63);
}

Operand unicodeCharacter(Call& call) {
  const int number = call.whole(0);
  if (number < 1 || number > 0x10FFFF || (number >= 0xD800 && number < 0xE000)) throw Failure{Error::Value};
  return Value(utf8::encode(static_cast<char32_t>(number)));
}

Operand unicodeOf(Call& call) {
  const std::u32string text = utf8::decode(call.text(0));
  if (text.empty()) throw Failure{Error::Value};
  return Value(static_cast<int>(text[0]));
}

Operand formatted(Call& call) {
  const Value value = call.value(0);
  const std::string code = call.text(1);
  if (code.empty()) return Value("");
  double number = 0;
  const bool numeric = value.text() && numberIn(*value.text(), number);
  const Value shown = value.empty() ? Value(0) : numeric ? Value(number) : value;
  return limited(call.evaluator().format(code).show(shown).text);
}

Operand numberOfText(Call& call) {
  const Value value = call.value(0);
  if (value.truth()) throw Failure{Error::Value};
  return Value(toNumber(value));
}

Operand fixed(Call& call) {
  const int places = call.whole(1, 2);
  if (places > 127) throw Failure{Error::Value};
  Decimal number = Decimal::of(call.number(0));
  number.round(places);
  const std::string code = std::string(call.truth(2, false) ? "0" : "#,##0") +
                           (places > 0 ? "." + std::string(static_cast<size_t>(places), '0') : "");
  return Value(call.evaluator().format(code).show(number.value()).text);
}

Operand onlyText(Call& call) {
  const Value value = call.value(0);
  return Value(value.text() ? *value.text() : "");
}

Operand link(Call& call) { return call.given(1) ? Operand(call.value(1)) : Operand(call.value(0)); }

}  // namespace

std::vector<Function> textFunctions() {
  constexpr Takes S = Takes::Singles, B = Takes::Blocks;
  // clang-format off
  return {
    {"CHAR",        1, 1,   S, character},
    {"CLEAN",       1, 1,   S, cleaned},
    {"CODE",        1, 1,   S, code},
    {"CONCAT",      1, 255, B, joinedBlocks},
    {"CONCATENATE", 1, 255, S, joined},
    {"EXACT",       2, 2,   S, [](Call& c) { return Operand(Value(c.text(0) == c.text(1))); }},
    {"FIND",        2, 3,   S, findExact},
    {"FIXED",       1, 3,   S, fixed},
    {"HYPERLINK",   1, 2,   S, link},
    {"LEFT",        1, 2,   S, leftPart},
    {"LEN",         1, 1,   S, [](Call& c) { return Operand(Value(length(c.text(0)))); }},
    {"LOWER",       1, 1,   S, [](Call& c) { return Operand(Value(lower(c.text(0)))); }},
    {"MID",         3, 3,   S, middle},
    {"PROPER",      1, 1,   S, proper},
    {"REPLACE",     4, 4,   S, replaced},
    {"REPT",        2, 2,   S, repeated},
    {"RIGHT",       1, 2,   S, rightPart},
    {"SEARCH",      2, 3,   S, search},
    {"SUBSTITUTE",  3, 4,   S, substituted},
    {"T",           1, 1,   S, onlyText},
    {"TEXT",        2, 2,   S, formatted},
    {"TEXTJOIN",    3, 255, B, joinedBetween},
    {"TRIM",        1, 1,   S, trimmed},
    {"UNICHAR",     1, 1,   S, unicodeCharacter},
    {"UNICODE",     1, 1,   S, unicodeOf},
    {"UPPER",       1, 1,   S, [](Call& c) { return Operand(Value(upper(c.text(0)))); }},
    {"VALUE",       1, 1,   S, numberOfText},
  };
  // clang-format on
}

}  // namespace workbook
