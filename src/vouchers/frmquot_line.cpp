#include "base/number.h"
#include "base/text.h"
#include "frame/session.h"
#include "vouchers/frmquot.h"
#include "vouchers/items.h"

// The line being typed: from its item to the work table and back.

using namespace fields;

namespace {

constexpr FieldName kTotals[] = {kItemsAmount, kTotalQuantity, kCgstTotal, kSgstTotal, kIgstTotal};

}  // namespace

Go FRMQUOT::item() {
  const std::string code = trimmed(kItem);
  if (code.empty()) return helpHere();
  if (endsLines()) return Go::Stay;
  at(kItemName).enabled = isMisc();
  if (isMisc()) {
    if (itemChanged()) put(kItemName, "");
    put(kUnit, unitOf(code, trimmed(kUnit)));
    focus(at(kItemName));
    return Go::Stay;
  }
  const auto found = readQuotedItem(data(), code);
  if (!found) {
    host.message("Check Item Code");
    put(kItem, "");
    textChanged();
    return Go::Stay;
  }
  put(kItemName, found->name);
  put(kUnit, unitOf(code, found->unit));
  takeFromUnit(readUnit(data(), kind_, code, trimmed(kUnit)).value_or(UnitRates{.rate = found->rate}));
  fillRates(found->rateOfTax);
  focus(at(kDetail));
  return Go::Stay;
}

void FRMQUOT::fillRates(const std::optional<double>& rateOfTax) {
  const auto texts = splitTax(Val(session().mstatecd), partyState_, rateOfTax);
  if (!texts) {
    host.message("SPECIFY RATE OF TAX IN ITEM");
    return;
  }
  put(kCgstRate, texts->cgst);
  put(kSgstRate, texts->sgst);
  put(kIgstRate, texts->igst);
}

// A rate that has been typed stays.
void FRMQUOT::fillRate(double rate) {
  if (value(kRate) == 0) put(kRate, rate);
}

// A name that the item master knows brings its rate and unit; any other is as good.
Go FRMQUOT::itemName() {
  const std::string name = trimmed(kItemName);
  if (name.empty()) return helpHere();
  const auto found = readQuotedItemByName(data(), name);
  if (!found) return Go::On;
  fillRate(found->rate);
  put(kUnit, found->unit);
  return Go::On;
}

Go FRMQUOT::unit() {
  if (trimmed(kUnit).empty()) return helpHere();
  const auto rates = readUnit(data(), kind_, trimmed(kItem), trimmed(kUnit));
  if (rates) takeFromUnit(*rates);
  focus(at(kQuantity));
  return Go::Stay;
}

Go FRMQUOT::quantity() {
  if (!quantityStands()) return Go::Stay;
  figure();
  return Go::On;
}

void FRMQUOT::figure() {
  set(here(), numText(Val(here().text)));
  valueLine();
}

Go FRMQUOT::discount() {
  figure();
  focus(at(kAmount));
  return Go::Stay;
}

// Amounts of tax follow their rates, also where another has been typed.
void FRMQUOT::valueLine() {
  const QuotedLine line = quotedLine(value(kQuantity), value(kRate), value(kDiscount),
                                     {value(kCgstRate), value(kSgstRate), value(kIgstRate)});
  put(kCgstAmount, line.taxes.cgst);
  put(kSgstAmount, line.taxes.sgst);
  put(kIgstAmount, line.taxes.igst);
  put(kAssessable, line.assess);
  put(kAmount, line.amount);
  lineIsFigured();
}

std::vector<FieldName> FRMQUOT::lineInputs() const {
  return {kQuantity, kRate, kDiscount, kCgstRate, kSgstRate, kIgstRate};
}

bool FRMQUOT::figureLine() {
  valueLine();
  return true;
}

Go FRMQUOT::lastTax() {
  valueLine();
  focus(at(kAmount));
  return Go::Stay;
}

Fields FRMQUOT::lineFields() {
  Fields line = VoucherScreen::lineFields();
  for (const char* column : {"TNO", "T_NO"}) line.push_back({column, lines_->serial()});
  line.push_back({"ITEM_SNAME", trimmed(kItemName)});
  for (const char* column : {"DISC2", "DTL1", "DTL2", "TCSRT", "TCSAMT"}) line.push_back({column, 0});
  return line;
}

void FRMQUOT::sumAgain() {
  for (const FieldName total : kTotals) put(total, "");
  sumLines();
}

// A column that sums to nothing leaves its field as it is.
void FRMQUOT::sumLines() {
  const auto sums = lines_->sums({"AMOUNT", "QUANTITY", "CGSTAMT", "SGSTAMT", "IGSTAMT"});
  for (size_t i = 0; i < sums.size(); ++i)
    if (sums[i]) put(kTotals[i], *sums[i]);
  put(kNetAmount, quotedTotal(value(kItemsAmount)));
}

// What the party has been billed for the item; an offer itself leaves no such trace.
void FRMQUOT::earlierSalesKey() {
  showRates(earlierSales(data(), saleKind(), {trimmed(kParty), trimmed(kItem), trimmed(kUnit)}));
}
