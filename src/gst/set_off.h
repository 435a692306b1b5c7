#pragma once

#include "gst/amounts.h"

// How credit pays what is owed, in the order of the law: IGST credit first pays IGST, then CGST and SGST
// until it is used up; only then CGST credit pays CGST and IGST, SGST credit SGST and IGST. CGST and SGST
// never pay each other, cess only itself. The taxable value plays no part.

struct SetOff {
  struct Paid {
    Paise igst = 0, cgst = 0, sgst = 0, cess = 0;  // by the credit of each
    Paise all() const { return igst + cgst + sgst + cess; }
  };
  Paid igst, cgst, sgst, cess;  // of each tax that is owed
  TaxAmounts cash;              // what is left to pay
  TaxAmounts left;              // credit that is carried on
};

// What only cash pays is added to the cash. An amount below 0 that is owed is carried as credit of its own.
SetOff setOff(TaxAmounts owed, TaxAmounts credit, const TaxAmounts& cashOnly = {});
