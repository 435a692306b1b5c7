#include "reports/outstanding.h"

#include "store/company_fixture.h"

namespace {

struct Entry {
  const char *side, *date, *bill;
  double amount;
};

// One customer, and what CAL holds of it: bill, its amount, paid, open and days, by hand.
class Outstanding : public CompanyTest {
 protected:
  Outstanding() { account("A00001", 85, 5000, 0); }

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

TEST_F(Outstanding, CreditsPayTheOldestFirst) {
  enter({
      {"D", "2026-06-30", "3", 300},
      {"D", "2026-05-01", "1", 100},
      {"D", "2026-05-01", "2", 200},
      {"C", "2026-05-02", "R", 100}
  });
  EXPECT_EQ(open(), "2 200 0 200 60\n3 300 0 300 0\n");
  enter({
      {"C", "2027-01-01", "R", 150}
  });  // later than the date asked for
  EXPECT_EQ(open(), "2 200 150 50 60\n3 300 0 300 0\n");
  EXPECT_EQ(open("2026-06-29"), "2 200 150 50 59\n");
  EXPECT_EQ(open("2026-04-30"), "");
  enter({
      {"C", "2026-06-01", "R", 350}
  });
  EXPECT_EQ(open(), "");
  enter({
      {"C", "2026-06-01", "R", 5000}
  });  // an advance
  EXPECT_EQ(open(), "");
}

TEST_F(Outstanding, AnOpeningBalanceIsTheOldest) {
  db.exec("UPDATE ACCOUNT SET OP_BAL = 1000 WHERE ACC_CD = 'A00001'");
  EXPECT_EQ(open(), " OP 1000 0 1000 90\n");
  enter({
      {"D", "2026-06-01", "1", 500},
      {"D", "2026-06-02", "2", 500},
      {"C", "2026-06-01", "R", 400}
  });
  EXPECT_EQ(open(), " OP 1000 400 600 90\n1 500 0 500 29\n2 500 0 500 28\n");
  EXPECT_EQ(db.text("SELECT VOUCH_NO || BOOK_CD || VOUCH_DT || NARR1 || BCK_BAL FROM CAL"),
            "0.0OP2026-04-0130/Jun/202690.0");
  enter({
      {"C", "2026-06-01", "R", 600}
  });
  EXPECT_EQ(open(), "1 500 0 500 29\n2 500 0 500 28\n");
  db.exec("UPDATE ACCOUNT SET OP_BAL = -300 WHERE ACC_CD = 'A00001'");
  EXPECT_EQ(open(), "");
  db.exec("DELETE FROM ALEDGER WHERE VOUCH_TYPE = 'C'");
  EXPECT_EQ(open(), "1 500 300 200 29\n2 500 0 500 28\n");
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

TEST_F(Outstanding, TextsOfBillsBreakNothing) {
  enter({
      {"D", "2026-06-01", "",                                                    10},
      {"D", "2026-06-02", "O'NEIL",                                              20},
      {"D", "2026-06-03", "12345678901234567890123456789012345678901234567890X", 30}
  });
  db.exec("UPDATE ALEDGER SET NARRATION = 'O''NEIL, (50%) @ DOOR'");
  EXPECT_EQ(
      open(),
      ". 10 0 10 29\nO'NEIL 20 0 20 28\n12345678901234567890123456789012345678901234567890 30 0 30 27\n");
  EXPECT_EQ(db.text("SELECT NARRATION FROM CAL"), "ONEIL 50  DOOR");
}

TEST_F(Outstanding, TakesCustomersWhoOweByTheirStoredBalance) {
  account("A00002", 86, 1, 0);
  account("A00003", 35, 1, 0);
  account("A00004", 85, 0, 0);
  account("A00005", 85, -1, 0);
  for (const char* code : {"A00001", "A00002", "A00003", "A00004", "A00005"})
    enter(
        {
            {"D", "2026-06-01", code, 10}
    },
        code);
  EXPECT_EQ(open(), "A00001 10 0 10 29\nA00002 10 0 10 29\n");
  query.fields[kParty] = "a00002";
  EXPECT_EQ(open(), "A00002 10 0 10 29\n");
  EXPECT_TRUE(run("2026-06-30", "A00001"));  // a code leaves the fields aside
  EXPECT_EQ(db.text("SELECT PARTY_CD FROM CAL"), "A00001");
  query.fields[kParty] = "A00004";
  EXPECT_FALSE(run("2026-06-30"));
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM CAL"), 0);
  query.fields = {"", "anand", "GUJARAT", "", "86 "};
  EXPECT_EQ(open(), "A00002 10 0 10 29\n");
  query.fields[kSalesman] = "S009";
  EXPECT_FALSE(run("2026-06-30"));
}

}  // namespace
