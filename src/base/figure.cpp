#include "base/figure.h"

#include <cmath>

#include "base/number.h"
#include "base/text.h"

bool figureRefused(std::string_view text) {
  constexpr double kMost = 1e13;
  constexpr int kMostDigits = 15;
  const std::string figure = trim(text);
  int digits = 0;  // from the first that is not 0
  for (const char c : figure) {
    if (c >= '0' && c <= '9')
      digits += digits > 0 || c != '0' ? 1 : 0;
    else if (c != '-' && c != '+' && c != '.')
      break;
  }
  const bool endless = figure.ends_with("inf") || figure.ends_with("nan");
  return endless || digits > kMostDigits || std::fabs(Val(figure)) > kMost;
}

char32_t plainDigit(char32_t ch) {
  for (const char32_t zero : {U'\u0966', U'\u0AE6'})
    if (ch >= zero && ch <= zero + 9) return U'0' + (ch - zero);
  return ch;
}
