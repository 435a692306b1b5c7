#include "vouchers/posting_check.h"

#include <cmath>
#include <string>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "store/taxable.h"

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
  std::vector<Value> values{kind.code};
  if (!number.isNull()) values.push_back(number);
  const double open = db.number("SELECT SUM(COALESCE(NET_AMT, 0) - COALESCE(ITEM_AMT, 0) - " + chargesOf() +
                                    " - COALESCE(TCGSTRT, 0) - COALESCE(TSGSTRT, 0) - COALESCE(TIGSTRT, 0) - "
                                    "COALESCE(ROUND_OFF, 0)) FROM SALE"
                                    " WHERE BOOK_CD = ? AND GSTPOST = 1 AND " +
                                    std::string(number.isNull() ? "VOUCH_NO IS NULL" : "VOUCH_NO = ?"),
                                values);
  return kind.ledger.partySide == "D" ? open : -open;
}

}  // namespace

NotPosted::NotPosted(const std::vector<const VoucherKind*>& kinds) : std::runtime_error(sentence(kinds)) {}

// One row comes back where all is well, since fetching one for each voucher costs as much as summing it.
void checkLedger(Database& db, const std::vector<Expected>& expected) {
  const std::string vouchers =
      " FROM (SELECT BOOK_CD, VOUCH_NO, SUM(CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE -VOUCH_AMT END)"
      " AS LEFT_OPEN FROM ALEDGER GROUP BY VOUCH_NO, BOOK_CD) AS VOUCHERS";
  const std::string open = "ABS(LEFT_OPEN) >= " + numText(kPaisa);
  std::string counts = "SELECT COUNT(CASE WHEN " + open + " THEN 1 END)";
  for (const Expected& wanted : expected)
    counts += ", COUNT(CASE WHEN BOOK_CD = '" + wanted.kind->book() + "' THEN 1 END)";
  const auto found = db.first(counts + vouchers);
  if (found->number(0) > 0) {
    auto each = db.query("SELECT BOOK_CD, VOUCH_NO, LEFT_OPEN" + vouchers + " WHERE " + open);
    while (each.next()) {
      const VoucherKind* const kind = kindByBook(each.text(0));
      if (!kind) continue;  // the counts below tell it
      if (std::fabs(each.number(2) - leftOpen(db, *kind, each.value(1))) >= kPaisa) throw NotPosted({kind});
    }
  }
  for (size_t i = 0; i < expected.size(); ++i)
    if (found->number(static_cast<int>(i) + 1) != expected[i].vouchers) throw NotPosted({expected[i].kind});
}
