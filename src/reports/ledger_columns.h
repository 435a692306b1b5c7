#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "documents/grid_output.h"

// The columns of the two ledgers, on the screen and on paper.

inline constexpr std::string_view kLedgers = "LEDGERS", kTLedgers = "TLEDGERS";

struct LedgerColumn {
  std::string heading;
  Length width;      // on the screen
  double twips = 0;  // on paper
  ColumnType type = ColumnType::Text;
};
const std::vector<LedgerColumn>& ledgerColumns(std::string_view key);

std::vector<GridColumn> screenColumns(std::string_view key);

struct LedgerHeading {
  std::string caption;
  Date from, to;
};
// Without voucher numbers the particulars have their width too.
GridOutput ledgerOutput(std::string_view key, std::shared_ptr<const TypedRows> rows, const GridTarget& target,
                        const LedgerHeading& heading, bool withoutVoucherNo);
