#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "platform/edit.h"
#include "vouchers/gstnote.h"

// The lines of a note. Of one that a bill brought only what goes back is typed, and the rate where an
// allowance is made on it.

using namespace fields;

void GSTNOTE::clearLine() {
  GSTSAPU::clearLine();
  linked_ = false;
  lockLine();
}

void GSTNOTE::showLine(const Row& line) {
  GSTSAPU::showLine(line);
  serial_ = line.number(kind_.tables.serial);
  const auto found = originals_.find(serial_);
  linked_ = found != originals_.end();
  put(kBilled, linked_ ? Format(found->second.billed, "0.000") : "");
  put(kBefore, linked_ && found->second.before != 0 ? Format(found->second.before, "0.000") : "");
  lockLine();
  // The focus stays in the field while the walk goes through the lines.
  if (linked_) edit::selectAll(at(kQuantity));
}

void GSTNOTE::lockLine() {
  const bool entered = at(kQuantity).enabled;
  for (const FieldName own :
       {kItem, kUnit, kDiscount, kCgstRate, kCgstAmount, kSgstRate, kSgstAmount, kIgstRate, kIgstAmount})
    at(own).enabled = entered && !linked_;
  for (const FieldName rate : {kRate, kCurrencyItemRate}) at(rate).enabled = entered && (!linked_ || byRate_);
  if (linked_) at(kItemName).enabled = false;
  std::string& keys = at("lblkeys").text;
  if (linked_ && takesBack())
    keys = words("Left {left}  ::  More Than That Asks First  ::  0 = Not In This Note", "left",
                 Format(original()->left(), "0.000"));
  else if (linked_)
    keys = words("0 = Not In This Note  ::  Up / Down = Line  ::  Page Down = End Lines");
  else
    keys = words(find("lblkeys")->spec->label);
}

FieldName GSTNOTE::lineStart() const {
  if (linked_) return kQuantity;
  return originals_.empty() ? kItem : afterLines();
}

const OriginalLine* GSTNOTE::original() const {
  const auto found = originals_.find(serial_);
  return linked_ && found != originals_.end() ? &found->second : nullptr;
}

bool GSTNOTE::takesBack() const { return ::takesBack(kind_); }

bool GSTNOTE::tooMuch(double serial, const OriginalLine& line, double quantity) const {
  constexpr double kHair = 1e-6;  // of a quantity of three decimals
  const auto meant = meant_.find(serial);
  return takesBack() && quantity > line.left() + kHair &&
         (meant == meant_.end() || meant->second != quantity);
}

bool GSTNOTE::askTooMuch(double serial, const OriginalLine& line, double quantity) {
  if (!tooMuch(serial, line, quantity)) return true;
  if (!host.ask(
          {.text = words("Of The {billed} That Were Billed {left} Are Left\nTake {typed} All The Same ?",
                         "billed", numText(line.billed), "left", numText(line.left()), "typed",
                         numText(quantity)),
           .title = kConfirm,
           .yes = english("&Yes, Take It"),
           .no = english("&No, Change It"),
           .loses = true}))
    return false;
  meant_[serial] = quantity;
  return true;
}

bool GSTNOTE::quantityStands() {
  const OriginalLine* const line = original();
  if (!line) return GSTSAPU::quantityStands();
  if (std::ranges::count(text(kQuantity), '.') > 1) {
    host.message(words("{text} Is No Quantity", "text", text(kQuantity)), kCheck);
    return false;
  }
  if (value(kQuantity) >= 0) return askTooMuch(serial_, *line, value(kQuantity));
  host.message("A Quantity Of A Note Is 0 Or More", kCheck);
  return false;
}

Go GSTNOTE::quantity() {
  if (!original()) return GSTSAPU::quantity();
  if (!quantityStands()) return Go::Stay;
  const bool fresh = lines_->onRow() && lines_->row().number("QUANTITY") == 0;
  put(kQuantity, quantityText(text(kQuantity)));
  here().worked = here().text;
  if (leaving()) return Go::On;
  if (!byRate_ || value(kQuantity) == 0) return amount();
  // What is allowed for one is another figure than the rate of the bill.
  if (fresh) put(rateField(), "");
  return Go::On;
}

Go GSTNOTE::rate() {
  GSTSAPU::rate();
  if (!original() || leaving()) return Go::On;
  here().worked = here().text;
  return amount();
}

// What a bill charged beside its goods goes with them, as far as its lines come at the rate of the bill: an
// allowance on the rate leaves it as it is.
bool GSTNOTE::hasCharges() const {
  return std::ranges::any_of(originals_, [](const auto& line) { return line.second.share != 0; });
}

std::vector<double> GSTNOTE::sharesOf(const std::vector<Row>& lines) {
  struct Part {
    double goods = 0, net = 0;
  };
  std::map<std::pair<std::string, double>, Part> bills;
  std::vector<double> shares;
  for (const Row& row : lines) {
    double& share = shares.emplace_back(0);
    const auto found = originals_.find(row.number("SR_NO"));
    if (found == originals_.end()) continue;
    const OriginalLine& line = found->second;
    if (line.billed == 0 || row.number("RATE") != line.rate) continue;
    const double part = row.number("QUANTITY") / line.billed;
    share = Round(line.share * part, 2);
    Part& bill = bills[{line.book, line.voucher}];
    bill.goods += line.amount * part;
    bill.net += share;
  }
  Charges all;
  for (const auto& [bill, part] : bills) {
    const BilledCharges billed = readBilledCharges(data(), bill.first, bill.second);
    if (billed.goods == 0) continue;
    const Charges its = partOf(billed.charges, part.goods / billed.goods, Round(part.net, 2));
    for (double Charges::*charge :
         {&Charges::discount, &Charges::packing, &Charges::freight, &Charges::other})
      all.*charge = Round(all.*charge + its.*charge, 2);
  }
  putCharges(all);
  showCharges(all.any());
  return shares;
}

Go GSTNOTE::wholeLine() {
  const OriginalLine* const line = original();
  if (!line) return Go::On;
  put(kQuantity, takesBack() ? std::max(line->left(), 0.0) : line->billed);
  if (quantity() == Go::On) focus(at(rateField()));
  return Go::Stay;
}

// All that is left of the bills.
void GSTNOTE::allLines() {
  if (byRate_) return host.message("What Is Allowed For One Is Typed Line By Line");
  if (!mayLeaveLine()) return;
  for (size_t row = 0; row < lines_->count(); ++row) {
    lines_->moveTo(row);
    showCurrentLine();
    const OriginalLine* const line = original();
    if (!line || value(kQuantity) != 0) continue;
    put(kQuantity, quantityText(numText(takesBack() ? std::max(line->left(), 0.0) : line->billed)));
    if (!figureLine()) return;
    lines_->store(lineFields());
  }
  sumAgain();
  lines_->moveTo(0);
  showCurrentLine();
  focus(at(lineStart()));
}

Go GSTNOTE::rateInstead() {
  byRate_ = !byRate_;
  lockLine();
  focus(at(byRate_ && linked_ ? rateField() : lineStart()));
  return Go::Stay;
}
