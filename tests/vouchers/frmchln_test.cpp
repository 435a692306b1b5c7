#include "vouchers/bill_fixture.h"

namespace {

class Frmchln : public BillTest {};

}  // namespace

TEST_F(Frmchln, ModifyShowsNothingOfAnotherChallan) {
  startChallan("A00004");
  typeGoods("I0000001", "2", "100");
  saveGoods();
  for (const std::string table : {"CHLN", "CHLNITM"}) {
    db().exec("INSERT INTO " + table + " (VOUCH_NO, BOOK_CD) VALUES (3, 'CH')");
    for (const Column& column : db().columns(table))
      if (column.name != "VOUCH_NO" && column.name != "BOOK_CD")
        db().exec("UPDATE " + table + " SET " + column.name + " = NULL WHERE VOUCH_NO = 3");
  }
  host.press("cmdEDIT");
  for (const char* number : {"1", "3"}) host.fillEnter("number", number);
  EXPECT_EQ(shown("party order_no items_amount net_amount item quantity") + host.text("party_name"),
            "||0|0||0");
}
