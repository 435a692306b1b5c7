#include "frame/update_database.h"

#include <fstream>

#include "frame_fixture.h"
#include "store/dictionary.h"

namespace fs = std::filesystem;

TEST_F(FrameTest, TheUpdateBacksUpFirstAndSaysWhatCameOfIt) {
  openShell();
  data().exec("INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD) VALUES ('MISC', 'BOX')");
  data().exec("CREATE TABLE main.OLD_LIST (NOTE TEXT)");
  data().exec("UPDATE ACCOUNT SET PERSON_NM = NULL");
  ASSERT_TRUE(host_.choose("struct"));
  ASSERT_EQ(host_.onTop(), "struct");
  host_.messages.clear();
  host_.enter();
  ASSERT_EQ(host_.messages.size(), 3u);
  EXPECT_EQ(host_.messages[0].text.substr(0, 13), "Backup Done\r\n");
  EXPECT_TRUE(fs::exists(host_.messages[0].text.substr(13)));
  EXPECT_NE(host_.messages[1].text.find("Nothing Is Wrong"), std::string::npos);
  EXPECT_EQ(host_.messages[2].text, "SUCCESS");
  EXPECT_EQ(host_.onTop(), "frmmain");
  EXPECT_FALSE(host_.isBusy);
  EXPECT_TRUE(data().columns("OLD_LIST").empty());
  EXPECT_EQ(data().number("SELECT COUNT(*) FROM ACCOUNT WHERE PERSON_NM IS NULL"), 0);

  // It is told once; and where every item has one unit, the key is asked for once.
  const auto check = [&] {
    host_.messages.clear();
    host_.choose("struct");
    host_.enter();
    return host_.messages.size();
  };
  EXPECT_EQ(check(), 2u);
  EXPECT_EQ(data().number("SELECT COUNT(*) FROM main.sqlite_master WHERE name = 'ITEMDTL_KEY'"), 0);
  data().exec("DELETE FROM ITEMDTL WHERE SIZE_CD = 'BOX'");
  data().exec("DELETE FROM SPSFILE WHERE VOUCH_CD = 'ONEUNIT'");
  host_.answers = {true};
  EXPECT_EQ(check() + check(), 4u);
  EXPECT_THROW(data().exec("INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD) VALUES ('MISC', 'BOX')"), DatabaseError);
}

TEST_F(FrameTest, WithoutABackupThereIsNoUpdate) {
  openShell();
  data().exec("CREATE TABLE main.OLD_LIST (NOTE TEXT)");
  std::ofstream(folder_ / "BACKUP") << "no folder";
  ASSERT_TRUE(host_.choose("struct"));
  host_.messages.clear();
  host_.enter();
  ASSERT_EQ(host_.messages.size(), 1u);
  EXPECT_EQ(host_.messages[0].text.substr(0, 15), "Backup Not Done");
  EXPECT_EQ(host_.onTop(), "struct");
  EXPECT_FALSE(data().columns("OLD_LIST").empty());
  // What was told can be looked up.
  host_.escape();
  ASSERT_TRUE(host_.choose("log"));
  EXPECT_EQ(host_.viewed, std::vector<std::string>{(folder_ / "mirav.log").string()});
}

TEST_F(FrameTest, BooksOfANewerProgramAreOpenedOnlyWhenAskedForAndNeverShapedAnew) {
  Database year;
  year.open(folder_ / "M00225.mdb");
  year.exec("PRAGMA user_version = " + std::to_string(kShapeVersion + 1));
  year.close();
  startUp(host_, folder_.path());
  host_.fillEnter("Text1", "M002");
  host_.answers = {false, true};
  host_.fillEnter("Text3", "2025");
  EXPECT_EQ(host_.onTop(), "FRMCOMP");
  host_.fillEnter("Text3", "2025");
  ASSERT_EQ(host_.onTop(), "frmStartup");
  host_.ticks(4);
  host_.choose("struct");
  host_.enter();
  EXPECT_EQ(host_.lastMessage(), "These Books Were Made By A Newer Program :: Their Shape Stays As It Is");
  EXPECT_EQ(data().number("PRAGMA user_version"), kShapeVersion + 1);
}
