#pragma once

#include <string>
#include <vector>

#include "store/database.h"

// What the shell shows at rest. Every figure is one statement over an index, so that a
// return to the shell stays quick on years with 100,000 bills (20 ms there, of which the debts are most).
// Amounts are rupees. A table that is missing gives 0 and no rows.

struct Figure {
  double amount = 0;
  int count = 0;
};

// Bills or receipts from the first to the last date, both included.
Figure salesBetween(Database& db, Date first, Date last);
Figure receiptsBetween(Database& db, Date first, Date last);

struct LastBill {
  double voucher = 0;
  std::string number, party, city;
  std::optional<Date> date;
  double amount = 0;
};
// The latest bills, the highest voucher number first.
std::vector<LastBill> lastBills(Database& db, int most);

struct Debtor {
  std::string code, party;
  double amount = 0;
  int days = 0;  // age of the oldest unpaid bill, receipts being set against the oldest first
};
// What customers owe by the ledger as it stands, and who owes the most, the largest first. An opening
// balance counts from the first date of the period.
struct Receivable {
  Figure all;
  std::vector<Debtor> largest;
};
// How many deleted vouchers still stand in the ledger: so many ask for posting.
int postingDue(Database& db);

Receivable receivable(Database& db, int most, Date today, Date periodStart);

// "4 bills" by "{count} bills", "1 bill" by "{count} bill".
std::string counted(int count, std::string_view one, std::string_view many);
