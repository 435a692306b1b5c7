#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
#include "platform/grid.h"
#include "store/database.h"

// What an item has been sold or bought for before, in rows for the grid beside the rate field.
struct RateQuery {
  std::string party, item, unit;
};

struct RateList {
  std::vector<GridColumn> columns;
  std::shared_ptr<CellRows> rows;
};

// The latest six sales to the party, or purchases from it, newest first; more when the sixth shares
// its day.
RateList latestSales(Database& db, const VoucherKind& kind, const RateQuery& of);
// All of them, with the bills' amounts.
RateList earlierSales(Database& db, const VoucherKind& kind, const RateQuery& of);
// All challans of the item to the party, newest first, with their lines' amounts.
RateList challanRates(Database& db, const VoucherKind& kind, const RateQuery& of);
std::vector<GridColumn> challanRateColumns();
// The party's rate list, and the rates the item was bought at.
RateList partyRates(Database& db, const VoucherKind& kind, const RateQuery& of);
RateList purchaseRates(Database& db, const RateQuery& of);
