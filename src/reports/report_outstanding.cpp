#include "reports/charts.h"
#include "reports/outstanding.h"
#include "reports/reports.h"

// Outstanding bills: a line a party, and with its open bills under it.

namespace {

std::string subtitle(Database& db, const ReportQuery& q) {
  if (!q[kState].empty()) return "OutStanding Receivables  For : " + q[kState];
  if (!q[kCity].empty()) return "OutStanding Receivables For : " + q[kCity];
  const auto party = db.first("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = ?", q[kParty]);
  return party ? "Outstanding Receivables For : " + party->text(0) : "";
}

// Summed by account before the names are joined: an account has one row of each.
constexpr const char* kParties =
    "WITH SUMS AS MATERIALIZED (SELECT PARTY_CD, SUM(CR) AS CR, SUM(DR) AS DR, SUM(CL_BAL) AS CL_BAL,"
    " COUNT(*) AS BILLS FROM CAL GROUP BY PARTY_CD)"
    " SELECT ACC_NAME, AREA, FORMAT(CR, '0.00') AS Bills, FORMAT(DR, '0.00') AS Paid,"
    " FORMAT(SUMS.CL_BAL, '0.00') AS Balance, PHONE1, CITY, ACC_CD, SUMS.BILLS AS OPEN_BILLS"
    " FROM SUMS JOIN ACCOUNT ON ACCOUNT.ACC_CD = SUMS.PARTY_CD WHERE GROUP_CD = 85 OR GROUP_CD = 86"
    " ORDER BY ACC_NAME, AREA, PHONE1, CITY, ACC_CD";

constexpr const char* kBills =
    "SELECT CAL.VOUCH_DT, CAL.PARTY_BL, FORMAT(CAL.CR, '0.00') AS CRAMT, FORMAT(CAL.DR, '0.00') AS DRAMT,"
    " FORMAT(CAL.CL_BAL, '0.00') AS CLBAL, FORMAT(DATE_DIF, '0'),"
    " CASE WHEN SALE.VOUCH_NO IS NULL THEN CAL.NARRATION ELSE SALE.GR_NO || ' - ' || CAL.NARRATION END AS "
    "LRNO,"
    " SALE.TRANSPORT, CAL.BOOK_CD, CAL.VOUCH_NO"
    " FROM CAL LEFT JOIN SALE ON CAL.BOOK_CD = SALE.BOOK_CD AND CAL.VOUCH_NO = SALE.VOUCH_NO"
    " WHERE CAL.PARTY_CD = ? ORDER BY CAL.VOUCH_DT, CAL.PARTY_BL, CAL.rowid";

ReportPlan planOutstanding(Database& db, const ReportQuery& q) {
  ReportPlan plan;
  if (!ON_AC_RECEIVABLES(db, "", q)) {
    plan.refusal = "pl select proper code";
    return plan;
  }
  plan.caption = subtitle(db, q);
  plan.rows = {kParties};
  plan.details = ReportDetails{.rows = {kBills}, .keys = {"ACC_CD"}, .count = "OPEN_BILLS"};
  plan.detailVoucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  // The main row's area stands under B.No., its phone under Days / Mob.
  // clang-format off
  plan.columns = {
      {.heading = "Party",      .twips = 2400},
      {.heading = "B.No.",      .twips = 900,  .pixels = 200},
      {.heading = "Bills",      .twips = 1200, .money = true, .detailMoney = true},
      {.heading = "Paid",       .twips = 1200, .money = true, .detailMoney = true},
      {.heading = "Balance",    .twips = 1200, .money = true, .detailMoney = true},
      {.heading = "Days / Mob", .twips = 1400},
  };
  // clang-format on
  return plan;
}

Chart chartOutstanding(Database& db, const RowSource&) { return largestOutstanding(db); }

const ReportQuestion kFills{
    .when = ReportQuestion::When::WithRows,
    .text = "Party Summary Only = No\nRegular Report WIth Bill Detail = Yes",
};

}  // namespace

const Report& outstandingList() {
  static const Report report{
      .key = kOutstanding,
      .caption = "Outstandings Receivables",
      .fields = {kParty, kCity, kState, kCategory},
      .question = kFills,
      .chart = chartOutstanding,
      .plan = planOutstanding,
  };
  return report;
}
