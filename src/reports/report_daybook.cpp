#include <algorithm>

#include "base/text.h"
#include "base/words.h"
#include "frame/voucher_kinds.h"
#include "reports/reports.h"
#include "store/dictionary.h"

// The day book: every voucher of the days asked that has a place in the ledger, and under it its rows there;
// and the same of journals alone, with what each of their lines says.
// The vouchers are found by their dates and their rows by their numbers, so that a day costs what it holds.

namespace {

using Kinds = std::vector<const VoucherKind*>;

bool has(Database& db, const std::string& table, std::string_view column) {
  return std::ranges::any_of(db.columns(table), [&](const Column& c) { return sameText(c.name, column); });
}

// Tables whose vouchers are posted, or the one asked for, each with its kinds; those that these books do not
// have yet stay out.
std::vector<Kinds> posted(Database& db, std::string_view only) {
  std::vector<Kinds> tables;
  std::vector<std::string> seen;
  for (const VoucherKind* kind : voucherKinds()) {
    const std::string& heads = kind->tables.heads;
    if (std::ranges::find(seen, heads) != seen.end() || (!only.empty() && heads != only)) continue;
    seen.push_back(heads);
    Kinds kinds = kindsPostedFrom(heads);
    if (!kinds.empty() && CheckTable(db, heads)) tables.push_back(std::move(kinds));
  }
  return tables;
}

class Statements {
 public:
  Statements(Database& db, const ReportQuery& q) : db_(db), q_(q) {}

  // The heads of the kinds, which share a table.
  void add(const Kinds& kinds) {
    const VoucherKind& first = *kinds.front();
    const std::string& table = first.tables.heads;
    const std::string key = "H." + first.tables.key;
    std::vector<std::string> codes;
    for (const VoucherKind* kind : kinds) {
      codes.push_back("'" + kind->code + "'");
      names_ += " WHEN '" + kind->code + "' THEN ?";
      nameValues_.emplace_back(words(kind->words.name));
    }
    heads_ += (heads_.empty() ? "" : " UNION ALL ") + std::string("SELECT H.VOUCH_DT, ") + key +
              " AS BOOK_CD, H.VOUCH_NO, " + textOr(table, paperNumber(first)) + " AS BILL, " +
              textOr(table, "PARTY_CD") + " AS PARTY_CD, " + textOr(table, "NARRATION") +
              " AS NARRATION FROM " + table + " AS H WHERE +" + key + " IN (" + join(codes, ", ") +
              ") AND H.VOUCH_DT >= ? AND H.VOUCH_DT <= ?";
    headValues_.insert(headValues_.end(), {q_.from, q_.to});
  }

  bool none() const { return heads_.empty(); }

  Statement make() const {
    const auto ledger = [](const char* what) {
      return std::string("(SELECT ") + what +
             " FROM ALEDGER AS L WHERE L.VOUCH_NO = V.VOUCH_NO AND L.BOOK_CD = V.BOOK_CD)";
    };
    const auto side = [&](const char* letter) {
      return "SHOWN(COALESCE(" +
             ledger((std::string("SUM(CASE WHEN L.VOUCH_TYPE = '") + letter + "' THEN L.VOUCH_AMT END)")
                        .c_str()) +
             ", 0), '0.00')";
    };
    Statement made{"SELECT V.VOUCH_DT, CASE V.BOOK_CD" + names_ +
                   " ELSE V.BOOK_CD END AS KIND, V.VOUCH_NO, V.BILL,"
                   " COALESCE(ACC_NAME, CASE WHEN LEN(V.NARRATION) > 1 THEN V.NARRATION ELSE '' END), " +
                   side("D") + " AS DEBIT, " + side("C") + " AS CREDIT, V.BOOK_CD, " + ledger("COUNT(*)") +
                   " AS ENTRIES FROM (" + heads_ + ") AS V LEFT JOIN ACCOUNT ON V.PARTY_CD = ACCOUNT.ACC_CD"};
    made.values = nameValues_;
    made.values.insert(made.values.end(), headValues_.begin(), headValues_.end());
    // Its party's, or one with a row in the ledger of whom was asked for.
    if (const Condition party = asked("ACCOUNT"), account = asked("A"); !party.empty()) {
      made.text += " WHERE (" + party.text() +
                   " OR (V.VOUCH_NO, V.BOOK_CD) IN (SELECT ALEDGER.VOUCH_NO, ALEDGER.BOOK_CD FROM ALEDGER"
                   " JOIN ACCOUNT AS A ON ALEDGER.PARTY_CD = A.ACC_CD"
                   " WHERE ALEDGER.VOUCH_DT >= ? AND ALEDGER.VOUCH_DT <= ? AND " +
                   account.text() + "))";
      for (const std::vector<Value>& more : {
               party.values(), {q_.from, q_.to},
                account.values()
      })
        made.values.insert(made.values.end(), more.begin(), more.end());
    }
    made.text += " ORDER BY V.VOUCH_DT, V.BOOK_CD, V.VOUCH_NO";
    return made;
  }

 private:
  // Money has its own number for a reference.
  static std::string paperNumber(const VoucherKind& kind) {
    return kind.numbering.number.empty() && !kind.tables.lines.empty() ? "REF_NO" : kind.numbering.number;
  }
  Condition asked(const std::string& account) const {
    Condition c;
    return c.addFilled(account + ".ACC_CD = ?", q_[kParty])
        .addFilled(account + ".AREA = ?", q_[kCity])
        .addFilled(account + ".CITY = ?", q_[kState]);
  }
  std::string textOr(const std::string& table, const std::string& column) const {
    return !column.empty() && has(db_, table, column) ? "H." + column : "''";
  }

  Database& db_;
  const ReportQuery& q_;
  std::string heads_, names_;
  std::vector<Value> headValues_, nameValues_;
};

// The rows of a voucher in the ledger; `further` stands behind the account's name.
std::string entries(const std::string& further) {
  return "SELECT '' AS DAY, '' AS KIND, '' AS NO, '' AS BILL, COALESCE(ACC_NAME, ALEDGER.PARTY_CD)" +
         further +
         ", CASE WHEN VOUCH_TYPE = 'D' THEN SHOWN(VOUCH_AMT, '0.00') ELSE '' END AS DEBIT,"
         " CASE WHEN VOUCH_TYPE = 'C' THEN SHOWN(VOUCH_AMT, '0.00') ELSE '' END AS CREDIT"
         " FROM ALEDGER LEFT JOIN ACCOUNT ON ALEDGER.PARTY_CD = ACCOUNT.ACC_CD"
         " WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY ALEDGER.rowid";
}

ReportPlan planVouchers(Database& db, const ReportQuery& q, std::string_view only,
                        const std::string& further) {
  Statements statements(db, q);
  for (const Kinds& kinds : posted(db, only)) statements.add(kinds);
  ReportPlan plan;
  if (statements.none()) {
    plan.refusal = english("No Records");
    return plan;
  }
  plan.rows = statements.make();
  plan.details = ReportDetails{
      .rows = {entries(further)},
        .keys = { "VOUCH_NO",       "BOOK_CD"},
        .count = "ENTRIES"
  };
  // clang-format off
  plan.columns = {
      {.heading = "Date",        .twips = 1200, .type = ColumnType::Date, .detail = ColumnType::Text},
      {.heading = "Kind",        .twips = 1400, .pixels = 128},
      {.heading = "No",          .twips = 700,  .type = ColumnType::Count},
      {.heading = "B.No",        .twips = 1300},
      {.heading = "Particulars", .twips = 3600},
      {.heading = "Debit",       .twips = 1400, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "Credit",      .twips = 1400, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
  };
  // clang-format on
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

ReportPlan planDayBook(Database& db, const ReportQuery& q) { return planVouchers(db, q, {}, {}); }

ReportPlan planJournals(Database& db, const ReportQuery& q) {
  return planVouchers(db, q, "JOURNAL",
                      " || CASE WHEN LEN(ALEDGER.NARRATION) > 1 THEN ' : ' || ALEDGER.NARRATION ELSE '' END");
}

}  // namespace

const Report& dayBook() {
  static const Report report{
      .key = "DAYBOOK",
      .caption = "Day Book",
      .fields = {kParty, kCity, kState},
      .partyLabel = english("Account"),
      .ofToday = true,
      .plan = planDayBook,
  };
  return report;
}

const Report& journalRegister() {
  static const Report report{
      .key = "JVREG",
      .caption = "Journal Register",
      .fields = {kParty, kCity, kState},
      .partyLabel = english("Account"),
      .plan = planJournals,
  };
  return report;
}
