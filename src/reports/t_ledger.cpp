#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "reports/ledger_reading.h"

namespace {

// Columns of one side; the debit side stands five further right.
enum Column : size_t { Number, Book, Day, Particulars, Amount };

enum class Side : size_t { Credit = 0, Debit = 5 };

class TLedger {
 public:
  TLedger(Database& db, const StatementQuery& query) : db_(db), q_(query) {}

  std::vector<StatementRow> make() {
    const std::vector<LedgerEntry> entries = readEntries(db_, q_, Ties::AsStored);
    writeOpening();
    const size_t debits = writeSide(Side::Debit, entries, 1);
    const size_t credits = writeSide(Side::Credit, entries, credit_ != 0 ? 1 : 0);
    const size_t next = std::max(debits, credits);
    addTotals();
    writeTransactions(next, entries);
    writeClosing(next + 1);
    writeTotal(next + 2);
    return std::move(rows_);
  }

 private:
  StatementRow& rowAt(size_t row) {
    while (rows_.size() <= row) rows_.push_back(emptyRow(kTLedgers));
    return rows_[row];
  }
  StatementCell& cellAt(size_t row, Side side, Column column) {
    return rowAt(row).cells[static_cast<size_t>(side) + column];
  }

  // The first row is the opening's. Equal sides open the credit side with 0.00, over which its
  // first entry is then written.
  void writeOpening() {
    const OpeningBalance before = readOpening(db_, q_, std::nullopt);
    const double net = Round(before.debit - before.credit, 2);
    const Side side = net > 0 ? Side::Debit : Side::Credit;
    debit_ = openingDebit_ = net > 0 ? net : 0;
    credit_ = openingCredit_ = net > 0 ? 0 : -net;
    cellAt(0, side, Particulars).text = words("OPENING BALANCE");
    cellAt(0, side, Amount).text = money(net > 0 ? net : -net);
  }

  // Returns the row after the side's last.
  size_t writeSide(Side side, const std::vector<LedgerEntry>& entries, size_t row) {
    for (const LedgerEntry& e : entries) {
      const double amount = side == Side::Debit ? e.debit : e.credit;
      if (amount == 0) continue;
      const size_t first = row;
      cellAt(row, side, Number).text = shownNumber(e.voucher);
      cellAt(row, side, Book).text = e.voucher.book;
      cellAt(row, side, Day).text = e.date;
      if (length(e.against) > 1) cellAt(row, side, Particulars).text = e.against;
      cellAt(row, side, Amount).text = money(amount);
      ++row;
      if (q_.narration) row = writeRemarks(side, e, row);
      for (size_t i = first; i < row; ++i)
        (side == Side::Debit ? rowAt(i).voucher : rowAt(i).creditVoucher) = e.voucher;
    }
    return row;
  }

  size_t writeRemarks(Side side, const LedgerEntry& e, size_t row) {
    if (!e.cheque.empty() || !e.bill.empty()) {
      StatementCell& bill = cellAt(row, side, Day);
      bill.text = e.bill;
      bill.type = ColumnType::Text;
      if (!e.cheque.empty())
        cellAt(row, side, Particulars).text =
            words("Ch.No.: {cheque} - {narration}", "cheque", e.cheque, "narration", e.narration1);
      ++row;
    }
    if (!e.narration.empty())
      for (const std::string& line : narrationLines(e.narration))
        writeNarrationText(cellAt(row++, side, Particulars), line);
    return row;
  }

  // By date, as the day's figures are posted.
  void addTotals() {
    auto days = db_.query(
        "SELECT SUM(CASE VOUCH_TYPE WHEN 'C' THEN VOUCH_AMT ELSE 0 END) AS AMTCR,"
        " SUM(CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE 0 END) AS AMTDR"
        " FROM ACCOUNT JOIN ALEDGER ON ALEDGER.PARTY_CD = ACCOUNT.ACC_CD"
        " WHERE ACCOUNT.ACC_CD = ? AND VOUCH_DT >= ? AND VOUCH_DT <= ? GROUP BY VOUCH_DT ORDER BY VOUCH_DT",
        q_.account, q_.from, q_.to);
    while (days.next()) {
      credit_ += days.number(0);
      debit_ += days.number(1);
    }
  }

  void writeTransactions(size_t row, const std::vector<LedgerEntry>& entries) {
    const auto debits = std::ranges::count_if(entries, [](const LedgerEntry& e) { return e.debit != 0; });
    const auto credits = static_cast<std::ptrdiff_t>(entries.size()) - debits;
    write(row, Side::Debit, words("Transaction Total   Dr : {count}", "count", std::to_string(debits)),
          debit_ - openingDebit_);
    write(row, Side::Credit, words("Transaction Total   Cr : {count}", "count", std::to_string(credits)),
          credit_ - openingCredit_);
  }

  // On the short side, so that the two agree; on both when they already do.
  void writeClosing(size_t row) {
    const double net = Round(debit_ - credit_, 2);
    if (net >= 0) write(row, Side::Credit, words("**Closing Bal. Dr."), net);
    if (net <= 0) write(row, Side::Debit, words("**Closing Bal. Cr."), -net);
    debit_ = credit_ = std::max(debit_, credit_);
  }

  void writeTotal(size_t row) {
    write(row, Side::Credit, words("Total "), credit_);
    write(row, Side::Debit, words("Total "), debit_);
    for (Cell& cell : rowAt(row).cells) cell.back = q_.totalColour;
  }

  void write(size_t row, Side side, const std::string& particulars, double amount) {
    cellAt(row, side, Particulars).text = particulars;
    cellAt(row, side, Amount).text = money(amount);
    for (Cell& cell : rowAt(row).cells) cell.bold = true;
  }

  Database& db_;
  const StatementQuery& q_;
  std::vector<StatementRow> rows_;
  double debit_ = 0, credit_ = 0;
  double openingDebit_ = 0, openingCredit_ = 0;
};

}  // namespace

std::vector<StatementRow> tLedger(Database& db, const StatementQuery& query) {
  return TLedger(db, query).make();
}
