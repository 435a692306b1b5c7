#include "reports/gst.h"

#include <gtest/gtest.h>

namespace {

TEST(MonthRule, EndsTheMonthOfTheFromDate) {
  const std::pair<const char*, const char*> dates[] = {
      {"01/01/2027", "31/01/2027"},
      {"15/02/2027", "28/02/2027"},
      {"01/02/2028", "28/02/2028"},
      {"30/04/2026", "30/04/2026"},
      {"09/06/2026", "30/06/2026"},
      {"01/09/2026", "30/09/2026"},
      {"01/11/2026", "30/11/2026"},
      {"31/12/2026", "31/12/2026"},
  };
  for (const auto& [from, to] : dates) EXPECT_EQ(monthEnd(from), to) << from;
}

TEST(MonthRule, IsForReturnsOnly) {
  for (const char* key : {"GSTR1-RD", "GSTR1-URD", "GSTR3B", "BTOCSTGENPU", "HSNPR", "GSTR2-SMRY"})
    EXPECT_TRUE(toDateRule(key)) << key;
  for (const char* key : {"ONACRCV", "SALEBILLSUMMARY", "gstr1-rd", ""}) EXPECT_FALSE(toDateRule(key)) << key;
}

}  // namespace
