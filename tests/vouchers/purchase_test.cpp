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
    billType = "PURCHASE";
    open();
  }
  // From Add to the first item; the supplier's date stays the voucher's.
  void start(const std::string& party, const std::string& number) {
    host.press("cmdadd");
    host.enter();
    host.fillEnter("party", party);
    host.go("bill_type");
    host.enter();
    host.fillEnter("bill_no", number);
    host.focusOn(host.at("item"));
  }
  void buy(const std::string& party, const std::string& number, const std::string& rate) {
    start(party, number);
    typeLine("I0000001", "1", rate, "0");
    save("OKButton");
  }
};

}  // namespace

// What the year in the shop, which plays whole purchases, does not tell.
TEST_F(Purchase, ASupplierGivesTheNumberAndTheDate) {
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (9, 'SA', 'TAX', '0041')");
  host.press("cmdadd");
  EXPECT_EQ(shown("number challan_no"), "1|") << "numbers are the book's own, challans the supplier's";
  host.enter();
  host.fillEnter("party", "a00011");
  EXPECT_EQ(shown("destination cr_days bill_type"), "|45|TAX") << "goods do not go to the supplier";
  host.go("bill_type");
  host.enter();
  EXPECT_EQ(host.focus() + shown("bill_no"), "bill_no") << "no series to go on with";
  host.enter();
  EXPECT_EQ(host.lastMessage(), "Blank Bill Number Not Allowed");
  host.fillEnter("item", "I0000001");
  EXPECT_EQ(shown("rate discount cgst_rate sgst_rate igst_rate"), "1380||9|9|0")
      << "the discount is of sales";
  host.answers = {true};
  host.press("CMDCANCEL");
  buy("A00011", "7", "50000");
  EXPECT_NE(closingWords.find("Purchase Entry Saved\n   Entry No : 1\n   Party Name : VIDYUT CABLES\n"
                              "   Invoice AMOUNT : 59000\n\n\n   Press New Entry Btn"),
            std::string::npos);
  EXPECT_EQ(line("SELECT PARTY_BL, SUB_DESC FROM ALEDGER WHERE PARTY_CD = 'A00011'"), "7|45");
  start("A00011", "7");
  EXPECT_EQ(host.lastMessage(), "Duplicate Bill No Not Allowed");
  host.messages.clear();
  host.fillEnter("party", "A00012");
  host.fillEnter("bill_no", "7");
  EXPECT_TRUE(host.messages.empty()) << "another supplier's";
  EXPECT_EQ(host.focus(), "party_date");
}
