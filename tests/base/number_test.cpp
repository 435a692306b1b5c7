#include "base/number.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "base/pattern.h"

TEST(Number, ValReadsTheNumberAtTheStart) {
  const std::vector<std::pair<std::string, double>> cases = {
      {"",          0   },
      {"  12.5 kg", 12.5},
      {"-3",        -3  },
      {"+4.",       4   },
      {".5",        0.5 },
      {"1.2.3",     1.2 },
      {"1e3",       1000},
      {"2E-2x",     0.02},
      {"A12",       0   },
      {"0x1F",      0   },
      {"inf",       0   },
      {"nan",       0   },
      {"1,180.00",  1   },
      {"--5",       0   },
      {".",         0   },
      {"-",         0   },
      {"1e999",     0   },
      {"00123",     123 },
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST(Number, RoundTakesTheScaledHalfToTheEvenNeighbour) {
  EXPECT_EQ(Round(2.5, 0), 2);
  EXPECT_EQ(Round(0.125, 2), 0.12);
  EXPECT_EQ(Round(-2.5, 0), -2);
  EXPECT_EQ(Round(2.675, 2), 2.68) << "2.675 * 100 is 267.5, whose even neighbour is 268";
  EXPECT_EQ(Round(1.005, 2), 1.0) << "1.005 * 100 is 100.49999999999999";
  EXPECT_EQ(Round(1e300, 20), 1e300);
}

TEST(Number, TextHasFifteenDigitsAndNoTrailingZeros) {
  const std::vector<std::pair<double, std::string>> cases = {
      {0,               "0"                },
      {-0.0,            "0"                },
      {0.1 + 0.2,       "0.3"              },
      {-1180,           "-1180"            },
      {1.0 / 3,         "0.333333333333333"},
      {123456789012.34, "123456789012.34"  },
      {1e15,            "1e+15"            }
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(numText(value), text);
}

TEST(Number, RegionalSettingsChangeNothing) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "C.UTF-8", ""}) std::setlocale(LC_ALL, name);
  EXPECT_EQ(numText(12.5), "12.5");
  EXPECT_EQ(Val("12.5"), 12.5);
  EXPECT_EQ(Format(12.5, "0.00"), "12.50");
  std::setlocale(LC_ALL, before.c_str());
}

TEST(Number, RoundUpGoesToTheNextWholeNumber) {
  EXPECT_EQ(RoundUp(2.0), 2);
  EXPECT_EQ(RoundUp(2.1), 3);
}

TEST(Number, AnIntHoldsWhatItCan) {
  EXPECT_EQ(toInt(-2.9), -2);
  EXPECT_EQ(toInt(1e300), 2147483647);
  EXPECT_EQ(toInt(-1e300), -2147483647 - 1);
  EXPECT_EQ(toInt(std::nan("")), 0);
}

TEST(Pattern, RoundsHalfAwayFromZeroOnTheDecimalForm) {
  struct Case {
    double value;
    const char* pattern;
    const char* text;
  };
  const std::vector<Case> cases = {
      {2.675,       "0.00",      "2.68"               },
      {1.005,       "0.00",      "1.01"               },
      {-2.675,      "0.00",      "-2.68"              },
      {0,           "0.00",      "0.00"               },
      {-0.001,      "0.00",      "0.00"               },
      {0.005,       "0.00",      "0.01"               },
      {999.995,     "0.00",      "1000.00"            },
      {2.5,         "0",         "3"                  },
      {0.5,         "0",         "1"                  },
      {0.4,         "0",         "0"                  },
      {7,           "000",       "007"                },
      {1234567.891, "#,##0.00",  "1,234,567.89"       },
      {1e15,        "0.00",      "1000000000000000.00"},
      {12.5,        "0.##",      "12.5"               },
      {0.1 + 0.2,   "0.00",      "0.30"               },
      {1180,        "Rs 0.00/-", "Rs 1180.00/-"       }
  };
  for (const auto& c : cases) EXPECT_EQ(Format(c.value, c.pattern), c.text) << c.pattern << " of " << c.value;
}

TEST(Pattern, IndianGroups) {
  EXPECT_EQ(indianGroups("1234567.5"), "12,34,567.5");
  EXPECT_EQ(indianGroups("-123456"), "-1,23,456");
  EXPECT_EQ(indianGroups("1000.00"), "1,000.00");
  EXPECT_EQ(indianGroups("123456789"), "12,34,56,789");
  EXPECT_EQ(indianGroups(""), "");
}
