#include "reports/outstanding.h"

#include "reports/balances.h"
#include "store/company_fixture.h"

namespace {

struct Entry {
  const char *side, *date, *bill;
  double amount;
};

// One customer, and what CAL holds of it: bill, its amount, paid, open and days, by hand.
class Outstanding : public CompanyTest {
 protected:
  Outstanding() {
    db.exec("INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD) VALUES ('A00001', 'PATEL', 85)");
  }

  void enter(const std::vector<Entry>& entries) {
    for (const Entry& e : entries)
      db.exec(
          "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, PARTY_CD, VOUCH_TYPE, VOUCH_DT, PARTY_BL, VOUCH_AMT)"
          " VALUES ('SA', 7, 'A00001', ?, ?, ?, ?)",
          e.side, e.date, e.bill, e.amount);
  }
  std::string open() {
    ON_AC_RECEIVABLES(db, "", query);
    std::string all;
    for (auto r = db.query(
             "SELECT PARTY_BL, CR, DR, CL_BAL, DATE_DIF FROM CAL ORDER BY PARTY_CD, VOUCH_DT, PARTY_BL");
         r.next();)
      all += r.text(0) + " " + r.text(1) + " " + r.text(2) + " " + r.text(3) + " " + r.text(4) + "\n";
    return all;
  }

  const ReportQuery query{.to = *parseDate("2026-06-30"),
                          .periodStart = *parseDate("2026-04-01"),
                          .periodEnd = *parseDate("2027-03-31")};
};

// 0.1 + 0.2 is more than 0.3 to the machine and 300.29999999999995 less than 300.3, to nobody else.
TEST_F(Outstanding, AnExactPaymentLeavesNothing) {
  enter({
      {"D", "2026-06-01", "1", 300.3},
      {"C", "2026-06-01", "R", 100.1},
      {"C", "2026-06-01", "R", 200.2},
      {"D", "2026-06-02", "2", 0.1  }
  });
  EXPECT_EQ(open(), "2 0.1 0 0.1 28\n");
  enter({
      {"C", "2026-06-02", "R", 0.1}
  });
  EXPECT_EQ(open(), "");
}

// Days that are paid in whole are passed by, but not one on which a bill takes back.
TEST_F(Outstanding, ABillThatTakesBackPaysOthers) {
  enter({
      {"D", "2026-06-01", "1", 100 },
      {"D", "2026-06-02", "2", 200 },
      {"D", "2026-06-02", "3", -150},
      {"D", "2026-06-03", "4", 100 },
      {"C", "2026-06-01", "R", 170 }
  });
  EXPECT_EQ(open(), "2 200 70 130 28\n4 100 0 100 27\n");
}

// Reports write work tables alone: while another program saves, they open all the same.
TEST_F(Outstanding, WaitsForNobodyWhoSaves) {
  enter({
      {"D", "2026-06-01", "1", 100}
  });
  Database other;
  other.open(db.file());
  const Transaction saving(other);
  EXPECT_EQ(open(), "1 100 0 100 29\n");
  BuildFinalTable(db, query.periodStart, query.periodEnd, kClosingBalanceList);
  EXPECT_EQ(closingBalances(db).size(), 1U);
}

}  // namespace
