#include "reports/report_rows.h"

#include <algorithm>
#include <utility>

#include "base/number.h"
#include "base/pattern.h"
#include "base/words.h"

namespace {

constexpr size_t kRecent = 64;  // main rows whose details are kept: more than stand in view
constexpr const char *kShortDate = "dd/MMM/yyyy", *kDetailDate = "dd/MM/yyyy";
constexpr const char* kMoney = "0.00";
constexpr size_t kExactDigits = 15;

// Up to the last one that has a width.
size_t shownColumns(const std::vector<ReportColumn>& columns) {
  size_t count = columns.size();
  while (count > 0 && columns[count - 1].twips <= 0) --count;
  return count;
}

std::string asDate(const std::string& text, const char* pattern) {
  const auto date = parseDate(text);
  return date ? formatDate(*date, pattern) : text;
}

// Most amounts come as money from the statement already: "12.50", never "012.50".
bool isMoney(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const size_t n = text.size();
  if (n < 4 || n > kExactDigits || text[n - 3] != '.' || (text[0] == '0' && n > 4)) return false;
  return text.find_first_not_of("0123456789") == n - 3 &&
         text.find_first_not_of("0123456789", n - 2) == std::string_view::npos;
}

std::string asMoney(const std::string& text) {
  return text.empty() || isMoney(text) ? text : Format(Val(text), kMoney);
}

ColumnType detailType(const ReportColumn& column) { return column.detail.value_or(column.type); }

std::string detailShown(const ReportColumn& column, const std::string& text) {
  if (detailType(column) == ColumnType::Date) return asDate(text, kDetailDate);
  return column.detail && isFigure(*column.detail) ? asMoney(text) : text;
}

class StatementReading : public ReportReading {
 public:
  StatementReading(Database& db, const Statement& statement)
      : rows_(db.query(statement.text, statement.values)) {}
  const ColumnNames& names() const override { return rows_.names(); }
  bool next() override { return rows_.next(); }
  std::string text(int column) const override { return rows_.text(column); }

 private:
  Rows rows_;
};

std::unique_ptr<ReportReading> readingOf(Database& db, const ReportPlan& plan) {
  return plan.reading ? plan.reading(db) : std::make_unique<StatementReading>(db, plan.rows);
}

}  // namespace

ReportRows::ReportRows(Database& db, const ReportPlan& plan, Colours colours)
    : db_(db),
      plan_(plan),
      colours_(colours),
      reading_(readingOf(db, plan)),
      columns_(plan.columns.begin(), plan.columns.begin() + shownColumns(plan.columns)),
      totals_(columns_.size()) {
  const ColumnNames& names = reading_->names();
  for (size_t i = 0; i < columns_.size(); ++i) {
    const int column = static_cast<int>(i);
    kept_.push_back(column);
    if (columns_[i].heading.empty()) columns_[i].heading = names.at(column);
    summed_ = summed_ || columns_[i].summed;
  }
  if (plan_.details)
    for (const std::string& key : plan_.details->keys) keyPlaces_.push_back(placeOf(key));
  if (plan_.voucher) {
    bookPlace_ = placeOf(plan_.voucher->book);
    numberPlace_ = placeOf(plan_.voucher->number);
  }
  if (plan_.details) countColumn_ = names.index(plan_.details->count);
}

// Where a column of the result is kept as it stands, which it is from now on.
size_t ReportRows::placeOf(const std::string& column) {
  const int index = reading_->names().index(column);
  for (size_t at = 0; at < kept_.size(); ++at) {
    const bool changed = at < columns_.size() && (columns_[at].summed || isDate(at));
    if (kept_[at] == index && !changed) return at;
  }
  kept_.push_back(index);
  return kept_.size() - 1;
}

// Reading

bool ReportRows::read(size_t most) {
  if (!reading_) return false;
  for (; most > 0; --most) {
    if (!reading_->next()) {
      reading_.reset();
      totalled_ = summed_ && size_ > 0;
      return false;
    }
    keep(*reading_);
  }
  return true;
}

void ReportRows::keep(const ReportReading& rows) {
  starts_.push_back(static_cast<uint32_t>(size_));
  for (size_t i = 0; i < columns_.size(); ++i) keepCell(rows, i);
  for (size_t i = columns_.size(); i < kept_.size(); ++i) {
    text_ += rows.text(kept_[i]);
    ends_.push_back(static_cast<uint32_t>(text_.size()));
  }
  size_ += 1;
  // A row without details has a blank one under it.
  if (plan_.details) size_ += std::max<size_t>(1, static_cast<size_t>(Val(rows.text(countColumn_))));
}

void ReportRows::keepCell(const ReportReading& rows, size_t column) {
  std::string shown = rows.text(static_cast<int>(column));
  if (isDate(column)) shown = dateShown(shown);
  if (columns_[column].summed) {
    if (plan_.details) shown = asMoney(shown);
    if (!shown.empty()) totals_[column] = Round(totals_[column] + Val(shown), 2);
  }
  text_ += shown;
  ends_.push_back(static_cast<uint32_t>(text_.size()));
}

// Rows mostly come by date, so the last one shown is often the next one too.
const std::string& ReportRows::dateShown(const std::string& stored) {
  if (stored != lastDate_.stored)
    lastDate_ = {.stored = stored, .shown = asDate(stored, plan_.details ? kDetailDate : kShortDate)};
  return lastDate_.shown;
}

ReportRows::Details ReportRows::readDetails(size_t main) const {
  Details found{.main = main, .rows = {}, .vouchers = {}};
  std::vector<Value> values = plan_.details->rows.values;
  for (std::string& key : keysOf(main)) values.emplace_back(std::move(key));
  auto rows = db_.query(plan_.details->rows.text, values);
  const size_t columns = std::min(static_cast<size_t>(rows.count()), columns_.size());
  while (rows.next()) {
    std::vector<std::string>& cells = found.rows.emplace_back();
    for (size_t i = 0; i < columns; ++i)
      cells.push_back(detailShown(columns_[i], rows.text(static_cast<int>(i))));
    auto& voucher = found.vouchers.emplace_back();
    if (const auto& told = plan_.detailVoucher)
      voucher = VoucherKey{.book = rows.text(told->book), .number = rows.number(told->number)};
  }
  return found;
}

const ReportRows::Details& ReportRows::details(size_t main) const {
  const auto known = std::ranges::find(recent_, main, &Details::main);
  if (known != recent_.end()) return *known;
  try {
    recent_.push_front(readDetails(main));
  } catch (const std::exception& error) {
    logFailure("passed over: the lines stay empty, as does what is drawn", error);
    recent_.push_front({.main = main, .rows = {}, .vouchers = {}});
  }
  if (recent_.size() > kRecent) recent_.pop_back();
  return recent_.front();
}

// Rows

ReportRows::Spot ReportRows::spot(size_t row) const {
  if (!plan_.details) return {.main = row};
  const auto next = std::ranges::upper_bound(starts_, row);
  const size_t main = static_cast<size_t>(next - starts_.begin()) - 1;
  return {.main = main, .detail = row - starts_[main]};
}

std::string_view ReportRows::kept(size_t main, size_t at) const {
  const size_t n = main * kept_.size() + at;
  const size_t from = n == 0 ? 0 : ends_[n - 1];
  return std::string_view(text_).substr(from, ends_[n] - from);
}

Cell ReportRows::cell(size_t row, size_t column) const {
  if (row >= count() || column >= columns_.size()) return {};
  if (row == size_)
    return {.text = column == 0 ? words("Total :") : total(column),
            .back = colours_.total,
            .fontSize = totalSize,
            .bold = true};
  const Spot at = spot(row);
  if (at.detail == 0) return {.text = std::string(kept(at.main, column))};
  const Details& under = details(at.main);
  if (at.detail > under.rows.size()) return {};
  const auto& cells = under.rows[at.detail - 1];
  return {.text = column < cells.size() ? cells[column] : "", .back = colours_.detail};
}

ColumnType ReportRows::type(size_t row, size_t column) const {
  if (column >= columns_.size()) return ColumnType::Text;
  const bool detail = row < size_ && spot(row).detail > 0;
  return detail ? detailType(columns_[column]) : columns_[column].type;
}

std::vector<TypedColumn> ReportRows::outputColumns() const {
  std::vector<TypedColumn> columns;
  for (const ReportColumn& c : columns_)
    columns.push_back(
        {.heading = words(c.heading), .twips = c.twips, .type = c.type, .right = c.summed || c.right});
  return columns;
}

std::string ReportRows::total(size_t column) const {
  return columns_[column].summed ? Format(totals_[column], kMoney) : std::string();
}

// What stands behind a row

std::vector<std::string> ReportRows::keysOf(size_t main) const {
  std::vector<std::string> keys;
  for (const size_t at : keyPlaces_) keys.emplace_back(kept(main, at));
  return keys;
}

std::optional<VoucherKey> ReportRows::voucherOf(size_t main) const {
  if (!plan_.voucher) return {};
  return VoucherKey{.book = std::string(kept(main, bookPlace_)), .number = Val(kept(main, numberPlace_))};
}

std::optional<VoucherKey> ReportRows::voucher(size_t row) const {
  if (row >= size_) return {};
  const Spot at = spot(row);
  if (at.detail == 0 || !plan_.detailVoucher) return voucherOf(at.main);
  const Details& under = details(at.main);
  return at.detail <= under.vouchers.size() ? under.vouchers[at.detail - 1] : std::nullopt;
}

ReportRows::Place ReportRows::place(size_t row) const {
  if (row >= size_) return {.row = row};
  const Spot at = spot(row);
  return {.row = row, .detail = at.detail, .voucher = voucher(row), .keys = keysOf(at.main)};
}

size_t ReportRows::find(const Place& wanted) const {
  for (size_t main = 0; wanted.voucher && main < mains(); ++main) {
    if (keysOf(main) != wanted.keys) continue;
    if (!plan_.detailVoucher && voucherOf(main) != wanted.voucher) continue;
    const size_t first = firstRow(main), after = main + 1 < mains() ? firstRow(main + 1) : size_;
    const size_t same = std::min(first + wanted.detail, after - 1);
    if (!plan_.detailVoucher) return same;
    const auto& under = details(main).vouchers;
    const auto found = std::ranges::find(under, wanted.voucher);
    return found == under.end() ? same : first + 1 + static_cast<size_t>(found - under.begin());
  }
  return std::min(wanted.row, count() == 0 ? 0 : count() - 1);
}
