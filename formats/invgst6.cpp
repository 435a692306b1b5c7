#include "formats/bill_design.h"
#include "formats/designs.h"
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
constexpr Columns kAll{'A', 'K'};
const BillTable kTable{
    .design = {
        .form = kForm, .all = kAll,
        .widths = {{'A', 15}, {'B', 49.5}, {'C', 51}, {'D', 35.25}, {'E', 30.75}, {'F', 21.75}, {'G', 40.5}, {'H', 18},
                   {'I', 46.5}, {'J', 18}, {'K', 51}},
        .paper = {.size = Paper::Size::A5, .leftRight = 9, .topBottom = 11.5},
        .palette = {.accent = kInk, .tint = 0xF0F0F0},
        .table = {.size = 6},
        .letters = 26,
    },
    .lines = {{BillColumn::DiscountRate, "Disc %"}, {BillColumn::Taxable, "Taxable value"}, {BillColumn::TaxRate, "GST %"},
              {BillColumn::Net, "Amount with GST"}},
    .head = {.mark = {'A', 'C'}, .title = {'D', 'G'}, .page = {'H', 'K'}, .titleSize = 9.5, .nameSize = 13,
             .buyer = {'A', 'E'}, .size = 6.5},
    .foot = {
        .pages = {.page = {'A', 'A'}, .lines = {'B', 'B'},
                  .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'H'}, "Amount", 'K'}}},
        .hsn = {.code = {'A', 'B'}, .taxable = {'C', 'D'}, .rate = {'E', 'F'}, .tax = {'G', 'H'}},
        .totalLabel = {'I', 'J'}, .total = {'K', 'K'},
        .notes = {'A', 'D'}, .receiver = {'E', 'H'}, .bankMakesRoom = true,
        .signature = {'I', 'K'}, .besideWords = 2,
        .size = 6.75, .rupeesSize = 6.75, .pagesSize = 6.25, .hsnSize = 6.25, .notesSize = 6, .continuedSize = 7.5,
    },
    .pageTotals = true,
};

const FactColumns kFacts{{{'F', 'G'}, {'H', 'K'}}};
// clang-format on

class Design : public BillDesign {
 public:
  explicit Design(Book& book) : BillDesign(book, kTable) {}

 private:
  void particulars(int row, int page) override {
    factsBlock(sheet_, row, kFacts, inRows(withMainFacts(others_), 1), 6.5);
    deliveryAndRemarksRow(sheet_, row + 8, kAll, bill_, 6.5, page == 1 ? Room::TwoLines : Room::OneLine);
  }

  const std::vector<Fact> others_ = orderAndTransportFacts();
};

}  // namespace

void invgst6(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
