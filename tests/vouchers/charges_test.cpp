#include "vouchers/charges.h"

#include <gtest/gtest.h>

// Shares worked out by hand.
TEST(Charges, AreSpreadToThePaisa) {
  struct Case {
    const char* what;
    double net;
    std::vector<double> amounts, shares;
  };
  const Case cases[] = {
      {"in proportion",                                 40,    {200, 100},      {26.67, 13.33}      },
      {"a discount",                                    -10,   {200, 100},      {-6.67, -3.33}      },
      {"what rounding leaves goes to the largest",      1,     {10, 10.5, 10},  {0.33, 0.34, 0.33}  },
      {"a line of nothing has none",                    -0.05, {0, 5, 0, 10},   {0, -0.02, 0, -0.03}},
      {"a line that takes off bears less than nothing", 90,    {100, -10},      {100, -10}          },
      {"a paisa over many lines is the largest line's", 0.01,  {1, 2, 1, 1, 1}, {0, 0.01, 0, 0, 0}  },
      {"goods of nothing bear none",                    50,    {100, -100},     {0, 0}              },
      {"nor do no lines",                               50,    {},              {}                  },
  };
  for (const Case& c : cases) EXPECT_EQ(spread(c.net, c.amounts), c.shares) << c.what;
}

// Of 300 of goods 80 come back: 8 of the discount, 5.33 of the packing, 13.33 of the freight, together 10.66.
TEST(Charges, GoBackWithTheirPartOfTheGoods) {
  const Charges billed{.discount = 30, .packing = 20, .freight = 50};
  EXPECT_EQ(partOf(billed, 80.0 / 300, 10.67), (Charges{.discount = 8, .packing = 5.33, .freight = 13.34}));
  EXPECT_EQ(partOf(billed, 1, 40), billed);
  EXPECT_EQ(partOf({.discount = 30}, 80.0 / 300, -8.01), (Charges{.discount = 8.01}));
}
