#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "frame/session.h"
#include "vouchers/gstsapu.h"
#include "vouchers/items.h"

// The line being typed: from its item to the work table and back.

using namespace fields;

namespace {

constexpr FieldName kTotals[] = {kItemsAmount, kTotalQuantity, kCgstTotal, kSgstTotal, kIgstTotal};

}  // namespace

Go GSTSAPU::item() {
  const std::string code = trimmed(kItem);
  if (code.empty()) return helpHere();
  if (endsLines()) return Go::Stay;
  at(kItemName).enabled = isMisc();
  const auto found = readSaleItem(data(), code);
  if (!found) {
    host.message("Check Item Code");
    put(kItem, "");
    textChanged();
    at(kItemName).enabled = false;
    return Go::Stay;
  }
  if (!isMisc() || itemChanged()) put(kItemName, isMisc() ? "" : found->name);
  if (inCurrency() && itemChanged())
    for (const FieldName ofOther : {kRate, kCurrencyItemRate}) put(ofOther, "");
  if (!fillRates(found->rateOfTax)) host.message("SPECIFY RATE OF TAX IN ITEM");
  put(kUnit, unitOf(code, found->unit));
  if (!fillFromUnit()) host.message("Check Unit For This Item in Item Master");
  focus(at(isMisc() ? kItemName : at(kDetail).visible ? kDetail : kUnit));
  return Go::Stay;
}

bool GSTSAPU::fillRates(const std::optional<double>& rateOfTax) {
  const bool collects = !composition_ || isBought(kind_);
  const auto texts = splitTax(Val(session().mstatecd), taxedState(told(), partyState_),
                              collects ? rateOfTax : std::optional<double>(0));
  if (!texts) return false;
  put(kCgstRate, texts->cgst);
  put(kSgstRate, texts->sgst);
  put(kIgstRate, texts->igst);
  return true;
}

// Rate and discount of the unit, where none has been typed; false when the item lacks the unit.
bool GSTSAPU::fillFromUnit() {
  if (isMisc()) return true;
  const auto rates = readUnit(data(), kind_, trimmed(kItem), trimmed(kUnit));
  if (!rates) return false;
  takeFromUnit(*rates);
  proposeCurrencyRate();
  return true;
}

bool GSTSAPU::putSourceLine(const SourceLine& line) {
  put(kItem, line.item);
  put(kItemName, line.name);
  put(kDetail, line.detail);
  keepFreeName();
  put(kUnit, line.unit);
  put(kQuantity, quantityText(numText(line.quantity)));
  put(kRate, line.rate);
  put(kCurrencyItemRate, "");
  proposeCurrencyRate();
  put(kDiscount, line.discount);
  return fillRates(line.taxRate);
}

Go GSTSAPU::itemName() { return trimmed(kItemName).empty() ? helpHere() : Go::On; }

Go GSTSAPU::unit() {
  if (trimmed(kUnit).empty()) return helpHere();
  if (fillFromUnit()) return Go::On;
  host.message("Check unit for this item");
  return Go::Stay;
}

Go GSTSAPU::quantity() {
  if (!quantityStands()) return Go::Stay;
  put(kQuantity, quantityText(text(kQuantity)));
  return Go::On;
}

Go GSTSAPU::rate() {
  put(kRate, value(kRate));
  valueLine();
  return Go::On;
}

Go GSTSAPU::discount() {
  put(kDiscount, value(kDiscount));
  if (figureLine()) focus(at(kAmount));
  return Go::Stay;
}

std::vector<FieldName> GSTSAPU::lineInputs() const {
  return {kQuantity, kRate, kCurrencyItemRate, kDiscount, kCgstRate, kSgstRate, kIgstRate};
}

bool GSTSAPU::figureLine() {
  if (discountRefused(value(kDiscount))) {
    host.message("Discount can not be greater than 100%");
    put(kDiscount, "");
    return false;
  }
  takeCurrencyRate();
  valueLine();
  line_.tax({value(kCgstRate), value(kSgstRate), value(kIgstRate)});
  if (isZeroRated(supply_.kind)) line_.take({});
  put(kCgstAmount, line_.amounts.cgst);
  put(kSgstAmount, line_.amounts.sgst);
  put(kIgstAmount, line_.amounts.igst);
  showNet();
  lineIsFigured();
  return true;
}

// A rate typed by hand gives its amount, on the value last worked out.
Go GSTSAPU::taxRate() {
  struct Pair {
    FieldName rate, amount;
    double Taxes::*tax;
  };
  for (const Pair p : {
           Pair{kCgstRate, kCgstAmount, &Taxes::cgst},
           {kSgstRate, kSgstAmount, &Taxes::sgst},
           {kIgstRate, kIgstAmount, &Taxes::igst}
  }) {
    if (!isHere(p.rate)) continue;
    // An amount that was typed for what the line holds is not lost by walking over its rate.
    if (leaving() && !at(p.amount).given && lineFigured()) return Go::On;
    line_.rates.*p.tax = value(p.rate);
    line_.amounts.*p.tax = isZeroRated(supply_.kind) ? 0 : line_.taxAt(value(p.rate));
    put(p.amount, line_.amounts.*p.tax);
    inputIsFigured(p.rate);
    focus(at(p.amount));
  }
  return Go::Stay;
}

// An amount typed by hand stands for what the line holds now; the others are worked out for it first.
Go GSTSAPU::taxAmount() {
  if (!here().given && !lineFigured()) {
    const std::string typed = here().text;
    if (!figureLine()) return Go::Stay;
    set(here(), typed);
  }
  valueLine();
  if (isZeroRated(supply_.kind)) put(here().spec->field, 0);
  line_.take(typedTaxes());
  showNet();
  focus(at(isHere(kCgstAmount) ? kSgstRate : isHere(kSgstAmount) ? kIgstRate : kAmount));
  return Go::Stay;
}

Taxes GSTSAPU::typedTaxes() const { return {value(kCgstAmount), value(kSgstAmount), value(kIgstAmount)}; }

// What the bill asks for beside the goods.
Taxes GSTSAPU::billedTaxes() const {
  return supply_.leavesTaxesOut() ? Taxes{} : Taxes{value(kCgstTotal), value(kSgstTotal), value(kIgstTotal)};
}

void GSTSAPU::valueLine() {
  line_.value(value(kQuantity), value(kRate), value(kDiscount));
  showAssess();
  showNet();
  const BillTotal preview = billPreview(taxable(), billedTaxes());
  put(kRoundOff, preview.roundOff);
  put(kNetAmount, preview.amount);
}

void GSTSAPU::showAssess() { at(kAssessable).text = Format(line_.assess, "0.00"); }

void GSTSAPU::showNet() { put(kAmount, line_.shownNet()); }

Fields GSTSAPU::lineFields() {
  const Moment now = host.now();
  Fields line = VoucherScreen::lineFields();
  // clang-format off
  for (Field& f : Fields{
      {"VOUCH_TIME", Clock{now.hour, now.minute}},
      {"AMOUNT",     storedAmount(value(kQuantity), value(kRate), value(kDiscount))},
      {"ORDER_NO",   value(kOrderNumber)},
      {"CHLN_DT",    date(kDate)},
      {"BLTYPE",     "TAX"},
      {"GSTPOST",    1},
  }) line.push_back(std::move(f));
  // clang-format on
  const bool foreign = inCurrency();
  line.push_back({"CUR_NM", foreign ? currencyTyped() : "."});
  line.push_back({"CUR_RT", foreign ? value(kCurrencyRate) : 0});
  line.push_back(
      {"CUR_AMT", foreign ? storedAmount(value(kQuantity), value(kCurrencyItemRate), value(kDiscount)) : 0});
  for (const char* column : {"ITEM_SNAME", "MFG_DT", "EXP_DT", "YOUR_REF"}) line.push_back({column, "."});
  for (const char* column : {"SALE_DISC1", "TAX_CD", "TAX_RT", "TAX_AMT", "VAT_AMT", "BRKRG", "DESC1",
                             "CESS_PERC1", "CESS_AMT1", "DISC3", "DISC4"})
    line.push_back({column, 0});
  return line;
}

void GSTSAPU::showLine(const Row& line) {
  VoucherScreen::showLine(line);
  put(kQuantity, quantityText(line.text("QUANTITY")));
  // What a tax rate typed over is worked out on; the taxes themselves are figured anew.
  line_.value(value(kQuantity), value(kRate), value(kDiscount));
  showAssess();
}

void GSTSAPU::clearLine() {
  VoucherScreen::clearLine();
  line_ = {};
  showAssess();
}

double GSTSAPU::taxable() const { return value(kItemsAmount) + typedCharges().net(); }

// A column that sums to nothing leaves its field as it is.
void GSTSAPU::sumLines() {
  shareCharges();
  const auto sums = lines_->sums({"AMOUNT", "QUANTITY", "CGSTAMT", "SGSTAMT", "IGSTAMT"});
  for (size_t i = 0; i < sums.size(); ++i)
    if (sums[i]) put(kTotals[i], Round(*sums[i], 2));
  put(kTaxable, Round(taxable(), 2));
  const BillTotal total = billTotal(taxable(), billedTaxes());
  put(kNetAmount, total.amount);
  put(kRoundOff, total.roundOff);
  if (inCurrency())
    put(kCurrencyTotal, currencyTotal());
  else
    put(kCurrencyTotal, "");
}

void GSTSAPU::sumAgain() {
  for (const FieldName total : kTotals) put(total, "");
  sumLines();
}

// The rate grid

RateQuery GSTSAPU::rateQuery() const { return {trimmed(kParty), trimmed(kItem), trimmed(kUnit)}; }

void GSTSAPU::rateHints() {
  if (!backFromRates()) showRates(latestSales(data(), kind_, rateQuery()));
}

void GSTSAPU::earlierSalesKey() { showRates(earlierSales(data(), kind_, rateQuery())); }

void GSTSAPU::partyRatesKey() { showRates(partyRates(data(), kind_, rateQuery())); }

void GSTSAPU::purchaseRatesKey() { showRates(purchaseRates(data(), rateQuery())); }
