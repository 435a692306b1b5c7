#include "vouchers/work_lines.h"

#include <utility>

#include "base/pattern.h"
#include "base/text.h"

WorkLines::WorkLines(Database& db, const VoucherKind& kind, std::vector<Shown> shown)
    : db_(db),
      kind_(kind),
      shown_(std::move(shown)),
      rows_(db, {.table = kind.tables.work, .order = "VOUCH_NO, " + kind.tables.serial}) {}

Cell WorkLines::cell(size_t row, size_t column) const {
  if (row >= count() || column >= shown_.size()) return {};
  const Shown& shown = shown_[column];
  const Value& value = rows_.rowAt(static_cast<int>(row)).value(shown.column);
  if (!shown.zero && value.number() == 0) return {};
  return {.text = shown.pattern.empty() ? value.text() : Format(value.number(), shown.pattern)};
}

void WorkLines::clear() {
  db_.exec("DELETE FROM " + kind_.tables.work);
  requery();
}

void WorkLines::previous() {
  if (rows_.absolutePosition() > 1) rows_.movePrevious();
}

double WorkLines::serial() {
  if (onRow()) return rows_.number(kind_.tables.serial);
  return db_.number("SELECT MAX(" + kind_.tables.serial + ") FROM " + kind_.tables.work) + 1;
}

std::vector<std::optional<double>> WorkLines::sums(const std::vector<std::string>& columns) {
  const auto found = db_.first("SELECT SUM(" + join(columns, "), SUM(") + ") FROM " + kind_.tables.work);
  std::vector<std::optional<double>> sums(columns.size());
  for (size_t i = 0; found && i < sums.size(); ++i)
    if (const int column = static_cast<int>(i); !found->isNull(column)) sums[i] = found->number(column);
  return sums;
}

void WorkLines::store(const Fields& line) {
  if (onRow())
    rows_.update(line);
  else
    rows_.addNew(line);
}
