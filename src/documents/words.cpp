#include "documents/words.h"

#include <array>
#include <cmath>
#include <string_view>

#include "base/number.h"

namespace {

constexpr std::array<std::string_view, 20> kSmall = {
    "",         "ONE",     "TWO",     "THREE",     "FOUR",     "FIVE",   "SIX",
    "SEVEN",    "EIGHT",   "NINE",    "TEN",       "ELEVEN",   "TWELVE", "THIRTEEN",
    "FOURTEEN", "FIFTEEN", "SIXTEEN", "SEVENTEEN", "EIGHTEEN", "NINTEEN"};
constexpr std::array<std::string_view, 10> kTens = {"",      "",      "TWENTY",  "THIRTY", "FOURTY",
                                                    "FIFTY", "SIXTY", "SEVENTY", "EIGHTY", "NINTY"};

}  // namespace

std::string NumberWords(double number) {
  if (!(number >= 1 && number <= 99) || number != std::floor(number)) return {};
  const auto n = static_cast<size_t>(number);
  if (n < kSmall.size()) return std::string(kSmall[n]);
  std::string words(kTens[n / 10]);
  if (n % 10 != 0) words.append(" ").append(kSmall[n % 10]);
  return words;
}

std::string AmountInWords(double amount) {
  if (amount == 0.0) return "..";
  std::string words;
  const auto take = [&](double size, const char* name, double tested) {
    if (!(std::floor(tested / size) > 0)) return;
    const double count = std::floor(amount / size);
    words += NumberWords(count) + " " + name + " ";
    amount -= count * size;
  };
  take(10000000, "CRORE", amount);
  take(100000, "LAKH", amount);
  take(1000, "THOUSAND", amount);
  take(100, "HUNDRED", Round(amount, 2));

  const double rounded = Round(amount, 2);
  words += NumberWords(std::floor(rounded));
  if (rounded == Round(amount, 0)) return words + " ONLY";
  // The product is looked up as it is: where it is not exactly whole, the paise have no word.
  const double paise = Round(rounded - std::floor(rounded), 2) * 100;
  return words + " AND " + NumberWords(paise) + " PAISE ONLY";
}
