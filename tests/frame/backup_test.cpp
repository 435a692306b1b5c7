#include "frame/backup.h"

#include <fstream>
#include <functional>
#include <iterator>
#include <set>

#include "base/number.h"
#include "frame/frmstartup.h"
#include "frame/routines.h"
#include "frame/settings.h"
#include "frame_fixture.h"
#include "full_disk.h"
#include "killed.h"
#include "store/row_writer.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kInformation = "Mirav Information";
constexpr const char* kConfirm = "Mirav Confirmation Message";

// M001 of 2025 open in the shell, with a company name and one bill.
class Backups : public FrameTest {
 protected:
  Backups() : keep_(folder_ / "BACKUP") {
    openShell();
    data().exec("INSERT INTO COMP_DET (COMPNM, DATANM) VALUES ('SHREE TRADERS', 'M00125')");
    bill(1, *parseDate("2026-06-14"));
  }
  void bill(int number, Date date) {
    insertRow(data(), "SALE",
              {
                  {"VOUCH_NO", number},
                  {"BOOK_CD",  "SA"  },
                  {"VOUCH_DT", date  }
    });
  }
  double bills() { return data().number("SELECT COUNT(*) FROM SALE"); }
  std::string names(const fs::path& folder) {
    std::set<std::string> all;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder, none)) all.insert(entry.path().filename());
    all.erase("mirav.log");
    std::string text;
    for (const auto& name : all) text += name + " ";
    return text;
  }
  void restore(const std::optional<std::string>& name, bool yes) {
    host_.inputs = {name};
    host_.answers = {yes};
    host_.choose("mnurestore");
    host_.answers.clear();
  }

  fs::path keep_;
};

TEST(BackupFolders, ForeignPathsMeanAFolderInTheProgramFolder) {
  struct {
    const char *named, *folder;
  } const cases[] = {
      {"D:\\BACKUP",        "/mirav/BACKUP"   },
      {"e:\\Keep\\daily\\", "/mirav/DAILY"    },
      {"D:",                "/mirav/BACKUP"   },
      {"\\\\server\\safe",  "/mirav/SAFE"     },
      {"  ",                "/mirav/BACKUP"   },
      {"/mnt/stick/mirav",  "/mnt/stick/mirav"},
      {" safe ",            "/mirav/safe"     },
  };
  for (const auto& c : cases) EXPECT_EQ(backupFolder(c.named, "/mirav"), c.folder) << c.named;
}

TEST(BackupNames, AreThoseOfTheYearOldestFirst) {
  const TempFolder folder;
  for (const char* name :
       {"M00125_260615_1030.mdb", "M00125_260615_1030_2.mdb", "M00125_260615_1030_10.mdb",
        "M00125_251231_2359_exit.mdb", "M00125_260615_0900.mdb", "M00125_260615_1030_comp.mdb",
        "M00125_260615_1030_replaced.mdb", "M00125_260615_1031.mdb.new", "M00125.mdb",
        "M001250_260615_1030.mdb", "M00124_260615_1030.mdb", "letter.mdb"})
    std::ofstream(folder / name) << "x";
  EXPECT_EQ(backupsOf(folder.path(), "M00125"),
            (std::vector<std::string>{"M00125_251231_2359_exit.mdb", "M00125_260615_0900.mdb",
                                      "M00125_260615_1030.mdb", "M00125_260615_1030_2.mdb",
                                      "M00125_260615_1030_10.mdb"}));
  EXPECT_TRUE(backupsOf(folder / "none", "M00125").empty());
}

TEST(BackupNames, AFileBelongsByWhatItWasSavedUnder) {
  struct {
    const char *savedUnder, *file, *standing;
    bool belongs;
  } const cases[] = {
      {"M00125", "any.mdb",                "M00125", true },
      {"m00125", "any.mdb",                "",       true },
      {"M00124", "M00125_260615_1030.mdb", "M00125", false},
      {"M00224", "M00125.mdb",             "",       false},
      {"M00124", "M00125_260615_1030.mdb", "M00124", true }, // books begun as a copy of last year's
      {"",       "M00125_260615_1030.mdb", "M00125", true },
      {"",       "M00225_260615_1030.mdb", "M00125", false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(belongsTo({.dataname = c.savedUnder}, fs::path("/x") / c.file, "M00125", c.standing), c.belongs)
        << c.savedUnder << c.file;
}

TEST_F(Backups, StandInTheFolderOfTheSettings) {
  EXPECT_EQ(session().mbackuppath, "D:\\BACKUP");
  host_.choose("mnubackup");
  EXPECT_EQ(host_.lastMessage(), "Backup Done\r\n" + (keep_ / "M00125_260615_1030.mdb").string());
  EXPECT_EQ(host_.messages.back().title, kInformation);
  host_.choose("mnubackup");
  EXPECT_EQ(names(keep_),
            "M00125_260615_1030.mdb M00125_260615_1030_2.mdb M00125_260615_1030_2_comp.mdb "
            "M00125_260615_1030_comp.mdb ");
  EXPECT_FALSE(host_.isBusy);

  Database copy;
  copy.open(keep_ / "M00125_260615_1030.mdb");
  EXPECT_EQ(copy.text("SELECT COMPNM FROM COMP_DET"), "SHREE TRADERS");
  copy.open(keep_ / "M00125_260615_1030_comp.mdb");
  EXPECT_EQ(copy.number("SELECT COUNT(*) FROM compny"), 3);
}

TEST_F(Backups, RestoreOffersTheNewestAndKeepsWhatItReplaces) {
  data().exec("UPDATE SPSFILE SET VOUCH_QTY = NULL WHERE VOUCH_NO = 234");
  host_.choose("mnubackup");
  host_.clock.hour = 11;
  host_.choose("mnubackup");
  bill(2, *parseDate("2026-06-15"));
  data().exec("UPDATE COMP_DET SET ADDRS = 'NEW ROAD'");
  data().exec("UPDATE SPSFILE SET VOUCH_DT = '2027-03-31' WHERE VOUCH_NO = 212");
  session().mbackupflag = true;
  host_.clock.hour = 12;
  std::string posted;
  openingRoutines() = {
      [&] { posted += data().file().stem().string() + " of " + numText(bills()) + " bill; "; }};
  restore("M00125_260615_1130.mdb", true);

  EXPECT_EQ(host_.prompts.back().text, "Type Name Of Backup To Restore \r\nIn Place Of M00125.mdb");
  EXPECT_EQ(host_.prompts.back().initial, "M00125_260615_1130.mdb");
  EXPECT_EQ(host_.questions.back().text,
            "Do You Want To Restore M00125_260615_1130.mdb\r\nSHREE TRADERS :: 1 Bill :: Last Of "
            "14/Jun/2026\r\nIn Place Of M00125.mdb");
  EXPECT_EQ(host_.questions.back().title, kConfirm);
  EXPECT_EQ(host_.lastMessage(),
            "Restore Done\r\nThe Replaced Books Are Kept In M00125_260615_1230_replaced.mdb");
  EXPECT_EQ(host_.messages.back().title, kInformation);
  EXPECT_EQ(bills(), 1);
  EXPECT_FALSE(session().mbackupflag) << "a blank row takes nothing over from the replaced books";
  EXPECT_EQ(session().mcad1, "") << "the details are those of the restored books";
  EXPECT_EQ(host_.screen().panels[0], "SHREE TRADERS : FROM 01/04/23 TO 31/03/34");
  EXPECT_EQ(host_.at("LastBills").grid.count(), 1u);
  EXPECT_EQ(data().number("SELECT COUNT(*) FROM T_ACLST"), 13);
  EXPECT_EQ(posted, "M00125 of 1 bill; ") << "as at an opening";
  openingRoutines().clear();

  // And back again.
  restore("M00125_260615_1230_replaced", true);
  EXPECT_EQ(bills(), 2);
  EXPECT_EQ(session().mcad1, "NEW ROAD");
  EXPECT_EQ(host_.screen().panels[0], "SHREE TRADERS : FROM 01/04/23 TO 31/03/27");
}

TEST_F(Backups, RestoreRefusesWhatIsNotOfThisYear) {
  fs::create_directory(keep_);
  Database other;
  other.open(folder_ / "M00225.mdb");
  other.exec("INSERT INTO COMP_DET (COMPNM, DATANM) VALUES ('LIGHT HOUSE', 'M00225')");
  other.close();
  fs::copy_file(folder_ / "M00225.mdb", keep_ / "M00125_260615_0900.mdb");
  fs::copy_file(folder_ / "M00124.mdb", keep_ / "new_year.mdb");
  std::ofstream(keep_ / "letter.mdb") << "Dear Sir, this is a letter and no database.";
  fs::copy_file(folder_ / "M00125.mdb", keep_ / "half.mdb");
  fs::resize_file(keep_ / "half.mdb", fs::file_size(keep_ / "half.mdb") / 2);
  const auto mine = names(folder_.path());

  struct {
    const char *typed, *words;
  } const cases[] = {
      {"M00125_260615_0900.mdb",
       "M00125_260615_0900.mdb Is Not A Backup Of M00125\r\nLIGHT HOUSE :: 0 Bills"                            },
      {"new_year",               "new_year.mdb Is Not A Backup Of M00125\r\nWithout Company Details :: 0 Bills"},
      {"D:\\BACKUP\\letter.mdb", "letter.mdb is not a database of this program."                               },
      {"half.mdb",               "half.mdb is damaged. Restore it from a backup."                              },
  };
  for (const auto& c : cases) {
    restore(c.typed, true);
    EXPECT_EQ(host_.lastMessage(), c.words);
    EXPECT_EQ(host_.messages.back().title, "Mirav Message");
    EXPECT_EQ(bills(), 1);
  }
  restore("none.mdb", true);
  EXPECT_EQ(host_.lastMessage(), "Backup Not Found\r\n" + (keep_ / "none.mdb").string());
  EXPECT_TRUE(host_.questions.empty());
  EXPECT_EQ(names(folder_.path()), mine);
}

// Books that can no longer be opened are brought back before they are.
TEST_F(Backups, AreOfferedForBooksThatAreDamagedOrLost) {
  host_.choose("mnubackup");
  const fs::path books = folder_ / "M00125.mdb";
  const std::function<void()> spoils[] = {
      [&] { fs::resize_file(books, 5000); },
      [&] { std::ofstream(books, std::ios::trunc).close(); },
      [&] { fs::remove(books); },
      [&] {
        Database db;
        db.open(books);
        db.exec("CREATE TRIGGER EATS AFTER INSERT ON SALEITM BEGIN DELETE FROM SALE; END");
      },
  };
  const char* const words[] = {"M00125.mdb is damaged. Restore it from a backup.",
                               "M00125.mdb is not a database of this program.", "Company Data Not Found",
                               "M00125.mdb Was Not Opened :: It Holds TRIGGER EATS\r\n"
                               "No Books Of This Program Hold That, And It Could Change What Is Stored"};
  for (size_t i = 0; i < std::size(spoils); ++i) {
    session() = Session{};
    spoils[i]();
    TestHost host(known());
    startUp(host, folder_.path());
    host.inputs = {std::nullopt};
    host.enter();
    EXPECT_EQ(host.lastMessage(), words[i]);
    EXPECT_EQ(host.onTop(), "FRMCOMP");
    host.inputs = {"M00125_260615_1030.mdb"};
    host.answers = {true};
    host.enter();
    EXPECT_EQ(host.prompts.back().initial, "M00125_260615_1030.mdb");
    EXPECT_EQ(host.lastMessage().substr(0, 12), "Restore Done");
    EXPECT_EQ(host.onTop(), "frmStartup");
    EXPECT_EQ(bills(), 1);
  }
}

TEST_F(Backups, RestoreKeepsTheRightsOfTheFileAndFollowsALink) {
  host_.choose("mnubackup");
  const fs::path books = folder_ / "M00125.mdb", disk = folder_ / "DISK", real = disk / "books.mdb";
  constexpr auto kShared = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
  session() = Session{};
  fs::create_directory(disk);
  fs::rename(books, real);
  fs::permissions(real, kShared);
  fs::create_symlink(real, books);
  restoreBackup(keep_ / "M00125_260615_1030.mdb", books, "260616_1030");
  EXPECT_TRUE(fs::is_symlink(books));
  EXPECT_EQ(fs::status(real).permissions(), kShared);
  EXPECT_EQ(names(disk), "books.mdb ");
}

TEST_F(Backups, ARestoreThatIsKilledLeavesTheOldBooksOrTheNew) {
  host_.choose("mnubackup");
  bill(2, *parseDate("2026-06-15"));
  session() = Session{};
  const fs::path books = folder_ / "M00125.mdb";
  const auto found = seenAfterKills(
      folder_.path(), [&] { restoreBackup(keep_ / "M00125_260615_1030.mdb", books, "260616_1030"); },
      [&] {
        TestHost host(known());
        startUp(host, folder_.path());
        EXPECT_FALSE(fs::exists(books.string() + ".new"));
        session() = Session{};
        return std::to_string(factsOf(books).bills);
      });
  if (found.empty()) GTEST_SKIP() << "processes may not be watched here";
  EXPECT_EQ(found.size(), 2u);
  EXPECT_TRUE(found.contains("1") && found.contains("2"));
}

TEST_F(Backups, AFailureIsToldAndNothingIsLost) {
  host_.choose("mnubackup");
  bill(2, *parseDate("2026-06-15"));
  const auto kept = names(keep_), mine = names(folder_.path());
  const auto restoreFails = [&](const std::string& words) {
    host_.messages.clear();
    restore("M00125_260615_1030.mdb", true);
    ASSERT_FALSE(host_.messages.empty());
    EXPECT_EQ(host_.messages[0].text.substr(0, 18), "Restore Not Done\r\n");
    EXPECT_NE(host_.messages[0].text.find(words), std::string::npos) << host_.messages[0].text;
  };
  {
    const FullDisk full;
    EXPECT_NE(folderRefusal(keep_, 0), "");
    host_.choose("mnubackup");
    EXPECT_EQ(host_.lastMessage().substr(0, 17), "Backup Not Done\r\n");
    restoreFails("cannot be read or written: the disk reports an error");
  }
  {
    Database other;
    other.open(folder_ / "M00125.mdb");
    restoreFails("M00125.mdb is in use by another program.");
    EXPECT_EQ(other.number("SELECT COUNT(*) FROM SALE"), 2);
  }
  EXPECT_EQ(host_.onTop(), "frmmain");
  EXPECT_FALSE(host_.quitting());
  EXPECT_EQ(names(keep_), kept);
  EXPECT_EQ(names(folder_.path()), mine);
  EXPECT_EQ(bills(), 2);

  EXPECT_EQ(folderRefusal(keep_, 0), "");
  EXPECT_NE(folderRefusal(keep_, UINTMAX_MAX).find(" Has Room For "), std::string::npos);

  session().mbackuppath = (folder_ / "FILE").string();
  std::ofstream(folder_ / "FILE") << "x";
  host_.choose("mnubackup");
  EXPECT_EQ(host_.lastMessage(),
            "Backup Not Done\r\n" + (folder_ / "FILE").string() + " is a file and no folder.");
}

TEST_F(Backups, AFullDiskKeepsTheSettingsTypedOnTheScreen) {
  host_.open("frmsettings", {});
  host_.rowTo(host_.at("lst"), 4);
  host_.enter();
  const std::string typed = host_.at("lst").grid.cell(4, 2).text;
  const auto settings = [] {
    return data().text("SELECT GROUP_CONCAT(VOUCH_NO || '=' || VOUCH_QTY) FROM SPSFILE");
  };
  const std::string before = settings();
  {
    const FullDisk full;
    host_.press("cmdkeep");
  }
  EXPECT_NE(host_.lastMessage().find("the disk reports an error"), std::string::npos) << host_.lastMessage();
  EXPECT_EQ(settings(), before);
  EXPECT_EQ(host_.at("lst").grid.cell(4, 2).text, typed);
  EXPECT_TRUE(host_.at("cmdkeep").enabled);
  host_.press("cmdkeep");
  EXPECT_NE(settings(), before);
}

TEST_F(Backups, OneFolderThatFailsCostsNothingInTheOther) {
  const fs::path stick = folder_ / "stick";
  storeSetting(data(), kBackupsKept, 2);
  data().exec("INSERT INTO SPSFILE (VOUCH_NO, VOUCH_CD, VOUCH_NM) VALUES (9002, 'SECOND', ?)",
              stick.string());
  host_.choose("mnubackup");
  ASSERT_EQ(host_.messages.size(), 2u);
  EXPECT_EQ(host_.messages[0].text, "Second Backup Not Done\r\n" + stick.string() +
                                        " Is Not There :: Is Its Disk Plugged In ?\r\nThe First Stands In " +
                                        keep_.string());
  EXPECT_EQ(host_.lastMessage(), "Backup Done\r\n" + (keep_ / "M00125_260615_1030.mdb").string());
  EXPECT_FALSE(fs::exists(stick)) << "the copy would lie beside the disk";

  fs::create_directory(stick);
  std::ofstream(folder_ / "FILE") << "x";
  session().mbackuppath = (folder_ / "FILE").string();
  host_.choose("mnubackup");
  EXPECT_EQ(host_.lastMessage(), "Backup Done\r\n" + (stick / "M00125_260615_1030.mdb").string());
  for (const fs::path& place : {keep_, stick})
    for (int day = 1; day <= 3; ++day)
      std::ofstream(place / ("M00125_26060" + std::to_string(day) + "_1830_exit.mdb")) << "x";
  session().mbackuppath = keep_.string();
  session().mbackupflag = true;
  host_.answers = {true};
  host_.choose("mnuexit");
  for (const fs::path& place : {keep_, stick})
    EXPECT_EQ(backupsOf(place, "M00125"),
              (std::vector<std::string>{"M00125_260603_1830_exit.mdb", "M00125_260615_1030.mdb",
                                        "M00125_260615_1030_exit.mdb"}))
        << place;
}

TEST_F(Backups, OfTheExitAreSilentAndTheLastTenStay) {
  session().mbackupflag = true;
  fs::create_directory(keep_);
  const auto add = [&](const std::string& name) { std::ofstream(keep_ / (name + ".mdb")) << "x"; };
  for (int day = 1; day <= 10; ++day) add("M00125_2605" + std::to_string(10 + day) + "_1830_exit");
  for (const char* name : {"M00125_260511_1830_exit_comp", "M00125_260401_1030", "M00124_260401_1030_exit"})
    add(name);
  host_.clock.date = Date{std::chrono::year{2025}, std::chrono::June, std::chrono::day{15}};  // set wrong
  host_.answers = {false, true};
  host_.choose("mnuexit");
  EXPECT_EQ(backupsOf(keep_, "M00125").size(), 11u) << "none for a No";
  host_.choose("mnuexit");
  EXPECT_TRUE(host_.quitting());
  EXPECT_TRUE(host_.messages.empty());
  const auto left = backupsOf(keep_, "M00125");
  ASSERT_EQ(left.size(), 11u);
  EXPECT_EQ(left[0] + " " + left[1] + " " + left[2],
            "M00125_250615_1030_exit.mdb M00125_260401_1030.mdb M00125_260512_1830_exit.mdb")
      << "only those of the exit go";
  EXPECT_FALSE(fs::exists(keep_ / "M00125_260511_1830_exit_comp.mdb"));
  EXPECT_EQ(backupsOf(keep_, "M00124").size(), 1u);
}

}  // namespace
