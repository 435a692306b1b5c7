#include "documents/words.h"

#include <gtest/gtest.h>

namespace {

using Words = std::pair<double, const char*>;

TEST(AmountInWords, SpellsOutIndianGroups) {
  constexpr Words kCases[] = {
      {1,            "ONE ONLY"                                                                       },
      {19,           "NINTEEN ONLY"                                                                   },
      {45,           "FOURTY FIVE ONLY"                                                               },
      {99.60,        "NINTY NINE AND SIXTY PAISE ONLY"                                                },
      {1500,         "ONE THOUSAND FIVE HUNDRED  ONLY"                                                },
      {100000,       "ONE LAKH  ONLY"                                                                 },
      {10000000,     "ONE CRORE  ONLY"                                                                },
      {1234567.50,   "TWELVE LAKH THIRTY FOUR THOUSAND FIVE HUNDRED SIXTY SEVEN AND FIFTY PAISE ONLY" },
      {123456789,    "TWELVE CRORE THIRTY FOUR LAKH FIFTY SIX THOUSAND SEVEN HUNDRED EIGHTY NINE ONLY"},
      {1000000000.0, " CRORE  ONLY"                                                                   },
      {10000001,     "ONE CRORE ONE ONLY"                                                             },
  };
  for (const auto& [amount, words] : kCases) EXPECT_EQ(AmountInWords(amount), words) << amount;
}

TEST(AmountInWords, KeepsTheOddResults) {
  constexpr Words kCases[] = {
      {0,      ".."                          },
      {0.50,   " AND FIFTY PAISE ONLY"       },
      {0.07,   " AND  PAISE ONLY"            }, // 0.07 * 100 is not exactly 7
      {0.004,  " ONLY"                       },
      {12.125, "TWELVE AND TWELVE PAISE ONLY"}, // half to even
      {99.999, " HUNDRED  ONLY"              }, // rounds to 100, which has no word
      {-5,     " ONLY"                       },
      {-5.25,  " AND SEVENTY FIVE PAISE ONLY"},
  };
  for (const auto& [amount, words] : kCases) EXPECT_EQ(AmountInWords(amount), words) << amount;
}

}  // namespace
