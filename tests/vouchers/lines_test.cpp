#include "vouchers/bill_fixture.h"

namespace {

// What an item brings to the line being typed, and what lets go of a field.
class Lines : public BillTest {
 protected:
  // Each kind of voucher up to its lines, which stand in the table.
  void inEach(const std::function<void(const std::string& work)>& walk) {
    db().exec("INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, SALE_RATE1) VALUES ('I0000001', 'BOX', 15000)");
    startBill();
    walk("T_SLITM");
    startChallan();
    walk("T_CHLNITM");
    startOffer();
    walk("T_QUOTITM");
  }
  void closeLists(int n) {
    while (n-- > 0) host.insideModal.push_back([this] { host.escape(); });
  }
};

}  // namespace

TEST_F(Lines, AnItemBringsUnitRateAndName) {
  inEach([this](const std::string& work) {
    SCOPED_TRACE(work);
    host.insideModal.push_back([&] {
      host.key(KeyCode::Right);
      host.type("CEILING");
      if (work == "T_SLITM")
        host.keys({host.cell("grdDataGrid", 0, 3) == "PCS" ? KeyCode::Up : KeyCode::Down});
      host.enter();
    });
    host.fillEnter("item", "");
    EXPECT_EQ(shown("unit rate"), work == "T_SLITM"     ? "PCS|1640"
                                  : work == "T_QUOTITM" ? "BOX|15000"
                                                        : "BOX|");
    host.fillEnter("unit", "PCS");
    EXPECT_EQ(shown("unit rate"), "PCS|1640");
    host.fillEnter("quantity", "2");
    host.fillEnter("rate", "1500");
    host.fillEnter("unit", "BOX");
    host.fillEnter("item", "I0000001");
    EXPECT_EQ(shown("unit rate"), "BOX|1500") << "typed by hand, and walked over again";
    host.fillEnter("item", "MISC");
    EXPECT_EQ(host.focus(), "item_name");
    host.fill("item_name", "");
    host.fill("unit", "PCS");
    db().exec("INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD) SELECT 'MISC', 'PCS'");
    host.go("amount");
    host.enter();
    EXPECT_EQ(host.lastMessage() + host.focus(), "Type The Name Of What Is Solditem_name");
    host.type("FITTING");
    host.go("amount");
    host.enter();
    host.key(KeyCode::Up);
    EXPECT_EQ(shown("item item_name rate"), "MISC|FITTING|1500");
    host.fill("item", "NOSUCH");
    EXPECT_FALSE(host.focusOn(host.at("amount")));
    EXPECT_EQ(line("SELECT ITEM_CD FROM " + work), "MISC");
    host.answers = {true};
    host.press("CMDCANCEL");
    host.closeTop();
  });
}

// The first Enter opens the list; when that is closed the second goes on.
TEST_F(Lines, AFieldSaysWhatCanBeDoneAndLetsGo) {
  startBill();
  host.fillEnter("ship_to", "3");
  EXPECT_EQ(shown("ship_to ship_to_name") + host.focus(), "A00003|CASHbill_type");
  for (const char* field : {"ship_to", "transport", "destination"}) {
    closeLists(1);
    host.fillEnter(field, "");
    EXPECT_EQ(host.hint(), "Press Enter Once More To Leave It Empty");
    host.enter();
    EXPECT_NE(host.focus(), field);
  }
  EXPECT_EQ(shown("ship_to ship_to_name"), "|");
  closeLists(2);
  host.fillEnter("item", "");
  host.enter();
  EXPECT_EQ(host.focus() + host.hint(), "itemType It Or Press Enter For Help")
      << "a line without one is none";
  host.fillEnter("lr_date", "31022026");
  EXPECT_EQ(host.focus() + host.hint().substr(0, 21), "lr_date31/02/2026 Is No Date");
  host.keys({KeyCode::F2, KeyCode::Enter});
  EXPECT_EQ(host.focus(), "parcels");
  host.answers = {true};
  host.press("CMDCANCEL");

  // A type that no challan has yet is taken as it is typed.
  host.insideModal.push_back([this] {
    host.type("dc");
    host.enter();
  });
  startChallan("A00001", "");
  EXPECT_EQ(shown("challan_type challan_no"), "DC|1");
}
