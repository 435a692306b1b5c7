#pragma once

#include <cstdint>

// Money of the returns in whole paise, so that sums are exact.
using Paise = std::int64_t;

// Of rupees as a voucher keeps them; half a paisa counts away from 0.
Paise paise(double rupees);
inline double rupees(Paise amount) { return static_cast<double>(amount) / 100; }

struct TaxAmounts {
  Paise taxable = 0, igst = 0, cgst = 0, sgst = 0, cess = 0;

  TaxAmounts& operator+=(const TaxAmounts& more);
  TaxAmounts operator*(int sign) const;
  TaxAmounts operator-() const { return *this * -1; }
  Paise tax() const { return igst + cgst + sgst + cess; }
  bool operator==(const TaxAmounts&) const = default;
};
