#include "store/update.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "company_fixture.h"
#include "frame/full_disk.h"
#include "frame/killed.h"
#include "store/alter.h"
#include "store/dictionary.h"
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
// at half its length, and columns that nobody knows any more.
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
  columns.push_back({.name = "OLD_MARK", .definition = "TEXT(20)"});
  columns.push_back({.name = "DESC", .definition = "TEXT(20)"});
  columns.push_back({.name = "old note", .definition = "TEXT(20)"});
  return columns;
}

void insert(Database& db, const std::string& table, const std::vector<std::pair<std::string, Value>>& row) {
  std::string names, marks;
  std::vector<Value> values;
  for (const auto& [name, value] : row) {
    names += (names.empty() ? "" : ", ") + name;
    marks += marks.empty() ? "?" : ", ?";
    values.push_back(value);
  }
  db.exec("INSERT INTO main." + table + " (" + names + ") VALUES (" + marks + ")", values);
}

void fillOldYear(Database& db) {
  const Date day = *parseDate("2024-05-10");
  insert(db, "ACCOUNT",
         {
             {"ACC_CD",   "A00001"       },
             {"ACC_NAME", "SHREE O'BRIEN"},
             {"OLD_MARK", "x"            },
             {"[DESC]",   "kept"         }
  });
  insert(db, "ITEM",
         {
             {"ITEM_CD",   "I0000001"},
             {"ITEM_NAME", "PIPE"    }
  });
  insert(db, "ITEM",
         {
             {"ITEM_CD",   ""            },
             {"ITEM_NAME", "WITHOUT CODE"}
  });
  for (const char* size : {"PCS", "BOX"})
    insert(db, "ITEMDTL",
           {
               {"ITEM_CD", "I0000001"},
               {"SIZE_CD", size      }
    });
  insert(db, "SALE",
         {
             {"VOUCH_NO", 1     },
             {"BOOK_CD",  "SA"  },
             {"VOUCH_DT", day   },
             {"BILL_NO",  "0001"},
             {"NET_AMT",  118   }
  });
  insert(db, "SALE",
         {
             {"VOUCH_NO", 2  },
             {"BOOK_CD",  "S"},
             {"VOUCH_DT", day}
  });
  insert(db, "SALE",
         {
             {"VOUCH_NO", Value()},
             {"BOOK_CD",  "SA"   },
             {"VOUCH_DT", day    }
  });
  insert(db, "SALEITM",
         {
             {"VOUCH_NO", 1         },
             {"BOOK_CD",  "SA"      },
             {"SR_NO",    1         },
             {"VOUCH_DT", day       },
             {"ITEM_CD",  "I0000001"}
  });
  insert(db, "SALEITM",
         {
             {"VOUCH_NO", 1   },
             {"BOOK_CD",  "SA"},
             {"SR_NO",    2   },
             {"VOUCH_DT", day }
  });
  insert(db, "CHLN",
         {
             {"VOUCH_NO", 1   },
             {"BOOK_CD",  "CH"},
             {"VOUCH_DT", day }
  });
  insert(db, "CHLN",
         {
             {"VOUCH_NO", 2       },
             {"BOOK_CD",  "CH"    },
             {"VOUCH_DT", "no day"}
  });
  for (int copy = 0; copy < 2; ++copy) {
    insert(db, "PRTYRATE",
           {
               {"RT_DT",   day       },
               {"ITEM_CD", "I0000001"},
               {"SIZE_CD", "PCS"     },
               {"ACC_CD",  "A00001"  }
    });
    insert(db, "SPSFILE",
           {
               {"VOUCH_NO", 900    },
               {"VOUCH_CD", "TWICE"}
    });
  }
  insert(db, "SPSFILE",
         {
             {"VOUCH_NO",  371},
             {"VOUCH_QTY", 4  }
  });
}

void makeOldYear(const std::filesystem::path& file) {
  Database db;
  db.open(file, Access::create);
  Transaction all(db);
  std::set<std::string> tables;
  for (const auto& row : dictionaryRows()) tables.insert(row.table);
  for (const auto& table : tables) db.exec(createTableStatement("main." + table, oldColumns(table)));
  db.exec("CREATE TABLE URIGHTS (username TEXT)");
  db.exec("CREATE VIEW BY_HAND AS SELECT VOUCH_NO FROM SALE");
  db.exec("CREATE VIEW blprn AS SELECT OLD_MARK FROM SALE");
  fillOldYear(db);
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
  EXPECT_EQ(updateDatabase(old, kFacts), std::vector<std::string>{"ITEMDTL"});
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

TEST_F(UpdateTest, ASecondUpdateChangesNothing) {
  updateDatabase(old, kFacts);
  const std::string once = contents(old);
  updateDatabase(old, kFacts);
  EXPECT_EQ(contents(old), once);

  const auto before = shape(db);
  db.exec("UPDATE ITEM SET TAX_CD = 7");
  updateDatabase(db, kFacts);
  auto after = shape(db);
  after.erase("index ITEMDTL_KEY");  // each item has one unit here
  EXPECT_EQ(after, before);
  EXPECT_EQ(db.number("SELECT TAX_CD FROM ITEM"), 7);
}

TEST_F(UpdateTest, AFullDiskLeavesTheOldYear) {
  const std::string before = contents(old);
  {
    const FullDisk full;
    EXPECT_THROW(updateDatabase(old, kFacts), DatabaseError);
  }
  EXPECT_EQ(contents(old), before);
  EXPECT_EQ(updateDatabase(old, kFacts).size(), 1u);
}

TEST_F(UpdateTest, KilledAtAnyMomentItIsTheOldYearOrTheNewOne) {
  const std::string before = contents(old);
  old.close();
  db.close();
  const auto update = [](const std::filesystem::path& year) {
    Database database;
    database.open(year);
    updateDatabase(database, kFacts);
  };
  const auto copy = folder / "M00324.mdb";
  std::filesystem::copy_file(file, copy);
  const Killed whole = killedAt(-1, [&] { update(copy); });
  if (!whole.possible) GTEST_SKIP() << "processes may not be watched here";
  Database database;
  database.open(copy);
  const std::string after = contents(database);
  database.close();
  for (int n = 1; n <= whole.calls; n += std::max(1, whole.calls / 5)) {
    std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
    killedAt(n, [&] { update(copy); });
    database.open(copy);
    const std::string found = contents(database);
    EXPECT_TRUE(found == before || found == after) << "killed before call " << n;
    updateDatabase(database, kFacts);
    EXPECT_EQ(contents(database), after) << "killed before call " << n;
    database.close();
  }
}

}  // namespace
