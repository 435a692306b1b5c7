#include <algorithm>
#include <stdexcept>

#include "base/number.h"
#include "base/text.h"
#include "frame/session.h"
#include "vouchers/voucher_screen.h"

// What a voucher is made from: challans and offers that are taken into it one after the other.

using namespace fields;

namespace {

// Joined to what stands there, unless it does already or would not fit.
void appendTo(std::string& text, const std::string& more, int limit) {
  if (more.empty()) return;
  for (const std::string& part : split(text, ","))
    if (sameText(trim(part), more)) return;
  const std::string both = text.empty() ? more : text + ", " + more;
  if (both == cut(both, limit)) text = both;
}

}  // namespace

bool VoucherScreen::hasSources() const { return !madeFromKinds(kind_).empty(); }

void VoucherScreen::openSourcesKey() {
  if (!hasSources() || !entering() || atRest_ || (mode == "EDIT" && loaded_ == 0)) return;
  if (!trimmed(kParty).empty() && !work(at(kParty))) return;
  if (!mayLeaveLine()) return;
  Lookup::Several several;
  do {
    several.more = false;
    MadeFrom from;
    Lookup lookup =
        openSources(data(), kind_, trimmed(kParty), sources_, mode == "EDIT" ? value(kNumber) : 0);
    lookup.several = &several;
    lookup.tell = [&from](const std::string& book) { from.book = book; };
    const std::string chosen = lookUpValue(host, lookup);
    if (!from.book.empty()) {
      from.voucher = Val(chosen);
      const bool taken = std::ranges::find(sources_, from) != sources_.end();
      taken ? takeOut(from) : take(from);
    }
  } while (several.more);
  focusMoved(here());
}

void VoucherScreen::take(const MadeFrom& from) {
  const auto head = readSource(data(), from);
  if (!head) return;  // deleted since the list was shown
  ensureMadeFrom(data());
  if (trimmed(kParty).empty()) {
    put(kParty, head->party);
    if (!partyTaken()) return;
    at(kParty).worked = at(kParty).text;
  }
  Control& order = at(kOrderNumber);
  std::string orders = trim(order.text);
  appendTo(orders, head->orderNumber, order.limit);
  if (orders != trim(order.text)) put(kOrderNumber, orders);
  for (const auto& [field, text] : {
           std::pair{kTransport, head->transport},
           {kLrNumber,  head->lrNumber }
  })
    if (!text.empty() && trimmed(field).empty()) put(field, text);

  while (lines_->onRow()) lines_->next();
  Taken& taken = taken_[from.book + numText(from.voucher)];
  taken.asStored = asStored(data(), *kindByBook(from.book), from.voucher);
  std::vector<std::string> untaxed;
  for (const SourceLine& line : readSourceLines(data(), from)) {
    clearLine();
    if (!putSourceLine(line)) untaxed.push_back(line.item);
    if (!figureLine()) continue;
    taken.serials.push_back(lines_->serial());
    lines_->store(lineFields());
    lines_->next();
  }
  sources_.push_back(from);
  at(kLines).visible = true;
  const bool held = (head->discount == 0 && head->charges == 0) || bringCharges(*head, false);
  showSources();
  if (!untaxed.empty()) host.message(words("SPECIFY RATE OF TAX IN ITEM") + "\n" + join(untaxed, ", "));
  if (!held)
    host.message(words("The Lines Of {voucher} Do Not Hold Its Discount {discount} And Charges {charges}",
                       "voucher", head->name, "discount", numText(head->discount), "charges",
                       numText(head->charges)));
}

// Lines of one that was stored with the voucher are not told apart any more.
void VoucherScreen::takeOut(const MadeFrom& from) {
  std::erase(sources_, from);
  const auto lines = taken_.extract(from.book + numText(from.voucher));
  if (lines.empty()) {
    host.message(words("It Is Open Again With The Save :: Delete Its Lines By F10"));
  } else {
    for (const double serial : lines.mapped().serials)
      data().exec("DELETE FROM " + kind_.tables.work + " WHERE " + kind_.tables.serial + " = ?", serial);
  }
  if (const auto head = readSource(data(), from)) bringCharges(*head, true);
  lines_->requery();
  showSources();
}

// One that was taken into another voucher, or has gone, tells so itself.
void VoucherScreen::keepTaken() {
  keepSources(data(), kind_, value(kNumber), trimmed(kParty), sources_);
  for (const MadeFrom& from : sources_) {
    const auto taken = taken_.find(from.book + numText(from.voucher));
    if (taken == taken_.end() ||
        taken->second.asStored == asStored(data(), *kindByBook(from.book), from.voucher))
      continue;
    const auto head = readSource(data(), from);
    throw std::runtime_error(words("{voucher} Has Been Changed Meanwhile\nCtrl+O Takes It Out And In Again",
                                   "voucher", head ? head->name : ""));
  }
}

void VoucherScreen::showSources() {
  sumAgain();
  showCurrentLine();
  sourcesShown();
  tellStanding();
}

// Beside the buttons: what was made of the voucher, or what it is made from.
void VoucherScreen::tellStanding() {
  standing_ = hasSources() ? fromWords(data(), sources_) : "";
  if (mode == "EDIT" && loaded_ != 0) {
    const std::string billed = billedWords(data(), {kind_.book(), loaded_});
    if (!billed.empty()) standing_ = billed + (standing_.empty() ? "" : "  ::  " + standing_);
  }
  tellReason();
}

void VoucherScreen::tellReason() {
  const bool on = at("CMDSAVE").enabled;
  reason = atRest_ ? "" : on ? standing_ : kind_.words.saveOpens;
  if (!atRest_ && !on && !standing_.empty()) reason = standing_ + "  ::  " + words(reason);
}

// Another voucher was made of this one, and says what this one said then.
bool VoucherScreen::mayBeSaved() {
  const std::string billed = mode == "EDIT" ? billedWords(data(), {kind_.book(), value(kNumber)}) : "";
  return billed.empty() ||
         host.ask({.text = english("Another Voucher Was Made Of This One\nChange It All The Same ?"),
                   .title = kConfirm,
                   .yes = english("&Yes, Change It"),
                   .no = english("&No, Leave It"),
                   .facts = billed,
                   .loses = true});
}

bool VoucherScreen::mayBeDeleted(double number) {
  const std::string refusal = sourceRefuses(data(), kind_, number);
  if (!refusal.empty()) host.message(refusal, kCheck);
  return refusal.empty();
}
