#include <fstream>

#include "base/text.h"
#include "frame/companies.h"
#include "frame/routines.h"
#include "frame_fixture.h"
#include "full_disk.h"
#include "killed.h"
#include "store/balances.h"
#include "store/dictionary.h"

// What a folder may do to the program, and the program to the folder.

namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& bytes) { std::ofstream(file, std::ios::trunc) << bytes; }

class Folder : public FrameTest {
 protected:
  void openYear(const std::string& file) {
    startUp(host_, folder_.path());
    host_.messages.clear();
    for (size_t row = 0; row < host_.at("lst").grid.count(); ++row) {
      host_.rowTo(host_.at("lst"), row);
      if (dataStem(host_.text("Text1"), host_.text("Text3")) + ".mdb" == file) break;
    }
    host_.enter();
  }
};

// What may stand in the place of a database, and what is said of it.
struct Spoilt {
  const char* what;
  std::function<void(const fs::path&)> spoil;
  const char* words;  // after the file's name
};

const Spoilt kSpoilt[] = {
    {"empty",                            [](const fs::path& file) { write(file, ""); },                    " is not a database of this program."},
    {"a letter",                         [](const fs::path& file) { write(file, std::string(900, 'x')); },
     " is not a database of this program."                                                                                                      },
    {"cut",                              [](const fs::path& file) { fs::resize_file(file, 5000); },
     " is damaged. Restore it from a backup."                                                                                                   },
    {"of others, with a name in common",
     [](const fs::path& file) {
       fs::remove(file);
       Database db;
       db.open(file, Access::create);
       db.exec("CREATE TABLE ACCOUNT (id, name)");
     },                                                                                                    " is not a database of this program."},
    {"a folder",
     [](const fs::path& file) {
       fs::remove(file);
       fs::create_directory(file);
     },                                                                                                    " was not found."                    },
};

TEST_F(Folder, WhatIsNoneOfItsDatabasesIsSaidInWords) {
  const auto replaced = [&](const char* file, const auto& spoil) {
    fs::copy_file(folder_ / file, folder_ / "whole.mdb", fs::copy_options::overwrite_existing);
    spoil(folder_ / file);
  };
  const auto mended = [&](const char* file) {
    session() = Session{};
    fs::remove(folder_ / file);
    fs::copy_file(folder_ / "whole.mdb", folder_ / file);
  };
  const auto catalogueIs = [&](const Spoilt& s, const std::string& words) {
    replaced("comp.mdb", s.spoil);
    TestHost host(known());
    EXPECT_FALSE(startUp(host, folder_.path())) << s.what;
    ASSERT_EQ(host.messages.size(), 1u) << s.what;
    EXPECT_EQ(host.messages[0].text + "|" + host.messages[0].title, words + "|Mirav Message") << s.what;
    EXPECT_TRUE(host.quitting()) << s.what;
    mended("comp.mdb");
  };
  const auto yearIs = [&](const Spoilt& s, const std::string& words) {
    replaced("M00225.mdb", s.spoil);
    openYear("M00225.mdb");
    EXPECT_EQ(host_.lastMessage(), words) << s.what;
    EXPECT_EQ(host_.onTop(), "FRMCOMP") << s.what;
    EXPECT_FALSE(session().cndata) << s.what;
    mended("M00225.mdb");
  };
  const Spoilt missing{"missing", [](const fs::path& file) { fs::remove(file); }, ""};
  catalogueIs(missing, "No Database Found");
  yearIs(missing, "Company Data Not Found");
  for (const Spoilt& s : kSpoilt) {
    catalogueIs(s, "comp.mdb" + std::string(s.words));
    // Damaged books are brought back from a backup: that stands in the tests of backups.
    if (std::string(s.what) != "cut") yearIs(s, "M00225.mdb" + std::string(s.words));
  }
  const auto catalogue = [](const fs::path& file) {
    fs::copy_file(file.parent_path() / "comp.mdb", file, fs::copy_options::overwrite_existing);
  };
  yearIs({"the catalogue", catalogue, ""}, "M00225.mdb is not a database of this program.");
  openYear("M00225.mdb");
  EXPECT_EQ(host_.onTop(), "frmStartup") << "and a whole one opens behind them";
}

// One that an update has to complete opens, and what is not the program's own stays in it.
TEST_F(Folder, ACompanyYearOfAnotherShapeOpens) {
  Database year;
  year.open(folder_ / "M00225.mdb");
  for (const char* table : {"SALE", "RPTPAY", "GRP", "COMP_DET", "SPSFILE", "STRUCTAB"})
    year.exec(std::string("DROP TABLE ") + table);
  year.exec("CREATE TABLE SOMEBODYS (A)");
  year.exec("INSERT INTO SOMEBODYS VALUES (1)");
  year.close();
  openYear("M00225.mdb");
  host_.ticks(4);
  EXPECT_EQ(host_.onTop(), "frmmain");
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_FALSE(CheckTable("SPSFILE") || CheckTable("GRP")) << "and is not seeded";
  EXPECT_TRUE(CheckTable("account"));
  EXPECT_EQ(data().number("SELECT COUNT(*) FROM SOMEBODYS"), 1);
  EXPECT_EQ(host_.screen().panels[0], "LIGHT HOUSE : FROM 01/04/23 TO 31/03/34");
}

TEST_F(Folder, ALockedYearIsSaidAndOpensWhenItIsFree) {
  Database other;
  other.open(folder_ / "M00225.mdb");
  other.exec("BEGIN EXCLUSIVE");
  openYear("M00225.mdb");
  EXPECT_EQ(host_.lastMessage(),
            "M00225.mdb is in use by another program. Nothing was stored. Try again in a moment.");
  EXPECT_EQ(host_.onTop(), "FRMCOMP");
  other.exec("ROLLBACK");
  host_.enter();
  EXPECT_EQ(host_.onTop(), "frmStartup");
}

TEST_F(Folder, AFullDiskLetsTheBooksBeRead) {
  startUp(host_, folder_.path());
  Database year;
  year.open(folder_ / "M00225.mdb");
  year.exec("UPDATE ACCOUNT SET OP_BAL = 250 WHERE ACC_CD = 'X90005'");
  year.exec("UPDATE SPSFILE SET VOUCH_FLAG = '1' WHERE VOUCH_NO = 221");
  year.close();
  {
    const FullDisk full;
    host_.rowTo(host_.at("lst"), 2);
    host_.enter();
    host_.ticks(4);
    EXPECT_EQ(host_.onTop(), "frmmain");
    ASSERT_FALSE(host_.messages.empty());
    EXPECT_NE(host_.lastMessage().find("M00225.mdb cannot be read or written"), std::string::npos);
    EXPECT_EQ(data().number("SELECT OP_BAL FROM ACCOUNT WHERE ACC_CD = 'X90005'"), 250);
    EXPECT_EQ(data().number("SELECT COUNT(*) FROM GRP"), 39) << "nothing of a step that failed";
  }
  RebuildAllBalances(data());
  EXPECT_EQ(data().number("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = 'X90005'"), 250);
}

TEST_F(Folder, AFullDiskLetsNoHalfCompanyStand) {
  startUp(host_, folder_.path());
  host_.press("mnunewcomp");
  host_.type("RAM STORES");
  host_.enter();
  host_.answers = {true, true};
  {
    const FullDisk full;
    host_.type("2026");
    host_.enter();
    EXPECT_EQ(host_.lastMessage().substr(0, 36), "M00326.mdb cannot be read or written");
    EXPECT_EQ(host_.onTop(), "FRMCOMP");
    EXPECT_FALSE(fs::exists(folder_ / "M00326.mdb"));
    EXPECT_FALSE(fs::exists(folder_ / "M00326.mdb.new"));
    EXPECT_EQ(companyYears(catalogue()).size(), 3u);
  }
  host_.enter();  // the same again, with room
  EXPECT_EQ(session().mdbfile, "M00326.mdb");
  EXPECT_EQ(host_.onTop(), "frmStartup");
}

TEST_F(Folder, WithoutTheRightToWriteTheBooksCanBeRead) {
  if (geteuid() == 0) GTEST_SKIP() << "nothing is write-protected for root";
  fs::create_directory(folder_ / "BILLS");
  for (const char* file : kFiles) fs::permissions(folder_ / file, fs::perms::owner_read);
  fs::permissions(folder_.path(), fs::perms::owner_read | fs::perms::owner_exec);
  openShell();
  EXPECT_EQ(host_.onTop(), "frmmain");
  EXPECT_EQ(host_.lastMessage(), "M00125.mdb can only be read: the file or its folder is write-protected.");
  host_.choose("dept");
  EXPECT_NE(host_.lastMessage().find("cannot be written"), std::string::npos);
  fs::permissions(folder_.path(), fs::perms::owner_all);
}

TEST_F(Folder, NamesAreKeptAsTheyAreTyped) {
  startUp(host_, folder_.path());
  std::string gujarati, long100(100, 'N');
  for (int i = 0; i < 33; ++i) gujarati += "ગુ ";
  const std::string names[] = {"RAM'S \"BEST\" STORES",   "50% OFF_SHOP", "શ્રી ગણેશ સ્ટોર્સ", gujarati, long100,
                               "'; DROP TABLE compny; --"};
  int year = 2025;
  for (const std::string& name : names) {
    host_.press("mnunewcomp");
    host_.fill("Text2", name);
    host_.answers = {true};
    host_.fill("Text3", std::to_string(++year));
    host_.press("cmdok");
    ASSERT_EQ(host_.lastMessage(), "company created") << name;
    const auto row = catalogue().first("SELECT * FROM compny WHERE COMP_NAME = ?", trim(name));
    ASSERT_TRUE(row) << name;
    EXPECT_EQ(row->text("FROMYR"), std::to_string(year)) << name;
  }
  host_.fill("Text2", long100 + "X");
  EXPECT_EQ(host_.text("Text2"), long100) << "the field takes no more than its column";

  host_.inputs = {"o'brien " + std::string(120, 'y')};
  host_.answers = {true};
  host_.go("lst");
  host_.type("50%");
  host_.press("Cmdmodify");
  EXPECT_EQ(catalogue().text("SELECT COMP_NAME FROM compny WHERE COMP_ID = 'M004'"),
            "O'BRIEN " + std::string(92, 'Y'));
}

// Both programs see the catalogue; who is first in a company-year clears its marks, who comes
// second does not, and what is open in one is deleted by neither.
TEST_F(Folder, TwoProgramsShareIt) {
  struct {
    bool catalogueOpen, yearOpen, first;
    const char* mark;
  } const cases[] = {
      {false, false, true,  "0"},
      {true,  false, true,  "0"}, // the second program, but the first in these books
      {false, true,  true,  "0"}, // alone at the start
      {true,  true,  false, "1"},
  };
  for (const auto& c : cases) {
    Database marks;
    marks.open(folder_ / "M00225.mdb");
    marks.exec("UPDATE SPSFILE SET VOUCH_FLAG = '1' WHERE VOUCH_NO BETWEEN 221 AND 226");
    marks.close();
    Database otherCatalogue, otherYear;
    if (c.catalogueOpen) otherCatalogue.open(folder_ / "comp.mdb");
    if (c.yearOpen) otherYear.open(folder_ / "M00225.mdb");
    openYear("M00225.mdb");
    EXPECT_EQ(session().mfirstuser, c.first) << c.catalogueOpen << c.yearOpen;
    EXPECT_EQ(data().text(
                  "SELECT GROUP_CONCAT(DISTINCT VOUCH_FLAG) FROM SPSFILE WHERE VOUCH_NO BETWEEN 221 AND 226"),
              c.mark)
        << c.catalogueOpen << c.yearOpen;
    session() = Session{};
  }

  Database other;
  other.open(folder_ / "M00225.mdb");
  startUp(host_, folder_.path());
  host_.rowTo(host_.at("lst"), 2);
  host_.answers = {true, true};
  host_.press("cmddelcomp");
  EXPECT_EQ(host_.lastMessage(), "Company Data Is Open In Another Program");
  EXPECT_EQ(host_.at("lst").grid.count(), 3u);
  other.exec("UPDATE ACCOUNT SET OP_BAL = 1");
  other.close();
  host_.press("cmddelcomp");
  EXPECT_EQ(host_.lastMessage(), "Company Delete Process Done");
}

// The opening puts back what a year lacks of its seeds; the creation of a company has a test of its own.
TEST_F(Folder, AYearStandsWhateverMomentItsOpeningIsKilledAt) {
  constexpr int kMoments = 20;
  const auto lose = [&] {
    Database year;
    year.open(folder_ / "M00125.mdb");
    year.exec("DELETE FROM SPSFILE WHERE VOUCH_NO IN (152, 212, 371)");
    year.exec("DELETE FROM ACCOUNT WHERE ACC_CD IN ('X90061', 'X90005')");
    year.exec("DELETE FROM GRP WHERE GROUP_CD > 30");
    year.exec("DELETE FROM DISCHTAX");
  };
  const auto openIt = [&] {
    TestHost host(known());
    startUp(host, folder_.path());
    host.enter();
    host.ticks(4);
    session() = Session{};
  };
  Database year;
  year.open(folder_ / "M00125.mdb");
  year.exec("INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, OP_BAL) VALUES ('A00001', 'RAM', 250)");
  year.exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD) VALUES (1, 'SA'), (2, 'SA')");
  year.close();
  lose();
  const Killed whole = killedAt(0, openIt);
  if (!whole.possible) GTEST_SKIP() << "processes may not be watched here";
  ASSERT_TRUE(whole.ended);

  for (int moment = 1; moment <= kMoments; ++moment) {
    lose();
    const int call = whole.calls * moment / kMoments;
    killedAt(call, openIt);
    for (const char* file : {"comp.mdb", "M00125.mdb"}) {
      year.open(folder_ / file);
      ASSERT_EQ(year.text("PRAGMA integrity_check"), "ok") << call << file;
      year.close();
    }
    // At the next start books and seeds are there.
    TestHost host(known());
    ASSERT_TRUE(startUp(host, folder_.path())) << call;
    host.enter();
    host.ticks(4);
    ASSERT_EQ(host.onTop() + host.lastMessage(), "frmmain") << call;
    ASSERT_TRUE(session().mfirstuser) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM SALE"), 2) << call;
    ASSERT_EQ(data().number("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = 'A00001'"), 250) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM GRP"), 39) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM SPSFILE"), 24) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM ACCOUNT"), 14) << call;
    session() = Session{};
  }
}

}  // namespace
