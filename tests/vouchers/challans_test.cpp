#include "vouchers/challans.h"

#include "vouchers/bill_fixture.h"

namespace {

class Challans : public BillTest {};

}  // namespace

// Every column of both tables: those written here, "." in some, 0 in all that are left.
TEST_F(Challans, EveryColumnHasItsValue) {
  startChallan("A00004");
  host.fill("detail", "");
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
