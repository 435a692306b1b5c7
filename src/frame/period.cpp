#include "frame/period.h"

#include <set>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/voucher_kinds.h"
#include "store/dictionary.h"

std::string refusalOf(const Period& period) {
  constexpr std::chrono::year kEarliest{2000}, kLatest{2051};
  if (period.last < period.first)
    return words("The Period Would End {last}, Before It Begins", "last",
                 formatDate(period.last, "dd/MMM/yyyy"));
  if (period.first.year() < kEarliest || period.last.year() > kLatest)
    return english("A Period Lies Between 01/Jan/2000 And 31/Dec/2051");
  return {};
}

Outside vouchersOutside(Database& db, const Period& period) {
  Outside outside;
  std::optional<Date> earliest;
  std::set<std::string> seen;
  for (const VoucherKind* kind : voucherKinds()) {
    const auto& [heads, lines, key, work, serial, settles] = kind->tables;
    if (!seen.insert(heads).second || !CheckTable(db, heads)) continue;
    const auto row = db.first("SELECT " + key + ", VOUCH_NO, VOUCH_DT, COUNT(*) OVER () FROM " + heads +
                                  " WHERE VOUCH_DT < ? OR VOUCH_DT > ? ORDER BY VOUCH_DT, VOUCH_NO LIMIT 1",
                              period.first, period.last);
    if (!row) continue;
    outside.count += toInt(row->number(3));
    const auto date = row->date(2);
    if (!date || (earliest && *date >= *earliest)) continue;
    earliest = date;
    const VoucherKind* const found = kindByBook(row->text(0));
    outside.first = words("{number} Of {kind}, {date}", "number", numText(row->number(1)), "kind",
                          found ? trim(words(found->words.title)) : row->text(0), "date",
                          formatDate(*date, "dd/MMM/yyyy"));
  }
  return outside;
}
