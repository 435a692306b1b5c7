#include <functional>

#include "formats/blocks.h"
#include "formats/sheet3.h"
#include "formats/styles.h"

namespace formats {

namespace {

// What one column of the HSN summary shows: a formula over the row of the data sheet, the
// sum of all rows from one on, and the total of the bill.
struct HsnPart {
  Columns columns;
  const char* title;
  int field1, field2, field3;  // added up; 0 for none
  std::string total;
  bool money;
};

std::string added(const HsnPart& part, const std::function<std::string(int)>& each) {
  std::string text;
  for (const int field : {part.field1, part.field2, part.field3})
    if (field > 0) text += (text.empty() ? "" : "+") + each(field);
  return text;
}

}  // namespace

void hsnSummary(Sheet& sheet, int row, int rows, const HsnColumns& columns, const Bill& bill) {
  using namespace sheet3;
  const auto tax = bill.cgst + "+" + bill.sgst + "+" + bill.igst;
  const std::vector<HsnPart> parts = {
      {columns.taxable, "Taxable value", Taxable,  0,        0,        bill.taxable, true },
      {columns.rate,    "GST %",         CgstRate, SgstRate, IgstRate, "",           false},
      {columns.cgst,    "CGST",          Cgst,     0,        0,        bill.cgst,    true },
      {columns.sgst,    "SGST",          Sgst,     0,        0,        bill.sgst,    true },
      {columns.igst,    "IGST",          Igst,     0,        0,        bill.igst,    true },
      {columns.tax,     "Total tax",     Cgst,     Sgst,     Igst,     tax,          true },
  };
  const int lastRow = row + 1 + rows;
  const auto count = "COUNT(" + span(kFirstHsn, kLastHsn, Taxable) + ")";
  const auto fits = [&](int i, const std::string& more, const std::string& own) {
    // More codes than rows: the last row stands for all that are left.
    return i + 1 < rows ? own : "IF(" + count + ">" + std::to_string(rows) + "," + more + "," + own + ")";
  };
  const Style head{
      .size = 7, .bold = true, .colour = kQuiet, .across = Across::Centre, .edges = around(Edge::Thin)};
  const auto edges = [&](int i) {
    return Edges{Edge::Thin, i == 0 ? Edge::None : Edge::Faint, Edge::Thin, Edge::None};
  };

  sheet.text(at(row, columns.code), head, "HSN/SAC");
  Style code{.size = 7.5, .shrink = true, .indent = 1};
  for (int i = 0; i < rows; ++i) {
    const auto others = "\"Others (\"&(" + count + "-" + std::to_string(rows - 1) + ")&\")\"";
    sheet.formula(at(row + 1 + i, columns.code), with(code, edges(i)),
                  fits(i, others, shown(cell(kFirstHsn + i, HsnCode))));
  }
  code.bold = true;
  sheet.text(at(lastRow, columns.code), with(code, around(Edge::Thin)), "Total");

  for (const auto& part : parts) {
    sheet.text(at(row, part.columns), head, part.title);
    Style style{.size = 7.5, .across = Across::Right, .shrink = true, .number = part.money ? kMoney : ""};
    for (int i = 0; i < rows; ++i) {
      const auto own = added(part, [&](int field) { return cell(kFirstHsn + i, field); });
      const auto rest = added(part, [&](int field) { return sum(span(kFirstHsn + i, kLastHsn, field)); });
      sheet.formula(at(row + 1 + i, part.columns), with(style, edges(i)),
                    fits(i, part.money ? unlessZero(rest) : quoted(""), unlessZero(own)));
    }
    style.bold = true;
    style.edges = around(Edge::Thin);
    if (part.total.empty())
      sheet.blank(at(lastRow, part.columns), style);
    else
      sheet.formula(at(lastRow, part.columns), style, unlessZero(part.total));
  }
}

void totalsBox(Sheet& sheet, int row, Columns label, Columns value, const Bill& bill) {
  const std::vector<std::pair<const char*, std::string>> lines = {
      {"Taxable value", bill.taxable },
      {"CGST",          bill.cgst    },
      {"SGST",          bill.sgst    },
      {"IGST",          bill.igst    },
      {"Round off",     bill.roundOff},
  };
  Style name{
      .size = 8, .colour = kQuiet, .indent = 1, .edges = {Edge::Thin, Edge::None, Edge::None, Edge::Faint}
  };
  Style figure{
      .size = 8.5,
      .across = Across::Right,
      .shrink = true,
      .number = kMoney,
      .edges = {Edge::None, Edge::None, Edge::Thin, Edge::Faint}
  };
  for (const auto& [title, reference] : lines) {
    sheet.text(at(row, label), name, title);
    // A format with conditions loses the sign of a negative number in some programs.
    figure.number = reference == bill.roundOff ? "0.00" : kMoney;
    sheet.formula(at(row, value), figure, amount(reference));
    ++row;
  }
  name = {
      .size = 9,
      .bold = true,
      .colour = kAccent,
      .fill = kTint,
      .indent = 1,
      .edges = {Edge::Thin, Edge::Thin, Edge::None, Edge::Thin}
  };
  figure = {
      .size = 13,
      .bold = true,
      .colour = kAccent,
      .fill = kTint,
      .across = Across::Right,
      .shrink = true,
      .number = kRupees,
      .edges = {Edge::None, Edge::Thin, Edge::Thin, Edge::Thin}
  };
  sheet.text(at(row, label, 2), name, "Bill Amount");
  sheet.formula(at(row, value, 2), figure, bill.net);
}

void wordsRow(Sheet& sheet, int row, Columns columns, const std::string& label, const std::string& words) {
  Style style{.size = 8.5, .bold = true, .shrink = true, .indent = 1, .edges = sides(Edge::Thin)};
  style.edges.bottom = Edge::Faint;
  sheet.formula(at(row, columns), style, quoted(label + " : ") + "&" + words);
}

void bankAndNotes(Sheet& sheet, int row, Columns left, Columns right, const Company& company) {
  const Columns both{left.left, right.right};
  sheet.formula(at(row, both), {.size = 7, .wrap = true, .indent = 1, .edges = sides(Edge::Thin)},
                labelled("Bank : ", company.bank) + "&" + labelled(",  ", company.account) +
                    "&CHAR(10)&\"Declaration : This invoice shows the actual price, and all particulars are "
                    "true and correct.\"");
  Style last{
      .size = 7.5,
      .colour = kQuiet,
      .shrink = true,
      .indent = 1,
      .edges = {Edge::Thin, Edge::None, Edge::None, Edge::Thin}
  };
  sheet.formula(at(row + 1, left), last,
                "\"E. & O.E.\"&" + labelled("     Subject to jurisdiction of ", company.city));
  last.across = Across::Right;
  last.edges = {Edge::None, Edge::None, Edge::Thin, Edge::Thin};
  sheet.text(at(row + 1, right), last, "Receiver's Signature");
}

void signature(Sheet& sheet, int row, Columns columns, const Company& company) {
  const Style head{
      .size = 8.5, .bold = true, .across = Across::Centre, .shrink = true, .edges = sides(Edge::Thin)};
  sheet.formula(at(row, columns), head, "\"For \"&" + company.name);
  sheet.blank(at(row + 1, columns), {.edges = sides(Edge::Thin)});
  sheet.text(at(row + 2, columns), {.size = 8, .colour = kQuiet, .across = Across::Centre, .edges = kTray},
             "Authorised Signatory");
}

}  // namespace formats
