#pragma once

#include <string>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "vouchers/saving.h"

// Journals and contras: a head in JOURNAL and any number of lines in JOURNITM, each with an account and
// an amount on one side. Debits and credits are equal to the paisa; who saves sees to it first. A save
// moves the stored balances of all its accounts at once, and a deleted one leaves the ledger at once.
//
// Ledger: one row a line, in the order of the lines, whose SRNO is the line's serial. Against it
// (PARTY_TCD) stands the account of the largest line of the other side, of several the first. The
// narration is the line's, else the whole one's; the bill (PARTY_BL) is the reference, without one the
// voucher's number; the cheque's number is the line's, else the reference.

struct JournalSums {
  int lines = 0;
  double debit = 0, credit = 0;  // to the paisa
  double difference() const;     // debit less credit
};
// Of the work table.
JournalSums sumJournal(Database& db);

// One transaction. The lines are those of the work table. False when something else stands under the
// number than is expected; nothing has changed then.
bool saveJournal(Database& db, const VoucherKind& kind, const Fields& head, const SaveStamp& stamp,
                 const Saving& how);
// Head, lines, ledger rows and clearing dates. False when the voucher is another than `as` expects.
bool deleteJournal(Database& db, const VoucherKind& kind, double number, const Saving& as = Saving::Again);

std::optional<Row> findJournal(Database& db, const VoucherKind& kind, double number);
// Puts the stored lines into the emptied work table, with the accounts' names and balances of today.
void loadJournalLines(Database& db, const VoucherKind& kind, double number);

// "4,800.00 Cr"; "0.00" has no side.
std::string balanceText(double balance);

// The statement that posts the heads which `from` lists or selects; values of its own come first.
std::string journalPosting(const std::string& from, const std::string& into = "ALEDGER");
