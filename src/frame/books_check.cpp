#include "frame/books_check.h"

#include "base/text.h"
#include "base/words.h"
#include "frame/made_from.h"
#include "frame/posting_due.h"
#include "frame/session.h"
#include "frame/settling.h"
#include "frame/voucher_kinds.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/taxable.h"

namespace {

constexpr const char* kPaisa = "0.005";

// A table of heads with its lines and what both say of the whole; figures of a line are named L.
struct Heads {
  const char *table, *key, *lines;
  const char *goods, *goodsOfLines;
  const char *taxes, *taxesOfLines;  // null: has none
  const char* taxesDiffer;
  const char *party = "MAX(H.PARTY_CD)", *day = "L.VOUCH_DT";
  bool charged = false;  // discount and charges are shared by the lines
};

// clang-format off
constexpr Heads kHeads[] = {
    {"SALE", "BOOK_CD", "SALEITM", "ITEM_AMT", "L.AMOUNT",
     "TCGSTRT + H.TSGSTRT + H.TIGSTRT", "L.CGSTAMT + L.SGSTAMT + L.IGSTAMT",
     "ABS(MAX(H.TCGSTRT) - COALESCE(SUM(L.CGSTAMT), 0)) > 0.005 OR ABS(MAX(H.TSGSTRT) - COALESCE(SUM(L.SGSTAMT), 0)) > 0.005"
     " OR ABS(MAX(H.TIGSTRT) - COALESCE(SUM(L.IGSTAMT), 0)) > 0.005", "MAX(H.PARTY_CD)", "L.VOUCH_DT", true},
    {"CHLN", "BOOK_CD", "CHLNITM", "ITEM_AMT", "L.NET_AMOUNT", nullptr, nullptr, nullptr},
    {"QUOT", "ENTRY_TYP", "QUOTITM", "ITEM_AMT", "VAL(L.AMOUNT)", nullptr, nullptr, nullptr},
};
constexpr Heads kJournal =
    {"JOURNAL", "BOOK_CD", "JOURNITM", "AMOUNT", "L.DEBIT", nullptr, nullptr, nullptr, "MIN(L.ACC_CD)", "NULL"};

constexpr const char* kGoodsDiffer  = english("Amount Of Head And Lines");
constexpr const char* kTaxesDiffer  = english("Taxes Of Head And Lines");
constexpr const char* kNoHead       = english("Lines Without Head");
constexpr const char* kNoParty      = english("No Such Party");
constexpr const char* kSidesDiffer  = english("Debit And Credit");
constexpr const char* kNoVoucher    = english("In The Ledger Without Voucher");
constexpr const char* kNotPosted    = english("Not In The Ledger");
constexpr const char* kNothingThere = english("Settles A Bill That Is Not There");
constexpr const char* kSettledAbove = english("Settled Above Its Amount");
constexpr const char* kSettlesAlone = english("Settlement Without Voucher");
// clang-format on

// The statement grows by one part a kind of fault and table.
class Faults {
 public:
  // Columns BOOK, VOUCH_NO, VOUCH_DT, PARTY_CD, HAS, SHOULD, OPENS and what stands behind them.
  void add(const char* what, const std::string& columns) {
    text_ += (text_.empty() ? "SELECT " : " UNION ALL SELECT ") + std::to_string(values_.size()) +
             " AS STEP, ? AS WHAT, " + columns;
    values_.emplace_back(words(what));
  }
  const std::string& text() const { return text_; }
  const std::vector<Value>& values() const { return values_; }

 private:
  std::string text_;
  std::vector<Value> values_;
};

std::string books(const std::string& column, const std::vector<const VoucherKind*>& kinds) {
  std::vector<std::string> codes;
  for (const VoucherKind* kind : kinds) codes.push_back("'" + kind->code + "'");
  return column + " IN (" + join(codes, ", ") + ")";
}

std::string totalOf(const std::string& figures) { return "COALESCE(SUM(" + figures + "), 0)"; }

std::string shownBook(const Heads& heads) {
  return std::string(heads.key) == "BOOK_CD" ? "H.BOOK_CD" : "'" + quotationKind().book() + "'";
}

// Heads in the order of their key, and the lines of each by theirs: nothing is sorted or kept.
void addLines(Faults& faults, const Heads& h) {
  const std::string key = h.key, book = shownBook(h), goods = std::string("MAX(H.") + h.goods + ")";
  const std::string from = std::string(" FROM ") + h.table + " AS H LEFT JOIN " + h.lines +
                           " AS L ON L.VOUCH_NO = H.VOUCH_NO AND L." + key + " = H." + key +
                           " GROUP BY H.VOUCH_NO, H." + key + " HAVING ";
  const auto part = [&](const std::string& has, const std::string& should, const std::string& differ,
                        const char* what) {
    faults.add(what, book + " AS BOOK, H.VOUCH_NO, MAX(H.VOUCH_DT) AS VOUCH_DT, " + h.party +
                         " AS PARTY_CD, " + has + " AS HAS, " + should + " AS SHOULD, " + book + " AS OPENS" +
                         from + differ);
  };
  const std::string sum = totalOf(h.goodsOfLines);
  const auto differ = [](const std::string& head, const std::string& lines) {
    return "ABS(COALESCE(" + head + ", 0) - " + lines + ") > " + kPaisa;
  };
  if (h.charged) {
    const std::string charges = "MAX(" + chargesOf("H.") + ")", shares = totalOf("L.DISC4");
    part(goods + " + " + charges, sum + " + " + shares, differ(goods, sum) + " OR " + differ(charges, shares),
         kGoodsDiffer);
  } else {
    part(goods, sum, differ(goods, sum), kGoodsDiffer);
  }
  if (h.taxes)
    part(std::string("MAX(H.") + h.taxes + ")", totalOf(h.taxesOfLines), h.taxesDiffer, kTaxesDiffer);
  faults.add(kNoHead, replaceAll(book, "H.", "L.") + " AS BOOK, L.VOUCH_NO, MAX(" + h.day +
                          ") AS VOUCH_DT, NULL, 0, " + totalOf(h.goodsOfLines) + ", '' FROM " + h.lines +
                          " AS L WHERE NOT EXISTS (SELECT 1 FROM " + h.table +
                          " AS H WHERE H.VOUCH_NO = L.VOUCH_NO AND H." + key + " = L." + key +
                          ") GROUP BY L.VOUCH_NO, L." + key);
}

void addParties(Faults& faults, const std::string& table, const std::string& book, const char* amount) {
  const auto lacks = [](const std::string& column) {
    return "NOT EXISTS (SELECT 1 FROM ACCOUNT WHERE ACC_CD = H." + column + ")";
  };
  faults.add(kNoParty, book + " AS BOOK, H.VOUCH_NO, H.VOUCH_DT, H.PARTY_CD, H." + amount + ", NULL, " +
                           book + " FROM " + table + " AS H WHERE " + lacks("PARTY_CD") +
                           (table == "RPTPAY" ? " OR " + lacks("CSHBNK_CD") : ""));
}

// Without the heads of the kind, what a posted voucher of some amount lacks.
void addUnposted(Faults& faults, const std::string& table, const char* amount, const std::string& posted,
                 const std::string& party = "H.PARTY_CD") {
  faults.add(kNotPosted, "H.BOOK_CD AS BOOK, H.VOUCH_NO, H.VOUCH_DT, " + party + ", 0, H." +
                             std::string(amount) + ", H.BOOK_CD FROM " + table + " AS H WHERE " +
                             books("H.BOOK_CD", kindsPostedFrom(table)) + " AND H." + amount + " <> 0" +
                             posted +
                             " AND NOT EXISTS (SELECT 1 FROM ALEDGER AS L WHERE L.VOUCH_NO = H.VOUCH_NO"
                             " AND L.BOOK_CD = H.BOOK_CD)");
}

// Older books may have yet to get their tables.
void addJournals(Faults& faults) {
  if (!CheckTable(data(), kJournal.table) || !CheckTable(data(), kJournal.lines)) return;
  addLines(faults, kJournal);
  faults.add(kNoParty,
             "L.BOOK_CD AS BOOK, L.VOUCH_NO, H.VOUCH_DT, L.ACC_CD, L.DEBIT + L.CREDIT, NULL, L.BOOK_CD"
             " FROM JOURNITM AS L JOIN JOURNAL AS H ON H.VOUCH_NO = L.VOUCH_NO AND H.BOOK_CD = L.BOOK_CD"
             " WHERE NOT EXISTS (SELECT 1 FROM ACCOUNT WHERE ACC_CD = L.ACC_CD)");
  addUnposted(faults, kJournal.table, kJournal.goods, "", "NULL");
}

// The shop's accounts stand before the system's, so that the smallest code is the party's.
void addLedger(Faults& faults) {
  const std::string debit = "COALESCE(" + sumWhere(data(), "VOUCH_AMT", "VOUCH_TYPE = 'D'") + ", 0)",
                    credit = "COALESCE(" + sumWhere(data(), "VOUCH_AMT", "VOUCH_TYPE = 'C'") + ", 0)";
  const std::string head = "L.BOOK_CD AS BOOK, L.VOUCH_NO, MAX(L.VOUCH_DT), MIN(L.PARTY_CD), ";
  faults.add(kSidesDiffer, head + debit + ", " + credit +
                               ", L.BOOK_CD FROM ALEDGER AS L GROUP BY L.VOUCH_NO, L.BOOK_CD HAVING ABS(" +
                               debit + " - " + credit + ") > " + kPaisa);
  // The numbers alone stand in an index; few are looked at further.
  faults.add(kNoVoucher,
             head +
                 "MAX(L.VOUCH_AMT), 0, '' FROM (SELECT VOUCH_NO, BOOK_CD FROM ALEDGER GROUP BY VOUCH_NO, "
                 "BOOK_CD) AS N"
                 " CROSS JOIN ALEDGER AS L ON L.VOUCH_NO = N.VOUCH_NO AND L.BOOK_CD = N.BOOK_CD WHERE " +
                 withoutVoucher(data(), "N") + " GROUP BY L.VOUCH_NO, L.BOOK_CD");
}

// Pairs whose one voucher is gone, and vouchers that are used for more than they stand in the ledger with.
void addSettlements(Faults& faults) {
  const auto day = [](const std::string& book, const std::string& number) {
    return "(SELECT MAX(D.VOUCH_DT) FROM ALEDGER AS D WHERE D.VOUCH_NO = " + number +
           " AND D.BOOK_CD = " + book + ") AS VOUCH_DT";
  };
  const std::string own =
      "S.BOOK_CD AS BOOK, S.VOUCH_NO, " + day("S.BOOK_CD", "S.VOUCH_NO") + ", S.PARTY_CD, S.AMOUNT, 0, ";
  faults.add(kNothingThere, own + "S.BOOK_CD FROM SETTLES AS S WHERE S.WHAT = 'B' AND S.BILL_BOOK <> '" +
                                kOpeningBook +
                                "' AND NOT EXISTS (SELECT 1 FROM ALEDGER AS L WHERE L.VOUCH_NO = S.BILL_VNO"
                                " AND L.BOOK_CD = S.BILL_BOOK AND L.PARTY_CD = S.PARTY_CD)");
  const std::string used = usedOfVoucher("S.BOOK", "S.VNO", "S.PARTY_CD"),
                    stands = standingOfVoucher("S.BOOK", "S.VNO", "S.PARTY_CD");
  faults.add(kSettledAbove, "S.BOOK, S.VNO, " + day("S.BOOK", "S.VNO") + ", S.PARTY_CD, " + used +
                                " AS HAS, " + stands + " AS SHOULD, CASE WHEN S.BOOK = '" + kOpeningBook +
                                "' THEN '' ELSE S.BOOK END"
                                " FROM (SELECT DISTINCT BOOK, VNO, PARTY_CD FROM (SELECT BILL_BOOK AS BOOK,"
                                " BILL_VNO AS VNO, PARTY_CD FROM SETTLES WHERE WHAT = 'B' UNION ALL SELECT"
                                " BOOK_CD, VOUCH_NO, PARTY_CD FROM SETTLES WHERE WHAT = 'B') AS P) AS S"
                                " WHERE " +
                                stands + " > 0 AND " + used + " > " + stands + " + " + kPaisa);
  faults.add(kSettlesAlone, own + "'' FROM SETTLES AS S WHERE " + withoutVoucher(data(), "S"));
}

}  // namespace

BooksCheck booksCheck() {
  Faults faults;
  for (const Heads& heads : kHeads) addLines(faults, heads);
  for (const Heads& heads : kHeads) addParties(faults, heads.table, shownBook(heads), "NET_AMT");
  addParties(faults, "RPTPAY", "H.BOOK_CD", "AMOUNT");
  addLedger(faults);
  addUnposted(faults, "SALE", "NET_AMT", " AND H.GSTPOST = 1");
  addUnposted(faults, "CHLN", "NET_AMT", standsAlone(data(), "H"));
  addUnposted(faults, "RPTPAY", "AMOUNT", "");
  addJournals(faults);
  if (CheckTable(data(), kSettlements)) addSettlements(faults);
  return {
      "SELECT WHAT, BOOK, VOUCH_NO, VOUCH_DT, COALESCE(ACC_NAME, F.PARTY_CD) AS PARTY,"
      " SHOWN(HAS, '0.00') AS HAS, SHOWN(SHOULD, '0.00') AS SHOULD,"
      " SHOWN(HAS - SHOULD, '0.00') AS DIFFERS, OPENS FROM (" +
          faults.text() + ") AS F LEFT JOIN ACCOUNT ON ACC_CD = F.PARTY_CD ORDER BY STEP, VOUCH_NO, BOOK",
      faults.values()};
}

void tellDisagreement(Host& host, Database& db) {
  const Busy busy(host);
  const BooksCheck check = booksCheck();
  if (!db.first(check.text + " LIMIT 1", check.values)) return;
  session().mreportrefresh = true;  // it shows its rows at once
  host.open("frmreport", {.reportKey = kBooksCheck});
}
