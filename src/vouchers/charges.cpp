#include "vouchers/charges.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/number.h"
#include "frame/settings.h"
#include "vouchers/supply.h"

double Charges::net() const { return Round(packing + freight + other - discount, 2); }

double discountOf(double goods, double percent) { return Round(goods * percent / 100, 2); }

std::vector<double> spread(double net, const std::vector<double>& amounts) {
  std::vector<double> shares(amounts.size(), 0);
  const double goods = std::accumulate(amounts.begin(), amounts.end(), 0.0);
  if (net == 0 || goods <= 0) return shares;
  double left = net;
  for (size_t i = 0; i < amounts.size(); ++i) {
    if (amounts[i] != 0) shares[i] = Round(net * amounts[i] / goods, 2);
    left -= shares[i];
  }
  double& largest = shares[static_cast<size_t>(std::ranges::max_element(amounts) - amounts.begin())];
  largest = Round(largest + left, 2);
  return shares;
}

Charges partOf(const Charges& charges, double part, double net) {
  Charges its{.discount = Round(charges.discount * part, 2),
              .packing = Round(charges.packing * part, 2),
              .freight = Round(charges.freight * part, 2),
              .other = Round(charges.other * part, 2)};
  // What rounding leaves goes to the largest, too.
  const double left = Round(net - its.net(), 2);
  double& charge = *std::max({&its.packing, &its.freight, &its.other},
                             [](const double* a, const double* b) { return *a < *b; });
  if (charge >= its.discount)
    charge = Round(charge + left, 2);
  else
    its.discount = Round(its.discount - left, 2);
  return its;
}

std::vector<ChargePosting> chargePostings(Database& db, const VoucherKind& kind) {
  constexpr std::array kSold = {kSaleDiscount, kSalePacking, kSaleFreight, kSaleOther},
                       kBought = {kPurchaseDiscount, kPurchasePacking, kPurchaseFreight, kPurchaseOther};
  const auto& settings = isBought(kind) ? kBought : kSold;
  std::vector<ChargePosting> all;
  for (size_t i = 0; i < kChargeColumns.size(); ++i)
    all.push_back({kChargeColumns[i], i == 0 ? kind.ledger.partySide : kind.ledger.otherSide(),
                   settingOf(db, settings[i])});
  return all;
}
