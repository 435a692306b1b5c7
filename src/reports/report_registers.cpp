#include "base/words.h"
#include "frame/made_from.h"
#include "frame/voucher_kinds.h"
#include "reports/reports.h"
#include "store/groups.h"

// The registers of quotations, challans and receipts. Those of quotations and challans list every
// voucher of the file: their filter is only told, never applied. Beside each stands one that applies it
// and lists by date.

namespace {

constexpr const char* kAllVouchers = english("Lists All Vouchers Whatever Dates And Filters Say");

Condition dates(const ReportQuery& q) {
  Condition c;
  c.add("VOUCH_DT >= ?", q.from).add("VOUCH_DT <= ?", q.to).addFilled("PARTY_CD = ?", q[kParty]);
  return c;
}

enum class Lists { All, Asked };

Condition datesAndPlaces(const ReportQuery& q) {
  Condition c = dates(q);
  return c.addFilled("AREA = ?", q[kCity]).addFilled("CITY = ?", q[kState]);
}

// Behind the documented columns of a list by date: the bill, or the challan, that was made of the voucher.
void addBilled(ReportPlan& plan, Database& db, Lists lists, const VoucherKind& kind) {
  if (lists == Lists::All) return;
  const std::string amount = "AS N_AMT,", column = madeOfColumn(db, kind, kind.tables.heads) + " AS BILLED,";
  plan.rows.text.insert(plan.rows.text.find(amount) + amount.size(), " " + column);
  plan.rows.values.insert(plan.rows.values.begin(), words("Open"));
  plan.columns.push_back({.heading = "Billed", .twips = 1000});
}

// The condition and order of a register over `table`, and the values of its condition.
ReportPlan& narrow(ReportPlan& plan, Lists lists, const Condition& c, const std::string& table,
                   const std::string& ordered) {
  plan.filter = c.shown();
  if (lists == Lists::All) {
    plan.note = kAllVouchers;
    plan.rows.text += " ORDER BY " + ordered;
    return plan;
  }
  plan.rows.text += " WHERE " + c.text() + " ORDER BY " + table + ".VOUCH_DT, " + table + ".VOUCH_NO";
  plan.rows.values.insert(plan.rows.values.end(), c.values().begin(), c.values().end());
  return plan;
}

template <Lists lists>
ReportPlan planQuotations(Database& db, const ReportQuery& q) {
  ReportPlan plan;
  plan.rows = {
      "SELECT QUOT.VOUCH_NO, QUOT.VOUCH_DT, ACC_NAME, TOTQTY,"
      " SHOWN(ITEM_AMT + CHRG_AMT - DISC_AMT, '0.00') AS IAMT, SHOWN(TCGST, '0.00') AS CGST,"
      " SHOWN(TSGST, '0.00') AS SGST, SHOWN(TIGST, '0.00') AS IGST, SHOWN(NET_AMT, '0.00') AS N_AMT,"
      " PARTY_CD, ? AS BOOK,"
      " (SELECT COUNT(*) FROM QUOTITM WHERE QUOTITM.VOUCH_NO = QUOT.VOUCH_NO) AS LINE_COUNT"
      " FROM QUOT LEFT JOIN ACCOUNT ON QUOT.PARTY_CD = ACCOUNT.ACC_CD",
      {quotationKind().book()}};
  narrow(plan, lists, lists == Lists::All ? dates(q) : datesAndPlaces(q), "QUOT", "QUOT.VOUCH_NO");
  // clang-format off
  plan.columns = {
      {.heading = "No",           .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",         .twips = 1200, .type = ColumnType::Date},
      {.heading = "Party / Item", .twips = 2400},
      {.heading = "Qty",          .twips = 900,  .type = ColumnType::Quantity, .summed = true, .detail = ColumnType::Quantity},
      {.heading = "I-Amt",        .twips = 900,  .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "C/I GST",      .twips = 1000, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "SGST",         .twips = 1000, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "IGST",         .twips = 1000, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "N-AMT",        .twips = 1200, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
  };
  // clang-format on
  addBilled(plan, db, lists, quotationKind());
  plan.voucher = {.book = "BOOK", .number = "VOUCH_NO"};
  return plan;
}

template <Lists lists>
ReportPlan planQuotationDetails(Database& db, const ReportQuery& q) {
  ReportPlan plan = planQuotations<lists>(db, q);
  plan.details = {
      .rows = {"SELECT VOUCH_NO, VOUCH_DT, ITEM_NAME || ' ' || SIZE_CD, SHOWN(QUANTITY, '0.00') AS QTY,"
               " SHOWN(AMOUNT, '0.00') AS IAMT, CGSTAMT, SGSTAMT, IGSTAMT, AMOUNT AS amt"
               " FROM QUOTITM WHERE QUOTITM.VOUCH_NO = ? ORDER BY VAL(TNO), SRNO"},
      .keys = {"VOUCH_NO"},
      .count = "LINE_COUNT",
  };
  return plan;
}

// The headings C/I GST and SGST stand over charges and discount.
template <Lists lists>
ReportPlan planChallans(Database& db, const ReportQuery& q) {
  ReportPlan plan;
  plan.rows.text =
      "SELECT CHLN.VOUCH_NO, CHLN.VOUCH_DT, ACC_NAME, NO_OF_ITEM, ITEM_AMT, CHRGS, DISC_AMT,"
      " SHOWN(NET_AMT, '0.00') AS N_AMT, PARTY_CD, ACCOUNT.AREA, ACCOUNT.CITY, CHLN.BOOK_CD,"
      " (SELECT COUNT(*) FROM CHLNITM INNER JOIN ITEM ON CHLNITM.ITEM_CD = ITEM.ITEM_CD"
      " WHERE CHLNITM.VOUCH_NO = CHLN.VOUCH_NO) AS LINE_COUNT"
      " FROM CHLN LEFT JOIN ACCOUNT ON CHLN.PARTY_CD = ACCOUNT.ACC_CD";
  narrow(plan, lists, datesAndPlaces(q), "CHLN", "CHLN.VOUCH_NO, CHLN.BOOK_CD");
  // clang-format off
  plan.columns = {
      {.heading = "No",           .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",         .twips = 1200, .type = ColumnType::Date},
      {.heading = "Party / Item", .twips = 2600},
      {.heading = "Qty",          .twips = 900,  .type = ColumnType::Quantity, .summed = true, .detail = ColumnType::Quantity},
      {.heading = "Amt",          .twips = 900,  .type = ColumnType::Money, .summed = true},
      {.heading = "C/I GST",      .twips = 900,  .type = ColumnType::Money, .summed = true},
      {.heading = "SGST",         .twips = 900,  .type = ColumnType::Money, .summed = true},
      {.heading = "N-Amt",        .twips = 1200, .type = ColumnType::Money, .summed = true},
  };
  // clang-format on
  addBilled(plan, db, lists, challanKind());
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

template <Lists lists>
ReportPlan planChallanDetails(Database& db, const ReportQuery& q) {
  ReportPlan plan = planChallans<lists>(db, q);
  plan.details = {
      .rows = {"SELECT VOUCH_NO, VOUCH_DT, ITEM_NAME || ' ' || SIZE_CD, SHOWN(QUANTITY, '0.00') AS QTY,"
               " SHOWN(RATE * QUANTITY, '0.00') AS IAMT, RATE AS RT, SALE_DISC AS DISCAMT, AMOUNT"
               " FROM CHLNITM INNER JOIN ITEM ON CHLNITM.ITEM_CD = ITEM.ITEM_CD"
               " WHERE CHLNITM.VOUCH_NO = ? ORDER BY SR_NO"},
      .keys = {"VOUCH_NO"},
      .count = "LINE_COUNT",
  };
  return plan;
}

ReportPlan planReceipts(Database&, const ReportQuery& q) {
  Condition c = dates(q);
  c.addFilled("ACCOUNT.AREA = ?", q[kCity]).addFilled("ACCOUNT.CITY = ?", q[kState]);
  c.addFilled(underGroupAsked("ACCOUNT.GROUP_CD"), q[kCategory]);
  ReportPlan plan{.filter = c.shown(), .note = "Salesman Changes Nothing Here"};
  plan.rows = {
      "SELECT VOUCH_NO, VOUCH_DT, ACCOUNT.ACC_NAME || ' ' || ACCOUNT.AREA AS acname,"
      " SHOWN(AMOUNT, '0.00') AS AMT, NARRATION, PARTY_CD, CSHBNK_CD, ACCOUNT.AREA, ACCOUNT.CITY,"
      " ACCOUNT.ANOTHER_CD, ACCOUNT.GROUP_CD, BOOK_CD"
      " FROM RPTPAY INNER JOIN ACCOUNT ON RPTPAY.PARTY_CD = ACCOUNT.ACC_CD WHERE BOOK_CD = ? AND " +
          c.text() + " ORDER BY VOUCH_DT, VOUCH_NO, REF_NO, RPTPAY.rowid",
      c.valuesAfter(receiptKind().code)};
  // clang-format off
  plan.columns = {
      {.heading = "No.",     .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",    .twips = 1200, .type = ColumnType::Date},
      {.heading = "Party",   .twips = 2600},
      {.heading = "Amount",  .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Remarks", .twips = 1500},
  };
  // clang-format on
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

}  // namespace

const Report& quotationRegister() {
  static const Report report{.key = "QUOTREG", .caption = "Reports", .plan = planQuotations<Lists::All>};
  return report;
}

const Report& quotationDetailRegister() {
  static const Report report{
      .key = "QUOTREGDTL", .caption = "Reports", .plan = planQuotationDetails<Lists::All>};
  return report;
}

const Report& challanRegister() {
  static const Report report{
      .key = "CHLNRPT",
      .caption = "Challan Register",
      .fields = {kParty, kCity, kState},
      .plan = planChallans<Lists::All>,
  };
  return report;
}

// No caption of its own.
const Report& challanDetailRegister() {
  static const Report report{
      .key = "CHLNRPTDTL", .caption = "Reports", .plan = planChallanDetails<Lists::All>};
  return report;
}

const Report& quotationsAsked() {
  static const Report report{
      .key = "QUOTASKED",
      .caption = "Quotations By Date",
      .fields = {kParty, kCity, kState},
      .plan = planQuotations<Lists::Asked>,
  };
  return report;
}

const Report& quotationDetailsAsked() {
  static const Report report{
      .key = "QUOTASKEDDTL",
      .caption = "Quotations By Date With Items",
      .fields = {kParty, kCity, kState},
      .plan = planQuotationDetails<Lists::Asked>,
  };
  return report;
}

const Report& challansAsked() {
  static const Report report{
      .key = "CHLNASKED",
      .caption = "Challans By Date",
      .fields = {kParty, kCity, kState},
      .plan = planChallans<Lists::Asked>,
  };
  return report;
}

const Report& challanDetailsAsked() {
  static const Report report{
      .key = "CHLNASKEDDTL",
      .caption = "Challans By Date With Items",
      .fields = {kParty, kCity, kState},
      .plan = planChallanDetails<Lists::Asked>,
  };
  return report;
}

const Report& receiptRegister() {
  static const Report report{
      .key = "recipt",
      .caption = "Receipt Register",
      .fields = {kParty, kCity, kState, kCategory, kSalesman},
      .groups = true,
      .plan = planReceipts,
  };
  return report;
}
