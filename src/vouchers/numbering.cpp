#include "vouchers/numbering.h"

#include "base/number.h"
#include "base/text.h"

namespace {

std::string padded(double number) {
  const std::string text = numText(number);
  switch (length(text)) {
    case 1:
      return "000" + text;
    case 2:
    case 3:
      return "00" + text;
    default:
      return text;
  }
}

}  // namespace

LastVoucher lastVoucher(Database& db, const Book& book) {
  const auto last = db.first("SELECT VOUCH_NO, VOUCH_DT FROM " + book.heads + " WHERE " + book.keyColumn +
                                 " = ? ORDER BY VOUCH_NO DESC LIMIT 1",
                             book.code);
  if (!last) return {};
  return {last->number("VOUCH_NO"), last->date("VOUCH_DT")};
}

bool isStored(Database& db, const Book& book, double voucher) {
  return db
      .first("SELECT VOUCH_NO FROM " + book.heads + " WHERE VOUCH_NO = ? AND " + book.keyColumn + " = ?",
             voucher, book.code)
      .has_value();
}

std::string billNumberAfter(const std::string& stored) {
  const double number = Val(stored);
  return padded((number >= 10000 ? number : Val(left(numText(number), 4))) + 1);
}

std::string nextBillNumber(Database& db, const Book& book, const std::string& billType) {
  const auto last =
      db.first("SELECT BILL_NO FROM SALE WHERE BOOK_CD = ? AND BL_TYPE = ? ORDER BY VOUCH_NO DESC LIMIT 1",
               book.code, billType);
  return last ? billNumberAfter(last->text(0)) : padded(1);
}

bool isDuplicateBill(Database& db, const Book& book, const BillReference& bill) {
  // The plus signs keep the reader from walking a whole series or party: few bills share a number.
  return db
      .first(
          "SELECT VOUCH_NO FROM SALE WHERE BILL_NO = ? AND BL_TYPE = ? AND +BOOK_CD = ? AND VOUCH_NO <> ?"
          " AND (? OR +PARTY_CD = ?) LIMIT 1",
          bill.number, bill.type, book.code, bill.voucher, book.numbered, bill.party)
      .has_value();
}
