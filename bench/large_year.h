#pragma once

#include "store/database.h"

// A company-year of a busy shop for measuring: parties, items, bills of three lines, receipts
// and their ledger rows, spread over the whole accounting period. Amounts, numbers and postings
// come from the rules that the screens use, so a bill reads as if it had been typed. The same
// counts always make the same books.
struct LargeYear {
  int parties = 1000;
  int items = 500;
  int bills = 100'000;
  int receipts = 20'000;
};

// Takes the place of the parties, items, bills, receipts and ledger rows that stand in the open
// company-year. All or nothing; raises DatabaseError.
void makeLargeYear(Database& db, const LargeYear& size = {});

// Vouchers whose debits and credits differ.
int unbalancedVouchers(Database& db);
