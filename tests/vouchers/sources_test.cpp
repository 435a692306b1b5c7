#include "vouchers/sources.h"

#include "frame/settings.h"
#include "vouchers/bill_fixture.h"
#include "vouchers/challans.h"
#include "vouchers/posting.h"

namespace {

class SourcesTest : public BillTest {
 protected:
  void bill_(double number, const std::vector<MadeFrom>& from) {
    whole(db(), [&] {
      saveBill(db(), saleKind(), bill(number), stamp(), Saving::Fresh);
      keepSources(db(), saleKind(), number, "A00001", from);
    });
  }
  // What stands in the party's ledger.
  std::string posted() {
    return line(
        "SELECT GROUP_CONCAT(BOOK_CD || NUMTEXT(VOUCH_NO)) FROM (SELECT BOOK_CD, VOUCH_NO FROM ALEDGER"
        " WHERE PARTY_CD = 'A00001' ORDER BY BOOK_CD, VOUCH_NO)");
  }
};

}  // namespace

TEST_F(SourcesTest, AChallanIsInTheLedgerOnceWhateverBecomesOfItsBill) {
  for (const double number : {1, 2})
    ASSERT_TRUE(saveChallan(db(), challanKind(), challan(number), stamp(), Saving::Fresh));
  bill_(7, {
               {"CH", 1},
               {"CH", 2}
  });
  EXPECT_EQ(posted(), "SA7");
  EXPECT_THROW(bill_(8,
                     {
                         {"CH", 2}
  }),
               std::runtime_error)
      << "the second bill is told";
  EXPECT_THROW(bill_(8,
                     {
                         {"CH", 5}
  }),
               std::runtime_error)
      << "so is one whose challan has gone";
  EXPECT_EQ(line("SELECT COUNT(*) FROM SALE"), "1") << "and nothing is stored";
  EXPECT_THROW(deleteForGood(db(), challanKind(), 1, Saving::Again), std::runtime_error);
  ASSERT_TRUE(saveChallan(db(), challanKind(), challan(2, 200), stamp(), Saving::Again));
  postMissing(db());
  EXPECT_EQ(posted(), "SA7") << "nor does a change or an opening post it";

  // Deleted, the bill stands there until posting, and its challans do not, though they are open.
  ASSERT_TRUE(deleteForGood(db(), saleKind(), 7, Saving::Again));
  EXPECT_EQ(billedWords(db(), {"CH", 1}), "");
  postMissing(db());
  EXPECT_EQ(posted(), "SA7");
  bill_(7, {
               {"CH", 2}
  });  // the number is given again
  EXPECT_EQ(posted(), "CH1,SA7");
  ASSERT_TRUE(deleteForGood(db(), saleKind(), 7, Saving::Again));
  postAll(db());
  EXPECT_EQ(posted(), "CH1,CH2");

  storeSetting(db(), kChallansPost, 1);
  bill_(7, {
               {"CH", 2}
  });
  postAll(db());
  EXPECT_EQ(posted(), "CH1,CH2,SA7") << "as the shop wants it";
}
