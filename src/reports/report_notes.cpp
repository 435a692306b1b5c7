#include "base/text.h"
#include "base/words.h"
#include "frame/note_reasons.h"
#include "frame/voucher_kinds.h"
#include "reports/bill_columns.h"
#include "reports/reports.h"
#include "store/dictionary.h"
#include "store/taxable.h"

// The register of notes: a line a kind with its sums, and under it the notes of the kind with the bill that
// each stands against. Kinds are not summed together, because one takes off what another adds.

namespace {

constexpr double kGstin = 158, kDate = 96, kReason = 140;  // pixels

// Of the first bill, and how many there are further; books that lack the table have notes without bills.
struct Bill {
  std::string number = "''", date = "''", reason = "0";
};
Bill bill(Database& db) {
  if (!CheckTable(db, "ORIGINAL")) return {};
  const auto of = [](const std::string& what) {
    return "(SELECT " + what +
           " FROM ORIGINAL AS O WHERE O.VOUCH_NO = SALE.VOUCH_NO AND O.BOOK_CD = SALE.BOOK_CD"
           " ORDER BY O.SR_NO LIMIT 1)";
  };
  const std::string further =
      "(SELECT COUNT(*) FROM ORIGINAL AS O WHERE O.VOUCH_NO = SALE.VOUCH_NO AND O.BOOK_CD = SALE.BOOK_CD)";
  return {.number = of("O.BILL_NO") + " || CASE WHEN " + further + " > 1 THEN ' +' || NUMTEXT(" + further +
                    " - 1) ELSE '' END",
          .date = of("O.BILL_DT"),
          .reason = of("O.REASON")};
}

constexpr const char* kFigures[] = {"ITEM_AMT", "TCGSTRT", "TSGSTRT", "TIGSTRT", "ROUND_OFF", "NET_AMT"};

// Expressions over the figures in the order of their columns.
std::string figures(const std::string& before, const std::string& behind) {
  std::string all;
  for (const std::string figure : kFigures)
    all += ", SHOWN(" + before + (figure == kFigures[0] ? headTaxableOf("SALE.") : "SALE." + figure) +
           behind + ", '0.00') AS F_" + figure;
  return all;
}

ReportPlan planNotes(Database& db, const ReportQuery& q) {
  const Condition c = askedOfBills(q);
  ReportPlan plan{.filter = c.shown()};
  const std::string from = " FROM SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD WHERE ";
  std::string names;
  std::vector<std::string> codes;
  for (const VoucherKind* kind : voucherKinds()) {
    if (!kind->isNote()) continue;
    codes.push_back("'" + kind->code + "'");
    names += " WHEN '" + kind->code + "' THEN ?";
    plan.rows.values.emplace_back(words(kind->words.name));
  }
  plan.rows.text = "SELECT '' AS NO, '' AS DAY, CASE SALE.BOOK_CD" + names +
                   " END AS KIND, '' AS GSTIN, '' AS BILL, '' AS BILLDAY, '' AS REASON" +
                   figures("SUM(", ")") + ", SALE.BOOK_CD, COUNT(*) AS NOTES" + from + "SALE.BOOK_CD IN (" +
                   join(codes, ", ") + ") AND " + c.text() + " GROUP BY SALE.BOOK_CD ORDER BY SALE.BOOK_CD";
  plan.rows.values.insert(plan.rows.values.end(), c.values().begin(), c.values().end());

  const Bill original = bill(db);
  std::string reasons;
  std::vector<Value> values;
  for (int reason = 1; reason <= kNoteReasons; ++reason) {
    reasons += " WHEN " + std::to_string(reason) + " THEN ?";
    values.emplace_back(noteReason(reason));
  }
  values.insert(values.end(), c.values().begin(), c.values().end());
  plan.details = ReportDetails{
      .rows = {"SELECT SALE.BILL_NO, SALE.VOUCH_DT, ACC_NAME, GSTINNO, " + original.number + " AS BILL, " +
                   original.date + " AS BILLDAY, CASE " + original.reason + reasons +
                   " ELSE '' END AS REASON" + figures("", "") + ", SALE.BOOK_CD, SALE.VOUCH_NO" + from +
                   c.text() + " AND SALE.BOOK_CD = ? ORDER BY SALE.VOUCH_DT, SALE.VOUCH_NO",
               values},
      .keys = {"BOOK_CD"                                                  },
      .count = "NOTES",
  };
  plan.detailVoucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  // clang-format off
  plan.columns = {
      {.heading = "No",      .twips = 700},
      {.heading = "Date",    .twips = 1000, .detail = ColumnType::Date, .pixels = kDate},
      {.heading = "Party",   .twips = 2100},
      {.heading = "Gstin",   .twips = 1300, .pixels = kGstin},
      {.heading = "Bill",    .twips = 900},
      {.heading = "Bill Dt", .twips = 1000, .detail = ColumnType::Date, .pixels = kDate},
      {.heading = "Reason",  .twips = 1300, .pixels = kReason},
  };
  // clang-format on
  addBillFigures(plan.columns, false);
  return plan;
}

}  // namespace

const Report& noteRegister() {
  static const Report report{
      .key = "NOTEREG",
      .caption = "Credit / Debit Note Register",
      .fields = {kParty, kCity, kState},
      .plan = planNotes,
  };
  return report;
}
