#include "masters/page_rows.h"

#include <algorithm>

#include "base/text.h"

namespace {

constexpr size_t kPageRows = 64, kPagesKept = 8;

bool isDate(const std::string& type) { return startsWithNoCase(type, "DATE"); }

std::string shown(const std::string& text, const std::string& type) {
  if (!isDate(type)) return text;
  const auto date = parseDate(text);
  return date ? formatDate(*date, "dd/MMM/yyyy") : text;
}

}  // namespace

PageRows::PageRows(Database& database, Select select, const std::string& beginOn)
    : database_(database), select_(std::move(select)) {
  if (select_.columns.empty()) return;
  // A column that no longer exists, a table that is gone: the list stays empty.
  database_.attempt([&] {
    {
      auto values = select_.values;
      values.insert(values.end(), {Value(0), Value(0)});
      const auto rows = database_.query(pageText(select_), values);
      for (int i = 0; i < rows.count(); ++i) columns_.push_back({rows.names().at(i), rows.declaredType(i)});
    }
    if (beginOn.empty())
      countAll();
    else
      countUpTo(beginOn);
    return 0;
  });
}

void PageRows::countAll() {
  count_ = static_cast<size_t>(database_.number(countText(select_), select_.values));
}

// Counts all rows and, in the same pass, those that stand before the wanted one by the first term
// of the order; from there on the rows of equal value are looked through.
void PageRows::countUpTo(const std::string& code) {
  constexpr size_t kLookThrough = 256;
  const OrderTerm order = firstOrder(select_);
  const bool plain =
      !select_.distinct && select_.group.empty() && !order.expression.empty() && !order.descending;

  Select wanted = filtered(select_, select_.columns[0].expression + " = ?", {code});
  wanted.order.clear();
  wanted.columns = {
      {plain ? order.expression : "1", "wanted"}
  };
  const auto row = database_.first(selectText(wanted) + " LIMIT 1", wanted.values);
  if (!row || !plain || row->isNull(0)) {
    countAll();
    begin_ = row ? walkTo(code) : 0;
    return;
  }

  Select both = select_;
  both.order.clear();
  both.columns = {
      {"COUNT(*)",                                                                "rows"  },
      {"TOTAL(" + order.expression + " < ? OR " + order.expression + " IS NULL)", "before"}
  };
  both.values.insert(both.values.begin(), row->value(0));
  const auto counts = database_.first(selectText(both), both.values);
  count_ = static_cast<size_t>(counts->number(0));
  markRow_ = static_cast<size_t>(counts->number(1));
  mark_ = row->value(0);
  for (size_t i = markRow_; i < count_ && i < markRow_ + kLookThrough; ++i) {
    if (!sameText(text(i, 0), code)) continue;
    begin_ = i;
    return;
  }
  begin_ = walkTo(code);
}

size_t PageRows::walkTo(const std::string& code) const {
  size_t row = 0;
  for (auto rows = database_.query(firstColumnText(select_), select_.values); rows.next(); ++row)
    if (sameText(rows.text(0), code)) return row;
  return 0;
}

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
      marked ? filtered(select_, firstOrder(select_).expression + " >= ?", {*mark_}) : select_;
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

Cell PageRows::cell(size_t row, size_t column) const {
  Cell cell;
  try {
    cell.text = text(row, column);
  } catch (const DatabaseError&) {
    // The next handler that reads the row tells the reason.
  }
  return cell;
}

std::string PageRows::text(size_t row, size_t column) const {
  if (row >= count_ || column >= columns_.size()) return {};
  const Page& p = page(pageOf(row));
  const size_t at = row - firstRow(p.number);
  return at < p.rows.size() ? p.rows[at][column] : std::string();
}

std::string filterText(const std::string& expression, const std::string& declaredType) {
  if (startsWithNoCase(declaredType, "TEXT")) return expression;
  if (isDate(declaredType)) return "FORMAT(" + expression + ", 'dd/mmm/yyyy')";
  return "NUMTEXT(" + expression + ")";
}
