#include "store/row_writer.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "store/engine.h"

namespace {

std::optional<Value> fittingNumber(const Value& value) {
  if (!value.isText()) return value;
  if (!isNumberText(value.text())) return {};
  return Value(value.number());
}

std::optional<Value> fittingWhole(const Value& value) {
  const auto number = fittingNumber(value);
  if (!number) return {};
  const double whole = std::nearbyint(number->number());
  if (std::fabs(whole) > 2147483647.0) return {};
  return Value(whole);
}

std::optional<Value> fittingDate(const Value& value) {
  if (!value.isText()) return {};
  if (const auto date = parseDate(value.text())) return Value(*date);
  if (const auto clock = parseClock(value.text())) return Value(*clock);
  return {};
}

std::optional<Value> fittingText(const Value& value, int size) {
  std::string text = value.text();
  if (size > 0 && length(text) > size) return {};
  return Value(std::move(text));
}

// The fields that can be written, in the form that their columns keep.
Fields writable(Database& db, std::string_view table, const Fields& fields) {
  const auto& columns = db.columns(table);
  Fields result;
  result.reserve(fields.size());
  // Behind the last one first, since rows are mostly written in the order of their columns.
  auto next = columns.begin();
  for (const auto& field : fields) {
    const auto named = [&](const Column& c) {
      return c.name.size() == field.column.size() && sameText(c.name, field.column);
    };
    auto column = std::find_if(next, columns.end(), named);
    if (column == columns.end() && (column = std::find_if(columns.begin(), next, named)) == next) continue;
    next = column + 1;
    if (auto value = fitting(*column, field.value)) result.push_back({column->name, std::move(*value)});
  }
  return result;
}

struct Statement {
  std::string sql;
  std::vector<Value> values;
};

Statement insertion(Database& db, std::string_view table, const Fields& fields) {
  const Fields fit = writable(db, table, fields);
  Statement all;
  std::string names;
  std::string marks;
  for (const auto& field : fit) {
    names += (names.empty() ? "" : ", ") + quotedName(field.column);
    marks += marks.empty() ? "?" : ", ?";
    all.values.push_back(field.value);
  }
  all.sql = "INSERT INTO " + quotedName(table) +
            (fit.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + marks + ")");
  return all;
}

// Empty where nothing can be written.
Statement change(Database& db, std::string_view table, const Fields& fields, std::string_view where,
                 const std::vector<Value>& values) {
  Statement all;
  std::string sets;
  for (const auto& field : writable(db, table, fields)) {
    sets += (sets.empty() ? "" : ", ") + quotedName(field.column) + " = ?";
    all.values.push_back(field.value);
  }
  if (sets.empty()) return all;
  all.sql = "UPDATE " + quotedName(table) + " SET " + sets + " WHERE " + std::string(where);
  all.values.insert(all.values.end(), values.begin(), values.end());
  return all;
}

}  // namespace

std::optional<Value> fitting(const Column& column, const Value& value) {
  if (value.isNull()) return value;
  switch (column.kind) {
    case Column::Kind::number:
      return fittingNumber(value);
    case Column::Kind::whole:
      return fittingWhole(value);
    case Column::Kind::date:
      return fittingDate(value);
    case Column::Kind::text:
      return fittingText(value, column.size);
    case Column::Kind::other:
      break;
  }
  return value;
}

std::int64_t insertRow(Database& db, std::string_view table, const Fields& fields) {
  const Statement all = insertion(db, table, fields);
  db.exec(all.sql, all.values);
  return insertedRow(db);
}

void insertLater(Database& db, std::string_view table, const Fields& fields) {
  const Statement all = insertion(db, table, fields);
  db.later(all.sql, all.values);
}

void insertMany(Database& db, const std::string& into, const std::string& row,
                const std::vector<Value>& values) {
  constexpr size_t kFew = 8, kMost = 64;
  const auto each = std::ranges::count(row, '?');
  for (auto at = values.begin(); at != values.end();) {
    const auto left = static_cast<size_t>((values.end() - at) / each);
    // Of few lengths, so that a statement that was prepared serves again.
    const size_t rows = left <= kFew ? left : std::min(kMost, std::bit_floor(left));
    const auto next = at + static_cast<std::ptrdiff_t>(rows) * each;
    db.later(into + " VALUES " + join(std::vector<std::string>(rows, row), ", "),
             std::vector<Value>(at, next));
    at = next;
  }
}

int updateRows(Database& db, std::string_view table, const Fields& fields, std::string_view where,
               const std::vector<Value>& values) {
  const Statement all = change(db, table, fields, where, values);
  return all.sql.empty() ? 0 : db.exec(all.sql, all.values);
}

void updateLater(Database& db, std::string_view table, const Fields& fields, std::string_view where,
                 const std::vector<Value>& values) {
  const Statement all = change(db, table, fields, where, values);
  if (!all.sql.empty()) db.later(all.sql, all.values);
}
