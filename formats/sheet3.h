#pragma once

#include <string>
#include <string_view>
#include <vector>

// References into the data sheet of a document. The sheet is emptied and filled anew for
// each paper, so a design holds nothing on it; it reads by position.
namespace formats::sheet3 {

constexpr int kFirstLine = 8;    // ordinary lines of a bill
constexpr int kFirstMisc = 508;  // lines of the category MISC
constexpr int kFirstHsn = 2002;  // summary by HSN code
constexpr int kLastHsn = 2201;

// "SHEET3!$F$2"
std::string cell(int row, int column);
// "SHEET3!$F$2:$F$9"
std::string span(int row1, int row2, int column);
std::string letters(int column);

// The saved queries whose rows stand on the data sheet.
enum class Query { Bill, Quotation, Challan, Slip };
// Their fields in order, of those with a transporter its six behind them.
const std::vector<std::string_view>& fields(Query query);

// Where a field of the lines stands, by table and name: "SALE.BILL_NO", "ACCOUNT.ACC_NAME" is
// the party, "ACCOUNT_1.ACC_NAME" the consignee. Another query than that of the bills is named
// before it: "QUOTPRN:QUOT.TO_NAME". Raises std::out_of_range for a name that the lines lack.
int fieldColumn(std::string_view name);

// Columns of the summary by HSN code.
enum Hsn { HsnCode = 1, CgstRate, Cgst, SgstRate, Sgst, IgstRate, Igst, Taxable, Net, Quantity, Unit };

}  // namespace formats::sheet3
