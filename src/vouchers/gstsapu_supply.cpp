#include <algorithm>

#include "base/number.h"
#include "base/states.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "store/groups.h"
#include "vouchers/gstsapu.h"

// The panel of a bill's kind of supply, its place of supply and its currency. It stays away, and out of the
// walk, until it is asked for or a bill has something in it.

using namespace fields;

namespace {

// What is exported, or goes to a special economic zone, has a shipping bill, imported goods a bill of entry.
bool hasPapers(SupplyKind kind) { return isExport(kind) || isSez(kind) || kind == SupplyKind::ImportGoods; }

constexpr int kRateDecimals = 6, kCurrencyDecimals = 4;

}  // namespace

std::vector<ControlSpec> GSTSAPU::supplyPanel(const VoucherKind& kind) {
  const bool bought = isBought(kind);
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;
  const std::string kinds = bought ? english("0 = Ordinary :: 1 = Import Of Goods :: 2 = Import Of Services")
                                   : english(
                                         "1 = Export With Tax :: 2 = Export, LUT :: 3 = SEZ With Tax :: 4 = "
                                         "SEZ, LUT :: 5 = Deemed");
  // clang-format off
  return {
      {.name = "Text1",      .index = 70, .field = kSupplyKind,     .label = "Supply",     .at = {.group = "S", .row = 0, .col = 1}, .tab = 15, .limit = 1, .keys = Number, .visible = false, .align = Right, .hint = kinds},
      {.name = "Text1",      .index = 71, .field = kSupplyKindName, .at = {.group = "S", .row = 0, .col = 2}, .limit = 40, .enabled = false, .visible = false},
      {.name = "Text1",      .index = 72, .field = kPlaceOfSupply,  .label = "Place Of Supply", .at = {.group = "S", .row = 0, .col = 4}, .tab = 15, .limit = 2, .keys = Number, .visible = false, .align = Right, .hint = "State Code, Where It Is Not The Party's :: 96 = Abroad"},
      {.name = "Text1",      .index = 73, .field = kPlaceName,      .at = {.group = "S", .row = 0, .col = 5}, .limit = 60, .enabled = false, .visible = false},
      {.name = "Text1",      .index = 74, .field = kCurrency,       .label = "Currency",   .at = {.group = "S", .row = 0, .col = 7}, .tab = 15, .limit = 3, .keys = Letters, .visible = false, .hint = "Empty = Rupees :: USD, EUR ..."},
      {.name = "Text1",      .index = 75, .field = kCurrencyRate,   .holds = Holds::Figure, .label = "At",   .at = {.group = "S", .row = 0, .col = 9}, .tab = 15, .limit = 12, .keys = Number, .visible = false, .align = Right, .hint = "Rupees For One"},
      {.name = "Text1",      .index = 76, .field = kCurrencyTotal,  .at = {.group = "S", .row = 0, .col = 10}, .limit = 20, .enabled = false, .visible = false, .align = Right, .money = true},
      {.name = "Text1",      .index = 77, .field = kShippingBill,   .label = bought ? english("Bill Of Entry") : english("Shipping Bill"), .at = {.group = "S", .row = 1, .col = 1, .span = 2}, .tab = 15, .limit = 20, .keys = Letters, .visible = false},
      {.name = "MaskEdBox1", .index = 4,  .field = kShippingDate,   .kind = Kind::Date, .label = "Of", .at = {.group = "S", .row = 1, .col = 4, .span = 2, .width = 112}, .tab = 15, .visible = false, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
      {.name = "Text1",      .index = 78, .field = kPort,           .label = "Port",       .at = {.group = "S", .row = 1, .col = 7}, .tab = 15, .limit = 10, .keys = Letters, .visible = false, .hint = "Code Of The Port, As INMUN1"},
      {.name = "Text1",      .index = 79, .field = kCountry,        .label = "Country",    .at = {.group = "S", .row = 1, .col = 9, .span = 2}, .tab = 15, .limit = 50, .keys = Letters, .visible = false},
      {.name = "Text1",      .index = 91, .field = kCustoms,        .label = "Customs",    .at = {.group = "S", .row = 1, .col = 9}, .tab = 15, .limit = 6, .keys = Letters, .visible = false, .hint = "The Account That Their Tax Is Owed To"},
      {.name = "Text1",      .index = 92, .field = kCustomsName,    .at = {.group = "S", .row = 1, .col = 10}, .limit = 100, .enabled = false, .visible = false},
  };
  // clang-format on
}

void GSTSAPU::wireSupply() {
  wire(*this, {
                  {"",                Key::Ctrl('E'), &GSTSAPU::supplyKey       },
                  {kSupplyKind,       KeyCode::Enter, &GSTSAPU::supplyKindStands},
                  {kSupplyKind,       On::Change,     &GSTSAPU::supplyTyped     },
                  {kPlaceOfSupply,    KeyCode::Enter, &GSTSAPU::placeOfSupply   },
                  {kCurrency,         KeyCode::Enter, &GSTSAPU::currency        },
                  {kCurrencyRate,     KeyCode::Enter, &GSTSAPU::currencyRate    },
                  {kCustoms,          KeyCode::Enter, &GSTSAPU::customs         },
                  {kCurrencyItemRate, KeyCode::Enter, &GSTSAPU::currencyItemRate},
  });
}

void GSTSAPU::supplyKey() {
  if (!typing()) return;
  showPanel(true);
  focus(at(kSupplyKind));
}

void GSTSAPU::showPanel(bool on) {
  panel_ = on;
  layOutPanel();
}

void GSTSAPU::layOutPanel() {
  const bool papers = panel_ && hasPapers(supply_.kind), goods = papers && isBought(kind_);
  for (const FieldName always :
       {kSupplyKind, kSupplyKindName, kPlaceOfSupply, kPlaceName, kCurrency, kCurrencyRate, kCurrencyTotal})
    at(always).visible = panel_;
  for (const FieldName ofPapers : {kShippingBill, kShippingDate, kPort}) at(ofPapers).visible = papers;
  at(kCountry).visible = papers && !goods;
  for (const FieldName ofGoods : {kCustoms, kCustomsName}) at(ofGoods).visible = goods;
  at(kRate).visible = !inCurrency();
  at(kCurrencyItemRate).visible = inCurrency();
}

// Kind of supply

void GSTSAPU::mark(const Supply& supply) {
  supply_ = supply;
  const auto kinds = supplyKinds(isBought(kind_));
  const auto kind = std::ranges::find(kinds, supply.kind);
  put(kSupplyKind,
      kind == kinds.begin() || kind == kinds.end() ? "" : numText(static_cast<double>(kind - kinds.begin())));
  put(kPlaceOfSupply, supply.place == 0 ? "" : numText(supply.place));
  put(kShippingBill, supply.shippingBill);
  put(kShippingDate, supply.shippingDate);
  put(kPort, supply.port);
  put(kCountry, supply.country);
  put(kCustoms, supply.customs);
  showCustoms();
  showMarks();
  if (supply.kind != SupplyKind::Ordinary || supply.place != 0) showPanel(true);
}

// The party's where none is typed.
void GSTSAPU::showPlace() {
  put(kPlaceName,
      words(stateName(toInt(trimmed(kPlaceOfSupply).empty() ? partyState_ : value(kPlaceOfSupply)))));
}

void GSTSAPU::showMarks() {
  showPlace();
  put(kSupplyKindName, supplyName(supply_.kind));
  // The room beside the date of a small window is narrow.
  const bool both = supply_.reverse && supply_.ineligible;
  const std::string own = supplyMark(supply_.kind);
  put(kSupply, !own.empty()         ? (supply_.ineligible ? words("Import, No ITC") : own)
               : both               ? words("Rev. Charge, No ITC")
               : supply_.reverse    ? words("Reverse Charge")
               : supply_.ineligible ? words("No ITC")
                                    : "");
  at(kSupply).visible = !text(kSupply).empty();
  layOutPanel();
}

Supply GSTSAPU::told() const {
  Supply supply{.reverse = supply_.reverse, .ineligible = supply_.ineligible, .kind = supply_.kind};
  const double place = value(kPlaceOfSupply);
  supply.place = place == partyState_ ? 0 : place;
  if (!hasPapers(supply.kind)) return supply;
  supply.shippingBill = trimmed(kShippingBill);
  supply.shippingDate = date(kShippingDate);
  supply.port = trimmed(kPort);
  if (isBought(kind_))
    supply.customs = trimmed(kCustoms);
  else
    supply.country = trimmed(kCountry);
  return supply;
}

// What the party is by itself, until a person says otherwise.
void GSTSAPU::proposeSupply(const AccountFacts& party) {
  const std::string code = trimmed(kParty);
  const bool chosen = supply_.kind != SupplyKind::Ordinary && !at(kSupplyKind).given;
  if (chosen || sameText(code, std::exchange(proposedTo_, code))) return;
  const SupplyKind kind = proposedSupply(data(), kind_, code, partyState_, party.registration);
  if (kind == supply_.kind) return;
  Supply supply = told();
  supply.kind = kind;
  takeKind(supply);
  mark(supply);
  refigureLines();
}

// What a kind of supply brings along.
void GSTSAPU::takeKind(Supply& supply) {
  using enum SupplyKind;
  if (supply_.kind == ImportServices || isImport(supply.kind)) supply.reverse = supply.kind == ImportServices;
  if (supply.kind == ImportGoods && supply.customs.empty())
    supply.customs = settingOf(data(), ::kCustomsAccount);
}

void GSTSAPU::supplyTyped() {
  textChanged();
  const auto kinds = supplyKinds(isBought(kind_));
  const auto typed = static_cast<size_t>(std::max(value(kSupplyKind), 0.0));
  Supply supply = told();
  supply.kind = typed < kinds.size() ? kinds[typed] : SupplyKind::Ordinary;
  takeKind(supply);
  supply_ = supply;
  put(kCustoms, supply.customs);
  showCustoms();
  showMarks();
}

Go GSTSAPU::supplyKindStands() {
  if (value(kSupplyKind) >= static_cast<double>(supplyKinds(isBought(kind_)).size())) {
    host.message(replaceAll(words(here().hint), " :: ", "\n"));
    return Go::Stay;
  }
  refigureLines();
  sumAgain();
  return Go::On;
}

Go GSTSAPU::placeOfSupply() {
  showPlace();
  if (const std::string typed = trimmed(kPlaceOfSupply); !typed.empty() && trimmed(kPlaceName).empty()) {
    host.message(words("{code} Is No Code Of A State", "code", typed));
    return Go::Stay;
  }
  refigureLines();
  return Go::On;
}

void GSTSAPU::showCustoms() {
  const std::string code = trimmed(kCustoms);
  const auto account = code.empty() ? std::nullopt : readAccount(data(), code);
  put(kCustomsName, account ? account->name : "");
}

Go GSTSAPU::customs() {
  if (trimmed(kCustoms).empty())
    return lookUp(host, *this, here(),
                  accounts({{"ACC_CD"}, {"acc_name"}, {"group_cd"}, balanceColumn()},
                           underGroups("GROUP_CD", {132, 135})));
  put(kCustoms, fullCode(data(), trimmed(kCustoms)));
  showCustoms();
  if (!trimmed(kCustomsName).empty() && !sameText(trimmed(kCustoms), trimmed(kParty))) return Go::On;
  host.message("Customs Take An Account Of Their Own\nEmpty It And Press Enter For Help");
  return Go::Stay;
}

// Before a save.
bool GSTSAPU::supplyStands() {
  const auto refuse = [&](FieldName field, const std::string& message) {
    host.message(message, kCheck);
    showPanel(true);
    focus(at(field));
    return false;
  };
  const Supply supply = told();
  if (!currencyTyped().empty() && !inCurrency())
    return refuse(kCurrencyRate, words("Type The Rupees For One {currency}", "currency", currencyTyped()));
  if (supply.shippingBill.empty() == supply.shippingDate.has_value())
    return refuse(supply.shippingDate ? kShippingBill : kShippingDate,
                  words("Type Both Number And Date Of The {bill}", "bill", words(at(kShippingBill).label)));
  const bool taxed = value(kCgstTotal) != 0 || value(kSgstTotal) != 0 || value(kIgstTotal) != 0;
  if (supply.kind == SupplyKind::ImportGoods && taxed && trimmed(kCustomsName).empty())
    return refuse(kCustoms, words("Choose The Account That Their Tax Is Owed To"));
  return true;
}

// Currency

std::string GSTSAPU::currencyTyped() const { return trimmed(kCurrency); }

Go GSTSAPU::currency() {
  constexpr size_t kLetters = 3;
  if (!currencyTyped().empty() && currencyTyped().size() != kLetters) {
    host.message("A Currency Has Three Letters, As USD");
    return Go::Stay;
  }
  if (currencyTyped().empty()) put(kCurrencyRate, "");
  layOutPanel();
  refigureLines();
  return Go::On;
}

Go GSTSAPU::currencyRate() {
  if (!currencyTyped().empty() && !inCurrency() && !leaving()) {
    host.message(words("Type The Rupees For One {currency}", "currency", currencyTyped()));
    return Go::Stay;
  }
  layOutPanel();
  refigureLines();
  return Go::On;
}

void GSTSAPU::readCurrency() {
  const auto line = data().first(
      "SELECT CUR_NM, CUR_RT FROM T_SLITM WHERE CUR_RT > 0 AND LEN(CUR_NM) > 1 ORDER BY SR_NO LIMIT 1");
  put(kCurrency, line ? line->text(0) : "");
  put(kCurrencyRate, line ? numText(line->number(1)) : "");
  showPanel(panel_ || line.has_value());
  figured_ = terms();
}

Go GSTSAPU::currencyItemRate() {
  put(kCurrencyItemRate, value(kCurrencyItemRate));
  takeCurrencyRate();
  return rate();
}

void GSTSAPU::takeCurrencyRate() {
  if (!inCurrency()) return;
  proposeCurrencyRate();
  put(kRate, Round(value(kCurrencyItemRate) * value(kCurrencyRate), kRateDecimals));
}

void GSTSAPU::proposeCurrencyRate() {
  if (inCurrency() && value(kCurrencyItemRate) == 0 && value(kRate) != 0)
    put(kCurrencyItemRate, Round(value(kRate) / value(kCurrencyRate), kCurrencyDecimals));
}

// What the lines come to, and what the bill asks for beside them.
double GSTSAPU::currencyTotal() const {
  const auto lines = lines_->sums({"CUR_AMT"}).front().value_or(0);
  const double beside = value(kNetAmount) - value(kRoundOff) - value(kItemsAmount);
  return Round(lines + beside / value(kCurrencyRate), 2);
}

// The lines under other terms than they were typed under

GSTSAPU::Terms GSTSAPU::terms() const {
  return {.state = taxedState(told(), partyState_),
          .currencyRate = inCurrency() ? value(kCurrencyRate) : 0,
          .zeroRated = isZeroRated(supply_.kind)};
}

void GSTSAPU::refigureLine() {
  const auto texts = splitTax(Val(session().mstatecd), figured_.state,
                              value(kCgstRate) + value(kSgstRate) + value(kIgstRate));
  put(kCgstRate, texts->cgst);
  put(kSgstRate, texts->sgst);
  put(kIgstRate, texts->igst);
  if (!inCurrency()) put(kCurrencyItemRate, "");
  figureLine();
}

// The one being typed stays so.
void GSTSAPU::refigureLines() {
  const Terms now = terms();
  if (std::exchange(figured_, now) == now || !typing()) return;
  const bool typed = !lineStands();
  const size_t position = lines_->position();
  std::vector<std::pair<Control*, std::string>> texts;
  for (const auto& c : controls)
    if (c->editable() && c->ofLine()) texts.emplace_back(c.get(), c->text);
  for (size_t row = 0; row < lines_->count(); ++row) {
    lines_->moveTo(row);
    showCurrentLine();
    refigureLine();
    lines_->store(lineFields());
  }
  if (lines_->count() > 0) lines_->moveTo(std::min(position, lines_->count() - 1));
  if (position == Grid::kNone) lines_->next();
  showCurrentLine();
  if (typed) {
    for (const auto& [control, text] : texts) set(*control, text);
    refigureLine();
  }
  sumAgain();
}
