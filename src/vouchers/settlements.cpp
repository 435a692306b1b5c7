#include "vouchers/settlements.h"

#include "base/number.h"
#include "base/words.h"
#include "frame/posting_due.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/row_writer.h"

Settlement readSettlement(Database& db, const VoucherKind& kind, double number) {
  Settlement found;
  if (!CheckTable(db, kSettlements)) return found;
  auto rows = db.query(
      "SELECT WHAT, BILL_BOOK, BILL_VNO, ACC_CD, AMOUNT FROM SETTLES WHERE BOOK_CD = ? AND VOUCH_NO = ?"
      " ORDER BY SRNO",
      kind.code, number);
  while (rows.next()) {
    if (rows.text(0) == "B")
      found.bills.push_back({
          {.book = rows.text(1), .number = rows.number(2)},
          rows.number(4)
      });
    else
      found.deductions.push_back({rows.text(0), rows.text(3), rows.number(4)});
  }
  return found;
}

void ensureSettlements(Database& db) { ensureTable(db, kSettlements); }

void storeSettlement(Database& db, const VoucherKind& kind, double number, const std::string& party,
                     const Settlement& settles) {
  if (settles.empty() && !CheckTable(db, kSettlements)) return;
  ensureSettlements(db);
  db.later("DELETE FROM SETTLES WHERE BOOK_CD = ? AND VOUCH_NO = ?", kind.code, number);
  std::vector<Value> values;
  int serial = 0;
  const auto add = [&](const std::string& what, const VoucherKey& bill, const std::string& account,
                       double amount) {
    values.insert(values.end(),
                  {kind.code, number, ++serial, what, party, bill.book, bill.number, account, amount});
  };
  for (const auto& bill : settles.bills) add("B", bill.voucher, "", bill.amount);
  for (const auto& deduction : settles.deductions)
    add(deduction.what, {}, deduction.account, deduction.amount);
  insertMany(
      db,
      "INSERT INTO SETTLES (BOOK_CD, VOUCH_NO, SRNO, WHAT, PARTY_CD, BILL_BOOK, BILL_VNO, ACC_CD, AMOUNT)",
      "(?, ?, ?, ?, ?, ?, ?, ?, ?)", values);
}

void checkSettlement(Database& db, const VoucherKind& kind, double number) {
  const auto above = [&](const std::string& book, const std::string& voucher, const std::string& rows) {
    const std::string party = "S.PARTY_CD";
    return db.first("SELECT " + book + ", " + voucher +
                        " FROM SETTLES AS S WHERE S.BOOK_CD = ? AND S.VOUCH_NO = ? AND S.WHAT = 'B'" + rows +
                        " AND " + usedOfVoucher(book, voucher, party) + " > " +
                        standingOfVoucher(book, voucher, party) + " + 0.005 LIMIT 1",
                    kind.code, number);
  };
  if (const std::string deleted = deletedVoucher(db, "S"); !deleted.empty())
    if (const auto gone = db.first("SELECT S.BOOK_CD, S.VOUCH_NO FROM (SELECT BILL_BOOK AS BOOK_CD, BILL_VNO "
                                   "AS VOUCH_NO FROM SETTLES"
                                   " WHERE BOOK_CD = ? AND VOUCH_NO = ? AND WHAT = 'B') AS S WHERE " +
                                       deleted + " LIMIT 1",
                                   kind.code, number))
      throw SettledElsewhere(
          words("{book} {number} Has Been Deleted Meanwhile\nNothing Was Stored, Look At The Bills Again",
                "book", gone->text(0), "number", numText(gone->number(1))));
  auto found = above("S.BILL_BOOK", "S.BILL_VNO", "");
  // Of itself one row tells; all of them would sum all of them.
  if (!found) found = above("S.BOOK_CD", "S.VOUCH_NO", " AND S.SRNO = 1");
  if (found)
    throw SettledElsewhere(
        words("{book} {number} Has Less To Settle By Now\nNothing Was Stored, Look At The Bills Again",
              "book", found->text(0), "number", numText(found->number(1))));
}
