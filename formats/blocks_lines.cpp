#include "formats/blocks.h"
#include "formats/styles.h"

namespace formats {

namespace {

std::string range(char column, int first, int last) {
  return std::string(1, column) + std::to_string(first) + ":" + column + std::to_string(last);
}

}  // namespace

void tableHead(Sheet& sheet, int row, const std::vector<LineColumn>& columns) {
  const Style head{.size = 7.5,
                   .bold = true,
                   .colour = kInk,
                   .fill = kTint,
                   .across = Across::Centre,
                   .wrap = true,
                   .edges = around(Edge::Thin)};
  for (size_t i = 0; i < columns.size(); ++i) {
    const auto& column = columns[i];
    if (column.group.empty()) {
      sheet.text(at(row, column.columns, 2), head, column.title);
      continue;
    }
    sheet.text(at(row + 1, column.columns), head, column.title);
    if (i > 0 && columns[i - 1].group == column.group) continue;
    size_t last = i;
    while (last + 1 < columns.size() && columns[last + 1].group == column.group) ++last;
    sheet.text(at(row, {column.columns.left, columns[last].columns.right}), head, column.group);
  }
}

namespace {

Style lineStyle(LineColumn::Kind kind) {
  using Kind = LineColumn::Kind;
  switch (kind) {
    case Kind::Serial:
      return {.size = 7.5, .across = Across::Centre, .shrink = true};
    case Kind::Description:
      return {.size = 7.5, .wrap = true};
    case Kind::Text:
      return {.size = 7.5, .across = Across::Centre, .shrink = true};
    case Kind::Plain:
      return {.size = 7.5, .across = Across::Right, .shrink = true};
    case Kind::Money:
      return {.size = 7.5, .across = Across::Right, .shrink = true, .number = kMoney};
    default:
      return {.size = 7.5, .across = Across::Right, .shrink = true, .number = kRate};
  }
}

std::string lineFormula(const LineColumn& column, int slot) {
  using Kind = LineColumn::Kind;
  switch (column.kind) {
    case Kind::Serial:
      return "IF(" + Bill::slotRow(slot) + "=0,\"\"," + std::to_string(slot) + ")";
    case Kind::Description:
      return Bill::slotDescription(slot);
    case Kind::Text:
      return shown(Bill::slot(slot, column.field));
    default:
      break;
  }
  const auto row = Bill::slotRow(slot);
  const auto field = Bill::slot(slot, column.field);
  const auto inner = field.substr(field.find("INDEX("), field.size() - field.find("INDEX(") - 1);
  return "IF(" + row + "=0,\"\"," + unlessZero(inner) + ")";
}

}  // namespace

void slots(Sheet& sheet, int row, int count, int firstSlot, const std::vector<LineColumn>& columns) {
  for (int i = 0; i < count; ++i)
    for (const auto& column : columns) {
      Style style = lineStyle(column.kind);
      style.edges = {Edge::Thin, i == 0 ? Edge::None : Edge::Faint, Edge::Thin, Edge::None};
      sheet.formula(at(row + i, column.columns), style, lineFormula(column, firstSlot + i));
    }
}

namespace {

Style totalStyle(LineColumn::Kind kind) {
  Style style = lineStyle(kind);
  style.across = Across::Right;
  style.bold = true;
  style.fill = kTint;
  style.shrink = true;
  style.wrap = false;
  style.edges = around(Edge::Thin);
  return style;
}

}  // namespace

void totalRow(Sheet& sheet, int row, Columns label, const std::string& text,
              const std::vector<LineColumn>& columns) {
  Style style = totalStyle(LineColumn::Kind::Text);
  style.size = 8;
  style.indent = 1;
  sheet.formula(at(row, label), style, text);
  for (const auto& column : columns) {
    if (column.columns.left <= label.right) continue;
    if (column.total.empty())
      sheet.blank(at(row, column.columns), totalStyle(column.kind));
    else
      sheet.formula(at(row, column.columns), totalStyle(column.kind), amount(column.total));
  }
}

void carriedRow(Sheet& sheet, int row, Columns label, int firstSlotRow, int lastSlotRow, int carriedBefore,
                const std::vector<LineColumn>& columns) {
  Style style = totalStyle(LineColumn::Kind::Text);
  style.size = 8;
  style.indent = 1;
  sheet.text(at(row, label), style, "Carried forward");
  for (const auto& column : columns) {
    const char c = column.columns.left;
    if (c <= label.right) continue;
    if (!column.summed) {
      sheet.blank(at(row, column.columns), totalStyle(column.kind));
      continue;
    }
    auto total = sum(range(c, firstSlotRow, lastSlotRow));
    if (carriedBefore > 0)
      total = sum(range(c, firstSlotRow, lastSlotRow) + "," + c + std::to_string(carriedBefore));
    sheet.formula(at(row, column.columns), totalStyle(column.kind), unlessZero(total));
  }
}

}  // namespace formats
