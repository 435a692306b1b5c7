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

TEST_F(QuotationTest, TheReferenceFollowsTheHighestNumberOfItsKind) {
  EXPECT_EQ(nextReference(db(), kind()), "0001");
  db().exec(
      "INSERT INTO QUOT (VOUCH_NO, ENTRY_TYP, REF_NO) VALUES (3, 'QUOTATION', 'Q/0012'),"
      " (2, 'QUOTATION', '0500'), (9, 'PERFOMA', '0700')");
  EXPECT_EQ(nextReference(db(), kind()), "0013");
  EXPECT_EQ(nextReference(db(), quotationKind("PERFOMA")), "0701");
}

// Every column of the header: those written here, 0 in all that are left.
TEST_F(QuotationTest, EveryHeaderColumnHasItsValue) {
  ASSERT_TRUE(saveQuotation(db(), kind(), offer(7, 106.5), stamp(), Saving::Fresh));
  EXPECT_EQ(written("QUOT"),
            "VOUCH_DT=2026-06-15 VOUCH_NO=7 PARTY_CD=A00001 BL_PARTY_CD=A00001 TO_NAME=O'NEIL SUB_DESC=પંખા"
            " YOUR_REF_NO=MAIL DESC1=T1 DESC2=T2 DESC3=T3 DESC4=T4 DESC5=T5 DESC6=T6 DESC7=T7 DESC8=T8"
            " ITEM_AMT=106.5 TOTQTY=3 NET_AMT=106 USER_CD=RAJ TCGST=8.1 TSGST=8.1 ENT_DT=2026-06-15"
            " ENT_TIME=10:30 MOBNOCO=9090909090 DATANM=M00126 DATASENT=N ENTRY_TYP=QUOTATION REF_NO=Q/0012");
}

TEST_F(QuotationTest, LinesAreStoredAsNumberTextsAndComeBackAsNumbers) {
  offeredLine(db(), "I0000001", 2, 1, 7);
  offeredLine(db(), "I0000002", 0, 2, 7);
  offeredLine(db(), "misc", 0, 3, 7);
  offeredLine(db(), "I0000001", 30, 4, 12);  // typed before its number was changed
  ASSERT_TRUE(saveQuotation(db(), kind(), offer(7), stamp(), Saving::Fresh));
  EXPECT_EQ(
      line("SELECT GROUP_CONCAT(NUMTEXT(SRNO) || ':' || ITEM_CD || ':' || QUANTITY || ':' || RATE || ':' ||"
           " AMOUNT || ':' || TNO || ':' || TYPEOF(QUANTITY) || ':' || VOUCH_DT) FROM QUOTITM"
           " WHERE VOUCH_NO = 7"),
      "1:I0000001:2:33.25:66.5:1:text:2026-06-15,3:misc:0:33.25:0:3:text:2026-06-15,"
      "4:I0000001:30:33.25:997.5:4:text:2026-06-15");
  loadQuotationLines(db(), kind(), 7);
  EXPECT_EQ(line("SELECT COUNT(*), SUM(QUANTITY), SUM(AMOUNT), MAX(TYPEOF(RATE)), MAX(SRNO) FROM T_QUOTITM"),
            "3|32|1064|real|4");
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
