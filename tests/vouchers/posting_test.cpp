#include "vouchers/posting.h"

#include "frame/frmstartup.h"
#include "frame/killed.h"
#include "store/alter.h"
#include "store/balances.h"
#include "vouchers/bill_fixture.h"

namespace {

class PostingTest : public BillTest {
 protected:
  // The fixture's parties make room for those of the year.
  void fillYear(int bills, int seed = 20260615) {
    db().exec("DELETE FROM ACCOUNT WHERE ACC_CD LIKE 'A%'");
    ASSERT_EQ(oracle("fill", std::to_string(seed) + " " + std::to_string(bills)), 0);
  }
  int oracle(const std::string& task, const std::string& more = "") {
    const auto script = std::filesystem::current_path() / "posting_oracle.py";
    return std::system(("python3 '" + script.string() + "' " + task + " '" + file() + "' " + more).c_str());
  }
  std::string file() const { return (folder / "M00126.mdb").string(); }
  void reopen() { db().open(file()); }
  // As the opening of a company-year does.
  void openYear() {
    setOpeningRoutines();
    for (const auto& routine : openingRoutines()) routine();
    RebuildAllBalances(db());
  }
  std::string books() {
    std::string all;
    for (const char* select : {"SELECT rowid, * FROM ALEDGER ORDER BY rowid",
                               "SELECT ACC_CD, ROUND(CL_BAL, 6) FROM ACCOUNT ORDER BY ACC_CD"})
      for (auto rows = db().query(select); rows.next();) {
        for (int i = 0; i < rows.count(); ++i) all += (rows.isNull(i) ? "NULL" : rows.text(i)) + "|";
        all += "\n";
      }
    return all;
  }
};

}  // namespace

TEST_F(PostingTest, TheWholeLedgerIsWhatTheVouchersSay) {
  fillYear(600);
  db().exec(
      "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, PARTY_CD, VOUCH_TYPE, VOUCH_AMT) VALUES"
      " ('SA', 9999, 'A00001', 'D', 5), ('JV', 1, 'A00001', 'C', 7)");
  db().exec("CREATE INDEX main.THEIRS ON ALEDGER (NARRATION)");
  db().exec("CREATE VIEW main.THEIR_VIEW AS SELECT COUNT(*) AS N FROM ALEDGER");
  std::string told;
  postAll(db(), [&](std::string_view words) { told += words; });
  EXPECT_EQ(
      told,
      " Progress ....       Done \n Receipt Payment Posting ....       Done \n Sales Posting ....       Done "
      "\n Challan Posting ....       Done \n Updating Closing Balanes .....       Done ");
  EXPECT_EQ(oracle("check"), 0);

  // All is as it was for the next writer.
  EXPECT_EQ(line("SELECT GROUP_CONCAT(name) FROM (SELECT name FROM main.sqlite_master"
                 " WHERE type = 'index' AND tbl_name = 'ALEDGER' ORDER BY name)"),
            "ALEDGER_PARTY,ALEDGER_VOUCHER,THEIRS");
  EXPECT_EQ(line("SELECT N FROM THEIR_VIEW"), line("SELECT COUNT(*) FROM ALEDGER"));
  EXPECT_EQ(line("SELECT COUNT(*) FROM temp.sqlite_master WHERE name = 'TO_POST'"), "0");
  EXPECT_THROW(db().exec("INSERT INTO ALEDGER (BOOK_CD) VALUES ('LONG')"), DatabaseError);
  const std::string once = books();
  postAll(db());
  EXPECT_EQ(books(), once);
}

TEST_F(PostingTest, OpeningPostsWhatIsMissingAndNothingTwice) {
  fillYear(300);
  openYear();
  EXPECT_EQ(oracle("check"), 0) << "an empty ledger is filled";
  const std::string whole = books();
  for (int i = 0; i < 10; ++i) openYear();
  EXPECT_EQ(books(), whole);
  postAll(db());
  const std::string posted = books();
  for (int i = 0; i < 10; ++i) openYear();
  EXPECT_EQ(books(), posted);

  // A third of the vouchers lose their rows, in each book.
  db().exec("DELETE FROM ALEDGER WHERE VOUCH_NO % 3 = 1");
  openYear();
  EXPECT_EQ(oracle("check"), 0);
}

// Killed, posting leaves the books as they were or all posted; an opening, wherever it was killed, is
// ended by the next.
TEST_F(PostingTest, KilledAtAnyMomentTheBooksComeOutRight) {
  const auto sums = [&] {
    return line("SELECT COUNT(*), SUM(ROUND(VOUCH_AMT, 2)) FROM ALEDGER") + "|" +
           line("SELECT SUM(ROUND(CL_BAL, 2)) FROM ACCOUNT");
  };
  fillYear(60);
  openYear();
  const std::string whole = sums();
  db().exec("DELETE FROM ALEDGER WHERE rowid % 3 = 0");
  const std::string before = books();
  db().close();
  const auto seen = [&] {
    reopen();
    EXPECT_EQ(line("PRAGMA integrity_check"), "ok");
    std::string found = books();
    db().close();
    return found;
  };
  const auto posted = seenAfterKills(
      folder.path(),
      [&] {
        reopen();
        postAll(db());
      },
      seen);
  if (posted.empty()) GTEST_SKIP() << "processes may not be watched here";
  EXPECT_EQ(posted.size(), 2u);
  EXPECT_TRUE(posted.contains(before));

  reopen();
  db().exec("DELETE FROM ALEDGER WHERE VOUCH_NO % 3 = 0");
  db().exec("UPDATE ACCOUNT SET CL_BAL = 1");
  db().close();
  const auto opened = seenAfterKills(
      folder.path(),
      [&] {
        reopen();
        openYear();
      },
      [&] {
        reopen();
        openYear();
        const std::string found = sums();
        db().close();
        return found;
      });
  EXPECT_EQ(opened.size(), 1u);
  EXPECT_TRUE(opened.contains(whole));
  reopen();
}

TEST_F(PostingTest, StockFollowsAtPostingAndOpening) {
  const auto stock = [&] {
    return line(
        "SELECT GROUP_CONCAT(SIZE_CD || ' ' || CL_STK) FROM (SELECT * FROM ITEMDTL"
        " WHERE ITEM_CD IN ('I0000001', 'MISC') ORDER BY rowid)");
  };
  db().exec("DELETE FROM ITEMDTL WHERE ITEM_CD IN ('I0000001', 'MISC')");
  db().exec(
      "INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, OP_STK, CL_STK) VALUES ('MISC', 'NOS', 0, 0),"
      " ('I0000001', 'PCS', 10, 10), ('I0000001', 'BOX', 1, 7)");
  db().exec(
      "INSERT INTO SALEITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, QUANTITY) VALUES"
      " (1, 'SA', 1, 'I0000001', 'PCS', 2.5), (1, 'SA', 2, 'i0000001', 'pcs', 0.1),"
      " (1, 'SA', 3, 'MISC', 'NOS', 4), (1, 'PU', 1, 'I0000001', 'PCS', 6)");
  postAll(db());
  EXPECT_EQ(stock(), "NOS 0.0,PCS 13.4,BOX 1.0");
  db().exec("UPDATE SALEITM SET QUANTITY = 3.5 WHERE QUANTITY = 2.5");
  openYear();
  EXPECT_EQ(stock(), "NOS 0.0,PCS 12.4,BOX 1.0");
  db().exec("UPDATE DEPTMENT SET NOCOUNT_STK = 'Y'");
  db().exec("DELETE FROM SALEITM");
  openYear();
  EXPECT_EQ(stock(), "NOS 0.0,PCS 12.4,BOX 1.0") << "categories that are not counted stay";
}

// What would lose a voucher's rows is taken back and told; an opening posts what it can.
TEST_F(PostingTest, OldBooksArePostedWholeOrNotAtAll) {
  fillYear(60);
  for (const char* table : {"T_ACLST", "T_SLITM", "T_FINALNEW", "CAL"})
    db().exec(std::string("DROP TABLE main.") + table);
  reopen();
  postAll(db());
  EXPECT_EQ(oracle("check"), 0) << "work tables are gone";

  dropColumn(db(), "RPTPAY", "NARRATION1");
  const std::string old = books();
  host.open("FRMPOST", {});
  host.press("cmdPOST");
  EXPECT_EQ(
      host.lastMessage(),
      "RECEIPT ENTRY, PAYMENT ENTRY, INCOME ENTRY, EXPENSE ENTRY Could Not Be Posted :: Do Database Check "
      "First, Then Posting Again");
  EXPECT_NE(host.text("Label1").find("The Books Are As They Were"), std::string::npos);
  EXPECT_EQ(books(), old);

  db().exec("DROP TABLE CHLN");
  db().exec("DELETE FROM RPTPAY");
  db().exec("DELETE FROM ALEDGER WHERE BOOK_CD = 'SA'");
  dropColumn(db(), "SALE", "TIGSTRT");
  openYear();
  EXPECT_NE(line("SELECT COUNT(*) FROM ALEDGER WHERE BOOK_CD = 'SA'"), "0");
  EXPECT_EQ(line("SELECT COUNT(*) FROM ALEDGER WHERE PARTY_CD = 'X90063' AND BOOK_CD = 'SA'"), "0")
      << "the column is gone";

  db().exec("DELETE FROM SALE");
  postAll(db());
  EXPECT_EQ(line("SELECT COUNT(*) FROM ALEDGER"), "0");
  EXPECT_EQ(line("SELECT COUNT(*) FROM ACCOUNT WHERE CL_BAL <> COALESCE(OP_BAL, 0)"), "0");
}

TEST_F(PostingTest, SidesAreComparedVoucherByVoucher) {
  const auto bill = [&](int number, double net, double items, double tax, double roundOff) {
    db().exec(
        "INSERT INTO SALE (VOUCH_NO, BOOK_CD, PARTY_CD, SALE_CD, NET_AMT, ITEM_AMT, TCGSTRT, TSGSTRT, "
        "ROUND_OFF,"
        " GSTPOST) VALUES (?, 'SA', 'A00001', 'X90002', ?, ?, ?, ?, ?, 1)",
        number, net, items, tax, tax, roundOff);
  };
  bill(901, 118, 99.6, 9, 0.4);
  bill(902, -236, -199.6, -18, -0.4);
  bill(903, 0, 0, 0, 0);
  postAll(db());
  EXPECT_EQ(line("SELECT COUNT(*) FROM ALEDGER WHERE VOUCH_NO = 902"), "5")
      << "amounts below 0 have their tax rows";
  for (int number = 904; number < 930; ++number) bill(number, 118, 100, 9, 0.4);
  host.open("FRMPOST", {});
  host.press("cmdPOST");
  EXPECT_EQ(host.lastMessage(), "POSTING IS COMPLETE");
  EXPECT_TRUE(session().mreportrefresh) << "the list of what does not agree shows";

  EXPECT_NO_THROW(checkLedger(db(), {
                                        {&saleKind(), 28}
  }));
  EXPECT_THROW(checkLedger(db(),
                           {
                               {&saleKind(), 29}
  }),
               NotPosted);
  db().exec("DELETE FROM ALEDGER WHERE VOUCH_NO = 902 AND PARTY_CD = 'X90061'");
  EXPECT_THROW(checkLedger(db(),
                           {
                               {&saleKind(), 28}
  }),
               NotPosted)
      << "a row is lost";
}

TEST_F(PostingTest, OpeningWithNothingMissingWaitsForNobody) {
  fillYear(30);
  openYear();
  Database other;
  other.open(file());
  const Transaction writing(other);
  const auto start = std::chrono::steady_clock::now();
  postMissing(db());
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}
