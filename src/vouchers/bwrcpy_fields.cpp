#include <algorithm>

#include "base/figure.h"
#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/money_modes.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "masters/accounts.h"
#include "store/balances.h"
#include "store/groups.h"
#include "vouchers/accounts.h"
#include "vouchers/bwrcpy.h"

// What Enter does in each field.

using namespace fields;

namespace {

bool chequeIsTyped(const std::string& text) { return !text.empty() && text != "."; }

}  // namespace

Go bwrcpy::voucherDate() {
  const auto typed = date(kDate);
  if (!typed) return dateStands();
  const std::string refusal = period_.refusal(*typed);
  bills_->count(*typed);
  if (refusal.empty()) return Go::On;
  host.message(refusal, kMessageTitle);
  return Go::Stay;
}

bool bwrcpy::showAccount(const Side& side) {
  const std::string code = fullCode(data(), trimmed(side.code));
  if (code != trimmed(side.code)) put(side.code, code);
  const auto account = findAccount(data(), code);
  put(side.name, account ? account->text("ACC_NAME") : "");
  // Every bill may have a row in the ledger of an account whose balance is not shown.
  if (side.balance != FieldName{}) put(side.balance, account ? numText(ledgerBalance(data(), code)) : "");
  return account && !trim(account->text("ACC_NAME")).empty();
}

bool bwrcpy::sameCodes() const { return sameText(trimmed(kAccount), trimmed(kParty)); }

Go bwrcpy::refuseSame(const Side& side) {
  host.message(" BOTH THE CODE CAN NOT BE SAME");
  for (const FieldName field : {side.code, side.name, side.balance}) put(field, "");
  return Go::Stay;
}

// The account is off until it is asked for, since nearly all money goes over the cash account.
void bwrcpy::chooseAccount() {
  if (!entering()) return;
  accountBefore_ = trimmed(kAccount);
  at(kAccount).enabled = true;
  focus(at(kAccount));
}

// Whichever way the focus goes, only a cash or bank account stays behind.
void bwrcpy::leaveAccount() {
  at(kAccount).enabled = false;
  if (!isCashOrBank(data(), trimmed(kAccount))) put(kAccount, accountBefore_);
  showAccount(kCashSide);
  layOut();
}

Go bwrcpy::account() {
  if (trimmed(kAccount).empty())
    return lookUp(host, *this, here(),
                  accounts({{"ACC_CD"}, {"acc_name"}, {"AREA"}, {"CITY"}, {"group_cd"}, balanceColumn()},
                           underGroups("GROUP_CD", {87, 88, 127})));
  if (!showAccount(kCashSide)) {
    host.message("PARTY DOES NOT EXIST");
    return Go::Stay;
  }
  if (!isCashOrBank(data(), trimmed(kAccount))) {
    host.message("Cash / Bank Takes A Cash Or Bank Account\nEmpty It And Press Enter For Help",
                 kMessageTitle);
    return Go::Stay;
  }
  if (sameCodes()) return refuseSame(kCashSide);
  focus(at(kParty));
  return Go::Stay;
}

Go bwrcpy::party() {
  if (trimmed(kParty).empty())
    return lookUp(
        host, *this, here(),
        accounts({{"ACC_CD"}, {"acc_name"}, {"AREA"}, {"CITY"}, {"group_cd"}, {"PERSON_NM"}, balanceColumn()},
                 kind_.party.offered));
  if (!showAccount(kOtherSide)) {
    host.message("PARTY DOES NOT EXIST");
    return Go::Stay;
  }
  if (sameCodes()) return refuseSame(kOtherSide);
  session().mlastacc = trimmed(kParty);
  readBills();
  focus(at(at(kMode).visible ? kMode : kAmount));
  return Go::Stay;
}

Go bwrcpy::amount() {
  const std::string refusal = refusalOf(kAmount, false);
  if (refusal.empty()) return Go::On;
  host.message(refusal);
  return Go::Stay;
}

std::string bwrcpy::refusalOf(FieldName figure, bool mayBeNil) const {
  const double typed = value(figure);
  if (figureRefused(text(figure))) return kFigureRefused;
  if (typed < 0 || (typed == 0 && !mayBeNil)) return english("CAN NOT ACCEPT");
  return typed == Round(typed, 2) ? "" : english("An Amount Has Two Decimals");
}

Go bwrcpy::remarks() {
  if (!entering()) return Go::On;
  allowUpdate(true);
  focus(at("cmdUpdate"));
  return Go::Stay;
}

// Also where it is empty it opens Update, as Enter does.
Go bwrcpy::remarksTab() {
  if (entering()) enterAgain(here());
  return entering() ? Go::Stay : Go::On;
}

// How it is paid

// Over a bank the form asks how, and takes what is deducted; over cash only where bills are asked for.
void bwrcpy::layOut() {
  const bool bank = !mode.empty() && isBank(data(), trimmed(kAccount));
  for (const FieldName field : {kMode, kModeName, kCheque, kChequeDate}) at(field).visible = bank;
  // What was typed over a bank is not lost over cash.
  asked_ = asked_ || bills_->settled() > 0 || deducted() > 0;
  wide_ = bank || asked_;
  for (const Deduction& d : deductions()) {
    const bool taken = wide_ && (kind_.party.hasBills || d.what == "T");
    for (const FieldName field : {d.amount, d.account, d.name}) at(field).visible = taken;
    if (!taken) put(d.amount, "");
    if (taken && trimmed(d.account).empty()) showDeductionAccount(d, ::settingOf(data(), settingOf(d)));
  }
  for (const FieldName field : {kToSettle, kSettled, kOnAccount})
    at(field).visible = wide_ && kind_.party.hasBills;
  if (bank && trimmed(kMode).empty()) proposeMode();
  if (!bank) {
    for (const FieldName field : {kMode, kModeName}) put(field, "");
    emptyCheque();
  }
  openCheque();
  if (wide_ != pages_) showBillPage(wide_ && kind_.party.hasBills);
  pages_ = wide_;
  readBills();
}

void bwrcpy::openCheque() {
  const MoneyMode* const mode = moneyModeTyped(trimmed(kMode));
  for (const FieldName field : {kCheque, kChequeDate}) {
    at(field).enabled = entering() && mode && mode != moneyModes().data();
  }
  if (mode == moneyModes().data()) emptyCheque();
}

void bwrcpy::emptyCheque() {
  put(kCheque, "");
  put(kChequeDate, std::optional<Date>{});
}

// As the last one of the kind over the same account was paid.
void bwrcpy::proposeMode() {
  const auto last = data().first(
      "SELECT VOUCH_TYPE FROM RPTPAY WHERE BOOK_CD = ? AND CSHBNK_CD = ? ORDER BY VOUCH_NO DESC LIMIT 1",
      kind_.code, trimmed(kAccount));
  showMode(last && last->text(0) != "." ? last->text(0) : "CQ");
}

void bwrcpy::showMode(const std::string& code) {
  for (size_t i = 0; i < moneyModes().size(); ++i)
    if (sameText(moneyModes()[i].code, code)) put(kMode, std::to_string(i + 1));
  put(kModeName, moneyModeName(code));
}

std::string bwrcpy::payModes() {
  std::vector<std::string> all;
  for (const MoneyMode& mode : moneyModes())
    all.push_back(std::to_string(all.size() + 1) + " = " + words(mode.name));
  return join(all, " :: ");
}

Go bwrcpy::payMode() {
  const MoneyMode* const mode = moneyModeTyped(trimmed(kMode));
  if (!mode) {
    host.message(payModes(), kMessageTitle);
    return Go::Stay;
  }
  showMode(std::string(mode->code));
  openCheque();
  return Go::On;
}

Go bwrcpy::chequeDate() {
  if (text(kChequeDate).empty() || text(kChequeDate) == kEmptyDate) put(kChequeDate, date(kDate));
  return dateStands();
}

Fields bwrcpy::paidBy() const {
  const MoneyMode* const mode = at(kMode).visible ? moneyModeTyped(trimmed(kMode)) : nullptr;
  if (!mode || mode == moneyModes().data()) return {};
  const std::string cheque = trimmed(kCheque);
  return {
      {"VOUCH_TYPE", std::string(mode->code)                              },
      {"CHQ_NO",     chequeIsTyped(cheque) ? cheque : std::string(".")    },
      {"CHQ_CLG_DT", date(kChequeDate) ? *date(kChequeDate) : *date(kDate)}
  };
}

// What is deducted

std::span<const bwrcpy::Deduction> bwrcpy::deductions() {
  // clang-format off
  static const Deduction all[] = {
      {"D", kDiscountAmount, kDiscountAccount, kDiscountAccountName, kDiscountAllowed, kDiscountReceived, underGroups("GROUP_CD", {1, 2, 3, 4})},
      {"W", kWriteOff,       kWriteOffAccount, kWriteOffAccountName, kWrittenOff,      kWrittenBack,      underGroups("GROUP_CD", {1, 2, 3, 4})},
      {"T", kTds,            kTdsAccount,      kTdsAccountName,      kTdsReceivable,   kTdsPayable,       "(GROUP_CD IN (78, 130) OR " + underGroups("GROUP_CD", {77, 81, 132, 133}) + ")"},
  };
  // clang-format on
  return all;
}

const bwrcpy::Deduction& bwrcpy::deductionHere() const {
  return *std::ranges::find_if(deductions(),
                               [&](const Deduction& d) { return isHere(d.amount) || isHere(d.account); });
}

std::string_view bwrcpy::settingOf(const Deduction& d) const {
  return kind_.ledger.partySide == "C" ? d.received : d.paid;
}

bool bwrcpy::showDeductionAccount(const Deduction& d, const std::string& code) {
  put(d.account, code);
  return showAccount({d.account, d.name, {}});
}

Go bwrcpy::deduction() {
  const Deduction& d = deductionHere();
  const std::string refusal = refusalOf(d.amount, true);
  if (!refusal.empty()) {
    host.message(refusal);
    return Go::Stay;
  }
  showSums();
  if (value(d.amount) == 0 || showAccount({d.account, d.name, {}})) return Go::On;
  if (leaving()) return Go::On;
  chooseDeduction();
  return Go::Stay;
}

void bwrcpy::chooseDeduction() {
  const Deduction& d = deductionHere();
  if (!entering()) return;
  at(d.account).enabled = true;
  focus(at(d.account));
  if (trimmed(d.account).empty()) enterAgain(at(d.account));
}

Go bwrcpy::deductionAccount() {
  const Deduction& d = deductionHere();
  if (trimmed(d.account).empty())
    return lookUp(host, *this, here(),
                  accounts({{"ACC_CD"}, {"acc_name"}, {"group_cd"}, balanceColumn()}, d.offered));
  if (showAccount({d.account, d.name, {}}) && !sameText(trimmed(d.account), trimmed(kParty)) &&
      !isCashOrBank(data(), trimmed(d.account)))
    return Go::On;
  host.message("Discount, Write Off And TDS Take An Account Of Their Own\nEmpty It And Press Enter For Help",
               kMessageTitle);
  return Go::Stay;
}

void bwrcpy::leaveDeduction() {
  const Deduction& d = deductionHere();
  at(d.account).enabled = false;
  if (trimmed(d.name).empty()) showDeductionAccount(d, ::settingOf(data(), settingOf(d)));
}
