#include <utility>

#include "formats/designs.h"
#include "formats/invoice_design.h"
#include "formats/paper_facts.h"
#include "formats/styles.h"

// Design 7: a quotation on the letterhead, with its terms under the lines.
namespace formats {

namespace {

// clang-format off
const Form kForm{
    .pages = 7, .slots = 22,
    .head = {17.25, 21.75, 11.25, 11.25, 12.75, 11.25, 12.75, 11.25, 11.25, 11.25, 11.25, 11.25, 11.25, 21.75, 19.5},
    .foot = {14.25, 17.25, 17.25, 17.25, 17.25, 17.25, 17.25, 17.25, 17.25, 13.5, 11.25, 11.25, 18.75, 12},
    .slot = 17.25,
};
constexpr Columns kAll{'A', 'L'}, kLeft{'A', 'F'}, kRight{'G', 'L'}, kLabel{'A', 'D'};
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 18}, {'B', 45}, {'C', 108}, {'D', 42}, {'E', 39}, {'F', 27}, {'G', 48}, {'H', 25.5},
               {'I', 57}, {'J', 22.5}, {'K', 48}, {'L', 57}},
    .palette = {.accent = 0x5A2A5E, .tint = 0xF3ECF4},
    .table = {.size = 7, .headRows = 1},
    .letters = 38,
    .sheet = "QUOT", .facts = &quotationFacts,
};
const PageSums kPageSums{
    .page = {'A', 'A'}, .lines = {'B', 'B'},
    .columns = {{{'C', 'C'}, "Taxable value", 'I'}, {{'D', 'E'}, "GST", 'K'}, {{'F', 'G'}, "Amount", 'L'}},
};

using Kind = LineColumn::Kind;

std::string quantity(int slot) { return lineNumber(slot, "QUOTPRN:QUOTITM.QUANTITY"); }
std::string rate(int slot) { return lineNumber(slot, "QUOTPRN:QUOTITM.RATE"); }
std::string amountOf(int slot) { return lineNumber(slot, "QUOTPRN:QUOTITM.AMOUNT"); }
std::string taxRate(int slot) {
  return Bill::figure(slot, "QUOTPRN:QUOTITM.CGSTRT") + "+" + Bill::figure(slot, "QUOTPRN:QUOTITM.SGSTRT") + "+" +
         Bill::figure(slot, "QUOTPRN:QUOTITM.IGSTRT");
}
std::string tax(int slot) {
  return Bill::figure(slot, "QUOTPRN:QUOTITM.CGSTAMT") + "+" + Bill::figure(slot, "QUOTPRN:QUOTITM.SGSTAMT") + "+" +
         Bill::figure(slot, "QUOTPRN:QUOTITM.IGSTAMT");
}

std::vector<LineColumn> lineColumns(const Bill& bill) {
  return {
      {.kind = Kind::Serial,      .columns = {'A', 'A'}, .title = "Sr"},
      {.kind = Kind::Description, .columns = {'B', 'C'}, .title = "Description"},
      {.kind = Kind::Text,        .columns = {'D', 'D'}, .title = "HSN/SAC", .field = "QUOTPRN:ITEM.HSNCODE"},
      {.kind = Kind::Plain,       .columns = {'E', 'E'}, .title = "Qty",     .figure = quantity, .total = bill.quantity, .summed = true},
      {.kind = Kind::Text,        .columns = {'F', 'F'}, .title = "Unit",    .field = "QUOTPRN:QUOTITM.SIZE_CD"},
      {.kind = Kind::Rate,        .columns = {'G', 'G'}, .title = "Rate",    .figure = rate},
      {.kind = Kind::Plain,       .columns = {'H', 'H'}, .title = "Disc %",  .field = "QUOTPRN:QUOTITM.DISC"},
      {.kind = Kind::Money,       .columns = {'I', 'I'}, .title = "Taxable value", .field = "QUOTPRN:QUOTITM.ASSIVAL", .total = bill.taxable, .summed = true},
      {.kind = Kind::Plain,       .columns = {'J', 'J'}, .title = "GST %",   .figure = taxRate},
      {.kind = Kind::Money,       .columns = {'K', 'K'}, .title = "GST",     .figure = tax, .total = bill.tax, .summed = true},
      {.kind = Kind::Money,       .columns = {'L', 'L'}, .title = "Amount",  .figure = amountOf, .total = bill.beforeRounding, .summed = true},
  };
}

const FactColumns kFacts{{{'G', 'H'}, {'I', 'I'}}, {{'J', 'J'}, {'K', 'L'}}};

FactRows factRows(const Bill& bill) {
  return {
      {{.label = "Quotation No", .value = bill.number, .bold = true}, {.label = "Date", .value = bill.date, .number = kDay, .bold = true}},
      {{.label = "Place of Supply", .value = bill.placeOfSupply, .bold = true}},
  };
}

// The terms as the screen names them, in its order.
constexpr std::pair<const char*, const char*> kTerms[] = {
    {"Validity",   "QUOT.DESC8"}, {"Rate Specs", "QUOT.DESC1"}, {"Pay Terms",  "QUOT.DESC2"},
    {"Taxes",      "QUOT.DESC3"}, {"Deli Terms", "QUOT.DESC4"}, {"Pckng-Fwd",  "QUOT.DESC5"},
    {"Instl Chrg", "QUOT.DESC6"}, {"Subject To", "QUOT.DESC7"},
};
// clang-format on

class Design : public InvoiceDesign {
 public:
  explicit Design(Book& book) : InvoiceDesign(book, kTable) { columns_ = lineColumns(bill_); }

 private:
  void head(int row, int page) override {
    titleBar(sheet_, row, {'A', 'C'}, {'D', 'I'}, {'J', 'L'}, "QUOTATION", page, bill_.pages, 12, "");
    companyHead(sheet_, row + 1, kAll, company_);
    partyBlock(sheet_, row + 5, kLeft, "To", bill_.buyer);
    factsBlock(sheet_, row + 5, kFacts, factRows(bill_));
    lines(at(row + 7, kRight, 3), labelled("Kind Attn. : ", attention_), sides(Edge::Thin));
    lines(at(row + 10, kRight, 3), labelled("Your Ref. : ", reference_), kTray);
    Style style{.size = 9, .bold = true, .wrap = true, .indent = 1, .edges = kTray};
    sheet_.formula(at(row + 13, kAll), style, labelled("Subject : ", subject_));
    tableHead(sheet_, row + 14, columns_, kTable.table);
  }

  void lines(Cells where, const std::string& text, Edges edges) {
    sheet_.formula(where, {.size = 8, .wrap = true, .indent = 1, .edges = edges}, text);
  }

  void pageFoot(int row, int page) override {
    sums(row, kLabel, quoted("Carried forward"), sumsUpTo(kForm, page));
    pageSummary(sheet_, row + 1, kPageSums, kForm, bill_);
    continued(sheet_, at(row + 1, {'H', 'L'}, 9), page, bill_);
    closingLines(row + 10);
  }

  void closing(int row) override {
    sums(row, kLabel, bill_.totalLabel, billSums(kForm));
    for (int i = 0; i < static_cast<int>(terms_.size()); ++i) {
      const auto& [label, text] = terms_[static_cast<size_t>(i)];
      Style style{.size = 7, .colour = kQuiet, .shrink = true, .indent = 1};
      style.edges.left = Edge::Thin;
      sheet_.formula(at(row + 1 + i, {'A', 'B'}), style, label);
      sheet_.formula(at(row + 1 + i, {'C', 'H'}), {.size = 7, .wrap = true, .edges = {.right = Edge::Thin}},
                     text);
    }
    totalsBox(sheet_, row + 1, {'I', 'J'}, {'K', 'L'}, totals_, bill_);
    wordsRow(sheet_, row + 9, kAll, "Rupees", bill_.netWords);
    closingLines(row + 10);
  }

  // Where to pay, and who signs.
  void closingLines(int row) {
    constexpr Columns kNotes{'A', 'G'}, kHand{'H', 'L'};
    const Style note{.size = 7.5, .shrink = true, .indent = 1};
    sheet_.formula(at(row, kNotes), with(note, {Edge::Thin, Edge::Thin, Edge::Thin, Edge::None}),
                   labelled("Bank : ", company_.bank));
    sheet_.formula(at(row + 1, kNotes), with(note, sides(Edge::Thin)), company_.account);
    sheet_.blank(at(row + 2, kNotes), with(note, sides(Edge::Thin)));
    Style last = with(note, kTray);
    last.colour = kQuiet;
    sheet_.formula(at(row + 3, kNotes), last,
                   quoted("E. & O.E.") + "&" + labelled("     Subject to jurisdiction of ", company_.city));
    signature(sheet_, row, kHand, company_, 2);
  }

  std::string ofOffer(const char* name, const char* field) {
    return facts_.add(name, shown(ofQuotation(field)));
  }

  std::vector<Facts::Named> terms() {
    std::vector<Facts::Named> all;
    for (const auto& [label, field] : kTerms)
      all.push_back({quoted(std::string(label) + " :"), ofOffer(label, field)});
    return facts_.closed(all, static_cast<int>(all.size()));
  }

  const std::string attention_ = ofOffer("Kind Attn.", "QUOT.TO_NAME");
  const std::string subject_ = ofOffer("Subject", "QUOT.SUB_DESC");
  const std::string reference_ = ofOffer("Your Ref.", "QUOT.YOUR_REF_NO");
  const std::vector<Facts::Named> terms_ = terms();
  const std::vector<Facts::Named> totals_ = totalLines(facts_, bill_, 6);
};

}  // namespace

void quotitm7(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats
