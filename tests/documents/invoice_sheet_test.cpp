#include "documents/invoice_sheet.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "expected_cells.h"
#include "formats/sheet3.h"
#include "invoice_fixture.h"

namespace {

using workbook::Value;

class InvoiceSheetTest : public InvoiceTest {
 protected:
  // Two ordinary lines, one of the category MISC between them, one without a category.
  void mixedBill() {
    bill(7, {
                {"I0000002", 5, 450.5, 2.5, 2196.19, 9,   0, 197.66, 0, "WITH CAP"},
                {"MISC",     1, 50,    0,   50,      9,   0, 4.5,    0, "PACKING" },
                {"I0000001", 2, 799,   0,   1598,    2.5, 0, 39.95,  0, "."       },
                {"I0000003", 1, 10,    0,   10,      6,   0, 0.6,    0, "LOOSE"   },
    });
  }
  FilledSheet sheet(double number, const std::string& kind = "SALE") {
    return invoiceSheet(data(), "SHREE GANESH TRADERS", *data().first("SELECT * FROM COMP_DET"), number,
                        kind);
  }
  static int column(std::string_view field) { return formats::sheet3::fieldColumn(field); }
};

TEST_F(InvoiceSheetTest, HoldsTheFixedCells) {
  mixedBill();
  // 2196.19 + 50 + 1598 + 10 = 3854.19 and twice 242.71 of tax make 4339.61, rounded to 4340.
  const auto made = sheet(7);
  expectCompanyPairs(made.cells);
  expectCells(made.cells, {
                              {1, 3,  "SHREE GANESH TRADERS"                              },
                              {2, 1,  "INVOICE"                                           },
                              {2, 6,  "FOUR THOUSAND THREE HUNDRED FOURTY ONLY"           },
                              {2, 8,  ".."                                                },
                              {2, 10, "FOUR HUNDRED EIGHTY FIVE AND FOURTY TWO PAISE ONLY"},
  });
}

TEST_F(InvoiceSheetTest, PutsLinesAndOtherLinesInTheirBlocks) {
  mixedBill();
  const auto made = sheet(7);
  EXPECT_EQ(made.lines, 4);
  const int serial = column("SALEITM.SR_NO"), item = column("ITEM.ITEM_NAME"),
            detail = column("SALEITM.ITEM_DESC");
  expectCells(made.cells, {
                              {6,   column("SALE.BILL_NO"),       "BILL_NO"                            },
                              {6,   1,                            "SALE.VOUCH_NO"                      },
                              {7,   1,                            Value()                              },
                              {8,   serial,                       1                                    },
                              {8,   item,                         "STEEL BOTTLE"                       },
                              {8,   detail,                       "WITH CAP"                           },
                              {8,   column("SALE.VOUCH_DT"),      Value::date(*parseDate("15/06/2026"))},
                              {8,   column("SALE.ORDER_DT"),      "15/Jun/2026"                        },
                              {8,   column("SALE.GR_DATE"),       Value::date(*parseDate("16/06/2026"))},
                              {8,   column("SALEITM.RATE"),       450.5                                },
                              {8,   column("ACCOUNT.ACC_NAME"),   "RAJESH & SONS"                      },
                              {8,   column("ACCOUNT.STATECD"),    24                                   },
                              {8,   column("ACCOUNT_1.ACC_NAME"), Value()                              },
                              {8,   column("TCITY"),              "SURAT"                              },
                              {8,   134,                          Value()                              },
                              {9,   serial,                       3                                    },
                              {9,   item,                         "COTTON SHIRT"                       },
                              {9,   column("SALE.NET_AMT"),       4340                                 },
                              {10,  serial,                       Value()                              },
                              {508, serial,                       2                                    },
                              {508, detail,                       "PACKING"                            },
                              {509, serial,                       Value()                              },
  });
}

TEST_F(InvoiceSheetTest, NamesTheFieldsThatDesignsRead) {
  mixedBill();
  const auto made = sheet(7);
  const auto& fields = formats::sheet3::fields(formats::sheet3::Query::Bill);
  ASSERT_EQ(fields.size(), 133u);
  for (size_t j = 0; j < fields.size(); ++j) {
    const auto name = made.cells.at(6, static_cast<int>(j) + 1);
    ASSERT_TRUE(name.text()) << fields[j];
    const auto bare = fields[j].substr(fields[j].find('.') + 1);
    const std::string& found = *name.text();
    EXPECT_TRUE(sameText(found, fields[j]) || sameText(found, bare) || startsWithNoCase(found, fields[j]))
        << "column " << j + 1 << " is " << found << ", not " << fields[j];
  }
}

TEST_F(InvoiceSheetTest, SumsItemsHsnCodesAndRates) {
  mixedBill();
  const auto made = sheet(7);
  expectCells(made.cells, {
  // By item: no MISC, no item without a category, sorted by name.
                              {300,  1,   "ITEM_NAME"                                         },
                              {300,  2,   "QTY1"                                              },
                              {301,  1,   Value()                                             },
                              {302,  1,   "COTTON SHIRT"                                      },
                              {302,  2,   2                                                   },
                              {302,  4,   1598                                                },
                              {303,  1,   "STEEL BOTTLE"                                      },
                              {303,  3,   450.5                                               },
                              {303,  5,   2591.51                                             },
                              {303,  11,  2.5                                                 },
                              {304,  1,   Value()                                             },
 // By HSN code: all lines, the MISC item has no code.
                              {1999, 1,   "FOUR HUNDRED EIGHTY FIVE AND FOURTY TWO PAISE ONLY"},
                              {2000, 3,   "CAMT"                                              },
                              {2002, 8,   50                                                  },
                              {2003, 1,   "48202000"                                          },
                              {2004, 1,   "62052000"                                          },
                              {2004, 2,   2.5                                                 },
                              {2004, 3,   39.95                                               },
                              {2005, 1,   "73239390"                                          },
                              {2005, 8,   2196.19                                             },
                              {2006, 8,   Value()                                             },
 // By rate, from column 120.
                              {1,    120, "CGSTRT"                                            },
                              {2,    120, Value()                                             },
                              {3,    120, 2.5                                                 },
                              {4,    120, 6                                                   },
                              {5,    120, 9                                                   },
                              {5,    123, 202.16                                              },
                              {5,    126, 2246.19                                             },
                              {7,    120, Value()                                             },
 // The sales account, from column 40.
                              {3,    41,  "ACC_CD"                                            },
                              {4,    41,  "X90002"                                            },
  });
}

TEST_F(InvoiceSheetTest, KnowsOtherKindsAndMissingBills) {
  mixedBill();
  const auto saleReturn = sheet(7, "SALERET");
  EXPECT_TRUE(saleReturn.cells.at(2002, 8).number());  // the HSN summary stays
  EXPECT_TRUE(saleReturn.cells.at(1, 120).empty());    // its own book holds nothing
  EXPECT_THROW(sheet(7, "PURCH"), DatabaseError);      // the purchase query stands nowhere
  EXPECT_EQ(sheet(8).lines, 0);
  EXPECT_TRUE(sheet(8).cells.cells().empty());
}

TEST_F(InvoiceSheetTest, LeavesOutForeignTotalsThatAreNullOrMinusOne) {
  mixedBill();
  const auto words = [&](const char* stored) {
    data().exec(std::string("UPDATE SALE SET CUR_TOTAMT = ") + stored);
    return sheet(7).cells.at(2, 8);
  };
  EXPECT_EQ(words("NULL"), Value());
  EXPECT_EQ(words("-1"), Value());
  EXPECT_EQ(words("-0.5"), Value(" AND FIFTY PAISE ONLY"));
  EXPECT_EQ(words("12"), Value("TWELVE ONLY"));
}

TEST_F(InvoiceSheetTest, ABillOfOtherLinesOnlyStandsFromRow508) {
  bill(9, {
              {"MISC", 1, 50, 0, 50, 0, 0, 0, 0, "FREIGHT"},
              {"MISC", 0, 0,  0, 20, 0, 0, 0, 0, "LABOUR" }
  });
  const auto made = sheet(9);
  const int detail = column("SALEITM.ITEM_DESC");
  EXPECT_EQ(made.lines, 2);
  expectCells(made.cells, {
                              {8,   detail, Value()  },
                              {508, detail, "FREIGHT"},
                              {509, detail, "LABOUR" },
                              {300, 1,      Value()  },
  });
}

}  // namespace
