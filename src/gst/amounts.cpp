#include "gst/amounts.h"

#include <cmath>

#include "base/number.h"

// The product is put right first: 1.005 * 100 is a little below 100.5.
Paise paise(double rupees) { return std::llround(Round(rupees * 100, 4)); }

TaxAmounts& TaxAmounts::operator+=(const TaxAmounts& more) {
  taxable += more.taxable;
  igst += more.igst;
  cgst += more.cgst;
  sgst += more.sgst;
  cess += more.cess;
  return *this;
}

TaxAmounts TaxAmounts::operator*(int sign) const {
  return {taxable * sign, igst * sign, cgst * sign, sgst * sign, cess * sign};
}
