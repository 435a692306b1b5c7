#include "documents/words.h"

#include <array>
#include <cmath>
#include <string_view>

#include "base/number.h"
#include "base/words.h"

namespace {

// clang-format off
constexpr std::array<std::string_view, 20> kSmall = {
    "",
    english("ONE"), english("TWO"), english("THREE"), english("FOUR"),
    english("FIVE"), english("SIX"), english("SEVEN"), english("EIGHT"),
    english("NINE"), english("TEN"), english("ELEVEN"), english("TWELVE"),
    english("THIRTEEN"), english("FOURTEEN"), english("FIFTEEN"), english("SIXTEEN"),
    english("SEVENTEEN"), english("EIGHTEEN"), english("NINTEEN")};
constexpr std::array<std::string_view, 10> kTens = {
    "", "",
    english("TWENTY"), english("THIRTY"), english("FOURTY"), english("FIFTY"),
    english("SIXTY"), english("SEVENTY"), english("EIGHTY"), english("NINTY")};
// clang-format on

}  // namespace

std::string NumberWords(double number) {
  if (!(number >= 1 && number <= 99) || number != std::floor(number)) return {};
  const auto n = static_cast<size_t>(number);
  if (n < kSmall.size()) return words(kSmall[n]);
  const std::string tens = words(kTens[n / 10]);
  return n % 10 == 0 ? tens : tens + " " + words(kSmall[n % 10]);
}

std::string AmountInWords(double amount) {
  if (amount == 0.0) return "..";
  std::string spelt;
  const auto take = [&](double size, const char* name, double tested) {
    if (!(std::floor(tested / size) > 0)) return;
    const double count = std::floor(amount / size);
    spelt += NumberWords(count) + " " + words(name) + " ";
    amount -= count * size;
  };
  take(10000000, english("CRORE"), amount);
  take(100000, english("LAKH"), amount);
  take(1000, english("THOUSAND"), amount);
  take(100, english("HUNDRED"), Round(amount, 2));

  const double rounded = Round(amount, 2);
  spelt += NumberWords(std::floor(rounded));
  if (rounded == Round(amount, 0)) return words("{amount} ONLY", "amount", spelt);
  // The product is looked up as it is: where it is not exactly whole, the paise have no word.
  const double paise = Round(rounded - std::floor(rounded), 2) * 100;
  return words("{amount} AND {paise} PAISE ONLY", "amount", spelt, "paise", NumberWords(paise));
}
