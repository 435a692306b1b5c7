#include "store/backup.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "company_fixture.h"

namespace {

using Kind = DatabaseError::Kind;

class BackupTest : public CompanyTest {
 protected:
  BackupTest() {
    // Rows without a whole key, their numbers with gaps, as they are read in the order of entry.
    db.exec("INSERT INTO ALEDGER (rowid, VOUCH_NO, PARTY_CD) VALUES (5, 1, 'A'), (90, 2, 'B'), (7, 3, 'C')");
    db.exec("DELETE FROM ALEDGER WHERE rowid = 7");
  }
  std::set<std::string> names() {
    std::set<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      all.insert(entry.path().filename());
    return all;
  }
  Kind kindOf(const std::function<void()>& work) {
    try {
      work();
    } catch (const DatabaseError& error) {
      sentence = error.what();
      return error.kind();
    }
    return Kind::other;
  }
  std::string sentence;
};

TEST_F(BackupTest, ACopyHoldsWhatIsStoredRowByRow) {
  Database reader;
  reader.open(db.file());
  auto reading = reader.query("SELECT * FROM GRP");
  reading.next();
  backUpDatabase(db, folder / "copy.mdb");
  Database copy;
  copy.open(folder / "copy.mdb");
  EXPECT_EQ(contents(copy), contents(db));
  EXPECT_EQ(copy.text("SELECT GROUP_CONCAT(rowid || PARTY_CD) FROM ALEDGER"), "5A,90B");
  EXPECT_FALSE(db.inTransaction());
}

// Another program that is in the middle of a save has to wait, or the copy has.
TEST_F(BackupTest, ASaveUnderWayIsNoPartOfIt) {
  Database other;
  other.open(db.file());
  Transaction save(other);
  other.exec("DELETE FROM GRP");
  backUpDatabase(db, folder / "copy.mdb");
  save.commit();
  Database copy;
  copy.open(folder / "copy.mdb");
  EXPECT_EQ(copy.number("SELECT COUNT(*) FROM GRP"), 39);
}

TEST_F(BackupTest, AFailureLeavesTheOldCopyAndNothingElse) {
  backUpDatabase(db, folder / "copy.mdb");
  db.exec("DELETE FROM GRP");
  db.exec("CREATE TABLE BIG (A)");
  db.exec("INSERT INTO BIG VALUES (?)", std::string(100'000, 'x'));
  const auto file = db.file();
  const auto before = names();

  EXPECT_EQ(kindOf([&] { backUpDatabase(db, folder / "gone" / "copy.mdb"); }), Kind::cannotOpen);
  EXPECT_EQ(sentence, "copy.mdb cannot be opened or written. Check the rights of its folder.");
  EXPECT_FALSE(db.inTransaction());

  // The long text's pages alone: all that a copy reads without a check.
  const auto size = std::filesystem::file_size(file);
  db.close();
  {
    std::fstream bytes(file, std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(static_cast<std::streamoff>(size) - 40'000);
    bytes << std::string(40'000, '\xFF');
  }
  db.open(file);
  EXPECT_EQ(kindOf([&] { backUpDatabase(db, folder / "copy.mdb"); }), Kind::damaged);
  EXPECT_EQ(sentence, "M00124.mdb is damaged. Restore it from a backup.");
  EXPECT_EQ(names(), before);
  Database copy;
  copy.open(folder / "copy.mdb");
  EXPECT_EQ(copy.number("SELECT COUNT(*) FROM GRP"), 39);
}

}  // namespace
