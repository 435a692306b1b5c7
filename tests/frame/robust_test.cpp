#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "frame/companies.h"
#include "frame/routines.h"
#include "frame_fixture.h"
#include "store/dictionary.h"
#include "store/lock_file.h"
#include "store/lock_wait.h"

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
     },                                                                                                    " is not a database of this program."},
    {"a pipe",
     [](const fs::path& file) {
       fs::remove(file);
       mkfifo(file.c_str(), 0600);
     },                                                                                                    " is not a database of this program."},
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

// What stands beside the books and is no file is not waited for, and what a killed run left goes.
TEST_F(Folder, NothingInTheWayHoldsItUp) {
  mkfifo((folder_ / "M00225.LDB").c_str(), 0600);
  mkfifo((folder_ / "M00225.mdb-journal").c_str(), 0600);
  openYear("M00225.mdb");
  EXPECT_NE(host_.lastMessage().find("M00225.mdb-journal is in the way"), std::string::npos);

  session() = Session{};
  fs::create_directory(folder_ / "BILLS");
  const std::string mine = "BILLS/TAX.pdf~" + std::to_string(getpid());
  fs::rename(folder_ / "M00124.mdb", folder_ / "M00124.mdb.deleted");
  for (const std::string name : {"BILLS/TAX.pdf~999999999", "M00326.mdb.new", "M00326.mdb.new-journal",
                                 "M00426.mdb.deleted", mine.c_str(), "letter.new", "plan~1"})
    write(folder_ / name, "x");
  startUp(host_, folder_.path());
  for (const char* name : {"BILLS/TAX.pdf~999999999", "M00326.mdb.new", "M00326.mdb.new-journal",
                           "M00426.mdb.deleted", "M00124.mdb.deleted"})
    EXPECT_FALSE(fs::exists(folder_ / name)) << name;
  for (const char* name : {mine.c_str(), "letter.new", "plan~1", "M00124.mdb"})
    EXPECT_TRUE(fs::exists(folder_ / name)) << name;
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
      {false, true,  true,  "1"}, // alone at the start, but not in these books
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

  {
    const LockFile replacing(folder_ / "M00225.mdb", LockFile::Hold::Alone);
    const int wait = std::exchange(lockWaitMs(), 50);
    openYear("M00225.mdb");
    lockWaitMs() = wait;
    EXPECT_EQ(host_.lastMessage().substr(0, 40), "M00225.mdb is in use by another program.");
    EXPECT_FALSE(session().cndata);
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

}  // namespace
