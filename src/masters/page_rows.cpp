#include "masters/page_rows.h"

#include <algorithm>

#include "base/text.h"

namespace {

constexpr size_t kPageRows = 64, kPagesKept = 8, kCountAhead = 1000;

bool isDate(const std::string& type) { return startsWithNoCase(type, "DATE"); }

std::string shown(const std::string& text, const std::string& type) {
  if (!isDate(type)) return text;
  const auto date = parseDate(text);
  return date ? formatDate(*date, "dd/MMM/yyyy") : text;
}

}  // namespace

PageRows::PageRows(Database& database, Select select, Counting counting, const std::string& beginOn)
    : database_(database), select_(std::move(select)) {
  if (select_.columns.empty()) return;
  // A column that no longer exists, a table that is gone: the list stays empty.
  database_.passOver(kOtherTrades, [&] {
    readColumns();
    if (!beginOn.empty()) beginWith(beginOn);
    if (counting == Counting::Whole)
      countAll();
    else
      reach(begin_);
  });
}

void PageRows::readColumns() {
  auto values = select_.values;
  values.insert(values.end(), {Value(0), Value(0)});
  const auto rows = database_.query(pageText(select_), values);
  for (int i = 0; i < rows.count(); ++i) columns_.push_back({rows.names().at(i), rows.declaredType(i)});
}

// Counting

void PageRows::countAll() {
  count_ = static_cast<size_t>(database_.number(countText(select_), select_.values));
  counted_ = true;
}

void PageRows::reach(size_t row) {
  // A first page that is not full tells the count without another pass over what a filter left.
  if (!counted_ && count_ == 0 && begin_ == 0) {
    const Page& first = page(0);
    count_ = first.rows.size();
    counted_ = count_ < firstRow(1);
  }
  // Each step goes further, so that walking to the end counts no row often.
  while (!counted_ && row + kPageRows >= count_) countTo(std::max(row, 4 * count_) + kCountAhead);
}

void PageRows::countTo(size_t most) {
  auto values = select_.values;
  values.emplace_back(most);
  count_ = static_cast<size_t>(database_.number(countUpToText(select_), values));
  counted_ = count_ < most;
}

// Counts the rows that stand before the wanted one by the first term of the order; from there on
// the rows of equal value are looked through.
void PageRows::beginWith(const std::string& code) {
  constexpr size_t kLookThrough = 256;
  const OrderTerm* const order = firstOrder(select_);
  const bool plain = !select_.distinct && order && !order->descending;

  Select wanted = filtered(select_, select_.columns[0].expression + " = ?", {code});
  wanted.order.clear();
  wanted.columns = {{plain ? order->expression : "1"}};
  const auto found = database_.first(selectText(wanted) + " LIMIT 1", wanted.values);
  if (!found) return;
  if (plain && !found->isNull(0)) {
    const Select before =
        filtered(select_, order->expression + " < ? OR " + order->expression + " IS NULL", {found->value(0)});
    markRow_ = static_cast<size_t>(database_.number(countText(before), before.values));
    mark_ = found->value(0);
    for (begin_ = markRow_; begin_ < markRow_ + kLookThrough; ++begin_) {
      const auto* const texts = row(begin_);
      if (!texts) break;
      if (sameText(texts->front(), code)) return;
    }
  }
  begin_ = walkTo(code);
}

size_t PageRows::walkTo(const std::string& code) const {
  size_t row = 0;
  for (auto rows = database_.query(firstColumnText(select_), select_.values); rows.next(); ++row)
    if (sameText(rows.text(0), code)) return row;
  return 0;
}

// Reading

// Pages are laid so that one of them begins at the mark.
size_t PageRows::pageOf(size_t row) const { return (row + pageShift()) / kPageRows; }
size_t PageRows::firstRow(size_t page) const { return page == 0 ? 0 : page * kPageRows - pageShift(); }
size_t PageRows::pageShift() const { return (kPageRows - markRow_ % kPageRows) % kPageRows; }

const PageRows::Page& PageRows::page(size_t number) const {
  const auto kept = std::ranges::find(pages_, number, &Page::number);
  if (kept != pages_.end()) {
    std::rotate(pages_.begin(), kept, kept + 1);
    return pages_.front();
  }
  Page read{.number = number, .rows = {}};
  const size_t first = firstRow(number), length = firstRow(number + 1) - first;
  const bool marked = mark_ && first >= markRow_;
  const Select from =
      marked ? filtered(select_, firstOrder(select_)->expression + " >= ?", {*mark_}) : select_;
  auto values = from.values;
  values.insert(values.end(), {Value(length), Value(first - (marked ? markRow_ : 0))});
  for (auto rows = database_.query(pageText(from), values); rows.next();) {
    std::vector<std::string> texts;
    for (int i = 0; i < rows.count(); ++i)
      texts.push_back(shown(rows.text(i), columns_[static_cast<size_t>(i)].type));
    read.rows.push_back(std::move(texts));
  }
  if (pages_.size() == kPagesKept) pages_.pop_back();
  pages_.push_front(std::move(read));
  return pages_.front();
}

const std::vector<std::string>* PageRows::row(size_t number) const {
  const Page& p = page(pageOf(number));
  const size_t at = number - firstRow(p.number);
  return at < p.rows.size() ? &p.rows[at] : nullptr;
}

Cell PageRows::cell(size_t row, size_t column) const {
  Cell cell;
  try {
    cell.text = text(row, column);
    // The sign's place in front of STR's numbers.
    if (column < columns_.size() && columns_[column].type.empty()) cell.text = ltrim(cell.text);
  } catch (const std::exception& error) {
    logFailure("passed over: the next handler that reads the row tells it", error);
  }
  return cell;
}

std::string PageRows::text(size_t number, size_t column) const {
  if (number >= count_ || column >= columns_.size()) return {};
  const auto* const texts = row(number);
  return texts ? (*texts)[column] : std::string();
}
