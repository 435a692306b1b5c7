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
  EXPECT_EQ(shown("number challan_no"), "1|1");
  EXPECT_FALSE(host.at("cmdadd").visible || host.at("CMDSAVE").enabled);
  host.press("CMDCANCEL");
  EXPECT_EQ(host.focus(), "cmdadd");
  startBill();
  EXPECT_EQ(shown("destination cr_days bill_type"), "ANAND|30|TAX");
  host.fillEnter("item", "I0000001");
  host.fillEnter("quantity", "34");
  EXPECT_EQ(shown("quantity amount"), "34.000|") << "a quantity values nothing by itself";
  host.keys({KeyCode::Enter, KeyCode::Enter});
  EXPECT_EQ(shown("cgst_amount amount net_amount"), "4616.93|60533.06|0")
      << "the totals are of the lines before";
  host.enter();
  EXPECT_EQ(shown("amount items_amount total_quantity net_amount round_off"), "|51299.2|34|60533|-0.06");
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
  host.fillEnter("item", "I0000004");
  EXPECT_EQ(host.lastMessage(), "SPECIFY RATE OF TAX IN ITEM");
  host.fillEnter("item", "I0000002");
  host.fillEnter("quantity", "1");
  host.fillEnter("rate", "100");
  host.fillEnter("discount", "-1");
  EXPECT_EQ(host.lastMessage(), "Discount can not be greater than 100%");
  EXPECT_EQ(host.focus() + host.text("discount"), "discount");
  host.enter();
  // Back into the tax fields: the rate gives its amount, and a typed amount stands.
  host.fillEnter("igst_rate", "5");
  EXPECT_EQ(host.focus(), "igst_amount");
  host.type("9");
  EXPECT_EQ(host.text("igst_amount"), "5") << "locked until it has been left once";
  host.go("igst_rate");
  host.fillEnter("igst_amount", "7.5");
  EXPECT_EQ(host.focus(), "amount");
  for (const auto& [amount, next] : {
           std::pair{"cgst_amount", "sgst_rate"},
           {"sgst_amount", "igst_rate"}
  }) {
    host.go(amount);
    host.enter();
    EXPECT_EQ(host.focus(), next);
  }
  host.go("amount");
  EXPECT_EQ(host.text("amount"), "107.5");
  host.enter();
  EXPECT_TRUE(host.at("amount").locked) << "once it has been left";
  EXPECT_EQ(line("SELECT IGSTRT, IGSTAMT, NET_AMOUNT FROM T_SLITM WHERE SR_NO = 2"), "5|7.5|107.5");
}

TEST_F(Gstsapu, WalkingOverwritingAndDeletingLines) {
  startBill();
  typeLine("I0000002", "1", "10", "0");
  typeLine("I0000002", "2", "20", "0");
  typeLine("I0000003", "3", "30", "0");
  EXPECT_EQ(host.text("items_amount"), "140");
  host.keys({KeyCode::Up, KeyCode::Up});
  EXPECT_EQ(host.text("line_no") + "/" + host.text("quantity"), "2/2.000");
  // Overwritten it keeps its serial, and the next line comes up.
  typeLine("I0000002", "5", "20", "0");
  EXPECT_EQ(shown("item items_amount"), "I0000003|200");
  host.key(KeyCode::Up);
  host.fill("number", "70");
  host.go("item");
  host.key(KeyCode::F10);
  EXPECT_EQ(line("SELECT COUNT(*), SUM(SR_NO) FROM T_SLITM"), "2|4");
  EXPECT_EQ(host.text("items_amount"), "200") << "totals wait for the next line";
  EXPECT_EQ(host.text("quantity"), "1.000") << "back on the first line";
  host.keys({KeyCode::Down, KeyCode::Down, KeyCode::Down});
  EXPECT_EQ(host.text("item") + host.text("line_no"), "4") << "a serial is not given twice";
  host.rowTo(host.at("lines"), 0);
  EXPECT_EQ(host.text("quantity"), "1.000") << "a click shows the line";
  host.doubleClick(host.at("lines"));
  host.fillEnter("item", "00");
  EXPECT_EQ(host.focus(), "narration");
}

TEST_F(Gstsapu, RefusalsKeepTheFocusAndTheText) {
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (7, 'SA', 'TAX', '7')");
  open();
  host.press("cmdadd");
  host.fillEnter("date", "31102026");
  EXPECT_EQ(host.focus(), "date");
  EXPECT_EQ(host.lastMessage(), "Pl. Enter Date Between 01/Apr/2026 and 31/Mar/2027");
  host.enter();
  EXPECT_EQ(host.focus() + std::to_string(host.messages.size()), "party1") << "the day lies in the period";
  for (const char* never : {"31102020", "31102020"}) {
    host.fillEnter("date", never);
    EXPECT_EQ(host.focus(), "date");
  }
  for (const char* edge : {"01042026", "31032027"}) {
    host.fillEnter("date", edge);
    EXPECT_EQ(host.focus(), "party") << edge;
  }
  host.fillEnter("date", "15062020");
  EXPECT_EQ(host.focus(), "party") << "by text the fifteenth lies between the first and the last";

  struct Case {
    const char *field, *typed, *message, *kept, *focus;
  };
  const std::vector<Case> cases = {
      {"party",   "A00077",   "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE", "A00077",   "party"  },
      {"party",   "A00003",   "STATE CODE NOT SPECIFIED IN PARTY",           "A00003",   "ship_to"},
      {"ship_to", "7",        "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE", "",         "ship_to"},
      {"bill_no", "",         "Blank Bill Number Not Allowed",               "",         "bill_no"},
      {"bill_no", "7",        "Duplicate Bill No Not Allowed",               "7",        "bill_no"},
      {"number",  "7",        "ITEM ALLREADY EXIST",                         "7",        "number" },
      {"item",    "I0000009", "Check Item Code",                             "",         "item"   },
      {"item",    "I0000002", "",                                            "I0000002", "detail" },
      {"unit",    "BOX",      "Check unit for this item",                    "BOX",      "unit"   },
  };
  for (const Case& c : cases) {
    host.messages.clear();
    host.fillEnter(c.field, c.typed);
    EXPECT_EQ(host.lastMessage(), c.message) << c.field;
    EXPECT_EQ(host.text(c.field), c.kept);
    EXPECT_EQ(host.focus(), c.focus);
    if (host.focus() == c.field) edit::clear(host.at(c.field));  // else it is not left
  }
  EXPECT_EQ(host.text("igst_rate"), "18") << "no state code is another state";
  host.fill("ship_to", "abc1");
  EXPECT_EQ(host.text("ship_to"), "1") << "this field takes digits, codes come from the lookup";
}

TEST_F(Gstsapu, SaveRefusesWhatIsNotABill) {
  startBill();
  typeLine("I0000001", "1", "100", "0");
  host.fillEnter("parcels", "1");
  host.fill("party", "A00099");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + host.focus(), "PARTY NOT FOUND PLEASE CHECK THE PARTY CODEparty");
  host.fill("party", "A00001");
  edit::clear(host.at("date"));
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + host.messages.back().title, "Invalid EntryMirav Check") << "no date";
  EXPECT_EQ(line("SELECT COUNT(*), (SELECT COUNT(*) FROM ALEDGER) FROM SALE"), "0|0");
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
    host.fillEnter("number", missing);
    EXPECT_EQ(host.lastMessage(), "ENTRY NOT FOUND");
  }
  host.fillEnter("number", "1");
  EXPECT_EQ(host.text("party_name") + host.text("challan_no"), "O'NEIL & ભાઈ");
  host.fillEnter("number", "2");
  EXPECT_EQ(host.lastMessage(), "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE");
  EXPECT_EQ(host.text("party_name") + host.text("item"), "");
  host.fillEnter("number", "1");
  host.fillEnter("number", "4");
  host.fillEnter("item", "I0000001");
  EXPECT_EQ(shown("cgst_rate sgst_rate igst_rate"), "0|0|18") << "a party without a state";
  host.answers = {true};
  host.fillEnter("number", "1");
  host.fillEnter("date", "20062026");
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
  host.fillEnter("item", "I0000001");
  const auto shown = [&] { return host.at("earlier_rates").visible; };
  EXPECT_FALSE(shown());
  host.go("rate");
  EXPECT_TRUE(shown());
  EXPECT_EQ(host.at("earlier_rates").grid.count(), 3U);
  EXPECT_EQ(host.cell("earlier_rates", 0, 1) + host.cell("earlier_rates", 0, 4), "15/Jun/20262.000");
  host.key(KeyCode::Down);
  host.escape();
  EXPECT_EQ(host.focus(), "rate") << "and nothing was asked";
  EXPECT_FALSE(shown()) << "hidden until the field is entered again";
  host.key(KeyCode::F4);
  EXPECT_EQ(host.at("earlier_rates").grid.columns.size(), 6U);
  host.go("quantity");
  host.key(KeyCode::F6);
  EXPECT_EQ(host.cell("earlier_rates", 0, 2) + host.cell("earlier_rates", 1, 2), "15501450")
      << "the newest first";
  host.key(KeyCode::F7);
  EXPECT_EQ(host.cell("earlier_rates", 0, 2), "900");
  host.fill("unit", "BOX");
  host.key(KeyCode::F6);
  EXPECT_FALSE(shown()) << "no rates, nothing to show";
}
