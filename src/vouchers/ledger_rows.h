#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "store/database.h"

// The books of account. One row of ALEDGER stands for each side of each posting: the account
// in whose ledger it stands, the account against it, and an amount that has no sign of its own
// (a negative one comes only from a negative bill). The rows of a voucher share its number,
// date and book. They are derived from the vouchers and are written afresh on every save.

namespace account_code {
inline constexpr const char* kSales = "X90002";
inline constexpr const char* kCgst = "X90061";
inline constexpr const char* kSgst = "X90062";
inline constexpr const char* kIgst = "X90063";
inline constexpr const char* kRoundOff = "X90015";
}  // namespace account_code

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
  double amount = 0;  // whole bill; equals items, taxes and round-off together
  double items = 0, cgst = 0, sgst = 0, igst = 0, roundOff = 0;
  std::string billNumber, narration, lrNumber;
  double creditDays = 0;
};

// Party against sales, sales, the three taxes also when nil, and the round-off unless it is nil.
std::vector<LedgerRow> billRows(const BillPosting& bill);
