#include "store/rowset.h"

#include <algorithm>
#include <unordered_set>

namespace {

// More than any voucher has lines; a long master does not pile up.
constexpr size_t keptRows = 2000;

}  // namespace

std::string literalPattern(std::string_view typed) {
  std::string pattern = "%";
  for (const char c : typed) {
    if (c == '%' || c == '_' || c == '\\') pattern += '\\';
    pattern += c;
  }
  return pattern + "%";
}

Rowset::Rowset(Database& db, RowsetSource source) : db_(db), source_(std::move(source)) {
  std::vector<std::string> names;
  for (const auto& column : db_.columns(source_.table)) names.push_back(column.name);
  const size_t count = names.size();
  empty_ = Row(std::make_shared<const ColumnNames>(std::move(names)), std::vector<Value>(count));
  requery();
}

void Rowset::requery() {
  std::string where = source_.where;
  std::vector<Value> values = source_.values;
  if (!filterText_.empty()) {
    where = (where.empty() ? "" : "(" + where + ") AND ") + "NUMTEXT(" + quotedName(filterColumn_) +
            ") LIKE ? ESCAPE '\\'";
    values.emplace_back(literalPattern(filterText_));
  }
  read_.clear();
  rowids_.clear();
  auto rows =
      db_.query("SELECT rowid FROM " + quotedName(source_.table) + (where.empty() ? "" : " WHERE " + where) +
                    " ORDER BY " + (source_.order.empty() ? "" : source_.order + ", ") + "rowid",
                values);
  while (rows.next()) rowids_.push_back(rows.value(0).whole());
  position_ = 0;
}

void Rowset::moveTo(int absolutePosition) { position_ = std::clamp(absolutePosition - 1, -1, count()); }

bool Rowset::find(std::string_view column, const Value& value) {
  std::unordered_set<std::int64_t> found;
  auto rows = db_.query(
      "SELECT rowid FROM " + quotedName(source_.table) + " WHERE " + quotedName(column) + " = ?", value);
  while (rows.next()) found.insert(rows.value(0).whole());
  const auto at =
      std::find_if(rowids_.begin(), rowids_.end(), [&](std::int64_t id) { return found.contains(id); });
  position_ = static_cast<int>(at - rowids_.begin());
  return at != rowids_.end();
}

void Rowset::filter(std::string_view column, std::string_view typed) {
  filterColumn_ = column;
  filterText_ = typed;
  requery();
}

const Row& Rowset::rowAt(int index) {
  if (index < 0 || index >= count()) return empty_;
  const auto id = rowids_[static_cast<size_t>(index)];
  if (const auto known = read_.find(id); known != read_.end()) return known->second;
  if (read_.size() >= keptRows) read_.clear();
  return read_
      .emplace(
          id,
          db_.first("SELECT * FROM " + quotedName(source_.table) + " WHERE rowid = ?", id).value_or(empty_))
      .first->second;
}

void Rowset::addNew(const Fields& fields) {
  rowids_.push_back(insertRow(db_, source_.table, fields));
  position_ = count() - 1;
}

void Rowset::update(const Fields& fields) {
  if (bof() || eof()) return;
  const auto id = rowids_[static_cast<size_t>(position_)];
  updateRows(db_, source_.table, fields, "rowid = ?", {id});
  read_.erase(id);
}

void Rowset::remove() {
  if (bof() || eof()) return;
  const auto id = rowids_[static_cast<size_t>(position_)];
  db_.exec("DELETE FROM " + quotedName(source_.table) + " WHERE rowid = ?", id);
  read_.erase(id);
  rowids_.erase(rowids_.begin() + position_);
}
