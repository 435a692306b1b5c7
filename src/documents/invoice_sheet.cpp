#include "documents/invoice_sheet.h"

#include "base/text.h"
#include "documents/words.h"

namespace {

// First row (or column) of each block; its names stand above.
constexpr int kAccountColumn = 40, kRateColumn = 120;
constexpr int kLineNames = 6, kLines = 8, kMiscLines = 508;
constexpr int kItemNames = 300, kItems = 302;
constexpr int kHsnNames = 2000, kHsn = 2002;
constexpr int kRateNames = 1, kRates = 3;

void companyCells(DataSheet& sheet, const std::string& name, const Row& company) {
  sheet.set(1, 3, name);
  sheet.set(2, 1, "INVOICE");
  sheet.set(3, 1, company.text("ADDRS"));
  sheet.set(3, 3, company.text("PH1"));
  sheet.set(3, 5, company.text("PH2"));

  struct Pair {
    int column;
    const char *label, *field;
  };
  // The labels over AREA and CITY are as designs know them.
  constexpr Pair kPairs[] = {
      {9,  "STATE",     "STATE"      },
      {16, "BANK NAME", "C_BANK_NAME"},
      {17, "BRANCH",    "C_BRNCH"    },
      {18, "IFSC",      "C_IFSC"     },
      {19, "AC_NO",     "C_AC_NO"    },
      {20, "EMAIL",     "C_EMAIL"    },
      {24, "GSTINNO",   "GSTINNO"    },
      {26, "STATECD",   "STATECD"    },
      {27, "CITY",      "AREA"       },
      {28, "STATE",     "CITY"       },
  };
  for (const auto& [column, label, field] : kPairs) sheet.labelled(column, label, company, field);
}

void wordCells(DataSheet& sheet, const Row& bill) {
  sheet.set(2, 6, AmountInWords(bill.number("NET_AMT")));
  // Whatever is neither Null nor -1 counts, a zero too.
  if (!bill.isNull("CUR_TOTAMT") && bill.number("CUR_TOTAMT") != -1)
    sheet.set(2, 8, AmountInWords(bill.number("CUR_TOTAMT")));
  sheet.set(2, 10, AmountInWords(bill.number("TCGSTRT") + bill.number("TSGSTRT") + bill.number("TIGSTRT")));
}

// Names and rows of a summary; nothing at all when it has no row.
void summary(DataSheet& sheet, Rows found, int namesRow, int firstRow, int column) {
  for (int i = 0; found.next(); ++i) {
    if (i == 0) sheet.names(namesRow, column, found.names());
    sheet.values(firstRow + i, column, found);
  }
}

void accountCells(DataSheet& sheet, Database& db, const std::string& account) {
  auto found = db.query("SELECT ACCOUNT.* FROM ACCOUNT WHERE ACC_CD = ?", account);
  if (!found.next()) return;
  sheet.names(3, kAccountColumn, found.names());
  sheet.values(4, kAccountColumn, found);
}

void itemCells(DataSheet& sheet, Database& db, double number) {
  summary(
      sheet,
      db.query("SELECT ITEM_NAME, SUM(QUANTITY) AS QTY1, RATE, SUM(AMOUNT) AS AMT, SUM(NET_AMOUNT) AS NAMT,"
               " ITEM_SNAME, CGSTRT, SGSTRT, IGSTRT, HSNCODE, SALE_DISC, SALE_DISC1, DISC3, DISC4"
               " FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = 'SA' AND DEPT_NAME <> 'MISC'"
               " GROUP BY ITEM_NAME, RATE, ITEM_SNAME, CGSTRT, SGSTRT, IGSTRT, HSNCODE, SALE_DISC,"
               " SALE_DISC1, DISC3, DISC4"
               " ORDER BY ITEM_NAME, RATE, ITEM_SNAME, CGSTRT, SGSTRT, IGSTRT, HSNCODE, SALE_DISC,"
               " SALE_DISC1, DISC3, DISC4",
               number),
      kItemNames, kItems, 1);
}

void hsnCells(DataSheet& sheet, Database& db, double number) {
  auto found = db.query(
      "SELECT HSNCODE, CGSTRT, SUM(CGSTAMT) AS CAMT, SGSTRT, SUM(SGSTAMT) AS SAMT, IGSTRT,"
      " SUM(IGSTAMT) AS IAMT, SUM(AMOUNT) AS ITMATM, SUM(NET_AMOUNT) AS NAMT, SUM(QUANTITY) AS NQTY, SIZE_CD"
      " FROM GSTBLPRN WHERE [SALE.VOUCH_NO] = ? AND [SALE.BOOK_CD] = 'SA'"
      " GROUP BY HSNCODE, CGSTRT, SGSTRT, IGSTRT, SIZE_CD"
      " ORDER BY HSNCODE, CGSTRT, SGSTRT, IGSTRT, SIZE_CD",
      number);
  double tax = 0;
  int row = kHsn;
  for (; found.next(); ++row) {
    if (row == kHsn) sheet.names(kHsnNames, 1, found.names());
    sheet.values(row, 1, found);
    for (const char* amount : {"CAMT", "SAMT", "IAMT"}) tax += found.number(amount);
  }
  if (row > kHsn) sheet.set(kHsnNames - 1, 1, AmountInWords(tax));
}

void rateCells(DataSheet& sheet, Database& db, double number, const std::string& kind) {
  struct Book {
    const char *kind, *statement;
  };
  // The purchase query stands only where a template brought it along.
  constexpr Book kBooks[] = {
      {"SALE",     "SELECT GSTTOTQRY.* FROM GSTTOTQRY WHERE VOUCH_NO = ? AND BOOK_CD = 'SA'"    },
      {"SALERET",  "SELECT GSTTOTQRY.* FROM GSTTOTQRY WHERE VOUCH_NO = ? AND BOOK_CD = 'SR'"    },
      {"PURCH",    "SELECT GSTTOTQRYPU.* FROM GSTTOTQRYPU WHERE VOUCH_NO = ? AND BOOK_CD = 'PU'"},
      {"PURCHRET", "SELECT GSTTOTQRYPU.* FROM GSTTOTQRYPU WHERE VOUCH_NO = ? AND BOOK_CD = 'PR'"},
  };
  for (const auto& book : kBooks)
    if (kind == book.kind)
      summary(sheet, db.query(std::string(book.statement) + " ORDER BY CGSTRT, SGSTRT, IGSTRT", number),
              kRateNames, kRates, kRateColumn);
}

}  // namespace

InvoiceSheet invoiceSheet(Database& db, const std::string& name, const Row& company, double number,
                          const std::string& kind) {
  constexpr const char* kBill =
      "SELECT GSTBLPRN.*, TRANSMAST.TADD1, TRANSMAST.TADD2, TRANSMAST.TAREA, TRANSMAST.TCITY,"
      " TRANSMAST.TPHONE1, TRANSMAST.TPHONE2"
      " FROM GSTBLPRN LEFT JOIN TRANSMAST ON GSTBLPRN.TRANS_CD = TRANSMAST.TRANS_ID"
      " WHERE [SALE.BOOK_CD] = 'SA' AND [SALE.VOUCH_NO] = ? ORDER BY SR_NO";
  InvoiceSheet sheet;
  const auto head = db.first(kBill, number);
  if (!head) return sheet;
  auto& cells = sheet.cells;
  companyCells(cells, name, company);
  wordCells(cells, *head);
  accountCells(cells, db, head->text("SALE_CD"));
  itemCells(cells, db, number);
  if (kind == "SALE" || kind == "SALERET") hsnCells(cells, db, number);

  int ordinary = 0, misc = 0;
  auto lines = db.query(kBill, number);
  for (; lines.next(); ++sheet.lines) {
    if (sheet.lines == 0) cells.names(kLineNames, 1, lines.names());
    // A line of an item without a category is in neither block: Null is not equal and not unequal.
    if (lines.isNull("DEPT_NAME")) continue;
    if (sameText(lines.text("DEPT_NAME"), "MISC"))
      cells.values(kMiscLines + misc++, 1, lines);
    else
      cells.values(kLines + ordinary++, 1, lines);
  }
  rateCells(cells, db, number, kind);
  return sheet;
}
