#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/date.h"
#include "frame/settling.h"
#include "store/database.h"

// Which bills of one account are open. A bill is a voucher with rows on one side of the account: a customer's
// are its debits, a supplier's its credits. What vouchers of the other side settle of it, one by one, stands
// in SETTLES; the rest of their money pays the bills that are left, first in, first out:
//
//   bills 100 and 200, 250 received, 150 of it for the second bill: 50 are left for the second, the first is
//   paid
//
// A settlement counts as far as its bill goes; what is settled above it is money like any other. A receipt
// that a payment gives back (a cheque that bounced) is paired with it in the same way.

struct OpenBill {
  VoucherKey voucher;  // book "OP" and number 0: the opening balance
  std::string date, bill;
  double amount = 0, paid = 0;
  std::string narration;
  double open() const;
};

struct BillsOf {
  std::string party, side;              // "D" or "C": on which its bills stand
  double opening = 0;                   // its opening balance as it stands, debit positive
  Date start{};                         // of an opening balance
  std::optional<Date> to{};             // later bills are left out, though what settles them is not money
  std::optional<VoucherKey> without{};  // as if this one had not been written
  bool standing = false;                // without those that were deleted and are in the ledger yet
};

std::vector<OpenBill> openBills(Database& db, const BillsOf& of);

// What is settled of the vouchers on one side of an account, bill by bill.
class SettledBills {
 public:
  SettledBills(Database& db, const BillsOf& of);
  // The part of a row that is settled, at most all of it; what is taken is gone.
  double take(const VoucherKey& voucher, double most);

 private:
  std::map<std::pair<std::string, double>, double> left_;
};

// A running sum of amounts in paise, without its own small error.
double cleanSum(double sum);
