#include "vouchers/numbering.h"

#include <cmath>

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

LastVoucher lastVoucher(Database& db, const VoucherKind& kind) {
  const auto last = db.first("SELECT VOUCH_NO, VOUCH_DT FROM " + kind.tables.heads + " WHERE " +
                                 kind.tables.key + " = ? ORDER BY VOUCH_NO DESC LIMIT 1",
                             kind.code);
  if (!last) return {};
  return {last->number("VOUCH_NO"), last->date("VOUCH_DT")};
}

bool isVoucherNumber(double number) { return number >= 1 && number == std::floor(number); }

std::string takenWords(const std::string& what, const std::string& taken, const std::string& next) {
  return words("{what} {taken} Has Been Taken Meanwhile\nThis One Is {next} Now", "what", what, "taken",
               taken, "next", next);
}

bool isStored(Database& db, const VoucherKind& kind, double voucher) {
  return db
      .first(
          "SELECT VOUCH_NO FROM " + kind.tables.heads + " WHERE VOUCH_NO = ? AND " + kind.tables.key + " = ?",
          voucher, kind.code)
      .has_value();
}

std::string billNumberAfter(const std::string& stored) {
  const double number = Val(stored);
  return padded((number >= 10000 ? number : Val(left(numText(number), 4))) + 1);
}

std::optional<std::string> lastPaperNumber(Database& db, const VoucherKind& kind, const std::string& series) {
  std::string statement =
      "SELECT " + kind.numbering.number + " FROM " + kind.tables.heads + " WHERE " + kind.tables.key + " = ?";
  std::vector<Value> values = {kind.code};
  if (!kind.numbering.series.empty()) {
    statement += " AND " + kind.numbering.series + " = ?";
    values.emplace_back(series);
  }
  const auto last = db.first(statement + " ORDER BY VOUCH_NO DESC LIMIT 1", values);
  return last ? std::optional(last->text(0)) : std::nullopt;
}

std::string nextBillNumber(Database& db, const VoucherKind& kind, const std::string& billType) {
  const auto last = lastPaperNumber(db, kind, billType);
  return last ? billNumberAfter(*last) : padded(1);
}

bool isDuplicateBill(Database& db, const VoucherKind& kind, const BillReference& bill) {
  // The plus signs keep the reader from walking a whole series or party: few bills share a number.
  return db
      .first(
          "SELECT VOUCH_NO FROM SALE WHERE BILL_NO = ? AND BL_TYPE = ? AND +BOOK_CD = ? AND VOUCH_NO <> ?"
          " AND (? OR +PARTY_CD = ?) LIMIT 1",
          bill.number, bill.type, kind.code, bill.voucher, kind.numbering.runsOn, bill.party)
      .has_value();
}
