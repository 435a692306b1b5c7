#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/words.h"
#include "documents/messaging.h"
#include "frame/child_screen.h"
#include "frame/lookup.h"
#include "frame/period_test.h"
#include "frame/together.h"
#include "vouchers/bills_to_settle.h"
#include "vouchers/receipts.h"

// Money over a bank, as another screen hands it over: what is known of it stands there, the rest is typed.
// The screen closes after it.
struct MoneyDraft {
  Date date{};
  std::string bank, party, mode, reference, narration;
  double amount = 0;
};

// Receipts, payments, incomes and expenses: the entry type says which. Opened with a value it shows
// that voucher for a change and closes after it.
//
// Over cash the form is short. Over a bank it asks how it is paid and what is deducted, and beside it stands
// the page of the party's open bills, which Page Down opens over cash too.
class bwrcpy : public ChildScreen {
 public:
  bwrcpy(Host& host, const Opening& opening);
  void opened(const Opening& opening) override;
  void activated() override;
  bool mayClose() override;
  bool worksOnLeaving(const Control& target) const override;
  void focusMoved(Control& control) override;
  void typed(Control& grid, char32_t ch) override;

 protected:
  std::string hintFor(const Control& control) const override;

 private:
  // An account by its code, with what is shown of it.
  struct Side {
    FieldName code, name, balance;
  };
  static constexpr Side kCashSide{fields::kAccount, fields::kAccountName, fields::kAccountBalance};
  static constexpr Side kOtherSide{fields::kParty, fields::kPartyName, fields::kPartyBalance};
  static constexpr const char* kAddingMoney = english("{title} : ADD MODE");

  // What settles a bill beside money: its fields, and the setting that remembers its account, of money
  // that is received or paid.
  struct Deduction {
    std::string what;
    FieldName amount, account, name;
    std::string_view received, paid;
    std::string offered;
  };
  static std::span<const Deduction> deductions();

  // Buttons.
  void add();
  void take(const MoneyDraft& draft);
  void modify() { begin("EDIT", english("{title} : EDIT MODE")); }
  void startDelete() { begin("DEL", english("{title} : DELETE MODE")); }
  void view();
  void print();
  void video();
  void close() { host.close(*this); }
  void update();
  void giveUp();  // Cancel, asked first where something was typed
  void cancel();
  std::string atStake() const override;
  void escape();
  void lockUpdate() { allowUpdate(false); }
  void saveAtOnce();

  // Enter and keys, by field.
  Go number();
  Go voucherDate();
  Go account();
  Go party();
  Go amount();
  Go payMode();
  Go chequeDate();
  Go deduction();
  Go deductionAccount();
  Go remarks();
  Go remarksTab();
  Go oldEntries();
  Go oldByReference();
  Go oldByCheque();
  Go oldByAmount();
  Go partyByCity();
  Go earlierRemarks();
  void chooseAccount();
  void leaveAccount();
  void chooseDeduction();
  void leaveDeduction();
  void openRow();

  // Keys of the bills.
  Go toBills();
  Go toForm();
  void showBills();
  void showVouchers();
  Go settleRow();
  void settleWhole();
  void takeTyped();
  bool typedStands();
  Go typedBack();
  Go freeRow();
  Go pageBack();
  void oldestFirst();
  void freeAll();

  void setMode(const std::string& newMode, const std::string& pattern);
  void begin(const std::string& newMode, const std::string& pattern);
  void rest();
  Go enterNumber();
  bool takeInHand(double number);
  Go notFound(const std::string& refusal);
  void showVoucher(const Row& voucher);
  void showSettlement(const Row& voucher);
  bool remove(double number);
  void store();
  void changedMeanwhile();
  void saved();
  // Shows an account's name and balance beside its code; false when there is none with a name.
  bool showAccount(const Side& side);
  bool showDeductionAccount(const Deduction& d, const std::string& code);
  const Deduction& deductionHere() const;
  std::string_view settingOf(const Deduction& d) const;
  std::string refusalOf(FieldName figure, bool mayBeNil) const;  // empty where it stands
  std::string refusalOfRow(size_t row, const std::string& text) const;
  bool sameCodes() const;
  Go refuseSame(const Side& side);
  void clearFields();
  void placeDefaults();
  void showButtons();
  void allowUpdate(bool on);
  void showList();
  void tellEscape();

  // What the form shows: for a bank, and where bills are settled, more than for cash.
  void layOut();
  bool hasBills() const { return kind_.party.hasBills; }
  void proposeMode();
  void showMode(const std::string& code);
  static std::string payModes();
  void emptyCheque();
  void openCheque();
  void showBillPage(bool bills);
  void readBills(const std::vector<Settlement::Bill>& settled = {});
  void showSums();
  std::string advance() const;
  double deducted() const;
  double toSettle() const;
  double onAccount() const;

  // What is stored beside the fields of the table.
  Fields paidBy() const;
  Settlement settlement() const;
  std::string settlementText() const;
  bool settlementStands();
  void rememberAccounts(const Settlement& settles);
  void takeShown();
  bool unsaved() const override;

  bool entering() const { return mode == "ADD" || mode == "EDIT"; }
  SavedMessage closingMessage() const;
  Lookup oldVouchers(const SelectColumn& second, const SelectColumns& more) const;

  const VoucherKind& kind_;
  std::string accountBefore_;  // what Cash / Bank held when it was opened
  PeriodTest period_;
  double loaded_ = 0;     // number of the voucher that is shown for a change
  std::string asLoaded_;  // and how it stood then
  InHand hand_;
  bool drilledDown_ = false;
  std::shared_ptr<BillsToSettle> bills_ = std::make_shared<BillsToSettle>();
  std::string billsOf_;          // the party whose they are
  std::string shownSettlement_;  // as the voucher was shown
  bool asked_ = false;           // for the bills of a voucher over cash
  bool wide_ = false, pages_ = false;
};
