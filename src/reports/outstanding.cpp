#include "reports/outstanding.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/number.h"
#include "base/text.h"

namespace {

constexpr int kBillLength = 50;  // of CAL.PARTY_BL; the ledger's is longer
constexpr std::string_view kTakenOut = ",'()%@";

struct Bill {
  double number = 0;
  std::string date, bill, book;
  double amount = 0;
  Value narration{};  // null for an opening balance
};

struct Customer {
  std::string code;
  double opening = 0;  // debit above 0
  double credits = 0, debits = 0;
  std::vector<Bill> bills{};
};

// A running sum of amounts in paise whose own small error must not leave a bill open.
double clean(double sum) { return Round(sum, 6); }

std::string cleaned(std::string narration) {
  std::erase_if(narration, [](char c) { return kTakenOut.find(c) != std::string_view::npos; });
  return narration;
}

// Of the walk through the ledger.
enum Column : int { kCode, kOpening, kSide, kAmount, kNumber, kDate, kBill, kBook, kNarration };

Statement ledgerOf(const std::string& code, const ReportQuery& q, Date to) {
  Condition customers;
  if (!code.empty()) {
    customers.add("ACC_CD = ?", code);
  } else {
    customers.addFilled("ACC_CD = ?", q[kParty])
        .addFilled("AREA = ?", q[kCity])
        .addFilled("CITY = ?", q[kState]);
    customers.addFilled("GROUP_CD = VAL(?)", q[kCategory]).addFilled("ANOTHER_CD = ?", q[kSalesman]);
  }
  std::vector<Value> values = {to};
  values.insert(values.end(), customers.values().begin(), customers.values().end());
  // All of the ledger that is asked for by one walk in order: a customer's entries stand together.
  return {.text =
              "SELECT ACC_CD, OP_BAL, VOUCH_TYPE, VOUCH_AMT, VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD, NARRATION"
              " FROM ACCOUNT LEFT JOIN ALEDGER ON ALEDGER.PARTY_CD = ACCOUNT.ACC_CD"
              " AND (VOUCH_TYPE = 'C' OR VOUCH_TYPE = 'D' AND VOUCH_DT <= ?)"
              " WHERE (GROUP_CD = 85 OR GROUP_CD = 86) AND CL_BAL > 0" +
              (customers.empty() ? "" : " AND " + customers.text()) +
              " ORDER BY ACC_CD, VOUCH_DT, PARTY_BL, ALEDGER.rowid",
          .values = values};
}

class Matching {
 public:
  Matching(Database& db, Date start, Date to)
      : db_(db), start_(start), to_(to), shownTo_(formatDate(to, "dd/MMM/yyyy")) {}

  void match(const Customer& c) {
    double credit = clean(c.credits + std::max(-c.opening, 0.0));
    if (clean(c.debits + std::max(c.opening, 0.0)) <= credit) return;
    if (c.opening > 0) {
      if (credit < clean(c.opening)) {
        open(c, {.date = isoDate(start_), .bill = " OP", .book = "OP", .amount = c.opening}, credit);
        credit = 0;
      } else {
        credit = clean(credit - c.opening);
      }
    }
    bool first = true;
    for (const Bill& bill : c.bills) {
      credit = clean(credit - bill.amount);
      if (credit >= 0) continue;
      open(c, bill, first ? bill.amount + credit : 0);
      first = false;
    }
  }

 private:
  void open(const Customer& c, const Bill& bill, double paid) {
    const auto day = parseDate(bill.date);
    db_.exec(
        "INSERT INTO CAL (VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD, PARTY_CD, CR, DR, CL_BAL, DATE_DIF,"
        " NARRATION, NARR1, BCK_BAL) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?9)",
        bill.number, bill.date, bill.bill, bill.book, c.code, bill.amount, clean(paid),
        clean(bill.amount - paid), day ? daysBetween(*day, to_) : 0, bill.narration, shownTo_);
  }

  Database& db_;
  Date start_, to_;
  std::string shownTo_;
};

void take(Customer& c, const Rows& entry) {
  const double amount = entry.number(kAmount);
  if (sameText(entry.text(kSide), "C")) {
    c.credits += amount;
    return;
  }
  const std::string bill = entry.text(kBill);
  c.debits += amount;
  c.bills.push_back({
      .number = entry.number(kNumber),
      .date = entry.text(kDate),
      .bill = bill.empty() ? "." : cut(bill, kBillLength),
      .book = entry.text(kBook),
      .amount = amount,
      .narration = cleaned(entry.text(kNarration)),
  });
}

}  // namespace

bool ON_AC_RECEIVABLES(Database& db, const std::string& code, const ReportQuery& query) {
  const Date to = query.to.ok() ? query.to : query.periodEnd;
  const Statement ledger = ledgerOf(code, query, to);
  Transaction all(db);
  db.exec("DELETE FROM CAL");
  // The bills of one party are read by it.
  db.exec("CREATE INDEX IF NOT EXISTS temp.CAL_PARTY ON CAL (PARTY_CD, VOUCH_DT)");
  Matching matching(db, query.periodStart, to);
  std::optional<Customer> customer;
  for (auto rows = db.query(ledger.text, ledger.values); rows.next();) {
    const std::string owner = rows.text(kCode);
    if (!customer || customer->code != owner) {
      if (customer) matching.match(*customer);
      customer = Customer{.code = owner, .opening = rows.number(kOpening)};
    }
    if (!rows.isNull(kSide)) take(*customer, rows);
  }
  if (customer) matching.match(*customer);
  all.commit();
  return customer.has_value();
}
