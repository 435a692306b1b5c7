#include "documents/address_card.h"
#include "documents/challan.h"
#include "documents/delivery_slip.h"
#include "documents/quotation.h"
#include "expected_cells.h"
#include "invoice_fixture.h"

// Quotation, challan, delivery slip and address card: their data sheets, and what becomes of
// them with a design of a few cells.
namespace {

namespace fs = std::filesystem;
using workbook::Value;

class OtherPapers : public InvoiceTest {
 protected:
  void SetUp() override {
    session().mquotformat = 7;
    session().mchlnformat = 8;
    session().mprnmode = "PDF";
  }
  static Row company() { return *data().first("SELECT * FROM COMP_DET"); }

  // Two lines, one of them an item by its name alone.
  static void quotation(double number) {
    data().exec(
        "INSERT INTO QUOT (VOUCH_NO, VOUCH_DT, PARTY_CD, BL_PARTY_CD, TO_NAME, DESC1, ITEM_AMT, NET_AMT, "
        "TCGST,"
        " TSGST, TIGST, ENTRY_TYP) VALUES (?, '2026-06-15', 'A00001', 'A00002', 'R PATEL', '30 DAYS', 300, "
        "354,"
        " 27, 27, 0, 'QUOTATION')",
        number);
    const char* const line =
        "INSERT INTO QUOTITM (VOUCH_NO, VOUCH_DT, SRNO, ITEM_CD, ITEM_NAME, ITEM_SNAME, SIZE_CD, QUANTITY, "
        "RATE,"
        " AMOUNT, ENTRY_TYP, CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT)"
        " VALUES (?, '2026-06-15', ?, ?, ?, '.', 'PCS', '2', '100', ?, 'QUOTATION', 9, 9, 0, ?, ?, 0)";
    data().exec(line, number, 1, "I0000002", "STEEL BOTTLE", "200", 18, 18);
    data().exec(line, number, 2, "MISC", "PACKING", "100", 9, 9);
  }
  static void challan(double number, int lines, const ::Value& net) {
    data().exec(
        "INSERT INTO CHLN (VOUCH_NO, VOUCH_DT, BOOK_CD, PARTY_CD, CHLN_NO, CHLN_TYP, NET_AMT)"
        " VALUES (?, '2026-06-15', 'CH', 'A00001', '00' || ?, 'SALE', ?)",
        number, number, net);
    for (int i = 1; i <= lines; ++i)
      data().exec(
          "INSERT INTO CHLNITM (VOUCH_NO, VOUCH_DT, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, QUANTITY, RATE, "
          "NET_AMOUNT,"
          " DESC1, ITEM_DESC) VALUES (?, '2026-06-15', 'CH', ?, 'I0000001', 'PCS', ?, 10, ?, '.', 'NOTE')",
          number, i, i, 10 * i);
  }

  std::string shownOnce() {
    if (host.viewed.size() != 1 || !host.messages.empty()) return "not shown: " + host.lastMessage();
    return fs::relative(host.viewed.front(), folder.path()).string();
  }

  Screens screens;
  PaperHost host{screens, folder / "printed.pdf"};
};

TEST_F(OtherPapers, TheSheetOfAQuotation) {
  quotation(5);
  const auto made = quotationSheet(data(), "SHREE GANESH TRADERS", company(), 5, "QUOTATION");
  EXPECT_EQ(made.lines, 2);
  expectCompanyPairs(made.cells);
  expectCells(made.cells, {
                              {1,    3,  "SHREE GANESH TRADERS"               },
                              {2,    1,  "QUOTATION"                          },
                              {2,    6,  "THREE HUNDRED FIFTY FOUR ONLY"      },
                              {4,    1,  Value()                              },
                              {6,    1,  "QUOT.VOUCH_DT"                      },
                              {6,    4,  "to_name"                            },
                              {7,    1,  Value()                              },
                              {8,    1,  Value::date(*parseDate("15/06/2026"))},
                              {8,    4,  "R PATEL"                            },
                              {8,    18, "STEEL BOTTLE"                       },
                              {8,    21, "2"                                  },
                              {8,    29, "RAJESH & SONS"                      },
                              {8,    76, "MEHTA BROTHERS"                     },
                              {9,    18, "PACKING"                            },
                              {10,   1,  Value()                              },
                              {1000, 1,  "CGSTRT"                             },
                              {1001, 1,  Value()                              },
                              {1002, 1,  9                                    },
                              {1002, 4,  27                                   },
                              {1002, 7,  300                                  },
                              {1003, 1,  Value()                              },
  });
  EXPECT_EQ(quotationSheet(data(), "", company(), 5, "PROFORMA").lines, 0);
}

TEST_F(OtherPapers, TheSheetOfAChallan) {
  challan(3, 2, 30);
  const auto made = challanSheet(data(), "SHREE GANESH TRADERS", 3, "CH");
  EXPECT_EQ(made.lines, 2);
  expectCells(made.cells, {
                              {1, 3,  "SHREE GANESH TRADERS"},
                              {1, 10, "THIRTY ONLY"         },
                              {2, 1,  "DELIVERY CHALLAN"    },
                              {3, 1,  "ADDRS"               },
                              {4, 1,  "12, ASHRAM ROAD"     },
                              {3, 17, "GSTINNO"             },
                              {4, 17, "24ABCDE1234F1Z5"     },
                              {6, 2,  "VOUCH_NO"            },
                              {7, 2,  Value()               },
                              {8, 2,  3                     },
                              {8, 12, 1                     },
                              {8, 16, "RAJESH & SONS"       },
                              {9, 12, 2                     },
                              {9, 14, 20                    },
                              {9, 55, "NOTE"                },
  });
  for (const ::Value& net : {::Value(), ::Value(-1)}) {
    data().exec("UPDATE CHLN SET NET_AMT = ?", net);
    EXPECT_TRUE(challanSheet(data(), "", 3, "CH").cells.at(1, 10).empty());
  }
  EXPECT_EQ(challanSheet(data(), "", 3, "SA").lines, 0);
}

TEST_F(OtherPapers, TheSheetOfADeliverySlip) {
  bill(7, {
              {"I0000002", 5, 100, 0, 500, 9, 0, 45,  0},
              {"I0000002", 1, 50,  0, 50,  9, 0, 4.5, 0},
              {"MISC",     1, 20,  0, 20,  0, 0, 0,   0},
  });
  data().exec("UPDATE COMP_DET SET PLA_NO = 'PLA 9'");
  data().exec("UPDATE SALE SET CASH_AMT = 69");
  const auto sheet = [&] { return deliverySlipSheet(data(), "SHREE GANESH TRADERS", company(), 7); };
  const auto made = sheet();
  EXPECT_EQ(made.lines, 3);
  expectCells(made.cells, {
                              {1,   3,   "SHREE GANESH TRADERS"       },
                              {2,   1,   "TAX INVOICE"                },
                              {2,   6,   "SIX HUNDRED SIXTY NINE ONLY"},
                              {2,   7,   "SIX HUNDRED  ONLY"          },
                              {3,   5,   "9825012345"                 },
                              {3,   12,  "PLA 9"                      },
                              {3,   13,  "STATE BANK OF INDIA"        },
                              {3,   15,  Value()                      },
                              {3,   17,  "ganesh@example.com"         },
                              {1,   27,  "24ABCDE1234F1Z5"            },
                              {1,   28,  "GUJARAT"                    },
                              {1,   29,  "24"                         },
                              {6,   1,   "VOUCH_NO"                   },
                              {8,   1,   7                            },
                              {10,  39,  1                            },
                              {300, 1,   "ITEM_NAME"                  },
                              {302, 1,   "STEEL BOTTLE"               },
                              {302, 3,   50                           },
                              {303, 2,   5                            },
                              {304, 1,   Value()                      },
                              {500, 1,   "HSNCODE"                    },
                              {502, 1,   "73239390"                   },
                              {502, 2,   6                            },
                              {502, 3,   75                           },
                              {502, 5,   649                          },
                              {503, 1,   Value()                      },
                              {1,   120, "CGSTRT"                     },
                              {3,   120, 0                            },
                              {4,   120, 9                            },
                              {4,   122, 49.5                         },
                              {4,   124, 550                          },
  });
  const std::pair<const char*, const char*> titles[] = {
      {"JOBWORK", "Jobwork Invoice"},
      {"RETAIL",  "Delivery Slip"  },
  };
  for (const auto& [type, title] : titles) {
    data().exec("UPDATE SALE SET BL_TYPE = ?, CASH_AMT = NULL", type);
    EXPECT_EQ(sheet().cells.at(2, 1), Value(title));
    EXPECT_TRUE(sheet().cells.at(2, 7).empty());
  }
}

TEST_F(OtherPapers, TheSheetOfAnAddressCard) {
  const auto made = addressCardSheet(data(), "SHREE GANESH TRADERS", company(), "A00001");
  expectCells(made.cells, {
                              {1,  1,  "RAJESH & SONS"       },
                              {2,  1,  "PLOT 14"             },
                              {4,  1,  Value()               },
                              {5,  1,  "UDHNA"               },
                              {6,  1,  "SURAT"               },
                              {7,  1,  "394210"              },
                              {8,  1,  "9898055555"          },
                              {12, 1,  "SHREE GANESH TRADERS"},
                              {16, 1,  "AHMEDABAD"           },
                              {1,  5,  "Company"             },
                              {1,  6,  "ADDress"             },
                              {2,  5,  "SHREE GANESH TRADERS"},
                              {2,  6,  "12, ASHRAM ROAD"     },
                              {2,  8,  "9825012345"          },
                              {1,  15, "STATE"               },
                              {2,  17, "24ABCDE1234F1Z5"     },
                              {1,  23, "Ex Detail"           },
                              {2,  22, "30012345678"         },
                              {2,  23, Value()               },
                              {3,  8,  "PANNO"               },
                              {4,  7,  "24AAACR5055K1Z7"     },
                              {4,  8,  "9898055555"          },
                              {3,  10, "PHONE NO"            },
                              {4,  9,  Value()               },
  });
  EXPECT_EQ(addressCardSheet(data(), "", company(), "A09999").lines, 0);
}

TEST_F(OtherPapers, AreMadeUnderTheirNames) {
  quotation(5);
  challan(3, 1, 30);
  longBill(7, 1);
  const struct {
    std::function<void()> make;
    const char *sheet, *pdf, *copy, *mode;
  } cases[] = {
      {[&] { RenderQuotation(host, 5, "QUOTATION"); },        "other",    "BILLS/MIRAV_QUOT_5.pdf", "QUOTITM.xlsx", ""   },
      {[&] { RenderChallan(host, 3, "CH"); },                 "CHLNSA",   "BILLS/MIRAV_CH_3.pdf",   "INVGEN.xlsx",  "PDF"},
      {[&] { RenderDeliverySlip(host, 7, "Delivery Slip"); }, "D_C",      "BILLS/MIRAV_INV_7.pdf",  "INVGEN.xlsx",
       "PDF"                                                                                                             },
      {[&] { RenderDeliverySlip(host, 7, "CHLNPRN"); },       "D_C",      "BILLS/MIRAV_CH_7.pdf",   "INVGEN.xlsx",  "PDF"},
      {[&] { RenderAddressCard(host, "A00001", "adcrd"); },   "MAILLABL", "BILLS/ADCARD.PDF",       "voucher.xlsx",
       "PDF"                                                                                                             },
  };
  for (const auto& c : cases) {
    session().mprnmode = "PDF";
    session().mprnsheet = c.sheet;
    host.viewed.clear();
    c.make();
    EXPECT_EQ(shownOnce(), c.pdf);
    EXPECT_EQ(session().mpdfpath, (folder / c.pdf).string());
    EXPECT_EQ(session().mprnmode, c.mode);
    EXPECT_TRUE(fs::exists(folder / "BILLS" / c.copy));
  }
}

TEST_F(OtherPapers, SayWhatIsMissing) {
  quotation(5);
  session().mquotformat = 70;
  RenderQuotation(host, 5, "QUOTATION");
  EXPECT_EQ(host.lastMessage(), "Format File Is Missing Or Deleted Pl Contact Vendor");
  RenderQuotation(host, 6, "QUOTATION");
  RenderChallan(host, 6, "CH");
  RenderDeliverySlip(host, 6, "Delivery Slip");
  ASSERT_EQ(host.messages.size(), 4u);
  for (size_t i = 1; i < 4; ++i) EXPECT_EQ(host.messages[i].text, "Wrong Selection");
  RenderAddressCard(host, "A09999", "adcrd");
  EXPECT_EQ(host.lastMessage(), "No Records");
  data().exec("DELETE FROM COMP_DET");
  RenderAddressCard(host, "A00001", "adcrd");
  EXPECT_EQ(host.lastMessage(), "Company Details Missing");
  RenderQuotation(host, 5, "QUOTATION");
  EXPECT_EQ(host.lastMessage(), "Company Details Not Filled Pl. Check");
  EXPECT_TRUE(host.viewed.empty());
}

}  // namespace
