#include "reports/ledger_reading.h"

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"

namespace {

constexpr int kNarrationLine = 35, kCutFrom = 32;
constexpr double kNarrationSize = 9;

}  // namespace

double groupOf(Database& db, const std::string& account) {
  return db.number("SELECT GROUP_CD FROM ACCOUNT WHERE ACC_CD = ?", account);
}

OpeningBalance readOpening(Database& db, const StatementQuery& q, const std::optional<Date>& since) {
  OpeningBalance opening;
  const double stored = db.number("SELECT OP_BAL FROM ACCOUNT WHERE ACC_CD = ?", q.account);
  (stored < 0 ? opening.credit : opening.debit) = stored < 0 ? -stored : stored;
  auto rows = db.query(
      "SELECT CASE VOUCH_TYPE WHEN 'C' THEN VOUCH_AMT ELSE 0 END AS OPBALCR,"
      " CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE 0 END AS OPBALDR"
      " FROM ACCOUNT JOIN ALEDGER ON ALEDGER.PARTY_CD = ACCOUNT.ACC_CD"
      " WHERE ACCOUNT.ACC_CD = ? AND VOUCH_DT < ? AND VOUCH_DT >= ?",
      q.account, isoDate(q.from), since ? isoDate(*since) : std::string());
  while (rows.next()) {
    opening.credit += rows.number(0);
    opening.debit += rows.number(1);
  }
  return opening;
}

std::vector<LedgerEntry> readEntries(Database& db, const StatementQuery& q, Ties ties) {
  const std::string order = ties == Ties::BySerial ? ", ALEDGER.SRNO" : "";
  auto rows = db.query(
      "SELECT ALEDGER.VOUCH_NO, BOOK_CD, VOUCH_DT, PARTY_BL, CHQ_NO, ACCOUNT_1.ACC_NAME, NARRATION, NARR1,"
      " CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE 0 END AS AMTDR,"
      " CASE VOUCH_TYPE WHEN 'C' THEN VOUCH_AMT ELSE 0 END AS AMTCR"
      " FROM ACCOUNT JOIN ALEDGER ON ALEDGER.PARTY_CD = ACCOUNT.ACC_CD"
      " LEFT JOIN ACCOUNT AS ACCOUNT_1 ON ALEDGER.PARTY_TCD = ACCOUNT_1.ACC_CD"
      " WHERE ACCOUNT.ACC_CD = ? AND VOUCH_DT >= ? AND VOUCH_DT <= ?"
      " ORDER BY VOUCH_DT, VOUCH_TYPE DESC, ALEDGER.VOUCH_NO" +
          order + ", ALEDGER.rowid",
      q.account, q.from, q.to);
  std::vector<LedgerEntry> entries;
  while (rows.next()) {
    const auto date = rows.date(2);
    entries.push_back({
        .voucher = {.book = rows.text(1), .number = rows.number(0)},
        .date = date ? formatDate(*date, "dd/MM/yy") : rows.text(2),
        .bill = rows.text(3),
        .cheque = rows.text(4),
        .against = rows.text(5),
        .narration = rows.text(6),
        .narration1 = rows.text(7),
        .debit = rows.number(8),
        .credit = rows.number(9),
    });
  }
  return entries;
}

std::vector<std::string> narrationLines(const std::string& narration) {
  if (length(narration) <= kNarrationLine) return {narration};
  const size_t from = left(narration, kCutFrom - 1).size();
  const size_t blank = narration.find(' ', from);
  if (blank == std::string::npos) return {narration};
  return {narration.substr(0, blank + 1), narration.substr(blank + 1)};
}

std::string money(double amount) { return Format(amount, "0.00"); }

std::string shownNumber(const VoucherKey& voucher) { return numText(voucher.number); }

void writeNarrationText(Cell& cell, const std::string& text) {
  cell.text = text;
  cell.fontSize = kNarrationSize;
  cell.align = Align::Left;
}

StatementRow emptyRow(std::string_view key) {
  StatementRow row;
  for (const LedgerColumn& column : ledgerColumns(key)) row.cells.emplace_back().type = column.type;
  return row;
}
