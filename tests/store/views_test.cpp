#include "store/views.h"

#include "company_fixture.h"

namespace {

class ViewsTest : public CompanyTest {};

}  // namespace

TEST_F(ViewsTest, ABillIsReadWithItsLinesAndNames) {
  db.exec(
      "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, STATECD) VALUES ('A00001', 'O''Brien', 24), ('A00002', "
      "'Depot', 27)");
  db.exec("INSERT INTO ITEM (ITEM_CD, ITEM_NAME, DEPT_CD) VALUES ('I0000001', 'Bolt', 'E001')");
  db.exec("INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, SALE_RATE1) VALUES ('I0000001', 'PCS', 9)");
  db.exec(
      "INSERT INTO SALE (VOUCH_NO, BOOK_CD, PARTY_CD, CASH_CD, DESPATCH_FROM) VALUES (7, 'SA', 'a00001', "
      "'A00002', 'X90002')");
  db.exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, PARTY_CD, CASH_CD) VALUES (8, 'SA', 'A00001', 'X90005')");
  db.exec(
      "INSERT INTO SALEITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, AMOUNT, CGSTRT, CGSTAMT) VALUES"
      " (7, 'SA', 2, 'I0000001', 'PCS', 200, 9, 18), (7, 'SA', 1, 'GONE', 'PCS', 100, 9, 9), (7, 'SA', 3, "
      "'MISC', '.', 50, 2.5, 1.25)");
  const auto lines = db.all(
      "SELECT * FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = ? ORDER BY SR_NO", 7, "SA");
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_TRUE(lines[0].isNull("ITEM_NAME"));
  EXPECT_EQ(lines[1].text("ITEM_NAME"), "Bolt");
  EXPECT_EQ(lines[1].text("ACCOUNT.ACC_NAME"), "O'Brien");
  EXPECT_EQ(lines[1].text("ACCOUNT_1.ACC_NAME"), "Depot");
  EXPECT_EQ(lines[1].text("DESPACCNM"), "SALES A/C");
  EXPECT_EQ(lines[1].text("sale_rate1"), "9");
  EXPECT_EQ(lines[2].text("DEPT_NAME"), "MISC");
  const auto bare = db.all("SELECT * FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ?", 8);
  ASSERT_EQ(bare.size(), 1u) << "a bill without lines";
  EXPECT_TRUE(bare[0].isNull("ACCOUNT_1.ACC_NAME")) << "what an update writes is no ship-to";

  std::string totals;
  for (const auto& row :
       db.all("SELECT * FROM GSTTOTQRY WHERE VOUCH_NO = 7 AND BOOK_CD = 'SA' ORDER BY CGSTRT"))
    totals += row.text("CGSTRT") + ":" + row.text("CGSTTAX") + ":" + row.text("GSTVAL") + " ";
  EXPECT_EQ(totals, "2.5:1.25:50 9:27:300 ");
}

TEST_F(ViewsTest, OneVouchersReadIsKeyed) {
  for (const char* statement : {
           "SELECT * FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = ? ORDER BY "
           "[SALE.VOUCH_NO], SR_NO",
           "SELECT * FROM blprn WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY VOUCH_NO, SR_NO",
           "SELECT * FROM CHLNPRN WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY VOUCH_NO, SR_NO",
           "SELECT * FROM QUOTPRN WHERE [QUOT.VOUCH_NO] = ? AND ENTRY_TYP = ? ORDER BY [QUOT.VOUCH_NO], SRNO",
           "SELECT * FROM GSTTOTQRY WHERE VOUCH_NO = ? AND BOOK_CD = ?",
           "SELECT * FROM QUOTGSTTOT WHERE VOUCH_NO = ? AND ENTRY_TYP = ?",
           "SELECT HSNCODE, SUM(AMOUNT) FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = ? GROUP "
           "BY HSNCODE",
       }) {
    std::string steps;
    for (const auto& row : db.all(std::string("EXPLAIN QUERY PLAN ") + statement, 7, "SA"))
      steps += row.text("detail") + "\n";
    for (const char* table : {"SALE", "SALEITM", "ACCOUNT", "ITEM", "ITEMDTL", "CHLN", "CHLNITM", "QUOT",
                              "QUOTITM", "BUYER", "DEPTMENT"})
      for (const char* after : {" ", "\n"})
        EXPECT_EQ(steps.find("SCAN " + std::string(table) + after), std::string::npos) << statement << steps;
    EXPECT_EQ(steps.find("AUTOMATIC"), std::string::npos) << statement << steps;
  }
}
