#include "frame/number_series.h"
#include "vouchers/bill_fixture.h"
#include "vouchers/numbering.h"

namespace {

class SeriesTest : public BillTest {
 protected:
  // "TAX 0001, RETAIL 7" as sale bills, in the order of their voucher numbers.
  void stored(const std::string& bills) {
    db().exec("DELETE FROM SALE");
    int voucher = 0;
    for (const std::string& bill : split(bills, ", "))
      if (const auto parts = split(bill, " "); parts.size() == 2)
        db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (?, 'SA', ?, ?)", ++voucher,
                  parts[0], parts[1]);
  }
  void only(NumberSeries series) {
    db().exec("DELETE FROM SERIES");
    series.book = "SA";
    storeSeries(db(), series);
  }
  static NumberSeries set(const std::string& prefix, int width, const std::string& suffix = "",
                          double first = 1, const std::string& type = "") {
    return {.type = type, .prefix = prefix, .suffix = suffix, .width = width, .first = first};
  }
};

TEST_F(SeriesTest, GoOnFromTheHighestNumberOfTheirPrefixAndSuffix) {
  struct Case {
    NumberSeries series;
    std::string bills, next;
  };
  const NumberSeries inv = set("INV/{yy}/", 4);
  // clang-format off
  for (const auto& [series, bills, next] : std::vector<Case>{
           {inv,                          "",                                                      "INV/26-27/0001"},
           {inv,                          "TAX INV/26-27/0009, TAX INV/26-27/0003",                "INV/26-27/0010"},
           {inv,                          "RETAIL INV/26-27/0009, TAX INV/26-27/0003",             "INV/26-27/0010"},
           {inv,                          "TAX INV/26-27/00A9, TAX INV/26-27/0003, TAX INV/25-26/0077", "INV/26-27/0004"},
           {inv,                          "TAX INV/26-27/9999",                                    "INV/26-27/10000"},
           {inv,                          "TAX INV/26-27/9999, TAX INV/26-27/10007",               "INV/26-27/10008"},
           {set("", 3, "-{yy}"),          "TAX 017-26-27, TAX 900-25-26, TAX 0018-26-27",          "018-26-27"     },
           {set("A", 5, "", 300),         "TAX A00012",                                            "A00300"        },
           {set("R-", 2, "", 1, "RETAIL"), "TAX 0041, TAX R-12",                                   "0001"          },
  }) {
    // clang-format on
    only(series);
    stored(bills);
    EXPECT_EQ(nextBillNumber(db(), saleKind(), "TAX"), next) << bills;
  }
  EXPECT_EQ(nextBillNumber(db(), saleKind(), "RETAIL"), "R-13");
  EXPECT_EQ(nextBillNumber(db(), creditNoteKind(), "RETAIL"), "0001") << "a kind without one";
  storeSeries(db(), {.book = "QUOTATION", .prefix = "Q-", .width = 2});
  db().exec("INSERT INTO QUOT (VOUCH_NO, ENTRY_TYP, REF_NO) VALUES (1, 'QUOTATION', 'Q-07')");
  EXPECT_EQ(nextReference(db(), quotationKind()), "Q-08");
}

TEST_F(SeriesTest, StepOverWhatIsTakenInAnyTypeAndTellWhatBreaksTheLaw) {
  only(set("INV/", 4));
  stored("TAX INV/0001, RETAIL 0002");
  const auto taken = [&](const std::string& number) {
    return isDuplicateBill(db(), saleKind(), {.type = "RETAIL", .number = number, .voucher = 9});
  };
  EXPECT_TRUE(taken("INV/0001"));
  EXPECT_FALSE(taken("INV/0002"));
  EXPECT_EQ(afterInSeries(db(), saleKind(), "TAX", "INV/9999"), "INV/10000");
  EXPECT_EQ(afterInSeries(db(), saleKind(), "TAX", "7"), "INV/0002");
  EXPECT_NE(numberWarning(db(), saleKind(), "TAX", "INV/2026-27/00001"), "");
  EXPECT_EQ(
      numberWarning(db(), saleKind(), "TAX", "BILL-7/A") + numberWarning(db(), debitNoteKind(), "TAX", "7 "),
      "");
}

TEST(SeriesRule, IsHeldToSixteenLawfulSigns) {
  const Date april{std::chrono::year{2026}, std::chrono::April, std::chrono::day{1}};
  const auto refused = [&](const std::string& prefix, int width, const std::string& suffix,
                           double first = 1) {
    return !seriesRefusal({.prefix = prefix, .suffix = suffix, .width = width, .first = first}, april)
                .empty();
  };
  EXPECT_FALSE(refused("INV/{yy}/", 4, "-A"));
  EXPECT_TRUE(refused("INV/{yy}/", 4, "-AB"));
  for (const char* sign : {" ", "_", "%", "અ", "{", "."}) EXPECT_TRUE(refused(sign, 4, "")) << sign;
  EXPECT_TRUE(refused("A", 0, ""));
  EXPECT_TRUE(refused("A", 2, "", 100));
  EXPECT_TRUE(refused("A", 2, "", 1.5));
  EXPECT_EQ(taxYear(april - std::chrono::months{1}), "25-26");
  EXPECT_EQ(taxYear(Date{std::chrono::year{2099}, std::chrono::May, std::chrono::day{1}}), "99-00");
}

}  // namespace
