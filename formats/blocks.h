#pragma once

#include <string>
#include <utility>
#include <vector>

#include "formats/book.h"
#include "formats/facts.h"

// The pieces that papers are put together from. Each is given the rows and columns it may
// fill; a design gives every row of its sheet a height, so that pages break where they should.
namespace formats {

struct Columns {
  char left = 'A', right = 'A';
};
inline Cells at(int row, Columns columns, int rows = 1) {
  return {row, columns.left, row + rows - 1, columns.right};
}

// Left: what copies there are; middle: the title; right: the page.
void titleBar(Sheet& sheet, int row, Columns left, Columns middle, Columns right, const std::string& title,
              int page, const std::string& pages);
// Name, address, phone and mail, then one row of tax numbers; four rows.
void companyHead(Sheet& sheet, int row, Columns all, const Company& company);
// A heading and seven rows: name, two of address, place, state, GSTIN, contact.
void partyBlock(Sheet& sheet, int row, Columns columns, const std::string& heading, const Party& party);

// Labels with their values, one or two pairs a row.
struct Fact {
  std::string label, value;
  std::string number = {};
  bool bold = false;
};
struct FactColumns {
  Columns label, value, label2, value2;
};
void factsBlock(Sheet& sheet, int row, const FactColumns& columns,
                const std::vector<std::vector<Fact>>& rows);

void remarksRow(Sheet& sheet, int row, Columns columns, const Bill& bill);

// A column of the item slots.
struct LineColumn {
  enum class Kind { Serial, Description, Text, Plain, Money, Rate } kind;
  Columns columns;
  std::string title;
  std::string group = {};  // title over this column and the next ones of the same group
  std::string field = {};
  std::string total = {};  // reference to the bill's total, for the closing foot
  bool summed = false;     // carried forward at the foot of a page
};
// Two rows of headings.
void tableHead(Sheet& sheet, int row, const std::vector<LineColumn>& columns);
void slots(Sheet& sheet, int row, int count, int firstSlot, const std::vector<LineColumn>& columns);
// The row of totals under the last slots.
void totalRow(Sheet& sheet, int row, Columns label, const std::string& text,
              const std::vector<LineColumn>& columns);
// What the pages so far come to: the slots of this page and, from the second page, the row
// carried from the page before.
void carriedRow(Sheet& sheet, int row, Columns label, int firstSlotRow, int lastSlotRow, int carriedBefore,
                const std::vector<LineColumn>& columns);

// Heading, rows and a total; what does not fit is added up in the last row.
struct HsnColumns {
  Columns code, taxable, rate, cgst, sgst, igst, tax;
};
void hsnSummary(Sheet& sheet, int row, int rows, const HsnColumns& columns, const Bill& bill);

// Taxable value, taxes and round-off a row each, the bill amount in two.
void totalsBox(Sheet& sheet, int row, Columns label, Columns value, const Bill& bill);
// A label and a text over the rest of the row.
void wordsRow(Sheet& sheet, int row, Columns columns, const std::string& label, const std::string& words);
// Bank details with the declaration, then one row: E. & O.E. with the place of jurisdiction,
// and the receiver's hand.
void bankAndNotes(Sheet& sheet, int row, Columns left, Columns right, const Company& company);
// For the company, room to sign, and whose hand it is.
void signature(Sheet& sheet, int row, Columns columns, const Company& company);

}  // namespace formats
