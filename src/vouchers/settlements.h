#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "frame/settling.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"

// What one voucher settles, as its rows of SETTLES say: bills one by one, and what beside the money
// settles them. The rest of both is on account.

struct Settlement {
  struct Bill {
    VoucherKey voucher;
    double amount = 0;
  };
  struct Deduction {
    std::string what;  // "D" discount, "W" write-off, "T" TDS
    std::string account;
    double amount = 0;
  };
  std::vector<Bill> bills{};
  std::vector<Deduction> deductions{};
  bool empty() const { return bills.empty() && deductions.empty(); }
};

Settlement readSettlement(Database& db, const VoucherKind& kind, double number);

// Books that an update has not brought up to date lack the table; on a server what makes it commits, so that
// it comes before a transaction.
void ensureSettlements(Database& db);
// Inside the caller's transaction, in the place of what stands there.
void storeSettlement(Database& db, const VoucherKind& kind, double number, const std::string& party,
                     const Settlement& settles);

// A bill is settled above its amount, or the voucher above its own: another has settled it meanwhile.
class SettledElsewhere : public std::runtime_error {
 public:
  explicit SettledElsewhere(const std::string& told) : std::runtime_error(told) {}
};
// Raised for what the voucher settles, once its rows and those of the ledger are written.
void checkSettlement(Database& db, const VoucherKind& kind, double number);
