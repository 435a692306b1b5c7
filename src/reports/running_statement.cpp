#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/voucher_kinds.h"
#include "reports/ledger_reading.h"

namespace {

constexpr double kLastIncomeGroup = 74;  // above it stand the groups of the balance sheet
constexpr int kSeparators = 7;           // "  - " and the like: nothing beside the two separators

enum Column : size_t { Number, Day, Reference, Book, Particulars, Debit, Credit, Balance, Side };

// Once rows have narrations under them, rows of the ledger are tinted and all others white.
class RunningStatement {
 public:
  RunningStatement(Database& db, const StatementQuery& query) : db_(db), q_(query) {}

  std::vector<StatementRow> make() {
    writeOpening();
    for (const LedgerEntry& entry : readEntries(db_, q_, Ties::BySerial)) {
      writeEntry(entry);
      if (q_.narration) writeNarration(entry);
    }
    nextRow(q_.narration ? q_.bodyColour : kNoColour);
    writeTransactions();
    writeClosing();
    writeTotal();
    return std::move(rows_);
  }

 private:
  StatementRow& nextRow(Bgr colour) {
    rows_.push_back(emptyRow(kLedgers));
    for (Cell& cell : rows_.back().cells) cell.back = colour;
    return rows_.back();
  }
  StatementRow& plainRow() { return nextRow(q_.narration ? kWhite : kNoColour); }

  static void put(StatementRow& row, Column column, std::string text) {
    row.cells[column].text = std::move(text);
  }

  // Figures of one side enter the totals in whole paise, so that equal sides compare as equal.
  static void add(double& total, double amount) { total = Round(total + Round(amount, 2), 2); }

  bool inCredit() const { return std::fabs(credit_) >= debit_; }

  void writeOpening() {
    const bool limited = groupOf(db_, q_.account) > kLastIncomeGroup;
    const OpeningBalance before =
        readOpening(db_, q_, limited ? std::optional<Date>(q_.periodStart) : std::nullopt);
    const double net = Round(before.debit - before.credit, 2);
    if (net == 0) return;
    StatementRow& row = plainRow();
    put(row, Particulars, words("OPENING BALANCE"));
    if (before.debit - std::fabs(before.credit) < 0) {
      openingCredit_ = net;
      credit_ = -net;
      put(row, Credit, money(credit_));
      put(row, Balance, money(credit_));
      put(row, Side, words("Cr"));
    } else {
      openingDebit_ = debit_ = net;
      put(row, Debit, money(debit_));
      put(row, Balance, money(debit_));
      put(row, Side, words("Dr"));
    }
  }

  void writeEntry(const LedgerEntry& e) {
    StatementRow& row = nextRow(q_.narration ? q_.bodyColour : kNoColour);
    row.voucher = e.voucher;
    put(row, Number, shownNumber(e.voucher));
    put(row, Day, e.date);
    put(row, Reference, length(e.cheque) > 1 ? e.cheque : e.bill);
    put(row, Book, e.voucher.book);
    if (length(e.against) > 1) put(row, Particulars, e.against);
    if (e.debit != 0) put(row, Debit, money(Round(e.debit, 2)));
    if (e.credit != 0) put(row, Credit, money(Round(e.credit, 2)));
    add(debit_, e.debit);
    add(credit_, e.credit);
    ++(e.debit != 0 ? debits_ : credits_);
    put(row, Balance,
        money(inCredit() ? -Round(debit_ - credit_, 2) : Round(debit_ - std::fabs(credit_), 2)));
    put(row, Side, inCredit() ? words("Cr") : words("Dr"));
  }

  void writeNarration(const LedgerEntry& e) {
    if (length(e.narration) > 1)
      for (const std::string& line : narrationLines(e.narration)) writeRemark(e, line);
    const std::string details = billDetails(e.voucher);
    if (length(details) > kSeparators) writeRemark(e, details);
  }

  void writeRemark(const LedgerEntry& e, const std::string& text) {
    StatementRow& row = plainRow();
    row.voucher = e.voucher;
    writeNarrationText(row.cells[Particulars], text);
    row.cells[Particulars].back = kWhite;
  }

  // Transport, its receipt and the parcels of a bill; nothing when one of them was never filled.
  std::string billDetails(const VoucherKey& v) {
    const VoucherKind* const kind = kindByBook(v.book);
    if (!kind || kind->tables.heads != saleKind().tables.heads) return {};
    return db_.text(
        "SELECT TRANSPORT || ' - ' || GR_NO || ' - ' || PARCLE FROM SALE WHERE VOUCH_NO = ? AND BOOK_CD = ?",
        v.number, v.book);
  }

  StatementRow& boldRow(StatementRow& row) {
    for (Cell& cell : row.cells) cell.bold = true;
    return row;
  }

  // Of the period alone, without the opening.
  void writeTransactions() {
    StatementRow& row = boldRow(nextRow(q_.totalColour));
    put(row, Particulars,
        words("Transactions : Dr : {debits}  Cr : {credits}", "debits", std::to_string(debits_), "credits",
              std::to_string(credits_)));
    put(row, Debit, money(Round(debit_ - openingDebit_, 2)));
    put(row, Credit, money(Round(credit_ + openingCredit_, 2)));
  }

  // Stands on the short side, so that the two sides agree.
  void writeClosing() {
    StatementRow& row = boldRow(plainRow());
    if (inCredit()) {
      put(row, Particulars, words("**Closing Balance Cr."));
      put(row, Debit, money(-Round(debit_ - credit_, 2)));
      debit_ = credit_ = -credit_;
    } else {
      put(row, Particulars, words("**Closing Balance Dr."));
      put(row, Credit, money(Round(debit_ - credit_, 2)));
      credit_ = debit_;
    }
  }

  void writeTotal() {
    StatementRow& row = boldRow(nextRow(q_.totalColour));
    put(row, Particulars, words("***TOTAL AMOUNT"));
    put(row, Debit, money(std::fabs(Round(debit_, 2))));
    put(row, Credit, money(std::fabs(Round(credit_, 2))));
  }

  Database& db_;
  const StatementQuery& q_;
  std::vector<StatementRow> rows_;
  double debit_ = 0, credit_ = 0;
  double openingDebit_ = 0, openingCredit_ = 0;  // the credit one below 0
  int debits_ = 0, credits_ = 0;
};

}  // namespace

std::vector<StatementRow> runningStatement(Database& db, const StatementQuery& query) {
  return RunningStatement(db, query).make();
}
