#include "frame/posting_due.h"

#include <set>
#include <vector>

#include "base/text.h"
#include "store/dictionary.h"
#include "store/engine.h"

namespace {

constexpr const char* kTable = "DELETED";

}  // namespace

std::string withoutVoucher(Database& db, const std::string& row) {
  std::set<std::string> heads;
  for (const VoucherKind* kind : voucherKinds())
    if (!kind->ledger.partySide.empty() && CheckTable(db, kind->tables.heads))
      heads.insert(kind->tables.heads);
  std::vector<std::string> none;
  for (const std::string& table : heads)
    none.push_back("NOT EXISTS (SELECT 1 FROM " + table + " AS H WHERE H.VOUCH_NO = " + row +
                   ".VOUCH_NO AND H.BOOK_CD = " + row + ".BOOK_CD)");
  return join(none, " AND ");
}

void rememberDeleted(Database& db, const VoucherKind& kind, double number) {
  if (kind.ledger.partySide.empty()) return;
  ensureTable(db, kTable);  // books that the walk has not brought up to date lack it
  db.exec("DELETE FROM DELETED WHERE BOOK_CD = ? AND VOUCH_NO = ?", kind.code, number);
  db.exec("INSERT INTO DELETED (BOOK_CD, VOUCH_NO) VALUES (?, ?)", kind.code, number);
}

int deletedInLedger(Database& db) {
  if (!CheckTable(db, kTable)) return 0;
  return static_cast<int>(
      db.number("SELECT COUNT(*) FROM DELETED AS D WHERE EXISTS (SELECT 1 FROM ALEDGER AS L"
                " WHERE L.VOUCH_NO = D.VOUCH_NO AND L.BOOK_CD = D.BOOK_CD) AND " +
                withoutVoucher(db, "D")));
}

std::string deletedVoucher(Database& db, const std::string& row) {
  if (!CheckTable(db, kTable) || !db.first("SELECT 1 FROM DELETED LIMIT 1")) return "";
  return "EXISTS (SELECT 1 FROM DELETED AS D WHERE D.VOUCH_NO = " + row + ".VOUCH_NO AND D.BOOK_CD = " + row +
         ".BOOK_CD) AND " + withoutVoucher(db, row);
}

void forgetDeleted(Database& db) {
  if (CheckTable(db, kTable)) db.exec("DELETE FROM DELETED");
}
