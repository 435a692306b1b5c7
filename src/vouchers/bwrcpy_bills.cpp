#include <algorithm>

#include "base/figure.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/money_modes.h"
#include "frame/session.h"
#include "platform/utf8.h"
#include "vouchers/bwrcpy.h"

// The page of the bills that the voucher settles, and the sums under the form.

using namespace fields;

namespace {

constexpr Bgr kNothingWrong = kWhite, kTooMuch = 0xB3E3FF;

}  // namespace

// The page

void bwrcpy::showBillPage(bool bills) {
  const bool pages = wide_ && hasBills();
  at(kBills).visible = pages && bills;
  at("DataGrid1").visible = !at(kBills).visible;
  for (const char* tab : {"cmdbills", "cmdlast"}) at(tab).visible = pages;
  at("cmdbills").style = bills ? Style::Primary : Style::Normal;
  at("cmdlast").style = bills ? Style::Normal : Style::Primary;
}

void bwrcpy::showVouchers() { showBillPage(false); }

void bwrcpy::showBills() {
  showBillPage(true);
  focus(at(kBills));
}

// Also over cash, once it is asked for; of what has no bills the tax that is kept back.
Go bwrcpy::toBills() {
  if (!entering() || focused() == &at(kBills)) return Go::On;
  if (!hasBills()) {
    asked_ = true;
    layOut();
    focus(at(kTds));
    return Go::Stay;
  }
  if (!showAccount(kOtherSide)) {
    host.message("Type The Party First", kMessageTitle);
    focus(at(kParty));
    return Go::Stay;
  }
  asked_ = true;
  layOut();
  if (bills_->bills() == 0) {
    reason = words("No Open Bill :: All Of It Goes On Account");
    return Go::Stay;
  }
  showBills();
  return Go::Stay;
}

// Read once for a party, and again when it changes; what was settled of another's is gone then.
void bwrcpy::readBills(const std::vector<Settlement::Bill>& settled) {
  if (const auto day = date(kDate)) bills_->count(*day);
  if (!wide_ || !hasBills()) return;
  const std::string party = upper(trimmed(kParty));
  if (party == billsOf_ && bills_->bills() > 0) return;
  billsOf_ = party;
  const auto account = data().first("SELECT OP_BAL FROM ACCOUNT WHERE ACC_CD = ?", party);
  BillsOf of{.party = party, .side = kind_.ledger.otherSide(), .start = session().mstartdt, .standing = true};
  if (account) of.opening = account->number(0);
  if (loaded_ != 0) of.without = VoucherKey{kind_.code, loaded_};
  const Busy busy(host);
  bills_->show(account ? openBills(data(), of) : std::vector<OpenBill>{}, settled);
  at(kBills).grid.moveTo(0);
  showSums();
}

void bwrcpy::showSettlement(const Row& voucher) {
  const Settlement stored = readSettlement(data(), kind_, loaded_);
  asked_ = !stored.empty();
  layOut();
  if (at(kMode).visible) {
    const std::string cheque = voucher.text("CHQ_NO");
    const bool paid = voucher.text("VOUCH_TYPE") != ".";
    showMode(voucher.text("VOUCH_TYPE"));
    put(kCheque, cheque == "." ? "" : cheque);
    if (paid) put(kChequeDate, voucher.date("CHQ_CLG_DT"));
    openCheque();
  }
  for (const auto& taken : stored.deductions)
    for (const Deduction& d : deductions())
      if (d.what == taken.what) {
        put(d.amount, taken.amount);
        showDeductionAccount(d, taken.account);
      }
  bills_->forget();
  readBills(stored.bills);
  showSums();
}

// What is typed into a row

void bwrcpy::typed(Control& grid, char32_t ch) {
  if (&grid != &at(kBills) || !entering() || grid.grid.current >= bills_->bills()) return;
  const char32_t digit = filtered(KeyClass::Number, plainDigit(ch));
  if (digit == 0 || digit == U'-') return;
  if (bills_->typed.row != grid.grid.current) bills_->typed = {.row = grid.grid.current, .text = {}};
  constexpr int kMost = 15;
  if (length(bills_->typed.text) < kMost) bills_->typed.text += utf8::encode(digit);
}

Go bwrcpy::typedBack() {
  std::string& text = bills_->typed.text;
  if (bills_->typed.row == at(kBills).grid.current && !text.empty()) text.pop_back();
  return Go::Stay;
}

std::string bwrcpy::refusalOfRow(size_t row, const std::string& text) const {
  const double amount = Val(text);
  if (!isNumberText(text)) return kFigureRefused;
  if (amount != Round(amount, 2)) return english("An Amount Has Two Decimals");
  if (amount > std::max(bills_->open(row), 0.0))
    return words("Of This Bill {amount} Is Open", "amount", indianGroups(Format(bills_->open(row), "0.00")));
  return {};
}

// Whichever way the cursor goes, what was typed counts; what the bill refuses stays to be mended.
bool bwrcpy::typedStands() {
  const BillsToSettle::Typed typed = std::exchange(bills_->typed, {});
  if (typed.row >= bills_->bills() || typed.text.empty()) return true;
  const std::string refusal = refusalOfRow(typed.row, typed.text);
  if (refusal.empty()) {
    bills_->put(typed.row, Val(typed.text));
    showSums();
    return true;
  }
  bills_->typed = typed;
  at(kBills).grid.moveTo(typed.row);
  host.message(refusal, kMessageTitle);
  return false;
}

void bwrcpy::takeTyped() { (void)typedStands(); }

Go bwrcpy::settleRow() {
  Grid& grid = at(kBills).grid;
  if (!entering()) return Go::Stay;
  if (grid.current >= bills_->bills()) return toForm();
  if (bills_->typed.row == grid.current && !bills_->typed.text.empty()) {
    if (!typedStands()) return Go::Stay;
  } else if (bills_->now(grid.current) == 0) {
    settleWhole();
  }
  grid.moveTo(grid.current + 1);
  return Go::Stay;
}

// Of a bill that is larger than what is left that rest; without an amount yet, all of it.
void bwrcpy::settleWhole() {
  const size_t row = at(kBills).grid.current;
  if (!entering() || row >= bills_->bills() || bills_->now(row) != 0) return;
  const double open = std::max(bills_->open(row), 0.0);
  bills_->put(row, value(kAmount) > 0 ? std::clamp(onAccount(), 0.0, open) : open);
  showSums();
  if (bills_->now(row) == 0) reason = words("Nothing Is Left To Settle");
}

Go bwrcpy::freeRow() {
  const size_t row = at(kBills).grid.current;
  if (entering() && row < bills_->bills()) {
    bills_->typed = {};
    bills_->put(row, 0);
    showSums();
  }
  return Go::Stay;
}

void bwrcpy::oldestFirst() {
  if (!entering()) return;
  if (toSettle() <= 0) {
    host.message("Type The Amount First", kMessageTitle);
    toForm();
    return;
  }
  bills_->spread(toSettle());
  showSums();
}

void bwrcpy::freeAll() {
  if (!entering()) return;
  bills_->clear();
  showSums();
}

// From the first row the page is left; further down it scrolls.
Go bwrcpy::pageBack() {
  const size_t row = at(kBills).grid.current;
  return row == 0 || row == Grid::kNone ? toForm() : Go::On;
}

// Without an amount yet what was settled is proposed.
Go bwrcpy::toForm() {
  if (!typedStands()) return Go::Stay;
  if (entering() && trimmed(kAmount).empty() && bills_->settled() > deducted()) {
    put(kAmount, cleanSum(bills_->settled() - deducted()));
    showSums();
  }
  focus(at(kAmount).focusable() ? at(kAmount) : at("cmdCancel"));
  return Go::Stay;
}

// Sums

double bwrcpy::deducted() const {
  double sum = 0;
  for (const Deduction& d : deductions())
    if (at(d.amount).visible) sum += value(d.amount);
  return cleanSum(sum);
}

double bwrcpy::toSettle() const { return cleanSum(value(kAmount) + deducted()); }
double bwrcpy::onAccount() const { return cleanSum(toSettle() - bills_->settled()); }

void bwrcpy::showSums() {
  put(kToSettle, toSettle());
  put(kSettled, bills_->settled());
  put(kOnAccount, onAccount());
  at(kOnAccount).back = onAccount() < 0 ? kTooMuch : kNothingWrong;
  if (at("cmdUpdate").enabled) reason = advance();
}

// What is left of the money beside the bills that are settled.
std::string bwrcpy::advance() const {
  if (!wide_ || !hasBills() || onAccount() <= 0) return {};
  return words("{amount} Goes On Account As An Advance", "amount", indianGroups(Format(onAccount(), "0.00")));
}

Settlement bwrcpy::settlement() const {
  if (!wide_) return {};
  Settlement settles{.bills = bills_->chosen()};
  for (const Deduction& d : deductions())
    if (at(d.amount).visible && value(d.amount) > 0)
      settles.deductions.push_back({d.what, upper(trimmed(d.account)), value(d.amount)});
  return settles;
}

std::string bwrcpy::settlementText() const {
  std::string all = bills_->typed.text;
  for (const auto& bill : bills_->chosen())
    all += bill.voucher.book + numText(bill.voucher.number) + "=" + numText(bill.amount) + " ";
  return all;
}
