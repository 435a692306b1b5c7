#pragma once

#include <string>
#include <vector>

#include "base/date.h"
#include "frame/open_bills.h"
#include "platform/grid.h"
#include "vouchers/settlements.h"

// The page of a money voucher that settles bills one by one: the party's open bills, the oldest first, with
// what is settled of each now, and a last row of totals. Amounts are in rupees to the paisa and never above
// what is open.
class BillsToSettle : public RowSource {
 public:
  enum Column { Bill, Day, Days, Amount, Open, Now, Left };

  void forget() { *this = {}; }
  // `settled` is what the voucher settles already: its bills are open to it for that much at least.
  void show(std::vector<OpenBill> bills, const std::vector<Settlement::Bill>& settled);
  void count(Date to) { to_ = to; }  // days are those until then

  size_t bills() const { return rows_.size(); }
  double open(size_t row) const { return rows_[row].open; }
  double now(size_t row) const { return rows_[row].now; }
  double settled() const;
  std::vector<Settlement::Bill> chosen() const;

  void put(size_t row, double amount) { rows_[row].now = amount; }
  void clear();
  void take(const std::vector<Settlement::Bill>& chosen);  // as far as they are open
  // In place of what stands: the one bill that is open for just this much, if there is one.
  void takeEqual(double amount);
  // In place of what stands: the oldest first.
  void spread(double amount);

  // What is typed into a row and not taken yet stands there in the place of its figure.
  struct Typed {
    size_t row = Grid::kNone;
    std::string text;
  };
  Typed typed;

  size_t count() const override { return rows_.empty() ? 0 : rows_.size() + 1; }
  Cell cell(size_t row, size_t column) const override;

 private:
  struct Line {
    VoucherKey voucher;
    std::string bill, date;
    double amount = 0, open = 0, now = 0;
  };
  double sum(double Line::*figure) const;
  Cell total(size_t column) const;

  std::vector<Line> rows_;
  Date to_{};
};
