#include "vouchers/posting.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "base/words.h"
#include "frame/made_from.h"
#include "frame/posting_due.h"
#include "frame/voucher_kinds.h"
#include "store/alter.h"
#include "store/balances.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/keys.h"
#include "vouchers/charges.h"
#include "vouchers/cleared.h"
#include "vouchers/journals.h"
#include "vouchers/receipts.h"
#include "vouchers/stock.h"
#include "vouchers/supply.h"

namespace {

enum class Which { All, Missing };
using Kinds = std::vector<const VoucherKind*>;

// One run over the vouchers. Full posting stops where a statement fails; an opening goes on to the next.
struct Run {
  Database& db;
  Which which;
  std::vector<Expected> expected{};  // of full posting
  std::string ledger = "ALEDGER";    // the table that the rows are written into
};

// The vouchers that a routine posts. They are listed once, before its first row is written, with the
// few columns that are posted, so that the wide table is read a single time and a voucher does not
// count as posted after the first of its rows.
struct Source {
  Kinds kinds;            // of one table
  std::string condition;  // beside that on the key, which a listing without it need not look up
  std::vector<std::string> columns;

  const std::string& table() const { return kinds.front()->tables.heads; }
  std::string books() const {
    std::string codes;
    for (const VoucherKind* kind : kinds) codes += (codes.empty() ? "'" : ", '") + kind->code + "'";
    return "V." + kinds.front()->tables.key + " IN (" + codes + ")";
  }
};

// Lists what to post; no longer there after dropList. What a table has yet to get is not in the list
// either, so that the engine knows the column nowhere.
constexpr const char* kList = "TO_POST";
constexpr Because kOpeningGoesOn{.reason = "an opening posts what it can", .strangersShape = true};

bool carryOut(const Run& run, const Kinds& kinds, const std::function<void()>& work) {
  if (run.which == Which::Missing) return run.db.attempt(kOpeningGoesOn, [&] { return work(), 0; }).done;
  try {
    work();
    return true;
  } catch (const DatabaseError& error) {
    if (!error.mayBePassedOver()) throw;
    logFailure("full posting is taken back", error);
    throw NotPosted(kinds);
  }
}

template <typename... Args>
bool carryOut(const Run& run, const Kinds& kinds, const std::string& sql, const Args&... args) {
  return carryOut(run, kinds, std::function<void()>([&] { run.db.exec(sql, args...); }));
}

// One step in the index of each table for a voucher. Two numbers that are missing are the same.
std::string unposted(const Source& source) {
  const std::string posted = " NOT EXISTS (SELECT 1 FROM ALEDGER AS L WHERE L.BOOK_CD = V.BOOK_CD AND ";
  return "SELECT V.rowid AS ITS_ROW FROM " + source.table() + " AS V WHERE " + source.books() + " AND" +
         posted + "L.VOUCH_NO = V.VOUCH_NO) AND (V.VOUCH_NO IS NOT NULL OR" + posted + "L.VOUCH_NO IS NULL))";
}

// A column that the table has yet to get fails the statements that need it, not the listing.
std::string columnsOf(const Run& run, const Source& source) {
  const auto& there = run.db.columns(source.table());
  std::string columns;
  for (const std::string& wanted : source.columns)
    if (std::ranges::any_of(there, [&](const Column& c) { return sameText(c.name, wanted); })) {
      columns += (columns.empty() ? "V." : ", V.") + wanted;
    } else if (run.which == Which::All) {
      logFailure("full posting is taken back", source.table() + " has no column " + wanted);
      throw NotPosted(source.kinds);
    }
  return columns;
}

bool holdsRows(Database& db, const Source& source) {
  return CheckTable(db, source.table()) && db.first("SELECT 1 FROM " + source.table() + " LIMIT 1");
}

// False when there is nothing to post, or the vouchers cannot be read.
bool list(const Run& run, const Source& source) {
  dropList(run.db, kList);
  if (!holdsRows(run.db, source)) return false;
  const std::string columns = columnsOf(run, source), table = source.table() + " AS V";
  const std::string from = run.which == Which::All
                               ? "SELECT " + columns + " FROM " + table + " WHERE " + source.books() + " AND "
                               : "WITH UNPOSTED AS (" + unposted(source) + ") SELECT " + columns +
                                     " FROM UNPOSTED CROSS JOIN " + table + " ON V.rowid = ITS_ROW WHERE ";
  return carryOut(run, source.kinds, [&] {
    makeList(run.db, kList, from + source.condition + " ORDER BY V.BOOK_CD, V.VOUCH_NO, V.rowid");
  });
}

// The listed vouchers of a kind that get rows.
void expect(Run& run, const VoucherKind& kind, const std::string& rows) {
  if (run.which == Which::Missing) return;
  run.expected.push_back(
      {&kind, run.db.number(std::string("SELECT COUNT(*) FROM (SELECT DISTINCT VOUCH_NO FROM ") + kList +
                                " WHERE UPPER(BOOK_CD) = UPPER(?) AND (" + rows + ")) AS NUMBERS",
                            kind.code)});
}

Source receipts() {
  return {
      .kinds = kindsPostedFrom("RPTPAY"),
      .condition = "(V.AMOUNT IS NULL OR V.AMOUNT <> 0)",
      .columns = {"VOUCH_NO", "VOUCH_DT", "BOOK_CD", "CSHBNK_CD", "PARTY_CD", "AMOUNT", "NARRATION",
                  "RPTPAY_DTL", "REF_NO", "NARRATION1", "CHQ_NO", "CHQ_CLG_DT"},
  };
}

Source bills(const VoucherKind& kind) {
  return {
      .kinds = {&kind       },
      .condition = "V.GSTPOST = 1",
      .columns = { "VOUCH_NO", "VOUCH_DT", "BOOK_CD", "PARTY_CD", "SALE_CD", "NET_AMT", "ITEM_AMT",
                "TCGSTRT", "TSGSTRT", "TIGSTRT", "ROUND_OFF", "NARRATION", "GR_NO", "DESTI",
                "BILL_NO", "CR_DAYS", "DISC_AMT1", "CHRG_AMT1", "CHRG_AMT2", "CHRG_AMT3"},
  };
}

// A challan that a bill stands for is in the ledger with it.
Source challans(Database& db) {
  return {
      .kinds = kindsPostedFrom("CHLN"),
      .condition = "(V.NET_AMT IS NULL OR V.NET_AMT <> 0)" + standsAlone(db, "V"),
      .columns = {"VOUCH_NO", "VOUCH_DT", "BOOK_CD", "PARTY_CD", "NET_AMT", "CHLN_NO", "NARRATION", "GR_NO",
                  "DESTI"},
  };
}

Source journals() {
  return {
      .kinds = kindsPostedFrom("JOURNAL"),
      .condition = "(V.AMOUNT IS NULL OR V.AMOUNT <> 0)",
      .columns = {"VOUCH_NO", "VOUCH_DT", "BOOK_CD", "REF_NO", "NARRATION"},
  };
}

bool anyMissing(Database& db) {
  std::vector<Source> sources = {receipts(), challans(db), journals()};
  for (const VoucherKind* kind : kindsPostedFrom("SALE")) sources.push_back(bills(*kind));
  bool found = false;
  for (const Source& source : sources)
    if (!found && holdsRows(db, source))
      db.passOver(kOpeningGoesOn, [&] {
        found = db.first(unposted(source) + " AND " + source.condition + " LIMIT 1").has_value();
      });
  return found;
}

void postReceipts(Run& run) {
  if (!list(run, receipts())) return;
  const MoneyRows rows{.billNumber = "V.REF_NO",
                       .subDesc = "'.'",
                       .vouchers = kList,
                       .condition = "UPPER(V.BOOK_CD) = UPPER(?)",
                       .into = run.ledger};
  std::vector<std::array<std::string, 2>> steps{postingStatements(rows)};
  if (CheckTable(run.db, kSettlements)) steps.push_back(deductionStatements(rows));
  for (const VoucherKind* kind : kindsPostedFrom("RPTPAY")) {
    expect(run, *kind, "TRUE");
    for (const auto& statements : steps)
      for (size_t i = 0; i < statements.size(); ++i)
        carryOut(run, {kind}, statements[i], sides(*kind)[i], kind->code);
  }
}

// A row of a bill or challan: its side, the rest as expressions over the listed columns.
struct Posted {
  std::string side, account, against;
  const char *amount, *narration, *billNumber, *subDesc;
  std::string when;
  std::string chosen = {};  // the account that a setting names, where the expression is "?"
};

std::string account(const std::string& code) { return "'" + code + "'"; }

void post(Run& run, const VoucherKind& kind, std::span<const Posted> rows) {
  std::string any;
  for (const Posted& row : rows) any += (any.empty() ? "" : " OR ") + row.when;
  expect(run, kind, any);
  for (const Posted& row : rows) {
    std::vector<Value> values{row.side};
    if (!row.chosen.empty()) values.emplace_back(row.chosen);
    carryOut(run, {&kind},
             "INSERT INTO " + run.ledger +
                 " (VOUCH_NO, VOUCH_DT, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT,"
                 " NARRATION, BW_AB, PARTY_BL, SUB_DESC) SELECT VOUCH_NO, VOUCH_DT, BOOK_CD, ?, " +
                 row.account + ", " + row.against + ", " + row.amount + ", SUBSTR(" + row.narration +
                 ", 1, 200), 'A', " + row.billNumber + ", " + row.subDesc + " FROM " + kList + " WHERE " +
                 row.when,
             values);
  }
}

// Hardly any bill has discount or charges, and their accounts are read for those alone.
std::vector<ChargePosting> chargesOf(const Run& run, const VoucherKind& kind) {
  bool any = false;
  std::string some;
  for (const char* column : kChargeColumns)
    some += (some.empty() ? "" : " OR ") + std::string(column) + " <> 0";
  run.db.passOver(kOpeningGoesOn, [&] {
    any = run.db.first(std::string("SELECT 1 FROM ") + kList + " WHERE " + some + " LIMIT 1").has_value();
  });
  return any ? chargePostings(run.db, kind) : std::vector<ChargePosting>();
}

// A row of a tax: its account as an expression, and the further condition on the bills that have it.
struct PostedTax {
  TaxPosting tax;
  std::string account, when;
};

std::vector<PostedTax> taxesOf(Database& db, const VoucherKind& kind) {
  const std::vector<Supply> marks = marksOf(db, kind);
  const std::string list = kList, its = " FROM SUPPLY AS S WHERE S.VOUCH_NO = " + list +
                                        ".VOUCH_NO AND S.BOOK_CD = " + list + ".BOOK_CD";
  const auto figure = [](bool is) { return is ? "1" : "0"; };
  std::vector<PostedTax> all;
  const auto add = [&](const Supply& mark, const std::string& when) {
    for (TaxPosting& tax : taxPostings(kind, mark)) {
      const std::string code =
          tax.account == kTheirCustoms ? "(SELECT S.CUSTOMS" + its + ")" : account(tax.account);
      all.push_back({std::move(tax), code, when});
    }
  };
  add({}, marks.empty() ? "" : " AND NOT EXISTS (SELECT 1" + its + ")");
  for (const Supply& mark : marks)
    add(mark, " AND EXISTS (SELECT 1" + its + " AND S.REVERSE = " + figure(mark.reverse) +
                  " AND S.INELIGIBLE = " + figure(mark.ineligible) + " AND COALESCE(S.CUSTOMS, '') " +
                  (mark.customs.empty() ? "= '')" : "<> '')"));
  return all;
}

// The same rows as a save writes, by the same kind.
void postBills(Run& run, const VoucherKind& kind) {
  if (!list(run, bills(kind))) return;
  const std::string &ours = kind.ledger.partySide, theirs = kind.ledger.otherSide();
  const std::string rounds = account(kind.ledger.rounds);
  // One part that is missing makes the whole narration missing.
  constexpr const char* withLr = "NARRATION || ' ' || GR_NO";
  constexpr const char* withDestination = "NARRATION || ' ' || GR_NO || ' ' || DESTI";
  constexpr const char* days = "NUMTEXT(CR_DAYS)";
  // clang-format off
  std::vector<Posted> rows = {
      {ours,   "PARTY_CD", "SALE_CD",  "NET_AMT",        withDestination, "BILL_NO", days,   "(NET_AMT IS NULL OR NET_AMT <> 0)"},
      {theirs, "SALE_CD",  "PARTY_CD", "ITEM_AMT",       withLr,          "BILL_NO", days,   "(ITEM_AMT IS NULL OR ITEM_AMT <> 0)"},
  };
  // clang-format on
  for (const ChargePosting& p : chargesOf(run, kind))
    rows.push_back({p.side, "?", "PARTY_CD", p.column, withLr, "BILL_NO", "NULL",
                    std::string(p.column) + " <> 0", p.account});
  // A tax below 0 belongs to a bill of negative amount, which would not balance without it.
  for (const auto& [tax, code, when] : taxesOf(run.db, kind)) {
    const char* const amount = std::array{"TCGSTRT", "TSGSTRT", "TIGSTRT"}[tax.which];
    rows.push_back(
        {tax.side, code, "PARTY_CD", amount, "NARRATION", "NULL", "NULL", amount + (" <> 0" + when)});
  }
  // clang-format off
  rows.push_back({ours,   rounds, "PARTY_CD", "ABS(ROUND_OFF)", "NARRATION", "BILL_NO", "NULL", "ROUND_OFF < 0"});
  rows.push_back({theirs, rounds, "PARTY_CD", "ABS(ROUND_OFF)", "NARRATION", "BILL_NO", "NULL", "ROUND_OFF > 0"});
  // clang-format on
  post(run, kind, rows);
}

void postBills(Run& run) {
  for (const VoucherKind* kind : kindsPostedFrom("SALE")) postBills(run, *kind);
}

void postChallans(Run& run) {
  if (!list(run, challans(run.db))) return;
  const std::string sales = account(saleKind().ledger.goods);
  constexpr const char* narration = "NARRATION || ' ' || GR_NO || ' ' || DESTI";
  // clang-format off
  const Posted rows[] = {
      {"D", "PARTY_CD", sales,      "NET_AMT", narration, "STR(CHLN_NO)", "'0'", "TRUE"},
      {"C", sales,      "PARTY_CD", "NET_AMT", narration, "STR(CHLN_NO)", "'0'", "TRUE"},
  };
  // clang-format on
  for (const VoucherKind* kind : kindsPostedFrom("CHLN")) post(run, *kind, rows);
}

// Their rows come from the lines, whichever the kind.
void postJournals(Run& run) {
  const Source source = journals();
  if (!list(run, source)) return;
  for (const VoucherKind* kind : source.kinds) expect(run, *kind, "TRUE");
  carryOut(run, source.kinds, journalPosting(kList, run.ledger));
}

// By what the marks of bills say their taxes are posted, also in books that the walk has not brought up to
// date.
void completeMarks(Database& db) {
  if (CheckTable(db, "SUPPLY")) ensureSupply(db);
}

void postEverything(Database& db, const PostingProgress& progress) {
  auto step = [&, line = 0](const char* text, const std::function<void()>& work) mutable {
    if (progress) progress((line++ == 0 ? "" : "\n") + words(text));
    work();
    if (progress) progress(words("       Done "));
  };
  Run run{db, Which::All};
  step(english(" Progress ...."), [&] {
    forgetFreed(db);
    // Indexes are built once over all rows, not row by row.
    constexpr std::string_view kWritten[] = {"ALEDGER_PARTY", "ALEDGER_VOUCHER"};
    run.ledger = db.engine().beginRewriting("ALEDGER", kWritten);
  });
  step(english(" Receipt Payment Posting ...."), [&] { postReceipts(run); });
  step(english(" Sales Posting ...."), [&] { postBills(run); });
  step(english(" Challan Posting ...."), [&] {
    postChallans(run);
    postJournals(run);
  });
  step(english(" Updating Closing Balanes ....."), [&] {
    dropList(db, kList);
    db.engine().putRewritten("ALEDGER");
    EnsureIndexes(db);
    checkLedger(db, run.expected);
    forgetUnclear(db);
    RebuildAllBalances(db);
    RebuildStock(db);
    db.engine().endRewriting("ALEDGER");
    forgetDeleted(db);
  });
}

}  // namespace

void postAll(Database& db, const PostingProgress& progress) {
  const BulkWriting bulk(db);
  completeMarks(db);
  whole(db, [&] { postEverything(db, progress); });
}

void postMissing(Database& db) {
  if (!anyMissing(db)) return;  // the usual case, which waits for no other program
  completeMarks(db);
  whole(db, [&] {
    Run run{db, Which::Missing};
    postReceipts(run);
    postBills(run);
    postChallans(run);
    postJournals(run);
    dropList(db, kList);
  });
}
