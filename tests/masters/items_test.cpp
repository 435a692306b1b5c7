#include "masters/items.h"

#include "masters_fixture.h"
#include "store/keys.h"

namespace {

class ItemTest : public MastersTest {
 protected:
  ItemTest() { host.start("FRMITEM1"); }

  static void item(const std::string& code, const std::string& name, const std::vector<std::string>& sizes) {
    data().exec(
        "INSERT INTO ITEM (ITEM_CD, ITEM_NAME, DEPT_CD, UOM, HSNCODE) VALUES (?, ?, 'E001', 'PCS', '8414')",
        code, name);
    for (const std::string& size : sizes)
      data().exec(
          "INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, SALE_RATE1, OP_STK, CL_STK) VALUES (?, ?, 100, 10, 7)",
          code, size);
  }
  static std::string rows(const std::string& code) {
    std::string text;
    for (auto r = data().query("SELECT SIZE_CD, SALE_RATE1, SALE_DISC, OP_STK, CL_STK, DESC1 FROM ITEMDTL "
                               "WHERE ITEM_CD = ? ORDER BY rowid",
                               code);
         r.next();) {
      text += text.empty() ? "" : " ";
      for (int i = 0; i < r.count(); ++i) text += (i ? "," : "") + r.text(i);
    }
    return text;
  }
  void head(const std::string& name) {
    host.fill("name", name);
    host.fill("category", "E001");
    host.fill("unit_name", "PCS");
    host.fill("tax_rate", "18");
    host.fill("hsn", "8414");
  }
  void detail(const std::string& size, const std::string& rate, const std::string& discount) {
    host.fill("unit", size);
    host.fill("sale_rate", rate);
    host.fill("discount", discount);
    host.go("description");
    host.enter();
  }
  void edit(const std::string& code) {
    host.press("cmdCancel");
    host.press("cmdEdit");
    host.fillEnter("code", code);
  }
  // Brings a row of the list into the entry row.
  void pick(size_t n) {
    host.rowTo(host.at("DataGrid1"), n);
    host.enter();
  }
};

TEST_F(ItemTest, AnUpdatedDatabaseKeepsOneUnitForAnItem) {
  ASSERT_TRUE(addKey(data(), {"ITEMDTL", "ITEM_CD"}));
  head("FAN");
  detail("PCS", "100", "5");
  detail("BOX", "950", "10");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(),
            "Entry Not Saved\r\nFAN Can Have Only One Unit In This Company\r\n"
            "Press F10 On The Row Of The Other Unit And Save Again");
  EXPECT_EQ(row("SELECT ITEM_CD FROM ITEM WHERE ITEM_CD = 'I0000001'"), "none");
  EXPECT_EQ(host.at("DataGrid1").grid.count(), 2u);
  host.rowTo(host.at("DataGrid1"), 1);
  host.answers = {true};
  host.key(KeyCode::F10);
  host.press("cmdUpdate");
  EXPECT_EQ(rows("I0000001"), "PCS,100,5,0,0,");
}

TEST_F(ItemTest, EditKeepsWhatItDoesNotShow) {
  item("I0000005", "BULB", {"PCS"});
  data().exec(
      "UPDATE ITEMDTL SET DESC1 = 'A DESCRIPTION OF MORE THAN TWENTY LETTERS' WHERE ITEM_CD = 'I0000005'");
  data().exec("UPDATE ITEM SET RATEOFCESS = 3, ITEM_SNAME = 'BLB' WHERE ITEM_CD = 'I0000005'");
  edit("I0000005");
  EXPECT_EQ(host.text("short_name"), "BLB");
  host.fill("tax_rate", "12");
  pick(0);
  EXPECT_EQ(host.focus(), "unit");
  host.fill("sale_rate", "120");
  host.fill("opening_stock", "15");  // five more than before
  host.press("cmdUpdate");
  EXPECT_EQ(rows("I0000005"), "PCS,120,0,15,12,A DESCRIPTION OF MORE THAN TWENTY LETTERS");
  EXPECT_EQ(row("SELECT RATEOFTAX, RATEOFCESS, ITEM_SNAME FROM ITEM WHERE ITEM_CD = 'I0000005'"), "12|3|BLB");
}

TEST_F(ItemTest, ARenamedUnitGoesThroughAllTables) {
  item("I0000005", "BULB", {"PCS", "BOX"});
  for (const char* insert :
       {"SALEITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD) VALUES (1, 'SA', 1, 'I0000005', 'PCS'),"
        " (1, 'SA', 2, 'I0000005', 'BOX')",
        "CHLNITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD) VALUES (1, 'CH', 1, 'I0000005', 'PCS'),"
        " (1, 'CH', 2, 'I0000005', 'BOX')",
        "QUOTITM (VOUCH_NO, SRNO, ITEM_CD, SIZE_CD) VALUES (1, 1, 'I0000005', 'PCS')",
        "PRTYRATE (RT_DT, ACC_CD, ITEM_CD, SIZE_CD) VALUES ('2026-01-01', 'A00001', 'I0000005', 'PCS')"})
    data().exec(std::string("INSERT INTO ") + insert);
  data().exec("CREATE TABLE ITEMLINK (ITEM_CD TEXT, SIZE_CD TEXT, RAW_CD TEXT, RAW_SIZE TEXT)");  // of some
  data().exec("INSERT INTO ITEMLINK VALUES ('I0000005', 'PCS', 'I2', 'B'), ('I3', 'C', 'I0000005', 'PCS')");
  // What they name stays, item and unit.
  host.press("cmdCancel");
  auto without = std::make_unique<Transaction>(data());
  data().exec("DELETE FROM SALEITM");
  host.answers = {true, true};
  host.press("cmdDelete");
  host.fillEnter("code", "I0000005");
  EXPECT_EQ(host.lastMessage(), "Can not DELETE :: This Item Stands In Challans");
  host.press("cmdAdd");
  edit("I0000005");
  host.rowTo(host.at("DataGrid1"), 1);
  host.key(KeyCode::F10);
  EXPECT_EQ(host.lastMessage(), "Can not DELETE :: This Unit Stands In Challans");
  EXPECT_EQ(host.at("DataGrid1").grid.count(), 2u);
  without.reset();

  edit("I0000005");
  data().exec("UPDATE ITEMDTL SET SALE_RATE1 = 101 WHERE SIZE_CD = 'PCS'");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage().substr(0, 37), "This Entry Has Been Changed Meanwhile");
  EXPECT_EQ(host.at("DataGrid1").grid.cell(0, 3).text, "101");
  data().exec("UPDATE ITEMDTL SET SALE_RATE1 = 100");
  edit("I0000005");
  pick(0);
  host.fill("unit", "NOS");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "Batch or Unit Can Not Be Changed")
      << "the row has not been taken into the list";
  host.go("description");
  host.enter();
  host.press("cmdUpdate");
  EXPECT_EQ(rows("I0000005"), "NOS,100,0,10,7, BOX,100,0,10,7,");
  for (const char* table : {"SALEITM", "CHLNITM", "QUOTITM", "PRTYRATE"})
    EXPECT_EQ(row(std::string("SELECT SIZE_CD FROM ") + table + " WHERE SIZE_CD <> 'BOX'"), "NOS") << table;
  EXPECT_EQ(row("SELECT COUNT(*) FROM SALEITM WHERE SIZE_CD = 'BOX'"), "1");
  EXPECT_EQ(row("SELECT GROUP_CONCAT(ITEM_CD || SIZE_CD || RAW_CD || RAW_SIZE) FROM ITEMLINK"),
            "I0000005NOSI2B,I3CI0000005NOS");
}

}  // namespace
