#include "large_year.h"

#include <algorithm>

#include "vouchers/bill_fixture.h"

namespace {

class LargeYearTest : public BillTest {
 protected:
  LargeYearTest() {
    for (const auto& [setting, day] : {
             std::pair{211, session().mstartdt},
             {212, session().menddt  }
    }) {
      db().exec("DELETE FROM SPSFILE WHERE VOUCH_NO = ?", setting);
      db().exec("INSERT INTO SPSFILE (VOUCH_NO, VOUCH_DT) VALUES (?, ?)", setting, day);
    }
    db().exec("INSERT INTO TRANSMAST (TRANS_ID, TRANSNAME, TRANS_GOV_ID) VALUES (1, 'LOCAL', '.')");
    session().musername = "";
    makeLargeYear(db(), {.parties = 8, .items = 11, .bills = 60, .receipts = 9});
  }

  // Types a stored bill again, on its day, as a new one.
  double typeAgain(double bill) {
    const Row head = *db().first("SELECT * FROM SALE WHERE VOUCH_NO = ?", bill);
    host.clock = {*head.date("VOUCH_DT"), 10, 30};
    startBill(head.text("PARTY_CD"));
    host.go("Text1(32)");
    host.paste(head.text("CASH_CD"));  // typing takes digits only
    host.enter();
    host.go("Text1(5)");
    for (const Row& line : db().all("SELECT * FROM SALEITM WHERE VOUCH_NO = ? ORDER BY SR_NO", bill)) {
      host.fillEnter("Text1(5)", line.text("ITEM_CD"));
      host.fillEnter("Text1(8)", line.text("QUANTITY"));
      host.fillEnter("Text1(11)", line.text("SALE_DISC"));
      host.enter();
    }
    host.fillEnter("Text1(42)", "local");
    const double number = Val(host.text("Text1(0)"));
    save();
    return number;
  }

  // Where the rows of two bills differ: "TABLE.COLUMN this | that".
  std::vector<std::string> differences(double one, double other) {
    const std::vector<std::string> numbers = {"VOUCH_NO", "CHLN_NO", "BILL_NO", "PARTY_BL"};
    std::vector<std::string> found;
    for (const std::string table : {"SALE", "SALEITM", "ALEDGER"}) {
      const std::string sql =
          "SELECT * FROM " + table + " WHERE BOOK_CD = 'SA' AND VOUCH_NO = ? ORDER BY rowid";
      const auto these = db().all(sql, one), those = db().all(sql, other);
      if (these.empty() || these.size() != those.size()) found.push_back(table + " count of rows");
      for (size_t row = 0; row < std::min(these.size(), those.size()); ++row)
        for (int i = 0; i < these[row].count(); ++i) {
          const std::string& name = these[row].name(i);
          const Value &a = these[row].value(i), &b = those[row].value(i);
          if (a == b || std::ranges::find(numbers, name) != numbers.end()) continue;
          found.push_back(table + "." + name + " " + (a.isNull() ? "null" : a.text()) + " | " +
                          (b.isNull() ? "null" : b.text()));
        }
    }
    return found;
  }
};

// One party in four is of another state; the bills take all parties and several tax rates.
TEST_F(LargeYearTest, ABillIsWhatTheScreenStores) {
  for (const double bill : {3, 4, 5, 21, 60})
    EXPECT_EQ(differences(bill, typeAgain(bill)), std::vector<std::string>()) << "bill " << bill;
}

TEST_F(LargeYearTest, TheYearIsFullAndBalanced) {
  EXPECT_EQ(line("SELECT COUNT(*), COUNT(DISTINCT BILL_NO), MIN(VOUCH_DT), MAX(VOUCH_DT) FROM SALE"),
            "60|60|2026-04-01|2027-03-25");
  EXPECT_EQ(line("SELECT COUNT(*), COUNT(DISTINCT ITEM_CD) FROM SALEITM"), "180|11");
  EXPECT_EQ(line("SELECT COUNT(*), COUNT(DISTINCT PARTY_CD) FROM RPTPAY"), "9|8");
  EXPECT_EQ(line("SELECT COUNT(*) FROM ALEDGER WHERE BOOK_CD = 'RC'"), "18");
  EXPECT_EQ(unbalancedVouchers(db()), 0);
  // What the parties owe is what was billed and not paid.
  EXPECT_EQ(line("SELECT (SELECT SUM(CL_BAL - OP_BAL) FROM ACCOUNT WHERE GROUP_CD = 85) ="
                 " (SELECT SUM(NET_AMT) FROM SALE) - (SELECT SUM(AMOUNT) FROM RPTPAY)"),
            "1");
  db().exec(
      "UPDATE ALEDGER SET VOUCH_AMT = VOUCH_AMT + 0.01 WHERE BOOK_CD = 'SA' AND VOUCH_NO = 7"
      " AND VOUCH_TYPE = 'D' AND PARTY_CD LIKE 'A%'");
  EXPECT_EQ(unbalancedVouchers(db()), 1);
}

}  // namespace
