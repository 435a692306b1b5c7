#include "platform/utf8.h"

namespace utf8 {
namespace {

constexpr char32_t kBroken = 0xFFFD;

struct Lead {
  size_t length;
  char32_t bits;
};

Lead leadOf(unsigned char b) {
  if (b < 0x80) return {1, b};
  if (b >= 0xC2 && b < 0xE0) return {2, b & 0x1Fu};
  if (b >= 0xE0 && b < 0xF0) return {3, b & 0x0Fu};
  if (b >= 0xF0 && b < 0xF5) return {4, b & 0x07u};
  return {0, 0};
}

}  // namespace

std::u32string decode(std::string_view text) {
  std::u32string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    const Lead lead = leadOf(static_cast<unsigned char>(text[i]));
    char32_t ch = lead.bits;
    size_t n = 1;
    for (; n < lead.length && i + n < text.size(); ++n) {
      const auto b = static_cast<unsigned char>(text[i + n]);
      if ((b & 0xC0) != 0x80) break;
      ch = (ch << 6) | (b & 0x3Fu);
    }
    out.push_back(lead.length == 0 || n < lead.length ? kBroken : ch);
    i += n;
  }
  return out;
}

std::string encode(char32_t ch) {
  std::string s;
  const auto put = [&s](char32_t byte) { s.push_back(static_cast<char>(byte)); };
  if (ch < 0x80) {
    put(ch);
  } else if (ch < 0x800) {
    put(0xC0 | (ch >> 6));
    put(0x80 | (ch & 0x3F));
  } else if (ch < 0x10000) {
    put(0xE0 | (ch >> 12));
    put(0x80 | ((ch >> 6) & 0x3F));
    put(0x80 | (ch & 0x3F));
  } else {
    put(0xF0 | (ch >> 18));
    put(0x80 | ((ch >> 12) & 0x3F));
    put(0x80 | ((ch >> 6) & 0x3F));
    put(0x80 | (ch & 0x3F));
  }
  return s;
}

std::string encode(std::u32string_view text) {
  std::string out;
  for (const char32_t ch : text) out += encode(ch);
  return out;
}

size_t length(std::string_view text) { return decode(text).size(); }

}  // namespace utf8
