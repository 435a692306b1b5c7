#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "frame/supply_kinds.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"

// What marks a bill beside its figures (SUPPLY; hardly any bill has a row there). Under reverse charge the
// party is owed the goods alone: what we buy so has its taxes owed by us, what we sell so leaves them to the
// buyer. The tax on imported goods is owed to customs. The head keeps the taxes all the same. Ineligible
// taxes of what we buy are a cost of the goods.
struct Supply {
  bool reverse = false, ineligible = false;
  SupplyKind kind = SupplyKind::Ordinary;
  double place = 0;  // state code of the place of supply; 0: the party's state
  // Shipping bill, or bill of entry; the country that it goes to.
  std::string shippingBill = {}, port = {}, country = {};
  std::optional<Date> shippingDate = {};
  std::string customs = {};  // the account that the tax on imported goods is owed to

  bool any() const { return *this != Supply{}; }
  // Its taxes stand in the ledger otherwise than those of other bills.
  bool postsOtherwise() const { return reverse || ineligible || !customs.empty(); }
  // What the bill asks for is the goods alone.
  bool leavesTaxesOut() const { return reverse || kind == SupplyKind::ImportGoods; }
  bool operator==(const Supply&) const = default;
};

// Whether the taxes of the kind are those that we pay.
bool isBought(const VoucherKind& kind);

Supply readSupply(Database& db, const VoucherKind& kind, double number);
// Makes the table where books lack it, or a part of it, that the walk has not brought up to date; before a
// transaction, since a server ends one by it.
void ensureSupply(Database& db);
// In place of what stood there; inside the transaction that stores or deletes the bill.
void storeSupply(Database& db, const VoucherKind& kind, double number, const Supply& supply);
// The marks that bills of the kind have, each once, by which their taxes are posted; for whatever account of
// customs stands kTheirCustoms.
inline constexpr const char* kTheirCustoms = "?";
std::vector<Supply> marksOf(Database& db, const VoucherKind& kind);

// The kind of supply that a bill to the party, or of it, is by itself: abroad an export or import, to a
// special economic zone what its registration says, or its bill that was marked so last. Whether tax is paid
// is as it was done last.
SupplyKind proposedSupply(Database& db, const VoucherKind& kind, const std::string& party, double state,
                          const std::string& registration);
// The state by which the tax is split.
double taxedState(const Supply& supply, double partyState);

// A row of the ledger for one tax of a bill: 0 is CGST, 1 SGST, 2 IGST.
struct TaxPosting {
  size_t which;
  std::string side, account;
};
std::vector<TaxPosting> taxPostings(const VoucherKind& kind, const Supply& supply);
