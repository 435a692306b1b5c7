#include "frame/open_bills.h"

#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "frame/posting_due.h"
#include "frame/voucher_kinds.h"
#include "store/dictionary.h"
#include "store/engine.h"

namespace {

bool isSame(const VoucherKey& a, const VoucherKey& b) {
  return a.number == b.number && sameText(a.book, b.book);
}

// All that stands on the side of the bills, and the sum of the other one.
struct Entries {
  std::vector<OpenBill> bills;
  double money = 0;
};

Entries entriesOf(Database& db, const BillsOf& of) {
  Entries found;
  const std::string deleted = of.standing ? deletedVoucher(db, "ALEDGER") : "",
                    stands = deleted.empty() ? "" : " AND NOT (" + deleted + ")";
  auto rows = db.query(
      "SELECT VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD, VOUCH_AMT, NARRATION FROM ALEDGER WHERE PARTY_CD = ?"
      " AND VOUCH_TYPE = ?" +
          stands + " ORDER BY VOUCH_DT, PARTY_BL, rowid",
      of.party, of.side);
  while (rows.next()) {
    OpenBill bill{
        .voucher = {.book = rows.text(3), .number = rows.number(0)},
        .date = rows.text(1),
        .bill = rows.text(2),
        .amount = rows.number(4),
        .narration = rows.text(5)
    };
    if (!of.without || !isSame(*of.without, bill.voucher)) found.bills.push_back(std::move(bill));
  }
  std::string money = "SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = ?" + stands;
  std::vector<Value> values{of.party, of.side == "D" ? "C" : "D"};
  if (of.without) {
    money += " AND NOT (VOUCH_NO = ? AND BOOK_CD = ?)";
    values.insert(values.end(), {of.without->number, of.without->book});
  }
  found.money = cleanSum(db.number(money, values));
  return found;
}

}  // namespace

double cleanSum(double sum) { return Round(sum, 6); }

double OpenBill::open() const { return cleanSum(amount - paid); }

SettledBills::SettledBills(Database& db, const BillsOf& of) {
  if (!CheckTable(db, kSettlements)) return;
  auto rows = db.query(
      "SELECT BOOK_CD, VOUCH_NO, BILL_BOOK, BILL_VNO, AMOUNT FROM SETTLES WHERE PARTY_CD = ? AND WHAT = 'B'",
      of.party);
  while (rows.next()) {
    const VoucherKey settling{.book = rows.text(0), .number = rows.number(1)};
    if (of.without && isSame(*of.without, settling)) continue;
    // Of a pair the voucher on the other side is the money.
    const VoucherKind* const kind = kindByBook(settling.book);
    const bool isMoney = !kind || kind->ledger.partySide != of.side;
    const VoucherKey bill = isMoney ? VoucherKey{rows.text(2), rows.number(3)} : settling;
    left_[{upper(bill.book), bill.number}] += rows.number(4);
  }
}

double SettledBills::take(const VoucherKey& voucher, double most) {
  if (left_.empty() || most <= 0) return 0;
  const auto found = left_.find({upper(voucher.book), voucher.number});
  if (found == left_.end()) return 0;
  const double taken = std::min(cleanSum(found->second), most);
  found->second -= taken;
  return taken;
}

std::vector<OpenBill> openBills(Database& db, const BillsOf& of) {
  const double opening = of.side == "D" ? of.opening : -of.opening;
  Entries entries = entriesOf(db, of);
  if (opening > 0)
    entries.bills.insert(entries.bills.begin(), {
                                                    .voucher = {.book = kOpeningBook, .number = 0},
                                                    .date = isoDate(of.start),
                                                    .bill = " OP",
                                                    .amount = opening
    });
  SettledBills settled(db, of);
  double money = entries.money + std::max(-opening, 0.0);
  for (OpenBill& bill : entries.bills) {
    bill.paid = settled.take(bill.voucher, bill.amount);
    money -= bill.paid;
  }
  money = cleanSum(money);
  const std::string to = of.to ? isoDate(*of.to) : "";
  std::vector<OpenBill> open;
  bool first = true;
  for (OpenBill& bill : entries.bills) {
    if (!to.empty() && bill.date > to) continue;
    const double left = bill.open();
    money = cleanSum(money - left);
    if (money >= 0 || left == 0) continue;
    if (first) bill.paid = cleanSum(bill.paid + left + money);
    first = false;
    open.push_back(std::move(bill));
  }
  return open;
}
