#include "formats/blocks.h"
#include "formats/designs.h"
#include "formats/styles.h"

// Design 1: a tax invoice with CGST, SGST and IGST columns, 24 lines a page, up to three pages.
namespace formats {

namespace {

constexpr int kHead = 16, kSlots = 24, kFoot = 12, kPages = 3;
constexpr int kPageRows = kHead + kSlots + kFoot;
constexpr Columns kAll{'A', 'P'}, kLeft{'A', 'J'}, kRight{'K', 'P'};
// clang-format off
constexpr HsnColumns kHsn{.code = {'A', 'B'}, .taxable = {'C', 'C'}, .rate = {'D', 'D'}, .cgst = {'E', 'F'},
                          .sgst = {'G', 'H'}, .igst = {'I', 'I'}, .tax = {'J', 'K'}};
// clang-format on

struct Width {
  char column;
  double points;
};
constexpr Width kWidths[] = {
    {'A', 16.5}, // Sr
    {'B', 45  }, // Description, with C
    {'C', 60  },
    {'D', 36  }, // HSN
    {'E', 33  }, // Qty
    {'F', 24  }, // Unit
    {'G', 40.5}, // Rate
    {'H', 19.5}, // Disc %
    {'I', 45  }, // Taxable
    {'J', 16.5}, // CGST %
    {'K', 39  },
    {'L', 16.5}, // SGST %
    {'M', 39  },
    {'N', 16.5}, // IGST %
    {'O', 39  },
    {'P', 48  }, // Total
};

// Every page is as high as its neighbours: together the rows fill one A4 sheet.
constexpr double kHeadHeights[kHead] = {17.25, 22.5, 12.75, 12.75, 13.5, 12, 13.5,  12,
                                        12,    12,   12,    12,    12,   12, 11.25, 11.25};
constexpr double kSlotHeight = 18;
constexpr double kFootHeights[kFoot] = {15,    12, 11.25, 11.25, 11.25, 11.25,
                                        11.25, 12, 13.5,  13.5,  28.5,  13.5};

using Kind = LineColumn::Kind;

// clang-format off
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
      {.kind = Kind::Plain,       .columns = {'J', 'J'}, .title = "%",      .group = "CGST", .field = "SALEITM.CGSTRT"},
      {.kind = Kind::Money,       .columns = {'K', 'K'}, .title = "Amount", .group = "CGST", .field = "SALEITM.CGSTAMT", .total = bill.cgst, .summed = true},
      {.kind = Kind::Plain,       .columns = {'L', 'L'}, .title = "%",      .group = "SGST", .field = "SALEITM.SGSTRT"},
      {.kind = Kind::Money,       .columns = {'M', 'M'}, .title = "Amount", .group = "SGST", .field = "SALEITM.SGSTAMT", .total = bill.sgst, .summed = true},
      {.kind = Kind::Plain,       .columns = {'N', 'N'}, .title = "%",      .group = "IGST", .field = "SALEITM.IGSTRT"},
      {.kind = Kind::Money,       .columns = {'O', 'O'}, .title = "Amount", .group = "IGST", .field = "SALEITM.IGSTAMT", .total = bill.igst, .summed = true},
      {.kind = Kind::Money,       .columns = {'P', 'P'}, .title = "Total",  .field = "SALEITM.NET_AMOUNT", .total = bill.beforeRounding, .summed = true},
  };
}
// clang-format on

void head(Sheet& sheet, int row, int page, const Company& company, const Bill& bill,
          const std::vector<LineColumn>& columns) {
  for (int i = 0; i < kHead; ++i) sheet.height(row + i, kHeadHeights[i]);
  titleBar(sheet, row, {'A', 'D'}, {'E', 'K'}, {'L', 'P'}, "TAX INVOICE", page, bill.pages);
  companyHead(sheet, row + 1, kAll, company);
  partyBlock(sheet, row + 5, {'A', 'D'}, "Bill To", bill.buyer);
  partyBlock(sheet, row + 5, {'E', 'I'}, "Ship To", bill.consignee);
  remarksRow(sheet, row + 13, {'A', 'I'}, bill);
  // clang-format off
  factsBlock(sheet, row + 5, {{'J', 'K'}, {'L', 'M'}, {'N', 'O'}, {'P', 'P'}},
             {
                 {{.label = "Invoice No", .value = bill.number, .bold = true}, {.label = "Date", .value = bill.date, .number = kDay, .bold = true}},
                 {{.label = "Challan No", .value = bill.challan}, {.label = "Bill Type", .value = bill.type}},
                 {{.label = "Order No", .value = bill.order}},
                 {{.label = "Transport", .value = bill.transport}},
                 {{.label = "L.R. No", .value = bill.lrNumber}, {.label = "L.R. Date", .value = bill.lrDate, .number = kDay}},
                 {{.label = "Destination", .value = bill.destination}},
                 {{.label = "Parcels", .value = bill.parcels}, {.label = "Due Date", .value = bill.dueDate, .number = kDay}},
                 {{.label = "Place of Supply", .value = bill.placeOfSupply, .bold = true}},
                 {{.label = "Reverse Charge", .value = quoted("No")}},
             });
  // clang-format on
  tableHead(sheet, row + 14, columns);
}

// The foot of a page that another follows.
void pageFoot(Sheet& sheet, int row, int page, int carriedBefore, const Company& company, const Bill& bill,
              const std::vector<LineColumn>& columns) {
  for (int i = 0; i < kFoot; ++i) sheet.height(row + i, kFootHeights[i]);
  carriedRow(sheet, row, {'A', 'D'}, row - kSlots, row - 1, carriedBefore, columns);
  sheet.formula(
      at(row + 1, kAll, 8),
      {.size = 10, .italic = true, .colour = kQuiet, .across = Across::Centre, .edges = around(Edge::Thin)},
      quoted("Continued on page " + std::to_string(page + 1) + " of ") + "&" + bill.pages);
  Style note{.size = 8, .colour = kQuiet, .down = Down::Bottom, .indent = 1};
  note.edges.left = note.edges.bottom = Edge::Thin;
  sheet.text(at(row + 9, kLeft, 3), note, "E. & O.E.");
  signature(sheet, row + 9, kRight, company);
}

void closingFoot(Sheet& sheet, int row, const Company& company, const Bill& bill,
                 const std::vector<LineColumn>& columns) {
  for (int i = 0; i < kFoot; ++i) sheet.height(row + i, kFootHeights[i]);
  totalRow(sheet, row, {'A', 'D'},
           "IF(" + bill.unprinted + ">0," + bill.unprinted + "&\" more lines not shown.  Total\",\"Total\")",
           columns);
  hsnSummary(sheet, row + 1, 5, kHsn, bill);
  totalsBox(sheet, row + 1, {'L', 'N'}, {'O', 'P'}, bill);
  wordsRow(sheet, row + 8, kAll, "Rupees", bill.netWords);
  wordsRow(sheet, row + 9, kLeft, "Tax", bill.taxWords);
  bankAndNotes(sheet, row + 10, {'A', 'F'}, {'G', 'J'}, company);
  signature(sheet, row + 9, kRight, company);
}

}  // namespace

void invgst1(const std::string& path) {
  Book book(path);
  auto& sheet = book.sheet("BILL");
  book.sheet("SHEET3").hide();
  Facts facts(book);
  const auto company = companyFacts(facts);
  const auto bill = billFacts(facts, kSlots * kPages, kSlots);
  const auto columns = lineColumns(bill);

  for (const auto& [column, points] : kWidths) sheet.width(column, points);
  sheet.paper(14.4, 14.4, {1, kAll.left, kPageRows * kPages, kAll.right});
  int carried = 0;
  for (int page = 1; page <= kPages; ++page) {
    const int top = (page - 1) * kPageRows + 1;
    head(sheet, top, page, company, bill, columns);
    for (int i = 0; i < kSlots; ++i) sheet.height(top + kHead + i, kSlotHeight);
    slots(sheet, top + kHead, kSlots, (page - 1) * kSlots + 1, columns);
    const int foot = top + kHead + kSlots;
    if (page == kPages)
      closingFoot(sheet, foot, company, bill, columns);
    else
      pageFoot(sheet, foot, page, carried, company, bill, columns);
    carried = foot;
  }
  book.close();
}

}  // namespace formats
