#include "formats/designs.h"
#include "formats/invoice_design.h"
#include "formats/styles.h"

// Design 2: goods on the road. Consignee, transport and discounts, and three copies of every
// page, which lie side by side on the sheet.
namespace formats {

namespace {

// clang-format off
const Form kForm{
    .pages = 3, .slots = 22,
    .head = {16.5, 21, 11.25, 11.25, 12.75, 11.25, 12.75, 11.25, 11.25, 11.25, 11.25, 11.25, 11.25,
             10.5, 11.25, 11.25, 11.25, 11.25, 12, 11.25, 11.25},
    .foot = {13.5, 11.25, 10.5, 10.5, 10.5, 10.5, 10.5, 10.5, 12.75, 12.75, 12, 12, 12, 12},
    .slot = 18,
};
constexpr int kCopies = 3;
constexpr Columns kAll{'A', 'M'}, kLeft{'A', 'I'}, kRight{'J', 'M'}, kLabel{'A', 'D'}, kCopy{'A', 'D'};
constexpr int kWidth = kAll.right - kAll.left + 1;
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 18}, {'B', 60}, {'C', 60}, {'D', 42}, {'E', 38.25}, {'F', 27}, {'G', 45}, {'H', 22.5},
               {'I', 42}, {'J', 57}, {'K', 22.5}, {'L', 48}, {'M', 54}},
    .palette = {.accent = 0x1F3A6E, .tint = 0xE9EEF7},
    .letters = 27,
};
constexpr HsnColumns kHsn{.code = {'A', 'B'}, .taxable = {'C', 'C'}, .rate = {'D', 'D'}, .cgst = {'E', 'F'},
                          .sgst = {'G', 'G'}, .igst = {'H', 'I'}};
const PageSums kPageSums{
    .page = {'A', 'A'}, .lines = {'B', 'B'},
    .columns = {{{'C', 'C'}, "Taxable value", 'J'}, {{'D', 'F'}, "GST", 'L'}, {{'G', 'I'}, "Total", 'M'}},
};

const FactColumns kCarrier{{{'A', 'B'}, {'C', 'D'}}}, kConsignment{{{'E', 'F'}, {'G', 'I'}}}, kRoad{{{'J', 'J'}, {'K', 'M'}}};
const FactColumns kFacts{{{'J', 'J'}, {'K', 'M'}}};

using Kind = LineColumn::Kind;

std::vector<LineColumn> lineColumns(const Bill& bill) {
  return {
      {.kind = Kind::Serial,      .columns = {'A', 'A'}, .title = "Sr"},
      {.kind = Kind::Description, .columns = {'B', 'C'}, .title = "Description of goods"},
      {.kind = Kind::Text,        .columns = {'D', 'D'}, .title = "HSN/SAC", .field = "ITEM.HSNCODE"},
      {.kind = Kind::Plain,       .columns = {'E', 'E'}, .title = "Qty",     .field = "SALEITM.QUANTITY", .total = bill.quantity, .summed = true},
      {.kind = Kind::Text,        .columns = {'F', 'F'}, .title = "Unit",    .field = "SALEITM.SIZE_CD"},
      {.kind = Kind::Rate,        .columns = {'G', 'G'}, .title = "Rate",    .field = "SALEITM.RATE"},
      {.kind = Kind::Plain,       .columns = {'H', 'H'}, .title = "%",      .group = "Discount", .field = "SALEITM.SALE_DISC"},
      {.kind = Kind::Money,       .columns = {'I', 'I'}, .title = "Amount", .group = "Discount", .figure = figures::discount, .summed = true},
      {.kind = Kind::Money,       .columns = {'J', 'J'}, .title = "Taxable value", .field = "SALEITM.AMOUNT", .total = bill.taxable, .summed = true},
      {.kind = Kind::Plain,       .columns = {'K', 'K'}, .title = "%",      .group = "GST", .figure = figures::taxRate},
      {.kind = Kind::Money,       .columns = {'L', 'L'}, .title = "Amount", .group = "GST", .figure = figures::tax, .total = bill.tax, .summed = true},
      {.kind = Kind::Money,       .columns = {'M', 'M'}, .title = "Total",  .figure = figures::net, .total = bill.beforeRounding, .summed = true},
  };
}
// clang-format on

class Design : public InvoiceDesign {
 public:
  explicit Design(Book& book) : InvoiceDesign(book, kTable) { columns_ = lineColumns(bill_); }

  void write() override {
    InvoiceDesign::write();
    for (int copy = 1; copy < kCopies; ++copy) sheet_.repeat(copy * kWidth);
    constexpr const char* kMarks[kCopies] = {kOriginal, kDuplicate, kTriplicate};
    for (int copy = 1; copy < kCopies; ++copy)
      for (int page = 1; page <= kForm.pages; ++page)
        copyMark(sheet_, kForm.headAt(page), kCopy.movedBy(copy * kWidth), kMarks[copy]);
  }

 private:
  std::vector<Columns> copies() const override {
    std::vector<Columns> all;
    for (int copy = 0; copy < kCopies; ++copy) all.push_back(kAll.movedBy(copy * kWidth));
    return all;
  }

  void head(int row, int page) override {
    titleBar(sheet_, row, kCopy, {'E', 'I'}, kRight, "TAX INVOICE", page, bill_.pages);
    companyHead(sheet_, row + 1, kAll, company_);
    partyBlock(sheet_, row + 5, {'A', 'D'}, "Billed To", bill_.buyer);
    partyBlock(sheet_, row + 5, {'E', 'I'}, "Shipped To", bill_.consignee);
    factsBlock(sheet_, row + 5, kFacts, inRows(withMainFacts(others_), 1));
    transport(row + 13);
    remarksRow(sheet_, row + 18, kAll, bill_);
    tableHead(sheet_, row + 19, columns_);
  }

  // With room to write by hand what is known only when the goods leave.
  void transport(int row) {
    sheet_.text(at(row, kAll), {.size = 7.5, .bold = true, .colour = kAccent, .indent = 1, .edges = kLid},
                "Transport");
    factsBlock(sheet_, row + 1, kCarrier,
               {{{.label = "Transporter", .value = bill_.transport, .bold = true}},
                {{.label = "Place", .value = bill_.transporterPlace}},
                {{.label = "Phone", .value = bill_.transporterPhone}},
                {{.label = "GSTIN / ID", .value = bill_.transporterId}}});
    factsBlock(sheet_, row + 1, kConsignment,
               {{{.label = "L.R. No", .value = bill_.lrNumber, .bold = true}},
                {{.label = "L.R. Date", .value = bill_.lrDate, .number = kDay}},
                {{.label = "Destination", .value = bill_.destination}},
                {{.label = "Parcels", .value = bill_.parcels}}});
    factsBlock(sheet_, row + 1, kRoad,
               {{{.label = "Vehicle No", .value = {}}},
                {{.label = "E-way Bill", .value = {}}},
                {{.label = "Despatched", .value = {}}},
                {{.label = "Freight", .value = bill_.freight}}});
  }

  void pageFoot(int row, int page) override {
    sums(row, kLabel, quoted("Carried forward"), sumsUpTo(kForm, page));
    pageSummary(sheet_, row + 1, kPageSums, kForm, bill_);
    sheet_.blank(at(row + 6, kLeft, 4), {.edges = sides(Edge::Thin)});
    continued(sheet_, at(row + 1, kRight, 9), page, bill_);
    notes(sheet_, row + 10, {'A', 'E'}, {'F', 'I'}, bankLine(company_), company_, 3);
    signature(sheet_, row + 10, kRight, company_, 2);
  }

  void closing(int row) override {
    sums(row, kLabel, bill_.totalLabel, billSums(kForm));
    hsnSummary(sheet_, row + 1, 5, kHsn, bill_);
    totalsBox(sheet_, row + 1, {'J', 'K'}, {'L', 'M'}, totals_, bill_);
    wordsRow(sheet_, row + 8, kAll, "Rupees", bill_.netWords);
    wordsRow(sheet_, row + 9, kAll, "Tax", bill_.taxWords);
    notes(sheet_, row + 10, {'A', 'E'}, {'F', 'I'}, bankLine(company_), company_, 3);
    signature(sheet_, row + 10, kRight, company_, 2);
  }

  const std::vector<Fact> others_ = closedFacts(facts_,
                                                {
                                                    {quoted("Order No"),   bill_.order           },
                                                    {quoted("Challan No"), bill_.challan         },
                                                    {quoted("Due Date"),   dayText(bill_.dueDate)},
                                                    {quoted("Bill Type"),  bill_.type            }
  },
                                                4);
  const std::vector<Facts::Named> totals_ = totalLines(facts_, bill_, 5);
};

}  // namespace

void invgst2(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
