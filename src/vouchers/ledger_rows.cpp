#include "vouchers/ledger_rows.h"

#include <cmath>

#include "base/text.h"

namespace {

constexpr int kNarrationLength = 200;

}  // namespace

void postVoucher(Database& db, const LedgerVoucher& voucher, const std::vector<LedgerRow>& rows) {
  db.exec("DELETE FROM ALEDGER WHERE BOOK_CD = ? AND VOUCH_NO = ?", voucher.book, voucher.number);
  for (const LedgerRow& row : rows)
    db.exec(
        "INSERT INTO ALEDGER (VOUCH_DT, VOUCH_NO, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT, "
        "PARTY_BL,"
        " NARRATION, SUB_DESC, BW_AB) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, NUMTEXT(?), 'A')",
        voucher.date, voucher.number, voucher.book, row.side, row.account, row.against, row.amount,
        row.billNumber, cut(row.narration, kNarrationLength), row.creditDays);
}

std::vector<LedgerRow> billRows(const BillPosting& b) {
  using namespace account_code;
  const std::string withLr = b.narration + " " + b.lrNumber;
  const std::optional<std::string> none;
  std::vector<LedgerRow> rows = {
      {"D", b.party, kSales,  b.amount, b.billNumber, withLr,      b.creditDays},
      {"C", kSales,  b.party, b.items,  b.billNumber, withLr,      {}          },
      {"C", kCgst,   b.party, b.cgst,   none,         b.narration, {}          },
      {"C", kSgst,   b.party, b.sgst,   none,         b.narration, {}          },
      {"C", kIgst,   b.party, b.igst,   none,         b.narration, {}          },
  };
  if (b.roundOff != 0)
    rows.push_back({b.roundOff < 0 ? "D" : "C",
                    kRoundOff,
                    b.party,
                    std::fabs(b.roundOff),
                    b.billNumber,
                    b.narration,
                    {}});
  return rows;
}
