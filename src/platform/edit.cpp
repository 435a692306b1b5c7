#include "platform/edit.h"

#include <algorithm>
#include <optional>
#include <regex>

#include "base/date.h"
#include "base/figure.h"
#include "base/number.h"
#include "platform/utf8.h"

namespace edit {
namespace {

constexpr size_t kDateLength = 10;

bool isSlash(size_t place) { return place == 2 || place == 5; }

std::u32string maskOf(const Control& c) {
  std::u32string t = utf8::decode(c.text);
  return t.size() == kDateLength ? t : utf8::decode(kEmptyDate);
}

void store(Control& c, const std::u32string& text, size_t caret) {
  c.text = utf8::encode(text);
  c.caret = c.anchor = caret;
}

bool eraseSelection(Control& c) {
  if (c.caret == c.anchor) return false;
  const size_t from = std::min(c.caret, c.anchor), to = std::max(c.caret, c.anchor);
  std::u32string t = c.kind == Kind::Date ? maskOf(c) : utf8::decode(c.text);
  const size_t end = std::min(to, t.size());
  if (from >= end) {
    c.anchor = c.caret = std::min(from, t.size());
    return false;
  }
  if (c.kind == Kind::Date) {
    for (size_t i = from; i < end; ++i)
      if (!isSlash(i)) t[i] = U'_';
  } else {
    t.erase(from, end - from);
  }
  store(c, t, from);
  return true;
}

bool insertDate(Control& c, char32_t ch) {
  const bool digit = ch >= U'0' && ch <= U'9';
  if (!digit) {
    // A separator typed by hand is passed over when the caret stands before it.
    if (c.caret == c.anchor && isSlash(c.caret)) c.anchor = ++c.caret;
    return false;
  }
  eraseSelection(c);
  std::u32string t = maskOf(c);
  size_t at = c.caret;
  if (isSlash(at)) ++at;
  if (at >= kDateLength) return false;
  t[at] = ch;
  store(c, t, at + 1);
  return true;
}

Outcome erase(Control& c, bool back) {
  if (c.caret != c.anchor) return {true, eraseSelection(c)};
  std::u32string t = c.kind == Kind::Date ? maskOf(c) : utf8::decode(c.text);
  size_t at = std::min(c.caret, t.size());
  if (back) {
    if (at == 0) return {true, false};
    --at;
    if (c.kind == Kind::Date && isSlash(at) && at > 0) --at;
  }
  if (at >= t.size()) return {true, false};
  if (c.kind == Kind::Date) {
    if (!isSlash(at)) t[at] = U'_';
  } else {
    t.erase(at, 1);
  }
  store(c, t, at);
  return {true, true};
}

bool endsLine(char32_t ch) {
  return (ch >= U'\t' && ch <= U'\r') || ch == 0x85 || ch == 0x2028 || ch == 0x2029;
}

bool isControl(char32_t ch) {
  return ch < U' ' || (ch >= 0x7F && ch < 0xA0) || (ch >= 0xD800 && ch < 0xE000) || ch == 0xFFFE ||
         ch == 0xFFFF;
}

// Line ends and tabs, and the blanks about them, become one blank, and none where the text begins or
// ends; control characters go.
std::u32string oneLine(std::string_view text) {
  std::u32string line;
  bool gap = false;
  for (const char32_t ch : utf8::decode(text)) {
    if (endsLine(ch)) {
      gap = true;
      while (line.ends_with(U' ')) line.pop_back();
    } else if (!isControl(ch) && !(gap && ch == U' ')) {
      if (gap && !line.empty()) line += U' ';
      gap = false;
      line += ch;
    }
  }
  return line;
}

// What may stand in a copied figure beside ASCII, as ASCII.
std::string plainSign(char32_t ch) {
  const bool mark = (ch >= 0x200B && ch <= 0x200F) || (ch >= 0x202A && ch <= 0x202E) ||
                    (ch >= 0x2066 && ch <= 0x2069) || ch == 0xFEFF;
  if (mark) return "";
  if (ch == 0xA0 || (ch >= 0x2000 && ch <= 0x200A) || ch == 0x202F) return " ";
  if (ch == 0x2212 || ch == 0x2013) return "-";
  if (ch == 0x2018 || ch == 0x2019) return "'";
  if (ch == 0x20B9 || ch == 0x20A8) return "Rs";
  return utf8::encode(plainDigit(ch));
}

// "Rs. 1,00,000.50/-" is 100000.50. A comma or blank that does not part groups of digits is none of a
// number: "1,5" may be meant otherwise.
std::optional<std::u32string> figureOf(std::u32string_view text) {
  constexpr size_t kLongest = 60;
  static const std::regex kFigure(
      " *'? *([-+]?) *(?:(?:Rs|INR)\\.?)? *([-+]?) *"
      "(\\d{1,3}(?:[, ]\\d{2,3})*[, ]\\d{3}(?:\\.\\d*)?|\\d+(?:\\.\\d*)?|\\.\\d+)"
      " *(?:/-|(?:Rs|INR)\\.?)? *",
      std::regex::icase);
  if (text.size() > kLongest) return {};
  std::string plain;
  for (const char32_t ch : text) plain += plainSign(ch);
  std::smatch part;
  if (!std::regex_match(plain, part, kFigure) || (part.length(1) > 0 && part.length(2) > 0)) return {};
  std::string figure = part.str(3);
  std::erase_if(figure, [](char c) { return c == ',' || c == ' '; });
  const bool below = part.str(1) == "-" || part.str(2) == "-";
  return utf8::decode((below ? "-" : "") + figure);
}

// A whole date in any form takes the place of all; else the digits go over the mask.
Outcome pasteDate(Control& c, std::u32string text) {
  for (char32_t& ch : text) ch = plainDigit(ch);
  if (const auto whole = parseDate(utf8::encode(text))) {
    store(c, utf8::decode(formatDate(*whole, "dd/MM/yyyy")), kDateLength);
    return {true, true};
  }
  bool any = false;
  for (const char32_t ch : text) any = insertDate(c, ch) || any;
  return {true, any};
}

Outcome moveCaret(Control& c, size_t to, bool keepAnchor) {
  c.caret = to;
  if (!keepAnchor) c.anchor = to;
  return {true, false};
}

}  // namespace

void selectAll(Control& c) {
  c.anchor = 0;
  c.caret = utf8::length(c.text);
}

void clear(Control& c) {
  c.text = c.kind == Kind::Date ? std::string(kEmptyDate) : std::string();
  c.caret = c.anchor = 0;
}

bool insert(Control& c, char32_t ch) {
  if (c.kind == Kind::Date) return insertDate(c, ch);
  const bool had = eraseSelection(c);
  std::u32string t = utf8::decode(c.text);
  if (c.limit > 0 && t.size() >= static_cast<size_t>(c.limit)) return had;
  const size_t at = std::min(c.caret, t.size());
  t.insert(at, 1, ch);
  store(c, t, at + 1);
  return true;
}

Outcome paste(Control& c, std::string_view text) {
  std::u32string more = oneLine(text);
  if (c.kind == Kind::Date) return pasteDate(c, more);
  const bool figure = c.keys == KeyClass::Number && (c.spec == nullptr || c.ofFigures());
  if (c.keys == KeyClass::Number && !more.empty()) {
    const auto plain = figureOf(more);
    if (!plain && figure) return {};
    if (plain) more = *plain;
  }
  std::u32string t = utf8::decode(c.text);
  const size_t from = std::min({c.caret, c.anchor, t.size()}),
               to = std::min(std::max(c.caret, c.anchor), t.size());
  t.erase(from, to - from);
  const size_t limit = static_cast<size_t>(c.limit),
               room = c.limit > 0 ? limit - std::min(limit, t.size()) : more.size();
  // A figure is never cut: it would be another one.
  if (figure && more.size() > room) return {};
  more.resize(std::min(more.size(), room));
  if (more.empty() && from == to) return {true, false};
  t.insert(from, more);
  if (figure && !more.empty() && !isNumberText(utf8::encode(t))) return {};
  store(c, t, from + more.size());
  return {true, true};
}

Outcome key(Control& c, const Key& k) {
  const size_t length = utf8::length(c.text);
  if (k.ctrl && k.ch == U'A') {
    selectAll(c);
    return {true, false};
  }
  if (k.ctrl || k.alt) return {};
  switch (k.code) {
    case KeyCode::Backspace:
      return erase(c, true);
    case KeyCode::Delete:
      return erase(c, false);
    case KeyCode::Left: {
      const size_t start =
          c.caret != c.anchor && !k.shift ? std::min(c.caret, c.anchor) : c.caret - (c.caret > 0);
      return moveCaret(c, start, k.shift);
    }
    case KeyCode::Right: {
      const size_t end =
          c.caret != c.anchor && !k.shift ? std::max(c.caret, c.anchor) : std::min(c.caret + 1, length);
      return moveCaret(c, end, k.shift);
    }
    case KeyCode::Home:
      return moveCaret(c, 0, k.shift);
    case KeyCode::End:
      return moveCaret(c, length, k.shift);
    default:
      return {};
  }
}

std::string selection(const Control& c) {
  if (c.secret()) return {};
  const std::u32string t = utf8::decode(c.text);
  const size_t from = std::min({c.caret, c.anchor, t.size()}),
               to = std::min(std::max(c.caret, c.anchor), t.size());
  return utf8::encode(t.substr(from, to - from));
}

}  // namespace edit
