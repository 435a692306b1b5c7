#include "vouchers/posting_check.h"

#include <cmath>
#include <map>

#include "base/text.h"
#include "base/words.h"

namespace {

constexpr double kPaisa = 0.005;

std::string sentence(const std::vector<const VoucherKind*>& kinds) {
  std::vector<std::string> titles;
  for (const VoucherKind* kind : kinds) titles.push_back(words(kind->words.title));
  return words("{kinds} Could Not Be Posted :: Do Database Check First, Then Posting Again", "kinds",
               join(titles, ", "));
}

// What the heads of that number leave open on the debit side by themselves.
double leftOpen(Database& db, const VoucherKind& kind, const Value& number) {
  if (kind.tables.heads != "SALE") return 0;  // its two rows are of one amount
  const double open = db.number(
      "SELECT SUM(COALESCE(NET_AMT, 0) - COALESCE(ITEM_AMT, 0) - COALESCE(TCGSTRT, 0) - COALESCE(TSGSTRT, 0)"
      " - COALESCE(TIGSTRT, 0) - COALESCE(ROUND_OFF, 0)) FROM main.SALE"
      " WHERE BOOK_CD = ? AND VOUCH_NO IS ? AND GSTPOST = 1",
      kind.code, number);
  return kind.ledger.partySide == "D" ? open : -open;
}

}  // namespace

NotPosted::NotPosted(const std::vector<const VoucherKind*>& kinds) : std::runtime_error(sentence(kinds)) {}

void checkLedger(Database& db, const std::vector<Expected>& expected) {
  std::map<const VoucherKind*, double> found;
  auto vouchers = db.query(
      "SELECT BOOK_CD, VOUCH_NO, SUM(CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE -VOUCH_AMT END)"
      " FROM main.ALEDGER GROUP BY VOUCH_NO, BOOK_CD");
  while (vouchers.next()) {
    const VoucherKind* const kind = kindByBook(vouchers.text(0));
    if (!kind) continue;  // the counts below tell it
    found[kind] += 1;
    const double open = vouchers.number(2);
    if (std::fabs(open) < kPaisa) continue;
    if (std::fabs(open - leftOpen(db, *kind, vouchers.value(1))) >= kPaisa) throw NotPosted({kind});
  }
  for (const Expected& wanted : expected)
    if (found[wanted.kind] != wanted.vouchers) throw NotPosted({wanted.kind});
}
