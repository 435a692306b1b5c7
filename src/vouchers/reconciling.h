#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vouchers/bank_statement.h"
#include "vouchers/cleared.h"

// The books and the bank: what stands in a bank account's ledger, what of it the bank has, and which line
// of a statement is which row of the books.

struct BookEntry {
  BankRow row;
  Date date{};
  std::string particulars;  // the account against it
  std::string reference;    // cheque or paper
  std::optional<Date> cleared;
};

// Rows up to `to` that fall in the period, were cleared in it or are open, the oldest first.
std::vector<BookEntry> bankEntries(Database& db, const std::string& account, Date from, Date to);

struct BankSums {
  double books = 0;               // balance up to the day
  double paid = 0, received = 0;  // of it not with the bank by then
  double bank() const;            // what the bank should show
};
BankSums bankSums(Database& db, const std::string& account, Date to);

// Who the other side of a line is that the books lack, as far as the bank's text tells: the party or account
// whose name stands in it, cut off as banks do, or cash. Empty where it tells none, or several alike.
struct OtherSide {
  std::string account;
  bool money = false;  // a bank or cash, else a party
};
OtherSide otherSideOf(Database& db, const std::string& bank, const StatementLine& line);
// How it was paid, as RPTPAY.VOUCH_TYPE holds it (frame/money_modes).
std::string moneyModeOf(const StatementLine& line);

// How a line of the statement and a row of the books answer to each other. Their amounts are equal.
struct Match {
  enum class Reference { Agrees, Unknown, Differs };
  size_t book = 0, line = 0;
  Reference reference = Reference::Unknown;
  int days = 0;          // from the books to the bank
  bool certain = false;  // no other answers as well, and nothing speaks against it
  bool known = false;    // the row bears the line's date as its clearing date already
  bool moves = false;    // it bears another one
};

// At most one for each line and each row. Without an agreeing reference they lie within some days of each
// other; a cheque may be presented until it is three months old.
std::vector<Match> matchStatement(const std::vector<BookEntry>& books,
                                  const std::vector<StatementLine>& lines);
