#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
#include "store/database.h"

// Whether a ledger that has just been made holds what its vouchers ask for: rows of each voucher, and
// as much on the one side as on the other.

// Vouchers of the kinds lack rows, or have wrong ones. what() is the sentence for the user.
class NotPosted : public std::runtime_error {
 public:
  explicit NotPosted(const std::vector<const VoucherKind*>& kinds);
};

// A voucher whose own head and lines disagree: its rows say what it says, and cannot balance.
struct Unbalanced {
  const VoucherKind* kind;
  double number;
};

struct Expected {
  const VoucherKind* kind;
  double vouchers;  // that must have rows
};
// Raises NotPosted for the first kind that is not what is expected.
std::vector<Unbalanced> checkLedger(Database& db, const std::vector<Expected>& expected);
