#include "vouchers/saving.h"

#include "vouchers/bill_fixture.h"
#include "vouchers/numbering.h"
#include "vouchers/rate_history.h"

namespace {

class SavingTest : public BillTest {};

}  // namespace

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

TEST_F(SavingTest, ABillCarriesTheTransportersOwnId) {
  db().exec("INSERT INTO TRANSMAST (TRANS_ID, TRANSNAME, TRANS_GOV_ID) VALUES (3, 'Maruti', '24GOV')");
  ASSERT_TRUE(saveBill(db(), saleKind(), bill(7), stamp(), Saving::Fresh));
  EXPECT_EQ(line("SELECT TRANS_GOV_ID FROM SALE"), "24GOV");
}

// A bill that goes to another party leaves no balance behind.
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
