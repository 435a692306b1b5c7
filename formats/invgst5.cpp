#include "formats/designs.h"
#include "formats/invoice_design.h"
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
constexpr Columns kAll{'A', 'L'}, kLeft{'A', 'I'}, kRight{'J', 'L'}, kLabel{'A', 'D'}, kName{'C', 'L'}, kBank{'A', 'C'};
constexpr double kLogoSide = 63;
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 20.25}, {'B', 60}, {'C', 69}, {'D', 46.5}, {'E', 42}, {'F', 28.5}, {'G', 51}, {'H', 24},
               {'I', 62.25}, {'J', 24}, {'K', 48}, {'L', 61.5}},
    .palette = {.accent = 0x7A2E3B, .tint = 0xF8EFEF},
    .table = {.beside = Edge::None},
    .letters = 30,
};
constexpr HsnColumns kHsn{.code = {'D', 'D'}, .taxable = {'E', 'F'}, .rate = {'G', 'G'}, .tax = {'H', 'I'}};
const PageSums kPageSums{
    .page = {'A', 'A'}, .lines = {'B', 'B'},
    .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'F'}, "GST", 'K'}, {{'G', 'I'}, "Amount", 'L'}},
};

const FactColumns kFacts{{{'H', 'I'}, {'J', 'L'}}};
const FactColumns kMoreFacts{{{'A', 'B'}, {'C', 'C'}}, {{'D', 'E'}, {'F', 'G'}}, {{'H', 'I'}, {'J', 'L'}}};
const FactColumns kBankFacts{{{'A', 'B'}, {'C', 'C'}}};

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
      {.kind = Kind::Money,       .columns = {'K', 'K'}, .title = "GST",     .figure = figures::tax, .total = bill.tax, .summed = true},
      {.kind = Kind::Money,       .columns = {'L', 'L'}, .title = "Amount",  .figure = figures::net, .total = bill.beforeRounding, .summed = true},
  };
}
// clang-format on

class Design : public InvoiceDesign {
 public:
  explicit Design(Book& book) : InvoiceDesign(book, kTable) { columns_ = lineColumns(bill_); }

 private:
  void head(int row, int page) override {
    letterhead(row);
    titleBar(sheet_, row + 6, {'A', 'C'}, {'D', 'H'}, {'I', 'L'}, "TAX INVOICE", page, bill_.pages, 13);
    partyBlock(sheet_, row + 7, {'A', 'C'}, "Bill To", bill_.buyer);
    partyBlock(sheet_, row + 7, {'D', 'G'}, "Ship To", bill_.consignee);
    factsBlock(sheet_, row + 7, kFacts, inRows(withMainFacts({others_.begin(), others_.begin() + 4}), 1));
    factsBlock(sheet_, row + 15, kMoreFacts, inRows({others_.begin() + 4, others_.end()}, 3));
    remarksRow(sheet_, row + 18, kAll, bill_);
    tableHead(sheet_, row + 19, columns_, kTable.table);
  }

  void letterhead(int row) {
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
  }

  void pageFoot(int row, int page) override {
    sums(row, kLabel, quoted("Carried forward"), sumsUpTo(kForm, page));
    pageSummary(sheet_, row + 1, kPageSums, kForm, bill_);
    sheet_.blank(at(row + 6, kLeft, 4), {.edges = sides(Edge::Thin)});
    continued(sheet_, at(row + 1, kRight, 9), page, bill_);
    end(row + 10);
  }

  void closing(int row) override {
    sums(row, kLabel, bill_.totalLabel, billSums(kForm));
    bank(row + 1);
    hsnSummary(sheet_, row + 1, 5, kHsn, bill_);
    narrowTotalsBox(sheet_, row + 1, {'J', 'K'}, {'L', 'L'}, totals_, bill_);
    wordsRow(sheet_, row + 8, kAll, "Rupees", bill_.netWords, 9);
    wordsRow(sheet_, row + 9, kAll, "Tax", bill_.taxWords);
    end(row + 10);
  }

  void bank(int row) {
    sheet_.text(at(row, kBank), {.size = 7.5, .bold = true, .colour = kAccent, .indent = 1, .edges = kLid},
                "Payment To");
    factsBlock(sheet_, row + 1, kBankFacts, inRows(bank_, 1));
  }

  void end(int row) {
    notes(sheet_, row, {'A', 'E'}, {'F', 'I'}, "", company_, 3);
    signature(sheet_, row, kRight, company_, 2);
  }

  const std::vector<Fact> others_ = closedFacts(facts_,
                                                {
                                                    {quoted("Order No"),    bill_.order          },
                                                    {quoted("Challan No"),  bill_.challan        },
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
  const std::vector<Facts::Named> totals_ = totalLines(facts_, bill_, 5);
};

}  // namespace

void invgst5(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
