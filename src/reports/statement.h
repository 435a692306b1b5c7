#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "documents/typed_rows.h"
#include "frame/voucher_opening.h"
#include "store/database.h"

// The statement of one account over a period, worked out from ACCOUNT.OP_BAL and ALEDGER each
// time it is asked for; nothing is stored. It comes as the rows of a grid:
//
//   runningStatement  V.No., Date, Ref No., Bk., Particulars, Debit, Credit, Balance, Crdr
//   tLedger           NO., book, DATE, PARTICULARS, Cr, then the same five of the debit side
//
// Money is text, "0.00", without grouping. The T ledger has the credit side on the left; its two
// sides are lists of their own, so that a row number means nothing across them.
//
// The opening balance counts the ledger rows before `from`. In the running statement an account
// of the balance sheet (group above 74) counts them from `periodStart` on only; the T ledger never
// has that limit. Raises DatabaseError; an unknown account has no rows and no opening.

struct StatementCell : Cell {
  ColumnType type = ColumnType::Text;
};

struct StatementRow {
  std::vector<StatementCell> cells;
  // What the row stands for; in a T ledger that of its debit side.
  std::optional<VoucherKey> voucher;
  std::optional<VoucherKey> creditVoucher;  // of a T ledger's credit side
};

struct StatementQuery {
  std::string account;
  Date from{}, to{};
  Date periodStart{};
  bool narration = true;
  Bgr bodyColour = 0xFAFAF0, totalColour = 0xFFE0E0;
};

std::vector<StatementRow> runningStatement(Database& db, const StatementQuery& query);
std::vector<StatementRow> tLedger(Database& db, const StatementQuery& query);
