#pragma once

#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
#include "store/database.h"

// What a voucher was made from: a bill from challans and offers, a challan from offers. Each stands in a row
// of BILLEDFROM, and is open until then. Goods are in the ledger once: a challan that a bill stands for is
// not beside it, unless the shop wants it so (the setting kChallansPost).
//
// A bill that was deleted keeps its rows in the ledger until posting, and its challans stay out of it as
// long. They are open meanwhile.

struct MadeFrom {
  std::string book;  // VoucherKind::book() of the challan or offer
  double voucher = 0;
  bool operator==(const MadeFrom&) const = default;
};

// The kinds from which vouchers of this one can be made; none for most.
std::vector<const VoucherKind*> madeFromKinds(const VoucherKind& kind);

// In the order in which they were taken; whether any of them, or of a deleted bill of the number, is kept at
// all.
bool anyMadeFrom(Database& db, const VoucherKind& kind, double number);
std::vector<MadeFrom> madeFrom(Database& db, const VoucherKind& kind, double number);
// Makes the table where books lack it that the walk has not brought up to date; before a transaction, since a
// server ends one by it.
void ensureMadeFrom(Database& db);
// Inside the transaction that stores the voucher, and the one that deletes it for good.
void storeMadeFrom(Database& db, const VoucherKind& kind, double number, const std::vector<MadeFrom>& from);
void forgetMadeFrom(Database& db, const VoucherKind& kind, double number);
// The ledger is made again: challans whose bill was deleted come back to it.
void forgetFreed(Database& db);
// The same where the number of one such bill is given to another, whose rows take the place of its own.
std::vector<MadeFrom> takeFreed(Database& db, const VoucherKind& kind, double number);

// Holds for a row of the kind's heads, called `row`, of which no voucher was made.
std::string isOpen(Database& db, const VoucherKind& kind, const std::string& row);
// What more holds for a challan that stands in the ledger, " AND ..."; empty where all do.
std::string standsAlone(Database& db, const std::string& row);

// The voucher that was made of it, as "Billed: 12 of 01/06/2026"; empty where it is open.
std::string billedWords(Database& db, const MadeFrom& from);
// The same for a column of a list, by number alone: of each row of the kind's heads, called `row`. Takes one
// value, which stands for an open one.
std::string madeOfColumn(Database& db, const VoucherKind& kind, const std::string& row);
