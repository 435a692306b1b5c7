#include "formats/designs.h"
#include "formats/invoice_design.h"
#include "formats/styles.h"

// Design 3: long bills, in black alone. Each page tells what it comes to and what was brought
// forward, and each foot lists all pages.
namespace formats {

namespace {

// clang-format off
const Form kForm{
    .pages = 7, .slots = 22,
    .head = {15, 15, 12, 12, 14.25, 12, 13.5, 12, 12, 12, 12, 12, 12, 12, 11.25, 11.25, 13.5},
    .foot = {13.5, 13.5, 11.25, 11.25, 11.25, 11.25, 11.25, 11.25, 11.25, 12.75, 12.75, 28.5, 12, 12},
    .slot = 18.75,
    // Nothing is brought forward to page 1; its remarks have the room.
    .firstHead = {15, 15, 12, 12, 14.25, 12, 13.5, 12, 12, 12, 12, 12, 12, 24, 11.25, 11.25, 1.5},
};
constexpr Columns kAll{'A', 'M'}, kRight{'J', 'M'}, kLabel{'A', 'D'}, kName{'A', 'H'}, kTitle{'I', 'M'};
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 20.25}, {'B', 61.5}, {'C', 69}, {'D', 43.5}, {'E', 39.75}, {'F', 27.75}, {'G', 45.75}, {'H', 21.75},
               {'I', 57.75}, {'J', 21.75}, {'K', 42.75}, {'L', 42.75}, {'M', 42.75}},
    .palette = {.accent = kInk, .tint = 0xF0F0F0},
    .letters = 30,
};
constexpr HsnColumns kHsn{.code = {'A', 'B'}, .taxable = {'C', 'C'}, .rate = {'D', 'D'}, .cgst = {'E', 'F'},
                          .sgst = {'G', 'H'}, .igst = {'I', 'I'}};
const PageSums kPageSums{
    .page = {'A', 'A'}, .lines = {'B', 'B'},
    .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'E'}, "CGST", 'K'}, {{'F', 'G'}, "SGST", 'L'},
                {{'H', 'I'}, "IGST", 'M'}},
};

const FactColumns kFacts{{{'I', 'I'}, {'J', 'M'}}};

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
      {.kind = Kind::Plain,       .columns = {'J', 'J'}, .title = "GST %",  .figure = figures::taxRate},
      {.kind = Kind::Money,       .columns = {'K', 'K'}, .title = "CGST",   .field = "SALEITM.CGSTAMT", .total = bill.cgst, .summed = true},
      {.kind = Kind::Money,       .columns = {'L', 'L'}, .title = "SGST",   .field = "SALEITM.SGSTAMT", .total = bill.sgst, .summed = true},
      {.kind = Kind::Money,       .columns = {'M', 'M'}, .title = "IGST",   .field = "SALEITM.IGSTAMT", .total = bill.igst, .summed = true},
  };
}
// clang-format on

class Design : public InvoiceDesign {
 public:
  explicit Design(Book& book) : InvoiceDesign(book, kTable) { columns_ = lineColumns(bill_); }

 private:
  void head(int row, int page) override {
    letterhead(row, page);
    partyBlock(sheet_, row + 5, {'A', 'C'}, "Bill To", bill_.buyer);
    partyBlock(sheet_, row + 5, {'D', 'H'}, "Ship To", bill_.consignee);
    factsBlock(sheet_, row + 5, kFacts, inRows(withMainFacts(others_), 1));
    remarksRow(sheet_, row + 13, kAll, bill_, 8, page == 1 ? Room::TwoLines : Room::OneLine);
    tableHead(sheet_, row + 14, columns_);
    if (page > 1)
      sums(row + 16, kLabel, quoted("Brought forward"), sumsUpTo(kForm, page - 1));
    else
      sheet_.blank(at(row + 16, kAll), {.edges = kTray});
  }

  void letterhead(int row, int page) {
    const Style line{.size = 8.5, .shrink = true};
    Style right{.size = 8, .colour = kQuiet, .across = Across::Right, .shrink = true};
    sheet_.formula(at(row, kName, 2), {.size = 19, .bold = true, .shrink = true}, company_.name);
    sheet_.text(at(row, kTitle, 2), {.size = 16, .bold = true, .across = Across::Right}, "TAX INVOICE");
    sheet_.formula(at(row + 2, kName), line, company_.address);
    sheet_.text(at(row + 2, kTitle), right, kOriginal);
    sheet_.formula(at(row + 3, kName), line, company_.contact);
    sheet_.formula(at(row + 3, kTitle), right, pageOf(page, bill_.pages));
    sheet_.formula(at(row + 4, kAll), {.size = 9, .bold = true, .shrink = true},
                   taxNumbers(company_, "          "));
  }

  void pageFoot(int row, int page) override {
    sums(row, kLabel, quoted("Total of page " + std::to_string(page)), pageSums(kForm, page));
    sums(row + 1, kLabel, quoted("Carried forward"), sumsUpTo(kForm, page));
    pageSummary(sheet_, row + 2, kPageSums, kForm, bill_);
    continued(sheet_, at(row + 2, kRight, 9), page, bill_);
    end(row + 11);
  }

  void closing(int row) override {
    sums(row, kLabel, "\"Total of page \"&" + bill_.pages, lastPageSums(kForm, bill_));
    sums(row + 1, kLabel, bill_.totalLabel, billSums(kForm));
    hsnSummary(sheet_, row + 2, 5, kHsn, bill_);
    totalsBox(sheet_, row + 2, {'J', 'K'}, {'L', 'M'}, totals_, bill_);
    wordsRow(sheet_, row + 9, kAll, "Rupees", bill_.netWords);
    wordsRow(sheet_, row + 10, kAll, "Tax", bill_.taxWords);
    end(row + 11);
  }

  void end(int row) {
    notes(sheet_, row, {'A', 'F'}, {'G', 'I'}, bankLine(company_), company_, 2);
    signature(sheet_, row, kRight, company_);
  }

  const std::vector<Fact> others_ = closedFacts(facts_,
                                                {
                                                    {quoted("Order No"),   bill_.order           },
                                                    {quoted("Challan No"), bill_.challan         },
                                                    {quoted("Transport"),  bill_.transport       },
                                                    {quoted("L.R. No"),    bill_.lrNumber        },
                                                    {quoted("Parcels"),    bill_.parcels         },
                                                    {quoted("Due Date"),   dayText(bill_.dueDate)}
  },
                                                4);
  const std::vector<Facts::Named> totals_ = totalLines(facts_, bill_, 5);
};

}  // namespace

void invgst3(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
