#pragma once

#include <string>
#include <string_view>

#include "reports/report.h"

// Which bills of the customers are unpaid at a date, by how much and for how many days. No link
// between a receipt and its bill is kept: all credits of a party are set against its debits, first
// in, first out, and what is left over of the debits is open. It is worked out each time into the
// work table CAL, one row an open bill:
//
//   CR, DR, CL_BAL     the bill, what was paid of it, what stays unpaid (CR is the ledger's debit)
//   DATE_DIF, BCK_BAL  days from VOUCH_DT to the To date, which stands in NARR1
//   PARTY_BL           the bill's number, "." without one; " OP" is an open opening balance, of
//                      voucher 0, book "OP" and the first day of the period
//
// Credits count whatever their date, so a receipt made later clears a bill at an earlier date.
// Groups 85 and 86 are customers; those whose stored balance CL_BAL is not above 0 take no part.

inline constexpr std::string_view kOutstanding = "ONACRCV";

// Fills CAL for one account, or with an empty code for all that the query's fields leave, whose
// From and To date fall back on the period. False when there is no such account. Raises
// DatabaseError, and then leaves the table as it was.
bool ON_AC_RECEIVABLES(Database& db, const std::string& code, const ReportQuery& query);
