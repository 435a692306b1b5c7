#include "formats/bill_design.h"
#include "formats/designs.h"
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
constexpr Columns kAll{'A', 'M'}, kName{'A', 'H'}, kTitle{'I', 'M'};
const BillTable kTable{
    .design = {
        .form = kForm, .all = kAll,
        .widths = {{'A', 20.25}, {'B', 61.5}, {'C', 69}, {'D', 43.5}, {'E', 39.75}, {'F', 27.75}, {'G', 45.75}, {'H', 21.75},
                   {'I', 57.75}, {'J', 21.75}, {'K', 42.75}, {'L', 42.75}, {'M', 42.75}},
        .palette = {.accent = kInk, .tint = 0xF0F0F0},
        .letters = 30,
    },
    .lines = {{BillColumn::DiscountRate, "Disc %"}, {BillColumn::Taxable, "Taxable value"}, {BillColumn::TaxRate, "GST %"},
              {BillColumn::Cgst, "CGST"}, {BillColumn::Sgst, "SGST"}, {BillColumn::Igst, "IGST"}},
    .head = {.buyer = {'A', 'C'}, .consignee = {'D', 'H'}},
    .foot = {
        .pages = {.page = {'A', 'A'}, .lines = {'B', 'B'},
                  .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'E'}, "CGST", 'K'}, {{'F', 'G'}, "SGST", 'L'},
                              {{'H', 'I'}, "IGST", 'M'}}},
        .hsn = {.code = {'A', 'B'}, .taxable = {'C', 'C'}, .rate = {'D', 'D'}, .cgst = {'E', 'F'},
                .sgst = {'G', 'H'}, .igst = {'I', 'I'}},
        .totalLabel = {'J', 'K'}, .total = {'L', 'M'},
        .notes = {'A', 'F'}, .receiver = {'G', 'I'},
        .signature = {'J', 'M'},
    },
    .pageTotals = true,
};

const FactColumns kFacts{{{'I', 'I'}, {'J', 'M'}}};
// clang-format on

class Design : public BillDesign {
 public:
  explicit Design(Book& book) : BillDesign(book, kTable) {}

 private:
  void top(int row, int page) override {
    const Style line{.size = 8.5, .shrink = true};
    Style right{.size = 8, .colour = kQuiet, .across = Across::Right, .shrink = true};
    sheet_.formula(at(row, kName, 2), {.size = 19, .bold = true, .shrink = true}, company_.name);
    sheet_.formula(at(row, kTitle, 2), {.size = 16, .bold = true, .across = Across::Right, .shrink = true},
                   bill_.title);
    sheet_.formula(at(row + 2, kName), line, company_.address);
    sheet_.text(at(row + 2, kTitle), right, kOriginal);
    sheet_.formula(at(row + 3, kName), line, company_.contact);
    sheet_.formula(at(row + 3, kTitle), right, pageOf(page, bill_.pages));
    sheet_.formula(at(row + 4, kAll), {.size = 9, .bold = true, .shrink = true},
                   taxNumbers(company_, "          "));
  }

  void particulars(int row, int page) override {
    factsBlock(sheet_, row, kFacts, inRows(withMainFacts(others_), 1));
    remarksRow(sheet_, row + 8, kAll, bill_, 8, page == 1 ? Room::TwoLines : Room::OneLine);
  }

  const std::vector<Fact> others_ = orderAndTransportFacts();
};

}  // namespace

void invgst3(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
