#include "documents/pdf/pdf_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "platform/utf8.h"

namespace pdf {
namespace {

constexpr double kLargest = 1e9;
constexpr long kScale = 10000;

void appendHex(std::string& to, unsigned value, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) to += "0123456789ABCDEF"[value >> shift & 15];
}

}  // namespace

void appendNumber(std::string& to, double value) {
  if (!(std::abs(value) < kLargest)) throw std::invalid_argument("a length cannot be drawn");
  long scaled = std::lround(value * kScale);
  if (scaled < 0) {
    to += '-';
    scaled = -scaled;
  }
  char digits[24];
  char* end = std::to_chars(std::begin(digits), std::end(digits), scaled / kScale).ptr;
  long decimals = scaled % kScale;
  if (decimals != 0) {
    *end++ = '.';
    for (long place = kScale / 10; decimals != 0; place /= 10) {
      *end++ = static_cast<char>('0' + decimals / place);
      decimals %= place;
    }
  }
  to.append(digits, end);
}

std::string numberText(double value) {
  std::string text;
  appendNumber(text, value);
  return text;
}

std::string nameText(std::string_view name) {
  constexpr std::string_view kDelimiters = "()<>[]{}/%#";
  std::string text = "/";
  for (const char c : name) {
    if (c > ' ' && c <= '~' && kDelimiters.find(c) == std::string_view::npos) {
      text += c;
    } else {
      text += '#';
      appendHex(text, static_cast<unsigned char>(c), 2);
    }
  }
  return text;
}

void appendEscaped(std::string& to, std::string_view bytes) {
  for (const char c : bytes) {
    if (c == '(' || c == ')' || c == '\\') to += '\\';
    to += c;
  }
}

std::string textString(std::string_view utf8) {
  std::string text = "(";
  if (std::ranges::all_of(utf8, [](char c) { return c >= ' ' && c <= '~'; })) {
    appendEscaped(text, utf8);
    return text + ")";
  }
  constexpr char32_t kPlane = 0x10000, kHigh = 0xD800, kLow = 0xDC00, kHalf = 0x3FF;
  text = "<FEFF";
  for (const char32_t c : utf8::decode(utf8)) {
    if (c < kPlane) {
      appendHex(text, c, 4);
    } else {
      appendHex(text, kHigh + ((c - kPlane) >> 10), 4);
      appendHex(text, kLow + ((c - kPlane) & kHalf), 4);
    }
  }
  return text + ">";
}

}  // namespace pdf
