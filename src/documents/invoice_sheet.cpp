#include "documents/invoice_sheet.h"

#include <algorithm>

#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "documents/company_cells.h"
#include "documents/supply_words.h"
#include "documents/words.h"
#include "frame/note_reasons.h"
#include "frame/voucher_kinds.h"
#include "store/dictionary.h"
#include "store/taxable.h"

namespace {

// First row (or column) of each block; its names stand above.
constexpr int kAccountColumn = 40, kRateColumn = 120;
constexpr int kLineNames = 6, kLines = 8, kMiscLines = 508;
constexpr int kItemNames = 300, kItems = 302;
constexpr int kHsnNames = 2000, kHsn = 2002;
constexpr int kRateNames = 1, kRates = 3;

void companyCells(DataSheet& sheet, const std::string& name, const Row& company, const VoucherKind& kind) {
  sheet.set(1, 3, name);
  sheet.set(2, 1, words(kind.paper.title));
  companyAddress(sheet, company);
  companyPairs(sheet, company);
}

// What a note says beside a bill, in cells of our own: what it is, against which bills, and why.
void noteCells(DataSheet& sheet, Database& db, double number, const VoucherKind& kind) {
  sheet.set(1, 12, words(kind.paper.title));
  if (!CheckTable(db, "ORIGINAL")) return;  // books that the walk has not brought up to date
  std::string bills;
  int reason = 0;
  for (const Row& row :
       db.all("SELECT BILL_NO, BILL_DT, REASON FROM ORIGINAL WHERE VOUCH_NO = ? AND BOOK_CD = ?"
              " ORDER BY SR_NO",
              number, kind.code)) {
    reason = static_cast<int>(row.number("REASON"));
    const std::string bill = trim(row.text("BILL_NO"));
    if (bill.empty()) continue;
    const auto day = row.date("BILL_DT");
    bills += (bills.empty() ? "" : ", ") +
             (day ? words("{bill} of {date}", "bill", bill, "date", formatDate(*day, "dd/MM/yyyy")) : bill);
  }
  sheet.set(1, 13, bills);
  sheet.set(1, 14, noteReason(reason));
}

// In cells of our own.
void supplyCells(DataSheet& sheet, const SupplyWords& said) {
  if (!said.title.empty()) sheet.set(1, 29, said.title);
  if (!said.sentence.empty()) sheet.set(1, 30, said.sentence);
  if (said.reverse) sheet.set(1, 31, words("Yes"));
}

void exportCells(DataSheet& sheet, const ExportWords& said) {
  if (said.place != 0) sheet.set(1, 32, said.place);
  if (!said.endorsement.empty()) sheet.set(1, 33, said.endorsement);
  if (!said.currency.empty()) sheet.set(1, 34, said.currency);
}

// A rate in another currency is told with the line's detail.
void currencyRate(DataSheet& sheet, int row, const Rows& line) {
  if (line.number("CUR_RT") <= 0 || line.text("CUR_NM").size() <= 1) return;
  const std::string detail = trim(line.text("ITEM_DESC")),
                    rate = line.text("CUR_NM") + " " + Format(line.number("CUR_ITM_RT"), "0.00##");
  sheet.set(row, 1 + line.names().index("ITEM_DESC"),
            detail.empty() || detail == "." ? rate : detail + ", " + rate);
}

// Discount and charges, in cells of our own.
void chargeCells(DataSheet& sheet, Database& db, double number, const std::string& book) {
  constexpr int kDiscount = 35;
  const auto head = db.first(
      "SELECT DISC_AMT1, CHRG_AMT1, CHRG_AMT2, CHRG_AMT3 FROM SALE"
      " WHERE VOUCH_NO = ? AND BOOK_CD = ?",
      number, book);
  for (int i = 0; head && i < head->count(); ++i)
    if (head->number(i) != 0) sheet.set(1, kDiscount + i, head->number(i));
}

void wordCells(DataSheet& sheet, const Row& bill) {
  sheet.set(2, 6, AmountInWords(bill.number("NET_AMT")));
  sheet.words(2, 8, bill, "CUR_TOTAMT");
  sheet.set(2, 10, AmountInWords(bill.number("TCGSTRT") + bill.number("TSGSTRT") + bill.number("TIGSTRT")));
}

void accountCells(DataSheet& sheet, Database& db, const std::string& account) {
  sheet.block(db.query("SELECT ACCOUNT.* FROM ACCOUNT WHERE ACC_CD = ?", account), 3, 4, kAccountColumn);
}

void itemCells(DataSheet& sheet, Database& db, double number, const std::string& book) {
  sheet.block(
      db.query(
          "SELECT ITEM_NAME, SUM(QUANTITY) AS QTY1, RATE, SUM(AMOUNT) AS AMT, SUM(NET_AMOUNT) AS NAMT,"
          " ITEM_SNAME, CGSTRT, SGSTRT, IGSTRT, HSNCODE, SALE_DISC, SALE_DISC1, DISC3, SUM(DISC4) AS DISC4"
          " FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = ? AND DEPT_NAME <> 'MISC'"
          " GROUP BY ITEM_NAME, RATE, ITEM_SNAME, CGSTRT, SGSTRT, IGSTRT, HSNCODE, SALE_DISC,"
          " SALE_DISC1, DISC3"
          " ORDER BY ITEM_NAME, RATE, ITEM_SNAME, CGSTRT, SGSTRT, IGSTRT, HSNCODE, SALE_DISC,"
          " SALE_DISC1, DISC3",
          number, book),
      kItemNames, kItems);
}

void hsnCells(DataSheet& sheet, Database& db, double number, const std::string& book) {
  auto found = db.query(
      "SELECT HSNCODE, CGSTRT, SUM(CGSTAMT) AS CAMT, SGSTRT, SUM(SGSTAMT) AS SAMT, IGSTRT,"
      " SUM(IGSTAMT) AS IAMT, SUM(" +
          taxableOf() +
          ") AS ITMATM, SUM(NET_AMOUNT) AS NAMT, SUM(QUANTITY) AS NQTY, SIZE_CD"
          " FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = ?"
          " GROUP BY HSNCODE, CGSTRT, SGSTRT, IGSTRT, SIZE_CD"
          " ORDER BY HSNCODE, CGSTRT, SGSTRT, IGSTRT, SIZE_CD",
      number, book);
  double tax = 0;
  int row = kHsn;
  for (; found.next(); ++row) {
    if (row == kHsn) sheet.names(kHsnNames, 1, found.names());
    sheet.values(row, 1, found);
    for (const char* amount : {"CAMT", "SAMT", "IAMT"}) tax += found.number(amount);
  }
  if (row > kHsn) sheet.set(kHsnNames - 1, 1, AmountInWords(tax));
}

void rateCells(DataSheet& sheet, Database& db, double number, const VoucherKind& kind) {
  const std::string& view = kind.paper.taxesByRate;
  if (view.empty()) return;
  sheet.block(db.query("SELECT " + view + ".* FROM " + view +
                           " WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY CGSTRT, SGSTRT, IGSTRT",
                       number, kind.code),
              kRateNames, kRates, kRateColumn);
}

}  // namespace

FilledSheet invoiceSheet(Database& db, const std::string& name, const Row& company, double number,
                         const std::string& kind) {
  constexpr const char* kBill =
      "SELECT GSTBLPRN.*, TRANSMAST.TADD1, TRANSMAST.TADD2, TRANSMAST.TAREA, TRANSMAST.TCITY,"
      " TRANSMAST.TPHONE1, TRANSMAST.TPHONE2"
      " FROM GSTBLPRN LEFT JOIN TRANSMAST ON GSTBLPRN.TRANS_CD = TRANSMAST.TRANS_ID"
      " WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = ? ORDER BY SR_NO";
  FilledSheet sheet;
  const auto kinds = voucherKinds();
  const auto asked = std::ranges::find(kinds, kind, [](const VoucherKind* k) { return k->paper.kind; });
  // What is no note of ours is looked for among the bills, whatever summaries it asks for.
  const VoucherKind* const note = noteOfPaper(kind);
  const VoucherKind& its = note ? *note : saleKind();
  const auto head = db.first(kBill, number, its.code);
  if (!head) return sheet;
  auto& cells = sheet.cells;
  companyCells(cells, name, company, its);
  if (its.isNote())
    noteCells(cells, db, number, its);
  else
    supplyCells(cells, supplyWords(db, company, number));
  exportCells(cells, exportWords(db, *head, its.code, number));
  chargeCells(cells, db, number, its.code);
  wordCells(cells, *head);
  accountCells(cells, db, head->text("SALE_CD"));
  itemCells(cells, db, number, its.code);
  if (asked != kinds.end() && (*asked)->paper.hsn) hsnCells(cells, db, number, its.code);

  int ordinary = 0, misc = 0;
  auto lines = db.query(kBill, number, its.code);
  for (; lines.next(); ++sheet.lines) {
    if (sheet.lines == 0) cells.names(kLineNames, 1, lines.names());
    // A line of an item without a category is in neither block: Null is not equal and not unequal.
    if (lines.isNull("DEPT_NAME")) continue;
    const bool other = sameText(lines.text("DEPT_NAME"), "MISC");
    const int row = other ? kMiscLines + misc++ : kLines + ordinary++;
    cells.values(row, 1, lines);
    currencyRate(cells, row, lines);
  }
  if (asked != kinds.end()) rateCells(cells, db, number, **asked);
  return sheet;
}
