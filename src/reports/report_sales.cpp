#include "base/words.h"
#include "frame/voucher_kinds.h"
#include "reports/bill_columns.h"
#include "reports/charts.h"
#include "reports/reports.h"
#include "store/taxable.h"

// The registers of sale bills: one line a bill, and with the lines of each bill under it.

namespace {

constexpr double kGstin = 158, kPlace = 150;  // pixels

std::string partyName(Database& db, const std::string& code) {
  return db.text("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = ?", code);
}

// TCGSTRT, TSGSTRT and TIGSTRT hold the bill's tax, not rates. The book stands with a + so that bills are
// read in the order of their dates, without a sort.
ReportPlan planBills(Database& db, const ReportQuery& q) {
  const Condition c = askedOfBills(q);
  const BillMarks marks = billMarks(db, saleKind().code);
  ReportPlan plan{.filter = c.shown() + " and SALE.BOOK_CD = '" + saleKind().code + "'"};
  if (!q[kParty].empty())
    plan.caption = words("Sales Bill Summary For : {party}", "party", partyName(db, q[kParty]));
  plan.rows = {
      "SELECT BILL_NO, SALE.VOUCH_DT, ACC_NAME, AREA, GSTINNO, SHOWN(" + headTaxableOf("SALE.") +
          ", '0.00'), SHOWN(TCGSTRT, '0.00'), SHOWN(TSGSTRT, '0.00'), SHOWN(TIGSTRT, '0.00'),"
          " SHOWN(ROUND_OFF, '0.00'), SHOWN(SALE.NET_AMT, '0.00') AS AMOUNT" +
          marks.expression +
          ", PARTY_CD, ACCOUNT.CITY, BL_TYPE, SALE_CD, SALE.DATASENT, SALE.BOOK_CD, SALE.VOUCH_NO"
          " FROM SALE INNER JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD WHERE +SALE.BOOK_CD = ? AND " +
          c.text() + " ORDER BY SALE.VOUCH_DT, SALE.VOUCH_NO",
      marks.before(c.valuesAfter(saleKind().code))};
  // clang-format off
  plan.columns = {
      {.heading = "No",      .twips = 700},
      {.heading = "Date",    .twips = 1200, .type = ColumnType::Date},
      {.heading = "Party",   .twips = 3000},
      {.heading = "City",    .twips = 1300},
      {.heading = "Gstin",   .twips = 1300, .pixels = kGstin},
  };
  // clang-format on
  addBillFigures(plan.columns, true);
  marks.addTo(plan.columns);
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

Chart chartBills(Database&, const TypedRows& rows) {
  return amountsByDay(rows, 1, 10, english("Sale Bills A Day"));
}

// A main row's area stands under Type, as its bill's lines have their description there.
ReportPlan planBillDetails(Database&, const ReportQuery& q) {
  Condition c = askedOfBills(q);
  c.addFilled("SALE.SALE_CD = ?", q[kCategory]);
  ReportPlan plan{.filter = c.shown()};
  plan.rows = {
      "SELECT SALE.VOUCH_NO AS vno, SALE.VOUCH_DT AS vdate, BILL_NO, ACC_NAME AS party, AREA,"
      " SHOWN(NO_OF_ITEM, '0.00'), SHOWN(ITEM_AMT, '0.00'),"
      " SHOWN(ABS((NET_AMT + (DISC_AMT1 + DISC_AMT2) - ITEM_AMT) - (DISC_AMT1 + DISC_AMT2)), '0.00')"
      " AS Disc, SHOWN(NET_AMT, '0.00') AS AMOUNT, PARTY_CD, SALE.BOOK_CD, SALE.SMAN_CD, CITY, SALE_CD,"
      " NARRATION, SALE.DATASENT,"
      " (SELECT COUNT(*) FROM SALEITM INNER JOIN ITEM ON SALEITM.ITEM_CD = ITEM.ITEM_CD"
      " WHERE SALEITM.VOUCH_NO = SALE.VOUCH_NO AND SALEITM.BOOK_CD = SALE.BOOK_CD) AS LINE_COUNT"
      " FROM SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD WHERE +SALE.BOOK_CD = ? AND " +
          c.text() + " ORDER BY SALE.VOUCH_DT, SALE.VOUCH_NO",
      c.valuesAfter(saleKind().code)};
  plan.details = {
      .rows = {"SELECT '' AS one1, ITEM.HSNCODE AS two2,"
               " CASE WHEN SALEITM.DESC1 <> '0' THEN SALEITM.DESC1 ELSE '' END AS three3, ITEM_NAME AS ITMNM,"
               " ITEM_DESC, SHOWN(QUANTITY, '0.00'), SHOWN(SALEITM.RATE, '0.00') AS rate,"
               " SHOWN(SALE_DISC, '0.00'), SHOWN(NET_AMOUNT - (CGSTAMT + SGSTAMT + IGSTAMT), '0.00')"
               " FROM SALEITM INNER JOIN ITEM ON SALEITM.ITEM_CD = ITEM.ITEM_CD"
               " WHERE SALEITM.VOUCH_NO = ? AND SALEITM.BOOK_CD = ? ORDER BY SALEITM.SR_NO"},
      .keys = { "vno",                                                                                  "BOOK_CD"},
      .count = "LINE_COUNT",
  };
  // clang-format off
  plan.columns = {
      {.heading = "No.",       .twips = 700,  .type = ColumnType::Count},
      {.heading = "Date",      .twips = 1100, .type = ColumnType::Date, .detail = ColumnType::Text},
      {.heading = "B.No",      .twips = 800},
      {.heading = "Party",     .twips = 2400},
      {.heading = "Type",      .twips = 1200, .pixels = kPlace},
      {.heading = "Qty",       .twips = 800,  .type = ColumnType::Quantity, .summed = true},
      {.heading = "Rate/Tax",  .twips = 1100, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "Chrg/Disc", .twips = 800,  .type = ColumnType::Money, .summed = true, .detail = ColumnType::Rate},
      {.heading = "AMOUNT",    .twips = 1200, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
  };
  // clang-format on
  plan.voucher = {.book = "BOOK_CD", .number = "vno"};
  return plan;
}

}  // namespace

const Report& saleBillRegister() {
  static const Report report{
      .key = "SALEBILLSUMMARY",
      .caption = "SALE Bill Register",
      .fields = {kParty, kCity, kState},
      .video = &Links::saleRegistersVideo,
      .chart = chartBills,
      .plan = planBills,
  };
  return report;
}

const Report& saleBillDetailRegister() {
  static const Report report{
      .key = "slblreg",
      .caption = "SALE Bill Detailed Register",
      .fields = {kParty, kCity, kState},
      .video = &Links::saleRegistersVideo,
      .plan = planBillDetails,
  };
  return report;
}
