#include <gtest/gtest.h>

#include <fstream>

#include "gst/gstr3b.h"
#include "gst/period.h"
#include "gst/set_off.h"
#include "gst/tables.h"
#include "masters/gstin.h"
#include "support/temp_folder.h"

namespace {

Date day(const char* text) { return *parseDate(text); }

TEST(GstTables, AShopCorrectsARowAndIsToldOfThoseThatAreBroken) {
  const TempFolder folder;
  std::ofstream(folder.path() / kGstTablesFile) << "\xEF\xBB\xBFname,key,from,value\r\n"
                                                   "b2cl_limit,,2027-04-01,50000\r\n"
                                                   "# what our sacks are\r\n"
                                                   "uqc,\"katta\",01/07/2017,bag\n"
                                                   "\n"
                                                   "b2cl_limit,,2027-13-01,1\n"
                                                   "b2cl_limit,,2027-05-01,lakh\n"
                                                   "b2cl_limit,2027-05-01,1\n"
                                                   "uqc,SACK,2017-07-01,SAK\n"
                                                   "b2cll,,2027-05-01,1\n"
                                                   "rate,9,2027-04-01,1\n";
  const GstTables tables(folder.path());
  EXPECT_EQ(tables.number(kB2clLimit, "", day("2024-07-31")), 250000);
  EXPECT_EQ(tables.number(kB2clLimit, "", day("2024-08-01")), 100000);
  EXPECT_EQ(tables.number(kB2clLimit, "", day("2027-03-31")), 100000);
  EXPECT_EQ(tables.number(kB2clLimit, "", day("2028-01-01")), 50000);
  EXPECT_EQ(tables.text(kUnitCode, " Katta", day("2026-04-01")), "BAG");
  EXPECT_EQ(tables.text(kUnitCode, "SACK", day("2026-04-01")), "");
  EXPECT_FALSE(tables.isTaken(9, day("2026-04-01")));
  EXPECT_TRUE(tables.isTaken(9, day("2027-04-01")));
  EXPECT_FALSE(tables.isTaken(40, day("2025-09-21")));
  EXPECT_EQ(tables.step(kHsnDigits, 50'000'000, day("2026-04-01")), 4);
  EXPECT_EQ(tables.step(kHsnDigits, 50'000'001, day("2026-04-01")), 6);
  EXPECT_EQ(tables.byStart(kZeroRate, "22030000", day("2026-04-01")), "nongst");
  EXPECT_EQ(tables.byStart(kZeroRate, "220", day("2026-04-01")), "nil");
  std::string told;
  for (const std::string& fault : tables.faults()) told += fault.substr(0, fault.find(':')) + ";";
  EXPECT_EQ(told,
            "gst_tables.csv, line 6;gst_tables.csv, line 7;gst_tables.csv, line 8;gst_tables.csv, line 9;"
            "gst_tables.csv, line 10;");
}

// Owed, credit, then by which credit IGST, CGST and SGST are paid, cash and what is carried on; whole paise.
struct Case {
  const char* why;
  TaxAmounts owed, credit, cash, left;
  Paise igstByCgst, igstBySgst, cgstByIgst, sgstByIgst;
};

TEST(SetOff, FollowsTheOrderOfTheLaw) {
  // clang-format off
  const Case cases[] = {
      {"IGST credit is used up on the others before their own",
       {0, 100, 50, 50, 0}, {0, 160, 50, 50, 0}, {}, {0, 0, 50, 10, 0}, 0, 0, 50, 10},
      {"it goes where own credit does not reach",
       {0, 0, 100, 100, 0}, {0, 100, 100, 0, 0}, {}, {}, 0, 0, 0, 100},
      {"own credit pays IGST, CGST before SGST",
       {0, 100, 20, 20, 0}, {0, 0, 70, 120, 0}, {}, {0, 0, 0, 50, 0}, 50, 50, 0, 0},
      {"CGST and SGST never pay each other",
       {0, 0, 100, 100, 0}, {0, 0, 500, 0, 0}, {0, 0, 0, 100, 0}, {0, 0, 400, 0, 0}, 0, 0, 0, 0},
      {"cess pays itself alone",
       {0, 10, 0, 0, 30}, {0, 0, 0, 0, 50}, {0, 10, 0, 0, 0}, {0, 0, 0, 0, 20}, 0, 0, 0, 0},
      {"more given back than sold is carried on",
       {0, -40, 25, 25, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 10, 0}, {}, 0, 0, 25, 15},
  };
  // clang-format on
  for (const Case& c : cases) {
    const SetOff paid = setOff(c.owed, c.credit);
    EXPECT_EQ(paid.cash, c.cash) << c.why;
    EXPECT_EQ(paid.igst.cgst, c.igstByCgst) << c.why;
    EXPECT_EQ(paid.igst.sgst, c.igstBySgst) << c.why;
    EXPECT_EQ(paid.cgst.igst, c.cgstByIgst) << c.why;
    EXPECT_EQ(paid.sgst.igst, c.sgstByIgst) << c.why;
    EXPECT_EQ(paid.left, c.left) << c.why;
    Paise sides = 0, bank = 0;
    for (const PayingLine& line : payingEntry(paid, "A00009")) {
      sides += line.debit - line.credit;
      if (line.account == "A00009") bank = line.credit;
    }
    EXPECT_EQ(sides, 0) << c.why;
    EXPECT_EQ(bank, c.cash.tax()) << c.why;
  }
  // What is owed under reverse charge no credit pays.
  EXPECT_EQ(setOff({}, {0, 900, 0, 0, 0}, {5000, 18, 0, 0, 0}).cash, (TaxAmounts{0, 18, 0, 0, 0}));
}

TEST(Gstin, ItsFormTellsWhoseItIs) {
  EXPECT_EQ(gstinKind("27AAPFU0939F1ZV"), GstinKind::Regular);
  EXPECT_EQ(gstinKind("2920uno00001unz"), GstinKind::Uin);
  EXPECT_EQ(gstinKind("27AAPFU0939F1CV"), GstinKind::Collector);
  EXPECT_EQ(gstinKind("27MUMA09876A1DZ"), GstinKind::Deductor);
  EXPECT_EQ(gstinKind("24AAA"), GstinKind::None);
  EXPECT_EQ(gstinCheckDigit("29ZZZPC0003C1Z"), '1');
}

TEST(ReturnPeriod, KnowsItsDays) {
  const ReturnPeriod quarter = returnPeriod("Q032027");
  EXPECT_EQ(isoDate(quarter.first()) + isoDate(quarter.last()), "2027-01-012027-03-31");
  EXPECT_EQ(isoDate(returnPeriod("022028").last()), "2028-02-29");
  for (const char* none : {"Q022027", "132026", "012016", "1-2026", ""})
    EXPECT_EQ(returnPeriod(none).month, 0);
}

}  // namespace
