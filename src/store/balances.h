#pragma once

#include <set>
#include <string>
#include <string_view>

#include "store/database.h"

// ACCOUNT.CL_BAL is a stored copy of an account's balance: opening balance plus debits less credits
// of ALEDGER, debit balances positive, to the paisa. It goes stale with every voucher that does not
// rebuild it.

// Sets CL_BAL of every account, through the work table T_ACLST, which is left filled: one row per
// account, and one per account and side that has ledger rows.
void RebuildAllBalances(Database& db);

// What the ledger gives for one account, each side rounded to two places; 0 for an unknown code.
double ledgerBalance(Database& db, std::string_view code);

// The balance of a row of ACCOUNT as an expression for a statement that reads many: the stored one where
// the books are settled, else the ledger's. It writes nothing, so it waits for nobody who saves.
std::string balanceExpression(Database& db);

// Sets CL_BAL of one account, or of some; an unknown code changes nothing.
void RebuildOneBalance(Database& db, std::string_view code);
void RebuildBalances(Database& db, const std::set<std::string>& codes);
