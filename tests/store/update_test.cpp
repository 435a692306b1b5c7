#include "store/update.h"

#include <map>
#include <set>

#include "company_fixture.h"
#include "frame/full_disk.h"
#include "frame/killed.h"
#include "store/alter.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/keys.h"
#include "store/views.h"

namespace {

const UpdateFacts kFacts{
    .companyCode = "M001",
    .companyName = "O'BRIEN & SONS",
    .fromYear = "2024",
    .toYear = "2025",
    .mobile = "9090909090",
    .dataname = "M00124",
    .repair = {.periodStart = *parseDate("2024-04-01"), .timeOfDay = "10:30"},
};

// Tables as an earlier program may have left them: every seventh column missing, every third text
// at half its length, and columns that nobody knows any more; one table is missing.
std::vector<Column> oldColumns(const std::string& table) {
  std::vector<Column> columns;
  int n = 0;
  for (Column column : dictionaryColumns(table)) {
    if (++n > 5 && n % 7 == 0) continue;
    if (n % 3 == 0 && column.kind == Column::Kind::text && column.size >= 100) {
      const std::string half = std::to_string(column.size / 2);
      column.definition =
          "TEXT(" + half + ") COLLATE NOCASE CHECK (LENGTH(" + column.name + ") <= " + half + ")";
    }
    columns.push_back(column);
  }
  for (const char* unknown : {"OLD_MARK", "DESC", "old note"})
    columns.push_back({.name = unknown, .definition = "TEXT(20)"});
  return columns;
}

constexpr const char* kOldRows[] = {
    "ACCOUNT (ACC_CD, ACC_NAME, OLD_MARK, [DESC]) VALUES ('A00001', 'SHREE O''BRIEN', 'x', 'kept')",
    "ITEM (ITEM_CD, ITEM_NAME) VALUES ('I0000001', 'PIPE'), ('', 'WITHOUT CODE')",
    "ITEMDTL (ITEM_CD, SIZE_CD) VALUES ('I0000001', 'PCS'), ('I0000001', 'BOX')",
    "SALE (VOUCH_NO, BOOK_CD, VOUCH_DT, BILL_NO, NET_AMT) VALUES (1, 'SA', '2024-05-10', '0001', 118)",
    "SALE (VOUCH_NO, BOOK_CD, VOUCH_DT) VALUES (2, 'S', '2024-05-10'), (NULL, 'SA', '2024-05-10')",
    "SALEITM (VOUCH_NO, BOOK_CD, SR_NO, VOUCH_DT, ITEM_CD) VALUES (1, 'SA', 1, '2024-05-10', 'I0000001'),"
    " (1, 'SA', 2, '2024-05-10', NULL)",
    "CHLN (VOUCH_NO, BOOK_CD, VOUCH_DT) VALUES (1, 'CH', '2024-05-10'), (2, 'CH', 'no day')",
    "PRTYRATE (RT_DT, ITEM_CD, SIZE_CD, ACC_CD) VALUES ('2024-05-10', 'I0000001', 'PCS', 'A00001'),"
    " ('2024-05-10', 'I0000001', 'PCS', 'A00001')",
    "SPSFILE (VOUCH_NO, VOUCH_CD) VALUES (900, 'TWICE'), (900, 'TWICE')",
    "SPSFILE (VOUCH_NO, VOUCH_QTY) VALUES (371, 4)",
};

void makeOldYear(const std::filesystem::path& file) {
  Database db;
  db.open(file, Access::create);
  Transaction all(db);
  std::set<std::string> tables;
  for (const auto& row : dictionaryRows()) tables.insert(row.table);
  tables.erase("TRANSMAST");
  for (const auto& table : tables) db.engine().createTable(table, oldColumns(table));
  db.exec("CREATE TABLE URIGHTS (username TEXT)");
  db.exec("CREATE VIEW BY_HAND AS SELECT VOUCH_NO FROM SALE");
  db.exec("CREATE VIEW blprn AS SELECT OLD_MARK FROM SALE");
  for (const char* row : kOldRows) db.exec(std::string("INSERT INTO main.") + row);
  all.commit();
}

class UpdateTest : public CompanyTest {
 protected:
  UpdateTest() {
    makeOldYear(file);
    old.open(file);
  }

  // Tables with their columns, views and indexes, apart from the order in which they were made.
  static std::map<std::string, std::set<std::string>> shape(Database& database) {
    std::map<std::string, std::set<std::string>> all;
    for (const auto& row : database.all("SELECT type, name, sql FROM main.sqlite_master")) {
      auto& parts = all[row.text(0) + " " + upper(row.text(1))];
      if (row.text(0) == "table")
        for (const Column& c : tableColumns(database, row.text(1)))
          parts.insert(upper(c.name) + " " + c.definition);
      else
        parts.insert(row.text(2));
    }
    return all;
  }

  std::filesystem::path file = folder / "M00224.mdb";
  Database old;
};

TEST_F(UpdateTest, AnOldYearTakesTheShapeOfANewOne) {
  UpdateFacts facts = kFacts;
  facts.oneUnit = true;
  EXPECT_EQ(updateDatabase(old, facts), std::vector<std::string>{}) << "PIPE has two units: no key, no alarm";
  auto expected = shape(db), found = shape(old);
  for (auto& [name, parts] : expected) {
    auto& ours = found[name];
    // What nobody may drop stays beside the declared columns.
    for (const char* kept : {"DESC TEXT(20)", "OLD NOTE TEXT(20)"}) ours.erase(kept);
    EXPECT_EQ(ours, parts) << name;
  }
  EXPECT_EQ(found.size(), expected.size());
  EXPECT_EQ(old.text("SELECT [DESC] FROM ACCOUNT"), "kept");
  EXPECT_EQ(old.text("PRAGMA integrity_check"), "ok");
}

TEST_F(UpdateTest, RowsAreMended) {
  updateDatabase(old, kFacts);
  // clang-format off
  const struct { const char *statement, *result; } cases[] = {
      {"SELECT GROUP_CD || '|' || PERSON_NM || '|' || ANOTHER_CD || '|' || PHONE1 || '|' || OP_BAL FROM ACCOUNT", "0.0|.|S001|0|0.0"},
      {"SELECT GROUP_CONCAT(ITEM_CD || UOM || DEPT_CD) FROM ITEM", "I0000001.E001"},
      {"SELECT GROUP_CONCAT(VOUCH_NO || BOOK_CD || BILL_NO || PARTY_CD) FROM SALE", "1.0SA0001A00001"},
      {"SELECT GR_DATE || ' ' || ORDER_DT || ' ' || VOUCH_TIME || ' ' || PLA_NO || ' ' || PRV_BNO FROM SALE", "2024-05-10 10/May/2024 10:30 . 0"},
      {"SELECT GROUP_CONCAT(SR_NO || CHLN_DT || DISC3 || YOUR_REF) FROM SALEITM", "1.02024-05-100.0."},
      {"SELECT GROUP_CONCAT(VOUCH_NO || PARTY_CD || GR_DATE) FROM CHLN", "1.0X900052024-04-01"},
      {"SELECT COUNT(*) FROM PRTYRATE", "0"},
      {"SELECT GROUP_CONCAT(VOUCH_NO || VOUCH_NM || VOUCH_QTY || VOUCH_DT) FROM SPSFILE", "371.4.02024-04-01"},
      {"SELECT COMP_ID || COMP_NAME || FROMYR || TOYR || MOBNOCO || DATANM || DATASENT FROM COMPNY", "M001O'BRIEN & SONS202420259090909090M00124N"},
      {"SELECT GROUP_CONCAT(SRNO) FROM HIDELINESET", "1.0,2.0,3.0,4.0,5.0,6.0,7.0,8.0,9.0"},
  };
  // clang-format on
  for (const auto& c : cases) EXPECT_EQ(old.text(c.statement), c.result) << c.statement;
}

TEST_F(UpdateTest, NothingIsDroppedOnADictionaryThatCouldNotBeWritten) {
  db.exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, NET_AMT) VALUES (1, 'SA', 118)");
  db.exec("DELETE FROM STRUCTAB");
  db.exec("CREATE UNIQUE INDEX main.ONE ON STRUCTAB (TABNM)");
  const std::string before = contents(db);
  EXPECT_THROW(updateDatabase(db, kFacts), std::runtime_error);
  EXPECT_EQ(contents(db), before);
  db.exec("DROP INDEX main.ONE");
  updateDatabase(db, kFacts);
  EXPECT_EQ(db.number("SELECT NET_AMT FROM SALE"), 118);
}

TEST_F(UpdateTest, AWalkThatLosesRowsAndANewerDatabaseAreLeftAsTheyWere) {
  EXPECT_EQ(shapeVersion(file), 0);
  updateDatabase(old, kFacts);
  EXPECT_EQ(shapeVersion(file), kShapeVersion);
  old.exec("CREATE TRIGGER main.EATS AFTER DELETE ON DROPLIST BEGIN DELETE FROM SALE; END");
  old.exec("INSERT INTO DROPLIST (TABNM, FLDNM) VALUES ('SALE', 'NET_AMT')");
  std::string before = contents(old);
  EXPECT_THROW(updateDatabase(old, kFacts), std::runtime_error);
  EXPECT_EQ(contents(old), before);

  old.exec("DROP TRIGGER main.EATS");
  old.exec("PRAGMA main.user_version = " + std::to_string(kShapeVersion + 1));
  before = contents(old);
  EXPECT_THROW(updateDatabase(old, kFacts), std::runtime_error);
  EXPECT_EQ(contents(old), before);
}

TEST_F(UpdateTest, KilledAtAnyMomentTheYearIsAsItWasOrAllUpdated) {
  const auto seen = [&] {
    old.open(file);
    EXPECT_EQ(old.text("PRAGMA integrity_check"), "ok");
    const std::string all = contents(old);
    old.close();
    return all;
  };
  db.close();
  const std::string before = seen();
  const auto found = seenAfterKills(
      folder.path(),
      [&] {
        Database own;
        own.open(file);
        updateDatabase(own, kFacts);
      },
      seen);
  if (found.empty()) GTEST_SKIP() << "processes may not be watched here";
  EXPECT_EQ(found.size(), 2u) << "before and after, and nothing between";
  EXPECT_TRUE(found.contains(before));
  EXPECT_NE(seen(), before) << "the last one was not killed";
}

TEST_F(UpdateTest, AFullDiskLeavesTheOldYear) {
  const std::string before = contents(old);
  {
    const FullDisk full;
    EXPECT_THROW(updateDatabase(old, kFacts), DatabaseError);
  }
  EXPECT_EQ(contents(old), before);
  EXPECT_TRUE(updateDatabase(old, kFacts).empty());
}

}  // namespace
