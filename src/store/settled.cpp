#include "store/settled.h"

#include <string>

#include "store/alter.h"
#include "store/dictionary.h"

namespace {

constexpr const char* kTable = "SETTLED";

std::string stateAfter(Database& db, std::int64_t changes) {
  std::string state = "changes " + std::to_string(changes) + " program " + std::to_string(kShapeVersion);
  for (const char* pragma : {"page_count", "schema_version"})
    state += std::string(" ") + pragma + " " + db.text(std::string("PRAGMA main.") + pragma);
  for (const char* table : {"ACCOUNT", "ALEDGER", "SALE", "RPTPAY", "CHLN"})
    if (CheckTable(db, table))
      state += std::string(" ") + table + " " + db.text(std::string("SELECT MAX(rowid) FROM main.") + table);
  return state;
}

void ensureOneRow(Database& db) {
  if (!CheckTable(db, kTable)) db.exec(createTableStatement("main.SETTLED", dictionaryColumns(kTable)));
  if (db.number("SELECT COUNT(*) FROM main.SETTLED") == 1) return;
  db.exec("DELETE FROM main.SETTLED");
  db.exec("INSERT INTO main.SETTLED (STATE) VALUES ('')");
}

}  // namespace

bool isSettled(Database& db) {
  try {
    if (db.inTransaction() || !CheckTable(db, kTable)) return false;
    const Transaction still(db, Transaction::Writes::WorkTables);
    const std::string stored = db.text("SELECT STATE FROM main.SETTLED");
    const auto changes = db.changeCount();
    return changes && stored == stateAfter(db, *changes);
  } catch (const DatabaseError& error) {
    logFailure("passed over: books in doubt count as not settled", error);
    return false;
  }
}

Settling::Settling(Database& db) : db_(db), before_(othersWrites()) {}

// Another number after each commit of another connection.
double Settling::othersWrites() const { return db_.number("PRAGMA main.data_version"); }

void Settling::done() {
  Transaction all(db_);
  const auto changes = db_.changeCount();
  if (!changes || othersWrites() != before_) return;
  ensureOneRow(db_);
  // This very transaction is the next change.
  db_.exec("UPDATE main.SETTLED SET STATE = ?", stateAfter(db_, *changes + 1));
  all.commit();
}
