#include "vouchers/saving.h"

#include "vouchers/bill_fixture.h"
#include "vouchers/numbering.h"
#include "vouchers/rate_history.h"

namespace {

class SavingTest : public BillTest {};

}  // namespace

// Every column of the header: those written here, "." in some, 0 in all that are left.
TEST_F(SavingTest, EveryHeaderColumnHasItsValue) {
  addTransporterRow();
  ASSERT_TRUE(saveBill(db(), saleKind(), bill(7), stamp(), Saving::Fresh));
  const std::string expected =
      "VOUCH_NO=7 VOUCH_DT=2026-06-15 BL_TYPE=TAX BILL_NO=0001 BOOK_CD=SA BL_TIME=10:30 DT_GOODS=2026-06-15"
      " TIME_GOODS=10:30 GWDN=1 CHLN_NO=12.5 ORDER_NO=PO/7 ORDER_DT=15/Jun/2026 PAY_MODE=. PARTY_CD=A00001"
      " SALE_CD=X90002 CASH_CD=A00002 ITEM_AMT=100 NET_AMT=118 NARRATION=O'NEIL_ગુજરાતી_% NARRATION1=."
      " NARRATION2=. PARCLE=2 NO_OF_ITEM=2 SMAN_CD=S001 AGNT_DOC=. CR_DAYS=30 GR_NO=LR'9 GR_DATE=2026-06-15"
      " TRANSPORT=MARUTI FREIGHT=. DESTI=ANAND FORM_ISSUE=. C_EX_REGNO=. DESPATCH_FROM=X90002"
      " CHLN_DT=2026-06-15 VOUCH_TIME=10:30 TRANS_CD=3 TRANS_GOV_ID=24GOV PRV_BDT=2026-06-15 TCGSTRT=9"
      " TSGSTRT=9 GSTPOST=1 CMOBNO=. CNAME=. CADRS=. USER_CD=RAJ ENT_DT=2026-06-15 ENT_TIME=10:30"
      " MOBNOCO=9090909090 DATANM=M00126 DATASENT=N EINVNO=. IRNNO=. ACK_DT=2026-06-15";
  EXPECT_EQ(written("SALE"), expected);
}

TEST_F(SavingTest, LinesWithoutAQuantityStayBehindUnlessTheyAreMisc) {
  int serial = 0;
  for (const auto& [item, quantity] : {
           std::pair{"I0000001", 2 },
           {"I0000002", 0 },
           {"misc",     0 },
           {"I0000001", -1}
  }) {
    workLine(db(), item, quantity, ++serial);
    goods(db(), item, quantity, serial);
  }
  ASSERT_TRUE(saveBill(db(), saleKind(), bill(7), stamp(), Saving::Fresh));
  ASSERT_TRUE(saveChallan(db(), challanKind(), challan(7), stamp(), Saving::Fresh));
  for (const std::string table : {"SALEITM", "CHLNITM"})
    EXPECT_EQ(line("SELECT GROUP_CONCAT(NUMTEXT(SR_NO) || ':' || ITEM_CD || ':' || NUMTEXT(QUANTITY)),"
                   " MAX(VOUCH_NO), MAX(VOUCH_DT) FROM " +
                   table),
              "1:I0000001:2,3:misc:0,4:I0000001:-1|7|2026-06-15");
}

// A bill or challan that goes to another party leaves no balance behind.
TEST_F(SavingTest, AChangedPartyBringsBothBalancesUpToDate) {
  const auto balances = [&] {
    return line("SELECT GROUP_CONCAT(NUMTEXT(CL_BAL)) FROM ACCOUNT WHERE ACC_CD IN ('A00001', 'A00002')");
  };
  ASSERT_TRUE(saveBill(db(), saleKind(), bill(7), stamp(), Saving::Fresh));
  EXPECT_EQ(balances(), "38460,38460") << "a fresh one moves nothing";
  ASSERT_TRUE(saveBill(db(), saleKind(), bill(7), stamp(), Saving::Again));
  EXPECT_EQ(balances(), "38578,38460");
  Fields moved = bill(7);
  setValue(moved, "PARTY_CD", "A00002");
  ASSERT_TRUE(saveBill(db(), saleKind(), moved, stamp(), Saving::Again));
  EXPECT_EQ(balances(), "38460,38578");
}

// A purchase of 118 rounded to 118.4 and to 117.5: the supplier is credited, everything else debited.
TEST_F(SavingTest, APurchaseTurnsTheSidesRound) {
  const VoucherKind& kind = purchaseKind();
  ASSERT_TRUE(saveBill(db(), saleKind(), bill(7, 118.4), stamp(), Saving::Fresh));
  ASSERT_TRUE(saveBill(db(), kind, bill(7, 118.4), stamp(), Saving::Fresh)) << "numbers are the book's own";
  Fields down = bill(8, 117.5);
  setValue(down, "PRV_BDT", "2026-06-11");
  ASSERT_TRUE(saveBill(db(), kind, down, stamp(), Saving::Fresh));
  const std::string taxes = "D X90064 9, D X90065 9, D X90066 0, ";
  EXPECT_EQ(posted("PU", 7), "C A00001 118.4, D X90001 100, " + taxes + "D X90015 0.4");
  EXPECT_EQ(posted("PU", 8), "C A00001 117.5, D X90001 100, " + taxes + "C X90015 0.5");
  EXPECT_EQ(posted("SA", 7),
            "D A00001 118.4, C X90002 100, C X90061 9, C X90062 9, C X90063 0, C X90015 0.4");
  EXPECT_EQ(unbalanced(db()), "");
  EXPECT_EQ(line("SELECT BOOK_CD, SALE_CD, PRV_BDT, PARTY_CD FROM SALE WHERE VOUCH_NO = 8"),
            "PU|X90001|2026-06-11|A00001");
  deleteVoucher(db(), kind, 7);
  EXPECT_EQ(line("SELECT COUNT(*), MIN(BOOK_CD || VOUCH_NO), MAX(BOOK_CD || VOUCH_NO) FROM SALE"),
            "2|PU8.0|SA7.0");
}

TEST(Numbering, BillNumbersRunOnAsTheSeriesAlwaysDid) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"",      "0001" },
      {"0001",  "0002" },
      {"8",     "0009" },
      {"9",     "0010" },
      {"0099",  "00100"},
      {"123",   "00124"},
      {"00123", "00124"},
      {"999",   "1000" },
      {"9999",  "10000"},
      {"10000", "10001"},
      {"12345", "12346"},
      {"A12",   "0001" },
      {"12A",   "0013" },
  };
  for (const auto& [stored, next] : cases) EXPECT_EQ(billNumberAfter(stored), next) << stored;
}

TEST_F(SavingTest, NumbersFollowTheHighestVoucherOfTheirBookAndType) {
  EXPECT_EQ(lastVoucher(db(), saleKind()).number, 0);
  EXPECT_FALSE(lastVoucher(db(), saleKind()).date);
  db().exec(
      "INSERT INTO SALE (VOUCH_NO, VOUCH_DT, BOOK_CD, BL_TYPE, BILL_NO) VALUES (3, '2026-05-01', 'SA', "
      "'TAX', '0500'),"
      " (9, '2026-04-01', 'SA', 'TAX', '0011'), (12, '2026-06-01', 'SA', 'RETAIL', '0900'), (20, "
      "'2026-06-02', 'XX', 'TAX', '7')");
  EXPECT_EQ(lastVoucher(db(), saleKind()).number, 12);
  EXPECT_EQ(lastVoucher(db(), saleKind()).date,
            (Date{std::chrono::year{2026}, std::chrono::June, std::chrono::day{1}}));
  EXPECT_EQ(nextBillNumber(db(), saleKind(), "TAX"), "0012")
      << "after the last voucher, not the highest bill";
  EXPECT_EQ(nextBillNumber(db(), saleKind(), "retail"), "00901");
  EXPECT_EQ(nextBillNumber(db(), saleKind(), "CASH"), "0001");
}

// A bill's number is taken within its book and type; that of a purchase by the same supplier alone.
TEST_F(SavingTest, ABillNumberIsTakenOnce) {
  db().exec(
      "INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO, PARTY_CD) VALUES (9, 'SA', 'TAX', '11', 'A1'),"
      " (9, 'PU', 'TAX', '11', 'A1'), (4, 'XX', 'TAX', '7', 'A1')");
  struct Case {
    const VoucherKind& kind;
    BillReference bill;
    bool taken;
  };
  const VoucherKind &sale = saleKind(), &purchase = purchaseKind();
  for (const auto& [kind, bill, taken] : std::vector<Case>{
           {sale,     {"A2", "TAX", "11", 3},    true },
           {sale,     {"A2", "TAX", "11", 9},    false},
           {sale,     {"A2", "RETAIL", "11", 3}, false},
           {sale,     {"A2", "TAX", "7", 3},     false},
           {purchase, {"a1", "tax", "11", 3},    true },
           {purchase, {"A1", "TAX", "11", 9},    false},
           {purchase, {"A2", "TAX", "11", 3},    false},
  })
    EXPECT_EQ(isDuplicateBill(db(), kind, bill), taken)
        << kind.code << bill.party << bill.type << bill.voucher;
}

// The six latest and their ties, by either road through the tables.
TEST_F(SavingTest, TheLatestSalesKeepTies) {
  const auto sell = [&](int number, const std::string& party, const char* day) {
    db().exec("INSERT INTO SALE (VOUCH_NO, VOUCH_DT, BOOK_CD, PARTY_CD) VALUES (?, ?, 'SA', ?)", number, day,
              party);
    db().exec(
        "INSERT INTO SALEITM (VOUCH_NO, VOUCH_DT, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, RATE) VALUES (?, ?, "
        "'SA', 1, 'I0000001', 'PCS', ?)",
        number, day, number);
  };
  const auto rates = [&](const std::string& party) {
    const RateList list = latestSales(db(), saleKind(), {party, "I0000001", "PCS"});
    std::string all;
    for (const auto& row : list.rows->rows) all += row[5].text + " ";
    return all;
  };
  int number = 0;
  for (const char* day : {"2026-04-01", "2026-04-02", "2026-04-02", "2026-04-04", "2026-04-05", "2026-04-06",
                          "2026-04-07", "2026-04-08"})
    sell(++number, "A00001", day);
  EXPECT_EQ(rates("A00001").substr(0, 10), "8 7 6 5 4 ");
  EXPECT_EQ(rates("A00001").size(), 14U) << "both of the sixth day";
  Transaction many(db());
  for (int i = 0; i < 400; ++i) sell(++number, "A00002", "2026-04-09");
  sell(++number, "A00002", "2026-04-10");
  many.commit();
  EXPECT_EQ(latestSales(db(), saleKind(), {"A00002", "I0000001", "PCS"}).rows->rows.size(), 401U);
  EXPECT_EQ(rates("A00002").substr(0, 4), "409 ");
}
