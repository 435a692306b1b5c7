#pragma once

#include <string>
#include <vector>

#include "base/date.h"
#include "frame/period_test.h"
#include "vouchers/journals.h"
#include "vouchers/voucher_screen.h"

// A journal to be written, as another screen hands it over: what is known of it stands there, the rest is
// typed. The screen closes after it.
struct JournalDraft {
  Date date{};
  std::string reference, narration;
  std::string account;  // of the first line
  std::string against;  // of the second, as far as it is known
  double amount = 0;    // debit above 0, credit below
};

// Journals and contras: of the kind that the entry type names. A line is an account with an amount on one
// side; the amount that makes both sides equal is proposed on the side that lacks it, and Save opens when
// they are.
class FRMJRNL : public VoucherScreen {
 public:
  FRMJRNL(Host& host, const Opening& opening);
  void opened(const Opening& opening) override;

 protected:
  void startNew() override;
  bool load(double number) override;
  void clearHead() override;
  void clearLine() override;
  void showLine(const Row& line) override;
  void sumLines() override;
  void sumAgain() override { sumLines(); }
  FieldName lineKey() const override { return fields::kAccount; }
  FieldName lineName() const override { return fields::kAccountName; }
  bool lineComplete() override;
  Go closeLine() override;
  std::vector<FieldName> lineInputs() const override { return {fields::kDebit, fields::kCredit}; }
  bool figureLine() override { return true; }
  bool meansNothing() override;
  bool erase(double number, const Saving& as) override;
  bool staysInLedger(double) const override { return false; }
  bool write(const SaveStamp& stamp, const Saving& how) override;
  // The reference is anybody's: no other voucher can have taken it.
  FieldName paperNumber() const override { return fields::kReference; }
  bool paperNumberTaken() const override { return false; }
  Go checkPaperNumber() override { return Go::On; }
  std::string paperNumberAfter(const std::string& number) const override { return number; }
  void renumber() override {}
  std::string tutorial() const override { return {}; }
  bool hasPaper() const override { return true; }
  void askForPaper() override { focus(at(fields::kNumber)); }
  std::string atStake() const override;
  SavedMessage closingMessage() const override;

 private:
  static const ScreenSpec& table();
  static std::vector<KeyLookup> lookups(const VoucherKind& kind);

  // Enter, by field.
  Go voucherNumber();
  Go voucherDate();
  Go account();
  Go debit();
  Go credit();
  void toCheque();
  void endLines();
  void deleteLine();

  bool takesAccount(const std::string& code) const;
  void showAccount();
  // What the two sides differ by without the line being typed.
  double lacking();
  void propose();
  bool acceptAmount(FieldName side);
  void showBalanceAfter();

  PeriodTest period_;
  JournalSums sums_;
};
