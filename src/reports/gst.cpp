#include "reports/gst.h"

#include <algorithm>
#include <iterator>

#include "base/number.h"
#include "base/pattern.h"
#include "base/states.h"
#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/taxable.h"

namespace {

// clang-format off
constexpr std::string_view kByMonth[] = {
    "GSTR1-URD",   "GSTR1-RD",   "GSTR1-RTNRD", "GSTR1-RTNURD",
    "GSTR2-RD",    "GSTR2-URD",  "GSTR2-RTNRD", "GSTR2-RTNURD",
    "GSTR3B",      "BTOCST",     "BTOCSTGEN",   "BTOCSTGENPU",
    "GSTR1-SMRY",  "HSNSL",      "HSNPU",       "HSNSR",        "HSNPR",
    "GSTR1-EXCEL", "GSTR2-EXCEL", "GSTR2-SMRY",
};
// clang-format on

// Of a selected line.
enum Column : int {
  kDate,
  kBill,
  kParty,
  kBook,
  kVoucher,
  kRoundOff,
  kAmount,
  kIgstRate,
  kCgstRate,
  kSgstRate,
  kTaxable,
  kIgst,
  kCgst,
  kSgst,
  kNet
};

// In the order of an index, so that a period costs its own bills alone and nothing is sorted; the
// lines of a bill are put together here, by their few numbers.
Rows selectLines(Database& db, const GstQuery& q) {
  std::vector<Value> values;
  std::vector<std::string> books;
  for (const VoucherKind* kind : voucherKinds())
    if (kind->returns.sign != 0) {
      values.emplace_back(kind->code);
      books.emplace_back("?");
    }
  std::string sql =
      "SELECT SALE.VOUCH_DT, SALE.BILL_NO, ACCOUNT.rowid, SALE.BOOK_CD, SALE.VOUCH_NO, ROUND_OFF, NET_AMT,"
      " IGSTRT, CGSTRT, SGSTRT, " +
      taxableOf() +
      ", IGSTAMT, CGSTAMT, SGSTAMT, NET_AMOUNT"
      " FROM SALE CROSS JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD"
      " LEFT JOIN SALEITM ON SALE.BOOK_CD = SALEITM.BOOK_CD AND SALE.VOUCH_NO = SALEITM.VOUCH_NO"
      " WHERE SALE.BOOK_CD IN (" +
      join(books, ", ") + ") AND SALE.GSTPOST = 1 AND SALE.VOUCH_DT >= ? AND SALE.VOUCH_DT <= ?";
  // A null has no length and so is in neither statement.
  sql +=
      q.dealers == Dealers::Registered ? " AND LEN(ACCOUNT.GSTINNO) > 1" : " AND LEN(ACCOUNT.GSTINNO) <= 1";
  values.insert(values.end(), {q.from, q.to});
  if (!q.party.empty()) {
    sql += " AND SALE.PARTY_CD = ?";
    values.emplace_back(q.party);
  }
  return db.query(sql + " ORDER BY SALE.VOUCH_DT, SALE.BILL_NO, SALE.VOUCH_NO", values);
}

std::optional<double> number(const Rows& rows, int column) {
  const Value value = rows.value(column);
  return value.isNull() ? std::nullopt : std::optional(value.number());
}

void readHead(const Rows& line, GstRow& row) {
  row.bill = line.text(kBill);
  row.date = line.text(kDate);
  row.roundOff = number(line, kRoundOff);
  row.amount = number(line, kAmount);
}

void readLine(const Rows& line, GstRow& row) {
  row.rates = {number(line, kIgstRate), number(line, kCgstRate), number(line, kSgstRate)};
  const auto sum = [&](int column) {
    auto figure = number(line, column);
    if (figure) *figure *= row.kind->returns.sign;
    return figure;
  };
  row.sums = {sum(kTaxable), sum(kIgst), sum(kCgst), sum(kSgst), sum(kNet)};
}

std::weak_ordering compareText(const std::string& a, const std::string& b) { return upper(a) <=> upper(b); }

// Rows of one date and bill number, in the order of the grouping.
std::partial_ordering compare(const GstRow& a, const GstRow& b) {
  if (a.kind != b.kind) return compareText(a.kind->code, b.kind->code);
  const GstParty &p = *a.party, &q = *b.party;
  std::partial_ordering order = std::partial_ordering::equivalent;
  if (&p != &q && (order = compareText(p.gstin, q.gstin)) != 0) return order;
  if ((order = a.rates <=> b.rates) != 0) return order;
  if (&p != &q && (order = compareText(p.name, q.name)) != 0) return order;
  if ((order = a.roundOff <=> b.roundOff) != 0) return order;
  if ((order = a.amount <=> b.amount) != 0 || &p == &q) return order;
  if ((order = compareText(p.city, q.city)) != 0) return order;
  if ((order = p.stateCode <=> q.stateCode) != 0) return order;
  return compareText(p.code, q.code);
}

void add(std::optional<double>& sum, const std::optional<double>& value) {
  if (value) sum = sum.value_or(0) + *value;
}

void add(GstSums& sums, const GstSums& more) {
  add(sums.taxable, more.taxable);
  add(sums.igst, more.igst);
  add(sums.cgst, more.cgst);
  add(sums.sgst, more.sgst);
  add(sums.net, more.net);
}

}  // namespace

GstStatement::GstStatement(Database& db, const GstQuery& query)
    : db_(db), lines_(selectLines(db, query)), more_(lines_.next()) {
  if (!CheckTable(db, "SUPPLY")) return;
  db.passOver(kOlderBooks, [&] {
    for (const Row& row : db.all("SELECT BOOK_CD, VOUCH_NO, POS FROM SUPPLY WHERE POS <> 0"))
      places_[{row.text(0), row.number(1)}] =
          Format(row.number(2), "00") + "-" + words(stateName(toInt(row.number(2))));
  });
}

bool GstStatement::next() {
  if (++at_ < rows_.size()) return true;
  at_ = 0;
  readBills();
  group();
  return !rows_.empty();
}

// All lines of the next date and bill number.
void GstStatement::readBills() {
  rows_.clear();
  for (; more_; more_ = lines_.next()) {
    const VoucherKind* const kind = kindByBook(lines_.text(kBook));
    const double voucher = lines_.number(kVoucher);
    // The lines of a bill share its head.
    const bool same = !rows_.empty() && rows_.back().kind == kind && rows_.back().voucher == voucher;
    GstRow row = same ? rows_.back() : GstRow{.kind = kind, .voucher = voucher};
    if (row.party == nullptr) {
      readHead(lines_, row);
      const auto place = kind ? places_.find({kind->code, voucher}) : places_.end();
      if (place != places_.end()) row.place = place->second;
    }
    if (!rows_.empty() && (row.date != rows_[0].date || !sameText(row.bill, rows_[0].bill))) return;
    row.party = party(lines_.value(kParty).whole());
    readLine(lines_, row);
    rows_.push_back(std::move(row));
  }
}

void GstStatement::group() {
  std::ranges::stable_sort(rows_, [](const GstRow& a, const GstRow& b) { return compare(a, b) < 0; });
  size_t last = 0;
  for (size_t i = 1; i < rows_.size(); ++i)
    if (compare(rows_[last], rows_[i]) == 0)
      add(rows_[last].sums, rows_[i].sums);
    else if (++last != i)
      rows_[last] = std::move(rows_[i]);
  if (!rows_.empty()) rows_.resize(last + 1);
}

const GstParty* GstStatement::party(std::int64_t rowid) {
  const auto known = parties_.find(rowid);
  if (known != parties_.end()) return &known->second;
  const auto found = *db_.first(
      "SELECT ACC_CD, ACC_NAME, GSTINNO, CITY, STATECD,"
      " CASE WHEN STATECD < 10 THEN '0' ELSE '' END || TRIM(STR(STATECD)) || '-' || CITY AS STAT"
      " FROM ACCOUNT WHERE rowid = ?",
      rowid);
  const auto state = found.isNull("STATECD") ? std::nullopt : std::optional(found.number("STATECD"));
  return &parties_
              .emplace(rowid, GstParty{.code = found.text("ACC_CD"),
                                       .name = found.text("ACC_NAME"),
                                       .gstin = found.text("GSTINNO"),
                                       .city = found.text("CITY"),
                                       .state = found.text("STAT"),
                                       .stateCode = state})
              .first->second;
}

std::string monthEnd(std::string_view from) {
  const std::string month = mid(from, 4, 2);
  const bool thirty = month == "04" || month == "06" || month == "09" || month == "11";
  return (month == "02" ? "28" : thirty ? "30" : "31") + right(from, 8);
}

ToDateRule toDateRule(std::string_view reportKey) {
  return std::ranges::find(kByMonth, reportKey) == std::end(kByMonth) ? nullptr : &monthEnd;
}
