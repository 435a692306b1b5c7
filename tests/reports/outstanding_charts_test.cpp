#include "screens_fixture.h"

namespace {

// Outstanding bills and the pictures on the report screen.
class ReportPictures : public ReportScreens {
 protected:
  void party(const std::string& code, const std::string& name, const char* area) {
    data().exec(
        "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, AREA, CITY, GROUP_CD, CL_BAL) VALUES (?, ?, ?, 'GUJARAT', "
        "85, 0)",
        code, name, area);
  }
  void bill(const std::string& code, const char* date, double amount) {
    data().exec(
        "INSERT INTO ALEDGER (BOOK_CD, VOUCH_TYPE, PARTY_CD, VOUCH_DT, PARTY_BL, VOUCH_AMT)"
        " VALUES ('SA', 'D', ?, ?, '01', ?)",
        code, date, amount);
  }
};

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

}  // namespace
