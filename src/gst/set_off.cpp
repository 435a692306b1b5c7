#include "gst/set_off.h"

#include <algorithm>

namespace {

// Pays as much as both have.
void pay(Paise& owed, Paise& credit, Paise& paid, Paise most) {
  const Paise amount = std::max<Paise>(0, std::min({owed, credit, most}));
  owed -= amount;
  credit -= amount;
  paid += amount;
}

void pay(Paise& owed, Paise& credit, Paise& paid) { pay(owed, credit, paid, owed); }

// More was given back than sold.
void turn(Paise& owed, Paise& credit) {
  if (owed >= 0) return;
  credit -= owed;
  owed = 0;
}

}  // namespace

SetOff setOff(TaxAmounts owed, TaxAmounts credit, const TaxAmounts& cashOnly) {
  SetOff result;
  owed.taxable = credit.taxable = 0;
  turn(owed.igst, credit.igst);
  turn(owed.cgst, credit.cgst);
  turn(owed.sgst, credit.sgst);
  turn(owed.cess, credit.cess);
  pay(owed.igst, credit.igst, result.igst.igst);
  // The rest goes first where own credit does not reach, so that the least cash is paid.
  pay(owed.cgst, credit.igst, result.cgst.igst, owed.cgst - credit.cgst);
  pay(owed.sgst, credit.igst, result.sgst.igst, owed.sgst - credit.sgst);
  pay(owed.cgst, credit.igst, result.cgst.igst);
  pay(owed.sgst, credit.igst, result.sgst.igst);
  pay(owed.cgst, credit.cgst, result.cgst.cgst);
  pay(owed.igst, credit.cgst, result.igst.cgst);
  pay(owed.sgst, credit.sgst, result.sgst.sgst);
  pay(owed.igst, credit.sgst, result.igst.sgst);
  pay(owed.cess, credit.cess, result.cess.cess);
  result.cash = owed;
  result.cash += cashOnly;
  result.cash.taxable = 0;
  result.left = credit;
  return result;
}
