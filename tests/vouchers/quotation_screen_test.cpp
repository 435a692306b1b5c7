#include "vouchers/bill_fixture.h"

namespace {

class FrmQuot : public BillTest {
 protected:
  static const VoucherKind& kind() { return quotationKind(); }
  void openAs(const std::string& type = "QUOTATION") {
    session().mentrytype = type;
    host.open("FRMQUOT", {});
  }
};

}  // namespace

// What tests/scenarios/quotation.keys, which plays whole offers, does not tell.
TEST_F(FrmQuot, TheUnitBringsTheDiscountAndAQuantityValuesTheLine) {
  startOffer();
  EXPECT_EQ(host.screen().reason, "Save opens after Subject To");
  host.fillEnter("Text1(12)", "I0000001");
  EXPECT_EQ(fields({5, 10, 9, 16, 36, 38, 40}), "CEILING FAN|PCS|1640||9|9|0") << "no discount yet";
  host.keys({KeyCode::Enter, KeyCode::Enter});
  EXPECT_EQ(host.focus() + fields({16, 11}), "Text1(8)8|");
  host.type("34");
  host.enter();
  EXPECT_EQ(fields({8, 14, 47, 37}), "34|60533.06|51299.2|4616.93");
  host.keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
  saveOffer("OKButton");
  EXPECT_EQ(host.onTop() + StandIn::last.value + session().mreportkey, "dlg11QUOTPRN");
  EXPECT_EQ(line("SELECT ITEM_NAME, ITEM_SNAME, DEPT_CD, QUANTITY, RATE, AMOUNT, DISC, ASSIVAL, T_NO, TNO,"
                 " TYPEOF(AMOUNT) FROM QUOTITM"),
            "CEILING FAN|CEILING FAN|E001|34|1640|60533.06|8|51299.2|1|1|text");
}

TEST_F(FrmQuot, TaxesFollowTheirRatesAlone) {
  startOffer("A00003");
  EXPECT_EQ(host.lastMessage(), "STATE CODE NOT SPECIFIED IN PARTY");
  typeOffered("I0000002", "10", "100", "0");
  EXPECT_EQ(line("SELECT CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT, AMOUNT FROM T_QUOTITM"),
            "0|0|18|0|0|180|1180");
  host.fillEnter("Text1(12)", "I0000004");
  EXPECT_EQ(host.lastMessage() + fields({36, 38, 40}), "SPECIFY RATE OF TAX IN ITEM||");
  host.fillEnter("Text1(8)", "7abc");
  host.fillEnter("Text1(16)", "150");
  host.fillEnter("Text1(38)", "10");
  EXPECT_EQ(host.focus() + "/" + fields({8, 9, 39, 14}), "Text1(39)/7|10|-3.5|-38.5");
  host.fillEnter("Text1(39)", "99");
  EXPECT_EQ(fields({39, 14}), "-3.5|-38.5") << "a typed amount does not stay";
  host.fillEnter("Text1(41)", "99");
  EXPECT_EQ(host.focus() + "/" + fields({41, 14}), "Text1(14)/0|-38.5");
}

TEST_F(FrmQuot, WalkingOverwritingAndFreeNames) {
  startOffer();
  typeOffered("I0000002", "1", "10", "0");
  typeOffered("I0000003", "2", "20", "0");
  host.fillEnter("Text1(12)", "misc");
  EXPECT_EQ(host.focus() + fields({36}), "Text1(5)") << "free lines bring nothing";
  host.type("fitting");
  host.enter();
  host.fillEnter("Text1(10)", "job");
  EXPECT_EQ(host.focus(), "Text1(8)") << "and no unit is refused";
  host.go("Text1(14)");
  host.enter();
  host.fillEnter("Text1(12)", "MISC");
  host.fillEnter("Text1(5)", "salt");
  EXPECT_EQ(fields({9, 10}), "20|PCS") << "a known name brings its rate";
  host.keys({KeyCode::Up, KeyCode::Up});
  host.go("Text1(12)");
  host.keys({KeyCode::Up, KeyCode::Up});
  EXPECT_EQ(host.text("Label1(0)") + "/" + fields({12, 8}), "2/I0000003|2");
  EXPECT_FALSE(host.at("Text1(5)").enabled);
  typeOffered("I0000003", "0", "20", "0");
  EXPECT_EQ(fields({12, 5, 21, 45, 27}), "MISC|FITTING|11.8|1|12");
  saveOffer();
  EXPECT_EQ(line("SELECT GROUP_CONCAT(NUMTEXT(SRNO) || ITEM_NAME || QUANTITY || SIZE_CD) FROM QUOTITM"),
            "1PVC WIRE1PCS,3FITTING0JOB");
}

TEST_F(FrmQuot, ALineThatIsDroppedLeavesTheTotals) {
  startOffer();
  typeOffered("I0000002", "1", "10", "0");
  typeOffered("I0000003", "2", "20", "0");
  host.key(KeyCode::F10);
  EXPECT_EQ(fields({21, 45, 42}), "51.8|3|0.9") << "no line is shown";
  host.keys({KeyCode::Up, KeyCode::Up, KeyCode::F10});
  EXPECT_EQ(host.text("Label1(0)") + "/" + fields({12, 21, 45, 42, 27}), "2/I0000003|40|2|0|40");
  host.key(KeyCode::F10);
  EXPECT_EQ(host.text("Label1(0)") + "/" + fields({12, 21, 45, 42, 27}), "1/||||0");
}

TEST_F(FrmQuot, NumbersThatStandAndARegistersRow) {
  openAs();
  host.press("cmdEDIT");
  host.fillEnter("Text1(0)", "1");
  EXPECT_EQ(host.lastMessage() + host.focus(), "No Record To Displaycmdadd");
  offeredLine(db(), "I0000001", 2, 1, 4);
  saveQuotation(db(), kind(), offer(4), stamp(), Saving::Fresh);
  host.press("cmdadd");
  EXPECT_EQ(fields({0}), "5");
  host.fillEnter("Text1(0)", "4");
  EXPECT_EQ(host.lastMessage() + host.focus(), "ITEM ALLREADY EXISTText1(0)");
  host.press("CMDCANCEL");
  // Back after the save without a word.
  host.closeTop();
  session().mentrytype = "QUOTATION";
  host.open("FRMQUOT", {.caller = "frmreport", .value = "4"});
  EXPECT_EQ(host.screen().mode + host.text("Text2") + fields({35, 2, 3, 11, 1, 7, 6}),
            "EDITPATEL TRADING COQ/0012|O'NEIL|પંખા|MAIL|T8|T1|T7");
  EXPECT_EQ(fields({21, 27, 42, 43, 44, 45, 12}), "106.19|106|8.1|8.1|0|3|I0000001");
  host.go("Text1(6)");
  host.keys({KeyCode::Enter, KeyCode::Enter});
  EXPECT_EQ(host.find("FRMQUOT"), nullptr);
  EXPECT_EQ(line("SELECT COUNT(*), TO_NAME FROM QUOT"), "1|O'NEIL");
}

// An offer without party, number or lines is saved as it stands.
TEST_F(FrmQuot, RefusalsAndWhatIsNotRefused) {
  openAs("PI");
  EXPECT_EQ(host.screen().caption, "PERFOMA INVOICE ");
  host.press("cmdadd");
  host.fillEnter("MaskEdBox1(0)", "");
  EXPECT_EQ(host.focus(), "MaskEdBox1(0)");
  host.fillEnter("Text1(4)", "A00077");
  EXPECT_EQ(host.messages.back().text + "/" + host.messages.back().title,
            "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE/Mirav Message");
  EXPECT_EQ(host.focus() + fields({35}), "Text1(4)");
  host.fillEnter("Text1(12)", "I0000009");
  EXPECT_EQ(host.lastMessage() + host.focus() + fields({12}), "Check Item CodeText1(12)");
  host.go("Text1(14)");
  host.enter();
  EXPECT_EQ(host.focus() + line("SELECT COUNT(*) FROM T_QUOTITM"), "Text1(12)0");
  host.fill("Text1(4)", "");
  saveOffer();
  EXPECT_EQ(line("SELECT VOUCH_NO, VOUCH_DT, PARTY_CD, ENTRY_TYP FROM QUOT"), "1|||PI");
}

TEST_F(FrmQuot, EarlierTextsAndSalesComeByKey) {
  addTransporterRow();
  saveQuotation(db(), kind(), offer(4), stamp(), Saving::Fresh);
  workLine(db(), "I0000001", 2, 1);
  db().exec("UPDATE T_SLITM SET SIZE_CD = 'PCS', RATE = 50");
  saveBill(db(), saleKind(), bill(8), stamp(), Saving::Fresh);
  const auto tried = [&](const char* field, Key key, const char* chosen) {
    host.fill(field, "");
    bool shown = false;
    host.insideModal = {[&] {
      shown = true;
      host.enter();
    }};
    host.key(key);
    EXPECT_EQ(host.text(field), chosen) << field;
    EXPECT_EQ(shown, *chosen != '\0') << field;
  };
  startOffer();
  tried("Text1(2)", KeyCode::F1, "O'NEIL");
  tried("Text1(3)", KeyCode::F1, "પંખા");
  tried("Text1(1)", KeyCode::F1, "");
  host.insideModal.clear();
  EXPECT_EQ(host.hint(), "Press Enter To Proceed");
  host.fillEnter("Text1(12)", "I0000001");
  host.go("Text1(9)");
  EXPECT_FALSE(host.at("DataGrid2").visible);
  host.key(KeyCode::F4);
  EXPECT_EQ(host.cell("DataGrid2", 0, 0) + "/" + host.cell("DataGrid2", 0, 3), "8/50");
  host.press("CMDCANCEL");
  // A company-year that keeps narrations offers them for every term.
  host.close(host.screen());
  db().exec("CREATE TABLE NARRATN (NARR_NAME TEXT COLLATE NOCASE)");
  db().exec("INSERT INTO NARRATN VALUES ('EX GODOWN')");
  startOffer();
  for (const char* field :
       {"Text1(1)", "Text1(7)", "Text1(29)", "Text1(33)", "Text1(18)", "Text1(26)", "Text1(28)", "Text1(6)"})
    tried(field, KeyCode::F1, "EX GODOWN");
  host.press("CMDCANCEL");
  host.press("cmdEDIT");
  for (const KeyCode key : {KeyCode::Enter, KeyCode::F1, KeyCode::F2, KeyCode::F4})
    tried("Text1(0)", key, "4");
}
