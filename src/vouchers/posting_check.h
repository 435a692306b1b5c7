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

struct Expected {
  const VoucherKind* kind;
  double vouchers;  // that must have rows
};
// Raises NotPosted for the first kind that is not what is expected. A voucher whose own head does not add up
// cannot balance and is as it should be; the list of what does not agree has it.
void checkLedger(Database& db, const std::vector<Expected>& expected);
