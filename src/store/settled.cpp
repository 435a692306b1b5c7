#include "store/settled.h"

#include <string>

#include "store/dictionary.h"
#include "store/engine.h"

namespace {

constexpr const char* kTable = "SETTLED";

std::string counted(std::int64_t changes) {
  return "changes " + std::to_string(changes) + " program " + std::to_string(kShapeVersion);
}

std::string stateAfter(Database& db, std::int64_t changes) {
  std::string state = counted(changes) + db.engine().sizeAndShape();
  for (const char* table : {"ACCOUNT", "ALEDGER", "SALE", "RPTPAY", "CHLN"})
    if (CheckTable(db, table))
      state += std::string(" ") + table + " " + db.text(std::string("SELECT MAX(rowid) FROM ") + table);
  return state;
}

void ensureOneRow(Database& db) {
  ensureTable(db, kTable);
  if (db.number("SELECT COUNT(*) FROM SETTLED") == 1) return;
  db.exec("DELETE FROM SETTLED");
  db.exec("INSERT INTO SETTLED (STATE) VALUES ('')");
}

}  // namespace

bool isSettled(Database& db) {
  try {
    if (db.inTransaction() || !CheckTable(db, kTable)) return false;
    const Transaction still(db, Transaction::Writes::WorkTables);
    const std::string stored = db.text("SELECT STATE FROM SETTLED");
    const auto changes = db.changeCount();
    // The count alone tells mostly.
    return changes && stored.starts_with(counted(*changes)) && stored == stateAfter(db, *changes);
  } catch (const DatabaseError& error) {
    logFailure("passed over: books in doubt count as not settled", error);
    return false;
  }
}

Settling::Settling(Database& db) : db_(db), before_(db.engine().othersWrites()) {}

void Settling::done() {
  whole(db_, [&] {
    const auto changes = db_.changeCount();
    if (!changes || db_.engine().othersWrites() != before_) return false;
    ensureOneRow(db_);
    // This very transaction is the next change.
    db_.exec("UPDATE SETTLED SET STATE = ?", stateAfter(db_, *changes + 1));
    return true;
  });
}
