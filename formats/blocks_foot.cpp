#include <functional>

#include "formats/blocks.h"
#include "formats/sheet3.h"
#include "formats/styles.h"

namespace formats {

namespace {

// What one column of the HSN summary shows: fields of the data sheet added up, and the total
// of the bill.
struct HsnPart {
  Columns columns;
  const char* title;
  std::vector<int> fields;
  std::string total;
  bool money;
};

std::vector<HsnPart> hsnParts(const HsnColumns& columns, const Bill& bill) {
  using namespace sheet3;
  std::vector<HsnPart> parts = {
      {columns.taxable,  "Taxable value", {Taxable},          bill.taxable, true },
      {columns.cgstRate, "CGST %",        {CgstRate},         "",           false},
      {columns.cgst,     "CGST",          {Cgst},             bill.cgst,    true },
      {columns.sgstRate, "SGST %",        {SgstRate},         "",           false},
      {columns.sgst,     "SGST",          {Sgst},             bill.sgst,    true },
      {columns.igstRate, "IGST %",        {IgstRate},         "",           false},
      {columns.igst,     "IGST",          {Igst},             bill.igst,    true },
      {columns.tax,      "Total tax",     {Cgst, Sgst, Igst}, bill.tax,     true },
  };
  std::erase_if(parts, [](const HsnPart& part) { return part.columns.none(); });
  return parts;
}

std::string added(const HsnPart& part, const std::function<std::string(int)>& each) {
  std::string text;
  for (const int field : part.fields) text += (text.empty() ? "" : "+") + each(field);
  return text;
}

std::string code(int row) {
  using namespace sheet3;
  return "IF(AND(" + shown(cell(row, HsnCode)) + "=\"\"," + cell(row, Taxable) + "<>\"\"),\"Without HSN\"," +
         shown(cell(row, HsnCode)) + ")";
}

// "9% + 9%" of CGST and SGST, "18%" of IGST.
std::string rates(int row) {
  using namespace sheet3;
  const auto cgst = cell(row, CgstRate), sgst = cell(row, SgstRate), igst = cell(row, IgstRate);
  const auto local = cgst + "&\"% + \"&" + sgst + "&\"%\"", other = igst + "&\"%\"";
  const auto none = "IF(" + cell(row, Taxable) + "=\"\",\"\",\"Nil\")";
  return "IF(N(" + igst + ")=0,IF(N(" + cgst + ")+N(" + sgst + ")=0," + none + "," + local + "),IF(N(" +
         cgst + ")+N(" + sgst + ")=0," + other + "," + local + "&\" + \"&" + other + "))";
}

class HsnTable {
 public:
  HsnTable(Sheet& sheet, int row, int rows, double size)
      : sheet_(sheet),
        row_(row),
        rows_(rows),
        size_(size),
        count_("COUNT(" + sheet3::span(sheet3::kFirstHsn, sheet3::kLastHsn, sheet3::Taxable) + ")") {}

  // A column: its heading, what each row shows of the data sheet's row, what stands for all
  // rows from one on when they do not fit, and the total.
  void column(Columns where, const char* title, Style style, const std::function<std::string(int)>& own,
              const std::function<std::string(int)>& rest, const std::string& total) {
    const Style head{.size = size_ - 0.5,
                     .bold = true,
                     .colour = kQuiet,
                     .across = Across::Centre,
                     .shrink = true,
                     .edges = around(Edge::Thin)};
    sheet_.text(at(row_, where), head, title);
    style.size = size_;
    style.shrink = true;
    for (int i = 0; i < rows_; ++i) {
      style.edges = {Edge::Thin, i == 0 ? Edge::None : Edge::Faint, Edge::Thin, Edge::None};
      const int data = sheet3::kFirstHsn + i;
      const auto text = i + 1 < rows_ ? own(data)
                                      : "IF(" + count_ + ">" + std::to_string(rows_) + "," + rest(data) +
                                            "," + own(data) + ")";
      sheet_.formula(at(row_ + 1 + i, where), style, text);
    }
    style.bold = true;
    style.edges = around(Edge::Thin);
    if (total.empty())
      sheet_.blank(at(row_ + 1 + rows_, where), style);
    else
      sheet_.formula(at(row_ + 1 + rows_, where), style, total);
  }

  std::string others() const {
    return "\"Others (\"&(" + count_ + "-" + std::to_string(rows_ - 1) + ")&\")\"";
  }

 private:
  Sheet& sheet_;
  int row_, rows_;
  double size_;
  std::string count_;
};

}  // namespace

void hsnSummary(Sheet& sheet, int row, int rows, const HsnColumns& columns, const Bill& bill, double size) {
  using namespace sheet3;
  HsnTable table(sheet, row, rows, size);
  const auto nothing = [](int) { return quoted(""); };
  table.column(
      columns.code, "HSN/SAC", {.indent = 1}, code, [&](int) { return table.others(); }, quoted("Total"));
  if (!columns.rate.none())
    table.column(columns.rate, "Rate", {.across = Across::Centre}, rates, nothing, "");
  for (const HsnPart& part : hsnParts(columns, bill)) {
    const Style style{.across = Across::Right, .number = part.money ? kMoney : ""};
    const auto own = [&](int data) {
      return unlessZero(added(part, [&](int field) { return cell(data, field); }));
    };
    const auto rest = [&](int data) {
      return unlessZero(added(part, [&](int field) { return sum(span(data, kLastHsn, field)); }));
    };
    if (part.money)
      table.column(part.columns, part.title, style, own, rest, unlessZero(part.total));
    else
      table.column(part.columns, part.title, style, own, nothing, "");
  }
}

namespace {

std::string stands(const std::string& reference) { return "ROUND(" + reference + ",2)<>0"; }

std::string choose(const std::string& condition, const std::string& then, const std::string& otherwise) {
  return "IF(" + condition + "," + then + "," + otherwise + ")";
}

// Goods, discount and charges, before the taxes that they bear too. Where rows are short CGST and SGST share
// one, the taxable value is told by the row of totals above alone, the discount stands beside the goods, and
// the charges share one, in this order.
std::vector<Facts::Named> chargedTotals(Facts& facts, const Bill& bill, int rows) {
  std::string count, any;
  for (const std::string& reference : {bill.discount, bill.packing, bill.freightCharge, bill.otherCharges})
    any += (any.empty() ? "OR(" : ",") + stands(reference);
  const auto charged = facts.add("Discount or charges", any + ")");
  for (const std::string& reference : {bill.discount, bill.packing, bill.freightCharge, bill.otherCharges,
                                       bill.taxable, bill.cgst, bill.sgst, bill.igst, bill.roundOff})
    count += choose(stands(reference), "1", "0") + "+";
  const auto over =
      facts.add("Totals without a row", count + choose(charged, "1", "0") + "-" + std::to_string(rows));
  const auto taxes = facts.add("Two taxes in a row",
                               "AND(" + over + ">0," + stands(bill.cgst) + "," + stands(bill.sgst) + ")");
  const auto still = facts.add("Still without a row", over + "-" + choose(taxes, "1", "0"));
  const auto less =
      facts.add("Goods and discount in a row", "AND(" + still + ">1," + stands(bill.discount) + ")");
  const auto charges = still + "-" + choose(less, "1", "0") + ">1";
  const auto all = bill.packing + "+" + bill.freightCharge + "+" + bill.otherCharges;
  const auto none = quoted("");
  const auto two = "TEXT(" + bill.cgst + ",\"0.00\")&\" + \"&TEXT(" + bill.sgst + ",\"0.00\")";
  const auto goods = "\"Goods \"&TEXT(" + bill.goods + ",\"0.00\")&\" Less\"";
  const auto charge = [&](const std::string& reference) { return choose(charges, none, amount(reference)); };
  // clang-format off
  return {
      {quoted("Goods"), choose("OR(" + less + ",NOT(" + charged + "))", none, amount(bill.goods))},
      {choose(less, goods, quoted("Less Discount")), amount(bill.discount)},
      {choose(charges, quoted("Packing, Freight, Other"), quoted("Packing & Forwarding")),
       choose(charges, amount("(" + all + ")"), amount(bill.packing))},
      {quoted("Freight"), charge(bill.freightCharge)},
      {quoted("Other Charges"), charge(bill.otherCharges)},
      {quoted("Taxable value"), choose(still + ">0", none, amount(bill.taxable))},
      {choose(taxes, quoted("CGST + SGST"), quoted("CGST")), choose(taxes, two, amount(bill.cgst))},
      {quoted("SGST"), choose(taxes, none, amount(bill.sgst))},
      {quoted("IGST"), amount(bill.igst)},
  };
  // clang-format on
}

}  // namespace

std::vector<Facts::Named> totalLines(Facts& facts, const Bill& bill, int rows) {
  std::vector<Facts::Named> lines;
  if (bill.discount.empty())
    for (const auto& [title, reference] : {
             std::pair{"Taxable value", bill.taxable},
             {"CGST",          bill.cgst   },
             {"SGST",          bill.sgst   },
             {"IGST",          bill.igst   }
    })
      lines.push_back({quoted(title), amount(reference)});
  else
    lines = chargedTotals(facts, bill, rows);
  // As text: a format with conditions loses the sign of a negative number in some programs.
  lines.push_back({quoted("Round off"),
                   "IF(ROUND(" + bill.roundOff + ",2)=0,\"\",TEXT(" + bill.roundOff + ",\"0.00\"))"});
  return facts.closed(lines, rows);
}

namespace {

// Gives the row behind the lines.
int totalRows(Sheet& sheet, int row, Columns label, Columns value, const std::vector<Facts::Named>& lines,
              double size) {
  Style name{.size = size - 0.5, .colour = kQuiet, .shrink = true, .indent = 1};
  name.edges = {Edge::Thin, Edge::None, Edge::None, Edge::Faint};
  Style figure{.size = size, .across = Across::Right, .shrink = true, .number = kMoney};
  figure.edges = {Edge::None, Edge::None, Edge::Thin, Edge::Faint};
  for (const auto& [title, reference] : lines) {
    sheet.formula(at(row, label), name, title);
    sheet.formula(at(row, value), figure, reference);
    ++row;
  }
  return row;
}

Style netLabel(double size) {
  return {.size = size, .bold = true, .colour = kAccent, .fill = kTint, .shrink = true, .indent = 1};
}

Style netFigure(double size) {
  return {.size = size,
          .bold = true,
          .colour = kAccent,
          .fill = kTint,
          .across = Across::Right,
          .shrink = true,
          .number = kRupees};
}

}  // namespace

void totalsBox(Sheet& sheet, int row, Columns label, Columns value, const std::vector<Facts::Named>& lines,
               const Bill& bill, double size) {
  row = totalRows(sheet, row, label, value, lines, size);
  const Edges first{Edge::Thin, Edge::Thin, Edge::None, Edge::Thin};
  const Edges last{Edge::None, Edge::Thin, Edge::Thin, Edge::Thin};
  sheet.formula(at(row, label, 2), with(netLabel(size + 0.5), first), bill.netLabel);
  sheet.formula(at(row, value, 2), with(netFigure(size * 1.5), last), bill.net);
}

void narrowTotalsBox(Sheet& sheet, int row, Columns label, Columns value,
                     const std::vector<Facts::Named>& lines, const Bill& bill, double size) {
  row = totalRows(sheet, row, label, value, lines, size);
  const Columns both{label.left, value.right};
  sheet.formula(at(row, both), with(netLabel(size + 0.5), kLid), bill.netLabel);
  sheet.formula(at(row + 1, both), with(netFigure(size * 1.5), kTray), bill.net);
}

void wordsRow(Sheet& sheet, int row, Columns columns, const std::string& label, const std::string& words,
              double size) {
  Style style{.size = size, .bold = true, .shrink = true, .indent = 1, .edges = sides(Edge::Thin)};
  style.edges.bottom = Edge::Faint;
  sheet.formula(at(row, columns), style, quoted(label + " : ") + "&" + words);
}

std::string bankLine(const Company& company) {
  return labelled("Bank : ", company.bank) + "&" + labelled(",  ", company.account);
}

void notes(Sheet& sheet, int row, Columns left, Columns right, const std::string& text,
           const std::string& declaration, const Company& company, int rows, double size) {
  const Columns both{left.left, right.right};
  sheet.formula(at(row, both, rows), {.size = size, .wrap = true, .indent = 1, .edges = sides(Edge::Thin)},
                (text.empty() ? text : "IF(" + text + "=\"\",\"\"," + text + "&CHAR(10))&") + declaration);
  Style last{.size = size + 0.5, .colour = kQuiet, .shrink = true, .indent = 1};
  last.edges = {Edge::Thin, Edge::None, Edge::None, Edge::Thin};
  sheet.formula(at(row + rows, left), last,
                "\"E. & O.E.\"&" + labelled("     Subject to jurisdiction of ", company.city));
  last.across = Across::Right;
  last.edges = {Edge::None, Edge::None, Edge::Thin, Edge::Thin};
  sheet.text(at(row + rows, right), last, "Receiver's Signature");
}

void signature(Sheet& sheet, int row, Columns columns, const Company& company, int room, double size) {
  const Style head{
      .size = size, .bold = true, .across = Across::Centre, .shrink = true, .edges = sides(Edge::Thin)};
  sheet.formula(at(row, columns), head, "\"For \"&" + company.name);
  sheet.blank(at(row + 1, columns, room), {.edges = sides(Edge::Thin)});
  sheet.text(at(row + 1 + room, columns),
             {.size = size - 0.5, .colour = kQuiet, .across = Across::Centre, .edges = kTray},
             "Authorised Signatory");
}

}  // namespace formats
