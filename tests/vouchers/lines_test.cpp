#include "vouchers/bill_fixture.h"

namespace {

// What an item brings to the line being typed, and what lets go of a field.
class Lines : public BillTest {
 protected:
  Lines() {
    db().exec(
        "INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, SALE_RATE1, SALE_DISC) VALUES ('I0000001', 'BOX', 15000, 5)");
    db().exec("INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, SALE_RATE1) VALUES ('MISC', 'NOS', 0)");
  }
  // Enter in the empty item, then the row of a unit in the list.
  void chooseUnit(const std::string& unit) {
    host.insideModal.push_back([this, unit] {
      host.key(KeyCode::Right);
      host.type("CEILING");
      for (size_t row = 0; host.cell("grdDataGrid", host.at("grdDataGrid").grid.current, 3) != unit; ++row)
        host.rowTo(host.at("grdDataGrid"), row);
      host.enter();
    });
    host.fillEnter("item", "");
  }
  void closeLists(int n) {
    while (n-- > 0) host.insideModal.push_back([this] { host.escape(); });
  }
  struct Kind {
    std::function<void()> start;
    std::string work;
  };
  std::vector<Kind> kinds() {
    return {
        {[this] { startBill(); },    "T_SLITM"  },
        {[this] { startChallan(); }, "T_CHLNITM"},
        {[this] { startOffer(); },   "T_QUOTITM"},
    };
  }
};

}  // namespace

TEST_F(Lines, ARateFollowsItsUnitUntilItIsTyped) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.work);
    kind.start();
    if (kind.work == "T_SLITM")
      chooseUnit("BOX");
    else
      host.fillEnter("item", "I0000001");
    host.fillEnter("unit", "BOX");
    EXPECT_EQ(shown("unit rate"), "BOX|15000");
    host.fillEnter("unit", "PCS");
    EXPECT_EQ(shown("unit rate"), "PCS|1640");
    host.fillEnter("quantity", "2");
    host.fillEnter("rate", "1500");
    host.fillEnter("unit", "BOX");
    EXPECT_EQ(shown("unit rate"), "BOX|1500") << "typed by hand";
    host.go("item");
    host.enter();
    EXPECT_EQ(shown("unit rate"), "BOX|1500") << "walked over again";
    host.go("amount");
    host.enter();
    host.key(KeyCode::Up);
    EXPECT_EQ(shown("item unit rate"), "I0000001|BOX|1500");
    host.fillEnter("item", "I0000003");
    host.go("unit");
    host.enter();
    EXPECT_EQ(shown("unit rate"), "PCS|1500") << "typed for the line";
    host.answers = {true};
    host.press("CMDCANCEL");
    host.closeTop();
  }
}

TEST_F(Lines, AnItemThatIsNoneIsRefusedAndAFreeOneHasAName) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.work);
    kind.start();
    host.fillEnter("item", "MISC");
    EXPECT_EQ(host.focus(), "item_name");
    host.fill("item_name", "");
    host.fill("unit", "NOS");
    host.fillEnter("quantity", "1");
    host.fillEnter("rate", "250");
    host.go("amount");
    host.enter();
    EXPECT_EQ(host.lastMessage() + host.focus(), "Type The Name Of What Is Solditem_name");
    EXPECT_EQ(line("SELECT COUNT(*) FROM " + kind.work), "0");
    host.type("FITTING");
    host.go("amount");
    host.enter();
    host.key(KeyCode::Up);
    EXPECT_EQ(shown("item item_name amount"), "MISC|FITTING|250");
    host.fill("item", "NOSUCH");
    EXPECT_FALSE(host.focusOn(host.at("amount")));
    EXPECT_EQ(line("SELECT ITEM_CD FROM " + kind.work), "MISC");
    host.answers = {true};
    host.press("CMDCANCEL");
    host.closeTop();
  }
}

TEST_F(Lines, ShipToIsAnAccountOrNothing) {
  startBill();
  host.fillEnter("ship_to", "77");
  EXPECT_EQ(host.lastMessage() + host.text("ship_to"), "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE");
  host.fillEnter("ship_to", "3");
  EXPECT_EQ(shown("ship_to ship_to_name") + host.focus(), "A00003|CASHbill_type");
  host.go("ship_to");
  host.key(Key::Ctrl('A'));
  host.keys({KeyCode::Delete, KeyCode::Tab});
  EXPECT_EQ(shown("ship_to ship_to_name"), "|");
  db().exec("UPDATE ACCOUNT SET STATECD = 0 WHERE ACC_CD = 'A00004'");
  host.fillEnter("party", "4");
  EXPECT_EQ(host.lastMessage() + host.text("party"), "STATE CODE NOT SPECIFIED IN PARTYA00004");
}

// The first Enter opens the list; when that is closed the second goes on.
TEST_F(Lines, AnEmptyFieldLetsGo) {
  startBill();
  for (const auto& [field, next] : std::map<std::string, std::string>{
           {"ship_to",     "bill_type"},
           {"transport",   "cr_days"  },
           {"destination", "lr_no"    }
  }) {
    closeLists(1);
    host.fillEnter(field, "");
    EXPECT_EQ(host.focus() + host.hint(), field + "Press Enter Once More To Leave It Empty");
    host.enter();
    EXPECT_EQ(host.focus(), next);
  }
  closeLists(2);
  host.fillEnter("item", "");
  host.enter();
  EXPECT_EQ(host.focus() + host.hint(), "itemType It Or Press Enter For Help")
      << "a line without an item is none";
  host.fill("lr_date", "31022026");
  host.enter();
  EXPECT_EQ(
      host.focus() + host.hint(),
      "lr_date31/02/2026 Is No Date :: Type Another :: F1 = First Date :: F2 = Today :: F3 = Last Date");
  host.key(KeyCode::F2);
  host.enter();
  EXPECT_EQ(host.focus(), "parcels");
  host.answers = {true};
  host.press("CMDCANCEL");
  host.closeTop();

  // A type that no challan has yet is taken as it is typed.
  closeLists(1);
  startChallan("A00001", "");
  host.insideModal.push_back([this] {
    host.type("dc");
    host.enter();
  });
  host.fillEnter("challan_type", "");
  EXPECT_EQ(shown("challan_type challan_no") + host.focus(), "DC|1challan_no");
}
