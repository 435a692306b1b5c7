#include "base/words.h"
#include "frame/money_modes.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "vouchers/bwrcpy.h"
#include "vouchers/numbering.h"

// From Update to the closing message.

using namespace fields;

namespace {

constexpr const char* kCheck = english("Mirav Check");
constexpr Bgr kOkColour = 0xFFF0F0, kSecondColour = 0xFFD0D0;

}  // namespace

// With the work of what was typed and not yet left.
void bwrcpy::saveAtOnce() {
  if (!entering()) return;
  for (const auto& c : controls)
    if (!work(*c)) return focus(*c);
  allowUpdate(true);
  focus(at("cmdUpdate"));
  update();
}

void bwrcpy::update() {
  if (!entering()) return;
  const bool complete =
      value(kNumber) != 0 && !trimmed(kAccount).empty() && !trimmed(kParty).empty() && date(kDate);
  if (!complete || !showAccount(kCashSide) || !showAccount(kOtherSide)) {
    host.message("Invalid Entry", kCheck);
    return;
  }
  // The number was changed after its voucher was shown: that one is shown before anything is written.
  if (mode == "EDIT" && value(kNumber) != loaded_) {
    enterNumber();
    return;
  }
  if (sameCodes()) {
    refuseSame(kOtherSide);
    focus(at(kParty));
    return;
  }
  if (amount() == Go::Stay) {
    focus(at(kAmount));
    return;
  }
  if (!settlementStands()) return;
  const auto question = mode == "EDIT"
                            ? settledQuestion(data(), {kind_.code, loaded_}, trimmed(kParty), toSettle())
                            : std::nullopt;
  if (question && !host.ask(*question)) return;
  store();
}

// Each deduction has its account, and no more is settled than is paid.
bool bwrcpy::settlementStands() {
  if (!typedStands()) {
    showBillPage(true);
    focus(at(kBills));
    return false;
  }
  if (at(kMode).visible && !moneyModeTyped(trimmed(kMode))) {
    host.message(payModes(), kCheck);
    focus(at(kMode));
    return false;
  }
  for (const Deduction& d : deductions()) {
    if (!at(d.amount).visible) continue;
    const std::string refusal = refusalOf(d.amount, true);
    const bool lacks = value(d.amount) > 0 && !showAccount({d.account, d.name, {}});
    if (refusal.empty() && !lacks) continue;
    host.message(lacks ? english("Choose The Account First\nF5 Opens It") : refusal, kCheck);
    focus(at(d.amount));
    return false;
  }
  if (onAccount() >= 0) return true;
  host.message("More Is Settled Than Is Paid\nLower What Is Settled, Or F8 To Begin Again", kCheck);
  showBillPage(true);
  focus(at(kBills));
  return false;
}

void bwrcpy::store() {
  const bool fresh = mode == "ADD";
  const std::string number = text(kNumber);
  const Settlement settles = settlement();
  if (!settles.empty()) ensureSettlements(data());
  const auto stored = [&] {
    if (fresh && isStored(data(), kind_, value(kNumber))) put(kNumber, lastVoucher(data(), kind_).number + 1);
    Fields row = writtenFields(Part::Head);
    for (Field& paid : paidBy()) row.push_back(std::move(paid));
    rememberAccounts(settles);
    return saveMoneyVoucher(data(), kind_, row, fresh ? Saving::Fresh : Saving::over(asLoaded_), settles);
  };
  bool written = false;
  try {
    const Busy busy(host);
    written = whole(data(), stored);
  } catch (const SettledElsewhere& elsewhere) {
    put(kNumber, number);
    host.message(elsewhere.what(), kMessageTitle);
    bills_->forget();
    readBills();
    bills_->take(settles.bills);
    showSums();
    return;
  } catch (...) {
    put(kNumber, number);
    throw;
  }
  if (!written) return changedMeanwhile();
  if (text(kNumber) != number) host.message(takenWords(words("Voucher No"), number, text(kNumber)));
  saved();
}

// The next voucher takes the same ones.
void bwrcpy::rememberAccounts(const Settlement& settles) {
  for (const auto& taken : settles.deductions)
    for (const Deduction& d : deductions())
      if (d.what == taken.what && ::settingOf(data(), settingOf(d)) != taken.account)
        storeSetting(data(), settingOf(d), taken.account);
}

// What was changed is shown as it stands, what was deleted comes back, each when that is meant alone.
void bwrcpy::changedMeanwhile() {
  const double n = value(kNumber);
  if (isStored(data(), kind_, n)) {
    if (!host.ask(changedQuestion(data(), kind_, n, unsaved()))) return;
    takeShown();
    enterNumber();
  } else if (host.ask(deletedQuestion(n))) {
    setMode("ADD", kAddingMoney);
    store();
  }
}

void bwrcpy::saved() {
  mode.clear();
  hand_.letGo();
  caption = kind_.words.title;
  if (drilledDown_) {
    host.close(*this);
    return;
  }
  Interaction closing{
      .saved = closingMessage(), .cancel = "", .okColour = kOkColour, .cancelColour = kSecondColour};
  interact(host, closing);
  rest();
}

SavedMessage bwrcpy::closingMessage() const {
  return {
      .head = words("{title} Saved", "title", words(kind_.words.title)),
      .facts = {{english("Entry No"), text(kNumber)},
                {english("Party Name"), text(kPartyName)},
                {english("AMOUNT"), text(kAmount)}},
      .hints = {english("Press ok to Proceed ")  },
      .gap = 1,
  };
}
