#pragma once

#include <string>
#include <vector>

#include "gst/gstr1.h"

// What the portal would refuse of a GSTR-1, found before the file leaves the shop: where it stands, which
// field it is and what cures it, in words. Doubtful is what it takes and somebody will ask about.

struct GstFault {
  enum class Weight { Refused, Doubtful };

  Weight weight = Weight::Refused;
  // What is to be mended: a voucher, a party, an item, or else the company or the return itself.
  const VoucherKind* kind = nullptr;
  double voucher = 0;
  std::string number;       // on the voucher's paper
  std::string party, item;  // codes
  std::string name;         // of the party or item
  std::string field, cure;
};

std::vector<GstFault> checkGstr1(Database& db, const Gstr1& gstr1);
