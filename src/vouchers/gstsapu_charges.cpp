#include <algorithm>

#include "base/figure.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "vouchers/gstsapu.h"

// The discount and the charges of the whole bill: a row of fields under the lines, out of sight until they
// are asked for or a stored bill has some.

using namespace fields;

namespace {

constexpr FieldName kTyped[] = {kBillDiscountPercent, kBillDiscount, kPacking, kFreight, kOtherCharges};

bool isAmount(const std::string& text) {
  return text.find_first_not_of("0123456789.") == std::string::npos && std::ranges::count(text, '.') < 2;
}

}  // namespace

// Before the narration, of which they share the place in the walk.
std::vector<ControlSpec> GSTSAPU::chargesPanel() {
  constexpr auto Number = KeyClass::Number;
  constexpr auto Right = Align::Right;
  constexpr auto Figure = Holds::Figure;
  const std::string charges = english("Ctrl+B = Narration :: Shared By The Lines Before Tax");
  // clang-format off
  return {
      {.name = "Text1",      .index = 101, .field = kBillDiscountPercent, .column = "DISC_PERC1", .holds = Figure, .label = "Less %",   .at = {.group = "charges", .col = 1},  .tab = 30, .limit = 6,  .keys = Number, .visible = false, .align = Right, .hint = charges},
      {.name = "Text1",      .index = 102, .field = kBillDiscount,        .column = "DISC_AMT1",  .holds = Figure, .label = "Discount", .at = {.group = "charges", .col = 3},  .tab = 30, .limit = 15, .keys = Number, .visible = false, .align = Right, .hint = charges},
      {.name = "Text1",      .index = 103, .field = kPacking,             .column = "CHRG_AMT1",  .holds = Figure, .label = "Packing",  .at = {.group = "charges", .col = 5},  .tab = 30, .limit = 15, .keys = Number, .visible = false, .align = Right, .hint = charges},
      {.name = "Text1",      .index = 104, .field = kFreight,             .column = "CHRG_AMT2",  .holds = Figure, .label = "Freight",  .at = {.group = "charges", .col = 7},  .tab = 30, .limit = 15, .keys = Number, .visible = false, .align = Right, .hint = charges},
      {.name = "Text1",      .index = 105, .field = kOtherCharges,        .column = "CHRG_AMT3",  .holds = Figure, .label = "Other",    .at = {.group = "charges", .col = 9},  .tab = 30, .limit = 15, .keys = Number, .visible = false, .align = Right, .hint = charges},
      {.name = "Text1",      .index = 106, .field = kTaxable,                                                      .label = "Taxable",  .at = {.group = "charges", .col = 11}, .limit = 20, .enabled = false, .visible = false, .align = Right, .money = true},
  };
  // clang-format on
}

void GSTSAPU::wireCharges() {
  std::vector<Rule<GSTSAPU>> rules = {
      {"", Key::Ctrl('B'), &GSTSAPU::chargesKey}
  };
  for (const FieldName field : kTyped) {
    rules.emplace_back(field, KeyCode::Enter, &GSTSAPU::charge);
    rules.emplace_back(field, On::Leave, &GSTSAPU::takeCharges);
  }
  wire(*this, rules);
}

Charges GSTSAPU::typedCharges() const {
  return {.discountPercent = value(kBillDiscountPercent),
          .discount = value(kBillDiscount),
          .packing = value(kPacking),
          .freight = value(kFreight),
          .other = value(kOtherCharges)};
}

void GSTSAPU::putCharges(const Charges& charges) {
  const double figures[] = {charges.discountPercent, charges.discount, charges.packing, charges.freight,
                            charges.other};
  for (size_t i = 0; i < std::size(kTyped); ++i)
    if (value(kTyped[i]) != figures[i] || trimmed(kTyped[i]) == "0") {
      put(kTyped[i], figures[i] == 0 ? "" : numText(figures[i]));
      at(kTyped[i]).worked = text(kTyped[i]);
    }
  charges_ = charges;
}

void GSTSAPU::showCharges(bool on) {
  for (const FieldName field : kTyped) at(field).visible = on;
  at(kTaxable).visible = on;
}

bool GSTSAPU::chargesShown() const { return at(kTaxable).visible; }

FieldName GSTSAPU::afterLines() const {
  return at(kBillDiscountPercent).focusable() ? kBillDiscountPercent : VoucherScreen::afterLines();
}

void GSTSAPU::chargesKey() {
  if (!typing() || !at(kBillDiscountPercent).enabled) return;
  const bool among = std::ranges::any_of(kTyped, [this](FieldName field) { return isHere(field); });
  if (!among) {
    showCharges(true);
    focus(at(kBillDiscountPercent));
    return;
  }
  focus(at(kNarration));
  if (!typedCharges().any()) showCharges(false);
}

// Why a field's text is none of its figures; empty when it is.
std::string GSTSAPU::refusalOfCharge(FieldName field) const {
  const std::string typed = trimmed(field);
  if (!isAmount(typed)) return words("{text} Is No Amount From 0 On", "text", typed);
  if (figureRefused(typed)) return words(kFigureRefused);
  const double figure = value(field);
  if (field == kBillDiscountPercent)
    return figure <= 100 ? "" : words("A Discount Is 100 Percent At The Most");
  if (figure != Round(figure, 2)) return words("An Amount Has Two Decimals");
  const double goods = value(kItemsAmount);
  return field != kBillDiscount || figure <= goods ? ""
                                                   : words("The Discount Is Above The Goods Of {goods}",
                                                           "goods", indianGroups(Format(goods, "0.00")));
}

// A percentage gives the amount, and an amount typed by hand takes the percentage away.
Go GSTSAPU::charge() {
  const std::string refusal = refusalOfCharge(here().spec->field);
  if (!refusal.empty()) {
    host.message(refusal, kCheck);
    return Go::Stay;
  }
  takeCharges();
  return Go::On;
}

// Also where a field was emptied.
void GSTSAPU::takeCharges() {
  Charges typed = typedCharges();
  if (typed == charges_ || !refusalOfCharge(here().spec->field).empty()) return;
  if (typed.discountPercent != charges_.discountPercent)
    typed.discount = discountOf(value(kItemsAmount), typed.discountPercent);
  else if (typed.discount != charges_.discount)
    typed.discountPercent = 0;
  putCharges(typed);
  sumAgain();
  if (lines_->onRow() && lineStands()) showCurrentLine();
}

// A challan does not tell its charges apart.
bool GSTSAPU::bringCharges(const SourceHead& from, bool out) {
  Charges charges = typedCharges();
  const auto add = [out](double& charge, double more) {
    charge = std::max(Round(charge + (out ? -more : more), 2), 0.0);
  };
  if (from.discount != 0) charges.discountPercent = 0;
  add(charges.discount, from.discount);
  add(charges.other, from.charges);
  putCharges(charges);
  showCharges(charges.any());
  return true;
}

bool GSTSAPU::chargesStand() {
  if (!chargesShown()) return true;
  const auto refused = [this](FieldName field, const std::string& refusal) {
    host.message(refusal, kCheck);
    focus(at(field));
    return false;
  };
  for (const FieldName field : kTyped)
    if (const std::string refusal = refusalOfCharge(field); !refusal.empty()) return refused(field, refusal);
  if (typedCharges().any() && value(kItemsAmount) <= 0)
    return refused(kBillDiscountPercent, words("A Discount And Charges Need Goods Of Some Value"));
  return true;
}

std::vector<double> GSTSAPU::sharesOf(const std::vector<Row>& lines) {
  std::vector<double> amounts;
  double goods = 0;
  for (const Row& line : lines) goods += amounts.emplace_back(line.number("AMOUNT"));
  Charges charges = typedCharges();
  if (charges.discountPercent > 0) charges.discount = discountOf(Round(goods, 2), charges.discountPercent);
  putCharges(charges);
  return spread(charges.net(), amounts);
}

// Taxes typed by hand give way to those on the taxable value. Without charges any more a line is worth again
// what it is while it is typed.
void GSTSAPU::shareCharges() {
  const bool stand = hasCharges();
  if (!stand && !shared_) return;
  const std::vector<Row> lines = data().all(
      "SELECT rowid AS ITS_ROW, SR_NO, QUANTITY, RATE, SALE_DISC, AMOUNT, CGSTRT, SGSTRT, IGSTRT,"
      " DISC4, CGSTAMT, SGSTAMT, IGSTAMT, NET_AMOUNT FROM T_SLITM ORDER BY SR_NO, rowid");
  const std::vector<double> shares = sharesOf(lines);
  for (size_t i = 0; i < lines.size(); ++i) {
    const Row& line = lines[i];
    LineValue value;
    if (stand)
      value.assess = Round(line.number("AMOUNT") + shares[i], 2);
    else
      value.value(line.number("QUANTITY"), line.number("RATE"), line.number("SALE_DISC"));
    value.tax({line.number("CGSTRT"), line.number("SGSTRT"), line.number("IGSTRT")});
    if (isZeroRated(supply_.kind)) value.take({});
    const std::vector<Value> figures = {shares[i], value.amounts.cgst, value.amounts.sgst, value.amounts.igst,
                                        value.shownNet()};
    constexpr const char* kColumns[] = {"DISC4", "CGSTAMT", "SGSTAMT", "IGSTAMT", "NET_AMOUNT"};
    bool same = true;
    for (size_t c = 0; c < figures.size(); ++c)
      same = same && line.number(kColumns[c]) == figures[c].number();
    if (same) continue;
    std::vector<Value> values = figures;
    values.push_back(line.value("ITS_ROW"));
    data().exec(
        "UPDATE T_SLITM SET DISC4 = ?, CGSTAMT = ?, SGSTAMT = ?, IGSTAMT = ?, NET_AMOUNT = ?"
        " WHERE rowid = ?",
        values);
  }
  lines_->refresh();
  shared_ = stand;
}
