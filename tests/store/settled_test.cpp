#include "store/settled.h"

#include <fstream>

#include "company_fixture.h"
#include "frame/killed.h"
#include "store/backup.h"

namespace {

class SettledTest : public CompanyTest {
 protected:
  std::filesystem::path file() const { return db.file(); }
  std::string bytes() const {
    std::ifstream in(folder / "M00124.mdb", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void settle() { Settling(db).done(); }
  bool settledAt(const std::filesystem::path& at) {
    Database other;
    other.open(at);
    return isSettled(other);
  }
  void receipt(Database& into) {
    into.exec("INSERT INTO RPTPAY (VOUCH_NO, BOOK_CD, AMOUNT) VALUES (1, 'RC', 5)");
  }
};

TEST_F(SettledTest, HoldsUntilSomebodyWrites) {
  EXPECT_FALSE(isSettled(db)) << "as delivered";
  settle();
  EXPECT_TRUE(isSettled(db));
  db.close();
  const std::string once = bytes();
  EXPECT_TRUE(settledAt(folder / "M00124.mdb"));
  EXPECT_EQ(bytes(), once) << "asking writes nothing";

  db.open(folder / "M00124.mdb");
  receipt(db);
  db.exec("DELETE FROM RPTPAY");
  EXPECT_FALSE(isSettled(db)) << "even what was taken back";
  settle();
  {
    Transaction undone(db);
    receipt(db);
  }
  EXPECT_TRUE(isSettled(db)) << "what was not stored";
  db.exec("PRAGMA user_version = 7");
  EXPECT_FALSE(isSettled(db));
}

TEST_F(SettledTest, AnothersWritesMakeItStaleAlsoWhileTheWorkIsDone) {
  Database other;
  other.open(file());
  Settling work(db);
  receipt(other);
  work.done();
  EXPECT_FALSE(isSettled(db));
  settle();
  EXPECT_TRUE(isSettled(other));
  receipt(other);
  EXPECT_FALSE(isSettled(db));

  // A journal of another kind raises the counter by its own rules.
  settle();
  db.close();
  other.exec("PRAGMA journal_mode = WAL");
  receipt(other);
  other.close();
  EXPECT_FALSE(settledAt(folder / "M00124.mdb"));
}

TEST_F(SettledTest, ACopyIsWhatItsFileWas) {
  settle();
  std::filesystem::copy_file(file(), folder / "kept.mdb");
  receipt(db);
  std::filesystem::copy_file(file(), folder / "later.mdb");
  db.close();
  EXPECT_TRUE(settledAt(folder / "kept.mdb"));
  EXPECT_FALSE(settledAt(folder / "later.mdb"));
  std::filesystem::copy_file(folder / "kept.mdb", folder / "M00124.mdb",
                             std::filesystem::copy_options::overwrite_existing);
  EXPECT_TRUE(settledAt(folder / "M00124.mdb"));

  // A backup counts its own changes.
  db.open(folder / "later.mdb");
  backUpDatabase(db, folder / "backup.mdb");
  EXPECT_FALSE(settledAt(folder / "backup.mdb"));
}

TEST_F(SettledTest, KilledAtAnyMomentItIsNeverSettledByHalf) {
  settle();
  db.close();
  const auto year = folder / "M00124.mdb", kept = folder / "kept.mdb";
  std::filesystem::copy_file(year, kept);
  const auto work = [&] {
    Database own;
    own.open(year);
    receipt(own);
    Settling(own).done();
  };
  const Killed whole = killedAt(0, work);
  if (!whole.possible) GTEST_SKIP() << "processes may not be watched here";
  for (int n = 1; n <= whole.calls; n += std::max(1, whole.calls / 12)) {
    std::filesystem::copy_file(kept, year, std::filesystem::copy_options::overwrite_existing);
    killedAt(n, work);
    db.open(year);
    const bool stored = db.number("SELECT COUNT(*) FROM RPTPAY") > 0, settled = isSettled(db);
    db.close();
    EXPECT_TRUE(settled || stored) << n;
    if (stored && settled) {
      EXPECT_GE(n, whole.calls / 2) << "the mark comes last";
    }
  }
}

}  // namespace
