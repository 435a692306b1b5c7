#pragma once

#include <string>
#include <vector>

#include "reports/report.h"

// What the registers of bills and notes have in common: rows of SALE with their party's ACCOUNT.

// The period, party, city and state that were asked for.
Condition askedOfBills(const ReportQuery& q);

// Taxable value, taxes, round off and amount, behind the columns that stand there.
void addBillFigures(std::vector<ReportColumn>& columns, bool summed);

// How a bill is set apart by the law, as "Rev. Charge": an expression over a row of SALE and its values, and
// the column. None where no bill of the book is, so that a register of plain bills has no empty column.
struct BillMarks {
  std::string expression = {};  // ", ... AS MARKS"
  std::vector<Value> values = {};
  std::vector<Value> before(const std::vector<Value>& others) const;
  void addTo(std::vector<ReportColumn>& columns) const;
};
BillMarks billMarks(Database& db, const std::string& book);
