#include "vouchers/numbering.h"

#include <algorithm>
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
  if (const auto series = seriesOf(db, kind.code, billType)) return nextInSeries(db, kind, *series);
  const auto last = lastPaperNumber(db, kind, billType);
  return last ? billNumberAfter(*last) : padded(1);
}

namespace {

// Of the stored numbers that the series writes with so many digits. Those stand one behind the other in the
// index by numbers; what is no number of the series between them is stepped over.
double highestStored(Database& db, const VoucherKind& kind, const NumberSeries& series, int digits) {
  const auto filled = [&](char digit) { return series.prefix + std::string(digits, digit) + series.suffix; };
  const std::string& number = kind.numbering.number;
  const std::string rest = " ? AND " + number + " >= ? AND " + number + " LIKE ? ESCAPE '\\' AND +" +
                           kind.tables.key + " = ? ORDER BY " + number + " DESC LIMIT 1";
  std::string highest = filled('9'),
              from = "SELECT " + number + " FROM " + kind.tables.heads + " WHERE " + number;
  for (const char* below = " <=";; below = " <") {
    const auto row = db.first(from + below + rest, highest, filled('0'), filled('_'), kind.code);
    if (!row) return 0;
    highest = row->text(0);
    if (const auto count = countIn(series, highest)) return *count;
  }
}

}  // namespace

std::string nextInSeries(Database& db, const VoucherKind& kind, const NumberSeries& series) {
  double last = series.first - 1;
  for (int digits = series.width;; ++digits) {
    last = std::max(last, highestStored(db, kind, series, digits));
    if (last + 1 < std::pow(10, digits)) return numberIn(series, last + 1);
  }
}

std::optional<std::string> afterInSeries(Database& db, const VoucherKind& kind, const std::string& type,
                                         const std::string& number) {
  const auto series = seriesOf(db, kind.code, type);
  if (!series) return std::nullopt;
  const auto count = countIn(*series, number);
  return count ? numberIn(*series, *count + 1) : nextInSeries(db, kind, *series);
}

std::string numberWarning(Database& db, const VoucherKind& kind, const std::string& type,
                          const std::string& number) {
  if (number.empty() || isLawfulNumber(number) || !seriesOf(db, kind.code, type)) return {};
  return words("{number} Breaks The Law :: 16 Signs At Most, Of A To Z, 0 To 9, - And /", "number", number);
}

bool isDuplicateBill(Database& db, const VoucherKind& kind, const BillReference& bill) {
  const auto series = kind.numbering.runsOn ? seriesOf(db, kind.code, bill.type) : std::nullopt;
  const bool anyType = series && !(series->prefix + series->suffix).empty() && countIn(*series, bill.number);
  // The plus signs keep the reader from walking a whole series or party: few bills share a number.
  return db
      .first(
          "SELECT VOUCH_NO FROM SALE WHERE BILL_NO = ? AND (? OR BL_TYPE = ?) AND +BOOK_CD = ? AND VOUCH_NO "
          "<> ?"
          " AND (? OR +PARTY_CD = ?) LIMIT 1",
          bill.number, anyType, bill.type, kind.code, bill.voucher, kind.numbering.runsOn, bill.party)
      .has_value();
}
