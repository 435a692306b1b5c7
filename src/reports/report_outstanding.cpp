#include "base/pattern.h"
#include "base/words.h"
#include "frame/settings.h"
#include "reports/charts.h"
#include "reports/outstanding.h"
#include "reports/reports.h"

// Outstanding bills: a line a party, and with its open bills under it.

namespace {

std::string subtitle(Database& db, const ReportQuery& q) {
  if (!q[kState].empty()) return words("OutStanding Receivables  For : {place}", "place", q[kState]);
  if (!q[kCity].empty()) return words("OutStanding Receivables For : {place}", "place", q[kCity]);
  const auto party = db.first("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = ?", q[kParty]);
  return party ? words("Outstanding Receivables For : {party}", "party", party->text(0)) : "";
}

// The parties with open bills, each worked out as it is read.
class Parties : public ReportReading {
 public:
  Parties(Database& db, const ReportQuery& q) : customers_(db, "", q) {}

  const ColumnNames& names() const override {
    static const ColumnNames names(
        {"ACC_NAME", "AREA", "Bills", "Paid", "Balance", "PHONE1", "CITY", "ACC_CD", "OPEN_BILLS"});
    return names;
  }

  bool next() override {
    while (customers_.next())
      if (customers_.sums().bills > 0) return true;
    return false;
  }

  std::string text(int column) const override {
    const Receivables::Sums& sums = customers_.sums();
    switch (column) {
      case 2:
        return Format(sums.amount, "0.00");
      case 3:
        return Format(sums.paid, "0.00");
      case 4:
        return Format(sums.open, "0.00");
      case 8:
        return std::to_string(sums.bills);
      default:
        return customers_.customer().text(names().at(column));
    }
  }

 private:
  Receivables customers_;
};

constexpr const char* kBills =
    "SELECT CAL.VOUCH_DT, CAL.PARTY_BL, SHOWN(CAL.CR, '0.00') AS CRAMT, SHOWN(CAL.DR, '0.00') AS DRAMT,"
    " SHOWN(CAL.CL_BAL, '0.00') AS CLBAL, SHOWN(DATE_DIF, '0'),"
    " CASE WHEN SALE.VOUCH_NO IS NULL THEN CAL.NARRATION ELSE SALE.GR_NO || ' - ' || CAL.NARRATION END AS "
    "LRNO,"
    " SALE.TRANSPORT, CAL.BOOK_CD, CAL.VOUCH_NO"
    " FROM CAL LEFT JOIN SALE ON CAL.BOOK_CD = SALE.BOOK_CD AND CAL.VOUCH_NO = SALE.VOUCH_NO"
    " WHERE CAL.PARTY_CD = ? ORDER BY CAL.VOUCH_DT, CAL.PARTY_BL, CAL.rowid";

ReportPlan planOutstanding(Database& db, const ReportQuery& q) {
  ReportPlan plan;
  if (Receivables(db, "", q).none()) {
    plan.refusal = english("pl select proper code");
    return plan;
  }
  plan.caption = subtitle(db, q);
  plan.reading = [q](Database& itsDb) { return std::make_unique<Parties>(itsDb, q); };
  plan.details = ReportDetails{.rows = {kBills}, .keys = {"ACC_CD"}, .count = "OPEN_BILLS"};
  plan.detailVoucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  // The main row's area stands under B.No., its phone under Days / Mob; bills have their date under Party.
  // clang-format off
  plan.columns = {
      {.heading = "Party",      .twips = 2400, .detail = ColumnType::Date},
      {.heading = "B.No.",      .twips = 900,  .pixels = 200},
      {.heading = "Bills",      .twips = 1200, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "Paid",       .twips = 1200, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "Balance",    .twips = 1200, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "Days / Mob", .twips = 1400, .detail = ColumnType::Count},
  };
  // clang-format on
  return plan;
}

Chart chartOutstanding(Database& db, const TypedRows&) { return largestOutstanding(db); }

const ReportQuestion kFills{
    .when = ReportQuestion::When::WithRows,
    .setting = kOutstandingBills,
    .asked = {.text = english("Party Summary Only = No\nRegular Report WIth Bill Detail = Yes"),
              .title = kReportQuestion,
              .yes = english("&Yes, Bill Detail"),
              .no = english("&No, Summary Only")},
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
