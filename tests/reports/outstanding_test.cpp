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

// What is settled bill by bill stays with its bill, at whatever date that is; the rest pays the oldest first.
TEST_F(Outstanding, FollowsWhatIsSettledBillByBill) {
  const auto post = [&](const char* book, int number, const char* side, const char* date, double amount) {
    db.exec(
        "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, PARTY_CD, VOUCH_TYPE, VOUCH_DT, PARTY_BL, VOUCH_AMT)"
        " VALUES (?, ?, 'A00001', ?, ?, ?, ?)",
        book, number, side, date, std::to_string(number), amount);
  };
  const auto settle = [&](const char* book, int number, const char* bill, int itsNumber, double amount) {
    db.exec(
        "INSERT INTO SETTLES (BOOK_CD, VOUCH_NO, WHAT, PARTY_CD, BILL_BOOK, BILL_VNO, AMOUNT)"
        " VALUES (?, ?, 'B', 'A00001', ?, ?, ?)",
        book, number, bill, itsNumber, amount);
  };
  post("SA", 1, "D", "2026-06-01", 100);
  post("SA", 2, "D", "2026-06-02", 200);
  post("RC", 1, "C", "2026-06-03", 150);
  settle("RC", 1, "SA", 2, 150);
  EXPECT_EQ(open(), "1 100 0 100 29\n2 200 150 50 28\n");
  post("SA", 3, "D", "2026-07-05", 300);
  post("RC", 2, "C", "2026-07-05", 300);
  settle("RC", 2, "SA", 3, 300);
  EXPECT_EQ(open(), "1 100 0 100 29\n2 200 150 50 28\n") << "money for a later bill";
  post("RC", 3, "C", "2026-06-04", 120);
  EXPECT_EQ(open(), "2 200 170 30 28\n") << "on account";
  settle("RC", 4, "SA", 1, 110);
  post("RC", 4, "C", "2026-06-05", 110);
  EXPECT_EQ(open(), "") << "120 on account and 10 above the first bill";
  post("PY", 1, "D", "2026-06-06", 110);
  EXPECT_EQ(open(), "1 110 80 30 24\n") << "a cheque given back on account";
  settle("PY", 1, "RC", 3, 110);
  EXPECT_EQ(open(), "2 200 170 30 28\n") << "or of the money that was on account";
  db.exec("UPDATE ACCOUNT SET OP_BAL = 500");
  settle("RC", 3, "OP", 0, 10);
  EXPECT_EQ(open(), " OP 500 20 480 90\n2 200 150 50 28\n");
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
