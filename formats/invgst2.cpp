#include "formats/bill_design.h"
#include "formats/designs.h"
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
constexpr Columns kAll{'A', 'M'}, kCopy{'A', 'D'};
constexpr int kWidth = kAll.right - kAll.left + 1;
const BillTable kTable{
    .design = {
        .form = kForm, .all = kAll,
        .widths = {{'A', 18}, {'B', 60}, {'C', 60}, {'D', 42}, {'E', 38.25}, {'F', 27}, {'G', 45}, {'H', 22.5},
                   {'I', 42}, {'J', 57}, {'K', 22.5}, {'L', 48}, {'M', 54}},
        .palette = {.accent = 0x1F3A6E, .tint = 0xE9EEF7},
        .letters = 27,
    },
    .lines = {{BillColumn::DiscountRate, "%", "Discount"}, {BillColumn::Discount, "Amount", "Discount"}, {BillColumn::Taxable, "Taxable value"},
              {BillColumn::TaxRate, "%", "GST"}, {BillColumn::Tax, "Amount", "GST"}, {BillColumn::Net, "Total"}},
    .head = {.mark = kCopy, .title = {'E', 'I'}, .page = {'J', 'M'}, .buyer = {'A', 'D'}, .consignee = {'E', 'I'},
             .billTo = "Billed To", .shipTo = "Shipped To"},
    .foot = {
        .pages = {.page = {'A', 'A'}, .lines = {'B', 'B'},
                  .columns = {{{'C', 'C'}, "Taxable value", 'J'}, {{'D', 'F'}, "GST", 'L'}, {{'G', 'I'}, "Total", 'M'}}},
        .hsn = {.code = {'A', 'B'}, .taxable = {'C', 'C'}, .rate = {'D', 'D'}, .cgst = {'E', 'F'},
                .sgst = {'G', 'G'}, .igst = {'H', 'I'}},
        .totalLabel = {'J', 'K'}, .total = {'L', 'M'},
        .notes = {'A', 'E'}, .receiver = {'F', 'I'},
        .signature = {'J', 'M'},
    },
};

const FactColumns kCarrier{{{'A', 'B'}, {'C', 'D'}}}, kConsignment{{{'E', 'F'}, {'G', 'I'}}}, kRoad{{{'J', 'J'}, {'K', 'M'}}};
const FactColumns kFacts{{{'J', 'J'}, {'K', 'M'}}};
// clang-format on

class Design : public BillDesign {
 public:
  explicit Design(Book& book) : BillDesign(book, kTable) {}

  void write() override {
    BillDesign::write();
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

  void particulars(int row, int) override {
    factsBlock(sheet_, row, kFacts, inRows(withMainFacts(order_), 1));
    transport(row + 8);
    remarksRow(sheet_, row + 13, kAll, bill_);
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

  const std::vector<Fact> order_ = orderFacts();
};

}  // namespace

void invgst2(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
