#include <algorithm>
#include <map>

#include "base/words.h"
#include "vouchers/gstnote.h"
#include "vouchers/voucher_table.h"

using namespace fields;

// The bill's table with another head, and lines that tell what was billed. What a note has no use for is kept
// out of sight: its columns are stored as in a bill.

namespace {

ControlSpec& of(ScreenSpec& screen, FieldName field) {
  return *std::ranges::find(screen.controls, field, &ControlSpec::field);
}

void behind(ScreenSpec& screen, FieldName field, const std::vector<ControlSpec>& more) {
  const auto at = std::ranges::find(screen.controls, field, &ControlSpec::field);
  screen.controls.insert(at + 1, more.begin(), more.end());
}

constexpr int kUnitColumn = 3, kBilledColumn = 4, kQuantityColumn = 6;

// Between unit and quantity stand two columns more, and none before the unit.
void moveLines(ScreenSpec& screen, const VoucherKind& kind) {
  constexpr int kDetailColumn = 3, kQuantityOfBill = 5;
  for (ControlSpec& c : screen.controls) {
    const bool ofLine = c.at.group == kEntryGroup || c.at.group == "keys";
    if (ofLine && c.at.col >= kQuantityOfBill)
      ++c.at.col;
    else if (ofLine && c.at.col > kDetailColumn)
      --c.at.col;
    if (c.name == "lblkeys") ++c.at.span;
    if (c.field == kEarlierRates) c.overIts = kQuantityColumn;
  }
  std::vector<GridColumn>& columns = of(screen, kLines).columns;
  columns.erase(columns.begin() + kDetailColumn);
  columns[kQuantityColumn - 2].title = kind.adjusts.quantity;
  // clang-format off
  columns.insert(columns.begin() + kBilledColumn,
                 {{.title = "Billed", .width = px(82, 62), .align = Align::Right},
                  {.title = "Before", .width = px(82, 56), .align = Align::Right}});
  behind(screen, kUnit, {
      {.name = "Text1", .index = 86, .field = kBilled, .label = "Billed", .at = {.group = "entry", .col = kBilledColumn},     .limit = 15, .enabled = false, .align = Align::Right},
      {.name = "Text1", .index = 87, .field = kBefore, .label = "Before", .at = {.group = "entry", .col = kBilledColumn + 1}, .limit = 15, .enabled = false, .align = Align::Right},
  });
  // clang-format on
}

ScreenSpec noteTable(const VoucherKind& kind, ScreenSpec screen) {
  screen.name = kind.screen;
  screen.caption = kind.words.title;
  // clang-format off
  moveLines(screen, kind);
  const std::string reasons = english("1 = Goods Returned :: 2 = Rate :: 3 = Quantity :: 4 = Discount After The Sale :: 5 = Others");
  for (const FieldName party : {kParty, kPartyName}) of(screen, party).at.row = 2;
  of(screen, kShipTo).at = {.group = "D", .row = 1, .col = 4, .width = 96};
  of(screen, kShipTo).tab = of(screen, kCreditDays).tab;
  for (const FieldName unused : {kChallanNumber, kOrderNumber, kPartyDate, kDetail, kShipToName, kCreditDays}) {
    of(screen, unused).visible = false;
    of(screen, unused).enabled = false;
  }
  // What goes back of the bill's is worked out.
  for (const FieldName ofBill : {kBillDiscountPercent, kBillDiscount, kPacking, kFreight, kOtherCharges})
    of(screen, ofBill).enabled = false;
  of(screen, kTransport).hint.clear();
  of(screen, kDetail).at = {.group = "entry", .col = kUnitColumn};
  of(screen, kNetAmount).label = english("Note Amount");
  of(screen, kQuantity).label = kind.adjusts.quantity;
  of(screen, kQuantity).hint = "F6 = All Of This Line :: Ctrl+F6 = All Lines :: F7 = Rate, Too";
  of(screen, kRate).hint = "F7 = Quantity Alone :: F4 = Earlier Rates";
  behind(screen, kDate, {
      {.name = "Text1",      .index = 80, .field = kOriginalBill,   .label = "Bill No", .at = {.group = "A", .row = 1, .col = 1, .width = 92},  .tab = 9, .limit = 20, .keys = KeyClass::Text, .hint = "Another Number = One More Bill :: Empty = The Last One Goes Out"},
      {.name = "MaskEdBox1", .index = 3,  .field = kOriginalDate,   .kind = Kind::Date, .label = "Of", .at = {.group = "A", .row = 1, .col = 3, .width = 112}, .tab = 9, .enabled = false, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
  });
  behind(screen, kPartyName, {
      {.name = "Text1",      .index = 81, .field = kReason,         .label = "Reason",  .at = {.group = "B", .row = 1, .col = 1, .width = 44},  .tab = 14, .limit = 1, .keys = KeyClass::Number, .align = Align::Right, .hint = reasons},
      {.name = "Text1",      .index = 82, .field = kReasonName,     .at = {.group = "B", .row = 1, .col = 2, .span = 2}, .limit = 40, .enabled = false},
      {.name = "Text1",      .index = 83, .field = kGoods,          .label = "Stock",   .at = {.group = "B", .row = 2, .col = 1, .width = 44},  .tab = 14, .limit = 1, .keys = KeyClass::Number, .align = Align::Right, .hint = "1 = Goods Move :: 0 = No Goods Move"},
      {.name = "Text1",      .index = 84, .field = kGoodsName,      .at = {.group = "B", .row = 2, .col = 2, .span = 2}, .limit = 40, .enabled = false},
  });
  // clang-format on
  return screen;
}

}  // namespace

const ScreenSpec& GSTNOTE::table(const VoucherKind& kind) {
  static std::map<std::string, ScreenSpec> made;
  const auto found = made.find(kind.code);
  return found != made.end() ? found->second
                             : made.emplace(kind.code, noteTable(kind, tableOf(kind))).first->second;
}
