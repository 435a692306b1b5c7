#include <fstream>

#include "frame/frmstartup.h"
#include "frame/routines.h"
#include "frame_fixture.h"

namespace {

class Shell : public FrameTest {
 protected:
  Shell() { openShell(); }
};

TEST_F(FrameTest, StartMakesWhatTheFolderLacks) {
  std::filesystem::remove(folder_ / "SMPL.MDB");
  startUp(host_, std::filesystem::path(folder_.path().string() + "/"));
  EXPECT_EQ(session().mapppath, folder_.path().string());
  EXPECT_TRUE(std::filesystem::is_directory(folder_ / "BILLS"));
  Database made;
  made.open(folder_ / "SMPL.MDB");
  EXPECT_EQ(made.text("SELECT ITEM_NAME FROM ITEM"), "MISC");
  EXPECT_TRUE(session().mfirstuser);
  EXPECT_EQ(session().mcolor1, 0xFAFAF0);
}

TEST_F(FrameTest, TheSplashCountsToFourAndOpensTheShell) {
  std::string order;
  const auto failing = [](DatabaseError::Kind kind) {
    return [kind] { throw DatabaseError(kind, "M00125.mdb", "as told by the engine"); };
  };
  openingRoutines() = {[&] { order += "receipts "; }, failing(DatabaseError::Kind::other),
                       failing(DatabaseError::Kind::full), [&] { order += "challans "; }};
  startUp(host_, folder_.path());
  host_.enter();
  host_.ticks(3);
  EXPECT_EQ(host_.text("Label1"), "Integrating Database....");
  EXPECT_TRUE(host_.isBusy);
  EXPECT_EQ(host_.at("Bar").value, 3);
  EXPECT_EQ(order, "");
  data().exec("UPDATE ACCOUNT SET OP_BAL = 250 WHERE ACC_CD = 'X90005'");
  host_.tick();
  openingRoutines().clear();
  EXPECT_EQ(order, "receipts challans ");
  EXPECT_EQ(host_.onTop(), "frmmain");
  EXPECT_EQ(host_.find("frmStartup"), nullptr);
  EXPECT_FALSE(host_.isBusy);
  // The one failure that the user must know of, and no step was left out for it.
  ASSERT_EQ(host_.messages.size(), 1u);
  EXPECT_EQ(host_.lastMessage(), DatabaseError(DatabaseError::Kind::full, "M00125.mdb", "").what());
  EXPECT_EQ(data().number("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = 'X90005'"), 250);
}

TEST_F(FrameTest, AnOpeningAfterACleanEndDoesNothingAndWritesNothing) {
  const auto bytes = [&] {
    std::ifstream in(folder_ / "M00125.mdb", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  };
  int ran = 0;
  openingRoutines() = {[&] { ++ran; }};
  const auto day = [&](const char* work) {
    TestHost host(known());
    startUp(host, folder_.path());
    host.enter();
    host.ticks(4);
    if (*work) data().exec(work);
    host.answers = {true};
    host.closeTop();
    EXPECT_TRUE(host.messages.empty()) << host.lastMessage();
    session() = Session{};
    return bytes();
  };
  const std::string settled = day("UPDATE ACCOUNT SET OP_BAL = 250 WHERE ACC_CD = 'X90005'");
  EXPECT_EQ(ran, 2) << "at the opening and at the end";
  EXPECT_EQ(day(""), settled);
  EXPECT_EQ(ran, 2);
  Database year;
  year.open(folder_ / "M00125.mdb");
  EXPECT_EQ(year.number("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = 'X90005'"), 250);
  year.exec("UPDATE ACCOUNT SET CL_BAL = 7");
  year.close();
  day("");
  EXPECT_EQ(ran, 3) << "another program has written";
  openingRoutines().clear();
}

TEST_F(FrameTest, TheShellReadsPeriodAndDetailsBeforeItShows) {
  Database year;
  year.open(folder_ / "M00125.mdb");
  year.exec("DELETE FROM SPSFILE WHERE VOUCH_NO IN (211, 371)");
  year.exec("UPDATE SPSFILE SET VOUCH_DT = '2026-03-31' WHERE VOUCH_NO = 212");
  year.exec("DELETE FROM ACCOUNT WHERE ACC_CD = 'X90061'");
  year.exec(
      "INSERT INTO COMP_DET (COMPNM, ADDRS, GSTINNO, STATECD) VALUES ('SHREE', 'STATION RD', '24X', '24')");
  year.close();
  openShell();

  EXPECT_EQ(host_.screen().caption,
            "SHREE TRADERS : 2526  :  M - 1.01 Accounting Period : 01/Apr/2023 TO 31/Mar/2026");
  EXPECT_EQ(host_.screen().panels[0], "SHREE TRADERS : FROM 01/04/23 TO 31/03/26");
  EXPECT_EQ(host_.screen().panels[2], "15/Jun/2026");
  EXPECT_EQ(data().text("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = 'X90061'"), "OUTPUT CGST");
  EXPECT_EQ(data().number("SELECT COUNT(*) FROM SPSFILE WHERE VOUCH_NO IN (211, 371)"), 2);
  const Session& s = session();
  EXPECT_EQ(s.mcad1 + s.mgstinno + s.mstatecd, "STATION RD24X24");
  EXPECT_EQ(dateHelp(host_),
            "'15/Jun/2026' : Press ::  F2 ::  Button To Get Current Date \r\n"
            "'01/Apr/2023' : Press ::  F1 ::  Button To Get First Date of Accounting Period \r\n"
            "'31/Mar/2026' : Press ::  F3 ::  Button To Last Date of Accounting Period \r\n"
            "'16/Jun/2026' : Press ::  Up Arrow ::  Button Get Next Date\r\n"
            "'14/Jun/2026' : Press ::  Down Arrow ::  Button Get Previous Date\r\n"
            "'15/Jul/2026' : Press ::  Page Up ::  Button Get Next Month Date\r\n"
            "'15/May/2026' : Press ::  Page Down ::  Button Get Previous Month Date");
}

TEST_F(Shell, ShortcutsOpenTheEntriesOfTheirMeaning) {
  host_.key(Key::Ctrl(KeyCode::F2));
  EXPECT_EQ(host_.onTop(), "frmperiod");
  host_.escape();
  host_.key(Key::Ctrl('U'));
  EXPECT_EQ(host_.onTop() + FakeChild::asked.entryType, "GSTSAPUPURCHASE");
}

TEST_F(Shell, ShowsTheNewDayAfterMidnight) {
  host_.clock.date = addDays(host_.clock.date, 1);
  host_.tick();
  EXPECT_EQ(host_.text("Today") + " " + host_.screen().panels[2], "16/Jun/2026 16/Jun/2026");
}

TEST_F(Shell, DateKeysStepFromAValidDate) {
  host_.key(Key::Ctrl('G'));
  session().mstartdt = *parseDate("01/04/2026");
  session().menddt = *parseDate("31/03/2027");
  struct {
    KeyCode key;
    const char* shows;
  } const cases[] = {
      {KeyCode::Up,   "__/__/____"}, // no date to step from
      {KeyCode::F1,   "01/04/2026"},
      {KeyCode::F3,   "31/03/2027"},
      {KeyCode::PgDn, "28/02/2027"},
      {KeyCode::Up,   "01/03/2027"},
      {KeyCode::F2,   "15/06/2026"},
      {KeyCode::Down, "14/06/2026"},
      {KeyCode::PgUp, "14/07/2026"},
  };
  for (const auto& c : cases) {
    host_.key(c.key);
    EXPECT_EQ(host_.text("MaskEdBox1"), c.shows);
  }
}

TEST_F(Shell, CodesFollowTheLargestOfTheirForm) {
  EXPECT_EQ(NextAccountCode(), 1);
  data().exec(
      "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME) VALUES ('A00009', 'NINE'), ('A00020', 'TWENTY'), ('B00099', "
      "'NO')");
  EXPECT_EQ(NextAccountCode(), 21);
  EXPECT_EQ(NextItemCode(), 1);
  data().exec(
      "INSERT INTO ITEM (ITEM_CD, ITEM_NAME) VALUES ('I0000041', 'A'), ('I00099', 'SHORT'), ('I000000099', "
      "'LONG'), ('I1000000', 'ONE')");
  EXPECT_EQ(NextItemCode(), 42);
  data().exec("INSERT INTO ITEM (ITEM_CD, ITEM_NAME) VALUES ('I0999999', 'LAST')");
  EXPECT_EQ(NextItemCode(), 1000001);
  EXPECT_EQ(NextCategoryCode(), 2);  // E001 comes with the template
  EXPECT_EQ(accountCode(7) + accountCode(99999) + accountCode(100000), "A00007A99999A100000");
  EXPECT_EQ(itemCode(42) + itemCode(1234567), "I0000042I1234567");
  EXPECT_EQ(categoryCode(3) + categoryCode(120), "E003E120");
}

TEST_F(FrameTest, AStepThatFailsIsToldWhenItMustBe) {
  using Kind = DatabaseError::Kind;
  struct {
    Kind kind;
    bool told;
  } const cases[] = {
      {Kind::other,      false},
      {Kind::constraint, false},
      {Kind::locked,     true },
      {Kind::full,       true },
      {Kind::readOnly,   true },
      {Kind::damaged,    true },
      {Kind::io,         true },
  };
  for (const auto& c : cases) {
    host_.messages.clear();
    passOver(host_, [&] { throw DatabaseError(c.kind, "M00125.mdb", "detail"); });
    EXPECT_EQ(host_.messages.size(), c.told ? 1u : 0u) << static_cast<int>(c.kind);
  }
  passOver(host_, [] { throw std::runtime_error("not of the store"); });
  EXPECT_EQ(host_.lastMessage(), "not of the store");
}

}  // namespace
