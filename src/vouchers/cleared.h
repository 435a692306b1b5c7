#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "store/database.h"

// When a bank took or gave what the books say: CLEARED has a row for each row of a bank account's ledger
// that has a clearing date, known by voucher, the ledger row's serial (SRNO) and amount, debits above 0.
// Making the ledger anew leaves it as it is. A date holds as long as such a row stands in the ledger.

struct BankRow {
  std::string account, book;
  double number = 0, serial = 0;
  double amount = 0;
};

// In the place of an earlier date; none takes it away. False where the ledger has no such row any more.
bool setCleared(Database& db, const BankRow& row, const std::optional<Date>& on);

// Takes the dates away that no ledger row of the voucher answers to: it was deleted, or has another amount
// or account. To be called inside the transaction that writes those rows.
void forgetUnclear(Database& db, const std::string& book, double number);
// The same for the whole ledger.
void forgetUnclear(Database& db);

// Holds for a row of ALEDGER and the row of CLEARED that is its date, each under a name.
std::string clearedBy(const std::string& ledger, const std::string& cleared);
