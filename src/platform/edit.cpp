#include "platform/edit.h"

#include <algorithm>

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

bool paste(Control& c, std::string_view text) {
  bool any = false;
  if (c.kind == Kind::Date) {
    for (const char32_t ch : utf8::decode(text)) any = insertDate(c, ch) || any;
    return any;
  }
  any = eraseSelection(c);
  std::u32string t = utf8::decode(c.text), more = utf8::decode(text);
  std::erase_if(more, [](char32_t ch) { return ch < U' '; });
  if (c.limit > 0) {
    const size_t limit = static_cast<size_t>(c.limit);
    more.resize(std::min(more.size(), t.size() >= limit ? 0 : limit - t.size()));
  }
  if (more.empty()) return any;
  const size_t at = std::min(c.caret, t.size());
  t.insert(at, more);
  store(c, t, at + more.size());
  return true;
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
  const std::u32string t = utf8::decode(c.text);
  const size_t from = std::min({c.caret, c.anchor, t.size()}),
               to = std::min(std::max(c.caret, c.anchor), t.size());
  return utf8::encode(t.substr(from, to - from));
}

}  // namespace edit
