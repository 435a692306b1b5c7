#pragma once

#include <string>

#include "store/database.h"

// The accounting period of a company-year, rows 211 and 212 of SPSFILE.

struct Period {
  Date first, last;
  bool operator==(const Period&) const = default;
};

// Why it can be none, in words; empty when it can.
std::string refusalOf(const Period& period);

struct Outside {
  int count = 0;
  std::string first{};  // in words: its number, kind and date
};
// The stored vouchers of all kinds that the period leaves out.
Outside vouchersOutside(Database& db, const Period& period);
