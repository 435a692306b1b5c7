#include "vouchers/calculation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/number.h"
#include "vouchers/oracle.h"

TEST(Calculation, TheStatesDecideWhichTaxApplies) {
  struct Case {
    double company, party;
    std::optional<double> rate;
    std::string cgst, sgst, igst;
  };
  const std::vector<Case> cases = {
      {24, 24, 18.0, "9",     "9",     "0" },
      {24, 24, 0.25, "0.125", "0.125", "0" },
      {24, 24, 0.0,  "",      "",      "0" },
      {24, 27, 18.0, "0",     "0",     "18"},
      {24, 0,  5.0,  "0",     "0",     "5" },
      {0,  0,  12.0, "6",     "6",     "0" },
  };
  for (const auto& c : cases) {
    const auto texts = splitTax(c.company, c.party, c.rate);
    ASSERT_TRUE(texts);
    EXPECT_EQ(texts->cgst, c.cgst) << c.company << " " << c.party << " " << *c.rate;
    EXPECT_EQ(texts->sgst, c.sgst);
    EXPECT_EQ(texts->igst, c.igst);
  }
  EXPECT_FALSE(splitTax(24, 24, std::nullopt)) << "an item without a rate";
}

TEST(Calculation, TheTaxBaseIsNotRoundedAndTheStoredAmountIs) {
  LineValue line;
  line.value(3, 33.33, 10);
  EXPECT_EQ(line.assess, 99.99 - (10 * 99.99) / 100);
  EXPECT_NEAR(line.assess, 89.991, 1e-12);
  line.tax({9, 9, 0});
  EXPECT_EQ(line.amounts.cgst, 8.10);
  EXPECT_EQ(line.amounts.sgst, 8.10);
  EXPECT_EQ(line.shownNet(), 106.19);
  EXPECT_EQ(storedAmount(3, 33.33, 10), 89.99);
}

TEST(Calculation, DiscountsOfAHundredAndMorePass) {
  LineValue line;
  line.value(2, 50, 100);
  line.tax({9, 9, 0});
  EXPECT_EQ(line.net, 0);
  line.value(2, 50, 150);
  line.tax({9, 9, 0});
  EXPECT_EQ(line.assess, -50);
  EXPECT_EQ(line.shownNet(), -59);
  EXPECT_TRUE(discountRefused(-1));
  EXPECT_FALSE(discountRefused(0));
  EXPECT_FALSE(discountRefused(150));
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
      {100,      {9, 9, 0},          118,   0    },
      {-50,      {-4.5, -4.51},      -59,   0.01 },
      {0,        {},                 0,     0    },
      {100,      {0, 0, 17.6},       118,   0.4  },
  };
  for (const auto& c : cases) {
    const BillTotal total = billTotal(c.items, c.taxes);
    EXPECT_EQ(total.amount, c.amount) << c.items;
    EXPECT_EQ(total.roundOff, c.roundOff) << c.items;
    EXPECT_EQ(billPreview(c.items, c.taxes).amount, c.amount);
  }
}

TEST(Calculation, QuantitiesShowThreeDecimalsUnlessNegative) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"14",     "14.000"},
      {"",       "0.000" },
      {"1.2345", "1.235" },
      {"-2",     "-2"    },
      {"-2.x",   "-2.x"  },
      {"kg",     "0.000" },
  };
  for (const auto& [typed, shown] : cases) EXPECT_EQ(quantityText(typed), shown) << typed;
}

// Ten thousand lines as an operator types them against figures worked out apart.
TEST(Calculation, AgreesWithTheOracleToTheLastBit) {
  const std::vector<oracle::Bill> bills = oracle::bills(20260615, 2500);
  ASSERT_EQ(bills.size(), 2500U);
  for (const auto& bill : bills) {
    double items = 0, quantity = 0, cgst = 0, sgst = 0, igst = 0;
    for (const auto& l : bill.lines) {
      const auto rates = splitTax(bill.company, bill.party, l.itemRate);
      ASSERT_TRUE(rates);
      EXPECT_EQ(rates->cgst, l.cgstRate);
      EXPECT_EQ(rates->sgst, l.sgstRate);
      EXPECT_EQ(rates->igst, l.igstRate);
      EXPECT_EQ(quantityText(l.quantity), l.quantityText);
      const double q = Val(l.quantityText), r = Val(numText(Val(l.rate))), d = Val(l.discount);

      LineValue line;
      line.value(q, r, d);
      line.tax({Val(rates->cgst), Val(rates->sgst), Val(rates->igst)});
      EXPECT_EQ(line.assess, l.assess);
      if (l.hand == '-') {
        EXPECT_EQ(numText(line.amounts.cgst), l.cgstText);
        EXPECT_EQ(numText(line.amounts.sgst), l.sgstText);
        EXPECT_EQ(numText(line.amounts.igst), l.igstText);
      } else {
        line.take({Val(l.cgstText), Val(l.sgstText), Val(l.igstText)});
      }
      EXPECT_EQ(numText(line.shownNet()), l.netText) << l.quantity << " x " << l.rate;
      EXPECT_EQ(storedAmount(q, r, d), l.amount) << l.quantity << " x " << l.rate << " - " << l.discount;
      items += l.amount;
      quantity += q;
      cgst += Val(l.cgstText);
      sgst += Val(l.sgstText);
      igst += Val(l.igstText);
    }
    EXPECT_EQ(numText(Round(items, 2)), bill.items);
    EXPECT_EQ(numText(Round(quantity, 2)), bill.quantity);
    const BillTotal total = billTotal(Val(bill.items), {Val(bill.cgst), Val(bill.sgst), Val(bill.igst)});
    EXPECT_EQ(numText(total.amount), bill.amount);
    EXPECT_EQ(numText(total.roundOff), bill.roundOff);
    if (HasFailure()) return;
  }
}
