#include "frame/companies.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

#include "frame/backup.h"
#include "frame/number_series.h"
#include "frame/settings.h"
#include "frame_fixture.h"
#include "full_disk.h"
#include "killed.h"
#include "store/dictionary.h"

namespace {

class Companies : public FrameTest {
 protected:
  Companies() { catalogue_.open(folder_ / "comp.mdb"); }
  std::string refusal(const CompanyYear& wanted, CreateBy by) {
    return creationRefusal(catalogue_, folder_.path(), wanted, by);
  }
  std::string rows() {
    std::string all;
    for (const auto& y : companyYears(catalogue_))
      all += y.code + " " + y.name + " " + y.from + "-" + y.to + ";";
    return all;
  }

  Deletion removed(const CompanyYear& which) {
    return deleteCompanyYear(catalogue_, folder_.path(), which, "260615_1030").outcome;
  }

  // The databases that the fixture did not bring.
  std::string files() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
      const std::string name = entry.path().filename().string();
      const bool brought = std::find(std::begin(kFiles), std::end(kFiles), name) != std::end(kFiles);
      if (!brought && !name.ends_with(".LDB")) names.insert(name);
    }
    std::string all;
    for (const auto& name : names) all += name + " ";
    return all;
  }

  Database catalogue_;
};

TEST_F(Companies, GetTheCodeAfterThatOfTheLastRow) {
  struct {
    const char *last, *next;
  } const cases[] = {
      {"M002",   "M003"  },
      {"M008",   "M009"  },
      {"M009",   "M010"  },
      {"M098",   "M099"  },
      {"M099",   "M0100" },
      {"M0100",  "M0101" },
      {"M999",   "M01000"},
      {"M01000", "M01001"},
      {"../X9",  "M002"  },
  };
  for (const auto& c : cases) {
    catalogue_.exec("UPDATE compny SET COMP_ID = ? WHERE COMP_NAME = 'LIGHT HOUSE'", c.last);
    EXPECT_EQ(nextCompanyCode(catalogue_), c.next) << c.last;
  }
  catalogue_.exec("DELETE FROM compny");
  EXPECT_EQ(nextCompanyCode(catalogue_), "M001");
  EXPECT_EQ(dataStem(" M0100 ", " 2005 "), "M010005");
}

TEST_F(Companies, GoOnWithWhatTheYearBeforeHasSet) {
  Database earlier;
  earlier.open(folder_ / "M00125.mdb");
  storeSetting(earlier, kBackupsKept, 30);
  storeSetting(earlier, kExitBackup, 0);
  storeSeries(earlier, {.book = "SA", .prefix = "INV/{yy}/", .width = 4, .first = 301});
  earlier.close();
  createCompanyYear(catalogue_, folder_.path(), {"M001", "SHREE TRADERS", "2026"}, CreateBy::Button, "");
  Database db;
  db.open(folder_ / "M00126.mdb");
  EXPECT_EQ(settingOf(db, kBackupsKept) + settingOf(db, kExitBackup) + settingOf(db, kOneUnit), "3010");
  const auto series = allSeries(db);
  EXPECT_TRUE(series.size() == 1 && series[0].prefix == "INV/{yy}/" && series[0].first == 1);
}

TEST_F(Companies, LeaveNeitherRowNorFileBehindWhenOneOfThemCannotBeMade) {
  const std::string before = rows();
  const auto fails = [&](const std::string& name, CreateBy by) {
    EXPECT_THROW(createCompanyYear(catalogue_, folder_.path(), {"M003", name, "2026"}, by, ""),
                 DatabaseError);
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(files(), "");
  };
  fails(std::string(101, 'X'), CreateBy::Enter);
  std::ofstream(folder_ / "BLNK.MDB") << "Dear Sir, this is a letter and no database.";
  fails("NEW", CreateBy::Button);
  std::ofstream(folder_ / "BLNK.MDB").close();  // empty
  fails("NEW", CreateBy::Button);
  std::filesystem::remove(folder_ / "BLNK.MDB");
  fails("NEW", CreateBy::Button);
  EXPECT_EQ(refusal({"M003", "NEW", "2026"}, CreateBy::Button), "Template BLNK.MDB Not Found");
  Database other;
  other.open(folder_ / "comp.mdb");
  const Transaction elsewhere(other);
  fails("NEW", CreateBy::Enter);
}

TEST_F(Companies, AreWholeOrNotThereWhereverTheirCreationIsKilled) {
  constexpr int kMoments = 30;
  catalogue_.close();
  CompanyYear wanted{"M002", "NEW", "2030", {}};
  const auto create = [&] {
    Database catalogue;
    catalogue.open(folder_ / "comp.mdb");
    createCompanyYear(catalogue, folder_.path(), wanted, CreateBy::Enter, "");
  };
  const Killed whole = killedAt(0, create);
  if (!whole.possible) GTEST_SKIP() << "processes may not be watched here";
  ASSERT_TRUE(whole.ended);

  for (int moment = 1; moment <= kMoments; ++moment) {
    wanted.code = "M0" + std::to_string(10 + moment);
    wanted.name = "NEW " + wanted.code;
    const int call = whole.calls * moment / kMoments;
    killedAt(call, create);
    catalogue_.open(folder_ / "comp.mdb");
    ASSERT_EQ(catalogue_.text("PRAGMA integrity_check"), "ok") << call;
    if (!companyYear(catalogue_, wanted.code, wanted.from)) {
      ASSERT_EQ(refusal(wanted, CreateBy::Enter), "") << call;
      createCompanyYear(catalogue_, folder_.path(), wanted, CreateBy::Enter, "");
    }
    Database year;
    year.open(folder_ / (dataStem(wanted.code, wanted.from) + ".mdb"));
    ASSERT_TRUE(isCompanyYear(year)) << call;
    ASSERT_EQ(year.text("PRAGMA integrity_check"), "ok") << call;
    catalogue_.close();
  }
}

TEST_F(Companies, AreDeletedOrWholeWhereverTheirDeletionIsKilled) {
  namespace fs = std::filesystem;
  constexpr int kMoments = 20;
  catalogue_.close();
  const TempFolder kept;
  const fs::path books = folder_ / "M00225.mdb";
  const auto copied = [](const fs::path& from, const fs::path& to) {
    for (const char* file : {"comp.mdb", "M00225.mdb"})
      fs::copy_file(from / file, to / file, fs::copy_options::overwrite_existing);
  };
  const auto kill = [&](int call) {
    fs::remove_all(folder_ / "BACKUP");
    return killedAt(call, [&] {
      Database catalogue;
      catalogue.open(folder_ / "comp.mdb");
      deleteCompanyYear(catalogue, folder_.path(), {"M002", {}, "2025", "2026"}, "260615_1030");
    });
  };
  copied(folder_.path(), kept.path());
  {
    Database catalogue;
    catalogue.open(folder_ / "comp.mdb");
    const FullDisk full;
    EXPECT_THROW(deleteCompanyYear(catalogue, folder_.path(), {"M002", {}, "2025", "2026"}, "260615_1030"),
                 DatabaseError)
        << "no backup, no deletion";
    EXPECT_TRUE(fs::exists(books) && companyYear(catalogue, "M002", "2025"));
  }
  const Killed whole = kill(0);
  if (!whole.possible) GTEST_SKIP() << "processes may not be watched here";
  int gone = 0, stayed = 0;
  // Closer towards the end, where the row goes. How many calls there are differs from run to run.
  const int late = whole.calls * 9 / 10;
  bool ended = false;
  for (int call = 1; !ended; call += call < late ? whole.calls / kMoments : 4) {
    copied(kept.path(), folder_.path());
    ended = kill(call).ended;
    Database catalogue;
    catalogue.open(folder_ / "comp.mdb");
    endDeletions(catalogue, folder_.path());
    const bool row = companyYear(catalogue, "M002", "2025").has_value();
    ASSERT_EQ(fs::exists(books), row) << call;
    ASSERT_FALSE(fs::exists(books.string() + ".deleted")) << call;
    ASSERT_NO_THROW(factsOf(row ? books : folder_ / "BACKUP/M00225_260615_1030.mdb")) << call;
    ++(row ? stayed : gone);
  }
  EXPECT_GT(std::min(gone, stayed), 0);
}

TEST_F(Companies, KeepTheirNamesApart) {
  const CompanyYear light{"M002", "LIGHT HOUSE", "2025", "2026"};
  EXPECT_EQ(renameCompany(catalogue_, light, "shree traders", light.name),
            "SHREE TRADERS Is The Name Of M001");
  EXPECT_EQ(renameCompany(catalogue_, {"M001", "SHREE TRADERS", "2025", "2026"}, "shree", "SHREE TRADERS"),
            "");
  EXPECT_EQ(rows(), "M001 SHREE 2025-2026;M001 SHREE TRADERS 2024-2025;M002 LIGHT HOUSE 2025-2026;");
}

TEST_F(Companies, AreDeletedWithFileAndJournalOrWithoutThem) {
  std::ofstream(folder_ / "M00124.mdb-journal") << "left by a crash";
  EXPECT_EQ(removed({"M001", {}, "2024", "2025"}), Deletion::Done);
  EXPECT_EQ(rows(), "M001 SHREE TRADERS 2025-2026;M002 LIGHT HOUSE 2025-2026;");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "M00124.mdb"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "M00124.mdb-journal"));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "M00125.mdb"));
  std::filesystem::remove(folder_ / "M00125.mdb");  // taken away by somebody
  EXPECT_EQ(removed({"M001", {}, "2025", "2026"}), Deletion::Done);
  EXPECT_EQ(rows(), "M002 LIGHT HOUSE 2025-2026;");
  EXPECT_EQ(removed({"M002", {}, "2025", "2026"}), Deletion::LastOne);
  EXPECT_EQ(backupsOf(folder_ / "BACKUP", "M00124").size(), 1u);
}

TEST_F(Companies, AreNotDeletedWhileTheCatalogueIsLocked) {
  Database other;
  other.open(folder_ / "comp.mdb");
  for (const char* held : {"BEGIN EXCLUSIVE", "BEGIN"}) {  // it may neither begin nor, while others read, end
    other.exec(held);
    other.number("SELECT COUNT(*) FROM compny");
    EXPECT_THROW(removed({"M001", {}, "2024", "2025"}), DatabaseError);
    other.exec("ROLLBACK");
  }
  // Nor a file that no row names, or one of another folder, or books of which no backup can be made.
  EXPECT_EQ(removed({"M001", {}, "2024", "2026"}), Deletion::NoRow);
  catalogue_.exec("INSERT INTO compny (COMP_ID, FROMYR, TOYR) VALUES ('../OUTX', '2024', '2025')");
  EXPECT_THROW(removed({"../OUTX", {}, "2024", "2025"}), DatabaseError);
  catalogue_.exec("DELETE FROM compny WHERE COMP_ID = '../OUTX'");
  std::filesystem::remove_all(folder_ / "BACKUP");
  std::ofstream(folder_ / "BACKUP") << "a file";
  EXPECT_THROW(removed({"M001", {}, "2024", "2025"}), DatabaseError);
  EXPECT_TRUE(std::filesystem::exists(folder_ / "M00124.mdb"));
  EXPECT_EQ(companyYears(catalogue_).size(), 3u);
}

}  // namespace
