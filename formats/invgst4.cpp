#include "formats/designs.h"
#include "formats/invoice_design.h"
#include "formats/styles.h"

// Design 4: a wide sheet, with the rate and amount of every tax beside each line.
namespace formats {

namespace {

// clang-format off
const Form kForm{
    .pages = 2, .slots = 20,
    .head = {13.5, 18, 9.75, 11.25, 9.75, 11.25, 9.75, 9.75, 9.75, 9.75, 9.75, 9.75, 9.75, 9, 9},
    .foot = {11.25, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 10.5, 10.5, 9.75, 9.75, 9.75},
    .slot = 12.75,
};
constexpr Columns kAll{'A', 'P'}, kLeft{'A', 'K'}, kRight{'L', 'P'}, kLabel{'A', 'D'};
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 21}, {'B', 69.75}, {'C', 129}, {'D', 46.5}, {'E', 42}, {'F', 30}, {'G', 54}, {'H', 24},
               {'I', 63}, {'J', 21.75}, {'K', 52.5}, {'L', 21.75}, {'M', 52.5}, {'N', 21.75}, {'O', 52.5}, {'P', 66}},
    .paper = {.landscape = true},
    .palette = {.accent = 0x2F5D3A, .tint = 0xEAF3EC},
    .table = {.wrap = false},
    .letters = 62,
};
constexpr HsnColumns kHsn{.code = {'A', 'B'}, .taxable = {'C', 'C'}, .cgstRate = {'D', 'D'}, .cgst = {'E', 'F'},
                          .sgstRate = {'G', 'G'}, .sgst = {'H', 'I'}, .igstRate = {'J', 'J'}, .igst = {'K', 'K'}};
const PageSums kPageSums{
    .page = {'A', 'A'}, .lines = {'B', 'B'},
    .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'E'}, "CGST", 'K'}, {{'F', 'G'}, "SGST", 'M'},
                {{'H', 'I'}, "IGST", 'O'}, {{'J', 'K'}, "Total", 'P'}},
};

const FactColumns kFacts{{{'I', 'I'}, {'J', 'L'}}};
const FactColumns kTransport{{{'M', 'M'}, {'N', 'P'}}};

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
// clang-format on

class Design : public InvoiceDesign {
 public:
  explicit Design(Book& book) : InvoiceDesign(book, kTable) { columns_ = lineColumns(bill_); }

 private:
  void head(int row, int page) override {
    titleBar(sheet_, row, {'A', 'C'}, {'D', 'K'}, kRight, "TAX INVOICE", page, bill_.pages, 11);
    companyHead(row + 1);
    partyBlock(sheet_, row + 4, {'A', 'C'}, "Bill To", bill_.buyer, 7.5);
    partyBlock(sheet_, row + 4, {'D', 'H'}, "Ship To", bill_.consignee, 7.5);
    factsBlock(sheet_, row + 4, kFacts, inRows(withMainFacts(others_), 1), 7.5);
    factsBlock(sheet_, row + 4, kTransport, inRows(transport_, 1), 7.5);
    remarksRow(sheet_, row + 12, kAll, bill_, 7.5);
    tableHead(sheet_, row + 13, columns_);
  }

  void companyHead(int row) {
    Style style{.size = 15, .bold = true, .colour = kAccent, .across = Across::Centre, .shrink = true};
    style.edges = sides(Edge::Thin);
    sheet_.formula(at(row, kAll), style, company_.name);
    sheet_.formula(at(row + 1, kAll),
                   {.size = 8, .across = Across::Centre, .shrink = true, .edges = sides(Edge::Thin)},
                   joined(company_.address, "     ", company_.contact));
    sheet_.formula(at(row + 2, kAll),
                   {.size = 8.5, .bold = true, .across = Across::Centre, .shrink = true, .edges = kTray},
                   taxNumbers(company_, "          "));
  }

  void pageFoot(int row, int page) override {
    sums(row, kLabel, quoted("Carried forward"), sumsUpTo(kForm, page));
    pageSummary(sheet_, row + 1, kPageSums, kForm, bill_);
    sheet_.blank(at(row + 5, kLeft, 8), {.edges = sides(Edge::Thin)});
    continued(sheet_, at(row + 1, kRight, 10), page, bill_);
    end(row + 11);
  }

  void closing(int row) override {
    sums(row, kLabel, bill_.totalLabel, billSums(kForm));
    hsnSummary(sheet_, row + 1, 8, kHsn, bill_, 7);
    totalsBox(sheet_, row + 1, {'L', 'N'}, {'O', 'P'}, totals_, bill_, 8);
    wordsRow(sheet_, row + 11, kLeft, "Rupees", bill_.netWords, 8);
    wordsRow(sheet_, row + 12, kLeft, "Tax", bill_.taxWords, 8);
    end(row + 11);
  }

  void end(int row) {
    notes(sheet_, row + 2, {'A', 'G'}, {'H', 'K'}, bankLine(company_), company_, 2);
    signature(sheet_, row, kRight, company_, 3, 8);
  }

  const std::vector<Fact> others_ = closedFacts(facts_,
                                                {
                                                    {quoted("Order No"),   bill_.order           },
                                                    {quoted("Challan No"), bill_.challan         },
                                                    {quoted("Due Date"),   dayText(bill_.dueDate)},
                                                    {quoted("Bill Type"),  bill_.type            }
  },
                                                4);
  const std::vector<Fact> transport_ = closedFacts(facts_,
                                                   {
                                                       {quoted("Transport"),   bill_.transport       },
                                                       {quoted("Place"),       bill_.transporterPlace},
                                                       {quoted("Phone"),       bill_.transporterPhone},
                                                       {quoted("GSTIN / ID"),  bill_.transporterId   },
                                                       {quoted("L.R. No"),     bill_.lrNumber        },
                                                       {quoted("L.R. Date"),   dayText(bill_.lrDate) },
                                                       {quoted("Destination"), bill_.destination     },
                                                       {quoted("Parcels"),     bill_.parcels         }
  },
                                                   8);
  const std::vector<Facts::Named> totals_ = totalLines(facts_, bill_, 8);
};

}  // namespace

void invgst4(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
