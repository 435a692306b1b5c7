#include "store/backup.h"

#include <fstream>

#include "company_fixture.h"
#include "failure.h"

namespace {

using Kind = DatabaseError::Kind;

class BackupTest : public CompanyTest {
 protected:
  const std::filesystem::path file = folder / "copy.mdb";
  Database copy;
};

TEST_F(BackupTest, ACopyHoldsWhatIsStoredRowByRow) {
  // Rows without a whole key, their numbers with gaps, as they are read in the order of entry.
  db.exec("INSERT INTO ALEDGER (rowid, VOUCH_NO, PARTY_CD) VALUES (5, 1, 'A'), (90, 2, 'B'), (7, 3, 'C')");
  db.exec("DELETE FROM ALEDGER WHERE rowid = 7");
  Database reader;
  reader.open(db.file());
  auto reading = reader.query("SELECT * FROM GRP");
  reading.next();
  backUpDatabase(db, file);
  copy.open(file);
  EXPECT_EQ(contents(copy), contents(db));
  EXPECT_EQ(copy.text("SELECT GROUP_CONCAT(rowid || PARTY_CD) FROM ALEDGER"), "5A,90B");
}

// Another program that is in the middle of a save has to wait, or the copy has.
TEST_F(BackupTest, ASaveUnderWayIsNoPartOfIt) {
  Database other;
  other.open(db.file());
  Transaction save(other);
  other.exec("DELETE FROM GRP");
  backUpDatabase(db, file);
  save.commit();
  copy.open(file);
  EXPECT_EQ(copy.number("SELECT COUNT(*) FROM GRP"), 39);
}

TEST_F(BackupTest, AFailureLeavesTheOldCopyAndNothingElse) {
  backUpDatabase(db, file);
  db.exec("DELETE FROM GRP");
  db.exec("CREATE TABLE BIG (A)");
  db.exec("INSERT INTO BIG VALUES (?)", std::string(100'000, 'x'));
  const auto source = db.file();
  const auto before = names();

  const Failure astray = failureOf([&] { backUpDatabase(db, folder / "gone" / "copy.mdb"); });
  EXPECT_EQ(astray.kind, Kind::cannotOpen);
  EXPECT_EQ(astray.sentence, "copy.mdb cannot be opened or written. Check the rights of its folder.");
  EXPECT_FALSE(db.inTransaction());

  // The long text's pages alone: all that a copy reads without a check.
  const auto size = std::filesystem::file_size(source);
  db.close();
  {
    std::fstream bytes(source, std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(static_cast<std::streamoff>(size) - 40'000);
    bytes << std::string(40'000, '\xFF');
  }
  db.open(source);
  const Failure broken = failureOf([&] { backUpDatabase(db, file); });
  EXPECT_EQ(broken.kind, Kind::damaged);
  EXPECT_EQ(broken.sentence, "M00124.mdb is damaged. Restore it from a backup.");
  EXPECT_EQ(names(), before);
  copy.open(file);
  EXPECT_EQ(copy.number("SELECT COUNT(*) FROM GRP"), 39);
}

}  // namespace
