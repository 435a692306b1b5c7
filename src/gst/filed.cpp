#include "gst/filed.h"

#include <algorithm>
#include <cstdio>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/engine.h"

namespace {

using Filing = ReturnPeriod::Filing;

constexpr const char* kTables[] = {"FILED", "FILEDDOC", "FILEDSUM"};

// Periods stand as 202610, so that they are in their order.
double stored(const ReturnPeriod& period) { return period.year * 100 + period.month; }
ReturnPeriod periodOf(double number, const std::string& filing = "M") {
  const int whole = toInt(number);
  return {.year = whole / 100,
          .month = whole % 100,
          .filing = filing == "Q"   ? Filing::Quarter
                    : filing == "I" ? Filing::Iff
                                    : Filing::Month};
}
const char* letterOf(Filing filing) {
  return filing == Filing::Quarter ? "Q" : filing == Filing::Iff ? "I" : "M";
}

bool hasTables(Database& db) { return CheckTable(db, kTables[0]); }

TaxAmounts amounts(const Rows& rows, int first) {
  return {paise(rows.number(first)), paise(rows.number(first + 1)), paise(rows.number(first + 2)),
          paise(rows.number(first + 3)), paise(rows.number(first + 4))};
}

Rows selectFiled(Database& db, const std::string& which, double period) {
  return db.query(
      "SELECT FP, BOOK_CD, VOUCH_NO, BILL_NO, BILL_DT, SECTION, SEAL, AMOUNT, TAXABLE, IGST, CGST, SGST,"
      " CESS FROM FILEDDOC WHERE " +
          which + " ORDER BY FP",
      period);
}

FiledDocument filedDocument(const Rows& rows) {
  return {.period = periodOf(rows.number(0)),
          .book = rows.text(1),
          .voucher = rows.number(2),
          .number = rows.text(3),
          .date = rows.date(4).value_or(Date{}),
          .section = rows.text(5),
          .seal = rows.text(6),
          .sums = amounts(rows, 8),
          .value = paise(rows.number(7))};
}

void forget(Database& db, const ReturnPeriod& period) {
  for (const char* table : kTables)
    db.exec(std::string("DELETE FROM ") + table + " WHERE FP = ?", stored(period));
}

void storeDocument(Database& db, const ReturnPeriod& period, const PlacedDocument& placed) {
  const TaxDocument& d = placed.document;
  const TaxAmounts sums = d.taxed() * d.sign();
  db.exec(
      "INSERT INTO FILEDDOC (FP, BOOK_CD, VOUCH_NO, BILL_NO, BILL_DT, SECTION, SEAL, AMOUNT, TAXABLE, IGST,"
      " CGST, SGST, CESS) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
      stored(period), d.kind->code, d.voucher, d.number, d.date, std::string(sectionKey(placed.section)),
      sealOf(placed), rupees(d.value), rupees(sums.taxable), rupees(sums.igst), rupees(sums.cgst),
      rupees(sums.sgst), rupees(sums.cess));
}

void storeSum(Database& db, const ReturnPeriod& period, const ReturnPeriod& of, const B2csRow& row) {
  db.exec(
      "INSERT INTO FILEDSUM (FP, OF_FP, PLACE, RATE, TAXABLE, IGST, CGST, SGST, CESS)"
      " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)",
      stored(period), stored(of), row.place, row.rate, rupees(row.sums.taxable), rupees(row.sums.igst),
      rupees(row.sums.cgst), rupees(row.sums.sgst), rupees(row.sums.cess));
}

}  // namespace

bool isListed(Gstr1Section section) { return section != Gstr1Section::B2cs && section != Gstr1Section::None; }

std::string sealOf(const PlacedDocument& placed) {
  const TaxDocument& d = placed.document;
  std::string all = std::string(sectionKey(placed.section)) + "|" + upper(d.number) + "|" + isoDate(d.date) +
                    "|" + std::to_string(d.value) + "|" + d.party->gstin + "|" + std::to_string(d.place) +
                    "|" + std::to_string(static_cast<int>(d.supply)) + (d.reverse ? "R" : "") + "|" + d.port +
                    "|" + d.shippingBill + "|" + (d.shippingDate ? isoDate(*d.shippingDate) : "");
  for (const AtRate& at : d.rates)
    for (const Paise figure :
         {paise(at.rate), at.sums.taxable, at.sums.igst, at.sums.cgst, at.sums.sgst, at.sums.cess})
      all += "|" + std::to_string(figure);
  // FNV-1a; nobody gains by two that are alike.
  std::uint64_t hash = 14695981039346656037U;
  for (const char sign : all) hash = (hash ^ static_cast<unsigned char>(sign)) * 1099511628211U;
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

std::vector<FiledReturn> filedReturns(Database& db) {
  std::vector<FiledReturn> all;
  if (!hasTables(db)) return all;
  for (auto rows = db.query("SELECT FP, FILING, FILED_DT FROM FILED ORDER BY FP"); rows.next();)
    all.push_back({periodOf(rows.number(0), rows.text(1)), rows.date(2).value_or(Date{})});
  return all;
}

std::optional<FiledReturn> filedIn(Database& db, const VoucherKind& kind, double voucher) {
  if (!hasTables(db)) return std::nullopt;
  const auto row = db.first(
      "SELECT F.FP, F.FILING, F.FILED_DT FROM FILEDDOC AS D JOIN FILED AS F ON F.FP = D.FP"
      " WHERE D.VOUCH_NO = ? AND D.BOOK_CD = ? ORDER BY F.FP DESC LIMIT 1",
      voucher, kind.code);
  if (!row) return std::nullopt;
  return FiledReturn{periodOf(row->number(0), row->text(1)), row->date(2).value_or(Date{})};
}

void markFiled(Database& db, const Gstr1& gstr1, Date day) {
  for (const char* table : kTables) ensureTable(db, table);
  whole(db, [&] {
    forget(db, gstr1.period);
    db.exec("INSERT INTO FILED (FP, FILING, FILED_DT) VALUES (?, ?, ?)", stored(gstr1.period),
            letterOf(gstr1.period.filing), day);
    for (const PlacedDocument& placed : gstr1.documents)
      if (isListed(placed.section) && !placed.filedBefore) storeDocument(db, gstr1.period, placed);
    for (const Amendment& amended : gstr1.amended) storeDocument(db, gstr1.period, amended.now);
    for (const B2csRow& row : gstr1.b2cs) storeSum(db, gstr1.period, gstr1.period, row);
    for (const AmendedSum& sum : gstr1.amendedSums) storeSum(db, gstr1.period, sum.of, sum.now);
  });
}

std::string unmarkFiled(Database& db, const ReturnPeriod& period) {
  if (!hasTables(db)) return {};
  const auto later = db.first("SELECT FP FROM FILED WHERE FP > ? ORDER BY FP DESC LIMIT 1", stored(period));
  if (later)
    return words("The return of {period} is filed after it: take that mark off first", "period",
                 periodOf(later->number(0)).text());
  whole(db, [&] { forget(db, period); });
  return {};
}

std::vector<FiledDocument> changedSince(Database& db, const Gstr1& gstr1) {
  std::vector<FiledDocument> changed;
  if (!hasTables(db) || !db.first("SELECT 1 FROM FILED WHERE FP = ?", stored(gstr1.period))) return changed;
  std::map<std::pair<std::string, double>, FiledDocument> left;
  for (auto rows = selectFiled(db, "FP = ?", stored(gstr1.period)); rows.next();) {
    FiledDocument filed = filedDocument(rows);
    left[{filed.book, filed.voucher}] = std::move(filed);
  }
  const auto compare = [&](const PlacedDocument& placed) {
    const TaxDocument& d = placed.document;
    if (!isListed(placed.section)) return;
    const auto filed = left.find({d.kind->code, d.voucher});
    if (filed == left.end()) {
      changed.push_back({.book = d.kind->code, .voucher = d.voucher, .number = d.number, .date = d.date});
    } else {
      if (filed->second.seal != sealOf(placed)) changed.push_back(filed->second);
      left.erase(filed);
    }
  };
  for (const PlacedDocument& placed : gstr1.documents)
    if (!placed.filedBefore) compare(placed);
  for (const Amendment& amended : gstr1.amended) compare(amended.now);
  for (const auto& [key, filed] : left) changed.push_back(filed);
  return changed;
}

FiledBefore::FiledBefore(Database& db, const ReturnPeriod& period) {
  for (const FiledReturn& filed : filedReturns(db))
    if (stored(filed.period) < stored(period)) returns_.push_back(filed);
  if (returns_.empty()) return;
  for (auto rows = selectFiled(db, "FP < ?", stored(period)); rows.next();) {
    FiledDocument filed = filedDocument(rows);
    documents_[{filed.book, filed.voucher}] = std::move(filed);
  }
  for (auto rows =
           db.query("SELECT OF_FP, PLACE, RATE, TAXABLE, IGST, CGST, SGST, CESS FROM FILEDSUM WHERE FP < ?"
                    " ORDER BY FP",
                    stored(period));
       rows.next();)
    sums_[rows.number(0)][{toInt(rows.number(1)), rows.number(2)}] = amounts(rows, 3);
}

const FiledDocument* FiledBefore::find(const std::string& book, double voucher) const {
  const auto found = documents_.find({book, voucher});
  return found == documents_.end() ? nullptr : &found->second;
}

std::map<std::pair<int, double>, TaxAmounts> FiledBefore::sumsOf(const ReturnPeriod& period) const {
  const auto found = sums_.find(stored(period));
  return found == sums_.end() ? std::map<std::pair<int, double>, TaxAmounts>() : found->second;
}
