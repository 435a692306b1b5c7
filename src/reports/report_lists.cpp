#include "base/number.h"
#include "base/words.h"
#include "frame/settings.h"
#include "reports/balances.h"
#include "reports/reports.h"
#include "store/groups.h"

// The lists of masters: parties, categories, prices, and the customers' closing balances.

namespace {

constexpr double kGstin = 158;  // pixels of a GSTIN

std::string categoryName(Database& db, const std::string& code) {
  return code.empty() ? "" : db.text("SELECT DEPT_NAME FROM DEPTMENT WHERE DEPT_CD = ?", code);
}

std::string where(const Condition& condition) {
  return condition.empty() ? "" : " WHERE " + condition.text();
}

// The PAN stands in BANK_NAME.
ReportPlan planParties(Database&, const ReportQuery& q) {
  Condition c;
  c.addFilled("AREA = ?", q[kCity]).addFilled("CITY = ?", q[kState]).addFilled("ACC_CD = ?", q[kParty]);
  ReportPlan plan{.filter = c.shown()};
  plan.rows = {
      "SELECT ACC_CD, ACC_NAME AS acc_name, ADD1 || ' ' || ADD2 AS ADRS, AREA AS area, CITY AS city,"
      " PHONE1 AS phone1, GSTINNO, BANK_NAME AS PANNO FROM ACCOUNT WHERE " +
          underGroups("GROUP_CD", {85}) + (c.empty() ? "" : " AND " + c.text()) +
          " ORDER BY ACC_NAME, ACC_CD",
      c.values()};
  // clang-format off
  plan.columns = {
      {.twips = 700},
      {.twips = 2800},
      {.twips = 3000},
      {.twips = 1300},
      {.twips = 1300},
      {.twips = 1300},
      {.twips = 1400, .pixels = kGstin},
      {.twips = 1300},
  };
  // clang-format on
  return plan;
}

ReportPlan planCategories(Database&, const ReportQuery&) {
  ReportPlan plan{.caption = "DEPARTMENT MASTER"};
  plan.rows.text =
      "SELECT DEPT_CD, DEPT_NAME, HSNCODE, ITEMDESC, SHOWN(RATEOFTAX, '0.00') FROM DEPTMENT"
      " ORDER BY DEPT_NAME, DEPT_CD";
  // clang-format off
  plan.columns = {
      {.heading = "Code",        .twips = 1000},
      {.heading = "Name",        .twips = 2500},
      {.heading = "HSN",         .twips = 1400},
      {.heading = "Description", .twips = 2500},
      {.heading = "Tax Rt",      .twips = 1000, .type = ColumnType::Rate},
      {.heading = "Cess"},
      {.heading = "Stk-Cnt"},
  };
  // clang-format on
  return plan;
}

// One item after the other.
void planContinuous(ReportPlan& plan, const ReportQuery& q) {
  Condition c;
  c.addFilled("ITEM.DEPT_CD = ?", q[kCategory]).addFilled("ITEM.ITEM_CD = ?", q[kItem]);
  plan.filter = c.shown();
  plan.rows = {
      "SELECT ITEM.ITEM_CD, ITEM_NAME, DEPT_NAME, SIZE_CD, ITEM.HSNCODE,"
      " SHOWN(ITEM.RATEOFTAX, '0.00'), SHOWN(SALE_RATE1, '0.00') AS Rate1,"
      " SHOWN(SALE_DISC, '0.00') AS Disc1, ITEM.DEPT_CD"
      " FROM (ITEM INNER JOIN ITEMDTL ON ITEM.ITEM_CD = ITEMDTL.ITEM_CD)"
      " INNER JOIN DEPTMENT ON ITEM.DEPT_CD = DEPTMENT.DEPT_CD" +
          where(c) + " ORDER BY ITEM_NAME, SIZE_CD, ITEM.ITEM_CD",
      c.values()};
  // clang-format off
  plan.columns = {
      {.heading = "Code",   .twips = 1200},
      {.heading = "Name",   .twips = 2800},
      {.heading = "Catg",   .twips = 1700},
      {.heading = "Unit",   .twips = 900},
      {.heading = "Hsn",    .twips = 1000},
      {.heading = "Tax-Rt", .twips = 800,  .type = ColumnType::Rate},
      {.heading = "S-Rate", .twips = 1000, .type = ColumnType::Money},
      {.heading = "Disc",   .twips = 800,  .type = ColumnType::Rate},
  };
  // clang-format on
}

// The items of each category under it.
void planByCategory(ReportPlan& plan, const ReportQuery& q) {
  Condition c;
  c.addFilled("DEPT_CD = ?", q[kCategory]);
  plan.filter = c.shown();
  plan.rows = {
      "SELECT DEPT_NAME, DEPT_CD, '' AS sizecd, '' AS hsncode, 0 AS rt, 0 AS disc,"
      " (SELECT COUNT(*) FROM ITEM INNER JOIN ITEMDTL ON ITEM.ITEM_CD = ITEMDTL.ITEM_CD"
      " WHERE ITEM.DEPT_CD = DEPTMENT.DEPT_CD) AS ITEMS FROM DEPTMENT" +
          where(c) + " ORDER BY DEPT_NAME, DEPT_CD",
      c.values()};
  plan.details = {
      .rows = {"SELECT ITEM_NAME, ITEM.ITEM_CD, SIZE_CD, ITEM.HSNCODE, SHOWN(SALE_RATE1, '0.00'),"
               " SHOWN(SALE_DISC, '0.00') FROM ITEM INNER JOIN ITEMDTL ON ITEM.ITEM_CD = ITEMDTL.ITEM_CD"
               " WHERE ITEM.DEPT_CD = ? ORDER BY ITEM_NAME, SIZE_CD, ITEM.ITEM_CD"},
      .keys = {"DEPT_CD"},
      .count = "ITEMS",
  };
  // clang-format off
  plan.columns = {
      {.heading = "Particulars", .twips = 3000},
      {.heading = "Code",        .twips = 1000},
      {.heading = "Unit",        .twips = 1000},
      {.heading = "HSN",         .twips = 1000},
      {.heading = "Rate",        .twips = 1000, .type = ColumnType::Money},
      {.heading = "Disc",        .twips = 1000, .type = ColumnType::Rate},
  };
  // clang-format on
}

ReportPlan planPrices(Database& db, const ReportQuery& q) {
  ReportPlan plan{.note = "For Size Changes Nothing Here"};
  const std::string category = categoryName(db, q[kCategory]);
  if (!category.empty())
    plan.caption = words("{list} For : {category}", "list", words(priceList().caption), "category", category);
  q.yes ? planByCategory(plan, q) : planContinuous(plan, q);
  return plan;
}

// Of customers, over the period; party and category are never read.
ReportPlan planClosingBalances(Database& db, const ReportQuery& q) {
  BuildFinalTable(db, q.from, q.to, kClosingBalanceList);
  Condition c;
  c.add("group_cd = ?", 85).addFilled("area = ?", q[kCity]).addFilled("city = ?", q[kState]);
  ReportPlan plan{.caption = words("Closing Balance Statement For : Customers"),
                  .filter = c.shown(),
                  .note = "Party And Category Change Nothing Here"};
  for (const ReportField field : {kCity, kState})
    if (!q[field].empty()) plan.caption += " " + q[field];
  plan.rows = {
      closingBalancesText(), {q[kCity], q[kCity], q[kState], q[kState]}
  };
  // clang-format off
  plan.columns = {
      {.heading = "Code",   .twips = 1100},
      {.heading = "Name",   .twips = 3000},
      {.heading = "Dr",     .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Cr",     .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "City",   .twips = 1500},
      {.heading = "Phone1", .twips = 1400},
  };
  // clang-format on
  return plan;
}

// Of all groups, by what the filters say.
ReportPlan planGroupedBalances(Database& db, const ReportQuery& q) {
  BuildFinalTable(db, q.from, q.to, kClosingBalanceList);
  Condition c;
  c.addFilled("ACCOUNT.ACC_CD = ?", q[kParty])
      .addFilled("ACCOUNT.AREA = ?", q[kCity])
      .addFilled("ACCOUNT.CITY = ?", q[kState])
      .addFilled(underGroupAsked("SIDES.GROUP_CD"), q[kCategory]);
  ReportPlan plan{.filter = c.shown(), .note = "A Group Brings The Groups Below It Along"};
  plan.rows = {groupedBalancesText(c.text()), c.values()};
  // clang-format off
  plan.columns = {
      {.heading = "Group",   .twips = 2000},
      {.heading = "Code",    .twips = 900},
      {.heading = "Name",    .twips = 2800},
      {.heading = "Opening", .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Debit",   .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Credit",  .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Dr",      .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Cr",      .twips = 1200, .type = ColumnType::Money, .summed = true},
  };
  // clang-format on
  return plan;
}

}  // namespace

const Report& partyList() {
  static const Report report{
      .key = "accmastADD",
      .caption = "Party List PRINT",
      .fields = {kParty, kCity, kState},
      .video = &Links::partyListVideo,
      .plan = planParties,
  };
  return report;
}

const Report& categoryList() {
  static const Report report{
      .key = "dept",
      .caption = "Category List Print",
      .video = &Links::categoryListVideo,
      .plan = planCategories,
  };
  return report;
}

const Report& priceList() {
  static const ReportQuestion parts{
      .setting = kPriceListParts,
      .asked = {.text = english("Continious Print = No\r\nCategory Wise Print = Yes"),
                .title = kReportQuestion,
                .yes = english("&Yes, Category Wise"),
                .no = english("&No, Continuous")},
  };
  static const Report report{
      .key = "priclstprn",
      .caption = "Price List PRINT",
      .fields = {kItem, kCategory, kSalesman},
      .salesmanLabel = english("For Size"),
      .question = parts,
      .video = &Links::priceListVideo,
      .plan = planPrices,
  };
  return report;
}

const Report& closingBalanceList() {
  static const Report report{
      .key = kClosingBalanceList,
      .caption = "Closing Balance List Print",
      .fields = {kParty, kCity, kState, kCategory},
      .groups = true,
      .ignoresEscape = true,
      .plan = planClosingBalances,
  };
  return report;
}

const Report& groupedBalanceList() {
  static const Report report{
      .key = "CLBALGROUP",
      .caption = "Balances By Group And Party",
      .fields = {kParty, kCity, kState, kCategory},
      .groups = true,
      .plan = planGroupedBalances,
  };
  return report;
}
