#include "frame/glance.h"

#include <algorithm>
#include <functional>

#include "base/words.h"
#include "frame/posting_due.h"
#include "frame/voucher_kinds.h"
#include "store/balances.h"
#include "store/groups.h"

namespace {

// The shell must stand on a database that an update has not completed yet.
void guarded(const std::function<void()>& read) {
  try {
    read();
  } catch (const DatabaseError& error) {
    if (!error.mayBePassedOver()) throw;
    logFailure("passed over: the shell stands on older books", error);
  }
}

template <typename... Args>
Figure figure(Database& db, const char* sql, const Args&... args) {
  Figure result;
  guarded([&] {
    if (const auto row = db.first(sql, args...)) result = {row->number(0), static_cast<int>(row->number(1))};
  });
  return result;
}

// The balance is what the newest bills leave open: going back from the newest, the bill with
// which their sum reaches it is the oldest unpaid one.
int daysOpen(Database& db, const std::string& account, double balance, Date today, Date periodStart) {
  Date oldest = periodStart;
  guarded([&] {
    auto bills = db.query(
        "SELECT VOUCH_DT, VOUCH_AMT FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = 'D'"
        " ORDER BY VOUCH_DT DESC",
        account);
    constexpr double paisa = 0.005;
    double sum = 0;
    while (bills.next()) {
      sum += bills.number(1);
      if (sum < balance - paisa) continue;
      oldest = bills.date(0).value_or(periodStart);
      return;
    }
  });
  return std::max(0, daysBetween(oldest, today));
}

}  // namespace

// From the lookup's index alone, which holds the amounts.
Figure salesBetween(Database& db, Date first, Date last) {
  return figure(db,
                "SELECT SUM(NET_AMT), COUNT(*) FROM SALE"
                " WHERE VOUCH_DT BETWEEN ? AND ? AND BOOK_CD = ?",
                first, last, saleKind().code);
}

// A plus sign keeps the planner from the index of the books, in which one book is everything.
Figure receiptsBetween(Database& db, Date first, Date last) {
  return figure(db,
                "SELECT SUM(AMOUNT), COUNT(*) FROM RPTPAY"
                " WHERE VOUCH_DT BETWEEN ? AND ? AND +BOOK_CD = ?",
                first, last, receiptKind().code);
}

std::vector<LastBill> lastBills(Database& db, int most) {
  std::vector<LastBill> bills;
  guarded([&] {
    auto rows = db.query(
        "SELECT BILL_NO, VOUCH_DT, ACC_NAME, CITY, NET_AMT, VOUCH_NO"
        " FROM SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD"
        " WHERE BOOK_CD = ? ORDER BY VOUCH_NO DESC LIMIT ?",
        saleKind().code, most);
    while (rows.next())
      bills.push_back(
          {rows.number(5), rows.text(0), rows.text(2), rows.text(3), rows.date(1), rows.number(4)});
  });
  return bills;
}

Receivable receivable(Database& db, int most, Date today, Date periodStart) {
  Receivable owed;
  guarded([&] {
    // Those who owe nothing stand behind and are left out here: a condition would take the sum again.
    auto accounts = db.query("SELECT ACC_CD, ACC_NAME, ROUNDED(" + balanceExpression(db) +
                             ", 2) AS OWES FROM ACCOUNT WHERE " + underGroups("GROUP_CD", {85, 86}) +
                             " ORDER BY OWES DESC, ACC_NAME");
    while (accounts.next()) {
      const double owes = accounts.number(2);
      if (owes <= 0) break;
      owed.all.amount += owes;
      if (++owed.all.count <= most)
        owed.largest.push_back({accounts.text(0), accounts.text(1), owes,
                                daysOpen(db, accounts.text(0), owes, today, periodStart)});
    }
  });
  return owed;
}

int postingDue(Database& db) {
  int due = 0;
  guarded([&] { due = deletedInLedger(db); });
  return due;
}

std::string counted(int count, std::string_view one, std::string_view many) {
  return words(count == 1 ? one : many, "count", std::to_string(count));
}
