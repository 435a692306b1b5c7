#pragma once

#include <array>
#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
#include "store/database.h"

// What a bill lets off its goods and asks for beside them before tax: a discount on the whole, packing and
// forwarding, freight, others. Rupees, none below 0. The law taxes them with the goods, so that their net is
// spread over the lines and every rate takes its share: the taxable value of a line is its amount and its
// share (SALEITM.DISC4).
struct Charges {
  double discountPercent = 0;  // of the goods; 0 where the discount was typed as an amount
  double discount = 0, packing = 0, freight = 0, other = 0;

  bool any() const { return *this != Charges(); }
  double net() const;  // to the paisa; below 0 where the discount is more
  bool operator==(const Charges&) const = default;
};

double discountOf(double goods, double percent);

// The share of each line in proportion to its amount, to the paisa; what rounding leaves goes to the largest
// line, and a line of 0 has none. All are 0 where the amounts come to nothing or less.
std::vector<double> spread(double net, const std::vector<double>& amounts);

// The charges of a bill that a part of its goods takes along, their net being what the lines of that part
// have: `part` is from 0 to 1.
Charges partOf(const Charges& charges, double part, double net);

// Where each of them stands in the ledger, by the column of SALE that holds it: a discount on the party's
// side, charges on that of the goods, in accounts that the settings choose.
struct ChargePosting {
  const char* column;
  std::string side, account;
};
inline constexpr std::array kChargeColumns = {"DISC_AMT1", "CHRG_AMT1", "CHRG_AMT2", "CHRG_AMT3"};
std::vector<ChargePosting> chargePostings(Database& db, const VoucherKind& kind);
