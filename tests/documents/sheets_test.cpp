#include "documents/invoice_sheet.h"

#include "base/text.h"
#include "expected_cells.h"
#include "formats/sheet3.h"
#include "papers_fixture.h"

// The data sheets of all papers, which designs read by position.
namespace {

using formats::sheet3::Query;

constexpr const char* kCompany = "SHREE GANESH TRADERS";

Row company() { return *data().first("SELECT * FROM COMP_DET"); }

FilledSheet invoice(double number, const std::string& kind = "SALE") {
  return invoiceSheet(data(), kCompany, company(), number, kind);
}

class Sheets : public PapersTest {
 protected:
  // Two ordinary lines, one of the category MISC between them, one without a category: 2196.19 + 50 +
  // 1598 + 10 = 3854.19 and twice 242.71 of tax make 4339.61, rounded to 4340.
  static FilledSheet mixedBill() {
    bill(7, {
                {"I0000002", 5, 450.5, 2.5, 2196.19, 9,   0, 197.66, 0, "WITH CAP"},
                {"MISC",     1, 50,    0,   50,      9,   0, 4.5,    0, "PACKING" },
                {"I0000001", 2, 799,   0,   1598,    2.5, 0, 39.95,  0, "."       },
                {"I0000003", 1, 10,    0,   10,      6,   0, 0.6,    0, "LOOSE"   },
    });
    return invoice(7);
  }
};

// Labels in row 3 over values in row 4.
// clang-format off
const ExpectedRow kCompanyRows[] = {
    {3, 1, 28,
     "1 12, ASHRAM ROAD | 3 079-26580001 | 5 9825012345 | 9 STATE | 16 BANK NAME | 17 BRANCH | 18 IFSC |"
     " 19 AC_NO | 20 EMAIL | 24 GSTINNO | 26 STATECD | 27 CITY | 28 STATE"                },
    {4, 1, 28,
     "9 GUJARAT | 16 STATE BANK OF INDIA | 17 NAVRANGPURA | 19 30012345678 | 20 ganesh@example.com |"
     " 24 24ABCDE1234F1Z5 | 26 24 | 27 . | 28 AHMEDABAD"},
};
// clang-format on

// clang-format off
// 46188 is 15 June 2026.
TEST_F(Sheets, OfABill) {
  const auto made = mixedBill();
  EXPECT_EQ(made.lines, 4);
  expectRows(made.cells, {
      {1, 1, 119, "3 SHREE GANESH TRADERS"},
      {2, 1, 119, "1 INVOICE | 6 FOUR THOUSAND THREE HUNDRED FOURTY ONLY | 8 .. |"
                  " 10 FOUR HUNDRED EIGHTY FIVE AND FOURTY TWO PAISE ONLY"},
      kCompanyRows[0],
      kCompanyRows[1],
      // Lines; those of the category MISC from row 508.
      {7, 1, 200, ""},
      {8, 1, 25, "1 7 | 2 46188 | 3 TAX | 4 007 | 5 SA | 6 7 | 7 PO/7 | 8 A00001 | 9 X90002 | 11 0 | 12 3854.19 |"
                 " 13 0.39 | 14 4340 | 15 GOODS ONCE SOLD | 16 4 CARTONS | 17 9 | 19 LR-4471 | 20 46189 |"
                 " 21 VRL LOGISTICS | 23 SURAT | 25 15/Jun/2026"},
      {8, 26, 51, "26 242.71 | 27 242.71 | 28 0 | 29 7 | 30 46188 | 31 SA | 32 1 | 33 I0000002 | 34 PCS | 35 5 |"
                  " 36 450.5 | 37 2.5 | 38 2196.19 | 39 2591.51 | 40 0 | 41 WITH CAP | 42 9 | 43 9 | 44 0 |"
                  " 45 197.66 | 46 197.66 | 47 0 | 48 STEEL BOTTLE | 49 73239390 | 50 18 | 51 RAJESH & SONS"},
      {8, 52, 74, "52 R PATEL | 53 PLOT 14 | 54 . | 56 UDHNA | 57 SURAT | 58 394210 | 59 9898055555 | 60 0 |"
                  " 61 24AAACR5055K1Z7 | 62 24"},  // no consignee
      {8, 134, 200, ""},
      {9, 32, 41, "32 3 | 33 I0000001 | 34 PCS | 35 2 | 36 799 | 37 0 | 38 1598 | 39 1677.9 | 40 0 | 41 ."},
      {10, 1, 200, ""},
      {508, 32, 41, "32 2 | 33 MISC | 34 PCS | 35 1 | 36 50 | 37 0 | 38 50 | 39 59 | 40 0 | 41 PACKING"},
      {509, 1, 200, ""},
      // By item: no MISC, no item without a category, sorted by name.
      {300, 1, 200, "1 ITEM_NAME | 2 QTY1 | 3 Rate | 4 AMT | 5 NAMT | 6 item_sname | 7 CGSTRT | 8 SGSTRT | 9 IGSTRT |"
                    " 10 hsncode | 11 SALE_DISC | 12 SALE_DISC1 | 13 DISC3 | 14 DISC4"},
      {301, 1, 200, ""},
      {302, 1, 11, "1 COTTON SHIRT | 2 2 | 3 799 | 4 1598 | 5 1677.9 | 6 . | 7 2.5 | 8 2.5 | 9 0 | 10 62052000 | 11 0"},
      {303, 1, 11, "1 STEEL BOTTLE | 2 5 | 3 450.5 | 4 2196.19 | 5 2591.51 | 6 . | 7 9 | 8 9 | 9 0 | 10 73239390 | 11 2.5"},
      {304, 1, 200, ""},
      // By HSN code: all lines, the MISC item has no code.
      {1999, 1, 200, "1 FOUR HUNDRED EIGHTY FIVE AND FOURTY TWO PAISE ONLY"},
      {2000, 1, 200, "1 hsncode | 2 CGSTRT | 3 CAMT | 4 SGSTRT | 5 SAMT | 6 IGSTRT | 7 IAMT | 8 ITMATM | 9 NAMT |"
                     " 10 NQTY | 11 SIZE_CD"},
      {2002, 1, 200, "1 . | 2 9 | 3 4.5 | 4 9 | 5 4.5 | 6 0 | 7 0 | 8 50 | 9 59 | 10 1 | 11 PCS"},
      {2003, 1, 200, "1 48202000 | 2 6 | 3 0.6 | 4 6 | 5 0.6 | 6 0 | 7 0 | 8 10 | 9 11.2 | 10 1 | 11 PCS"},
      {2004, 1, 200, "1 62052000 | 2 2.5 | 3 39.95 | 4 2.5 | 5 39.95 | 6 0 | 7 0 | 8 1598 | 9 1677.9 | 10 2 | 11 PCS"},
      {2005, 1, 200, "1 73239390 | 2 9 | 3 197.66 | 4 9 | 5 197.66 | 6 0 | 7 0 | 8 2196.19 | 9 2591.51 | 10 5 | 11 PCS"},
      {2006, 1, 200, ""},
      // By rate, from column 120.
      {1, 120, 128, "120 CGSTRT | 121 SGSTRT | 122 IGSTRT | 123 CGSTTAX | 124 SGSTTAX | 125 IGSTTAX | 126 GSTVAL |"
                    " 127 VOUCH_NO | 128 BOOK_CD"},
      {2, 120, 128, ""},
      {3, 120, 126, "120 2.5 | 121 2.5 | 122 0 | 123 39.95 | 124 39.95 | 125 0 | 126 1598"},
      {4, 120, 126, "120 6 | 121 6 | 122 0 | 123 0.6 | 124 0.6 | 125 0 | 126 10"},
      {5, 120, 126, "120 9 | 121 9 | 122 0 | 123 202.16 | 124 202.16 | 125 0 | 126 2246.19"},
      {7, 120, 128, ""},
      // The sales account, from column 40.
      {3, 40, 42, "40 GROUP_CD | 41 ACC_CD | 42 ACC_NAME"},
      {4, 40, 42, "40 21 | 41 X90002 | 42 SALES A/C"},
  });
}
// clang-format on

TEST_F(Sheets, SayTheTaxOfOtherStatesInWords) {
  bill(8, {
              {"I0000002", 1, 100, 0, 100, 0, 18, 0, 18}
  });
  EXPECT_EQ(rowText(invoice(8).cells, 1999), "1 EIGHTEEN ONLY");
}

TEST_F(Sheets, LeaveOutTotalsThatAreNullOrMinusOne) {
  mixedBill();
  const std::pair<const char*, const char*> foreign[] = {
      {"NULL", ""                       },
      {"-1",   ""                       },
      {"-0.5", "8  AND FIFTY PAISE ONLY"},
      {"12",   "8 TWELVE ONLY"          },
  };
  for (const auto& [stored, words] : foreign) {
    data().exec(std::string("UPDATE SALE SET CUR_TOTAMT = ") + stored);
    EXPECT_EQ(rowText(invoice(7).cells, 2, 8, 8), words);
  }
  challan(3, 2, 30);
  for (const char* net : {"NULL", "-1"}) {
    data().exec(std::string("UPDATE CHLN SET NET_AMT = ") + net);
    EXPECT_TRUE(challanSheet(data(), "", 3, "CH").cells.at(1, 10).empty());
  }
}

// clang-format off
TEST_F(Sheets, OfADeliverySlip) {
  bill(7, {
              {"I0000002", 5, 100, 0, 500, 9, 0, 45,  0},
              {"I0000002", 1, 50,  0, 50,  9, 0, 4.5, 0},
              {"MISC",     1, 20,  0, 20,  0, 0, 0,   0},
  });
  data().exec("UPDATE COMP_DET SET PLA_NO = 'PLA 9'");
  data().exec("UPDATE SALE SET CASH_AMT = 69");
  const auto sheet = [&] { return deliverySlipSheet(data(), kCompany, company(), 7); };
  const auto made = sheet();
  EXPECT_EQ(made.lines, 3);
  expectRows(made.cells, {
      {1, 1, 200, "3 SHREE GANESH TRADERS | 27 24ABCDE1234F1Z5 | 28 GUJARAT | 29 24 |"
                  " 120 CGSTRT | 121 SGSTRT | 122 CGSTTAX | 123 SGSTTAX | 124 GSTVAL | 125 RATEOFTAX"},
      {2, 1, 200, "1 TAX INVOICE | 6 SIX HUNDRED SIXTY NINE ONLY | 7 SIX HUNDRED  ONLY"},
      {3, 1, 200, "1 12, ASHRAM ROAD | 3 079-26580001 | 5 9825012345 | 12 PLA 9 | 13 STATE BANK OF INDIA |"
                  " 14 NAVRANGPURA | 16 30012345678 | 17 ganesh@example.com |"
                  " 120 0 | 121 0 | 122 0 | 123 0 | 124 20 | 125 0"},
      {4, 1, 200, "120 9 | 121 9 | 122 49.5 | 123 49.5 | 124 550 | 125 18"},
      {6, 1, 2, "1 VOUCH_NO | 2 SALE.VOUCH_DT"},
      {8, 1, 11, "1 7 | 2 46188 | 3 TAX | 4 007 | 5 SA | 6 7 | 7 A00001 | 9 69 | 10 0 | 11 570"},
      {10, 36, 42, "36 3 | 37 MISC | 38 PCS | 39 1 | 40 20 | 41 0 | 42 20"},
      {300, 1, 200, "1 ITEM_NAME | 2 QTY1 | 3 RT | 4 AMT | 5 NAMT | 6 ITEM_SNAME | 7 HSNCODE | 8 RATEOFTAX"},
      {302, 1, 200, "1 STEEL BOTTLE | 2 1 | 3 50 | 4 50 | 5 59 | 6 . | 7 73239390 | 8 18"},
      {303, 1, 200, "1 STEEL BOTTLE | 2 5 | 3 100 | 4 500 | 5 590 | 6 . | 7 73239390 | 8 18"},
      {304, 1, 200, ""},
      {500, 1, 200, "1 HSNCODE | 2 QTY1 | 3 RT | 4 AMT | 5 NAMT"},
      {502, 1, 200, "1 73239390 | 2 6 | 3 75 | 4 550 | 5 649"},
      {503, 1, 200, ""},
  });
  for (const auto& [type, title] : {std::pair("JOB", "Jobwork Invoice"), std::pair("RETAIL", "Delivery Slip")}) {
    data().exec("UPDATE SALE SET BL_TYPE = ?, CASH_AMT = NULL", type);
    EXPECT_EQ(rowText(sheet().cells, 2, 1, 1), std::string("1 ") + title);
    EXPECT_TRUE(sheet().cells.at(2, 7).empty());
  }
}

// clang-format on

TEST_F(Sheets, NameTheFieldsThatDesignsRead) {
  longQuotation(1, 1);
  challan(1, 1);
  longBill(7, 1);
  EXPECT_EQ(formats::sheet3::fields(Query::Bill).size(), 133u);
  const std::pair<Query, FilledSheet> sheets[] = {
      {Query::Bill, invoice(7)},
      {      Query::Quotation, quotationSheet(data(), "", company(), 1, "QUOTATION")},
      {    Query::Challan,                    challanSheet(data(),                        "", 1, "CH")},
      { Query::Slip,                 deliverySlipSheet(data(),                     "", company(), 7)},
  };
  for (const auto& [query, sheet] : sheets) {
    int column = 0;
    for (const auto& field : formats::sheet3::fields(query)) {
      const auto name = sheet.cells.at(6, ++column);
      ASSERT_TRUE(name.text()) << field;
      const auto bare = field.substr(field.find('.') + 1);
      EXPECT_TRUE(sameText(*name.text(), field) || startsWithNoCase(*name.text(), bare) ||
                  startsWithNoCase(*name.text(), field))
          << "column " << column << " is " << *name.text() << ", not " << field;
    }
    EXPECT_TRUE(sheet.cells.at(6, column + 1).empty());
  }
}

}  // namespace
