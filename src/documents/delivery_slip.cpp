#include "documents/delivery_slip.h"

#include <stdexcept>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "documents/company_cells.h"
#include "documents/paper.h"
#include "documents/supply_words.h"
#include "documents/words.h"
#include "frame/session.h"
#include "store/taxable.h"

namespace {

constexpr int kRateColumn = 120;
const std::string& kCode = saleKind().code;

void companyCells(DataSheet& sheet, const Row& company) {
  struct Cell {
    int row, column;
    const char* field;
  };
  // What the company-year has no column for stays empty.
  constexpr Cell kCells[] = {
      {3, 6,  "EX_DTL"     },
      {3, 7,  "EX_REG_NO"  },
      {3, 8,  "RANG"       },
      {3, 9,  "DIVI"       },
      {3, 10, "COMISNRT"   },
      {3, 12, "PLA_NO"     },
      {3, 13, "C_BANK_NAME"},
      {3, 14, "C_BRNCH"    },
      {3, 15, "C_IFSC"     },
      {3, 16, "C_AC_NO"    },
      {3, 17, "C_EMAIL"    },
      {1, 27, "GSTINNO"    },
      {1, 28, "STATE"      },
      {1, 29, "STATECD"    },
  };
  companyAddress(sheet, company);
  companyRegistrations(sheet, company);
  for (const auto& [row, column, field] : kCells) sheet.field(row, column, company, field);
}

std::string title(const std::string& billType, const std::string& lawful) {
  if (sameText(billType, "TAX")) return lawful.empty() ? words("TAX INVOICE") : lawful;
  return startsWithNoCase(billType, "JOB") ? words("Jobwork Invoice") : words("Delivery Slip");
}

// Items, HSN codes without the category MISC, and the tax by rate, halved between the two heads.
void summaries(DataSheet& sheet, Database& db, double number) {
  sheet.block(db.query("SELECT ITEM_NAME, SUM(QUANTITY) AS QTY1, [SALEITM.RATE] AS RT, SUM(AMOUNT) AS AMT,"
                       " SUM(NET_AMOUNT) AS NAMT, ITEM_SNAME, HSNCODE, RATEOFTAX FROM BLPRN"
                       " WHERE VOUCH_NO = ? AND BOOK_CD = ? AND DEPT_NAME <> 'MISC'"
                       " GROUP BY ITEM_NAME, [SALEITM.RATE], ITEM_SNAME, HSNCODE, RATEOFTAX"
                       " ORDER BY ITEM_NAME, [SALEITM.RATE], ITEM_SNAME, HSNCODE, RATEOFTAX",
                       number, kCode),
              300, 302);
  sheet.block(db.query("SELECT HSNCODE, SUM(QUANTITY) AS QTY1, AVG([SALEITM.RATE]) AS RT, SUM(AMOUNT) AS AMT,"
                       " SUM(NET_AMOUNT) AS NAMT FROM BLPRN"
                       " WHERE VOUCH_NO = ? AND BOOK_CD = ? AND DEPT_NAME <> 'MISC'"
                       " GROUP BY HSNCODE ORDER BY HSNCODE",
                       number, kCode),
              500, 502);
  sheet.block(db.query("SELECT RATEOFTAX / 2 AS CGSTRT, RATEOFTAX / 2 AS SGSTRT,"
                       " SUM(NET_AMOUNT - " +
                           taxableOf() + ") / 2 AS CGSTTAX, SUM(NET_AMOUNT - " + taxableOf() +
                           ") / 2 AS SGSTTAX, SUM(" + taxableOf() +
                           ") AS GSTVAL, RATEOFTAX FROM BLPRN"
                           " WHERE VOUCH_NO = ? AND BOOK_CD = ? GROUP BY RATEOFTAX ORDER BY RATEOFTAX",
                       number, kCode),
              1, 3, kRateColumn);
}

}  // namespace

FilledSheet deliverySlipSheet(Database& db, const std::string& name, const Row& company, double number) {
  constexpr const char* kLines =
      "SELECT BLPRN.*, TRANSMAST.TADD1, TRANSMAST.TADD2, TRANSMAST.TAREA, TRANSMAST.TCITY,"
      " TRANSMAST.TPHONE1, TRANSMAST.TPHONE2"
      " FROM BLPRN LEFT JOIN TRANSMAST ON BLPRN.TRANS_CD = TRANSMAST.TRANS_ID"
      " WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY VOUCH_NO, SR_NO";
  FilledSheet sheet;
  const auto head = db.first(kLines, number, kCode);
  if (!head) return sheet;
  auto& cells = sheet.cells;
  cells.set(1, 3, name);
  cells.set(2, 1, title(head->text("BL_TYPE"), supplyWords(db, company, number).title));
  cells.set(2, 6, AmountInWords(head->number("NET_AMT")));
  if (!head->text("NET_AMT").empty() && !head->text("CASH_AMT").empty())
    cells.set(2, 7, AmountInWords(head->number("NET_AMT") - head->number("CASH_AMT")));
  companyCells(cells, company);
  sheet.lines = cells.block(db.query(kLines, number, kCode), 6, 8);
  summaries(cells, db, number);
  return sheet;
}

void RenderDeliverySlip(Host& host, double number, const std::string& key) {
  Session& s = session();
  s.mpdfpath.clear();
  tellFailures(host, [&] {
    const Row company = companyDetails(data());
    const FilledSheet sheet = deliverySlipSheet(data(), s.mcompname, company, number);
    if (sheet.lines == 0) throw std::runtime_error("Wrong Selection");
    const bool bill = key == "Delivery Slip" || key == "Tax Invoice";
    // A design of its own, beside those of the challan.
    Paper paper = voucherPaper(challanKind(), number, s.mchlnformat);
    paper.design = formatsFolder() / paper.copy.filename();
    if (bill) paper.pdf = billsFolder() / (saleKind().paper.stem + numText(number) + ".pdf");
    paper.sheet = s.mprnsheet;
    paper.kept = SlotsKept::Lines;
    makePaper(host, paper, sheet);
  });
}
