#include "formats/bill_design.h"
#include "formats/designs.h"
#include "formats/logo.h"
#include "formats/styles.h"

// Design 5: a letterhead with the company's mark, and where the money is to be paid.
namespace formats {

namespace {

// clang-format off
const Form kForm{
    .pages = 3, .slots = 22,
    .head = {27, 12.75, 12.75, 12.75, 13.5, 3, 18, 11.25, 13.5, 11.25, 11.25, 11.25, 11.25, 11.25, 11.25,
             11.25, 11.25, 11.25, 12, 10.5, 10.5},
    .foot = {14.25, 11.25, 11.25, 11.25, 11.25, 11.25, 12, 17.25, 13.5, 13.5, 12, 12, 12, 12},
    .slot = 17.25,
};
constexpr Columns kAll{'A', 'L'}, kName{'C', 'L'}, kBank{'A', 'C'};
constexpr double kLogoSide = 63;
const BillTable kTable{
    .design = {
        .form = kForm, .all = kAll,
        .widths = {{'A', 20.25}, {'B', 60}, {'C', 69}, {'D', 46.5}, {'E', 42}, {'F', 28.5}, {'G', 51}, {'H', 24},
                   {'I', 62.25}, {'J', 24}, {'K', 48}, {'L', 61.5}},
        .palette = {.accent = 0x7A2E3B, .tint = 0xF8EFEF},
        .table = {.beside = Edge::None},
        .letters = 30,
    },
    .lines = {{BillColumn::DiscountRate, "Disc %"}, {BillColumn::Taxable, "Taxable value"}, {BillColumn::TaxRate, "GST %"},
              {BillColumn::Tax, "GST"}, {BillColumn::Net, "Amount"}},
    .head = {.mark = {'A', 'C'}, .title = {'D', 'H'}, .page = {'I', 'L'}, .titleSize = 13, .rows = 7,
             .buyer = {'A', 'C'}, .consignee = {'D', 'G'}},
    .foot = {
        .pages = {.page = {'A', 'A'}, .lines = {'B', 'B'},
                  .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'F'}, "GST", 'K'}, {{'G', 'I'}, "Amount", 'L'}}},
        .hsn = {.code = {'D', 'D'}, .taxable = {'E', 'F'}, .rate = {'G', 'G'}, .tax = {'H', 'I'}},
        .totalLabel = {'J', 'K'}, .total = {'L', 'L'}, .narrowTotals = true,
        .notes = {'A', 'E'}, .receiver = {'F', 'I'}, .bankLine = false,
        .signature = {'J', 'L'},
        .rupeesSize = 9,
    },
};

const FactColumns kFacts{{{'H', 'I'}, {'J', 'L'}}};
const FactColumns kMoreFacts{{{'A', 'B'}, {'C', 'C'}}, {{'D', 'E'}, {'F', 'G'}}, {{'H', 'I'}, {'J', 'L'}}};
const FactColumns kBankFacts{{{'A', 'B'}, {'C', 'C'}}};
// clang-format on

class Design : public BillDesign {
 public:
  explicit Design(Book& book) : BillDesign(book, kTable) {}

 private:
  void top(int row, int page) override {
    const Style line{.size = 9, .shrink = true};
    sheet_.picture({row, 'A'}, logo(), kLogoSide, 6, 6);
    sheet_.formula(at(row, kName), {.size = 24, .bold = true, .colour = kAccent, .shrink = true},
                   company_.name);
    sheet_.formula(at(row + 1, kName), line, company_.address);
    sheet_.formula(at(row + 2, kName), line, labelled("Phone : ", company_.phones));
    sheet_.formula(at(row + 3, kName), line, labelled("E-mail : ", company_.mail));
    sheet_.formula(at(row + 4, kName), {.size = 9, .bold = true, .shrink = true},
                   taxNumbers(company_, "     "));
    sheet_.blank(at(row + 5, kAll), {.fill = kAccent});
    titles(row + 6, page);
  }

  void particulars(int row, int) override {
    factsBlock(sheet_, row, kFacts, inRows(withMainFacts({others_.begin(), others_.begin() + 4}), 1));
    factsBlock(sheet_, row + 8, kMoreFacts, inRows({others_.begin() + 4, others_.end()}, 3));
    remarksRow(sheet_, row + 11, kAll, bill_);
  }

  void besideHsn(int row) override {
    sheet_.text(at(row, kBank), {.size = 7.5, .bold = true, .colour = kAccent, .indent = 1, .edges = kLid},
                "Payment To");
    factsBlock(sheet_, row + 1, kBankFacts, inRows(bank_, 1));
  }

  const std::vector<Fact> others_ = closedFacts(facts_,
                                                {
                                                    {bill_.orderLabel,      bill_.order          },
                                                    {bill_.challanLabel,    bill_.challan        },
                                                    {quoted("Bill Type"),   bill_.type           },
                                                    {quoted("Transport"),   bill_.transport      },
                                                    {quoted("L.R. No"),     bill_.lrNumber       },
                                                    {quoted("L.R. Date"),   dayText(bill_.lrDate)},
                                                    {quoted("GSTIN / ID"),  bill_.transporterId  },
                                                    {quoted("Destination"), bill_.destination    },
                                                    {quoted("Parcels"),     bill_.parcels        },
                                                    {quoted("Freight"),     bill_.freight        },
                                                    {quoted("IRN"),         bill_.irn            }
  },
                                                13);
  const std::vector<Fact> bank_ = closedFacts(facts_,
                                              {
                                                  {quoted("Account of"), company_.name         },
                                                  {quoted("Bank"),       company_.bankName     },
                                                  {quoted("Branch"),     company_.branch       },
                                                  {quoted("Account No"), company_.accountNumber},
                                                  {quoted("IFSC"),       company_.ifsc         },
                                                  {quoted("Due Date"),   dayText(bill_.dueDate)}
  },
                                              6);
};

}  // namespace

void invgst5(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
