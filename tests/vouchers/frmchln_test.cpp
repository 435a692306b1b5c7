#include "vouchers/bill_fixture.h"

namespace {

class Frmchln : public BillTest {};

}  // namespace

TEST_F(Frmchln, ModifyShowsTheChallanAndRewritesIt) {
  startChallan("A00004");
  typeGoods("I0000001", "2", "100");
  db().exec("INSERT INTO CHLN (VOUCH_NO, BOOK_CD, CHLN_TYP, CHLN_NO) VALUES (9, 'CH', 'DC', '1')");
  host.fillEnter("destination", "ANAND");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + host.focus(), "Duplicate Challan Number Not Allowedchallan_no");
  db().exec("DELETE FROM CHLN");
  host.fill("destination", "");
  host.messages.clear();
  host.fillEnter("discount_percent", "10");
  host.keys({KeyCode::Enter, KeyCode::Enter});
  saveGoods();
  db().exec("INSERT INTO CHLN (VOUCH_NO, BOOK_CD, CHLN_TYP, CHLN_NO) VALUES (2, 'CH', 'DC', '2')");
  for (const char* table : {"CHLN", "CHLNITM"}) {
    db().exec(std::string("INSERT INTO ") + table + " (VOUCH_NO, BOOK_CD) VALUES (3, 'CH')");
    for (const Column& column : db().columns(table))
      if (column.name != "VOUCH_NO" && column.name != "BOOK_CD")
        db().exec(std::string("UPDATE ") + table + " SET " + column.name + " = NULL WHERE VOUCH_NO = 3");
  }
  host.press("cmdEDIT");
  host.fillEnter("number", "9");
  EXPECT_EQ(host.focus() + shown("number party"), "number9|") << "nothing happens";
  EXPECT_TRUE(host.messages.empty());
  host.fillEnter("number", "1");
  EXPECT_EQ(host.focus() + host.text("party_name"), "dateO'NEIL & ભાઈ");
  EXPECT_EQ(shown("order_no challan_type challan_no party items_amount total_quantity destination "
                  "discount_percent discount_amount net_amount"),
            "PO/7|DC|1|A00004|200|2|.|10|20|180");
  EXPECT_EQ(shown("item item_name unit quantity rate amount"), "I0000001|CEILING FAN|PCS|2|100|200");
  host.fillEnter("challan_no", "2");
  EXPECT_EQ(host.lastMessage(), "Duplicate Challan Number Not Allowed");
  host.messages.clear();
  host.fillEnter("challan_no", "1");
  EXPECT_TRUE(host.messages.empty()) << "its own number";
  host.fillEnter("number", "3");
  EXPECT_EQ(shown("party order_no items_amount net_amount item quantity") + host.text("party_name"),
            "||0|0||0")
      << "all of it Null";
  host.fillEnter("number", "1");
  host.fillEnter("date", "20062026");
  saveGoods();
  EXPECT_EQ(line("SELECT VOUCH_DT, NET_AMT, (SELECT GROUP_CONCAT(DISTINCT VOUCH_DT) FROM CHLNITM WHERE"
                 " VOUCH_NO = 1), (SELECT GROUP_CONCAT(VOUCH_DT) FROM ALEDGER) FROM CHLN WHERE VOUCH_NO = 1"),
            "2026-06-20|180|2026-06-20|2026-06-20,2026-06-20");
}
