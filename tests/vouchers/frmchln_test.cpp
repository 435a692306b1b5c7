#include "vouchers/bill_fixture.h"

namespace {

class Frmchln : public BillTest {};

}  // namespace

TEST_F(Frmchln, ModifyShowsTheChallanAndRewritesIt) {
  startChallan("A00004");
  typeGoods("I0000001", "2", "100");
  host.fillEnter("Text1(19)", "10");
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
  host.fillEnter("Text1(0)", "9");
  EXPECT_EQ(host.focus() + fields({0, 4}), "Text1(0)9|") << "nothing happens";
  EXPECT_TRUE(host.messages.empty());
  host.fillEnter("Text1(0)", "1");
  EXPECT_EQ(host.focus() + host.text("Text2"), "MaskEdBox1(0)O'NEIL & ભાઈ");
  EXPECT_EQ(fields({15, 23, 24, 4, 18, 26, 11, 19, 20, 28}), "PO/7|DC|1|A00004|200|2|.|10|20|180");
  EXPECT_EQ(fields({5, 6, 7, 8, 9, 14}), "I0000001|CEILING FAN|PCS|2|100|200");
  host.fillEnter("Text1(24)", "2");
  EXPECT_EQ(host.lastMessage(), "Duplicate Challan Number Not Allowed");
  host.messages.clear();
  host.fillEnter("Text1(24)", "1");
  EXPECT_TRUE(host.messages.empty()) << "its own number";
  host.fillEnter("Text1(0)", "3");
  EXPECT_EQ(fields({4, 15, 18, 28, 5, 8}) + host.text("Text2"), "||0|0||0") << "all of it Null";
  host.fillEnter("Text1(0)", "1");
  host.fillEnter("MaskEdBox1(0)", "20062026");
  saveGoods();
  EXPECT_EQ(line("SELECT VOUCH_DT, NET_AMT, (SELECT GROUP_CONCAT(DISTINCT VOUCH_DT) FROM CHLNITM WHERE"
                 " VOUCH_NO = 1), (SELECT GROUP_CONCAT(VOUCH_DT) FROM ALEDGER) FROM CHLN WHERE VOUCH_NO = 1"),
            "2026-06-20|180|2026-06-20|2026-06-20,2026-06-20");
}
