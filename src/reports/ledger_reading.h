#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/ledger_columns.h"
#include "reports/statement.h"

// What both forms of a statement read, and how they write a narration.

// One ledger row of the account; a row of neither side has both amounts 0.
struct LedgerEntry {
  VoucherKey voucher;
  std::string date;  // as shown, "dd/MM/yy"
  std::string bill, cheque, against, narration, narration1;
  double debit = 0, credit = 0;
};

// Everything before the period: the opening balance and the ledger rows, each on its side.
struct OpeningBalance {
  double debit = 0, credit = 0;
};

// With `since`, rows before that date do not count.
OpeningBalance readOpening(Database& db, const StatementQuery& query, const std::optional<Date>& since);
double groupOf(Database& db, const std::string& account);

// The entries of the period by date, a date's debits before its credits, and number.
enum class Ties { BySerial, AsStored };
std::vector<LedgerEntry> readEntries(Database& db, const StatementQuery& query, Ties ties);

// One line, or two: a text of more than 35 characters is cut behind the first blank from the
// 32nd on, where there is one.
std::vector<std::string> narrationLines(const std::string& narration);

std::string money(double amount);  // "0.00"
std::string shownNumber(const VoucherKey& voucher);
void writeNarrationText(Cell& cell, const std::string& text);

// A row whose cells are of the ledger's types.
StatementRow emptyRow(std::string_view key);
