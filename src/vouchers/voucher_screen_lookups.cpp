#include <algorithm>

#include "base/text.h"
#include "vouchers/voucher_screen.h"

// What opens over a voucher: the lists of its fields, and the earlier rates over its lines.

using namespace fields;

// Lookups

void VoucherScreen::wireLookups(std::vector<KeyLookup> table) {
  lookups_ = std::move(table);
  std::vector<Rule<VoucherScreen>> rules;
  for (const KeyLookup& by : lookups_) {
    if (by.key == Key(KeyCode::Enter)) continue;  // opened by the field's own Enter
    rules.emplace_back(by.field, by.key, &VoucherScreen::helpHere);
    rules.back().run = [&by](VoucherScreen& self) { return self.openLookup(by); };
  }
  wire(*this, rules);
}

Go VoucherScreen::openLookup(const KeyLookup& by) {
  if (by.onlyEmpty && !here().text.empty()) return Go::Stay;
  Lookup lookup = by.lookup;
  for (const KeyLookup::From from : by.binds)
    lookup.rows.values.emplace_back(from == KeyLookup::From::Book ? kind_.code : trimmed(kItem));
  lookup.keys = here().hint;
  chosenUnit_.clear();
  lookup.tell = [this](const std::string& unit) { chosenUnit_ = unit; };
  const Go answer = lookUp(host, *this, here(), lookup);
  // Enter has a list of its own yet.
  if (here().declined && by.key != Key(KeyCode::Enter)) {
    here().declined = false;
    focusMoved(here());
  }
  return answer;
}

const VoucherScreen::KeyLookup* VoucherScreen::enterLookup(const Control& field) const {
  const auto found = std::ranges::find_if(lookups_, [&](const KeyLookup& by) {
    return by.key == Key(KeyCode::Enter) && by.field == field.spec->field;
  });
  return found == lookups_.end() ? nullptr : &*found;
}

Go VoucherScreen::helpHere() {
  const KeyLookup* const by = enterLookup(here());
  return by ? openLookup(*by) : Go::On;
}

// The rate grid

void VoucherScreen::showRates(const RateList& list) {
  Control& grid = at(kEarlierRates);
  grid.grid.columns = list.columns;
  grid.grid.source = list.rows;
  grid.grid.current = Grid::kNone;
  grid.visible = !list.rows->rows.empty();
  if (focused() != &grid)
    ratesFor_ = grid.visible ? focused() : nullptr;
  else if (!grid.visible)
    leaveRates();
  tellEscape();
}

Go VoucherScreen::intoRates() {
  if (!ratesShown()) return Go::On;
  focus(at(kEarlierRates));
  return Go::Stay;
}

void VoucherScreen::leaveRates() {
  at(kEarlierRates).visible = false;
  backFromRates_ = true;
  tellEscape();
  focus(at(kRate));
}

// The rates stay up while their field, or they, have the focus.
void VoucherScreen::focusMoved(Control& control) {
  ChildScreen::focusMoved(control);
  if (ratesShown() && &control != ratesFor_ && control.spec->field != kEarlierRates)
    at(kEarlierRates).visible = false;
  tellEscape();
}
