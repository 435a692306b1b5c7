#pragma once

#include <memory>
#include <string>
#include <vector>

#include "documents/grid_output.h"
#include "frame/child_screen.h"
#include "vouchers/reconciling.h"

// Bank reconciliation: the rows of a bank account with the days on which the bank had them, beside the
// lines of a statement. A clearing date is stored as soon as it is taken; F8 takes it back.
class FRMBRS : public ChildScreen {
 public:
  explicit FRMBRS(Host& host);
  void opened(const Opening& opening) override;
  void activated() override;
  bool worksOnLeaving(const Control& target) const override;

 protected:
  std::string hintFor(const Control& control) const override;
  bool unsaved() const override { return false; }  // what is typed here only asks

 private:
  void close() { host.close(*this); }
  Go account();
  void show();
  void readStatement();
  Go take();  // Enter on a row of the books
  void intoDate();
  void leaveDate();
  Go clearedOn();  // Enter in the date
  void undo();
  void takeCertain();
  void otherSide();
  void writeVoucher() { write(false); }
  void writeOtherwise() { write(true); }
  void write(bool otherwise);
  void showVoucher();
  void rowMoved();
  void lineMoved();
  void bankSaysTyped();
  void takeBalance();
  void print() { send(kToPrinter); }
  void preview() { send(kToPreview); }
  void excel() { send(kToWorkbook); }
  void pdf() { send(kToPdf); }
  // The sums with what is open on both sides; also to a file.
  void send(const GridTarget& target);

  // Reads the books again and matches; the cursor stays on its row.
  void refresh();
  void fillGrids();
  void showSums();
  void showProposal();
  const Match* matchOf(size_t book) const;
  const Match* matchOfLine(size_t line) const;
  bool isOutside(size_t line) const;  // the books have nothing for it
  struct Outside {
    int lines = 0;
    double amount = 0;
  };
  Outside outside() const;
  size_t bookRow() const { return at(fields::kBookRows).grid.current; }
  void clearRow(size_t row, const std::optional<Date>& on);
  void showCleared();

  std::string shownAccount_;
  Date from_{}, to_{};    // that are shown
  size_t dateRow_ = 0;    // of the books, whose date is typed
  std::string proposed_;  // the date that stood there first
  std::vector<BookEntry> books_;
  std::string statementName_;
  std::vector<StatementLine> lines_;
  std::vector<Match> matches_;
  std::vector<size_t> ofBook_, ofLine_;  // their places by row and line
  std::optional<Date> lastDate_;         // typed or taken last
  std::string gone_;                     // entries that were changed before their date was kept
  bool awaitsVoucher_ = false;
};
