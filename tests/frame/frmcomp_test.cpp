#include "frame_fixture.h"

namespace {

// What tests/scenarios/companies.keys, which plays the whole of the selection, does not tell.
class Selection : public FrameTest {
 protected:
  Selection() { startUp(host_, folder_.path()); }
  std::string fields() {
    return host_.text("Text1") + "|" + host_.text("Text2") + "|" + host_.text("Text3") + "|" +
           host_.text("Text4");
  }
};

TEST_F(Selection, EnterInTheListOpensItsRow) {
  EXPECT_EQ(fields(), "M001|SHREE TRADERS|2025|2026");
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
  EXPECT_EQ(host_.text("Text5") + " " + fields(), "HO M002|LIGHT HOUSE|2025|2026");
  EXPECT_EQ(host_.hint(), "Search = HO  ::  Backspace = Take Back");
  host_.keys({KeyCode::Backspace, KeyCode::Backspace, KeyCode::Backspace});
  EXPECT_EQ(host_.hint(), "Up / Down = Scroll  ::  Enter = Select  ::  Esc = Exit");
  EXPECT_EQ(host_.at("lst").grid.count(), 3u);
}

TEST_F(Selection, ACodeOfOneYearGoesOnToTheYear) {
  host_.fillEnter("Text1", "m002");
  EXPECT_EQ(host_.focus() + host_.text("Text2"), "Text3LIGHT HOUSE");
  host_.fillEnter("Text3", "2024");
  EXPECT_EQ(host_.lastMessage() + host_.focus(), "company not foundText1");
  host_.fill("Text1", "M001");
  host_.fill("Text1", "M002");  // left by Tab
  host_.fillEnter("Text3", "2025");
  EXPECT_EQ(session().mdbfile + session().mcompname, "M00225.mdbLIGHT HOUSE");
}

TEST_F(Selection, ACodeOfTwoYearsOpensTheFirstStoredAtOnce) {
  host_.fillEnter("Text1", "M001");
  EXPECT_EQ(session().mdbfile + host_.onTop(), "M00124.mdbfrmStartup");
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

TEST_F(Selection, LeavingWithoutAChoiceSignsOffAndEnds) {
  catalogue().exec("INSERT INTO USER1 (USER_NAME, LOGGEDON) VALUES ('', 'Y')");
  host_.escape();
  EXPECT_TRUE(host_.quitting());
  EXPECT_EQ(catalogue().text("SELECT LOGGEDON FROM USER1"), "N");
}

}  // namespace
