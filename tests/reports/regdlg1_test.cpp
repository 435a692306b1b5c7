#include "reports/ledger_columns.h"
#include "screens_fixture.h"

namespace {

// A party with a bill, a credit of a book without a screen, and a returned bill.
class Ledgers : public ReportScreens {
 protected:
  Ledgers() {
    data().exec("INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD) VALUES ('A00001', 'PATEL', 85)");
    data().exec(
        "INSERT INTO ALEDGER (VOUCH_DT, BOOK_CD, VOUCH_NO, VOUCH_TYPE, PARTY_CD, VOUCH_AMT, NARRATION) VALUES"
        " ('2026-05-01', 'SA', 3, 'D', 'A00001', 100, 'BY ROAD'), ('2026-05-05', 'JV', 1, 'C', 'A00001', 40, "
        "''),"
        " ('2026-05-09', 'SA', 9, 'C', 'A00001', 5, '')");
  }

  // To a shown statement; the answer is to "Without NARRATION".
  void show(const std::string& key, bool without) {
    host.open("regdlg1", {.reportKey = key, .value = "a00001"});
    host.keys({KeyCode::Enter, KeyCode::Enter});
    host.answers.push_back(without);
    host.enter();
  }
};

TEST_F(Ledgers, RefuseWhatIsNoAccountAndNoDate) {
  host.open("regdlg1", {.reportKey = "LEDGERS"});
  host.fillEnter("party", "A00099");
  EXPECT_EQ(host.lastMessage() + host.text("party") + host.focus(), "PARTY DOES NOT EXISTparty");
  host.fillEnter("to", "31022026");
  EXPECT_TRUE(said().starts_with("Mirav Information|'15/Jun/2026' : Press ::  F2")) << said();
  EXPECT_EQ(host.focus(), "to");
  EXPECT_FALSE(host.at("cmdshow").enabled);
}

TEST_F(Ledgers, OpenTheVoucherBehindARow) {
  show("LEDGERS", false);
  data().exec("UPDATE ALEDGER SET VOUCH_AMT = 300 WHERE VOUCH_NO = 3");
  EXPECT_EQ(drill<0>(1), "SALE regdlg1 3");
  EXPECT_EQ(host.cell("Grid1", 0, 5) + host.cell("Grid1", 1, 4), "300.00BY ROAD");
  EXPECT_EQ(host.at("Grid1").grid.current, 0U);
  EXPECT_EQ(drill<0>(2) + drill<0>(5), "");
  host.closeTop();
  show("TLEDGERS", true);
  EXPECT_EQ(drill<0>(1), "SALE regdlg1 3");
  host.key(KeyCode::Left);
  EXPECT_EQ(drill<0>(1), "SALE regdlg1 9");
}

// Each opens its voucher, and what was entered there shows at once; the narrations are asked for again.
TEST_F(Ledgers, OpenVouchersByTheirShortcuts) {
  const std::pair<const char*, const char*> kOpened[] = {
      {"cmdsale(2)", "bwrcpy RECEIPT  " },
      {"cmdsale(3)", "bwrcpy PAYMENT  " },
      {"cmdsale(4)", "bwrcpy INCOME  "  },
      {"cmdsale(5)", "bwrcpy EXPENSE  " },
      {"cmdsale(6)", "FRMJRNL JOURNAL  "}
  };
  for (const auto& [shortcut, opened] : kOpened) {
    show("LEDGERS", true);
    const size_t rows = host.at("Grid1").grid.count();
    host.press(shortcut);
    EXPECT_EQ(host.onTop() + " " + (host.onTop() == "bwrcpy" ? Voucher<3>::last : Voucher<4>::last), opened);
    data().exec(
        "INSERT INTO ALEDGER (VOUCH_DT, BOOK_CD, VOUCH_NO, VOUCH_TYPE, PARTY_CD, VOUCH_AMT) VALUES"
        " ('2026-05-10', 'RC', 1, 'C', 'A00001', 7)");
    host.answers.push_back(true);
    host.closeTop();
    EXPECT_EQ(host.at("Grid1").grid.count(), rows + 1) << shortcut;
    host.closeTop();
  }
  show("LEDGERS", true);
  host.go("cmdsale(3)");
  host.key(Key::Alt('E'));  // among the shortcuts no Excel
  EXPECT_EQ(host.onTop() + " " + Voucher<3>::last, "bwrcpy EXPENSE  ");
}

TEST_F(Ledgers, HandTheGridOver) {
  show("LEDGERS", true);
  const Session& s = session();
  host.answers.push_back(true);
  host.press("cmdprint");
  EXPECT_EQ(host.lastQuestion(), "Without Voucher No.");
  const LedgerHeading heading{"", s.mstartdt, s.menddt};
  const GridOutput narrow = ledgerOutput("LEDGERS", nullptr, kToPdf, heading, true);
  EXPECT_EQ(narrow.period, "From : 01/Apr/2026 To : 31/Mar/2027");
  EXPECT_EQ(narrow.columns[0].twips + narrow.columns[4].twips, 3300);
  EXPECT_EQ(ledgerOutput("TLEDGERS", nullptr, kToPrinter, heading, false).period,
            "From : 01/04/2026 To : 31/03/2027");
  host.press("cmdexcel");  // asks nothing
  host.answers.push_back(false);
  host.press("cmdpdf");
  EXPECT_EQ(s.mstamp, "260615_1030");
  EXPECT_EQ(host.viewed, (std::vector<std::string>{(folder / "report.xlsx").string(),
                                                   (folder / "BILLS" / "RPT260615_1030.pdf").string()}));
}

}  // namespace
