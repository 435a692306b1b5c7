#include "frame/made_from.h"

#include "base/date.h"
#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/settings.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/row_writer.h"

namespace {

constexpr const char* kTable = "BILLEDFROM";
// Stands for the book of a bill that was deleted and is in the ledger yet.
constexpr const char* kFreed = "--";

// Books that the walk has not brought up to date have none.
bool keeps(Database& db) { return CheckTable(db, kTable); }

std::vector<MadeFrom> rowsOf(Database& db, const std::string& book, double number) {
  std::vector<MadeFrom> from;
  if (!keeps(db)) return from;
  for (const Row& row : db.all("SELECT FROM_BOOK, FROM_VOUCH FROM BILLEDFROM WHERE VOUCH_NO = ?"
                               " AND BOOK_CD = ? ORDER BY SR_NO",
                               number, book))
    from.push_back({row.text(0), row.number(1)});
  return from;
}

void dropRows(Database& db, const std::string& book, double number) {
  db.exec("DELETE FROM BILLEDFROM WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, book);
}

// That none was made of the row; what more is asked of its rows and a bracket follow.
std::string noneOf(const std::string& book, const std::string& row) {
  return "NOT EXISTS (SELECT 1 FROM BILLEDFROM AS B WHERE B.FROM_VOUCH = " + row +
         ".VOUCH_NO AND B.FROM_BOOK = '" + book + "'";
}

}  // namespace

void ensureMadeFrom(Database& db) { ensureTable(db, kTable); }

std::vector<const VoucherKind*> madeFromKinds(const VoucherKind& kind) {
  if (&kind == &saleKind()) return {&challanKind(), &quotationKind()};
  if (&kind == &challanKind()) return {&quotationKind()};
  return {};
}

bool anyMadeFrom(Database& db, const VoucherKind& kind, double number) {
  return keeps(db) && db.first("SELECT 1 FROM BILLEDFROM WHERE VOUCH_NO = ? AND BOOK_CD IN (?, ?) LIMIT 1",
                               number, kind.code, kFreed);
}

std::vector<MadeFrom> madeFrom(Database& db, const VoucherKind& kind, double number) {
  return rowsOf(db, kind.code, number);
}

void storeMadeFrom(Database& db, const VoucherKind& kind, double number, const std::vector<MadeFrom>& from) {
  dropRows(db, kind.code, number);
  std::vector<Value> values;
  double serial = 0;
  for (const MadeFrom& one : from)
    values.insert(values.end(), {kind.code, number, ++serial, one.book, one.voucher});
  if (!values.empty())
    insertMany(db, "INSERT INTO BILLEDFROM (BOOK_CD, VOUCH_NO, SR_NO, FROM_BOOK, FROM_VOUCH)",
               "(?, ?, ?, ?, ?)", values);
}

void forgetMadeFrom(Database& db, const VoucherKind& kind, double number) {
  if (!keeps(db)) return;
  if (&kind == &saleKind())
    db.exec("UPDATE BILLEDFROM SET BOOK_CD = ? WHERE VOUCH_NO = ? AND BOOK_CD = ? AND FROM_BOOK = ?", kFreed,
            number, kind.code, challanKind().book());
  dropRows(db, kind.code, number);
  db.exec("DELETE FROM BILLEDFROM WHERE FROM_VOUCH = ? AND FROM_BOOK = ?", number, kind.book());
}

void forgetFreed(Database& db) {
  if (keeps(db)) db.exec("DELETE FROM BILLEDFROM WHERE BOOK_CD = ?", kFreed);
}

std::vector<MadeFrom> takeFreed(Database& db, const VoucherKind& kind, double number) {
  if (&kind != &saleKind()) return {};
  std::vector<MadeFrom> freed = rowsOf(db, kFreed, number);
  if (!freed.empty()) dropRows(db, kFreed, number);
  return freed;
}

std::string isOpen(Database& db, const VoucherKind& kind, const std::string& row) {
  if (!keeps(db)) return "TRUE";
  return noneOf(kind.book(), row) + " AND B.BOOK_CD <> '" + kFreed + "')";
}

std::string standsAlone(Database& db, const std::string& row) {
  if (!keeps(db) || settingNumber(db, kChallansPost) != 0) return "";
  return " AND " + noneOf(challanKind().book(), row) + ")";
}

std::string billedWords(Database& db, const MadeFrom& from) {
  if (!keeps(db)) return "";
  const auto row = db.first(
      "SELECT BOOK_CD, VOUCH_NO FROM BILLEDFROM WHERE FROM_VOUCH = ? AND FROM_BOOK = ?"
      " AND BOOK_CD <> ?",
      from.voucher, from.book, kFreed);
  const VoucherKind* const kind = row ? kindByBook(row->text(0)) : nullptr;
  if (!kind) return "";
  const auto head = db.first("SELECT " + kind->numbering.number + ", VOUCH_DT FROM " + kind->tables.heads +
                                 " WHERE VOUCH_NO = ? AND " + kind->tables.key + " = ?",
                             row->number(1), kind->code);
  const std::string paper = head ? trim(head->text(0)) : "";
  const std::string number = paper.empty() ? numText(row->number(1)) : paper;
  const std::string date = head && head->date(1) ? formatDate(*head->date(1), "dd/MM/yyyy") : "";
  return kind == &saleKind() ? words("Billed: {number} of {date}", "number", number, "date", date)
                             : words("Sent Out: Challan {number} of {date}", "number", number, "date", date);
}

std::string madeOfColumn(Database& db, const VoucherKind& kind, const std::string& row) {
  if (!keeps(db)) return "?";
  std::string text = "COALESCE(";
  for (const VoucherKind* made : {&saleKind(), &challanKind()}) {
    const std::string number = "MIN(H." + made->numbering.number + ")";
    text += "(SELECT " + (made == &saleKind() ? number : "'" + made->book() + " ' || " + number) +
            " FROM BILLEDFROM AS B JOIN " + made->tables.heads +
            " AS H ON H.VOUCH_NO = B.VOUCH_NO AND H.BOOK_CD = B.BOOK_CD WHERE B.FROM_VOUCH = " + row +
            ".VOUCH_NO AND B.FROM_BOOK = '" + kind.book() + "' AND B.BOOK_CD = '" + made->code + "'), ";
  }
  return text + "?)";
}
