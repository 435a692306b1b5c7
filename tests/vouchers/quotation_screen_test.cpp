#include "vouchers/bill_fixture.h"

namespace {

class FrmQuot : public BillTest {
 protected:
  static const VoucherKind& kind() { return quotationKind(); }
  void openAs(const std::string& type = "QUOTATION") { host.open("FRMQUOT", {.entryType = type}); }
};

}  // namespace

// As on a bill: a dropped line is in the totals until Save, which wants a party and a reference of its own.
TEST_F(FrmQuot, SaveLooksAtAnOfferAsAtABill) {
  startOffer();
  typeLine("I0000002", "1", "10", "0");
  typeLine("I0000003", "2", "20", "0");
  host.keys({KeyCode::F10, KeyCode::Up, KeyCode::Up, KeyCode::F10});
  EXPECT_EQ(host.text("line_no") + shown("item items_amount total_quantity"), "2I0000003|51.8|3");
  db().exec("INSERT INTO QUOT (VOUCH_NO, ENTRY_TYP, REF_NO) VALUES (9, 'QUOTATION', '0001')");
  host.fillEnter("subject_to", "ANAND");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + host.focus(), "Duplicate Ref No Not Allowedreference");
  host.fill("reference", "0002");
  host.fill("party", "");
  host.go("subject_to");
  host.answers = {false};
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastQuestion() + host.focus(), "This Voucher Has No Party\nSave It All The Same ?party");
  host.fill("party", "A00001");
  saveOffer();
  EXPECT_EQ(line("SELECT REF_NO, ITEM_AMT, TOTQTY, TCGST, NET_AMT FROM QUOT WHERE VOUCH_NO = 1"),
            "0002|40|2|0|40");
}

TEST_F(FrmQuot, NumbersThatStandAndARegistersRow) {
  openAs();
  host.press("cmdEDIT");
  host.fillEnter("number", "1");
  EXPECT_EQ(host.lastMessage() + host.focus(), "No Record To Displaycmdadd");
  offeredLine(db(), "I0000001", 2, 1, 4);
  saveQuotation(db(), kind(), offer(4), stamp(), Saving::Fresh);
  host.press("cmdadd");
  EXPECT_EQ(shown("number"), "5");
  host.fillEnter("number", "4");
  EXPECT_EQ(host.lastMessage() + host.focus(), "ITEM ALLREADY EXISTnumber");
  host.press("CMDCANCEL");
  // Back after the save without a word.
  host.closeTop();
  host.open("FRMQUOT", {.caller = "frmreport", .entryType = "QUOTATION", .value = "4"});
  EXPECT_EQ(host.screen().mode + host.text("party_name") +
                shown("reference attention subject your_reference validity rate_terms subject_to"),
            "EDITPATEL TRADING COQ/0012|O'NEIL|પંખા|MAIL|T8|T1|T7");
  EXPECT_EQ(shown("items_amount net_amount cgst_total sgst_total igst_total total_quantity item"),
            "106.19|106|8.1|8.1|0|3|I0000001");
  host.go("subject_to");
  host.keys({KeyCode::Enter, KeyCode::Enter});
  EXPECT_EQ(host.find("FRMQUOT"), nullptr);
  EXPECT_EQ(line("SELECT COUNT(*), TO_NAME FROM QUOT"), "1|O'NEIL");
}
