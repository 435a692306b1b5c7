#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "vouchers/challan_amounts.h"
#include "vouchers/frmchln.h"
#include "vouchers/items.h"

// The line being typed: from its item to the work table and back.

using namespace fields;

Go FRMCHLN::item() {
  const std::string code = trimmed(kItem);
  if (code.empty()) return helpHere();
  if (endsLines()) return Go::Stay;
  const auto found = readSaleItem(data(), code);
  if (!found) {
    host.message("item does not exist");
    return Go::Stay;
  }
  // A name can have been typed only where the line was the free one already.
  const bool typedName = isMisc() && at(kItemName).enabled && !trimmed(kItemName).empty();
  if (!typedName) put(kItemName, found->name);
  at(kItemName).enabled = isMisc();
  put(kUnit, unitOf(code, found->unit));
  focus(at(isMisc() ? kItemName : kDetail));
  return Go::Stay;
}

Go FRMCHLN::unit() {
  if (trimmed(kUnit).empty()) return helpHere();
  const auto rates = readUnit(data(), kind_, trimmed(kItem), trimmed(kUnit));
  if (!rates) {
    host.message("Unit Not Found");
    return Go::Stay;
  }
  takeFromUnit(*rates);
  return Go::On;
}

Go FRMCHLN::quantity() {
  if (trimmed(kQuantity).empty()) put(kQuantity, "1");
  return quantityStands() ? Go::On : Go::Stay;
}

void FRMCHLN::rate() {
  if (trimmed(kRate).empty()) put(kRate, "0");
  figureLine();
}

bool FRMCHLN::figureLine() {
  put(kAmount, challanAmount(value(kQuantity), value(kRate)));
  lineIsFigured();
  return true;
}

// A challan's line has no discount of its own, so that its rate is what is left.
bool FRMCHLN::putSourceLine(const SourceLine& line) {
  put(kItem, line.item);
  put(kItemName, line.name);
  put(kDetail, cut(line.detail, at(kDetail).limit));
  put(kUnit, line.unit);
  put(kQuantity, line.quantity);
  put(kRate, Round(line.rate * (100 - line.discount) / 100, 4));
  keepFreeName();
  return true;
}

Fields FRMCHLN::lineFields() {
  Fields line = VoucherScreen::lineFields();
  for (const char* column : {"ITEM_SNAME", "DESC1", "QUALITY"}) line.push_back({column, "."});
  for (const char* column :
       {"SALE_DISC", "AMOUNT", "NOS", "BOXNO", "BOXWT", "TCNO", "ORDER_NO", "LOT_NO", "DANIER"})
    line.push_back({column, 0});
  return line;
}

// Discount and charges come in again when they are entered.
void FRMCHLN::sumLines() {
  const auto sums = lines_->sums({"QUANTITY", "NET_AMOUNT"});
  put(kTotalQuantity, sums[0].value_or(0));
  put(kItemsAmount, sums[1].value_or(0));
  put(kNetAmount, text(kItemsAmount));
}

void FRMCHLN::rateHints() {
  if (backFromRates()) return;
  showRates(challanRates(data(), kind_, {trimmed(kParty), trimmed(kItem), trimmed(kUnit)}));
  if (at(kEarlierRates).visible)
    ShowHint(host, words("{hint} :: Down = Earlier Challans", "hint", words(hintFor(here()))));
}
