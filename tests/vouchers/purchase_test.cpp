#include "vouchers/bill_fixture.h"

namespace {

// Suppliers of the company's own state and of another, and what an item is bought for.
class Purchase : public BillTest {
 protected:
  Purchase() {
    db().exec(
        "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD, STATECD, AREA, CREDIT_DAY) VALUES"
        " ('A00011', 'VIDYUT CABLES', 135, 24, 'MAKARPURA', 45), ('A00012', 'PUNE MOTORS', 135, 27, '', 0)");
    db().exec("UPDATE ITEMDTL SET PUR_RATE = 1380 WHERE ITEM_CD = 'I0000001'");
    session().mentrytype = "PURCHASE";
    open();
  }
  // From Add to the first item; the supplier's date stays the voucher's.
  void start(const std::string& party, const std::string& number) {
    host.press("cmdadd");
    host.enter();
    host.fillEnter("Text1(4)", party);
    host.go("Text1(47)");
    host.enter();
    host.fillEnter("Text1(43)", number);
    host.go("Text1(5)");
  }
  void buy(const std::string& party, const std::string& number, const std::string& rate) {
    start(party, number);
    typeLine("I0000001", "1", rate, "0");
    save("OKButton");
  }
  void openBook(const std::string& entryType) {
    if (host.find("GSTSAPU")) {
      if (host.at("CMDCANCEL").visible) host.press("CMDCANCEL");
      host.closeTop();
    }
    session().mentrytype = entryType;
    open();
  }
};

}  // namespace

// What the fortnight at the counter, which plays whole purchases, does not tell.
TEST_F(Purchase, ASupplierGivesTheNumberAndTheDate) {
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (9, 'SA', 'TAX', '0041')");
  host.press("cmdadd");
  EXPECT_EQ(fields({0, 62}), "1|") << "numbers are the book's own, challans the supplier's";
  host.enter();
  host.fillEnter("Text1(4)", "a00011");
  EXPECT_EQ(fields({41, 27, 47}), "|45|TAX") << "goods do not go to the supplier";
  host.go("Text1(47)");
  host.enter();
  EXPECT_EQ(host.focus() + fields({43}), "Text1(43)") << "no series to go on with";
  host.enter();
  EXPECT_EQ(host.lastMessage(), "Blank Bill Number Not Allowed");
  host.fillEnter("Text1(5)", "I0000001");
  EXPECT_EQ(fields({9, 11, 12, 10, 19}), "1380||9|9|0") << "the discount is of sales";
  host.press("CMDCANCEL");
  buy("A00011", "7", "50000");
  EXPECT_EQ(closingWords,
            std::string(60, ' ') +
                "Purchase Entry Saved\n   Entry No : 1\n   Party Name : VIDYUT CABLES\n"
                "   Invoice AMOUNT : 59000\n\n\n   Press New Entry Btn To Enter New Bill Entry");
  EXPECT_EQ(line("SELECT PARTY_BL, SUB_DESC FROM ALEDGER WHERE PARTY_CD = 'A00011'"), "7|45");
  start("A00011", "7");
  EXPECT_EQ(host.lastMessage(), "Duplicate Bill No Not Allowed");
  host.messages.clear();
  host.fillEnter("Text1(4)", "A00012");
  host.fillEnter("Text1(43)", "7");
  EXPECT_TRUE(host.messages.empty()) << "another supplier's";
  EXPECT_EQ(host.focus(), "MaskEdBox1(2)");
}

// One party that buys and sells the same item: each book shows its own.
TEST_F(Purchase, NeitherBookSeesTheOther) {
  buy("A00001", "7", "1380");
  openBook("SALE");
  startBill("A00001");
  EXPECT_EQ(fields({0, 43}), "1|0001");
  EXPECT_FALSE(host.at("MaskEdBox1(2)").visible);
  typeLine("I0000001", "1", "1640", "0");
  save();
  for (const auto& [entryType, rate, amount] : {
           std::tuple{"SALE",     "1640", "1935"},
           {"PURCHASE", "1380", "1628"}
  }) {
    openBook(entryType);
    host.press("cmdadd");
    host.fillEnter("Text1(4)", "A00001");
    host.fillEnter("Text1(5)", "I0000001");
    for (const KeyCode key : {KeyCode::Tab, KeyCode::F4}) {
      host.go("Text1(8)");
      host.go("Text1(9)");
      if (key != KeyCode::Tab) host.key(key);
      EXPECT_EQ(host.at("DataGrid2").grid.count(), 1U) << entryType;
      EXPECT_EQ(host.cell("DataGrid2", 0, key == KeyCode::Tab ? 5 : 3), rate);
    }
    for (const KeyCode key : {KeyCode::Enter, KeyCode::F1, KeyCode::F4, KeyCode::F11, KeyCode::F2}) {
      const char* field = key == KeyCode::F2 ? "Text1(46)" : "Text1(0)";
      host.insideModal = {[&] {
        EXPECT_EQ(host.at("grdDataGrid").grid.count(), 1U) << entryType << field;
        EXPECT_TRUE(key != KeyCode::F4 || host.cell("grdDataGrid", 0, 1) == amount) << entryType;
        host.escape();
      }};
      host.fill(field, "");
      host.key(key);
    }
  }
  // Suppliers and cash are offered.
  host.insideModal = {[&] {
    EXPECT_EQ(host.at("grdDataGrid").grid.count(), 3U);
    host.escape();
  }};
  host.fillEnter("Text1(4)", "");
}

TEST_F(Purchase, ModifiedFromTheLedger) {
  buy("A00011", "7", "100");
  db().exec("UPDATE SALE SET PRV_BDT = '2026-06-01'");
  openBook("SALE");
  startBill();
  typeLine("I0000001", "1", "100", "0");
  save();
  host.closeTop();

  host.clock.date = *parseDate("2026-06-20");
  session().mentrytype = "PURCHASE";
  host.open("GSTSAPU", {.caller = "regdlg1", .value = "1"});
  EXPECT_EQ(host.screen().caption + fields({43}) + host.text("MaskEdBox1(2)"),
            "PURCHASE ENTRY  :::  MODIFY MODE701/06/2026");
  host.go("Text1(5)");
  typeLine("I0000001", "2", "100", "0");
  host.fillEnter("Text1(45)", "1");
  host.press("CMDSAVE");
  EXPECT_EQ(host.find("GSTSAPU"), nullptr);
  EXPECT_EQ(posted("PU", 1), "C A00011 236, D X90001 200, D X90064 18, D X90065 18, D X90066 0");

  session().mentrytype = "SALE";
  host.open("GSTSAPU", {.caller = "regdlg1", .value = "1"});
  host.fillEnter("Text1(45)", "1");
  host.press("CMDSAVE");
  EXPECT_EQ(line("SELECT GROUP_CONCAT(BOOK_CD || BILL_NO || PRV_BDT, ' ') FROM"
                 " (SELECT * FROM SALE ORDER BY BOOK_CD)"),
            "PU72026-06-01 SA00012026-06-20");
}
