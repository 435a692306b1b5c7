#pragma once

#include <string>

#include "frame/voucher_kinds.h"
#include "store/database.h"

// A deleted voucher keeps its rows in the ledger until posting makes the ledger again. Which ones those
// are stands in a table of our own, DELETED, written by the transaction that deletes: the ledger itself
// would have to be read from end to end for it.

// To be called inside that transaction; a kind without a place in the ledger leaves nothing behind.
void rememberDeleted(Database& db, const VoucherKind& kind, double number);

// How many deleted vouchers still stand in the ledger. One whose number was given to another voucher
// does not: that one's save took its rows away.
int deletedInLedger(Database& db);

// Holds for a row of VOUCH_NO and BOOK_CD, called `row`, that no voucher with a place in the ledger bears.
// Tables that older books have yet to get hold none.
std::string withoutVoucher(Database& db, const std::string& row);

// The same of one that was deleted and stands in the ledger yet; empty where none does.
std::string deletedVoucher(Database& db, const std::string& row);

// The ledger has been made again.
void forgetDeleted(Database& db);
