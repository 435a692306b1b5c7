#include "reports/outstanding.h"

#include <algorithm>

#include "base/text.h"
#include "frame/open_bills.h"
#include "store/balances.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/groups.h"
#include "store/row_writer.h"

namespace {

constexpr int kBillLength = 50;  // of CAL.PARTY_BL; the ledger's is longer
constexpr std::string_view kTakenOut = ",'()%@";

double clean(double sum) { return cleanSum(sum); }

std::string cleaned(std::string narration) {
  std::erase_if(narration, [](char c) { return kTakenOut.find(c) != std::string_view::npos; });
  return narration;
}

std::string shownBill(const std::string& bill) { return bill.empty() ? "." : cut(bill, kBillLength); }

std::vector<Row> customersOf(Database& db, const std::string& code, const ReportQuery& q) {
  Condition asked;
  if (!code.empty()) {
    asked.add("ACC_CD = ?", code);
  } else {
    asked.addFilled("ACC_CD = ?", q[kParty]).addFilled("AREA = ?", q[kCity]).addFilled("CITY = ?", q[kState]);
    asked.addFilled(underGroupAsked("GROUP_CD"), q[kCategory]).addFilled("ANOTHER_CD = ?", q[kSalesman]);
  }
  return db.all(
      "SELECT ACC_CD, OP_BAL, ACC_NAME, AREA, PHONE1, CITY FROM ACCOUNT"
      " WHERE " +
          underGroups("GROUP_CD", {85, 86}) + " AND " + balanceExpression(db) + " > 0" +
          (asked.empty() ? "" : " AND " + asked.text()) + " ORDER BY ACC_NAME, AREA, PHONE1, CITY, ACC_CD",
      asked.values());
}

std::set<std::string> partiesThatSettle(Database& db) {
  std::set<std::string> parties;
  if (!CheckTable(db, kSettlements)) return parties;
  for (auto r = db.query("SELECT DISTINCT PARTY_CD FROM SETTLES WHERE WHAT = 'B'"); r.next();)
    parties.insert(upper(r.text(0)));
  return parties;
}

}  // namespace

Receivables::Receivables(Database& db, const std::string& code, const ReportQuery& query)
    : db_(db),
      start_(query.periodStart),
      to_(query.to.ok() ? query.to : query.periodEnd),
      shownTo_(formatDate(to_, "dd/MMM/yyyy")),
      customers_(customersOf(db, code, query)),
      settling_(partiesThatSettle(db)) {
  db_.exec("DELETE FROM CAL");
  // The bills of one party are read by it.
  indexWorkTable(db_, "CAL", "PARTY_CD, VOUCH_DT");
}

bool Receivables::next() {
  if (next_ == customers_.size()) return false;
  ++next_;
  sums_ = {};
  open_.clear();
  Transaction all(db_, Transaction::Writes::WorkTables);
  if (settling_.contains(upper(customer().text("ACC_CD"))))
    matchSettled();
  else
    matchAll();
  insertMany(db_,
             "INSERT INTO CAL (VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD, PARTY_CD, CR, DR, CL_BAL, DATE_DIF,"
             " NARRATION, NARR1, BCK_BAL)",
             "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)", open_);
  all.commit();
  return true;
}

void Receivables::matchSettled() {
  for (const OpenBill& bill : openBills(db_, {.party = customer().text("ACC_CD"),
                                             .side = "D",
                                             .opening = customer().number("OP_BAL"),
                                             .start = start_,
                                             .to = to_})) {
    const bool opening = bill.voucher.book == kOpeningBook;
    open({.number = bill.voucher.number,
          .date = bill.date,
          .bill = shownBill(bill.bill),
          .book = bill.voucher.book,
          .amount = bill.amount,
          .narration = opening ? Value{} : Value(cleaned(bill.narration))},
         bill.paid);
  }
}

void Receivables::matchAll() {
  const double opening = customer().number("OP_BAL");
  const Standing standing = this->standing();
  const double credit = clean(standing.credits + std::max(-opening, 0.0));
  if (clean(standing.debits + std::max(opening, 0.0)) > credit)
    matchBills(standing.days, opening > 0 ? payOpening(credit) : credit);
}

// Read from the ledger's index alone, in its order.
Receivables::Standing Receivables::standing() const {
  Standing found;
  auto days = db_.query("SELECT VOUCH_DT, " + sumWhere(db_, "VOUCH_AMT", "VOUCH_TYPE = 'C'") + ", " +
                            sumWhere(db_, "VOUCH_AMT", "VOUCH_TYPE = 'D'") +
                            ", MIN(CASE WHEN VOUCH_TYPE = 'D' THEN VOUCH_AMT END)"
                            " FROM ALEDGER WHERE PARTY_CD = ? GROUP BY VOUCH_DT ORDER BY VOUCH_DT",
                        customer().value("ACC_CD"));
  const std::string to = isoDate(to_);
  while (days.next()) {
    found.credits += days.number(1);
    const std::string date = days.text(0);
    if (days.isNull(0) || days.isNull(2) || date > to) continue;
    found.debits += days.number(2);
    found.days.push_back({.date = date, .debits = days.number(2), .least = days.number(3)});
  }
  return found;
}

// What is left of the credits.
double Receivables::payOpening(double credit) {
  const double opening = customer().number("OP_BAL");
  if (credit >= clean(opening)) return clean(credit - opening);
  open({.date = isoDate(start_), .bill = " OP", .book = "OP", .amount = opening}, credit);
  return 0;
}

// Days whose bills are all paid, in whatever order, are passed by.
void Receivables::matchBills(const std::vector<Standing::Day>& days, double credit) {
  for (const auto& day : days) {
    const double left = clean(credit - day.debits);
    if (day.least < 0 || left < 0) return matchBillsFrom(day.date, credit);
    credit = left;
  }
}

void Receivables::matchBillsFrom(const std::string& date, double credit) {
  auto bills = db_.query(
      "SELECT VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD, VOUCH_AMT, NARRATION FROM ALEDGER WHERE PARTY_CD = ?"
      " AND VOUCH_TYPE = 'D' AND VOUCH_DT >= ? AND VOUCH_DT <= ? ORDER BY VOUCH_DT, PARTY_BL, rowid",
      customer().value("ACC_CD"), date, to_);
  for (bool first = true; bills.next();) {
    const double amount = bills.number(4);
    credit = clean(credit - amount);
    if (credit >= 0) continue;
    open({.number = bills.number(0),
          .date = bills.text(1),
          .bill = shownBill(bills.text(2)),
          .book = bills.text(3),
          .amount = amount,
          .narration = cleaned(bills.text(5))},
         first ? amount + credit : 0);
    first = false;
  }
}

void Receivables::open(const Bill& bill, double paid) {
  const auto day = parseDate(bill.date);
  paid = clean(paid);
  const double left = clean(bill.amount - paid);
  const int days = day ? daysBetween(*day, to_) : 0;
  open_.insert(open_.end(), {bill.number, bill.date, bill.bill, bill.book, customer().value("ACC_CD"),
                             bill.amount, paid, left, days, bill.narration, shownTo_, days});
  sums_.amount += bill.amount;
  sums_.paid += paid;
  sums_.open += left;
  ++sums_.bills;
}

bool ON_AC_RECEIVABLES(Database& db, const std::string& code, const ReportQuery& query) {
  Transaction all(db, Transaction::Writes::WorkTables);
  Receivables customers(db, code, query);
  while (customers.next()) {
  }
  all.commit();
  return !customers.none();
}
