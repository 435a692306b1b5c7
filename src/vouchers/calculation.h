#pragma once

#include <optional>
#include <string>

// The arithmetic of a bill: which tax applies, what a line is worth, what the bill comes to.
// Amounts are rupees in doubles, rates are per cent. Every step rounds where and only where
// it is written so, since the stored figures are those that the operator has seen.
//
// One line is valued twice, by two rules that must stay apart: `LineValue` on the screen
// keeps the discounted value at full precision as the base of the tax, `storedAmount` for
// the books rounds gross, discount and net each to the paisa. For 3 x 33.33 less 10% the tax
// is figured on 89.991 while the stored amount is 89.99.

// Rates as texts for the three rate fields.
struct TaxTexts {
  std::string cgst, sgst, igst;
};

// CGST and SGST by halves when the state codes are equal, else IGST alone. A rate that is not
// above 0 leaves the rates that would carry it empty. Nothing when the item has no rate.
std::optional<TaxTexts> splitTax(double companyState, double partyState, std::optional<double> rateOfTax);

struct Taxes {
  double cgst = 0, sgst = 0, igst = 0;
};

// Working values of the line being typed.
struct LineValue {
  double assess = 0;  // assessable value, not rounded once a discount is off
  Taxes rates, amounts;
  double net = 0;

  // Values the line; the net takes the tax amounts as they stand from before.
  void value(double quantity, double rate, double discount);
  // Figures all three taxes from their rates.
  void tax(const Taxes& atRates);
  // One tax from its rate.
  double taxAt(double rate) const;
  // Takes tax amounts as they were typed.
  void take(const Taxes& typed);

  double shownNet() const;  // to the paisa
};

// Line discounts are refused below 0 only: 100 and more pass, and make the line nil or negative.
bool discountRefused(double discount);

// The amount of a line for the books.
double storedAmount(double quantity, double rate, double discount);

struct BillTotal {
  double amount = 0;    // whole rupees, halves to even
  double roundOff = 0;  // amount - sum, above 0 when the bill rose
};

BillTotal billTotal(double items, const Taxes& taxes);
// The same while a line is being typed: the sum is rounded to the paisa first.
BillTotal billPreview(double items, const Taxes& taxes);

// A quantity as its field shows it: three decimals; a negative one stays as typed.
std::string quantityText(const std::string& typed);
