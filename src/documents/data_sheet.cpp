#include "documents/data_sheet.h"

#include "base/text.h"
#include "documents/words.h"

workbook::Value cellValue(const Value& value, const std::string& declaredType) {
  if (value.isNull()) return {};
  if (value.isNumber()) return value.number();
  if (startsWithNoCase(declaredType, "DATE"))
    if (const auto date = value.date()) return workbook::Value::date(*date);
  return value.text();
}

void DataSheet::set(int row, int column, const workbook::Value& value) {
  if (value.empty() || (value.text() && value.text()->empty())) return;
  cells_[{row, column}] = value;
}

void DataSheet::field(int row, int column, const Row& from, const std::string& name) {
  if (from.has(name)) set(row, column, cellValue(from.value(name)));
}

void DataSheet::words(int row, int column, const Row& from, const std::string& name) {
  if (!from.isNull(name) && from.number(name) != -1) set(row, column, AmountInWords(from.number(name)));
}

void DataSheet::names(int row, int column, const ColumnNames& names) {
  for (int j = 0; j < names.count(); ++j) set(row, column + j, names.at(j));
}

void DataSheet::values(int row, int column, const Rows& rows) {
  for (int j = 0; j < rows.count(); ++j) set(row, column + j, cellValue(rows.value(j), rows.declaredType(j)));
}

int DataSheet::block(Rows found, int namesRow, int firstRow, int column) {
  int count = 0;
  for (; found.next(); ++count) {
    if (count == 0) names(namesRow, column, found.names());
    values(firstRow + count, column, found);
  }
  return count;
}

void DataSheet::fill(workbook::Sheet& sheet) const {
  sheet.clearContents();
  for (const auto& [cell, value] : cells_) sheet.set(cell.first, cell.second, value);
}

workbook::Value DataSheet::at(int row, int column) const {
  const auto cell = cells_.find({row, column});
  return cell == cells_.end() ? workbook::Value{} : cell->second;
}
