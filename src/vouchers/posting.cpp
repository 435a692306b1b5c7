#include "vouchers/posting.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "frame/voucher_kinds.h"
#include "store/alter.h"
#include "store/balances.h"
#include "store/keys.h"
#include "vouchers/receipts.h"

namespace {

enum class Which { All, Missing };

// The vouchers that a routine posts. They are listed once, before its first row is written, with the
// few columns that are posted, so that the wide table is read a single time and a voucher does not
// count as posted after the first of its rows.
struct Source {
  std::string table;
  std::string books;      // condition on the key of the ledger rows
  std::string condition;  // a further one, which a listing without it need not look up
  std::vector<std::string> columns;
};

// Columns that a table has yet to get are not in the list either, so that the engine knows them nowhere.
constexpr Because kLedgerGoesOn{"the other rows of the ledger are written all the same", true};

// Lists what to post; no longer there after dropList.
constexpr const char* kList = "temp.TO_POST";

// One step in the index of each table for a voucher. IS, since two numbers that are missing are the same.
std::string unposted(const Source& source) {
  return "SELECT V.rowid AS ITS_ROW FROM main." + source.table + " AS V WHERE " + source.books +
         " AND NOT EXISTS (SELECT 1 FROM ALEDGER AS L WHERE L.BOOK_CD = V.BOOK_CD AND L.VOUCH_NO IS "
         "V.VOUCH_NO)";
}

// A column that the table has yet to get fails the statements that need it, not the listing.
std::string columnsOf(Database& db, const Source& source) {
  const auto& there = db.columns(source.table);
  std::string columns;
  for (const std::string& wanted : source.columns)
    if (std::ranges::any_of(there, [&](const Column& c) { return sameText(c.name, wanted); }))
      columns += (columns.empty() ? "V." : ", V.") + wanted;
  return columns;
}

void dropList(Database& db) { db.exec(std::string("DROP TABLE IF EXISTS ") + kList); }

// False when the vouchers cannot be read.
bool list(Database& db, const Source& source, Which which) {
  dropList(db);
  const std::string columns = columnsOf(db, source), table = "main." + source.table + " AS V";
  const std::string from =
      which == Which::All ? "SELECT " + columns + " FROM " + table + " WHERE " + source.books + " AND "
                          : "WITH UNPOSTED AS MATERIALIZED (" + unposted(source) + ") SELECT " + columns +
                                " FROM UNPOSTED CROSS JOIN " + table + " ON V.rowid = ITS_ROW WHERE ";
  return db
      .attempt(kLedgerGoesOn, std::string("CREATE TABLE ") + kList + " AS " + from + source.condition +
               " ORDER BY V.BOOK_CD, V.VOUCH_NO, V.rowid")
      .done;
}

const Source& receipts() {
  static const Source source{
      .table = "RPTPAY",
      .books = "V.BOOK_CD IN ('RC', 'PY', 'IC', 'EP')",
      .condition = "V.AMOUNT IS NOT 0",
      .columns = {"VOUCH_NO", "VOUCH_DT", "BOOK_CD", "CSHBNK_CD", "PARTY_CD", "AMOUNT", "NARRATION",
                  "RPTPAY_DTL", "REF_NO", "NARRATION1", "CHQ_NO", "CHQ_CLG_DT"},
  };
  return source;
}

Source bills(const VoucherKind& kind) {
  return {
      .table = kind.tables.heads,
      .books = "V." + kind.tables.key + " = '" + kind.code + "'",
      .condition = "V.GSTPOST = 1",
      .columns = {"VOUCH_NO", "VOUCH_DT", "BOOK_CD", "PARTY_CD", "SALE_CD", "NET_AMT", "ITEM_AMT", "TCGSTRT",
                  "TSGSTRT", "TIGSTRT", "ROUND_OFF", "NARRATION", "GR_NO", "DESTI", "BILL_NO", "CR_DAYS"},
  };
}

const Source& challans() {
  static const Source source{
      .table = "CHLN",
      .books = "V.BOOK_CD = 'CH'",
      .condition = "V.NET_AMT IS NOT 0",
      .columns = {"VOUCH_NO", "VOUCH_DT", "BOOK_CD", "PARTY_CD", "NET_AMT", "CHLN_NO", "NARRATION", "GR_NO",
                  "DESTI"},
  };
  return source;
}

bool anyMissing(Database& db) {
  std::vector<Source> sources = {receipts(), challans()};
  for (const VoucherKind* kind : kindsPostedFrom("SALE")) sources.push_back(bills(*kind));
  bool found = false;
  for (const Source& source : sources)
    db.passOver(kLedgerGoesOn, [&] {
      found = found || db.first(unposted(source) + " AND " + source.condition + " LIMIT 1");
    });
  return found;
}

void postReceipts(Database& db, Which which) {
  if (!list(db, receipts(), which)) return;
  const auto statements =
      postingStatements({.billNumber = "REF_NO",
                         .subDesc = "'.'",
                         .from = std::string(kList) + " WHERE BOOK_CD = ? COLLATE NOCASE"});
  for (const VoucherKind* kind : kindsPostedFrom("RPTPAY"))
    for (size_t i = 0; i < statements.size(); ++i)
      db.passOver(kLedgerGoesOn, statements[i], sides(*kind)[i], kind->code);
}

// A row of a bill or challan: its side, the rest as expressions over the listed columns.
struct Posted {
  std::string side, account, against;
  const char *amount, *narration, *billNumber, *subDesc, *when;
};

std::string account(const std::string& code) { return "'" + code + "'"; }

void post(Database& db, const Posted& row) {
  db.passOver(
      kLedgerGoesOn,
      "INSERT INTO ALEDGER (VOUCH_NO, VOUCH_DT, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT,"
      " NARRATION, BW_AB, PARTY_BL, SUB_DESC) SELECT VOUCH_NO, VOUCH_DT, BOOK_CD, ?, " +
          row.account + ", " + row.against + ", " + row.amount + ", SUBSTR(" + row.narration +
          ", 1, 200), 'A', " + row.billNumber + ", " + row.subDesc + " FROM " + kList + " WHERE " + row.when,
      row.side);
}

// The same rows as a save writes, by the same book.
void postBills(Database& db, const VoucherKind& kind, Which which) {
  if (!list(db, bills(kind), which)) return;
  const std::string &ours = kind.ledger.partySide, theirs = kind.ledger.otherSide();
  const std::string cgst = account(kind.ledger.cgst), sgst = account(kind.ledger.sgst),
                    igst = account(kind.ledger.igst), rounds = account(kind.ledger.rounds);
  // One part that is missing makes the whole narration missing.
  constexpr const char* withLr = "NARRATION || ' ' || GR_NO";
  constexpr const char* withDestination = "NARRATION || ' ' || GR_NO || ' ' || DESTI";
  constexpr const char* days = "NUMTEXT(CR_DAYS)";
  // clang-format off
  const Posted rows[] = {
      {ours,   "PARTY_CD", "SALE_CD",  "NET_AMT",        withDestination, "BILL_NO", days,   "NET_AMT IS NOT 0"},
      {theirs, "SALE_CD",  "PARTY_CD", "ITEM_AMT",       withLr,          "BILL_NO", days,   "ITEM_AMT IS NOT 0"},
      {theirs, cgst,       "PARTY_CD", "TCGSTRT",        "NARRATION",     "NULL",    "NULL", "TCGSTRT > 0"},
      {theirs, sgst,       "PARTY_CD", "TSGSTRT",        "NARRATION",     "NULL",    "NULL", "TSGSTRT > 0"},
      {theirs, igst,       "PARTY_CD", "TIGSTRT",        "NARRATION",     "NULL",    "NULL", "TIGSTRT > 0"},
      {ours,   rounds,     "PARTY_CD", "ABS(ROUND_OFF)", "NARRATION",     "BILL_NO", "NULL", "ROUND_OFF < 0"},
      {theirs, rounds,     "PARTY_CD", "ABS(ROUND_OFF)", "NARRATION",     "BILL_NO", "NULL", "ROUND_OFF > 0"},
  };
  // clang-format on
  for (const Posted& row : rows) post(db, row);
}

void postBills(Database& db, Which which) {
  for (const VoucherKind* kind : kindsPostedFrom("SALE")) postBills(db, *kind, which);
}

void postChallans(Database& db, Which which) {
  if (!list(db, challans(), which)) return;
  const std::string sales = account(saleKind().ledger.goods);
  constexpr const char* narration = "NARRATION || ' ' || GR_NO || ' ' || DESTI";
  // clang-format off
  const Posted rows[] = {
      {"D", "PARTY_CD", sales,      "NET_AMT", narration, "STR(CHLN_NO)", "'0'", "TRUE"},
      {"C", sales,      "PARTY_CD", "NET_AMT", narration, "STR(CHLN_NO)", "'0'", "TRUE"},
  };
  // clang-format on
  for (const Posted& row : rows) post(db, row);
}

// How the engine works while the whole ledger is written: it does not blank the pages that it is about
// to fill again, nor measure texts that fit by the lengths of the columns that they come from; and what
// has been written is not wanted again soon, so that little of it is kept in memory.
class Bulk {
 public:
  explicit Bulk(Database& db)
      : db_(db), blanking_(db.text("PRAGMA main.secure_delete")), kept_(db.text("PRAGMA main.cache_size")) {
    set("OFF", "-6000", "ON");
  }
  ~Bulk() {
    try {
      set(blanking_, kept_, "OFF");
    } catch (const DatabaseError&) {
      // The engine is beyond help; what failed first is already on its way.
    }
  }
  Bulk(const Bulk&) = delete;
  Bulk& operator=(const Bulk&) = delete;

 private:
  void set(const std::string& blanking, const std::string& kept, const std::string& measuringOff) {
    for (const char* schema : {"main", "temp"})
      db_.exec(std::string("PRAGMA ") + schema + ".secure_delete = " + blanking);
    db_.exec("PRAGMA main.cache_size = " + kept);
    db_.exec("PRAGMA ignore_check_constraints = " + measuringOff);
  }

  Database& db_;
  const std::string blanking_, kept_;
};

}  // namespace

void postAll(Database& db, const PostingProgress& progress) {
  const auto step = [&](const char* words, const std::function<void()>& work) {
    if (progress) progress(words);
    work();
    if (progress) progress("       Done ");
  };
  const Bulk bulk(db);
  Transaction all(db);
  SetAside old;
  step(" Progress ....", [&] {
    // Indexes are built once over all rows, not row by row. The old rows stand aside, since pages that are
    // written over would have to be copied first.
    for (const char* index : {"ALEDGER_PARTY", "ALEDGER_VOUCHER"})
      db.exec(std::string("DROP INDEX IF EXISTS main.") + index);
    old = setAside(db, "ALEDGER");
  });
  step("\n Receipt Payment Posting ....", [&] { postReceipts(db, Which::All); });
  step("\n Sales Posting ....", [&] { postBills(db, Which::All); });
  step("\n Challan Posting ....", [&] { postChallans(db, Which::All); });
  step("\n Updating Closing Balanes .....", [&] {
    dropList(db);
    EnsureIndexes(db);
    RebuildAllBalances(db);
    dropSetAside(db, old);
  });
  all.commit();
}

void postMissing(Database& db) {
  if (!anyMissing(db)) return;  // the usual case, which waits for no other program
  Transaction all(db);
  postReceipts(db, Which::Missing);
  postBills(db, Which::Missing);
  postChallans(db, Which::Missing);
  dropList(db);
  all.commit();
}
