#include "vouchers/challans.h"

#include "vouchers/bill_fixture.h"
#include "vouchers/posting.h"
#include "vouchers/rate_history.h"

namespace {

class Challans : public BillTest {
 protected:
  std::string ledger() {
    return line(
        "SELECT GROUP_CONCAT(VOUCH_TYPE || ' ' || PARTY_CD || ' ' || PARTY_TCD || ' ' || NUMTEXT(VOUCH_AMT)"
        " || ' ' || PARTY_BL || ' ' || NARRATION || ' ' || BW_AB || ' ' || IFNULL(SUB_DESC, '-'), '/')"
        " FROM (SELECT * FROM ALEDGER WHERE BOOK_CD = 'CH' ORDER BY rowid)");
  }
};

}  // namespace

// Every column of both tables: those written here, "." in some, 0 in all that are left.
TEST_F(Challans, EveryColumnHasItsValue) {
  startChallan("A00004");
  host.fill("Text1(10)", "");
  typeGoods("I0000001", "2", "50.25");
  saveGoods();
  EXPECT_EQ(written("CHLN"),
            "VOUCH_DT=2026-06-15 VOUCH_TIME=10:30 VOUCH_NO=1 BOOK_CD=CH CHLN_NO=1 CHLN_TYP=DC ORDER_NO=PO/7"
            " PARTY_CD=A00004 ITEM_AMT=100.5 NARRATION= NARRATION1=. NO_OF_ITEM=2 NET_AMT=100.5 SMAN_CD=S001"
            " GR_NO= GR_DATE=2026-06-15 TRANSPORT= FREIGHT=. DESTI=. VEHI_NO=. USER_CD=RAJ ENT_DT=2026-06-15"
            " ENT_TIME=10:30 MOBNOCO=9090909090 DATANM=M00126 DATASENT=N");
  EXPECT_EQ(written("CHLNITM"),
            "VOUCH_DT=2026-06-15 VOUCH_NO=1 BOOK_CD=CH DEPT_CD=E001 ITEM_CD=I0000001 SIZE_CD=PCS QUANTITY=2"
            " RATE=50.25 NET_AMOUNT=100.5 DESC1=. ITEM_DESC= SR_NO=1 MOBNOCO=9090909090 DATANM=M00126"
            " DATASENT=N");
}

TEST_F(Challans, TheLedgerHasAPairAndTheFullPostingAnother) {
  ChallanHeader c = challan(7);
  c.narration = "N";
  c.destination = "ANAND";
  ASSERT_TRUE(saveChallan(db(), challanKind(), c, stamp(), Saving::Fresh));
  EXPECT_FALSE(saveChallan(db(), challanKind(), c, stamp(), Saving::Fresh)) << "its number is taken";
  EXPECT_EQ(ledger(), "D A00001 X90002 105.5 012 N A -/C X90002 A00001 105.5 012 N A -");
  c.amount = 5;
  c.party = "A00002";
  ASSERT_TRUE(saveChallan(db(), challanKind(), c, stamp(), Saving::Again));
  EXPECT_EQ(ledger(), "D A00002 X90002 5 012 N A -/C X90002 A00002 5 012 N A -");
  // Neither a bill of the same number nor one for the same goods is touched or nets it.
  ASSERT_TRUE(saveBill(db(), saleKind(), bill(7), stamp(), Saving::Fresh));
  ASSERT_TRUE(saveChallan(db(), challanKind(), challan(8, 0), stamp(), Saving::Fresh));
  postAll(db());
  const std::string rebuilt = "D A00002 X90002 5  12 N LR'9 ANAND A 0/C X90002 A00002 5  12 N LR'9 ANAND A 0";
  EXPECT_EQ(ledger(), rebuilt) << "and the one of no amount is gone";
  EXPECT_EQ(line("SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE BOOK_CD = 'SA' AND VOUCH_TYPE = 'D'"), "118");
  deleteChallan(db(), challanKind(), 7);
  EXPECT_EQ(line("SELECT COUNT(*) FROM CHLN") + ledger(), "1" + rebuilt);
  postAll(db());
  EXPECT_EQ(ledger(), "");
  EXPECT_EQ(line("SELECT COUNT(*) FROM SALE"), "1");
}

TEST_F(Challans, EachTypeIsASeriesOfItsOwn) {
  const auto next = [&](const std::string& type) {
    return numText(nextChallanNumber(db(), challanKind(), type));
  };
  EXPECT_EQ(next("DC"), "1");
  db().exec(
      "INSERT INTO CHLN (VOUCH_NO, BOOK_CD, CHLN_TYP, CHLN_NO) VALUES (3, 'CH', 'DC', '500'),"
      " (9, 'CH', 'DC', '11'), (12, 'CH', 'JOB', '99'), (13, 'CH', 'OLD', 'A12'), (20, 'RT', 'DC', '77')");
  EXPECT_EQ(next("dc") + " " + next("JOB") + " " + next("OLD") + " " + next("O'NEIL ભાઈ"), "12 100 1 1")
      << "after the last voucher, not the highest number, and without padding";

  struct Case {
    const char *type, *number;
    std::optional<double> changing;
    bool refused;
  };
  const std::vector<Case> cases = {
      {"DC",  "11",  std::nullopt, true },
      {"DC",  "11",  9,            false}, // itself
      {"DC",  "11",  3,            true },
      {"DC",  "011", std::nullopt, true }, // stored as 11
      {"OLD", "A12", std::nullopt, true },
      {"JOB", "11",  std::nullopt, false}, // another type
      {"DC",  "77",  std::nullopt, false}, // another book
  };
  for (const Case& c : cases)
    EXPECT_EQ(isDuplicateChallan(db(), challanKind(), c.type, c.number, c.changing), c.refused) << c.number;
}

TEST_F(Challans, EarlierRatesAreOfChallansAlone) {
  const auto send = [&](int number, const char* book, const char* day, const char* party) {
    db().exec("INSERT INTO CHLN (VOUCH_NO, BOOK_CD, VOUCH_DT, PARTY_CD) VALUES (?, ?, ?, ?)", number, book,
              day, party);
    db().exec(
        "INSERT INTO CHLNITM (VOUCH_NO, BOOK_CD, VOUCH_DT, SR_NO, ITEM_CD, SIZE_CD, QUANTITY, RATE, "
        "SALE_DISC,"
        " NET_AMOUNT) VALUES (?, ?, ?, 1, 'I0000001', 'PCS', 2.5, ?, 0, 25)",
        number, book, day, number);
  };
  for (int n = 1; n <= 9; ++n) send(n, "CH", ("2026-05-0" + std::to_string(n)).c_str(), "A00001");
  send(10, "CH", "2026-06-01", "A00002");
  send(11, "RT", "2026-06-01", "A00001");
  const auto rows = [&](const std::string& party) {
    return challanRates(db(), challanKind(), {party, "I0000001", "PCS"}).rows->rows;
  };
  ASSERT_EQ(rows("A00001").size(), 9U) << "all of them";
  std::string first;
  const auto latest = rows("A00001")[0];
  for (const Cell& cell : latest) first += cell.text + " ";
  EXPECT_EQ(first, "9 09/May/2026 2.500 9 0 25 ");
  Transaction many(db());
  for (int n = 100; n < 500; ++n) send(n, "CH", "2026-06-02", "A00002");
  many.commit();
  EXPECT_EQ(rows("A00002").size(), 401U) << "by the road through the lines";
  EXPECT_EQ(rows("A00002").back()[3].text, "10");
}
