#include "masters/gstin.h"

#include "base/text.h"
#include "base/words.h"

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// 9 a digit, A a letter, X either, 1 either but not 0; anything else stands for itself.
constexpr std::string_view kPattern = "99AAAAA9999A1ZX";

bool fits(char c, char sign) {
  const bool digit = c >= '0' && c <= '9', letter = c >= 'A' && c <= 'Z';
  switch (sign) {
    case '9':
      return digit;
    case 'A':
      return letter;
    case 'X':
      return digit || letter;
    case '1':
      return (digit && c != '0') || letter;
    default:
      return c == sign;
  }
}

}  // namespace

bool isGstinLength(std::string_view gstin) { return length(gstin) == kGstinLength; }

GstinParts gstinParts(std::string_view gstin) {
  if (!isGstinLength(gstin)) return {};
  return {.stateCode = left(gstin, 2), .pan = mid(gstin, 3, 10)};
}

char gstinCheckDigit(std::string_view gstin) {
  const std::string number = upper(gstin);
  if (number.size() < kGstinLength - 1) return 0;
  // Weights 1 and 2 in turn; the two digits of each product in base 36 are added.
  size_t sum = 0;
  for (size_t i = 0; i < kGstinLength - 1; ++i) {
    const size_t digit = kDigits.find(number[i]);
    if (digit == std::string_view::npos) return 0;
    const size_t product = digit * (i % 2 == 0 ? 1 : 2);
    sum += product / 36 + product % 36;
  }
  return kDigits[(36 - sum % 36) % 36];
}

GstinFault gstinFault(std::string_view gstin) {
  const std::string number = upper(gstin);
  if (number.size() != kPattern.size()) return GstinFault::Pattern;
  for (size_t i = 0; i < kPattern.size(); ++i)
    if (!fits(number[i], kPattern[i])) return GstinFault::Pattern;
  return number.back() == gstinCheckDigit(number) ? GstinFault::None : GstinFault::CheckDigit;
}

std::string gstinHint(std::string_view gstin) {
  switch (gstinFault(gstin)) {
    case GstinFault::Pattern:
      return english("Gstin No. Has An Unusual Form :: Re-Check It With The Party");
    case GstinFault::CheckDigit:
      return english("Gstin No. Does Not Match Its Last Character :: Re-Check It With The Party");
    case GstinFault::None:
      break;
  }
  return {};
}
