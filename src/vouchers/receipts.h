#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "vouchers/saving.h"
#include "vouchers/settlements.h"

// Money that comes in or goes out over the cash account or a bank account. A voucher is one row of
// RPTPAY and two of ALEDGER, one for each of its two accounts, and two more for each discount, write-off or
// TDS beside the money. It is on account (RPTPAY_DTL and BW_AB are A) unless it settles bills (B). Unlike a
// bill, it moves the stored balances of all its accounts at once.

std::optional<Row> findMoneyVoucher(Database& db, const VoucherKind& kind, double number);

// The row, its ledger rows and the balances of its two accounts, all or nothing. False when something else
// stands under the number than is expected; nothing has changed then. The balances of the party and account
// that a modify leaves behind are rebuilt too.
// Raises SettledElsewhere. How a voucher is paid (VOUCH_TYPE, CHQ_NO, CHQ_CLG_DT) is that of cash where
// it says nothing.
bool saveMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher, const Saving& how,
                      const Settlement& settles = {});
// The row, what it settles and its ledger rows alone, inside the caller's transaction, in the place of a
// stored one.
void storeMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher,
                       const Settlement& settles = {});
// Takes the row with all of these away, what others settle of it too, and rebuilds the balances of its
// accounts. False, and nothing is taken away, when the voucher is another than `as` expects.
bool deleteMoneyVoucher(Database& db, const VoucherKind& kind, double number,
                        const Saving& as = Saving::Again);

// An account that money can come into or go out of: the cash account, or one of cash, of a bank or of a
// bank's overdraft. All but those of cash are a bank's.
bool isCashOrBank(Database& db, std::string_view code);
bool isBank(Database& db, std::string_view code);

// The two statements that post vouchers, and the two that post what they deduct: the cash or bank side, or
// that of the deduction, then the party's. Each takes the side "D" or "C" as its first value; `vouchers` is
// a table of them, called V, and `condition` takes the values that follow.
struct MoneyRows {
  std::string billNumber, subDesc;  // expressions for PARTY_BL and SUB_DESC
  std::string vouchers, condition, into = "ALEDGER";
};
std::array<std::string, 2> postingStatements(const MoneyRows& rows);
std::array<std::string, 2> deductionStatements(const MoneyRows& rows);
// Sides of the two in the same order.
std::array<std::string, 2> sides(const VoucherKind& kind);
