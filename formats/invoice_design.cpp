#include "formats/invoice_design.h"

#include "formats/styles.h"

namespace formats {

namespace {

// A page that is too high, or so low that the next one's title fits under it, would let the
// pages break elsewhere.
void check(const Form& form, const Paper& paper) {
  const double left = paper.room() - form.pageHeight();
  if (left < 0 || left >= form.head.front())
    throw BookError("The rows of a page leave " + std::to_string(left) + " points of the paper.");
}

Sheet& hidden(Sheet& sheet) {
  sheet.hide();
  return sheet;
}

}  // namespace

InvoiceDesign::InvoiceDesign(Book& book, const DesignTable& table)
    : table_(table),
      form_(table.form),
      sheet_(book.sheet(table.sheet)),
      data_(hidden(book.sheet("SHEET3"))),
      facts_(book),
      company_(companyFacts(facts_, table.company())),
      bill_(table.facts(facts_, {.pages = form_.pages,
                                 .ofPage = form_.slots,
                                 .letters = table.letters,
                                 .twoLines = table.table.wrap})) {
  check(form_, table.paper);
  sheet_.palette(table.palette);
  for (const auto& [column, points] : table.widths) sheet_.width(column, points);
}

void InvoiceDesign::write() {
  std::vector<Cells> areas;
  for (const Columns& copy : copies()) areas.push_back(at(1, copy, form_.rows()));
  sheet_.paper(table_.paper, areas);
  writePages(sheet_, form_,
             {.head = [this](int row, int page) { head(row, page); },
              .slots =
                  [this](int row, int page) {
                    slots(sheet_, row, form_.slots, (page - 1) * form_.slots + 1, columns_, table_.table);
                  },
              .foot = [this](int row, int page) { pageFoot(row, page); },
              .closing = [this](int row) { closing(row); }});
}

std::vector<Fact> InvoiceDesign::withMainFacts(const std::vector<Fact>& others) const {
  std::vector<Fact> facts = {
      {.label = bill_.numberLabel, .value = bill_.number, .bold = true, .ofData = true},
      {.label = "Date",            .value = bill_.date,                                 .number = kDay, .bold = true},
      {.label = "Place of Supply",.value = bill_.placeOfSupply,.bold = true},
      {.label = "Reverse Charge",                          .value = bill_.reverse                     },
  };
  facts.insert(facts.end(), others.begin(), others.end());
  return facts;
}

void InvoiceDesign::sums(int row, Columns label, const std::string& text, const SumOf& sum) {
  sumsRow(sheet_, row, label, text, columns_, sum, table_.table);
}

}  // namespace formats
