#include "vouchers/bill_fixture.h"

namespace {

class FrmQuot : public BillTest {};

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
  host.fill("reference", "0001");
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
