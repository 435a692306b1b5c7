#include "formats/designs.h"
#include "formats/invoice_design.h"
#include "formats/styles.h"

// Design 1: one plain page after the other, with CGST, SGST and IGST columns.
namespace formats {

namespace {

// clang-format off
// Rows that stand side by side, parties and facts, have the tallest of their neighbours.
const Form kForm{
    .pages = 3, .slots = 24,
    .head = {17.25, 22.5, 12.75, 12.75, 13.5, 12, 13.5, 12, 12, 12, 12, 12, 12, 12, 11.25, 11.25},
    .foot = {15, 12, 11.25, 11.25, 11.25, 11.25, 11.25, 12, 13.5, 13.5, 28.5, 13.5},
    .slot = 18,
};
constexpr Columns kAll{'A', 'P'}, kLeft{'A', 'J'}, kRight{'K', 'P'}, kLabel{'A', 'D'};
constexpr HsnColumns kHsn{.code = {'A', 'B'}, .taxable = {'C', 'C'}, .rate = {'D', 'D'}, .cgst = {'E', 'F'},
                          .sgst = {'G', 'H'}, .igst = {'I', 'I'}, .tax = {'J', 'K'}};
const PageSums kPageSums{
    .page = {'A', 'B'},
    .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'E'}, "CGST", 'K'}, {{'F', 'G'}, "SGST", 'M'},
                {{'H', 'I'}, "IGST", 'O'}, {{'J', 'K'}, "Total", 'P'}},
};
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 16.5}, {'B', 45}, {'C', 60}, {'D', 36}, {'E', 33}, {'F', 24}, {'G', 40.5}, {'H', 19.5},
               {'I', 45}, {'J', 16.5}, {'K', 39}, {'L', 16.5}, {'M', 39}, {'N', 16.5}, {'O', 39}, {'P', 48}},
};

const FactColumns kFacts{{{'J', 'K'}, {'L', 'M'}}, {{'N', 'O'}, {'P', 'P'}}};

using Kind = LineColumn::Kind;

std::vector<LineColumn> lineColumns(const Bill& bill) {
  return {
      {.kind = Kind::Serial,      .columns = {'A', 'A'}, .title = "Sr"},
      {.kind = Kind::Description, .columns = {'B', 'C'}, .title = "Description of goods"},
      {.kind = Kind::Text,        .columns = {'D', 'D'}, .title = "HSN/SAC", .field = "ITEM.HSNCODE"},
      {.kind = Kind::Plain,       .columns = {'E', 'E'}, .title = "Qty",     .field = "SALEITM.QUANTITY", .total = bill.quantity, .summed = true},
      {.kind = Kind::Text,        .columns = {'F', 'F'}, .title = "Unit",    .field = "SALEITM.SIZE_CD"},
      {.kind = Kind::Rate,        .columns = {'G', 'G'}, .title = "Rate",    .field = "SALEITM.RATE"},
      {.kind = Kind::Plain,       .columns = {'H', 'H'}, .title = "Disc %",  .field = "SALEITM.SALE_DISC"},
      {.kind = Kind::Money,       .columns = {'I', 'I'}, .title = "Taxable value", .field = "SALEITM.AMOUNT", .total = bill.taxable, .summed = true},
      {.kind = Kind::Plain,       .columns = {'J', 'J'}, .title = "%",      .group = "CGST", .field = "SALEITM.CGSTRT"},
      {.kind = Kind::Money,       .columns = {'K', 'K'}, .title = "Amount", .group = "CGST", .field = "SALEITM.CGSTAMT", .total = bill.cgst, .summed = true},
      {.kind = Kind::Plain,       .columns = {'L', 'L'}, .title = "%",      .group = "SGST", .field = "SALEITM.SGSTRT"},
      {.kind = Kind::Money,       .columns = {'M', 'M'}, .title = "Amount", .group = "SGST", .field = "SALEITM.SGSTAMT", .total = bill.sgst, .summed = true},
      {.kind = Kind::Plain,       .columns = {'N', 'N'}, .title = "%",      .group = "IGST", .field = "SALEITM.IGSTRT"},
      {.kind = Kind::Money,       .columns = {'O', 'O'}, .title = "Amount", .group = "IGST", .field = "SALEITM.IGSTAMT", .total = bill.igst, .summed = true},
      {.kind = Kind::Money,       .columns = {'P', 'P'}, .title = "Total",  .figure = figures::net, .total = bill.beforeRounding, .summed = true},
  };
}

FactRows billFactRows(const Bill& bill) {
  return {
      {{.label = "Invoice No", .value = bill.number, .bold = true}, {.label = "Date", .value = bill.date, .number = kDay, .bold = true}},
      {{.label = "Challan No", .value = bill.challan}, {.label = "Bill Type", .value = bill.type}},
      {{.label = "Order No", .value = bill.order}},
      {{.label = "Transport", .value = bill.transport}},
      {{.label = "L.R. No", .value = bill.lrNumber}, {.label = "L.R. Date", .value = bill.lrDate, .number = kDay}},
      {{.label = "Destination", .value = bill.destination}},
      {{.label = "Parcels", .value = bill.parcels}, {.label = "Due Date", .value = bill.dueDate, .number = kDay}},
      {{.label = "Place of Supply", .value = bill.placeOfSupply, .bold = true}},
      {{.label = "Reverse Charge", .value = quoted("No")}},
  };
}
// clang-format on

class Design : public InvoiceDesign {
 public:
  explicit Design(Book& book) : InvoiceDesign(book, kTable) { columns_ = lineColumns(bill_); }

 private:
  void head(int row, int page) override {
    titleBar(sheet_, row, {'A', 'D'}, {'E', 'K'}, {'L', 'P'}, "TAX INVOICE", page, bill_.pages);
    companyHead(sheet_, row + 1, kAll, company_);
    partyBlock(sheet_, row + 5, {'A', 'D'}, "Bill To", bill_.buyer);
    partyBlock(sheet_, row + 5, {'E', 'I'}, "Ship To", bill_.consignee);
    remarksRow(sheet_, row + 13, {'A', 'I'}, bill_);
    factsBlock(sheet_, row + 5, kFacts, billFactRows(bill_));
    tableHead(sheet_, row + 14, columns_);
  }

  void pageFoot(int row, int page) override {
    sums(row, kLabel, quoted("Carried forward"), sumsUpTo(kForm, page));
    pageSummary(sheet_, row + 1, kPageSums, kForm, bill_);
    sheet_.blank(at(row + 6, {'A', 'K'}, 3), {.edges = sides(Edge::Thin)});
    continued(sheet_, at(row + 1, {'L', 'P'}, 8), page, bill_);
    sheet_.blank(at(row + 9, kLeft), {.edges = sides(Edge::Thin)});
    notes(sheet_, row + 10, {'A', 'F'}, {'G', 'J'}, bankLine(company_), company_);
    signature(sheet_, row + 9, kRight, company_);
  }

  void closing(int row) override {
    sums(row, kLabel, bill_.totalLabel, billSums(kForm));
    hsnSummary(sheet_, row + 1, 5, kHsn, bill_);
    totalsBox(sheet_, row + 1, {'L', 'N'}, {'O', 'P'}, totals_, bill_);
    wordsRow(sheet_, row + 8, kAll, "Rupees", bill_.netWords);
    wordsRow(sheet_, row + 9, kLeft, "Tax", bill_.taxWords);
    notes(sheet_, row + 10, {'A', 'F'}, {'G', 'J'}, bankLine(company_), company_);
    signature(sheet_, row + 9, kRight, company_);
  }

  const std::vector<Facts::Named> totals_ = totalLines(facts_, bill_, 5);
};

}  // namespace

void invgst1(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
