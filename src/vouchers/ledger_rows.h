#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "vouchers/supply.h"

// The books of account. One row of ALEDGER stands for each side of each posting: the account
// in whose ledger it stands, the account against it, and an amount that has no sign of its own
// (a negative one comes only from a negative bill). The rows of a voucher share its number,
// date and book. They are derived from the vouchers and are written afresh on every save.

struct LedgerVoucher {
  double number = 0;
  Date date{};
  std::string book;
};

struct LedgerRow {
  std::string side;  // "D" or "C", as seen from the account
  std::string account, against;
  double amount = 0;
  std::optional<std::string> billNumber{};
  std::string narration;
  std::optional<double> creditDays{};
};

// Takes the place of whatever the voucher had posted before. To be called inside the
// transaction that stores the voucher.
void postVoucher(Database& db, const LedgerVoucher& voucher, const std::vector<LedgerRow>& rows);

struct BillPosting {
  std::string party;
  double amount = 0;  // whole bill; equals items, charges, taxes and round-off together
  double items = 0, cgst = 0, sgst = 0, igst = 0, roundOff = 0;
  struct Charge {
    std::string side, account;
    double amount;
  };
  std::vector<Charge> charges{};  // those that are not nil, and a discount
  std::string billNumber, narration, lrNumber;
  double creditDays = 0;
};

// Party against goods, goods, discount and charges, the three taxes also when nil, and the round-off unless
// it is nil. A marked bill has no row of a tax that is nil, none at all where the buyer owes them, and ours
// under reverse charge stand against what we owe.
std::vector<LedgerRow> billRows(const BillPosting& bill, const VoucherKind& kind = saleKind(),
                                const Supply& supply = {});
