#include "store/database.h"

#include <fstream>

#include "base/end_asked.h"
#include "failure.h"
#include "store/lock_file.h"
#include "store/lock_wait.h"
#include "support/temp_folder.h"

namespace {

class DatabaseTest : public testing::Test {
 protected:
  DatabaseTest() {
    lockWaitMs() = 50;
    db.open(folder / "M00124.mdb", Access::create);
  }

  TempFolder folder;
  Database db;
};

using Kind = DatabaseError::Kind;
using namespace std::chrono_literals;

}  // namespace

TEST_F(DatabaseTest, HostileValuesComeBackAsTheyWere) {
  db.exec("CREATE TABLE t(v TEXT COLLATE NOCASE)");
  for (const char* text : {"O'Brien & Sons", "50% off_", "ગુજરાત ટ્રેડર્સ", "'); DROP TABLE t; --", "\"quoted\"",
                           "line\nline", ""}) {
    db.exec("DELETE FROM t");
    EXPECT_EQ(db.exec("INSERT INTO t VALUES (?)", text), 1);
    EXPECT_EQ(db.text("SELECT v FROM t WHERE v = ?", text), text);
    EXPECT_FALSE(db.first("SELECT v FROM t")->isNull("V")) << "an empty text is no null";
  }
}

TEST_F(DatabaseTest, WholeNumbersStandInTextColumnsWithoutAPoint) {
  db.exec("CREATE TABLE t(a TEXT, b DOUBLE, c DATE)");
  db.exec("INSERT INTO t VALUES (?, ?, ?)", 30.0, 30, Date(2026y / 6 / 15));
  const auto row = db.first("SELECT a, b, b / 4 AS q, c FROM t");
  EXPECT_EQ(row->text("a"), "30");
  EXPECT_EQ(row->text("b"), "30");
  EXPECT_EQ(row->number("q"), 7.5) << "a DOUBLE column divides as a double";
  EXPECT_EQ(row->text("c"), "2026-06-15");
  EXPECT_EQ(row->date("c"), Date(2026y / 6 / 15));
}

TEST_F(DatabaseTest, AStatementKnowsAColumnAddedAfterItsFirstUse) {
  db.exec("CREATE TABLE t(a DOUBLE)");
  db.exec("INSERT INTO t VALUES (1)");
  EXPECT_EQ(db.first("SELECT * FROM t")->count(), 1);
  db.exec("ALTER TABLE t ADD COLUMN b DOUBLE DEFAULT 0");
  EXPECT_EQ(db.first("SELECT * FROM t")->count(), 2);
  EXPECT_EQ(db.columns("T").size(), 2u);
}

// A server takes back what another transaction came before; whatever is done within waits for the whole.
TEST_F(DatabaseTest, AWholeIsDoneOnceMoreOrNotAtAll) {
  db.exec("CREATE TABLE t(v DOUBLE)");
  int tries = 0;
  const auto storeUntil = [&](int last) {
    return whole(db, [&] {
      db.exec("INSERT INTO t VALUES (?)", ++tries);
      whole(db, [&] {
        if (tries < last) throw DatabaseError(Kind::again, "M00124.mdb", {});
      });
      return tries < 9;
    });
  };
  EXPECT_TRUE(storeUntil(3));
  EXPECT_EQ(db.text("SELECT v FROM t"), "3") << "and nothing of the tries before";
  tries = 0;
  EXPECT_EQ(failureOf([&] { storeUntil(9); }).kind, Kind::again);
  EXPECT_EQ(tries, 4);
  tries = 8;
  EXPECT_FALSE(storeUntil(0));
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM t"), 1);
}

TEST_F(DatabaseTest, DoubleQuotesNameColumnsOnly) {
  db.exec("CREATE TABLE t([SALE.VOUCH_NO] DOUBLE)");
  db.exec("INSERT INTO t VALUES (7)");
  EXPECT_EQ(db.number("SELECT [SALE.VOUCH_NO] FROM t"), 7);
  EXPECT_THROW(db.query("SELECT \"no such\" FROM t"), StatementError);
}

// A file that lacks what this program declares is old; anything else that a statement names wrongly is a
// mistake, and nothing passes it over.
TEST_F(DatabaseTest, OurOwnMistakesAreNeverPassedOver) {
  constexpr Because why{"a test"};
  for (const char* mistake :
       {"SELEC 1", "DELETE FROM missing", "UPDATE SALE SET NET_AMOUNTS = 1", "SELECT ?"})
    EXPECT_THROW(db.passOver(why, mistake), StatementError) << mistake;
  EXPECT_THROW(db.passOver(why, "SELECT ?", 1, 2), StatementError);
  EXPECT_THROW(db.passOver(why, [&] { db.first("SELECT 1 AS A")->text("B"); }), StatementError);
  EXPECT_THROW(Database().passOver(why, "SELECT 1"), StatementError);
  for (const char* older : {"UPDATE SALE SET NET_AMT = 1", "SELECT USER_NAME FROM USER1", "DELETE FROM PURCH",
                            "SELECT SR_NO FROM T_SLITM", "INSERT INTO T_ACLST (TOT_DR) VALUES (0)"})
    EXPECT_EQ(failureOf([&] { db.exec(older); }).kind, Kind::shape) << older;
}

TEST_F(DatabaseTest, WhatIsPassedOverStandsInTheLogWithoutValues) {
  const auto logged = [&] {
    std::ifstream in(logFile(folder.path()));
    return std::string(std::istreambuf_iterator<char>(in), {});
  };
  keepLog(folder.path());
  db.exec("CREATE TABLE t(a TEXT(3) CHECK (LENGTH(a) <= 3))");
  EXPECT_FALSE(std::filesystem::exists(logFile(folder.path()))) << "nothing has failed yet";
  {
    const LogScreen screen("GSTSAPU");
    db.passOver({"it may be long"}, "INSERT INTO t (a)\nVALUES (?)", "a secret");
  }
  EXPECT_NE(logged().find("GSTSAPU | passed over: it may be long | CHECK constraint failed: LENGTH(a) <= 3"
                          " | INSERT INTO t (a) VALUES (?)\n"),
            std::string::npos)
      << logged();
  EXPECT_EQ(logged().find("secret"), std::string::npos);
  for (int i = 0; i < 20'000; ++i) logFailure(kTold, std::string(100, 'x'));
  std::uintmax_t bytes = 0;
  for (const char* file : {"mirav.log", "mirav.1.log"}) bytes += std::filesystem::file_size(folder / file);
  EXPECT_LE(bytes, 1024u * 1024u);
  EXPECT_GT(bytes, 512u * 1024u);
  // Without a folder, or in one that cannot be written, the program goes on.
  keepLog(folder / "none" / "mirav.log");
  std::ofstream(folder / "none") << "a file";
  logFailure(kTold, "nowhere");
  keepLog({});
}

TEST_F(DatabaseTest, AttemptPassesOverFailuresOfTheStatementAlone) {
  db.exec("CREATE TABLE t(a TEXT(3) CHECK (LENGTH(a) <= 3), b)");
  EXPECT_TRUE(db.attempt({"a test"}, "INSERT INTO t (a) VALUES (?)", "ગુજ"));
  const auto tooLong = db.attempt({"a test"}, "INSERT INTO t (a) VALUES (?)", "four");
  EXPECT_FALSE(tooLong);
  EXPECT_NE(tooLong.error.find("CHECK"), std::string::npos);
  EXPECT_EQ(db.attempt({"a test"}, "UPDATE t SET a = 'x'").changed, 1);
  {
    Database other;
    other.open(db.file());
    const Transaction held(other);
    const Failure locked = failureOf([&] { db.passOver({"a test"}, "DELETE FROM t"); });
    EXPECT_EQ(locked.kind, Kind::locked);
    EXPECT_NE(locked.sentence.find("M00124.mdb is in use"), std::string::npos);
  }
  db.text("PRAGMA max_page_count = 3");
  const std::string big(100'000, 'x');
  EXPECT_EQ(failureOf([&] { db.passOver({"a test"}, "INSERT INTO t (b) VALUES (?)", big); }).kind,
            Kind::full);
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM t"), 1);
}

TEST_F(DatabaseTest, TransactionsNestAndRollBackByThemselves) {
  db.exec("CREATE TABLE t(a)");
  {
    Transaction outer(db);
    db.exec("INSERT INTO t VALUES ('outer')");
    {
      const Transaction dropped(db);
      db.exec("INSERT INTO t VALUES ('dropped')");
    }
    {
      Transaction kept(db);
      db.exec("INSERT INTO t VALUES ('kept')");
      kept.commit();
    }
    outer.commit();
  }
  {
    const Transaction all(db);
    Transaction inner(db);
    db.exec("DELETE FROM t");
    inner.commit();
  }
  EXPECT_EQ(db.text("SELECT GROUP_CONCAT(a) FROM t"), "outer,kept");
  const auto columns = [&] { return db.first("SELECT * FROM t")->count(); };
  {
    const Transaction wider(db);
    db.exec("ALTER TABLE t ADD COLUMN b");
    EXPECT_EQ(columns(), 2);
  }
  EXPECT_EQ(columns(), 1);
}

TEST_F(DatabaseTest, OpeningTellsWhatIsWrongWithTheFile) {
  Database other;
  const Failure missing = failureOf([&] { other.open(folder / "M00225.mdb"); });
  EXPECT_EQ(missing.kind, Kind::missing);
  EXPECT_EQ(missing.sentence, "M00225.mdb was not found.");
  EXPECT_FALSE(std::filesystem::exists(folder / "M00225.mdb"));

  std::ofstream(folder / "letter.mdb") << "Dear Sir, this is a letter and was never a database of any kind.";
  EXPECT_EQ(failureOf([&] { other.open(folder / "letter.mdb"); }).kind, Kind::notDatabase);
  EXPECT_FALSE(other.isOpen());
  EXPECT_FALSE(std::filesystem::exists(folder / "LETTER.LDB"));

  db.exec("CREATE TABLE t(a)");
  other.open(db.file(), Access::readOnly);
  EXPECT_EQ(failureOf([&] { other.passOver({"a test"}, "DELETE FROM t"); }).kind, Kind::readOnly);
}

TEST_F(DatabaseTest, ADamagedFileIsReportedAndNotPassedOver) {
  db.exec("CREATE TABLE t(a)");
  for (int i = 0; i < 500; ++i) db.exec("INSERT INTO t VALUES (?)", std::string(100, 'x'));
  const auto file = db.file();
  const auto secondPage = static_cast<std::streamoff>(db.number("PRAGMA page_size"));
  db.close();
  {
    std::fstream bytes(file, std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(secondPage);
    bytes << std::string(20'000, '\xFF');
  }
  db.open(file);
  EXPECT_EQ(failureOf([&] { db.passOver({"a test"}, "SELECT SUM(LENGTH(a)) FROM t"); }).kind, Kind::damaged);
  db.close();
  {
    std::fstream bytes(file, std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(44);  // the number of the schema's format
    bytes << std::string(4, 9);
  }
  EXPECT_EQ(failureOf([&] { db.open(file); }).kind, Kind::damaged);
}

TEST_F(DatabaseTest, WhatWouldRunOnOurWritesIsRefusedByItsName) {
  const struct {
    const char *made, *found;  // none where it may stay
  } cases[] = {
      {"CREATE TRIGGER EATS AFTER INSERT ON t BEGIN DELETE FROM t; END",  "TRIGGER EATS"},
      {"CREATE VIEW sale AS SELECT a AS VOUCH_NO FROM t",                 "VIEW sale"   },
      {"CREATE TABLE u(a, b AS (a || 'x') STORED)",                       "COLUMN u.b"  },
      {"CREATE TABLE u(a DEFAULT (LOAD_EXTENSION('x')))",                 "TABLE u"     },
      {"CREATE VIRTUAL TABLE words USING fts5(a)",                        "TABLE words" },
      {"CREATE VIEW blprn AS SELECT FORMAT(a, '0.00') AS A FROM t",       nullptr       },
      {"CREATE VIEW theirs AS SELECT 1 AS A",                             nullptr       },
      {"CREATE TABLE u(a TEXT(6) CHECK (LENGTH(a) <= 6 AND LEN(a) < 7))", nullptr       },
  };
  db.close();
  for (const auto& c : cases) {
    std::filesystem::remove(db.file());
    db.open(db.file(), Access::create);
    db.text("PRAGMA trusted_schema = ON");
    db.exec("CREATE TABLE t(a)");
    db.exec(c.made);
    db.close();
    Database again;
    if (!c.found) {
      again.open(db.file());
      continue;
    }
    const Failure failure = failureOf([&] { again.open(db.file()); });
    EXPECT_EQ(failure.kind, Kind::stranger) << c.made;
    EXPECT_EQ(failure.sentence.substr(0, 43 + std::string(c.found).size() + 2),
              "M00124.mdb Was Not Opened :: It Holds " + std::string(c.found) + "\r\nNo Bo")
        << c.made;
  }
}

TEST_F(DatabaseTest, AStatementThatNeverEndsIsStoppedAndTakenBack) {
  db.exec("CREATE TABLE t(a)");
  db.exec("INSERT INTO t VALUES ('before')");
  int asked = 0;
  endAsked() = [&] { return ++asked == 3; };
  const Failure stopped = failureOf([&] {
    const Transaction all(db);
    db.exec("DELETE FROM t");
    db.passOver({"a test"},
                "INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)"
                " SELECT i FROM n WHERE i < 0");
  });
  endAsked() = {};
  EXPECT_EQ(stopped.kind, Kind::stopped);
  EXPECT_EQ(stopped.sentence, "Stopped As You Asked :: Nothing Was Stored");
  EXPECT_EQ(db.text("SELECT a FROM t"), "before");
}

TEST_F(DatabaseTest, LockFileTellsTheFirstUser) {
  const auto lock = folder / "M00124.LDB";
  EXPECT_TRUE(db.firstUser());
  EXPECT_TRUE(std::filesystem::exists(lock));

  Database second;
  second.open(db.file());
  EXPECT_FALSE(second.firstUser());
  db.close();
  EXPECT_TRUE(std::filesystem::exists(lock)) << "somebody still works in it";
  db.open(second.file());
  EXPECT_FALSE(db.firstUser());
  second.close();
  db.close();
  EXPECT_FALSE(std::filesystem::exists(lock));

  std::ofstream{lock} << "left by a crash";
  db.open(folder / "M00124.mdb");
  EXPECT_TRUE(db.firstUser());
  EXPECT_EQ(LockFile::pathFor("/x/comp.mdb"), "/x/COMP.LDB");

  // Where none can be made nobody knows who else is there.
  EXPECT_FALSE(LockFile("/nowhere/comp.mdb").alone());
  EXPECT_THROW(LockFile("/nowhere/comp.mdb", LockFile::Hold::Alone), DatabaseError);
}

TEST_F(DatabaseTest, Functions) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"SHOWN(2.675, '0.00')",                       "2.68"    },
      {"SHOWN('LR 7', '0.00')",                      "LR 7"    },
      {"SHOWN(NULL, '0.00')",                        ""        },
      {"FORMAT('2026-04-05', 'dd/MM/yy')",           "05/04/26"},
      {"FORMAT('09:05', 'HH:MM')",                   "09:05"   },
      {"FORMAT('%d-%s', 7, 'x')",                    "7-x"     },
      {"VAL('12.5 kg')",                             "12.5"    },
      {"'[' || STR(30.0) || ']'",                    "[ 30]"   },
      {"TRIM(STR(1180.0))",                          "1180"    },
      {"LEN('ગુજ')",                           "3"       },
      {"LEN(NULL) IS NULL",                          "1"       },
      {"DATEDIFF('D', '2026-06-01', '15/Jun/2026')", "14"      },
      {"DATEDIFF('D', NULL, '2026-06-01') IS NULL",  "1"       },
      {"DATEDIFF('m', '2026-01-31', '2027-02-01')",  "13"      },
      {"ISDATE('15/06/2026')",                       "1"       },
      {"ISDATE('.')",                                "0"       },
      {"NUMTEXT(30.0)",                              "30"      },
      {"NUMTEXT('030')",                             "030"     },
      {"NUMTEXT(NULL) IS NULL",                      "1"       },
  };
  for (const auto& [expression, text] : cases) EXPECT_EQ(db.text("SELECT " + expression), text) << expression;
}
