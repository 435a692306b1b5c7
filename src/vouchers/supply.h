#pragma once

#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
#include "store/database.h"

// What marks a bill beside its figures (SUPPLY; hardly any bill has a row there). Under reverse charge the
// party is owed the goods alone: what we buy so has its taxes owed by us, what we sell so leaves them to the
// buyer. The head keeps the taxes all the same. Ineligible taxes of what we buy are a cost of the goods.
struct Supply {
  bool reverse = false, ineligible = false;
  bool any() const { return reverse || ineligible; }
  bool operator==(const Supply&) const = default;
};

// Whether the taxes of the kind are those that we pay.
bool isBought(const VoucherKind& kind);

Supply readSupply(Database& db, const VoucherKind& kind, double number);
// Makes the table where books lack it that the walk has not brought up to date; before a transaction, since a
// server ends one by it.
void ensureSupply(Database& db);
// In place of what stood there; inside the transaction that stores or deletes the bill.
void storeSupply(Database& db, const VoucherKind& kind, double number, const Supply& supply);
// The marks that bills of the kind have, each once.
std::vector<Supply> marksOf(Database& db, const VoucherKind& kind);

// A row of the ledger for one tax of a bill: 0 is CGST, 1 SGST, 2 IGST.
struct TaxPosting {
  size_t which;
  std::string side, account;
};
std::vector<TaxPosting> taxPostings(const VoucherKind& kind, const Supply& supply);
