#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "vouchers/charges.h"

// The bills that a note is made against (ORIGINAL), and of which of their lines its own lines are (ORIGITM).
// What has gone back of a line before is summed over all notes of the same kind with which goods move.

struct Original {
  std::string book;    // of the bill
  double voucher = 0;  // 0: not in these books, as one of an earlier year
  std::string number;  // on its paper
  std::optional<Date> date;
  bool operator==(const Original&) const = default;
};

// What a note says of itself beside its head.
struct NoteFacts {
  int reason = 0;      // as in frame/note_reasons; 0: none is kept
  bool goods = false;  // goods move with it
  std::vector<Original> bills;
};

// The line of a bill that a line of a note stands for.
struct OriginalLine {
  std::string book;
  double voucher = 0, serial = 0;
  double billed = 0, before = 0;
  double rate = 0, amount = 0, share = 0;  // as it was billed; the share is that of the bill's charges
  double left() const { return billed - before; }
};
// By the serial of the note's line.
using OriginalLines = std::map<double, OriginalLine>;

// A bill that a number on paper may mean.
struct FoundBill {
  Original bill;
  std::string party, shipTo;
  double amount = 0;
};
// Those of the kind's bills with the number, of one party where it is given.
std::vector<FoundBill> billsOfNumber(Database& db, const VoucherKind& note, const std::string& number,
                                     const std::string& party);
std::optional<FoundBill> billOfVoucher(Database& db, const VoucherKind& note, double voucher);

NoteFacts readNote(Database& db, const VoucherKind& note, double number);
// The lines of a stored note that stand for one of a bill, without what has gone back before; one whose bill
// or line has gone is none.
OriginalLines readOriginalLines(Database& db, const VoucherKind& note, double number);
// Puts the lines of a bill behind those of the work table, each with a quantity of 0 and all else as it was
// billed, and tells which they are; lines that `known` has stay away. `number` is the note's. What has gone
// back of them is yet to be read.
void addBillLines(Database& db, const VoucherKind& note, double number, const Original& bill,
                  OriginalLines& known);
// Discount and charges of a bill, and the goods that they stand beside.
struct BilledCharges {
  Charges charges;
  double goods = 0;
};
BilledCharges readBilledCharges(Database& db, const std::string& book, double voucher);
// Reads anew what has gone back of the lines with other notes than this one.
void readBefore(Database& db, const VoucherKind& note, double number, OriginalLines& lines);

// Makes the tables where books lack them that the walk has not brought up to date; before a transaction,
// since a server ends one by it.
void ensureNotes(Database& db);
// Whose a bill is, its marks and its lines, as one text to compare: what a note is made from. Empty where the
// bill is not in these books, or not any more.
std::string asBilled(Database& db, const Original& bill);
// How much of a bill nothing but this note has settled yet; none where books lack the table.
std::optional<double> openWithout(Database& db, const VoucherKind& note, double number, double voucher);

// It stands against its bills on the other side of the party's account, as a debit note does not.
bool takesBack(const VoucherKind& note);
// Inside the transaction that stores the note, once its lines and rows of the ledger are written. Raises
// std::runtime_error where one of its bills has gone; each is named as it is stored now. A note that takes
// back settles its bills (SETTLES), each with what its lines give back of it and for no more than it is open;
// the rest is on account.
void storeNote(Database& db, const VoucherKind& note, double number, const NoteFacts& facts,
               const OriginalLines& lines);
void dropNote(Database& db, const VoucherKind& note, double number);

// Whether notes stand against a bill.
bool isOriginal(Database& db, const VoucherKind& bill, double voucher);
// A bill that is stored again may have another number and date, by which its notes name it, and lack a line
// of theirs. Raises std::runtime_error where it has notes and is another party's now than `before`.
void followBill(Database& db, const VoucherKind& bill, double voucher, const std::string& before);
// The notes against a bill, each as "Credit Note 3"; empty when there are none.
std::string notesAgainst(Database& db, const VoucherKind& bill, double voucher);
// Why a bill is not deleted: notes stand against it. Empty when none do.
std::string notesRefuse(Database& db, const VoucherKind& bill, double voucher);
