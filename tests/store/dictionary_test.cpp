#include "store/dictionary.h"

#include "company_fixture.h"
#include "store/alter.h"
#include "store/keys.h"
#include "store/views.h"

namespace {

class DictionaryTest : public CompanyTest {
 protected:
  // The whole walk, as an update runs it.
  void walk() {
    CreateDictionary(db);
    if (!CheckTable(db, "DROPLIST")) CreateDropList(db);
    SeedDictionary(db);
    ApplyDictionary(db);
    DropUndeclared(db);
  }

  std::string definition(const std::string& table, const std::string& column) {
    for (const auto& c : tableColumns(db, table))
      if (sameText(c.name, column)) return c.definition;
    return "none";
  }

  // Gives a column the shape of an older program.
  void shape(const std::string& table, const std::string& column, const std::string& old) {
    alterColumns(db, table,
                 {
                     {.name = column, .definition = old}
    });
    ASSERT_EQ(definition(table, column), old);
  }
};

}  // namespace

TEST(DeclaredColumns, ReadWhatAnotherProgramWrote) {
  const auto columns = declaredColumns(
      "CREATE TABLE \"t\" ([A B] TEXT(6) DEFAULT ',)',\n \"DESC\" double, c CHECK (c IN (1, 2)), UNIQUE (c), "
      "PRIMARY KEY (c))");
  ASSERT_EQ(columns.size(), 3u);
  EXPECT_EQ(columns[0].name, "A B");
  EXPECT_EQ(columns[0].definition, "TEXT(6) DEFAULT ',)'");
  EXPECT_EQ(columns[0].size, 6);
  EXPECT_EQ(columns[1].kind, Column::Kind::number);
  EXPECT_EQ(columns[2].definition, "CHECK (c IN (1, 2))");
  EXPECT_EQ(quotedName("DESC"), "[DESC]");
  EXPECT_EQ(quotedName("SALE.VOUCH_NO"), "[SALE.VOUCH_NO]");
  EXPECT_EQ(quotedName("ACC_CD"), "ACC_CD");
}

TEST_F(DictionaryTest, TextRulesHoldInEveryTable) {
  db.exec(
      "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME) VALUES ('A00001', 'Zenith'), ('A00002', 'alpha'), ('A00003', "
      "'Beta')");
  EXPECT_EQ(db.text("SELECT ACC_CD FROM ACCOUNT WHERE ACC_NAME = 'ZENITH'"), "A00001");
  EXPECT_EQ(db.text("SELECT GROUP_CONCAT(ACC_NAME) FROM (SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD LIKE 'a%' "
                    "ORDER BY ACC_NAME)"),
            "alpha,Beta,Zenith");
  EXPECT_FALSE(db.attempt({"a test"}, "UPDATE ACCOUNT SET ACC_CD = 'A000001' WHERE ACC_CD = 'A00001'"));
  EXPECT_TRUE(db.attempt({"a test"}, "UPDATE ACCOUNT SET ACC_CD = 'ગુજરાત' WHERE ACC_CD = 'A00001'"))
      << "six code points";
  const auto row = db.first("SELECT OP_BAL, ENT_DT, EMAIL FROM ACCOUNT WHERE ACC_CD = 'A00002'");
  EXPECT_EQ(row->text("OP_BAL"), "0");
  EXPECT_TRUE(row->isNull("ENT_DT"));
  EXPECT_TRUE(row->isNull("EMAIL"));
}

TEST_F(DictionaryTest, WalkingOverADeliveredYearChangesNothing) {
  db.exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, VOUCH_DT) VALUES (1, 'SA', '2026-06-15')");
  const auto delivered = contents(db);
  walk();
  EXPECT_EQ(contents(db), delivered);
  Database fresh;
  fresh.open(db.file());
  EXPECT_EQ(fresh.number("SELECT COUNT(*) FROM STRUCTAB"), 649);
}

TEST_F(DictionaryTest, AlteringAColumnKeepsDataOrderKeysIndexesAndViews) {
  shape("ACCOUNT", "ACC_NAME", "TEXT(20)");
  shape("ACCOUNT", "STATECD", "TEXT(5)");
  db.exec(
      "INSERT INTO ACCOUNT (rowid, ACC_CD, ACC_NAME, STATECD) VALUES (90, 'B', 'O''Brien 50%', '24'), (80, "
      "'A', 'ગુજરાત', NULL)");
  const char* const ofIndexes =
      "SELECT GROUP_CONCAT(sql, ';') FROM main.sqlite_master WHERE tbl_name = 'ACCOUNT' AND type = 'index'";
  const auto indexes = db.text(ofIndexes);

  walk();
  EXPECT_EQ(definition("ACCOUNT", "ACC_NAME"), "TEXT(100) COLLATE NOCASE CHECK (LENGTH(ACC_NAME) <= 100)");
  EXPECT_EQ(definition("ACCOUNT", "STATECD"), "DOUBLE DEFAULT 0");
  EXPECT_EQ(db.text("SELECT ACC_NAME FROM ACCOUNT WHERE rowid = 90"), "O'Brien 50%");
  EXPECT_EQ(db.text("SELECT typeof(STATECD) || STATECD FROM ACCOUNT WHERE rowid = 90"), "real24.0");
  EXPECT_TRUE(db.first("SELECT STATECD FROM ACCOUNT WHERE rowid = 80")->isNull(0));
  EXPECT_EQ(db.text(ofIndexes), indexes);
  EXPECT_FALSE(db.attempt({"a test"}, "INSERT INTO ACCOUNT (ACC_CD) VALUES ('a')"))
      << "the key holds, without regard to case";
  EXPECT_TRUE(db.attempt({"a test"}, "SELECT * FROM GSTBLPRN"));
}

TEST_F(DictionaryTest, AColumnWhoseDataDoesNotFitKeepsItsShapeAndTheOthersDoNot) {
  shape("SALE", "BOOK_CD", "TEXT(10)");
  shape("SALE", "PARCLE", "TEXT(10)");
  shape("SALE", "CR_DAYS", "TEXT(10)");
  shape("ITEM", "ITEM_CD", "TEXT(20)");  // compares with regard to case, which its key will not
  shape("ITEM", "UOM", "TEXT(40)");
  db.exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, PARCLE, CR_DAYS) VALUES (1, 'SAL', '5', '30 days')");
  db.exec("INSERT INTO ITEM (ITEM_CD) VALUES ('a1'), ('A1')");
  walk();
  EXPECT_EQ(definition("SALE", "BOOK_CD"), "TEXT(10)");
  EXPECT_EQ(definition("SALE", "CR_DAYS"), "TEXT(10)");
  EXPECT_EQ(definition("SALE", "PARCLE"), "TEXT(50) COLLATE NOCASE CHECK (LENGTH(PARCLE) <= 50)");
  EXPECT_EQ(db.text("SELECT BOOK_CD || CR_DAYS FROM SALE"), "SAL30 days");
  EXPECT_EQ(definition("ITEM", "ITEM_CD"), "TEXT(20)");
  EXPECT_NE(definition("ITEM", "UOM"), "TEXT(40)");
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM ITEM WHERE ITEM_CD LIKE 'a1'"), 2);
  const auto once = contents(db);
  walk();
  EXPECT_EQ(contents(db), once);
}

TEST_F(DictionaryTest, UndeclaredColumnsAndTablesGo) {
  for (const char* column :
       {"OLD_RATE DOUBLE DEFAULT 5", "[DESC] TEXT", "[MY NOTE] TEXT", "INDEXED_COL TEXT"})
    db.exec(std::string("ALTER TABLE ITEM ADD COLUMN ") + column);
  db.exec("CREATE INDEX MINE ON ITEM (INDEXED_COL)");
  for (const char* table : {"USERS_OWN", "[T 2]"}) db.exec(std::string("CREATE TABLE ") + table + " (A)");
  walk();
  EXPECT_EQ(definition("ITEM", "OLD_RATE"), "none");
  EXPECT_EQ(definition("ITEM", "DESC"), "TEXT");
  EXPECT_EQ(definition("ITEM", "MY NOTE"), "TEXT");
  EXPECT_EQ(definition("ITEM", "INDEXED_COL"), "TEXT") << "a column in an index cannot be dropped";
  EXPECT_FALSE(CheckTable(db, "USERS_OWN"));
  EXPECT_FALSE(CheckTable(db, "T 2"));
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM DROPLIST"), 0);
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM ITEM WHERE ITEM_CD = 'MISC'"), 1);
}

TEST_F(DictionaryTest, WorkTablesBelongToTheConnection) {
  Database other;
  other.open(db.file());
  db.exec("INSERT INTO T_SLITM (VOUCH_NO, ITEM_CD) VALUES (1, 'I0000001')");
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM T_SLITM"), 1);
  EXPECT_EQ(other.number("SELECT COUNT(*) FROM T_SLITM"), 0);
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM main.T_SLITM"), 0);
  for (const auto table : workTables())
    EXPECT_EQ(db.text("SELECT sql FROM temp.sqlite_master WHERE name = ?", table),
              db.text("SELECT sql FROM main.sqlite_master WHERE name = ?", table));

  walk();
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM T_SLITM"), 1) << "a walk looks at the file alone";
  RemakeWorkTables(db);
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM T_SLITM"), 0);
  EXPECT_FALSE(CheckTable(db, "sqlite_sequence"));
}

TEST_F(DictionaryTest, AWalkOverAWorkTableChangesTheFilesOwn) {
  shape("CAL", "PARTY_BL", "TEXT(10)");
  db.exec("CREATE INDEX main.CAL_MINE ON CAL (PARTY_BL)");
  walk();
  EXPECT_EQ(definition("CAL", "PARTY_BL"), "TEXT(50) COLLATE NOCASE CHECK (LENGTH(PARTY_BL) <= 50)");
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM main.sqlite_master WHERE name = 'CAL_MINE'"), 1);
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM temp.sqlite_master WHERE name = 'CAL_MINE'"), 0);
}
