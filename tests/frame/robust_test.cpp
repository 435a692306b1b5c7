#include <fstream>
#include <random>

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

TEST_F(Folder, ACatalogueThatIsNoneEndsTheProgramInWords) {
  struct {
    const char* what;
    std::function<void(const fs::path&)> spoil;
    const char* words;
  } const cases[] = {
      {"missing",   [](const fs::path& file) { fs::remove(file); },                   "No Database Found"                          },
      {"empty",     [](const fs::path& file) { write(file, ""); },                    "comp.mdb is not a database of this program."},
      {"a letter",  [](const fs::path& file) { write(file, std::string(900, 'x')); },
       "comp.mdb is not a database of this program."                                                                               },
      {"cut",       [](const fs::path& file) { fs::resize_file(file, 5000); },
       "comp.mdb is damaged. Restore it from a backup."                                                                            },
      {"of others",
       [](const fs::path& file) {
         fs::remove(file);
         Database db;
         db.open(file, Access::create);
         db.exec("CREATE TABLE contacts (name)");
       },                                                                             "comp.mdb is not a database of this program."},
      {"a folder",
       [](const fs::path& file) {
         fs::remove(file);
         fs::create_directory(file);
       },                                                                             "comp.mdb was not found."                    },
  };
  const auto whole = folder_ / "whole.mdb";
  fs::copy_file(folder_ / "comp.mdb", whole);
  for (const auto& c : cases) {
    c.spoil(folder_ / "comp.mdb");
    TestHost host(known());
    EXPECT_FALSE(startUp(host, folder_.path())) << c.what;
    EXPECT_EQ(host.lastMessage(), c.words) << c.what;
    EXPECT_EQ(host.messages.size(), 1u) << c.what;
    EXPECT_TRUE(host.quitting()) << c.what;
    fs::remove(folder_ / "comp.mdb");
    fs::copy_file(whole, folder_ / "comp.mdb");
  }
}

TEST_F(Folder, ACompanyYearThatIsNoneIsSaidAndTheSelectionStays) {
  struct {
    const char* what;
    std::function<void(const fs::path&)> spoil;
    const char* words;
  } const cases[] = {
      {"missing",                          [](const fs::path& file) { fs::remove(file); },                   "Company Data Not Found"                       },
      {"empty",                            [](const fs::path& file) { write(file, ""); },
       "M00225.mdb is not a database of this program."                                                                                                      },
      {"a letter",                         [](const fs::path& file) { write(file, std::string(900, 'x')); },
       "M00225.mdb is not a database of this program."                                                                                                      },
      {"of others, with a name in common",
       [](const fs::path& file) {
         fs::remove(file);
         Database db;
         db.open(file, Access::create);
         db.exec("CREATE TABLE ACCOUNT (id, name)");
       },                                                                                                    "M00225.mdb is not a database of this program."},
      {"the catalogue",
       [](const fs::path& file) {
         fs::copy_file(file.parent_path() / "SMPL.MDB", file, fs::copy_options::overwrite_existing);
         Database db;
         db.open(file);
         for (const auto& table : db.all("SELECT name FROM main.sqlite_master WHERE type = 'table'"))
           if (table.text(0) != "COMPNY") db.exec("DROP TABLE main." + table.text(0));
       },                                                                                                    "M00225.mdb is not a database of this program."},
  };
  for (const auto& c : cases) {
    c.spoil(folder_ / "M00225.mdb");
    openYear("M00225.mdb");
    EXPECT_EQ(host_.lastMessage(), c.words) << c.what;
    EXPECT_EQ(host_.onTop(), "FRMCOMP") << c.what;
    EXPECT_FALSE(session().cndata) << c.what;
    session() = Session{};
    fs::remove(folder_ / "M00225.mdb");
    fs::copy_file(folder_ / "SMPL.MDB", folder_ / "M00225.mdb");
  }
  openYear("M00225.mdb");
  EXPECT_EQ(host_.onTop(), "frmStartup") << "and a whole one opens behind them";
}

// One that an update has to complete opens, and what is not the program's own stays in it.
TEST_F(Folder, ACompanyYearOfAnotherShapeOpens) {
  Database year;
  year.open(folder_ / "M00225.mdb");
  year.exec("DROP TABLE SPSFILE");
  year.exec("DROP TABLE STRUCTAB");
  year.exec("CREATE TABLE SOMEBODYS (A)");
  year.exec("INSERT INTO SOMEBODYS VALUES (1)");
  year.close();
  openYear("M00225.mdb");
  host_.ticks(4);
  EXPECT_EQ(host_.onTop(), "frmmain");
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_FALSE(CheckTable("SPSFILE"));
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
  host_.choose("Category List");
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

  // Found by their signs, renamed, opened and deleted by their names.
  host_.go("lst");
  host_.type("50%");
  ASSERT_EQ(host_.at("lst").grid.count(), 1u);
  host_.inputs = {"o'brien " + std::string(120, 'y')};
  host_.answers = {true};
  host_.press("Cmdmodify");
  EXPECT_EQ(catalogue().text("SELECT COMP_NAME FROM compny WHERE COMP_ID = 'M004'"),
            "O'BRIEN " + std::string(92, 'Y'));
  host_.go("lst");
  host_.keys({KeyCode::Backspace, KeyCode::Backspace, KeyCode::Backspace});
  host_.type("શ્રી");
  ASSERT_EQ(host_.at("lst").grid.count(), 1u);
  host_.enter();
  host_.ticks(4);
  EXPECT_EQ(host_.screen().caption.substr(0, std::string_view("શ્રી ગણેશ સ્ટોર્સ : 2829").size()),
            "શ્રી ગણેશ સ્ટોર્સ : 2829");
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

// Opens a year whose seeds are incomplete, then creates a company and opens it.
void aMorning(const Screens& screens, const fs::path& folder) {
  TestHost host(screens);
  startUp(host, folder);
  host.enter();
  host.ticks(4);
  session() = Session{};

  TestHost again(screens);
  startUp(again, folder);
  again.press("mnunewcomp");
  again.type("NEW SHOP");
  again.enter();
  again.answers = {true};
  again.type("2030");
  again.enter();
  again.ticks(4);
  session() = Session{};
}

TEST_F(Folder, StandsWhateverMomentTheProgramIsKilledAt) {
  constexpr int kMoments = 20;
  const auto lose = [&] {
    Database year;
    year.open(folder_ / "M00125.mdb");
    year.exec("DELETE FROM SPSFILE WHERE VOUCH_NO IN (152, 212, 371)");
    year.exec("DELETE FROM ACCOUNT WHERE ACC_CD IN ('X90061', 'X90005')");
    year.exec("DELETE FROM GRP WHERE GROUP_CD > 30");
    year.exec("DELETE FROM DISCHTAX");
  };
  Database year;
  year.open(folder_ / "M00125.mdb");
  year.exec("INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, OP_BAL) VALUES ('A00001', 'RAM', 250)");
  year.exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD) VALUES (1, 'SA'), (2, 'SA')");
  year.close();
  lose();
  // Each run creates another company: the code after the last one.
  const Killed whole = killedAt(0, [&] { aMorning(known(), folder_.path()); });
  if (!whole.possible) GTEST_SKIP() << "processes may not be watched here";
  ASSERT_TRUE(whole.ended);

  std::mt19937 random(20260615);
  std::uniform_int_distribution<int> anyCall(1, whole.calls);
  for (int moment = 0; moment < kMoments; ++moment) {
    lose();
    Database catalogue;
    catalogue.open(folder_ / "comp.mdb");
    const size_t before = companyYears(catalogue).size();
    const std::string code = *nextCompanyCode(catalogue);
    catalogue.exec("UPDATE compny SET COMP_NAME = COMP_NAME || ' OLD' WHERE COMP_NAME = 'NEW SHOP'");
    catalogue.close();

    const int call = anyCall(random);
    killedAt(call, [&] { aMorning(known(), folder_.path()); });
    catalogue.open(folder_ / "comp.mdb");
    ASSERT_EQ(catalogue.text("PRAGMA integrity_check"), "ok") << call;
    const auto rows = companyYears(catalogue);
    ASSERT_GE(rows.size(), before) << call;
    for (const CompanyYear& row : rows) {
      year.open(folder_ / (dataStem(row.code, row.from) + ".mdb"));
      ASSERT_EQ(year.text("PRAGMA integrity_check"), "ok") << call << row.code;
    }
    catalogue.close();
    year.close();

    // The next start: books and seeds are there, and the company can be made.
    TestHost host(known());
    ASSERT_TRUE(startUp(host, folder_.path())) << call;
    host.enter();
    host.ticks(4);
    ASSERT_EQ(host.onTop(), "frmmain") << call;
    ASSERT_TRUE(host.messages.empty()) << call << host.lastMessage();
    ASSERT_TRUE(session().mfirstuser) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM SALE"), 2) << call;
    ASSERT_EQ(data().number("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = 'A00001'"), 250) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM GRP"), 39) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM SPSFILE"), 24) << call;
    ASSERT_EQ(data().number("SELECT COUNT(*) FROM ACCOUNT"), 14) << call;
    const CompanyYear wanted{code, "NEW SHOP", "2030", {}};
    if (rows.size() == before) {
      ASSERT_EQ(creationRefusal(::catalogue(), folder_.path(), wanted, CreateBy::Enter), "") << call;
      createCompanyYear(::catalogue(), folder_.path(), wanted, CreateBy::Enter, "");
    }
    ASSERT_TRUE(fs::exists(folder_ / (dataStem(code, "2030") + ".mdb"))) << call;
    session() = Session{};
  }
}

}  // namespace
