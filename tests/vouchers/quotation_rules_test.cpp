#include "vouchers/bill_fixture.h"

namespace {

class QuotationTest : public BillTest {
 protected:
  static const VoucherKind& kind() { return quotationKind(); }
};

}  // namespace

TEST(ReferenceTest, TheLastFourCharactersGoOn) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"",                 "0001" },
      {"0001",             "0002" },
      {"9",                "0010" },
      {"99",               "0100" },
      {"0123",             "0124" },
      {"999",              "1000" },
      {"Q/0012",           "0013" },
      {"Q/12",             "0001" },
      {"9999",             "10000"},
      {"10000",            "0001" },
      {"12026",            "2027" },
      {"પત્ર0041", "0042" },
  };
  for (const auto& [stored, next] : cases) EXPECT_EQ(referenceAfter(stored), next) << stored;
}

// The stored offer is looked for as a quotation, whatever kind is saved.
TEST_F(QuotationTest, AnotherKindIsNotReplaced) {
  const VoucherKind& proforma = quotationKind("PERFOMA");
  ASSERT_TRUE(saveQuotation(db(), proforma, offer(1, 500), stamp(), Saving::Fresh));
  EXPECT_THROW(saveQuotation(db(), proforma, offer(1, 600), stamp(), Saving::Again), DatabaseError);
  EXPECT_FALSE(saveQuotation(db(), kind(), offer(1), stamp(), Saving::Fresh)) << "the number is taken";
  EXPECT_EQ(line("SELECT COUNT(*), NET_AMT, ENTRY_TYP FROM QUOT"), "1|500|PERFOMA");
  ASSERT_TRUE(saveQuotation(db(), kind(), offer(2, 700), stamp(), Saving::Fresh));
  deleteVoucher(db(), kind(), 1);
  ASSERT_TRUE(saveQuotation(db(), kind(), offer(2, 800), stamp(), Saving::Again));
  EXPECT_EQ(line("SELECT COUNT(*), SUM(NET_AMT) FROM QUOT"), "2|1300");
  deleteVoucher(db(), proforma, 1);
  EXPECT_EQ(line("SELECT COUNT(*) FROM QUOT"), "1");
}

TEST_F(QuotationTest, OpeningRepairsWhatOlderRowsLack) {
  db().exec(
      "INSERT INTO QUOT (VOUCH_NO, PARTY_CD, BL_PARTY_CD, ENTRY_TYP) VALUES (1, 'A00001', NULL, NULL),"
      " (2, 'A00002', '', ''), (3, 'A00001', 'A00002', 'PERFOMA')");
  db().exec(
      "INSERT INTO QUOTITM (VOUCH_NO, SRNO, ITEM_CD, DEPT_CD, ENTRY_TYP) VALUES"
      " (1, 1, 'I0000001', NULL, NULL), (1, 2, 'GONE', NULL, ''), (3, 1, 'I0000001', 'E9', 'PERFOMA')");
  startOffer();
  EXPECT_EQ(
      line(
          "SELECT GROUP_CONCAT(BL_PARTY_CD || ' ' || ENTRY_TYP) FROM (SELECT * FROM QUOT ORDER BY VOUCH_NO)"),
      "A00001 QUOTATION,A00002 QUOTATION,A00002 PERFOMA");
  EXPECT_EQ(line("SELECT GROUP_CONCAT(IFNULL(DEPT_CD, '-') || ' ' || ENTRY_TYP)"
                 " FROM (SELECT * FROM QUOTITM ORDER BY VOUCH_NO, SRNO)"),
            "E001 QUOTATION,- QUOTATION,E9 PERFOMA");
  // Once all is right an opening waits for nobody.
  Database other;
  other.open(db().file());
  const Transaction writes(other);
  repairQuotations(db());
}
