#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "reports/report.h"

// Which bills of the customers are unpaid at a date, by how much and for how many days. What a receipt
// settles bill by bill is taken off these bills (frame/open_bills); all other credits of a party are set
// against its debits, first in, first out, and what is left over of the debits is open. It is worked out
// each time into the work table CAL, one row an open bill:
//
//   CR, DR, CL_BAL     the bill, what was paid of it, what stays unpaid (CR is the ledger's debit)
//   DATE_DIF, BCK_BAL  days from VOUCH_DT to the To date, which stands in NARR1
//   PARTY_BL           the bill's number, "." without one; " OP" is an open opening balance, of
//                      voucher 0, book "OP" and the first day of the period
//
// Credits count whatever their date, so a receipt made later clears a bill at an earlier date.
// Groups 85 and 86 with those below them are customers; those whose stored balance CL_BAL is not above 0 take
// no part.

inline constexpr std::string_view kOutstanding = "ONACRCV";

// Fills CAL for one account, or with an empty code for all that the query's fields leave, whose
// From and To date fall back on the period. False when there is no such account. Raises
// DatabaseError, and then leaves the table as it was.
bool ON_AC_RECEIVABLES(Database& db, const std::string& code, const ReportQuery& query);

// The same one customer after the other by name, so that the first can be shown while the rest is still to be
// worked out.
class Receivables {
 public:
  // Empties CAL. Raises DatabaseError, as next does.
  Receivables(Database& db, const std::string& code, const ReportQuery& query);

  bool none() const { return customers_.empty(); }
  // Adds the next customer's open bills to CAL; false after the last one.
  bool next();

  // ACC_CD, OP_BAL, ACC_NAME, AREA, PHONE1, CITY
  const Row& customer() const { return customers_[next_ - 1]; }
  // The sums of its open bills.
  struct Sums {
    double amount = 0, paid = 0, open = 0;
    int bills = 0;
  };
  const Sums& sums() const { return sums_; }

 private:
  // What a customer owes and has paid in all, and its debits day by day.
  struct Standing {
    struct Day {
      std::string date;
      double debits = 0, least = 0;
    };
    double credits = 0, debits = 0;
    std::vector<Day> days{};
  };
  struct Bill {
    double number = 0;
    std::string date, bill, book;
    double amount = 0;
    Value narration{};  // null for an opening balance
  };

  void matchAll();
  void matchSettled();  // where some of its bills are settled by themselves
  Standing standing() const;
  double payOpening(double credit);
  void matchBills(const std::vector<Standing::Day>& days, double credit);
  void matchBillsFrom(const std::string& date, double credit);
  void open(const Bill& bill, double paid);

  Database& db_;
  const Date start_, to_;
  const std::string shownTo_;
  std::vector<Row> customers_;
  std::set<std::string> settling_;  // codes in capitals
  size_t next_ = 0;
  Sums sums_;
  std::vector<Value> open_;  // of the customer, not yet in CAL
};
