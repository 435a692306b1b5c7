#include "formats/bill_design.h"

#include "formats/styles.h"

namespace formats {

namespace {

constexpr Columns kLabel{'A', 'D'};  // of the sums
constexpr int kWordsRows = 2;

using Kind = LineColumn::Kind;

// clang-format off
std::vector<LineColumn> firstColumns(const Bill& bill) {
  return {
      {.kind = Kind::Serial,      .columns = {'A', 'A'}, .title = "Sr"},
      {.kind = Kind::Description, .columns = {'B', 'C'}, .title = "Description of goods"},
      {.kind = Kind::Text,        .columns = {'D', 'D'}, .title = "HSN/SAC", .field = "ITEM.HSNCODE"},
      {.kind = Kind::Plain,       .columns = {'E', 'E'}, .title = "Qty",     .field = "SALEITM.QUANTITY", .total = bill.quantity, .summed = true},
      {.kind = Kind::Text,        .columns = {'F', 'F'}, .title = "Unit",    .field = "SALEITM.SIZE_CD"},
      {.kind = Kind::Rate,        .columns = {'G', 'G'}, .title = "Rate",    .field = "SALEITM.RATE"},
  };
}

LineColumn lineColumn(BillColumn::Of what, const Bill& bill) {
  switch (what) {
    case BillColumn::DiscountRate: return {.kind = Kind::Plain, .field = "SALEITM.SALE_DISC"};
    case BillColumn::Discount:     return {.kind = Kind::Money, .figure = figures::discount, .summed = true};
    case BillColumn::Taxable:      return {.kind = Kind::Money, .figure = figures::taxable, .total = bill.taxable, .summed = true};
    case BillColumn::CgstRate:     return {.kind = Kind::Plain, .field = "SALEITM.CGSTRT"};
    case BillColumn::Cgst:         return {.kind = Kind::Money, .field = "SALEITM.CGSTAMT", .total = bill.cgst, .summed = true};
    case BillColumn::SgstRate:     return {.kind = Kind::Plain, .field = "SALEITM.SGSTRT"};
    case BillColumn::Sgst:         return {.kind = Kind::Money, .field = "SALEITM.SGSTAMT", .total = bill.sgst, .summed = true};
    case BillColumn::IgstRate:     return {.kind = Kind::Plain, .field = "SALEITM.IGSTRT"};
    case BillColumn::Igst:         return {.kind = Kind::Money, .field = "SALEITM.IGSTAMT", .total = bill.igst, .summed = true};
    case BillColumn::TaxRate:      return {.kind = Kind::Plain, .figure = figures::taxRate};
    case BillColumn::Tax:          return {.kind = Kind::Money, .figure = figures::tax, .total = bill.tax, .summed = true};
    default:                       return {.kind = Kind::Money, .figure = figures::net, .total = bill.beforeRounding, .summed = true};
  }
}
// clang-format on

}  // namespace

const std::vector<BillColumn>& everyTax() {
  static const std::vector<BillColumn> columns{
      {BillColumn::DiscountRate, "Disc %"       },
      {BillColumn::Taxable,      "Taxable value"},
      {BillColumn::CgstRate,     "%",             "CGST"},
      {BillColumn::Cgst,                        "Amount",                        "CGST"},
      {BillColumn::SgstRate,                  "%",          "SGST"},
      {BillColumn::Sgst,    "Amount",    "SGST"},
      {BillColumn::IgstRate,         "%",             "IGST"},
      {BillColumn::Igst,                        "Amount",                    "IGST"},
      {BillColumn::Net,                  "Total"                    },
  };
  return columns;
}

BillDesign::BillDesign(Book& book, const BillTable& table)
    : InvoiceDesign(book, table.design), bill_table_(table) {
  columns_ = firstColumns(bill_);
  char next = columns_.back().columns.right;
  for (const BillColumn& shown : table.lines) {
    ++next;
    LineColumn column = lineColumn(shown.of, bill_);
    column.columns = {next, next};
    column.title = shown.title;
    column.group = shown.group;
    columns_.push_back(column);
  }
}

void BillDesign::write() {
  totals_ = totalLines(facts_, bill_, bill_table_.foot.hsnRows);
  InvoiceDesign::write();
}

void BillDesign::titles(int row, int page) {
  const BillHead& table = bill_table_.head;
  titleBar(sheet_, row, table.mark, table.title, table.page, "=" + bill_.title, page, bill_.pages,
           table.titleSize);
}

void BillDesign::company(int row) {
  companyHead(sheet_, row, table_.all, company_, bill_table_.head.nameSize);
}

void BillDesign::top(int row, int page) {
  titles(row, page);
  company(row + 1);
}

void BillDesign::head(int row, int page) {
  const BillHead& table = bill_table_.head;
  top(row, page);
  const int parties = row + table.rows;
  partyBlock(sheet_, parties, table.buyer, table.billTo, bill_.buyer, table.size);
  if (!table.consignee.none())
    partyBlock(sheet_, parties, table.consignee, table.shipTo, bill_.consignee, table.size);
  particulars(parties, page);

  const int forward = row + form_.headRows() - (bill_table_.pageTotals ? 1 : 0);
  tableHead(sheet_, forward - 2, columns_, table_.table);
  if (!bill_table_.pageTotals) return;
  if (page > 1)
    sums(forward, kLabel, quoted("Brought forward"), sumsUpTo(form_, page - 1));
  else
    sheet_.blank(at(forward, table_.all), {.edges = kTray});
}

Columns BillDesign::left() const {
  return {table_.all.left, static_cast<char>(bill_table_.foot.signature.left - 1)};
}

void BillDesign::pageFoot(int row, int page) {
  const BillFoot& table = bill_table_.foot;
  if (bill_table_.pageTotals)
    sums(row++, kLabel, quoted("Total of page " + std::to_string(page)), pageSums(form_, page));
  sums(row++, kLabel, quoted("Carried forward"), sumsUpTo(form_, page));
  pageSummary(sheet_, row, table.pages, form_, bill_, table.pagesSize);

  // What is left under the list, as wide as the HSN summary of a last page, then as the words.
  const int under = row + form_.pages + 2, notes = wordsAt(row) + kWordsRows;
  const int signature = notes - table.besideWords;
  const char beside = static_cast<char>(table.totalLabel.left - 1);
  const int narrow = beside == left().right ? notes : signature;
  const Style empty{.edges = sides(Edge::Thin)};
  if (under < narrow) sheet_.blank(at(under, {table_.all.left, beside}, narrow - under), empty);
  continued(sheet_, at(row, {table.totalLabel.left, table.total.right}, signature - row), page, bill_,
            table.continuedSize);
  if (narrow < notes) sheet_.blank(at(narrow, left(), notes - narrow), empty);
  end(notes);
}

void BillDesign::closing(int row) {
  const BillFoot& table = bill_table_.foot;
  if (bill_table_.pageTotals)
    sums(row++, kLabel, "\"Total of page \"&" + bill_.pages, lastPageSums(form_, bill_));
  sums(row++, kLabel, bill_.totalLabel, billSums(form_));
  besideHsn(row);
  hsnSummary(sheet_, row, table.hsnRows, table.hsn, bill_, table.hsnSize);
  (table.narrowTotals ? narrowTotalsBox : totalsBox)(sheet_, row, table.totalLabel, table.total, totals_,
                                                     bill_, table.size);
  const int words = wordsAt(row);
  wordsRow(sheet_, words, table.besideWords > 1 ? left() : table_.all, "Rupees", bill_.netWords,
           table.rupeesSize);
  wordsRow(sheet_, words + 1, table.besideWords > 0 ? left() : table_.all, "Tax", bill_.taxWords, table.size);
  end(words + kWordsRows);
}

void BillDesign::end(int row) {
  const BillFoot& table = bill_table_.foot;
  const int rows = form_.footRows() - wordsAt(bill_table_.pageTotals ? 2 : 1) - kWordsRows;
  const std::string bank = table.bankLine ? bankLine(company_) : "";
  const std::string beside =
      table.bankMakesRoom ? "IF(" + bill_.endorsement + "=\"\"," + bank + ",\"\")" : bank;
  notes(sheet_, row, table.notes, table.receiver, beside, bill_.declaration, company_, rows - 1,
        table.notesSize);
  signature(sheet_, row - table.besideWords, table.signature, company_, rows + table.besideWords - 2,
            table.size);
}

std::vector<Fact> BillDesign::orderFacts() {
  return closedFacts(facts_,
                     {
                         {bill_.orderLabel,    bill_.order           },
                         {bill_.challanLabel,  bill_.challan         },
                         {quoted("Due Date"),  dayText(bill_.dueDate)},
                         {quoted("Bill Type"), bill_.type            }
  },
                     4);
}

std::vector<Fact> BillDesign::orderAndTransportFacts() {
  return closedFacts(facts_,
                     {
                         {bill_.orderLabel,    bill_.order           },
                         {bill_.challanLabel,  bill_.challan         },
                         {quoted("Transport"), bill_.transport       },
                         {quoted("L.R. No"),   bill_.lrNumber        },
                         {quoted("Parcels"),   bill_.parcels         },
                         {quoted("Due Date"),  dayText(bill_.dueDate)}
  },
                     4);
}

}  // namespace formats
