#include "vouchers/calculation.h"

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"

std::optional<TaxTexts> splitTax(double companyState, double partyState, std::optional<double> rateOfTax) {
  if (!rateOfTax) return std::nullopt;
  const double rate = *rateOfTax;
  if (companyState == partyState) {
    const std::string half = rate > 0 ? numText(rate / 2) : "";
    return TaxTexts{half, half, "0"};
  }
  return TaxTexts{"0", "0", rate > 0 ? numText(rate) : ""};
}

void LineValue::value(double quantity, double rate, double discount) {
  assess = Round(rate * quantity, 2);
  assess = assess - (discount * assess) / 100;
  net = amounts.cgst + assess + amounts.sgst + amounts.igst;
}

double LineValue::taxAt(double rate) const { return Round(assess * rate / 100, 2); }

void LineValue::tax(const Taxes& atRates) {
  rates = atRates;
  amounts = {taxAt(rates.cgst), taxAt(rates.sgst), taxAt(rates.igst)};
  net = assess + amounts.cgst + amounts.sgst + amounts.igst;
}

void LineValue::take(const Taxes& typed) {
  amounts = typed;
  net = assess + amounts.cgst + amounts.sgst + amounts.igst;
}

double LineValue::shownNet() const { return Round(net, 2); }

bool discountRefused(double discount) { return discount < 0; }

double storedAmount(double quantity, double rate, double discount) {
  const double gross = Round(quantity * rate, 2);
  const double off = Round(gross * discount / 100, 2);
  return Round(Round(gross - off, 2), 2);
}

BillTotal billTotal(double items, const Taxes& taxes) {
  const double sum = items + taxes.cgst + taxes.sgst + taxes.igst;
  return {Round(sum, 0), Round(Round(sum, 0) - Round(sum, 2), 2)};
}

BillTotal billPreview(double items, const Taxes& taxes) {
  return billTotal(Round(items + taxes.cgst + taxes.sgst + taxes.igst, 2), {});
}

std::string quantityText(const std::string& typed) {
  const double quantity = Val(typed);
  return quantity >= 0 ? Format(quantity, "0.000") : typed;
}
