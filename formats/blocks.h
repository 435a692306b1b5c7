#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "formats/book.h"
#include "formats/facts.h"
#include "formats/pages.h"

// The pieces that papers are put together from. Each is given the rows and columns it may
// fill; a design gives every row of its sheet a height, so that pages break where they should.
namespace formats {

struct Columns {
  char left = 0, right = 0;
  bool none() const { return left == 0; }
  Columns movedBy(int columns) const {
    return {static_cast<char>(left + columns), static_cast<char>(right + columns)};
  }
};
inline Cells at(int row, Columns columns, int rows = 1) {
  return {row, columns.left, row + rows - 1, columns.right};
}

inline constexpr const char* kOriginal = "ORIGINAL FOR RECIPIENT";
inline constexpr const char* kDuplicate = "DUPLICATE FOR TRANSPORTER";
inline constexpr const char* kTriplicate = "TRIPLICATE FOR SUPPLIER";

// "Page 2 of 3"
std::string pageOf(int page, const std::string& pages);
// Left: which copy it is; middle: the title, a formula when it begins with "="; right: the page.
void titleBar(Sheet& sheet, int row, Columns left, Columns middle, Columns right, const std::string& title,
              int page, const std::string& pages, double size = 12, const char* mark = kOriginal);
// Name, address, phone and mail, then one row of tax numbers; four rows.
void companyHead(Sheet& sheet, int row, Columns all, const Company& company, double size = 18);
// Marks another copy than the original in a title bar.
void copyMark(Sheet& sheet, int row, Columns left, const char* mark, double size = 12);
// GSTIN, PAN and state in one line.
std::string taxNumbers(const Company& company, const std::string& gap);

// A heading and seven rows: name, two of address, place, state, GSTIN, contact.
void partyBlock(Sheet& sheet, int row, Columns columns, const std::string& heading, const Party& party,
                double size = 8.5);

// A label with its value. A label of the data is a formula.
struct Fact {
  std::string label, value;
  std::string number = {};
  bool bold = false;
  bool ofData = false;
};
using FactRows = std::vector<std::vector<Fact>>;
// Facts in so many rows or fewer, those without a value left out.
std::vector<Fact> closedFacts(Facts& facts, const std::vector<Facts::Named>& all, int rows);
FactRows inRows(const std::vector<Fact>& facts, size_t ofRow);
// Columns of a label and its value; some pairs side by side.
using FactColumns = std::vector<std::pair<Columns, Columns>>;
// The last fact of a row has what is left of it.
void factsBlock(Sheet& sheet, int row, const FactColumns& columns, const FactRows& rows, double size = 8.5);
// A date as text, for facts that stand where others may.
std::string dayText(const std::string& date);

enum class Room { OneLine, TwoLines };
void remarksRow(Sheet& sheet, int row, Columns columns, const Bill& bill, double size = 8,
                Room room = Room::OneLine);
// With the consignee before them, for designs without a block of its own.
void deliveryAndRemarksRow(Sheet& sheet, int row, Columns columns, const Bill& bill, double size, Room room);

// A column of the item slots.
struct LineColumn {
  enum class Kind { Serial, Description, Text, Plain, Money, Rate } kind;
  Columns columns;
  std::string title;
  std::string group = {};  // title over this column and the next ones of the same group
  std::string field = {};
  std::string (*figure)(int slot) = nullptr;  // in place of a field: worked out from several
  std::string total = {};                     // reference to the bill's total, for the closing foot
  bool summed = false;                        // added up at the foot of a page
};
// What can be worked out of a line.
namespace figures {
std::string discount(int slot);
std::string taxRate(int slot);
std::string tax(int slot);
std::string taxable(int slot);  // with the line's share of discount and charges
std::string net(int slot);      // taxable value with its taxes
}  // namespace figures

struct TableStyle {
  double size = 7.5;
  bool wrap = true;  // descriptions stand in two lines
  Edge between = Edge::Faint, beside = Edge::Thin;
  int headRows = 2;
};
// Headings; those of groups need two rows.
void tableHead(Sheet& sheet, int row, const std::vector<LineColumn>& columns, const TableStyle& style = {});
void slots(Sheet& sheet, int row, int count, int firstSlot, const std::vector<LineColumn>& columns,
           const TableStyle& style = {});
// A row of sums under or over the slots: what `sum` gives for a column, nothing where that is
// empty. The label is a formula.
using SumOf = std::function<std::string(const LineColumn&)>;
void sumsRow(Sheet& sheet, int row, Columns label, const std::string& text,
             const std::vector<LineColumn>& columns, const SumOf& sum, const TableStyle& style = {});
SumOf pageSums(const Form& form, int page);
SumOf sumsUpTo(const Form& form, int page);
SumOf lastPageSums(const Form& form, const Bill& bill);
SumOf billSums(const Form& form);  // totals of the bill; of what it does not hold, the sum of the slots

// One row a page with its lines and sums, and a row of all pages.
struct PageSums {
  Columns page, lines;
  struct Column {
    Columns columns;
    const char* title;
    char of;  // the column of the slots that is summed
  };
  std::vector<Column> columns;
};
void pageSummary(Sheet& sheet, int row, const PageSums& sums, const Form& form, const Bill& bill,
                 double size = 7.5);
// "Continued on page 2 of 3"
void continued(Sheet& sheet, Cells where, int page, const Bill& bill, double size = 10);

// Heading, rows and a total; what does not fit is added up in the last row. Columns that are
// not given are left out; `rate` shows the rates of all taxes in one column.
struct HsnColumns {
  Columns code, taxable, rate, cgstRate, cgst, sgstRate, sgst, igstRate, igst, tax;
};
void hsnSummary(Sheet& sheet, int row, int rows, const HsnColumns& columns, const Bill& bill,
                double size = 7.5);

// Discount and charges, taxable value, taxes and round-off, those that are not zero.
std::vector<Facts::Named> totalLines(Facts& facts, const Bill& bill, int rows);
// A row each, then the bill amount in two.
void totalsBox(Sheet& sheet, int row, Columns label, Columns value, const std::vector<Facts::Named>& lines,
               const Bill& bill, double size = 8.5);
// The same where it is narrow: the bill amount stands under its label.
void narrowTotalsBox(Sheet& sheet, int row, Columns label, Columns value,
                     const std::vector<Facts::Named>& lines, const Bill& bill, double size = 8.5);
// A label and a text over the rest of the row.
void wordsRow(Sheet& sheet, int row, Columns columns, const std::string& label, const std::string& words,
              double size = 8.5);
inline constexpr const char* kDeclaration =
    "Declaration : This invoice shows the actual price, and all particulars are true and correct.";
inline constexpr const char* kOfNote =
    "This note belongs to the bill named above. Please book it with the same tax rates.";
// A text, or none, with the declaration under it, then one row: E. & O.E. with the place of
// jurisdiction, and the receiver's hand.
void notes(Sheet& sheet, int row, Columns left, Columns right, const std::string& text,
           const std::string& declaration, const Company& company, int rows = 1, double size = 7);
std::string bankLine(const Company& company);
// For the company, room to sign, and whose hand it is.
void signature(Sheet& sheet, int row, Columns columns, const Company& company, int room = 1,
               double size = 8.5);

}  // namespace formats
