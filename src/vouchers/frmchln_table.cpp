#include "vouchers/frmchln.h"
#include "vouchers/voucher_table.h"

using namespace fields;

// Rows of the screen from top to bottom: voucher and party, references, what is known of the party;
// headings, entry row, keys and grid of the lines; foot and totals; buttons.

const ScreenSpec& FRMCHLN::table() {
  // clang-format off
  static const std::vector<GridColumn> lineColumns = {
      {.title = "Sr",     .width = px(40),    .align = Align::Right},
      {.title = "Code",   .width = px(92)},
      {.title = "NAME",   .width = part(1)},
      {.title = "Detail", .width = part(0.7)},
      {.title = "Unit",   .width = px(92)},
      {.title = "QTY",    .width = px(106),   .align = Align::Right},
      {.title = "Rate",   .width = px(106),   .align = Align::Right, .money = true},
      {.title = "Amount", .width = px(142),   .align = Align::Right, .money = true},
  };
  static const std::vector<GridColumn> rateColumns = challanRateColumns();
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;
  constexpr auto Figure = Holds::Figure;

  static const ScreenSpec spec = {
      .name = "FRMCHLN",
      .caption = "Sales Challan Entry",
      .focusColour = 0xFFC0FF,
      .layout = voucherLayout(
          {px(81),  {{.name = "A", .width = part(1.15, 350), .columns = {px(56), px(92), px(44), part(1)}},
                     {.name = "B", .width = px(356, 300),    .columns = {px(72), px(92), fit(), part(1)}},
                     {.name = "C", .width = part(1, 250), .frame = Frame::Off}}},
          {px(116), {{.name = "D", .width = part(1), .columns = {fit(), part(1), fit(), part(1), fit(), part(1)}},
                     {.name = "E", .width = px(440, 380), .columns = {fit(), px(132), fit(), part(1)}}}}),
      .controls = joined({{
          {.name = "Text1",      .index = 0,  .field = kNumber,          .column = "VOUCH_NO",   .holds = Figure,       .label = "No",       .at = {.group = "A", .row = 0, .col = 1, .width = 92},  .tab = 8,  .limit = 8,   .keys = Number, .align = Right, .hint = "F1 = By Chln No :: F2 = By Order No"},
          {.name = "MaskEdBox1", .index = 0,  .field = kDate,            .column = "VOUCH_DT",   .holds = Holds::Date,  .kind = Kind::Date, .label = "Date", .at = {.group = "A", .row = 0, .col = 3, .width = 112}, .tab = 9, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 4,  .field = kParty,           .column = "PARTY_CD",                          .label = "Party",    .at = {.group = "A", .row = 1, .col = 1, .width = 92},  .tab = 10, .limit = 6,   .keys = Letters, .hint = "Insert = New Party"},
          {.name = "Text2", .field = kPartyName, .at = {.group = "A", .row = 1, .col = 2, .span = 2},    .enabled = false},
          {.name = "Text1",      .index = 15, .field = kOrderNumber,     .column = "ORDER_NO",                          .label = "Order No", .at = {.group = "B", .row = 0, .col = 1, .span = 3},    .tab = 11, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 23, .field = kChallanType,     .column = "CHLN_TYP",                          .label = "Type",     .at = {.group = "B", .row = 1, .col = 1, .width = 92},  .tab = 12, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 24, .field = kChallanNumber,   .column = "CHLN_NO",    .holds = Holds::Typed, .label = "Chln No",  .at = {.group = "B", .row = 1, .col = 3},               .tab = 13, .limit = 20,  .keys = Number},
          {.name = "Label1", .index = 54, .field = kPartyFacts, .kind = Kind::Label, .at = {.group = "C", .rows = 2}},

          lineNumber(),
          {.name = "Text1",      .index = 5,  .field = kItem,            .column = "ITEM_CD",                           .label = "Code",     .at = {.group = "entry", .col = 1}, .tab = 15, .limit = 8,   .keys = Letters, .hint = "Insert = New Item"},
          {.name = "Text1",      .index = 6,  .field = kItemName,        .column = "ITEM_NAME",  .holds = Holds::Typed, .label = "NAME",     .at = {.group = "entry", .col = 2}, .tab = 16, .limit = 100, .keys = Letters, .enabled = false},
          {.name = "Text1",      .index = 10, .field = kDetail,          .column = "ITEM_DESC",                         .label = "Detail",   .at = {.group = "entry", .col = 3}, .tab = 17, .limit = 100, .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "Text1",      .index = 7,  .field = kUnit,            .column = "SIZE_CD",                           .label = "Unit",     .at = {.group = "entry", .col = 4}, .tab = 18, .limit = 20,  .keys = Letters, .hint = "F1 = With Item Name :: Up / Down = Line"},
          {.name = "Text1",      .index = 8,  .field = kQuantity,        .column = "QUANTITY",   .holds = Figure,       .label = "QTY",      .at = {.group = "entry", .col = 5}, .tab = 19, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 9,  .field = kRate,            .column = "RATE",       .holds = Figure,       .label = "Rate",     .at = {.group = "entry", .col = 6}, .tab = 20, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 14, .field = kAmount,          .column = "NET_AMOUNT", .holds = Figure,       .label = "Amount",   .at = {.group = "entry", .col = 7}, .tab = 21, .keys = Number,  .locked = true, .align = Right},

          lineKeys(4),
          {.name = "SCR1",                    .kind = Kind::Label, .label = "Press Add Button For New Entry", .at = {.group = "keys", .col = 4, .span = 4}, .align = Right, .style = Style::Quiet},
      }, lineGrids(lineColumns, rateColumns, 2, 536), {
          {.name = "Text1",      .index = 29, .field = kNarration,       .column = "NARRATION",  .holds = Holds::Typed, .label = "Remarks",   .at = {.group = "D", .row = 0, .col = 1, .span = 5}, .tab = 22, .limit = 80,  .keys = Letters},
          {.name = "Text1",      .index = 19, .field = kDiscountPercent, .column = "DISC_PERC",  .holds = Figure,       .label = "Disc %",    .at = {.group = "D", .row = 1, .col = 1},            .tab = 23, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 20, .field = kDiscountAmount,  .column = "DISC_AMT",   .holds = Figure,       .label = "Disc Amt",  .at = {.group = "D", .row = 1, .col = 3},            .tab = 24, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 21, .field = kCharges,         .column = "CHRGS",      .holds = Figure,       .label = "Chrgs",     .at = {.group = "D", .row = 1, .col = 5},            .tab = 25, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 1,  .field = kTransport,       .column = "TRANSPORT",                         .label = "Transport", .at = {.group = "D", .row = 2, .col = 1},            .tab = 26, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 3,  .field = kLrNumber,        .column = "GR_NO",                             .label = "Lr No",     .at = {.group = "D", .row = 2, .col = 3},            .tab = 27, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 11, .field = kDestination,     .column = "DESTI",                             .label = "Desti",     .at = {.group = "D", .row = 2, .col = 5},            .tab = 28, .limit = 20,  .keys = Letters},

          {.name = "Text1",      .index = 18, .field = kItemsAmount,     .column = "ITEM_AMT",   .holds = Figure,       .label = "Item Amt",  .at = {.group = "E", .row = 0, .col = 1}, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 26, .field = kTotalQuantity,   .column = "NO_OF_ITEM", .holds = Figure,       .label = "Item Qty",  .at = {.group = "E", .row = 0, .col = 3}, .enabled = false, .align = Right, .style = Style::Primary},
          {.name = "Text1",      .index = 28, .field = kNetAmount,       .column = "NET_AMT",    .holds = Figure,       .label = "Net_Amt",   .at = {.group = "E", .row = 1, .col = 0, .span = 4, .rows = 2}, .enabled = false, .align = Right, .money = true, .style = Style::Amount},
          {.name = "Text1", .index = 2, .field = kBook, .enabled = false, .visible = false},
      }, voucherButtons(38)}),
  };
  // clang-format on
  return spec;
}
