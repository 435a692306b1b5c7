#include "frame/glance.h"

#include "frame_fixture.h"

namespace {

Date on(const char* text) { return *parseDate(text); }

class Glance : public FrameTest {
 protected:
  Glance() {
    db_.open(folder_ / "M00125.mdb");
    db_.exec("PRAGMA synchronous = OFF");
  }

  void bill(int number, const char* date, const char* party, double amount, const char* book = "SA") {
    db_.exec(
        "INSERT INTO SALE (VOUCH_NO, VOUCH_DT, BOOK_CD, BILL_NO, PARTY_CD, NET_AMT) VALUES (?, ?, ?, ?, ?, "
        "?)",
        number, on(date), book, "B" + std::to_string(number), party, amount);
    db_.exec(
        "INSERT INTO ALEDGER (VOUCH_NO, VOUCH_DT, BOOK_CD, VOUCH_TYPE, PARTY_CD, VOUCH_AMT)"
        " VALUES (?, ?, ?, 'D', ?, ?)",
        number, on(date), book, party, amount);
  }
  void receipt(int number, const char* date, double amount, const char* book = "RC") {
    db_.exec("INSERT INTO RPTPAY (VOUCH_NO, VOUCH_DT, BOOK_CD, AMOUNT) VALUES (?, ?, ?, ?)", number, on(date),
             book, amount);
  }
  void account(const char* code, int group, double opening) {
    db_.exec("INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, CITY, GROUP_CD, OP_BAL) VALUES (?, ?, 'ANAND', ?, ?)",
             code, std::string("NAME ") + code, group, opening);
  }

  Database db_;
};

TEST_F(Glance, SumsBillsAndReceiptsOfTheirDays) {
  bill(1, "31/05/2026", "A00001", 100);
  bill(2, "01/06/2026", "A00001", 200);
  bill(3, "15/06/2026", "A00001", 400);
  bill(4, "30/06/2026", "A00001", 800);
  bill(5, "15/06/2026", "A00001", 9999, "SR");
  receipt(1, "15/06/2026", 50.5);
  receipt(2, "15/06/2026", 70, "PY");
  receipt(3, "14/06/2026", 20);

  struct {
    const char *first, *last;
    double sales, bills, receipts, count;
  } const cases[] = {
      {"15/06/2026", "15/06/2026", 400,  1, 50.5, 1},
      {"01/06/2026", "30/06/2026", 1400, 3, 70.5, 2},
      {"01/07/2026", "31/07/2026", 0,    0, 0,    0},
  };
  for (const auto& c : cases) {
    const Figure sales = salesBetween(db_, on(c.first), on(c.last));
    const Figure receipts = receiptsBetween(db_, on(c.first), on(c.last));
    EXPECT_EQ(sales.amount, c.sales) << c.first;
    EXPECT_EQ(sales.count, c.bills) << c.first;
    EXPECT_EQ(receipts.amount, c.receipts) << c.first;
    EXPECT_EQ(receipts.count, c.count) << c.first;
  }
}

// Receipts count against the oldest bills, so the newest ones make up what is open.
TEST_F(Glance, TheOldestUnpaidBillGivesTheAge) {
  const Date today = on("30/06/2026"), start = on("01/04/2026");
  struct {
    double balance;
    int days;
  } const cases[] = {
      {50,    10}, // a part of the newest bill
      {100,   10},
      {100.5, 20},
      {300,   20},
      {301,   29},
      {600,   29},
      {900,   90}, // the opening balance is open too
  };
  for (const auto& c : cases) {
    db_.exec("DELETE FROM SALE");
    db_.exec("DELETE FROM ALEDGER");
    db_.exec("DELETE FROM ACCOUNT WHERE ACC_CD LIKE 'A%'");
    account("A00001", 85, c.balance - 600);
    bill(1, "01/06/2026", "A00001", 300);
    bill(2, "10/06/2026", "A00001", 200);
    bill(3, "20/06/2026", "A00001", 100);
    const auto debtors = receivable(db_, 5, today, start).largest;
    ASSERT_EQ(debtors.size(), 1u);
    EXPECT_EQ(debtors[0].days, c.days) << c.balance;
  }
  account("A00002", 85, 5000);
  account("A00003", 85, 20);
  const auto largest = receivable(db_, 2, today, start).largest;
  ASSERT_EQ(largest.size(), 2u);
  EXPECT_EQ(largest[0].party + largest[1].party, "NAME A00002NAME A00001");
}

// A dealer's group that the shop made under the debtors', and one under that, owe as well; a circle of
// groups ends.
TEST_F(Glance, CustomersOfGroupsBelowAreCustomers) {
  db_.exec(
      "INSERT INTO GRP (GROUP_CD, GROUP_NAME, SUB_GROUP) VALUES (201, 'DEALERS', 85), (202, 'FAR DEALERS', "
      "201),"
      " (203, 'ROUND', 204), (204, 'ABOUT', 203)");
  account("A00001", 85, 10);
  account("A00002", 201, 20);
  account("A00003", 202, 40);
  account("A00004", 135, 80);
  account("A00005", 203, 160);
  EXPECT_EQ(receivable(db_, 5, on("30/06/2026"), on("01/04/2026")).all.amount, 70);
}

TEST_F(FrameTest, TheShellShowsTheDayAtAGlance) {
  Database year;
  year.open(folder_ / "M00125.mdb");
  year.exec(
      "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, CITY, GROUP_CD, OP_BAL) VALUES ('A00001', 'MEHTA', 'NADIAD', "
      "85, 500)");
  year.exec(
      "INSERT INTO SALE (VOUCH_NO, VOUCH_DT, BOOK_CD, BILL_NO, PARTY_CD, NET_AMT)"
      " VALUES (1, '2026-06-15', 'SA', '00001', 'A00001', 93865)");
  year.close();
  openShell();
  EXPECT_EQ(host_.text("Company"), "SHREE TRADERS");
  EXPECT_EQ(host_.text("Today") + " " + host_.text("Weekday"), "15/Jun/2026 Monday");
  EXPECT_EQ(host_.text("Figure(0)") + " " + host_.text("Count(0)"), "93865 1 bill");
  EXPECT_EQ(host_.text("Figure(2)") + " " + host_.text("Count(2)"), "0 0 receipts");
  EXPECT_EQ(host_.text("Figure(4)") + " " + host_.text("Count(4)"), "500 1 party");
  EXPECT_EQ(host_.cell("LastBills", 0, 0) + host_.cell("LastBills", 0, 4), "0000193865.00");
  EXPECT_EQ(host_.cell("Largest", 0, 0) + host_.cell("Largest", 0, 2), "MEHTA500.00");
  EXPECT_EQ(host_.focus() + std::to_string(host_.at("LastBills").grid.current), "LastBills0");

  // Another bill, seen on the return from a child screen.
  host_.key(Key::Ctrl('G'));
  data().exec("INSERT INTO SALE (VOUCH_NO, VOUCH_DT, BOOK_CD, NET_AMT) VALUES (2, '2026-06-15', 'SA', 35)");
  host_.escape();
  EXPECT_EQ(host_.text("Figure(0)") + " " + host_.text("Count(0)"), "93900 2 bills");
}

}  // namespace
