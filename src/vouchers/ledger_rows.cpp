#include "vouchers/ledger_rows.h"

#include <array>
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "store/row_writer.h"
#include "vouchers/cleared.h"

namespace {

constexpr int kNarrationLength = 200;

}  // namespace

void postVoucher(Database& db, const LedgerVoucher& voucher, const std::vector<LedgerRow>& rows) {
  db.later("DELETE FROM ALEDGER WHERE BOOK_CD = ? AND VOUCH_NO = ?", voucher.book, voucher.number);
  std::vector<Value> values;
  for (const LedgerRow& row : rows)
    values.insert(values.end(),
                  {voucher.date, voucher.number, voucher.book, row.side, row.account, row.against, row.amount,
                   row.billNumber, cut(row.narration, kNarrationLength),
                   row.creditDays ? Value(numText(*row.creditDays)) : Value()});
  insertMany(db,
             "INSERT INTO ALEDGER (VOUCH_DT, VOUCH_NO, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT,"
             " PARTY_BL, NARRATION, SUB_DESC, BW_AB)",
             "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'A')", values);
  forgetUnclear(db, voucher.book, voucher.number);
}

std::vector<LedgerRow> billRows(const BillPosting& b, const VoucherKind& kind, const Supply& supply) {
  const std::string &ours = kind.ledger.partySide, theirs = kind.ledger.otherSide();
  const std::string withLr = b.narration + " " + b.lrNumber;
  const std::optional<std::string> none;
  std::vector<LedgerRow> rows = {
      {ours,   b.party,           kind.ledger.goods, b.amount, b.billNumber, withLr, b.creditDays},
      {theirs, kind.ledger.goods, b.party,           b.items,  b.billNumber, withLr, {}          },
  };
  for (const BillPosting::Charge& c : b.charges)
    rows.push_back({c.side, c.account, b.party, c.amount, b.billNumber, withLr, {}});
  for (const TaxPosting& tax : taxPostings(kind, supply)) {
    const double amount =
        b.*std::array{&BillPosting::cgst, &BillPosting::sgst, &BillPosting::igst}[tax.which];
    if (amount != 0 || !supply.postsOtherwise())
      rows.push_back({tax.side, tax.account, b.party, amount, none, b.narration, {}});
  }
  // A bill that was rounded down is worth more than it asks for.
  if (b.roundOff != 0)
    rows.push_back({b.roundOff < 0 ? ours : theirs,
                    kind.ledger.rounds,
                    b.party,
                    std::fabs(b.roundOff),
                    b.billNumber,
                    b.narration,
                    {}});
  return rows;
}
