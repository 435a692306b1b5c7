#pragma once

#include <string_view>

#include "store/database.h"

// ACCOUNT.CL_BAL is a stored copy of an account's balance: opening balance plus debits less credits
// of ALEDGER, debit balances positive. It goes stale with every voucher that does not rebuild it.

// Sets CL_BAL of every account, through the work table T_ACLST, which is left filled: one row per
// account, and one per account and side that has ledger rows.
void RebuildAllBalances(Database& db);

// Sets CL_BAL of one account, rounded to two places on the way; an unknown code changes nothing.
void RebuildOneBalance(Database& db, std::string_view code);
