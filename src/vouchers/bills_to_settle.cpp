#include "vouchers/bills_to_settle.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"

namespace {

constexpr Bgr kTotalGround = 0xFFE0E0, kTypingGround = 0xFFC0FF;

using BillKey = std::pair<std::string, double>;
BillKey keyOf(const VoucherKey& voucher) { return {upper(voucher.book), voucher.number}; }

// Under which name the party knows it.
std::string nameOf(const VoucherKey& voucher, const std::string& bill) {
  if (voucher.book == kOpeningBook) return words("Opening");
  const VoucherKind* const kind = kindByBook(voucher.book);
  const std::string own = trim(bill);
  if (kind && kind->tables.heads == "SALE" && !own.empty() && own != ".")
    return kind->isNote() ? voucher.book + " " + own : own;  // notes have numbers that bills have, too
  return voucher.book + " " + numText(voucher.number);
}

}  // namespace

void BillsToSettle::show(std::vector<OpenBill> bills, const std::vector<Settlement::Bill>& settled) {
  rows_.clear();
  typed = {};
  std::map<BillKey, size_t> places;  // a voucher of several rows is one bill
  for (const OpenBill& bill : bills) {
    const auto [place, fresh] = places.try_emplace(keyOf(bill.voucher), rows_.size());
    if (fresh)
      rows_.push_back({.voucher = bill.voucher, .bill = nameOf(bill.voucher, bill.bill), .date = bill.date});
    Line& line = rows_[place->second];
    line.amount = cleanSum(line.amount + bill.amount);
    line.open = cleanSum(line.open + bill.open());
  }
  for (const Settlement::Bill& own : settled) {
    const auto [place, fresh] = places.try_emplace(keyOf(own.voucher), rows_.size());
    if (fresh)
      rows_.push_back({.voucher = own.voucher, .bill = nameOf(own.voucher, ""), .amount = own.amount});
    Line& line = rows_[place->second];
    line.now = own.amount;
    line.open = std::max(line.open, own.amount);
  }
}

double BillsToSettle::sum(double Line::*figure) const {
  double all = 0;
  for (const Line& line : rows_) all += line.*figure;
  return cleanSum(all);
}

double BillsToSettle::settled() const { return sum(&Line::now); }

std::vector<Settlement::Bill> BillsToSettle::chosen() const {
  std::vector<Settlement::Bill> all;
  for (const Line& line : rows_)
    if (line.now > 0) all.push_back({line.voucher, line.now});
  return all;
}

void BillsToSettle::clear() {
  typed = {};
  for (Line& line : rows_) line.now = 0;
}

void BillsToSettle::take(const std::vector<Settlement::Bill>& chosen) {
  std::map<BillKey, double> amounts;
  for (const Settlement::Bill& bill : chosen) amounts[keyOf(bill.voucher)] = bill.amount;
  for (Line& line : rows_)
    if (const auto own = amounts.find(keyOf(line.voucher)); own != amounts.end())
      line.now = std::clamp(own->second, 0.0, std::max(line.open, 0.0));
}

void BillsToSettle::takeEqual(double amount) {
  clear();
  const auto equal = [&](const Line& line) { return cleanSum(line.open - amount) == 0; };
  const auto found = std::ranges::find_if(rows_, equal);
  if (found != rows_.end() && std::ranges::count_if(rows_, equal) == 1) found->now = amount;
}

void BillsToSettle::spread(double amount) {
  typed = {};
  for (Line& line : rows_) {
    line.now = std::clamp(cleanSum(amount), 0.0, std::max(line.open, 0.0));
    amount -= line.now;
  }
}

Cell BillsToSettle::total(size_t column) const {
  Cell cell{.back = kTotalGround, .bold = true};
  const auto figure = [&](double value) { cell.text = Format(value, "0.00"); };
  if (column == Bill) cell.text = words("Total :");
  if (column == Amount) figure(sum(&Line::amount));
  if (column == Open) figure(sum(&Line::open));
  if (column == Now) figure(settled());
  if (column == Left) figure(sum(&Line::open) - settled());
  return cell;
}

Cell BillsToSettle::cell(size_t row, size_t column) const {
  if (row == rows_.size()) return total(column);
  const Line& line = rows_[row];
  const auto day = parseDate(line.date);
  const auto figure = [](double value) { return Cell{.text = Format(value, "0.00")}; };
  switch (column) {
    case Bill:
      return {.text = line.bill};
    case Day:
      return {.text = day ? formatDate(*day, "dd/MMM/yyyy") : ""};
    case Days:
      return {.text = day && to_.ok() ? std::to_string(daysBetween(*day, to_)) : ""};
    case Amount:
      return figure(line.amount);
    case Open:
      return figure(line.open);
    case Now:
      if (typed.row == row) return {.text = typed.text, .back = kTypingGround, .bold = true};
      return line.now > 0 ? figure(line.now) : Cell{};
    default:
      return figure(line.open - line.now);
  }
}
