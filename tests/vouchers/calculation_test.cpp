#include "vouchers/calculation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// What the oracle's bills do not tell apart; whole bills are played on the screen.

TEST(Calculation, TheTaxBaseIsNotRoundedAndTheStoredAmountIs) {
  LineValue line;
  line.value(3, 33.33, 10);
  EXPECT_NEAR(line.assess, 89.991, 1e-12);
  line.tax({9, 9, 0});
  EXPECT_EQ(line.amounts.cgst, 8.10);
  EXPECT_EQ(line.shownNet(), 106.19);
  EXPECT_EQ(storedAmount(3, 33.33, 10), 89.99);
}

TEST(Calculation, ValuingALineAgainKeepsItsEarlierTaxInTheNet) {
  LineValue line;
  line.value(1, 100, 0);
  EXPECT_EQ(line.shownNet(), 100) << "no tax has been figured yet";
  line.tax({9, 9, 0});
  line.value(2, 100, 0);
  EXPECT_EQ(line.shownNet(), 218) << "200 and the tax of 100";
  line.take({20, 18, 0});
  EXPECT_EQ(line.shownNet(), 238) << "amounts typed by hand stand";
}

TEST(Calculation, BillsComeToWholeRupeesWithHalvesToTheEven) {
  struct Case {
    double items;
    Taxes taxes;
    double amount, roundOff;
  };
  const std::vector<Case> cases = {
      {1000.50,  {},                 1000,  -0.5 },
      {1001.50,  {},                 1002,  0.5  },
      {45564.80, {3953.78, 3953.78}, 53472, -0.36},
      {-50,      {-4.5, -4.51},      -59,   0.01 },
      {100,      {0, 0, 17.6},       118,   0.4  },
  };
  for (const auto& c : cases) {
    const BillTotal total = billTotal(c.items, c.taxes);
    EXPECT_EQ(total.amount, c.amount) << c.items;
    EXPECT_EQ(total.roundOff, c.roundOff) << c.items;
    EXPECT_EQ(billPreview(c.items, c.taxes).amount, c.amount);
  }
}
