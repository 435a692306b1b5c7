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
  // What is stored knows nothing of the bills.
  Outstanding() { account("A00001", 85, 0, 0); }

  void account(const char* code, int group, double balance, double opening) {
    db.exec(
        "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD, CL_BAL, OP_BAL, AREA, CITY) VALUES (?, ?, ?, ?, ?, "
        "'ANAND',"
        " 'GUJARAT')",
        code, std::string("PARTY ") + code, group, balance, opening);
  }
  void enter(const std::vector<Entry>& entries, const char* code = "A00001") {
    for (const Entry& e : entries)
      db.exec(
          "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, VOUCH_TYPE, VOUCH_DT, PARTY_BL, VOUCH_AMT, PARTY_CD, "
          "NARRATION)"
          " VALUES ('SA', 7, ?, ?, ?, ?, ?, 'BY ROAD')",
          e.side, e.date, e.bill, e.amount, code);
  }
  bool run(const char* to, const std::string& code = "") {
    query.to = *parseDate(to);
    return ON_AC_RECEIVABLES(db, code, query);
  }
  std::string open(const char* to = "2026-06-30") {
    run(to);
    std::string all;
    for (auto r = db.query(
             "SELECT PARTY_BL, CR, DR, CL_BAL, DATE_DIF FROM CAL ORDER BY PARTY_CD, VOUCH_DT, PARTY_BL");
         r.next();)
      all += r.text(0) + " " + r.text(1) + " " + r.text(2) + " " + r.text(3) + " " + r.text(4) + "\n";
    return all;
  }

  ReportQuery query{.periodStart = *parseDate("2026-04-01"), .periodEnd = *parseDate("2027-03-31")};
};

TEST_F(Outstanding, AnOpeningBalanceIsTheOldest) {
  db.exec("UPDATE ACCOUNT SET OP_BAL = 1000 WHERE ACC_CD = 'A00001'");
  enter({
      {"D", "2026-06-02", "2", 500},
      {"D", "2026-06-01", "1", 500},
      {"C", "2027-01-01", "R", 400}
  });  // later than the date asked for
  EXPECT_EQ(open(), " OP 1000 400 600 90\n1 500 0 500 29\n2 500 0 500 28\n");
  EXPECT_EQ(open("2026-06-01"), " OP 1000 400 600 61\n1 500 0 500 0\n");
  EXPECT_EQ(db.text("SELECT VOUCH_NO || BOOK_CD || VOUCH_DT || NARR1 || BCK_BAL FROM CAL"),
            "0.0OP2026-04-0101/Jun/202661.0");
  db.exec("UPDATE ACCOUNT SET OP_BAL = -300 WHERE ACC_CD = 'A00001'");
  EXPECT_EQ(open(), "2 500 200 300 28\n");
}

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
