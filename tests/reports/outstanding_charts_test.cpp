#include "screens_fixture.h"

namespace {

// Outstanding bills and the pictures on the report screen.
class ReportPictures : public ReportScreens {
 protected:
  void party(const std::string& code, const std::string& name, const char* area) {
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
};

TEST_F(ReportPictures, OutstandingIsToldForWhomItIs) {
  open("ONACRCV");
  host.press("cmdshowrpt");
  EXPECT_EQ(said(), "Mirav Message|pl select proper code");
  party("A00001", "O'NEIL", "ANAND");
  host.press("cmdshowrpt");
  EXPECT_EQ(host.lastMessage(), "No Records");
  EXPECT_FALSE(host.at("Grid1").visible || host.at("cmdprint").enabled);
  bill("A00001", "2026-06-15", 100);
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
    const std::string code = "A" + padLeft(std::to_string(n), 5, '0');
    party(code, "PARTY " + std::to_string(n), "");
    bill(code, "2026-06-15", n * 10);
  }
  bill("A00001", "2026-05-16", 1000);  // 30 days
  bill("A00001", "2026-05-15", 200);
  bill("A00001", "2026-04-16", 20);  // 60
  bill("A00001", "2026-04-15", 3000);
  bill("A00001", "2026-03-17", 300);  // 90
  bill("A00001", "2026-03-16", 4);
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
      "INSERT INTO SALE (VOUCH_NO, BOOK_CD, VOUCH_DT, PARTY_CD, NET_AMT) VALUES (1, 'SA', '2026-06-01', "
      "'A00001', 5),"
      " (2, 'SA', '2026-06-01', 'A00001', 7.25), (3, 'SA', '2026-06-04', 'A00001', 1)");
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

}  // namespace
