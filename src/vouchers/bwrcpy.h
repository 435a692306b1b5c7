#pragma once

#include <optional>
#include <string>

#include "base/words.h"
#include "documents/messaging.h"
#include "frame/child_screen.h"
#include "frame/lookup.h"
#include "frame/period_test.h"
#include "frame/together.h"
#include "vouchers/receipts.h"

// Receipts, payments, incomes and expenses: the entry type says which. Opened with a value it shows
// that voucher for a change and closes after it.
class bwrcpy : public ChildScreen {
 public:
  bwrcpy(Host& host, const Opening& opening);
  void opened(const Opening& opening) override;
  void activated() override;
  bool mayClose() override;
  bool worksOnLeaving(const Control& target) const override;

  // An account by its code, with what is shown of it.
  struct Side {
    FieldName code, name, balance;
  };

 protected:
  std::string hintFor(const Control& control) const override;

 private:
  // Buttons.
  void add();
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

  // Enter and keys, by field.
  Go number();
  Go voucherDate();
  Go account();
  Go party();
  Go amount();
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
  void openRow();

  void setMode(const std::string& newMode, const std::string& pattern);
  void begin(const std::string& newMode, const std::string& pattern);
  void rest();
  Go enterNumber();
  bool takeInHand(double number);
  Go notFound(const std::string& refusal);
  void showVoucher(const Row& voucher);
  bool remove(double number);
  void store();
  void changedMeanwhile();
  void saved();
  // Shows an account's name and balance beside its code; false when there is none with a name.
  bool showAccount(const Side& side);
  bool sameCodes() const;
  Go refuseSame(const Side& side);
  void clearFields();
  void placeDefaults();
  void showButtons();
  void allowUpdate(bool on);
  void showList();
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
};
