#include "formats/blocks.h"
#include "formats/styles.h"

namespace formats {

namespace figures {

std::string discount(int slot) {
  return "ROUND(ROUND(" + Bill::figure(slot, "SALEITM.QUANTITY") + "*" + Bill::figure(slot, "SALEITM.RATE") +
         ",2)*" + Bill::figure(slot, "SALEITM.SALE_DISC") + "/100,2)";
}

std::string taxRate(int slot) {
  return Bill::figure(slot, "SALEITM.CGSTRT") + "+" + Bill::figure(slot, "SALEITM.SGSTRT") + "+" +
         Bill::figure(slot, "SALEITM.IGSTRT");
}

std::string tax(int slot) {
  return Bill::figure(slot, "SALEITM.CGSTAMT") + "+" + Bill::figure(slot, "SALEITM.SGSTAMT") + "+" +
         Bill::figure(slot, "SALEITM.IGSTAMT");
}

std::string taxable(int slot) {
  return Bill::figure(slot, "SALEITM.AMOUNT") + "+N(" + Bill::figure(slot, "SALEITM.DISC4") + ")";
}

// Not SALEITM.NET_AMOUNT: it may differ by a paisa from what it is the total of.
std::string net(int slot) { return taxable(slot) + "+" + tax(slot); }

}  // namespace figures

void tableHead(Sheet& sheet, int row, const std::vector<LineColumn>& columns, const TableStyle& style) {
  const Style head{
      .size = style.size,
      .bold = true,
      .colour = kInk,
      .fill = kTint,
      .across = Across::Centre,
      .wrap = true,
      .edges = {style.beside, Edge::Thin, style.beside, Edge::Thin}
  };
  for (size_t i = 0; i < columns.size(); ++i) {
    const auto& column = columns[i];
    Style own = head;
    if (i == 0) own.edges.left = Edge::Thin;
    if (i + 1 == columns.size()) own.edges.right = Edge::Thin;
    if (column.group.empty()) {
      sheet.text(at(row, column.columns, style.headRows), own, column.title);
      continue;
    }
    sheet.text(at(row + 1, column.columns), own, column.title);
    if (i > 0 && columns[i - 1].group == column.group) continue;
    size_t last = i;
    while (last + 1 < columns.size() && columns[last + 1].group == column.group) ++last;
    sheet.text(at(row, {column.columns.left, columns[last].columns.right}), own, column.group);
  }
}

namespace {

Style lineStyle(LineColumn::Kind kind, double size) {
  using Kind = LineColumn::Kind;
  Style style{.size = size, .across = Across::Right, .shrink = true};
  switch (kind) {
    case Kind::Serial:
    case Kind::Text:
      style.across = Across::Centre;
      break;
    case Kind::Description:
      style.across = Across::Left;
      break;
    case Kind::Money:
      style.number = kMoney;
      break;
    case Kind::Rate:
      style.number = kRate;
      break;
    case Kind::Plain:
      break;
  }
  return style;
}

std::string lineFormula(const LineColumn& column, int slot) {
  using Kind = LineColumn::Kind;
  const auto row = Bill::slotRow(slot);
  switch (column.kind) {
    case Kind::Serial:
      return "IF(" + row + "=0,\"\"," + std::to_string(slot) + ")";
    case Kind::Description:
      return Bill::slotDescription(slot);
    case Kind::Text:
      return shown(Bill::slot(slot, column.field));
    default:
      return "IF(" + row + "=0,\"\"," +
             unlessZero(column.figure ? column.figure(slot) : Bill::figure(slot, column.field)) + ")";
  }
}

}  // namespace

void slots(Sheet& sheet, int row, int count, int firstSlot, const std::vector<LineColumn>& columns,
           const TableStyle& table) {
  for (int i = 0; i < count; ++i)
    for (size_t c = 0; c < columns.size(); ++c) {
      Style style = lineStyle(columns[c].kind, table.size);
      if (columns[c].kind == LineColumn::Kind::Description && table.wrap) {
        style.wrap = true;
        style.shrink = false;
      }
      style.edges = {c == 0 ? Edge::Thin : table.beside, i == 0 ? Edge::None : table.between,
                     c + 1 == columns.size() ? Edge::Thin : table.beside, Edge::None};
      sheet.formula(at(row + i, columns[c].columns), style, lineFormula(columns[c], firstSlot + i));
    }
}

void sumsRow(Sheet& sheet, int row, Columns label, const std::string& text,
             const std::vector<LineColumn>& columns, const SumOf& sum, const TableStyle& table) {
  Style name{.size = table.size, .bold = true, .fill = kTint, .across = Across::Right, .shrink = true};
  name.indent = 1;
  name.edges = {Edge::Thin, Edge::Thin, table.beside, Edge::Thin};
  sheet.formula(at(row, label), name, text);
  for (const auto& column : columns) {
    if (column.columns.left <= label.right) continue;
    Style style = lineStyle(column.kind, table.size);
    style.across = Across::Right;
    style.bold = true;
    style.fill = kTint;
    const bool last = &column == &columns.back();
    style.edges = {table.beside, Edge::Thin, last ? Edge::Thin : table.beside, Edge::Thin};
    const auto own = sum(column);
    if (own.empty())
      sheet.blank(at(row, column.columns), style);
    else
      sheet.formula(at(row, column.columns), style, unlessZero(own));
  }
}

SumOf pageSums(const Form& form, int page) {
  return [&form, page](const LineColumn& column) {
    return column.summed ? sumOfPage(form, page, column.columns.left) : std::string();
  };
}

SumOf sumsUpTo(const Form& form, int page) {
  return [&form, page](const LineColumn& column) {
    return column.summed ? sumUpTo(form, page, column.columns.left) : std::string();
  };
}

SumOf lastPageSums(const Form& form, const Bill& bill) {
  return [&form, pages = bill.pages](const LineColumn& column) {
    return column.summed ? sumOfLastPage(form, pages, column.columns.left) : std::string();
  };
}

SumOf billSums(const Form& form) {
  return [&form](const LineColumn& column) {
    if (!column.total.empty()) return column.total;
    return column.summed ? sumUpTo(form, form.pages, column.columns.left) : std::string();
  };
}

void pageSummary(Sheet& sheet, int row, const PageSums& sums, const Form& form, const Bill& bill,
                 double size) {
  const auto edges = [](int i) {
    return Edges{Edge::Thin, i == 0 ? Edge::None : Edge::Faint, Edge::Thin, Edge::None};
  };
  const auto onPage = [&](int page, const std::string& text) {
    return "IF(" + std::to_string(page) + ">" + bill.pages + ",\"\"," + text + ")";
  };
  const auto number = [](int n) { return std::to_string(n); };
  const Style head{.size = size - 0.5,
                   .bold = true,
                   .colour = kQuiet,
                   .across = Across::Centre,
                   .shrink = true,
                   .edges = around(Edge::Thin)};
  Style words{.size = size, .across = Across::Centre, .shrink = true};
  Style figure{.size = size, .across = Across::Right, .shrink = true, .number = kMoney};
  const int last = row + form.pages + 1;

  const auto label = [&](Columns where, const char* title, const char* total, const auto& ofPage) {
    if (where.none()) return;
    sheet.text(at(row, where), head, title);
    for (int page = 1; page <= form.pages; ++page)
      sheet.formula(at(row + page, where), with(words, edges(page - 1)), onPage(page, ofPage(page)));
    Style sum = with(words, around(Edge::Thin));
    sum.bold = true;
    sheet.text(at(last, where), sum, total);
  };
  label(sums.page, "Page", "Total", number);
  label(sums.lines, "Lines", "", [&](int page) {
    return quoted(number((page - 1) * form.slots + 1) + " - ") + "&MIN(" + number(page * form.slots) + "," +
           bill.lines + ")";
  });
  for (const auto& column : sums.columns) {
    sheet.text(at(row, column.columns), head, column.title);
    for (int page = 1; page <= form.pages; ++page)
      sheet.formula(at(row + page, column.columns), with(figure, edges(page - 1)),
                    onPage(page, unlessZero(sumOfPage(form, page, column.of))));
    Style total = with(figure, around(Edge::Thin));
    total.bold = true;
    sheet.formula(at(last, column.columns), total, unlessZero(sumUpTo(form, form.pages, column.of)));
  }
}

void continued(Sheet& sheet, Cells where, int page, const Bill& bill, double size) {
  sheet.formula(
      where,
      {.size = size, .italic = true, .colour = kQuiet, .across = Across::Centre, .edges = around(Edge::Thin)},
      quoted("Continued on page " + std::to_string(page + 1) + " of ") + "&" + bill.pages);
}

}  // namespace formats
