#include "masters/gstin.h"

#include "base/text.h"
#include "base/words.h"

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// 9 a digit, A a letter, X either, 1 either but not 0; anything else stands for itself.
constexpr std::string_view kPattern = "99AAAAA9999A1ZX";

struct Form {
  std::string_view pattern;
  GstinKind kind;
};
constexpr Form kForms[] = {
    {kPattern,          GstinKind::Regular    },
    {"99AAAA99999A9ZX", GstinKind::Government },
    {"99AAAAX9999A1DX", GstinKind::Deductor   },
    {"99AAAAA9999A1CX", GstinKind::Collector  },
    {"9999AAA99999UNX", GstinKind::Uin        },
    {"9999AAA99999ONX", GstinKind::Uin        },
    {"9999AAA99999NRX", GstinKind::NonResident},
 // Registered otherwise: the sign before the last is 1 to 9 or A to J.
    {"99AAAAA9999A11X", GstinKind::Regular    },
};

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

bool fits(std::string_view number, std::string_view pattern) {
  if (number.size() != pattern.size()) return false;
  for (size_t i = 0; i < pattern.size(); ++i)
    if (!fits(number[i], pattern[i])) return false;
  return true;
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

GstinKind gstinKind(std::string_view gstin) {
  const std::string number = upper(gstin);
  for (const Form& form : kForms)
    if (fits(number, form.pattern)) return form.kind;
  return GstinKind::None;
}

GstinFault gstinFault(std::string_view gstin) {
  const std::string number = upper(gstin);
  if (!fits(number, kPattern)) return GstinFault::Pattern;
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
