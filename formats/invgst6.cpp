#include "formats/designs.h"
#include "formats/invoice_design.h"
#include "formats/styles.h"

// Design 6: half a sheet for the counter, in black alone.
namespace formats {

namespace {

// clang-format off
const Form kForm{
    .pages = 7, .slots = 22,
    .head = {11.25, 14.25, 8.25, 8.25, 9, 7.5, 8.25, 7.5, 7.5, 7.5, 7.5, 7.5, 7.5, 8.25, 8.25, 8.25, 9},
    .foot = {9, 9, 7.5, 7.5, 7.5, 7.5, 7.5, 7.5, 7.5, 7.5, 8.25, 8.25, 8.25, 8.25},
    .slot = 14.25,
    // Nothing is brought forward to page 1; its remarks have the room.
    .firstHead = {11.25, 14.25, 8.25, 8.25, 9, 7.5, 8.25, 7.5, 7.5, 7.5, 7.5, 7.5, 7.5, 15.75, 8.25, 8.25, 1.5},
};
constexpr Columns kAll{'A', 'K'}, kLeft{'A', 'H'}, kRight{'I', 'K'}, kLabel{'A', 'D'};
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 15}, {'B', 49.5}, {'C', 51}, {'D', 35.25}, {'E', 30.75}, {'F', 21.75}, {'G', 40.5}, {'H', 18},
               {'I', 46.5}, {'J', 18}, {'K', 51}},
    .paper = {.size = Paper::Size::A5, .leftRight = 9, .topBottom = 11.5},
    .palette = {.accent = kInk, .tint = 0xF0F0F0},
    .table = {.size = 6},
    .letters = 26,
};
constexpr HsnColumns kHsn{.code = {'A', 'B'}, .taxable = {'C', 'D'}, .rate = {'E', 'F'}, .tax = {'G', 'H'}};
const PageSums kPageSums{
    .page = {'A', 'A'}, .lines = {'B', 'B'},
    .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'H'}, "Amount", 'K'}},
};

const FactColumns kFacts{{{'F', 'G'}, {'H', 'K'}}};

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
      {.kind = Kind::Plain,       .columns = {'J', 'J'}, .title = "GST %",   .figure = figures::taxRate},
      {.kind = Kind::Money,       .columns = {'K', 'K'}, .title = "Amount with GST", .figure = figures::net, .total = bill.beforeRounding, .summed = true},
  };
}
// clang-format on

class Design : public InvoiceDesign {
 public:
  explicit Design(Book& book) : InvoiceDesign(book, kTable) { columns_ = lineColumns(bill_); }

 private:
  void head(int row, int page) override {
    titleBar(sheet_, row, {'A', 'C'}, {'D', 'G'}, {'H', 'K'}, "TAX INVOICE", page, bill_.pages, 9.5);
    companyHead(sheet_, row + 1, kAll, company_, 13);
    partyBlock(sheet_, row + 5, {'A', 'E'}, "Bill To", bill_.buyer, 6.5);
    factsBlock(sheet_, row + 5, kFacts, inRows(withMainFacts(others_), 1), 6.5);
    deliveryAndRemarksRow(sheet_, row + 13, kAll, bill_, 6.5, page == 1 ? Room::TwoLines : Room::OneLine);
    tableHead(sheet_, row + 14, columns_, kTable.table);
    if (page > 1)
      sums(row + 16, kLabel, quoted("Brought forward"), sumsUpTo(kForm, page - 1));
    else
      sheet_.blank(at(row + 16, kAll), {.edges = kTray});
  }

  void pageFoot(int row, int page) override {
    sums(row, kLabel, quoted("Total of page " + std::to_string(page)), pageSums(kForm, page));
    sums(row + 1, kLabel, quoted("Carried forward"), sumsUpTo(kForm, page));
    pageSummary(sheet_, row + 2, kPageSums, kForm, bill_, 6.25);
    continued(sheet_, at(row + 2, kRight, 8), page, bill_, 7.5);
    end(row + 10);
  }

  void closing(int row) override {
    sums(row, kLabel, "\"Total of page \"&" + bill_.pages, lastPageSums(kForm, bill_));
    sums(row + 1, kLabel, bill_.totalLabel, billSums(kForm));
    hsnSummary(sheet_, row + 2, 5, kHsn, bill_, 6.25);
    totalsBox(sheet_, row + 2, {'I', 'J'}, {'K', 'K'}, totals_, bill_, 6.75);
    wordsRow(sheet_, row + 9, kLeft, "Rupees", bill_.netWords, 6.75);
    wordsRow(sheet_, row + 10, kLeft, "Tax", bill_.taxWords, 6.75);
    end(row + 10);
  }

  void end(int row) {
    notes(sheet_, row + 1, {'A', 'D'}, {'E', 'H'}, bankLine(company_), company_, 2, 6);
    signature(sheet_, row - 1, kRight, company_, 3, 6.75);
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

void invgst6(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
