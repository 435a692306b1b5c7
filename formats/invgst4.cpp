#include "formats/bill_design.h"
#include "formats/designs.h"
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
constexpr Columns kAll{'A', 'P'};
const BillTable kTable{
    .design = {
        .form = kForm, .all = kAll,
        .widths = {{'A', 21}, {'B', 69.75}, {'C', 129}, {'D', 46.5}, {'E', 42}, {'F', 30}, {'G', 54}, {'H', 24},
                   {'I', 63}, {'J', 21.75}, {'K', 52.5}, {'L', 21.75}, {'M', 52.5}, {'N', 21.75}, {'O', 52.5}, {'P', 66}},
        .paper = {.landscape = true},
        .palette = {.accent = 0x2F5D3A, .tint = 0xEAF3EC},
        .table = {.wrap = false},
        .letters = 62,
    },
    .lines = everyTax(),
    .head = {.mark = {'A', 'C'}, .title = {'D', 'K'}, .page = {'L', 'P'}, .titleSize = 11, .rows = 4,
             .buyer = {'A', 'C'}, .consignee = {'D', 'H'}, .size = 7.5},
    .foot = {
        .pages = {.page = {'A', 'A'}, .lines = {'B', 'B'},
                  .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'E'}, "CGST", 'K'}, {{'F', 'G'}, "SGST", 'M'},
                              {{'H', 'I'}, "IGST", 'O'}, {{'J', 'K'}, "Total", 'P'}}},
        .hsn = {.code = {'A', 'B'}, .taxable = {'C', 'C'}, .cgstRate = {'D', 'D'}, .cgst = {'E', 'F'},
                .sgstRate = {'G', 'G'}, .sgst = {'H', 'I'}, .igstRate = {'J', 'J'}, .igst = {'K', 'K'}},
        .hsnRows = 8, .totalLabel = {'L', 'N'}, .total = {'O', 'P'},
        .notes = {'A', 'G'}, .receiver = {'H', 'K'},
        .signature = {'L', 'P'}, .besideWords = 2,
        .size = 8, .rupeesSize = 8, .hsnSize = 7,
    },
};

const FactColumns kFacts{{{'I', 'I'}, {'J', 'L'}}};
const FactColumns kTransport{{{'M', 'M'}, {'N', 'P'}}};
// clang-format on

class Design : public BillDesign {
 public:
  explicit Design(Book& book) : BillDesign(book, kTable) {}

 private:
  void company(int row) override {
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

  void particulars(int row, int) override {
    factsBlock(sheet_, row, kFacts, inRows(withMainFacts(order_), 1), 7.5);
    factsBlock(sheet_, row, kTransport, inRows(transport_, 1), 7.5);
    remarksRow(sheet_, row + 8, kAll, bill_, 7.5);
  }

  const std::vector<Fact> order_ = orderFacts();
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
};

}  // namespace

void invgst4(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
