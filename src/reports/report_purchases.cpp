#include "frame/voucher_kinds.h"
#include "reports/reports.h"

// The register of what suppliers billed.

namespace {

constexpr double kGstin = 158;  // pixels

// Purchases are few among the bills, so that they are read by their book.
ReportPlan planPurchases(Database&, const ReportQuery& q) {
  Condition c;
  c.add("SALE.BOOK_CD = ?", purchaseKind().code)
      .add("SALE.VOUCH_DT >= ?", q.from)
      .add("SALE.VOUCH_DT <= ?", q.to)
      .addFilled("SALE.PARTY_CD = ?", q[kParty])
      .addFilled("ACCOUNT.AREA = ?", q[kCity])
      .addFilled("ACCOUNT.CITY = ?", q[kState]);
  ReportPlan plan{.filter = c.shown()};
  plan.rows = {
      "SELECT SALE.VOUCH_NO, SALE.VOUCH_DT, BILL_NO, PRV_BDT, ACC_NAME, GSTINNO, SHOWN(ITEM_AMT, '0.00'),"
      " SHOWN(TCGSTRT, '0.00'), SHOWN(TSGSTRT, '0.00'), SHOWN(TIGSTRT, '0.00'), SHOWN(ROUND_OFF, '0.00'),"
      " SHOWN(SALE.NET_AMT, '0.00') AS AMOUNT, SALE.BOOK_CD"
      " FROM SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD WHERE " +
          c.text() + " ORDER BY SALE.VOUCH_DT, SALE.VOUCH_NO",
      c.values()};
  // clang-format off
  plan.columns = {
      {.heading = "No",       .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",     .twips = 1200, .type = ColumnType::Date},
      {.heading = "B.No",     .twips = 1100},
      {.heading = "B.Dt",     .twips = 1200, .type = ColumnType::Date},
      {.heading = "Supplier", .twips = 2600},
      {.heading = "Gstin",    .twips = 1300, .pixels = kGstin},
      {.heading = "Assival",  .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Cgst",     .twips = 1000, .type = ColumnType::Money, .summed = true},
      {.heading = "Sgst",     .twips = 1000, .type = ColumnType::Money, .summed = true},
      {.heading = "Igst",     .twips = 1000, .type = ColumnType::Money, .summed = true},
      {.heading = "R.Off",    .twips = 800,  .type = ColumnType::Money, .summed = true},
      {.heading = "N.Amt",    .twips = 1200, .type = ColumnType::Money, .summed = true},
  };
  // clang-format on
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
