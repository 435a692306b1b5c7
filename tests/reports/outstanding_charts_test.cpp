#include "frame/session.h"
#include "reports/screens.h"
#include "store/templates.h"
#include "support/temp_folder.h"
#include "support/test_host.h"

namespace {

// Outstanding bills, returns and their pictures on the report screen, on 15 June.
class ReportPictures : public ::testing::Test {
 protected:
  ReportPictures() : host(known()) {
    Session& s = session();
    s = Session();
    s.mstartdt = *parseDate("2027-04-01");
    s.menddt = *parseDate("2028-03-31");
    host.clock.date = *parseDate("2027-06-15");
    makeCompanyDatabase(folder / "M00127.mdb");
    s.cndata = std::make_unique<Database>();
    s.cndata->open(folder / "M00127.mdb");
  }
  ~ReportPictures() override { session().cndata.reset(); }

  static Screens& known() {
    static Screens screens;
    addReportScreens(screens);
    return screens;
  }
  void open(const char* key) {
    while (host.top()) host.closeTop();
    session().mreportkey = key;
    host.open("frmreport", {});
  }
  void party(const std::string& code, const char* name, const char* area) {
    data().exec(
        "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, AREA, CITY, GROUP_CD, CL_BAL) VALUES (?, ?, ?, 'GUJARAT', "
        "85, 1)",
        code, name, area);
  }
  void bill(const std::string& code, const char* date, double amount) {
    data().exec(
        "INSERT INTO ALEDGER (BOOK_CD, VOUCH_TYPE, PARTY_CD, VOUCH_DT, PARTY_BL, VOUCH_AMT)"
        " VALUES ('SA', 'D', ?, ?, '01', ?)",
        code, date, amount);
  }
  // Fills a filter field, shows the parties alone and tells the caption.
  std::string captionWith(const char* field, const char* value) {
    host.fill(field, value);
    host.answers.assign(1, false);
    host.press("cmdshowrpt");
    return host.screen().caption;
  }

  TempFolder folder;
  TestHost host;
};

TEST_F(ReportPictures, OutstandingIsToldForWhomItIs) {
  open("ONACRCV");
  host.press("cmdshowrpt");
  EXPECT_EQ(host.messages.back().title + "|" + host.lastMessage(), "Mirav Message|pl select proper code");
  party("A00001", "O'NEIL", "ANAND");
  host.press("cmdshowrpt");
  EXPECT_EQ(host.lastMessage(), "No Records");
  EXPECT_FALSE(host.at("Grid1").visible || host.at("cmdprint").enabled);
  bill("A00001", "2027-06-15", 100);
  EXPECT_EQ(captionWith("Text1(0)", "a00001"), "Outstanding Receivables For : O'NEIL");
  EXPECT_EQ(captionWith("Text1(1)", "anand"), "OutStanding Receivables For : anand");
  EXPECT_EQ(captionWith("Text1(2)", "GUJARAT"), "OutStanding Receivables  For : GUJARAT");
  EXPECT_EQ(captionWith("Text1(4)", "85"), "OutStanding Receivables  For : GUJARAT");
  EXPECT_EQ(host.at("Grid1").grid.count(), 2U);
  host.fill("Text1(4)", "86");
  host.press("cmdshowrpt");
  EXPECT_EQ(host.lastMessage(), "pl select proper code");
}

TEST_F(ReportPictures, OutstandingIsDrawnByAge) {
  for (int n = 1; n <= 12; ++n) {
    const std::string code = n < 10 ? "A0000" + std::to_string(n) : "A000" + std::to_string(n);
    party(code, ("PARTY " + std::to_string(n)).c_str(), "");
    bill(code, "2027-06-15", n * 10);
  }
  bill("A00001", "2027-05-16", 1000);  // 30 days
  bill("A00001", "2027-05-15", 200);
  bill("A00001", "2027-04-16", 20);  // 60
  bill("A00001", "2027-04-15", 3000);
  bill("A00001", "2027-03-17", 300);  // 90
  bill("A00001", "2027-03-16", 4);
  open("ONACRCV");
  host.answers = {true};
  host.press("cmdshowrpt");
  EXPECT_FALSE(host.at("Chart1").visible);
  host.key(KeyCode::F9);
  const Chart& chart = host.at("Chart1").chart;
  ASSERT_EQ(chart.bars.size(), 10U);
  EXPECT_EQ(chart.bars[0].label, "PARTY 1");
  EXPECT_EQ(chart.bars[0].segments, (std::vector<double>{1010, 220, 3300, 4}));
  EXPECT_EQ(chart.bars[9].label + " " + chart.bars[1].label, "PARTY 4 PARTY 12");
  EXPECT_TRUE(
      host.text("Chart1").starts_with("Largest Outstandings By Age In Days\nPARTY 1: 4534.00 = 0-30 1010.00, "
                                      "31-60 220.00, 61-90 3300.00, Over 90 4.00\n"));
  // It stays, and follows what is shown, until the key puts it away.
  host.fill("Text1(0)", "A00007");
  host.answers = {false};
  host.press("cmdshowrpt");
  EXPECT_EQ(host.at("Chart1").chart.bars.size(), 1U);
  host.fill("Text1(0)", "A00099");
  host.press("cmdshowrpt");
  EXPECT_FALSE(host.at("Chart1").visible);
  host.key(KeyCode::F9);
  EXPECT_FALSE(host.at("Chart1").visible);
}

TEST_F(ReportPictures, SalesAreDrawnByDay) {
  party("A00001", "PATEL", "ANAND");
  data().exec(
      "INSERT INTO SALE (VOUCH_NO, BOOK_CD, VOUCH_DT, PARTY_CD, NET_AMT) VALUES (1, 'SA', '2027-06-01', "
      "'A00001', 5),"
      " (2, 'SA', '2027-06-01', 'A00001', 7.25), (3, 'SA', '2027-06-04', 'A00001', 1)");
  open("SALEBILLSUMMARY");
  host.press("cmdshowrpt");
  EXPECT_NE(host.hint().find("F9 = Picture"), std::string::npos);
  host.key(KeyCode::F9);
  EXPECT_EQ(host.text("Chart1"), "Sale Bills A Day\n01/Jun: 12.25\n02/Jun: 0.00\n03/Jun: 0.00\n04/Jun: 1.00");
  host.key(KeyCode::F9);
  EXPECT_FALSE(host.at("Chart1").visible);
  open("GSTR1-RD");
  host.press("cmdshowrpt");
  host.key(KeyCode::F9);
  EXPECT_FALSE(host.at("Chart1").visible);
}

TEST_F(ReportPictures, AFromDateBringsItsMonthAlongForReturns) {
  session().mgstinno = "24AAKFS4821M1ZW";
  for (const char* key : {"GSTR1-RD", "GSTR1-URD"}) {
    open(key);
    host.fillEnter("MaskEdBox1(0)", "05022028");
    EXPECT_EQ(host.text("MaskEdBox1(1)"), "28/02/2028");
    EXPECT_EQ(host.focus(), "MaskEdBox1(1)");
    host.fillEnter("MaskEdBox1(0)", "01032027");  // outside the period: the To date stays
    EXPECT_EQ(host.text("MaskEdBox1(1)"), "28/02/2028");
    host.press("cmdshowrpt");  // which Show does not ask for
    EXPECT_EQ(host.lastMessage(), "No Records");
    EXPECT_EQ(host.screen().caption, "GSTR-1 : Company GSTIN No. : 24AAKFS4821M1ZW");
  }
  open("ONACRCV");
  host.fillEnter("MaskEdBox1(0)", "05022028");
  EXPECT_EQ(host.text("MaskEdBox1(1)"), "15/06/2027");
}

}  // namespace
