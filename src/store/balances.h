#pragma once

#include "store/database.h"

// Sets ACCOUNT.CL_BAL of every account to its opening balance plus debits less credits of
// ALEDGER, through the work table T_ACLST, which is left filled: one row per account, and one per
// account and side that has ledger rows.
void refreshBalances(Database& db);
