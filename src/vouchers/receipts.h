#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "vouchers/saving.h"

// Money that comes in or goes out over the cash account or a bank account. A voucher is one row of
// RPTPAY and two of ALEDGER, one for each of its two accounts; it is always on account, never
// against single bills. Unlike a bill, it moves the stored balances of both accounts at once.

std::optional<Row> findMoneyVoucher(Database& db, const VoucherKind& kind, double number);

// The row, its ledger rows and the balances of its two accounts, all or nothing. False when something else
// stands under the number than is expected; nothing has changed then. The balances of the party and account
// that a modify leaves behind are rebuilt too.
bool saveMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher, const Saving& how);
// The row and its ledger rows alone, inside the caller's transaction, in the place of a stored one.
void storeMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher);
// Takes the row with its ledger rows away, and rebuilds the balances of its two accounts. False, and nothing
// is taken away, when the voucher is another than `as` expects.
bool deleteMoneyVoucher(Database& db, const VoucherKind& kind, double number,
                        const Saving& as = Saving::Again);

// An account that money can come into or go out of: the cash account or one of the bank accounts.
bool isCashOrBank(Database& db, std::string_view code);

// The two statements that post vouchers: the cash or bank side, then the other. Each takes the side
// "D" or "C" as its first value; `from` stands behind FROM and takes those that follow.
struct MoneyRows {
  std::string billNumber, subDesc;  // expressions for PARTY_BL and SUB_DESC
  std::string from, into = "ALEDGER";
};
std::array<std::string, 2> postingStatements(const MoneyRows& rows);
// Sides of the two in the same order.
std::array<std::string, 2> sides(const VoucherKind& kind);
