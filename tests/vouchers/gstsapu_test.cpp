#include "vouchers/bill_fixture.h"

namespace {

class Gstsapu : public BillTest {};

}  // namespace

// What the demonstration, which plays two whole bills, does not tell.
TEST_F(Gstsapu, TotalsTheMessageAndTheModes) {
  open();
  EXPECT_EQ(host.screen().caption + "/" + host.screen().escMeans, "SALES ENTRY/Esc = Close");
  host.press("cmdadd");
  EXPECT_EQ(host.screen().escMeans + "/" + host.screen().reason,
            "Esc = Cancel and Exit/Save opens after Parcels");
  EXPECT_EQ(fields({0, 62}), "1|1");
  EXPECT_FALSE(host.at("cmdadd").visible || host.at("CMDSAVE").enabled);
  host.press("CMDCANCEL");
  EXPECT_EQ(host.focus(), "cmdadd");
  startBill();
  EXPECT_EQ(fields({41, 27, 47}), "ANAND|30|TAX");
  host.fillEnter("Text1(5)", "I0000001");
  host.fillEnter("Text1(8)", "34");
  EXPECT_EQ(fields({8, 14}), "34.000|") << "a quantity values nothing by itself";
  host.keys({KeyCode::Enter, KeyCode::Enter});
  EXPECT_EQ(fields({13, 14, 28}), "4616.93|60533.06|0") << "the totals are of the lines before";
  host.enter();
  EXPECT_EQ(fields({14, 18, 26, 28, 38}), "|51299.2|34|60533|-0.06");
  save("OKButton");
  EXPECT_EQ(closingWords, std::string(60, ' ') +
                              "Sale Entry Saved\n   Entry No : 1\n   Party Name : PATEL TRADING CO\n"
                              "   Invoice AMOUNT : 60533\n\n" +
                              std::string(60, ' ') +
                              "___E_Way_Reminder___\n   Value Of Bill Exceeds Rs. 50000/- \n"
                              "   E-Way Bill To Be Generated For Dispatch Of This Bill\n\n"
                              "   Press Print Btn To Print Sales Invoice\n"
                              "   Press New Entry Btn To Enter New Bill Entry");
  EXPECT_EQ(host.onTop() + StandIn::last.value + StandIn::last.reportKey, "dlg11GST INVOICE");
  EXPECT_EQ(host.find("GSTSAPU")->mode, "PRINT");
}

TEST_F(Gstsapu, TaxesFollowTheStatesAndTheOperator) {
  startBill("A00002");
  typeLine("I0000002", "10", "100", "0");
  EXPECT_EQ(line("SELECT CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT, NET_AMOUNT FROM T_SLITM"),
            "0|0|18|0|0|180|1180");
  host.fillEnter("Text1(5)", "I0000004");
  EXPECT_EQ(host.lastMessage(), "SPECIFY RATE OF TAX IN ITEM");
  host.fillEnter("Text1(5)", "I0000002");
  host.fillEnter("Text1(8)", "1");
  host.fillEnter("Text1(9)", "100");
  host.fillEnter("Text1(11)", "-1");
  EXPECT_EQ(host.lastMessage(), "Discount can not be greater than 100%");
  EXPECT_EQ(host.focus() + host.text("Text1(11)"), "Text1(11)");
  host.enter();
  // Back into the tax fields: the rate gives its amount, and a typed amount stands.
  host.fillEnter("Text1(19)", "5");
  EXPECT_EQ(host.focus(), "Text1(31)");
  host.type("9");
  EXPECT_EQ(host.text("Text1(31)"), "5") << "locked until it has been left once";
  host.go("Text1(19)");
  host.fillEnter("Text1(31)", "7.5");
  EXPECT_EQ(host.focus(), "Text1(14)");
  for (const auto& [amount, next] : {
           std::pair{"Text1(13)", "Text1(10)"},
           {"Text1(15)", "Text1(19)"}
  }) {
    host.go(amount);
    host.enter();
    EXPECT_EQ(host.focus(), next);
  }
  host.go("Text1(14)");
  EXPECT_EQ(host.text("Text1(14)"), "107.5");
  host.enter();
  EXPECT_TRUE(host.at("Text1(14)").locked) << "once it has been left";
  EXPECT_EQ(line("SELECT IGSTRT, IGSTAMT, NET_AMOUNT FROM T_SLITM WHERE SR_NO = 2"), "5|7.5|107.5");
}

TEST_F(Gstsapu, WalkingOverwritingAndDeletingLines) {
  startBill();
  typeLine("I0000002", "1", "10", "0");
  typeLine("I0000002", "2", "20", "0");
  typeLine("I0000003", "3", "30", "0");
  EXPECT_EQ(host.text("Text1(18)"), "140");
  host.keys({KeyCode::Up, KeyCode::Up});
  EXPECT_EQ(host.text("Label1(0)") + "/" + host.text("Text1(8)"), "2/2.000");
  // Overwritten it keeps its serial, and the next line comes up.
  typeLine("I0000002", "5", "20", "0");
  EXPECT_EQ(fields({5, 18}), "I0000003|200");
  host.key(KeyCode::Up);
  host.fill("Text1(0)", "70");
  host.go("Text1(5)");
  host.key(KeyCode::F10);
  EXPECT_EQ(line("SELECT COUNT(*), SUM(SR_NO) FROM T_SLITM"), "2|4");
  EXPECT_EQ(host.text("Text1(18)"), "200") << "totals wait for the next line";
  EXPECT_EQ(host.text("Text1(8)"), "1.000") << "back on the first line";
  host.keys({KeyCode::Down, KeyCode::Down, KeyCode::Down});
  EXPECT_EQ(host.text("Text1(5)") + host.text("Label1(0)"), "4") << "a serial is not given twice";
  host.rowTo(host.at("DataGrid1"), 0);
  EXPECT_EQ(host.text("Text1(8)"), "1.000") << "a click shows the line";
  host.doubleClick(host.at("DataGrid1"));
  host.fillEnter("Text1(5)", "00");
  EXPECT_EQ(host.focus(), "Text1(29)");
}

TEST_F(Gstsapu, RefusalsKeepTheFocusAndTheText) {
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (7, 'SA', 'TAX', '7')");
  open();
  host.press("cmdadd");
  host.fillEnter("MaskEdBox1(0)", "31102026");
  EXPECT_EQ(host.focus(), "MaskEdBox1(0)");
  EXPECT_EQ(host.lastMessage(), "Pl. Enter Date Between 01/Apr/2026 and 31/Mar/2027");
  host.fillEnter("MaskEdBox1(0)", "15062020");
  EXPECT_EQ(host.focus(), "Text1(4)") << "by text the fifteenth lies between the first and the last";

  struct Case {
    const char *field, *typed, *message, *kept, *focus;
  };
  const std::vector<Case> cases = {
      {"Text1(4)",  "A00077",   "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE", "A00077",   "Text1(4)" },
      {"Text1(4)",  "A00003",   "STATE CODE NOT SPECIFIED IN PARTY",           "A00003",   "Text1(32)"},
      {"Text1(32)", "7",        "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE", "",         "Text1(32)"},
      {"Text1(43)", "",         "Blank Bill Number Not Allowed",               "",         "Text1(43)"},
      {"Text1(43)", "7",        "Duplicate Bill No Not Allowed",               "7",        "Text1(43)"},
      {"Text1(0)",  "7",        "ITEM ALLREADY EXIST",                         "7",        "Text1(0)" },
      {"Text1(5)",  "I0000009", "Check Item Code",                             "",         "Text1(5)" },
      {"Text1(5)",  "I0000002", "",                                            "I0000002", "Text1(46)"},
      {"Text1(7)",  "BOX",      "Check unit for this item",                    "BOX",      "Text1(7)" },
  };
  for (const Case& c : cases) {
    host.messages.clear();
    host.fillEnter(c.field, c.typed);
    EXPECT_EQ(host.lastMessage(), c.message) << c.field;
    EXPECT_EQ(host.text(c.field), c.kept);
    EXPECT_EQ(host.focus(), c.focus);
  }
  EXPECT_EQ(host.text("Text1(19)"), "18") << "no state code is another state";
  host.fill("Text1(32)", "abc1");
  EXPECT_EQ(host.text("Text1(32)"), "1") << "this field takes digits, codes come from the lookup";
}

TEST_F(Gstsapu, SaveRefusesWhatIsNotABill) {
  startBill();
  typeLine("I0000001", "1", "100", "0");
  host.fillEnter("Text1(45)", "1");
  host.fill("Text1(4)", "A00099");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + host.messages.back().title, "Invalid EntryMirav Check");
  host.fill("Text1(4)", "A00001");
  edit::clear(host.at("MaskEdBox1(0)"));
  host.press("CMDSAVE");
  EXPECT_EQ(host.messages.size(), 2U) << "no date";
  host.fill("MaskEdBox1(0)", "15062026");
  // Another program took the number in the meantime.
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, NARRATION) VALUES (1, 'SA', 'THEIRS')");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage(), "ITEM ALLREADY EXIST");
  EXPECT_EQ(line("SELECT COUNT(*), MAX(NARRATION) FROM SALE"), "1|THEIRS");
  EXPECT_EQ(line("SELECT (SELECT COUNT(*) FROM ALEDGER), COUNT(*) FROM SALEITM"), "0|0");
}

// What the day at the counter, which changes a bill, does not come to.
TEST_F(Gstsapu, ModifyShowsNothingOfAnotherBill) {
  startBill("A00004");
  typeLine("I0000001", "2", "100", "0");
  save();
  db().exec(
      "INSERT INTO SALE (VOUCH_NO, BOOK_CD, GSTPOST, PARTY_CD) VALUES (2, 'SA', 1, 'A00099'),"
      " (3, 'SA', 0, 'A00001'), (4, 'SA', 1, 'A00003')");
  host.press("cmdEDIT");
  for (const char* missing : {"7", "3"}) {
    host.messages.clear();
    host.fillEnter("Text1(0)", missing);
    EXPECT_EQ(host.lastMessage(), "ENTRY NOT FOUND");
  }
  host.fillEnter("Text1(0)", "1");
  EXPECT_EQ(host.text("Text2") + host.text("Text1(62)"), "O'NEIL & ભાઈ");
  host.fillEnter("Text1(0)", "2");
  EXPECT_EQ(host.lastMessage(), "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE");
  EXPECT_EQ(host.text("Text2") + host.text("Text1(5)"), "");
  host.fillEnter("Text1(0)", "1");
  host.fillEnter("Text1(0)", "4");
  host.fillEnter("Text1(5)", "I0000001");
  EXPECT_EQ(fields({12, 10, 19}), "0|0|18") << "a party without a state";
  host.fillEnter("Text1(0)", "1");
  host.fillEnter("MaskEdBox1(0)", "20062026");
  save();
  EXPECT_EQ(line("SELECT MIN(VOUCH_DT), MAX(VOUCH_DT) FROM SALEITM"), "2026-06-20|2026-06-20");
  EXPECT_EQ(line("SELECT MIN(VOUCH_DT), COUNT(*) FROM ALEDGER"), "2026-06-20|5");
}

TEST_F(Gstsapu, FiftyThousandAskForNoEWayBillYet) {
  startBill();
  typeLine("I0000003", "1", "50000", "0");
  save();
  EXPECT_EQ(closingWords.find("E_Way"), std::string::npos);
}

TEST_F(Gstsapu, EarlierRatesComeUpBesideTheRate) {
  for (const char* rate : {"1500", "1600", "1700"}) {
    startBill();
    typeLine("I0000001", "2", rate, "5");
    save();
  }
  db().exec(
      "INSERT INTO PRTYRATE (RT_DT, ITEM_CD, SIZE_CD, ACC_CD, SALE_RATE1, PUR_RATE) VALUES"
      " ('2026-04-01', 'I0000001', 'PCS', 'A00001', 1450, 0),"
      " ('2026-05-01', 'I0000001', 'PCS', 'A00001', 1550, 0), ('2026-05-02', 'I0000001', 'PCS', 'A2', 1, "
      "900)");
  startBill();
  host.fillEnter("Text1(5)", "I0000001");
  const auto shown = [&] { return host.at("DataGrid2").visible; };
  EXPECT_FALSE(shown());
  host.go("Text1(9)");
  EXPECT_TRUE(shown());
  EXPECT_EQ(host.at("DataGrid2").grid.count(), 3U);
  EXPECT_EQ(host.cell("DataGrid2", 0, 1) + host.cell("DataGrid2", 0, 4), "15/Jun/20262.000");
  host.key(KeyCode::Down);
  host.escape();
  EXPECT_EQ(host.focus(), "Text1(9)") << "and nothing was asked";
  EXPECT_FALSE(shown()) << "hidden until the field is entered again";
  host.key(KeyCode::F4);
  EXPECT_EQ(host.at("DataGrid2").grid.columns.size(), 6U);
  host.go("Text1(8)");
  host.key(KeyCode::F6);
  EXPECT_EQ(host.cell("DataGrid2", 0, 2) + host.cell("DataGrid2", 1, 2), "15501450") << "the newest first";
  host.key(KeyCode::F7);
  EXPECT_EQ(host.cell("DataGrid2", 0, 2), "900");
  host.fill("Text1(7)", "BOX");
  host.key(KeyCode::F6);
  EXPECT_FALSE(shown()) << "no rates, nothing to show";
}
