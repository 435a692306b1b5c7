#pragma once

#include <string>
#include <vector>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"

// Which numbers of each series of bills and notes a period has used and which were cancelled. Nothing keeps a
// cancelled number: it is one that is missing between others of its series and stands in no other period. It
// belongs to the period of the number that follows it.

struct IssuedSeries {
  const VoucherKind* kind = nullptr;
  std::string type;      // of the vouchers, as the series of a kind
  std::string from, to;  // numbers on paper
  int total = 0, cancelled = 0;
  int issued() const { return total - cancelled; }
};

// What the table of documents calls the kind: 1 bills, 4 debit notes, 5 credit notes; 0 has no place there.
int issuedNature(const VoucherKind& kind);
const char* issuedWords(int nature);  // as that table has them
std::vector<IssuedSeries> issuedSeries(Database& db, Date from, Date to);
