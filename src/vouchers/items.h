#pragma once

#include <optional>
#include <string>

#include "frame/voucher_kinds.h"
#include "store/database.h"

// Items, their units and the transporters, as a line or the foot of a voucher asks for them.

// The item that stands for anything: its name is typed, its unit is not checked, and its line
// is stored without a quantity too.
inline constexpr const char* kMiscItem = "MISC";

struct SaleItem {
  std::string name, unit;
  std::optional<double> rateOfTax;  // none when it is not filled in
};
// Needs a category and a row of units: an item without them cannot be billed.
std::optional<SaleItem> readSaleItem(Database& db, const std::string& item);

struct UnitRates {
  double rate = 0, discount = 0;
};
// Nothing when the item is not kept in that unit.
std::optional<UnitRates> readUnit(Database& db, const VoucherKind& kind, const std::string& item,
                                  const std::string& unit);

// By name, of which the master keeps less than a bill does.
std::optional<double> findTransporter(Database& db, const std::string& name);
std::string transporterGovId(Database& db, const std::string& name);
std::optional<std::string> transporterName(Database& db, double id);
// Adds the transporter, after "LOCAL" when the table is empty, and returns its number.
double addTransporter(Database& db, const std::string& name);
