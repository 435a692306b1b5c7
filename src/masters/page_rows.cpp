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

PageRows::PageRows(Database& database, Select select) : database_(database), select_(std::move(select)) {
  if (select_.columns.empty()) return;
  // A column that no longer exists, a table that is gone: the list stays empty.
  database_.attempt([&] {
    {
      auto values = select_.values;
      values.insert(values.end(), {Value(0), Value(0)});
      const auto rows = database_.query(pageText(select_), values);
      for (int i = 0; i < rows.count(); ++i) columns_.push_back({rows.names().at(i), rows.declaredType(i)});
    }
    count_ = static_cast<size_t>(database_.number(countText(select_), select_.values));
    return 0;
  });
}

const PageRows::Page& PageRows::page(size_t number) const {
  const auto kept = std::ranges::find(pages_, number, &Page::number);
  if (kept != pages_.end()) {
    std::rotate(pages_.begin(), kept, kept + 1);
    return pages_.front();
  }
  Page read{.number = number, .rows = {}};
  auto values = select_.values;
  values.insert(values.end(), {Value(kPageRows), Value(number * kPageRows)});
  for (auto rows = database_.query(pageText(select_), values); rows.next();) {
    std::vector<std::string> texts;
    for (int i = 0; i < rows.count(); ++i)
      texts.push_back(shown(rows.text(i), columns_[static_cast<size_t>(i)].type));
    read.rows.push_back(std::move(texts));
  }
  if (pages_.size() == kPagesKept) pages_.pop_back();
  pages_.push_front(std::move(read));
  return pages_.front();
}

std::string PageRows::text(size_t row, size_t column) const {
  if (row >= count_ || column >= columns_.size()) return {};
  const Page& p = page(row / kPageRows);
  const size_t at = row % kPageRows;
  return at < p.rows.size() ? p.rows[at][column] : std::string();
}

std::optional<size_t> PageRows::find(size_t column, const std::string& text) const {
  if (count_ == 0) return {};
  size_t row = 0;
  for (auto rows = database_.query(columnText(select_, column), select_.values); rows.next(); ++row)
    if (sameText(rows.text(0), text)) return row;
  return {};
}

std::string filterText(const std::string& expression, const std::string& declaredType) {
  if (startsWithNoCase(declaredType, "TEXT")) return expression;
  if (isDate(declaredType)) return "FORMAT(" + expression + ", 'dd/mmm/yyyy')";
  return "NUMTEXT(" + expression + ")";
}
