#include "base/text.h"
#include "base/words.h"
#include "frame/money_modes.h"
#include "frame/settings.h"
#include "frame/voucher_kinds.h"
#include "reports/reports.h"
#include "store/dictionary.h"
#include "store/groups.h"

// The registers of payments, of what came in and went out under an income or expense, and of the tax that was
// kept back at its source.

namespace {

using Kinds = std::vector<const VoucherKind*>;

// What was asked, of vouchers of the kinds. They are read by their dates: one kind may be nearly everything.
Condition asked(const Kinds& kinds, const ReportQuery& q, const std::string& heads = "RPTPAY",
                const std::string& party = "RPTPAY.PARTY_CD") {
  std::vector<std::string> codes;
  for (const VoucherKind* kind : kinds) codes.push_back("'" + kind->code + "'");
  Condition c;
  c.add("+" + heads + ".BOOK_CD IN (" + join(codes, ", ") + ") AND " + heads + ".VOUCH_DT >= ?", q.from)
      .add(heads + ".VOUCH_DT <= ?", q.to)
      .addFilled(party + " = ?", q[kParty])
      .addFilled("PARTY.AREA = ?", q[kCity])
      .addFilled("PARTY.CITY = ?", q[kState])
      .addFilled(underGroupAsked("PARTY.GROUP_CD"), q[kCategory]);
  return c;
}

// The kind of each voucher in words.
Statement kindNames(const Kinds& kinds, const std::string& heads = "RPTPAY") {
  Statement names{"CASE " + heads + ".BOOK_CD"};
  for (const VoucherKind* kind : kinds) {
    names.text += " WHEN ? THEN ?";
    names.values.insert(names.values.end(), {kind->code, words(kind->words.name)});
  }
  names.text += " END AS KIND";
  return names;
}

// How the money went; what says nothing is cash.
constexpr const char* kMode =
    "CASE RPTPAY.VOUCH_TYPE WHEN 'CQ' THEN ? WHEN 'UP' THEN ? WHEN 'NE' THEN ? WHEN 'CD' THEN ? ELSE ? END "
    "AS HOW";

std::vector<Value> modes() {
  std::vector<Value> shown;
  for (const char* each : {"CQ", "UP", "NE", "CD", "."}) shown.emplace_back(moneyModeName(each));
  return shown;
}

// What the columns take first, then place, mode and cheque; the amount as each register has it.
ReportPlan plan(const Condition& c, const std::string& first, const std::string& amounts,
                std::vector<Value> values) {
  ReportPlan plan{.filter = c.shown()};
  for (const std::vector<Value>& more : {modes(), c.values()})
    values.insert(values.end(), more.begin(), more.end());
  plan.rows = {"SELECT RPTPAY.VOUCH_NO, RPTPAY.VOUCH_DT, " + first + ", PLACE.ACC_NAME AS PLACENAME, " +
                   kMode + ", CASE WHEN LEN(CHQ_NO) > 1 THEN CHQ_NO ELSE '' END, " + amounts +
                   ", CASE WHEN NARRATION <> '.' THEN NARRATION ELSE '' END, RPTPAY.BOOK_CD"
                   " FROM RPTPAY LEFT JOIN ACCOUNT AS PARTY ON RPTPAY.PARTY_CD = PARTY.ACC_CD"
                   " LEFT JOIN ACCOUNT AS PLACE ON RPTPAY.CSHBNK_CD = PLACE.ACC_CD WHERE " +
                   c.text() + " ORDER BY RPTPAY.VOUCH_DT, RPTPAY.VOUCH_NO, RPTPAY.rowid",
               std::move(values)};
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

ReportPlan planPayments(Database&, const ReportQuery& q) {
  ReportPlan payments = plan(asked({kindByEntryType("PAYMENT")}, q),
                             "PARTY.ACC_NAME || ' ' || COALESCE(PARTY.AREA, '') AS PARTYNAME",
                             "SHOWN(AMOUNT, '0.00') AS AMT", {});
  // clang-format off
  payments.columns = {
      {.heading = "No.",     .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",    .twips = 1200, .type = ColumnType::Date},
      {.heading = "Party",   .twips = 2600},
      {.heading = "Account", .twips = 1800},
      {.heading = "Mode",    .twips = 1000},
      {.heading = "Cheque",  .twips = 1200},
      {.heading = "Amount",  .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Remarks", .twips = 1800},
  };
  // clang-format on
  return payments;
}

ReportPlan planIncomesAndExpenses(Database&, const ReportQuery& q) {
  const VoucherKind *const income = kindByEntryType("INCOME"), *const expense = kindByEntryType("EXPENSE");
  const auto amountOf = [](const VoucherKind& kind) {
    return "CASE WHEN RPTPAY.BOOK_CD = '" + kind.code + "' THEN SHOWN(AMOUNT, '0.00') ELSE '' END";
  };
  const Statement names = kindNames({income, expense});
  ReportPlan both = plan(asked({income, expense}, q), names.text + ", PARTY.ACC_NAME AS PARTYNAME",
                         amountOf(*income) + ", " + amountOf(*expense), names.values);
  // clang-format off
  both.columns = {
      {.heading = "No.",     .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",    .twips = 1200, .type = ColumnType::Date},
      {.heading = "Kind",    .twips = 900},
      {.heading = "Account", .twips = 2200},
      {.heading = "Over",    .twips = 1800},
      {.heading = "Mode",    .twips = 1000},
      {.heading = "Cheque",  .twips = 1200},
      {.heading = "Income",  .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Expense", .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Remarks", .twips = 1800},
  };
  // clang-format on
  return both;
}

// Lines of journals on an account of TDS, on the side on which it is kept back. Whose it is: the largest
// other line of a party, else of any account.
Statement taxOfJournals(Database& db, const ReportQuery& q) {
  const Kinds kinds = kindsPostedFrom("JOURNAL");
  const Condition c = asked(kinds, q, "H", "P.ACC_CD");
  Statement lines = kindNames(kinds, "H");
  lines.text =
      "SELECT H.VOUCH_NO, H.VOUCH_DT, " + lines.text +
      ", PARTY.ACC_NAME AS PARTYNAME, CASE WHEN LEN(PARTY.BANK_NAME) > 1 THEN PARTY.BANK_NAME END AS PAN,"
      " TAX.ACC_NAME AS TAXNAME, SHOWN(P.DEBIT + P.CREDIT, '0.00') AS PAID,"
      " SHOWN(L.DEBIT + L.CREDIT, '0.00') AS TDS, H.BOOK_CD, L.SR_NO AS PLACE FROM JOURNITM AS L"
      " JOIN JOURNAL AS H ON H.VOUCH_NO = L.VOUCH_NO AND H.BOOK_CD = L.BOOK_CD"
      " JOIN JOURNITM AS P ON P.VOUCH_NO = L.VOUCH_NO AND P.BOOK_CD = L.BOOK_CD AND P.SR_NO ="
      " (SELECT X.SR_NO FROM JOURNITM AS X LEFT JOIN ACCOUNT AS A ON A.ACC_CD = X.ACC_CD"
      " WHERE X.VOUCH_NO = L.VOUCH_NO AND X.BOOK_CD = L.BOOK_CD AND X.SR_NO <> L.SR_NO ORDER BY CASE WHEN " +
      underGroups("A.GROUP_CD", {85, 86, 135}) +
      " THEN 0 ELSE 1 END, X.DEBIT + X.CREDIT DESC, X.SR_NO LIMIT 1)"
      " LEFT JOIN ACCOUNT AS PARTY ON P.ACC_CD = PARTY.ACC_CD"
      " LEFT JOIN ACCOUNT AS TAX ON L.ACC_CD = TAX.ACC_CD"
      " WHERE (L.ACC_CD = ? AND L.DEBIT <> 0 OR L.ACC_CD = ? AND L.CREDIT <> 0) AND " +
      c.text();
  for (const std::string_view account : {kTdsReceivable, kTdsPayable})
    lines.values.emplace_back(settingOf(db, account));
  lines.values.insert(lines.values.end(), c.values().begin(), c.values().end());
  return lines;
}

// Vouchers by their dates, and of each what it says of tax.
ReportPlan planTaxAtSource(Database& db, const ReportQuery& q) {
  ReportPlan plan;
  if (!CheckTable(db, "SETTLES")) {
    plan.refusal = english("No Records");
    return plan;
  }
  const Kinds kinds = kindsPostedFrom("RPTPAY");
  const Condition c = asked(kinds, q);
  const Statement names = kindNames(kinds);
  plan.filter = c.shown();
  plan.rows = {
      "SELECT RPTPAY.VOUCH_NO AS VOUCH_NO, RPTPAY.VOUCH_DT AS VOUCH_DT, " + names.text +
          ", PARTY.ACC_NAME AS PARTYNAME, CASE WHEN LEN(PARTY.BANK_NAME) > 1 THEN PARTY.BANK_NAME END AS PAN,"
          " TAX.ACC_NAME AS TAXNAME, SHOWN(RPTPAY.AMOUNT, '0.00') AS PAID,"
          " SHOWN(SETTLES.AMOUNT, '0.00') AS TDS, RPTPAY.BOOK_CD AS BOOK_CD, SETTLES.SRNO AS PLACE FROM "
          "RPTPAY"
          " CROSS JOIN SETTLES ON SETTLES.BOOK_CD = RPTPAY.BOOK_CD"
          " AND SETTLES.VOUCH_NO = RPTPAY.VOUCH_NO AND SETTLES.WHAT = 'T'"
          " LEFT JOIN ACCOUNT AS PARTY ON RPTPAY.PARTY_CD = PARTY.ACC_CD"
          " LEFT JOIN ACCOUNT AS TAX ON SETTLES.ACC_CD = TAX.ACC_CD WHERE " +
          c.text(),
      names.values};
  plan.rows.values.insert(plan.rows.values.end(), c.values().begin(), c.values().end());
  if (CheckTable(db, "JOURNITM")) {
    const Statement journals = taxOfJournals(db, q);
    plan.rows.text += " UNION ALL " + journals.text;
    plan.rows.values.insert(plan.rows.values.end(), journals.values.begin(), journals.values.end());
  }
  plan.rows.text += " ORDER BY VOUCH_DT, BOOK_CD, VOUCH_NO, PLACE";
  // clang-format off
  plan.columns = {
      {.heading = "No.",     .twips = 600,  .type = ColumnType::Count},
      {.heading = "Date",    .twips = 1200, .type = ColumnType::Date},
      {.heading = "Kind",    .twips = 900},
      {.heading = "Party",   .twips = 2600},
      {.heading = "Pan",     .twips = 1200, .pixels = 116},
      {.heading = "Account", .twips = 2200},
      {.heading = "Paid",    .twips = 1200, .type = ColumnType::Money, .summed = true},
      {.heading = "Tds",     .twips = 1200, .type = ColumnType::Money, .summed = true},
  };
  // clang-format on
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

}  // namespace

const Report& paymentRegister() {
  static const Report report{
      .key = "PAYREG",
      .caption = "Payment Register",
      .fields = {kParty, kCity, kState, kCategory},
      .groups = true,
      .plan = planPayments,
  };
  return report;
}

const Report& incomeAndExpenseRegister() {
  static const Report report{
      .key = "INEXREG",
      .caption = "Income And Expense Register",
      .fields = {kParty, kCategory},
      .partyLabel = english("Account"),
      .groups = true,
      .plan = planIncomesAndExpenses,
  };
  return report;
}

const Report& taxAtSourceRegister() {
  static const Report report{
      .key = "TDSREG",
      .caption = "Tds Register",
      .fields = {kParty, kCity, kState},
      .plan = planTaxAtSource,
  };
  return report;
}
