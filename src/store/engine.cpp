#include "store/engine.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <set>

#include "base/text.h"
#include "store/dictionary.h"

std::int64_t insertedRow(Database& db) { return db.engine().insertedRow(); }

std::string sumWhere(Database& db, std::string_view figure, std::string_view condition) {
  return db.engine().sumWhere(figure, condition);
}

void makeList(Database& db, const std::string& name, const std::string& select) {
  noteStatement("LIST " + quotedName(name) + " AS " + select);
  db.engine().makeList(name, select);
}

void dropList(Database& db, const std::string& name) { db.engine().dropList(name); }

void indexWorkTable(Database& db, const std::string& table, const std::string& columns) {
  db.engine().indexWorkTable(table, columns);
}

std::optional<std::int64_t> readStill(Database& db, const std::function<void()>& read) {
  for (int left = 3;; --left) {
    std::optional<Transaction> still;
    if (!db.engine().locksWhatItCopies()) still.emplace(db, Transaction::Writes::WorkTables);
    const auto before = db.changeCount();
    read();
    const bool stood = db.changeCount() == before;
    if (still) still->commit();
    if (stood || left == 1) return before;
  }
}

void ensureTable(Database& db, std::string_view table) {
  const auto columns = dictionaryColumns(table);
  if (!CheckTable(db, table)) return db.engine().createTable(std::string(table), columns);
  const auto there = db.columns(table);
  for (const Column& column : columns)
    if (std::ranges::none_of(there, [&](const Column& c) { return sameText(c.name, column.name); }))
      db.engine().addColumn(std::string(table), column);
}

double standingRows(Database& db, const std::string& table) { return db.engine().standingRows(table); }

RowCounts rowsOfTables(Database& db) {
  RowCounts counts;
  for (const std::string& table : db.engine().tables()) counts.emplace_back(table, standingRows(db, table));
  return counts;
}

bool hasIndex(Database& db, std::string_view name) { return db.engine().hasIndex(name); }

bool isIndexed(Database& db, std::string_view table, std::string_view column) {
  return db.engine().isIndexed(table, column);
}

BulkWriting::BulkWriting(Database& db) : db_(db) { db_.engine().writesInBulk(true); }

BulkWriting::~BulkWriting() {
  try {
    db_.engine().writesInBulk(false);
  } catch (const std::exception&) {
    // The engine is beyond help; what failed first is already on its way.
  }
}

WithCatalogue::WithCatalogue(Database& year, const std::filesystem::path& catalogue)
    : year_(year), compny_(year.engine().joinCatalogue(catalogue)) {}

WithCatalogue::~WithCatalogue() {
  try {
    year_.engine().leaveCatalogue();
  } catch (const std::exception& error) {
    logFailure("passed over: it goes when the books are closed", error);
  }
}

std::string damageIn(Database& db) { return db.engine().damage(); }

void noteStatement(std::string_view sql) {
  static const char* const file = std::getenv("MIRAV_STATEMENTS");
  static std::set<std::string, std::less<>> noted;
  if (!file || noted.contains(sql)) return;
  const std::string& line = *noted.emplace(sql).first;
  std::ofstream(file, std::ios::app) << replaceAll(line, "\n", " ") + "\n";
}
