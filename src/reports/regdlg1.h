#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "reports/ledger_columns.h"
#include "reports/period_screen.h"
#include "reports/statement.h"

// The account ledgers: the running statement or the T ledger of an account, by the report
// key of its opening. Opened with a value it takes that as the account's code, and shows the statement at
// once where another screen asks for it.
class regdlg1 : public PeriodScreen {
 public:
  explicit regdlg1(Host& host);
  static const ScreenSpec& table();

  void opened(const Opening& opening) override;
  void activated() override;
  void closed() override;

 protected:
  std::string hintFor(const Control& control) const override;
  std::vector<std::string> outputButtons() const override { return {"cmdprint", "cmdexcel", "cmdpdf"}; }

 private:
  Go account();
  bool acceptAccount();
  Go date();
  void show();
  void showStatement();
  void placeCursor();

  void openVoucher();
  void rowMoved();
  Go toCredit() { return toSide(true); }
  Go toDebit() { return toSide(false); }
  Go toSide(bool credit);
  void enter(int shortcut);
  void shortcut() { enter(here().index); }
  // Letters that a shortcut shares with a button of the screen's own: they mean the shortcut while the
  // focus is among the shortcuts, else the button alone, also while it is off.
  Go saleLetter() { return letter(0); }
  Go payLetter() { return letter(3); }
  Go costLetter() { return letter(5); }
  Go letter(int shortcut);
  Go showLetter() { return at("cmdshow").enabled ? Go::On : Go::Stay; }
  Go printLetter() { return at("cmdprint").enabled ? Go::On : Go::Stay; }

  void print() { handOver(kToPrinter); }
  void preview() { handOver(kToPreview); }
  void excel() { handOver(kToWorkbook); }
  void csv() { handOver(kToCsv); }
  void pdf() { handOver(kToPdf); }
  void handOver(const GridTarget& target);
  void video() { openTutorial(host, tutorial()); }
  const std::string& tutorial() const;
  void escape();
  void close() { host.close(*this); }

  bool isT() const { return key_ == kTLedgers; }
  const StatementRow* currentRow() const;
  std::optional<VoucherKey> currentVoucher() const;

  std::string key_;
  std::shared_ptr<class StatementRows> shown_;
  bool narration_ = false;   // mshownarr
  bool creditSide_ = false;  // which side of a T ledger's row Enter opens
  bool standing_ = false;    // has been active before
  bool atOnce_ = false;      // a screen asks for the account's statement
  std::optional<VoucherKey> drilledInto_;
};
