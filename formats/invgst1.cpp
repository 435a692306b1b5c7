#include "formats/bill_design.h"
#include "formats/designs.h"
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
constexpr Columns kAll{'A', 'P'};
const BillTable kTable{
    .design = {
        .form = kForm, .all = kAll,
        .widths = {{'A', 16.5}, {'B', 45}, {'C', 60}, {'D', 36}, {'E', 33}, {'F', 24}, {'G', 40.5}, {'H', 19.5},
                   {'I', 45}, {'J', 16.5}, {'K', 39}, {'L', 16.5}, {'M', 39}, {'N', 16.5}, {'O', 39}, {'P', 48}},
    },
    .lines = everyTax(),
    .head = {.mark = {'A', 'D'}, .title = {'E', 'K'}, .page = {'L', 'P'}, .buyer = {'A', 'D'}, .consignee = {'E', 'I'}},
    .foot = {
        .pages = {.page = {'A', 'B'},
                  .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'E'}, "CGST", 'K'}, {{'F', 'G'}, "SGST", 'M'},
                              {{'H', 'I'}, "IGST", 'O'}, {{'J', 'K'}, "Total", 'P'}}},
        .hsn = {.code = {'A', 'B'}, .taxable = {'C', 'C'}, .rate = {'D', 'D'}, .cgst = {'E', 'F'},
                .sgst = {'G', 'H'}, .igst = {'I', 'I'}, .tax = {'J', 'K'}},
        .totalLabel = {'L', 'N'}, .total = {'O', 'P'},
        .notes = {'A', 'F'}, .receiver = {'G', 'J'},
        .signature = {'K', 'P'}, .besideWords = 1,
    },
};

const FactColumns kFacts{{{'J', 'K'}, {'L', 'M'}}, {{'N', 'O'}, {'P', 'P'}}};

FactRows billFactRows(const Bill& bill) {
  return {
      {{.label = bill.numberLabel, .value = bill.number, .bold = true, .ofData = true}, {.label = "Date", .value = bill.date, .number = kDay, .bold = true}},
      {{.label = bill.challanLabel, .value = bill.challan, .ofData = true}, {.label = "Bill Type", .value = bill.type}},
      {{.label = bill.orderLabel, .value = bill.order, .ofData = true}},
      {{.label = "Transport", .value = bill.transport}},
      {{.label = "L.R. No", .value = bill.lrNumber}, {.label = "L.R. Date", .value = bill.lrDate, .number = kDay}},
      {{.label = "Destination", .value = bill.destination}},
      {{.label = "Parcels", .value = bill.parcels}, {.label = "Due Date", .value = bill.dueDate, .number = kDay}},
      {{.label = "Place of Supply", .value = bill.placeOfSupply, .bold = true}},
      {{.label = "Reverse Charge", .value = bill.reverse}},
  };
}
// clang-format on

class Design : public BillDesign {
 public:
  explicit Design(Book& book) : BillDesign(book, kTable) {}

 private:
  void particulars(int row, int) override {
    remarksRow(sheet_, row + 8, {'A', 'I'}, bill_);
    factsBlock(sheet_, row, kFacts, billFactRows(bill_));
  }
};

}  // namespace

void invgst1(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
