#include "frame/voucher_kinds.h"
#include "reports/bill_columns.h"
#include "reports/reports.h"
#include "store/taxable.h"

// The register of what suppliers billed.

namespace {

constexpr double kGstin = 158;  // pixels

// Purchases are few among the bills, so that they are read by their book.
ReportPlan planPurchases(Database& db, const ReportQuery& q) {
  const Condition c = askedOfBills(q);
  const BillMarks marks = billMarks(db, purchaseKind().code);
  ReportPlan plan{.filter = c.shown() + " and SALE.BOOK_CD = '" + purchaseKind().code + "'"};
  plan.rows = {"SELECT SALE.VOUCH_NO, SALE.VOUCH_DT, BILL_NO, PRV_BDT, ACC_NAME, GSTINNO, SHOWN(" +
                   headTaxableOf("SALE.") +
                   ", '0.00'), SHOWN(TCGSTRT, '0.00'), SHOWN(TSGSTRT, '0.00'), SHOWN(TIGSTRT, '0.00'), "
                   "SHOWN(ROUND_OFF, '0.00'),"
                   " SHOWN(SALE.NET_AMT, '0.00') AS AMOUNT" +
                   marks.expression +
                   ", SALE.BOOK_CD FROM SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD"
                   " WHERE SALE.BOOK_CD = ? AND " +
                   c.text() + " ORDER BY SALE.VOUCH_DT, SALE.VOUCH_NO",
               marks.before(c.valuesAfter(purchaseKind().code))};
  // clang-format off
  plan.columns = {
      {.heading = "No",       .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",     .twips = 1200, .type = ColumnType::Date},
      {.heading = "B.No",     .twips = 1100},
      {.heading = "B.Dt",     .twips = 1200, .type = ColumnType::Date},
      {.heading = "Supplier", .twips = 2600},
      {.heading = "Gstin",    .twips = 1300, .pixels = kGstin},
  };
  // clang-format on
  addBillFigures(plan.columns, true);
  marks.addTo(plan.columns);
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

}  // namespace

const Report& purchaseRegister() {
  static const Report report{
      .key = "PURREG",
      .caption = "Purchase Register",
      .fields = {kParty, kCity, kState},
      .plan = planPurchases,
  };
  return report;
}
