#include "platform/workbook/model.h"

#include <algorithm>

#include "base/text.h"
#include "platform/workbook/decimal.h"

namespace workbook {
namespace {

bool before(const Cell& cell, int column) { return cell.column < column; }

}  // namespace

const Cell* Row::find(int column) const {
  const auto found = std::lower_bound(cells.begin(), cells.end(), column, before);
  return found != cells.end() && found->column == column ? &*found : nullptr;
}

Cell& Row::at(int column) {
  if (cells.empty() || cells.back().column < column) return cells.emplace_back(Cell{.column = column});
  const auto found = std::lower_bound(cells.begin(), cells.end(), column, before);
  return found->column == column ? *found : *cells.insert(found, Cell{.column = column});
}

const Cell* SheetModel::cell(int row, int column) const {
  const auto found = rows.find(row);
  return found == rows.end() ? nullptr : found->second.find(column);
}

Cell* SheetModel::cell(int row, int column) {
  const auto found = rows.find(row);
  return found == rows.end() ? nullptr : found->second.find(column);
}

const ColumnSpan* SheetModel::span(int column) const {
  for (const ColumnSpan& span : columns)
    if (column >= span.first && column <= span.last) return &span;
  return nullptr;
}

uint32_t SheetModel::styleAt(int row, int column) const {
  const auto found = rows.find(row);
  if (found != rows.end()) {
    if (const Cell* cell = found->second.find(column)) return cell->style;
    if (found->second.style) return *found->second.style;
  }
  const ColumnSpan* own = span(column);
  return own ? own->style.value_or(0) : 0;
}

int Model::sheet(std::string_view name) const {
  for (size_t i = 0; i < sheets.size(); ++i)
    if (sameText(sheets[i].name, name)) return static_cast<int>(i);
  return -1;
}

double Model::nowSerial() const { return now ? *now : systemNow(); }

std::string Model::place(int sheet, int row, int column) const {
  return sheets[static_cast<size_t>(sheet)].name + "!" + cellName(row, column);
}

}  // namespace workbook
