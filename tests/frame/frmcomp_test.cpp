#include "frame_fixture.h"
#include "store/lock_file.h"

namespace {

constexpr const char* kConfirm = "Mirav Confirmation Message";

class Selection : public FrameTest {
 protected:
  Selection() { startUp(host_, folder_.path()); }
  std::string fields() {
    return host_.text("Text1") + "|" + host_.text("Text2") + "|" + host_.text("Text3") + "|" +
           host_.text("Text4");
  }
};

TEST_F(Selection, OpensOnTheListWithItsFirstRowInTheFields) {
  EXPECT_EQ(host_.onTop(), "FRMCOMP");
  EXPECT_EQ(host_.focus(), "lst");
  EXPECT_EQ(fields(), "M001|SHREE TRADERS|2025|2026");
  EXPECT_EQ(host_.hint(), "Up / Down = Scroll  ::  Enter = Select  ::  Esc = Exit");
  host_.keys({KeyCode::Down, KeyCode::Down});
  EXPECT_EQ(fields(), "M002|LIGHT HOUSE|2025|2026");
}

TEST_F(Selection, EnterInTheListOpensItsRow) {
  host_.keys({KeyCode::Down, KeyCode::Enter});
  EXPECT_EQ(host_.onTop(), "frmStartup");
  const Session& s = session();
  EXPECT_EQ(s.mdbfile, "M00124.mdb");
  EXPECT_EQ(s.mdbpath, (folder_ / "M00124.mdb").string());
  EXPECT_EQ(s.mdataname + s.mcompid + s.mcompname, "M00124M001SHREE TRADERS");
  EXPECT_EQ(s.mfromyr + s.mtoyr + s.myr2 + s.myrpair, "20242025242425");
  EXPECT_EQ(s.mfromyrval, 2024);
  EXPECT_EQ(formatDate(s.mstartdt, "dd/MM/yyyy") + formatDate(s.menddt, "dd/MM/yyyy"),
            "01/04/202331/03/2034");
}

TEST_F(Selection, TypedCharactersSearchTheNames) {
  host_.type("ho");
  EXPECT_EQ(host_.text("Text5"), "HO");
  EXPECT_EQ(host_.hint(), "Search = HO  ::  Backspace = Take Back");
  EXPECT_EQ(host_.at("lst").grid.count(), 1u);
  EXPECT_EQ(fields(), "M002|LIGHT HOUSE|2025|2026");
  host_.type("x");
  EXPECT_EQ(host_.at("lst").grid.count(), 0u);
  host_.keys({KeyCode::Backspace, KeyCode::Backspace, KeyCode::Backspace, KeyCode::Backspace});
  EXPECT_EQ(host_.text("Text5"), "");
  EXPECT_EQ(host_.hint(), "Up / Down = Scroll  ::  Enter = Select  ::  Esc = Exit");
  EXPECT_EQ(host_.at("lst").grid.count(), 3u);
}

TEST_F(Selection, ACodeOfOneYearGoesOnToTheYear) {
  host_.fillEnter("Text1", "m002");
  EXPECT_EQ(host_.focus(), "Text3");
  EXPECT_EQ(host_.text("Text2"), "LIGHT HOUSE");
  host_.fillEnter("Text3", "2024");
  EXPECT_EQ(host_.lastMessage(), "company not found");
  EXPECT_EQ(host_.focus(), "Text1");
  host_.fillEnter("Text3", "2025");
  EXPECT_EQ(session().mdbfile, "M00225.mdb");
  EXPECT_EQ(host_.onTop(), "frmStartup");
}

TEST_F(Selection, ACodeOfTwoYearsOpensTheFirstStoredAtOnce) {
  host_.fillEnter("Text1", "M001");
  EXPECT_EQ(session().mdbfile, "M00124.mdb");
  EXPECT_EQ(host_.onTop(), "frmStartup");
}

TEST_F(Selection, TheNameFollowsACodeThatWasLeftByTab) {
  host_.fill("Text1", "M002");
  host_.fillEnter("Text3", "2025");
  EXPECT_EQ(session().mdbfile + session().mcompname, "M00225.mdbLIGHT HOUSE");
}

TEST_F(Selection, AnUnknownCodeStays) {
  host_.fillEnter("Text1", "M077");
  EXPECT_EQ(host_.lastMessage(), "company not found");
  EXPECT_EQ(host_.messages.back().title, "Mirav");
  EXPECT_EQ(host_.focus(), "Text1");
}

TEST_F(Selection, EmptyFieldsOpenTheLookup) {
  FakeLookup::answer = "M002";
  host_.fillEnter("Text1", "");
  EXPECT_EQ(FakeLookup::asked, "twofld|distinct(comp_id)|comp_name|compny");
  EXPECT_EQ(session().mhlpwidth[0] + session().mhlpwidth[1], 4500);
  EXPECT_EQ(host_.focus(), "Text3");

  FakeLookup::answer = "2025";
  host_.fillEnter("Text3", "");
  EXPECT_EQ(FakeLookup::asked, "twofld|FROMYR|TOYR|compny WHERE COMP_ID = ? ORDER BY FROMYR DESC");
  ASSERT_EQ(FakeLookup::values.size(), 1u);
  EXPECT_EQ(FakeLookup::values[0].text(), "M002");
  EXPECT_EQ(session().mdbfile, "M00225.mdb");
}

TEST_F(Selection, AMissingFileIsSaidAndTheScreenStays) {
  std::filesystem::remove(folder_ / "M00225.mdb");
  host_.keys({KeyCode::Down, KeyCode::Down, KeyCode::Enter});
  EXPECT_EQ(host_.lastMessage(), "Company Data Not Found");
  EXPECT_EQ(host_.onTop(), "FRMCOMP");
}

TEST_F(Selection, ABrokenFileIsSaidAndTheScreenStays) {
  std::filesystem::resize_file(folder_ / "M00225.mdb", 100);
  host_.keys({KeyCode::Down, KeyCode::Down, KeyCode::Enter});
  EXPECT_EQ(host_.messages.size(), 1u);
  EXPECT_EQ(host_.onTop(), "FRMCOMP");
  EXPECT_FALSE(session().cndata);
}

TEST_F(Selection, EnterInTheYearCreatesFromTheSampleAndOpens) {
  host_.press("mnunewcomp");
  EXPECT_EQ(fields(), "M003|||");
  EXPECT_FALSE(host_.at("Text1").enabled);
  EXPECT_EQ(host_.focus(), "Text2");
  host_.enter();
  EXPECT_EQ(host_.lastMessage(), "Type Company Name and Press Enter");
  host_.type("ram stores");
  host_.enter();
  EXPECT_EQ(host_.focus(), "Text3");
  host_.answers = {true};
  host_.type("2026");
  host_.enter();
  EXPECT_EQ(host_.questions.back().text + host_.questions.back().title,
            std::string("Are You Sure") + kConfirm);
  EXPECT_EQ(host_.lastMessage(), "company created");
  EXPECT_EQ(host_.onTop(), "frmStartup");
  EXPECT_EQ(session().mdbfile, "M00326.mdb");
  EXPECT_EQ(catalogue().text("SELECT TOYR FROM compny WHERE COMP_NAME = 'RAM STORES'"), "2027");
}

TEST_F(Selection, NoAtTheQuestionEndsTheCreation) {
  host_.press("mnunewcomp");
  host_.type("RAM STORES");
  host_.enter();
  host_.answers = {false};
  host_.type("2026");
  host_.enter();
  EXPECT_EQ(fields(), "|||");
  EXPECT_TRUE(host_.at("Text1").enabled);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "M00326.mdb"));
  // No longer a creation: a typed year is looked for.
  host_.fillEnter("Text3", "2026");
  EXPECT_EQ(host_.lastMessage(), "company not found");
}

TEST_F(Selection, OkCreatesFromTheBlankAndDoesNotOpen) {
  host_.press("mnunewcomp");
  host_.type("RAM STORES");
  host_.enter();
  host_.type("2040");
  host_.answers = {true};
  host_.press("cmdok");
  EXPECT_EQ(host_.lastMessage(), "company created");
  EXPECT_EQ(host_.onTop(), "FRMCOMP");
  EXPECT_EQ(host_.focus(), "cmdok");
  EXPECT_EQ(fields(), "M003|RAM STORES|2040|2041");
  EXPECT_EQ(host_.at("lst").grid.count(), 4u);
  host_.enter();
  EXPECT_EQ(session().mdbfile, "M00340.mdb");
}

TEST_F(Selection, ANewYearOfAKnownCompanyKeepsItsCode) {
  host_.press("mnunewcomp");
  host_.go("lst");
  host_.key(KeyCode::Up);
  EXPECT_EQ(fields(), "M001|SHREE TRADERS|2025|2026");
  host_.answers = {true};
  host_.fillEnter("Text3", "2026");
  EXPECT_EQ(session().mdbfile, "M00126.mdb");
}

TEST_F(Selection, ModifyRenamesTheYearUnderTheCursor) {
  host_.inputs = {"shree and sons"};
  host_.answers = {true};
  host_.press("Cmdmodify");
  EXPECT_EQ(host_.prompts.back().text,
            "Do You Want To Change Company Name \r\nType Company Name In the White Box\r\n"
            "And Press ok Button To Change");
  EXPECT_EQ(host_.lastQuestion(), "Do You Want to change SHREE TRADERS   To   shree and sons");
  EXPECT_EQ(host_.cell("lst", 0, 1), "SHREE AND SONS");
  EXPECT_EQ(host_.cell("lst", 1, 1), "SHREE TRADERS");
  host_.inputs = {std::nullopt};
  host_.press("Cmdmodify");
  EXPECT_EQ(host_.questions.size(), 1u);
}

TEST_F(Selection, DeleteStopsAtTheLastRow) {
  host_.answers = {false, true, true, true};
  host_.press("cmddelcomp");
  EXPECT_EQ(host_.lastQuestion(), "Do You Want to Delete M001 2025 2026 ");
  EXPECT_EQ(host_.at("lst").grid.count(), 3u);
  host_.press("cmddelcomp");
  EXPECT_EQ(host_.lastMessage(), "Company Delete Process Done");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "M00125.mdb"));
  host_.press("cmddelcomp");
  host_.press("cmddelcomp");
  EXPECT_EQ(host_.lastMessage(),
            "Cannot Delete All Companies\r\nYou Can Modify Company Details From Utilities\r\n"
            "Or Create Another Company First Then Delete This Company");
  EXPECT_TRUE(std::filesystem::exists(folder_ / "M00225.mdb"));
}

TEST_F(Selection, LeavingWithoutAChoiceSignsOffAndEnds) {
  catalogue().exec("INSERT INTO USER1 (USER_NAME, LOGGEDON) VALUES ('', 'Y')");
  host_.escape();
  EXPECT_TRUE(host_.quitting());
  EXPECT_EQ(catalogue().text("SELECT LOGGEDON FROM USER1"), "N");
}

TEST_F(Selection, FirstUserClearsTheMarksOfACrash) {
  Database other;
  other.open(folder_ / "M00225.mdb");
  other.exec("UPDATE SPSFILE SET VOUCH_FLAG = '1' WHERE VOUCH_NO IN (221, 226)");
  other.close();
  host_.keys({KeyCode::Down, KeyCode::Down, KeyCode::Enter});
  EXPECT_TRUE(session().mfirstuser);
  EXPECT_EQ(data().number("SELECT COUNT(*) FROM SPSFILE WHERE VOUCH_FLAG = '1'"), 0);
}

TEST_F(FrameTest, ASecondProgramLeavesTheMarksAlone) {
  Database other;
  other.open(folder_ / "M00225.mdb");
  other.exec("UPDATE SPSFILE SET VOUCH_FLAG = '1' WHERE VOUCH_NO = 221");
  const LockFile catalogueOfOther(folder_ / "comp.mdb");
  startUp(host_, folder_.path());
  EXPECT_FALSE(session().mfirstuser);
  host_.keys({KeyCode::Down, KeyCode::Down, KeyCode::Enter});
  EXPECT_FALSE(session().mfirstuser);
  EXPECT_EQ(data().text("SELECT VOUCH_FLAG FROM SPSFILE WHERE VOUCH_NO = 221"), "1");
}

}  // namespace
