#include "vouchers/cleared.h"

#include "base/text.h"
#include "store/engine.h"

namespace {

constexpr const char* kTable = "CLEARED";

std::string unanswered() {
  return "NOT EXISTS (SELECT 1 FROM ALEDGER AS L WHERE " + clearedBy("L", kTable) + ")";
}

}  // namespace

bool setCleared(Database& db, const BankRow& row, const std::optional<Date>& on) {
  return whole(db, [&] {
    ensureTable(db, kTable);  // books that the walk has not brought up to date lack it
    const std::string ofRow = " FROM CLEARED WHERE ACC_CD = ? AND BOOK_CD = ? AND VOUCH_NO = ? AND SRNO = ?";
    db.exec("DELETE" + ofRow, row.account, row.book, row.number, row.serial);
    if (!on) return true;
    db.exec("INSERT INTO CLEARED (ACC_CD, BOOK_CD, VOUCH_NO, SRNO, AMOUNT, CLG_DT) VALUES (?, ?, ?, ?, ?, ?)",
            row.account, row.book, row.number, row.serial, row.amount, *on);
    forgetUnclear(db, row.book, row.number);  // another program may have changed or deleted it meanwhile
    return db.first("SELECT 1" + ofRow, row.account, row.book, row.number, row.serial).has_value();
  });
}

// Older books may lack the table.
void forgetUnclear(Database& db, const std::string& book, double number) {
  if (!db.columns(kTable).empty())
    db.later("DELETE FROM CLEARED WHERE VOUCH_NO = ? AND BOOK_CD = ? AND " + unanswered(), number, book);
}

void forgetUnclear(Database& db) {
  if (!db.columns(kTable).empty()) db.exec("DELETE FROM CLEARED WHERE " + unanswered());
}

std::string clearedBy(const std::string& ledger, const std::string& cleared) {
  constexpr const char* same =
      "L.VOUCH_NO = C.VOUCH_NO AND L.BOOK_CD = C.BOOK_CD AND L.PARTY_CD = C.ACC_CD"
      " AND COALESCE(L.SRNO, 0) = C.SRNO"
      " AND ABS(CASE L.VOUCH_TYPE WHEN 'D' THEN L.VOUCH_AMT ELSE -L.VOUCH_AMT END - C.AMOUNT) < 0.005";
  return replaceAll(replaceAll(same, "C.", cleared + "."), "L.", ledger + ".");
}
