#include "vouchers/bill_fixture.h"

namespace {

class FrmQuot : public BillTest {
 protected:
  static const VoucherKind& kind() { return quotationKind(); }
  void openAs(const std::string& type = "QUOTATION") { host.open("FRMQUOT", {.entryType = type}); }
};

}  // namespace

TEST_F(FrmQuot, ALineThatIsDroppedLeavesTheTotals) {
  startOffer();
  typeOffered("I0000002", "1", "10", "0");
  typeOffered("I0000003", "2", "20", "0");
  host.key(KeyCode::F10);
  EXPECT_EQ(fields({21, 45, 42}), "51.8|3|0.9") << "no line is shown";
  host.keys({KeyCode::Up, KeyCode::Up, KeyCode::F10});
  EXPECT_EQ(host.text("Label1(0)") + "/" + fields({12, 21, 45, 42, 27}), "2/I0000003|40|2|0|40");
  host.key(KeyCode::F10);
  EXPECT_EQ(host.text("Label1(0)") + "/" + fields({12, 21, 45, 42, 27}), "1/||||0");
}

TEST_F(FrmQuot, NumbersThatStandAndARegistersRow) {
  openAs();
  host.press("cmdEDIT");
  host.fillEnter("Text1(0)", "1");
  EXPECT_EQ(host.lastMessage() + host.focus(), "No Record To Displaycmdadd");
  offeredLine(db(), "I0000001", 2, 1, 4);
  saveQuotation(db(), kind(), offer(4), stamp(), Saving::Fresh);
  host.press("cmdadd");
  EXPECT_EQ(fields({0}), "5");
  host.fillEnter("Text1(0)", "4");
  EXPECT_EQ(host.lastMessage() + host.focus(), "ITEM ALLREADY EXISTText1(0)");
  host.press("CMDCANCEL");
  // Back after the save without a word.
  host.closeTop();
  host.open("FRMQUOT", {.caller = "frmreport", .entryType = "QUOTATION", .value = "4"});
  EXPECT_EQ(host.screen().mode + host.text("Text2") + fields({35, 2, 3, 11, 1, 7, 6}),
            "EDITPATEL TRADING COQ/0012|O'NEIL|પંખા|MAIL|T8|T1|T7");
  EXPECT_EQ(fields({21, 27, 42, 43, 44, 45, 12}), "106.19|106|8.1|8.1|0|3|I0000001");
  host.go("Text1(6)");
  host.keys({KeyCode::Enter, KeyCode::Enter});
  EXPECT_EQ(host.find("FRMQUOT"), nullptr);
  EXPECT_EQ(line("SELECT COUNT(*), TO_NAME FROM QUOT"), "1|O'NEIL");
}
