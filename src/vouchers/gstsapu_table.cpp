#include <map>

#include "base/words.h"
#include "vouchers/gstsapu.h"
#include "vouchers/voucher_table.h"

using namespace fields;

// Rows of the screen from top to bottom: voucher and party, bill references, what is known of
// the party; headings, entry row, keys and grid of the lines; foot and totals; buttons.

namespace {

// Between head and lines.
Layout withPanel(Layout layout) {
  layout.bands.insert(layout.bands.begin() + 1,
                      {fit(),
                       {{.name = "S",
                         .columns = {fit(), px(44), part(1, 128), fit(), px(44), part(1, 70), fit(),
                                     px(84, 60), fit(), px(92, 76), part(0.8, 50)}}},
                       true});
  return layout;
}

}  // namespace

ScreenSpec GSTSAPU::tableOf(const VoucherKind& kind) {
  const bool ours = kind.words.billDate.empty();
  // clang-format off
  static const std::vector<GridColumn> lineColumns = {
      {.title = "Sr",               .width = px(40, 30),  .align = Align::Right},
      {.title = "Item",             .width = px(92, 84)},
      {.title = "Item Description", .width = part(1, 150)},
      {.title = "Ex Detail",        .width = px(132, 92)},
      {.title = "Unit",             .width = px(62, 50)},
      {.title = "Qty",              .width = px(86, 70),  .align = Align::Right},
      {.title = "Rate",             .width = px(92, 78),  .align = Align::Right, .money = true},
      {.title = "D%",               .width = px(54, 38),  .align = Align::Right},
      {.title = "Cgst",             .width = px(48, 34),  .align = Align::Right, .headSpan = 2, .spare = 1},
      {.title = "",                 .width = px(84, 76),  .align = Align::Right, .money = true, .spare = 1},
      {.title = "Sgst",             .width = px(48, 34),  .align = Align::Right, .headSpan = 2, .spare = 1},
      {.title = "",                 .width = px(84, 76),  .align = Align::Right, .money = true, .spare = 1},
      {.title = "Igst",             .width = px(48, 34),  .align = Align::Right, .headSpan = 2, .spare = 2},
      {.title = "",                 .width = px(84, 76),  .align = Align::Right, .money = true, .spare = 2},
      {.title = "Amount",           .width = px(112, 92), .align = Align::Right, .money = true},
  };
  static const std::vector<GridColumn> rateColumns = {
      {.title = "V. No",            .width = px(60),  .align = Align::Right},
      {.title = "Date",             .width = px(108)},
      {.title = "Bk.",              .width = px(44)},
      {.title = "B.No",             .width = px(72)},
      {.title = "Qty",              .width = px(86),  .align = Align::Right},
      {.title = "Rate",             .width = px(92),  .align = Align::Right, .money = true},
      {.title = "D%",               .width = px(54),  .align = Align::Right},
      {.title = "Amount",           .width = part(1), .align = Align::Right, .money = true},
  };
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;
  constexpr auto Figure = Holds::Figure;

  return {
      .name = "GSTSAPU",
      .caption = "GST SALE / PURCHASE ENTRY",
      .focusColour = 0xFFC0FF,
      .layout = withPanel(voucherLayout(
          {px(116), {{.name = "A", .width = part(1.15, 350), .columns = {px(56), px(92), px(44), part(1)}},
                     {.name = "B", .width = px(356, 286),    .columns = {px(58), px(92), fit(), part(1)}},
                     {.name = "C", .width = part(1, 250), .frame = Frame::Off}}},
          {px(150), {{.name = "D", .width = part(1), .columns = {fit(), px(44), part(1.15), fit(), part(1)}},
                     {.name = "E", .width = px(506, 404), .columns = {fit(), px(132), fit(), part(1)}}}},
          {{px(46), {{.name = "charges", .columns = {fit(), px(56), fit(), part(1), fit(), part(1), fit(), part(1), fit(), part(1), fit(), part(1.1)}}}, true}})),
      .controls = joined({{
          {.name = "Text1",      .index = 0,  .field = kNumber,        .column = "VOUCH_NO",   .holds = Figure,       .label = "V. No",     .at = {.group = "A", .row = 0, .col = 1, .width = 92},  .tab = 8,  .limit = 8,   .keys = Number, .align = Right, .hint = "F1 = By Bill No :: F4 = By Amount :: F8 = By Gstin"},
          {.name = "MaskEdBox1", .index = 0,  .field = kDate,          .column = "VOUCH_DT",   .holds = Holds::Date,  .kind = Kind::Date, .label = "Date", .at = {.group = "A", .row = 0, .col = 3, .width = 112}, .tab = 9, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 4,  .field = kParty,         .column = "PARTY_CD",                          .label = "Party",     .at = {.group = "A", .row = 1, .col = 1, .width = 92},  .tab = 10, .limit = 6,   .keys = Letters, .hint = "F1 = By Area :: F2 = By City :: Insert = New Party"},
          {.name = "Text2", .field = kPartyName, .at = {.group = "A", .row = 1, .col = 2, .span = 2},    .enabled = false},
          {.name = "Text1",      .index = 32, .field = kShipTo,        .column = "CASH_CD",                           .label = "Ship To",   .at = {.group = "A", .row = 2, .col = 1, .width = 92},  .tab = 11, .limit = 6,   .keys = Number, .hint = "F8 = By Gstin :: Tab = Leave Empty"},
          {.name = "Text3", .field = kShipToName, .at = {.group = "A", .row = 2, .col = 2, .span = 2},    .enabled = false},
          {.name = "Text1",      .index = 47, .field = kBillType,      .column = "BL_TYPE",                           .label = "B.Type",    .at = {.group = "B", .row = 0, .col = 1, .width = 92},  .tab = 12, .limit = 10,  .keys = Letters, .hint = isBought(kind) ? english("Ctrl+E = Import, Place Of Supply") : english("Ctrl+E = Export, SEZ, Place Of Supply")},
          {.name = "Text1",      .index = 43, .field = kBillNumber,    .column = "BILL_NO",    .holds = Holds::Typed, .label = "B.No",      .at = {.group = "B", .row = 0, .col = 3},               .tab = 13, .limit = 20,  .keys = Letters},
          // The party's own date follows its number, of which it shares the place in the walk.
          {.name = "MaskEdBox1", .index = 2,  .field = kPartyDate,     .column = "PRV_BDT",    .holds = Holds::Date,  .kind = Kind::Date, .label = kind.words.billDate, .at = {.group = "B", .row = 1, .col = 3, .width = 112}, .tab = 13, .visible = !ours, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 62, .field = kChallanNumber, .column = "CHLN_NO",    .holds = Figure,       .label = "Chln No",   .at = {.group = "B", .row = 1, .col = 1, .span = ours ? 3 : 1}, .tab = 14, .limit = 50,  .keys = Number},
          {.name = "Text1",      .index = 16, .field = kOrderNumber,   .column = "ORDER_NO",                          .label = "Ordr No",   .at = {.group = "B", .row = 2, .col = 1, .span = 3},    .tab = 15, .limit = 50,  .keys = Letters},
          {.name = "Label1", .index = 54, .field = kPartyFacts, .kind = Kind::Label,  .at = {.group = "C", .rows = 3}},
      }, supplyPanel(kind), {
          lineNumber(),
          {.name = "Text1",      .index = 5,  .field = kItem,          .column = "ITEM_CD",                           .label = "Item",             .at = {.group = "entry", .col = 1},  .tab = 16, .limit = 15,  .keys = Letters, .hint = "F2 = With Stock :: Insert = New Item"},
          {.name = "Text1",      .index = 6,  .field = kItemName,      .column = "ITEM_NAME",                         .label = "Item Description", .at = {.group = "entry", .col = 2},  .tab = 17, .limit = 100, .keys = Letters, .enabled = false},
          {.name = "Text1",      .index = 46, .field = kDetail,        .column = "ITEM_DESC",                         .label = "Ex Detail",        .at = {.group = "entry", .col = 3},  .tab = 18, .limit = 250, .keys = Letters, .hint = "F1 = Used Before :: F2 = Of This Item"},
          {.name = "Text1",      .index = 7,  .field = kUnit,          .column = "SIZE_CD",    .holds = Holds::Typed, .label = "Unit",             .at = {.group = "entry", .col = 4},  .tab = 19, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 8,  .field = kQuantity,      .column = "QUANTITY",   .holds = Figure,       .label = "Qty",              .at = {.group = "entry", .col = 5},  .tab = 20, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 9,  .field = kRate,          .column = "RATE",       .holds = Figure,       .label = "Rate",             .at = {.group = "entry", .col = 6},  .tab = 21, .limit = 15,  .keys = Number,  .align = Right, .hint = kind.words.rateHint},
          {.name = "Text1",      .index = 93, .field = kCurrencyItemRate, .column = "CUR_ITM_RT", .holds = Figure,    .label = "Rate",             .at = {.group = "entry", .col = 6},  .tab = 21, .limit = 15,  .keys = Number,  .visible = false, .align = Right, .hint = "In The Currency Of The Bill"},
          {.name = "Text1",      .index = 11, .field = kDiscount,      .column = "SALE_DISC",  .holds = Figure,       .label = "D%",               .at = {.group = "entry", .col = 7},  .tab = 22, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 12, .field = kCgstRate,      .column = "CGSTRT",     .holds = Figure,       .label = "Cgst",             .at = {.group = "entry", .col = 8},  .tab = 23, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 13, .field = kCgstAmount,    .column = "CGSTAMT",    .holds = Figure,       .at = {.group = "entry", .col = 9},  .tab = 24, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 10, .field = kSgstRate,      .column = "SGSTRT",     .holds = Figure,       .label = "Sgst",             .at = {.group = "entry", .col = 10}, .tab = 25, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 15, .field = kSgstAmount,    .column = "SGSTAMT",    .holds = Figure,       .at = {.group = "entry", .col = 11}, .tab = 26, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 19, .field = kIgstRate,      .column = "IGSTRT",     .holds = Figure,       .label = "Igst",             .at = {.group = "entry", .col = 12}, .tab = 27, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 31, .field = kIgstAmount,    .column = "IGSTAMT",    .holds = Figure,       .at = {.group = "entry", .col = 13}, .tab = 28, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 14, .field = kAmount,        .column = "NET_AMOUNT", .holds = Figure,       .label = "Amount",           .at = {.group = "entry", .col = 14}, .tab = 29, .limit = 15,  .keys = Number,  .align = Right},

          lineKeys(10),
          {.name = "Label1",     .index = 32, .kind = Kind::Label, .label = "Assival", .at = {.group = "keys", .col = 12, .span = 2}, .align = Right, .style = Style::Quiet},
          {.name = "Label1", .index = 31, .field = kAssessable, .kind = Kind::Label, .label = "0.00",    .at = {.group = "keys", .col = 14}, .align = Right, .money = true, .style = Style::Primary},
      }, lineGrids(lineColumns, rateColumns, 4, 632), chargesPanel(), {
          {.name = "Text1",      .index = 29, .field = kNarration,     .column = "NARRATION",  .holds = Holds::Typed, .label = "Narration",   .at = {.group = "D", .row = 0, .col = 1, .span = 4},    .tab = 30, .limit = 200, .keys = Letters, .hint = isBought(kind) ? english("F1 = Used Before :: Ctrl+R = Reverse Charge :: Ctrl+N = No ITC") : english("F1 = Used Before :: Ctrl+R = Reverse Charge")},
          {.name = "Text1",      .index = 55, .field = kTransportId,   .column = "TRANS_CD",   .holds = Figure,       .label = "Transport",   .at = {.group = "D", .row = 1, .col = 1, .width = 44},  .limit = 20, .enabled = false, .align = Right},
          {.name = "Text1",      .index = 42, .field = kTransport,     .column = "TRANSPORT",                         .at = {.group = "D", .row = 1, .col = 2},               .tab = 32, .limit = 100,  .keys = Letters, .hint = "Ctrl+B = Discount And Charges"},
          {.name = "Text1",      .index = 27, .field = kCreditDays,    .column = "CR_DAYS",    .holds = Figure,       .label = "Cr Days",     .at = {.group = "D", .row = 1, .col = 4, .width = 96},  .tab = 33, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 41, .field = kDestination,   .column = "DESTI",                             .label = "Destination", .at = {.group = "D", .row = 2, .col = 1, .span = 2},    .tab = 34, .limit = 40,  .keys = Letters},
          {.name = "Text1",      .index = 40, .field = kLrNumber,      .column = "GR_NO",      .holds = Holds::Typed, .label = "Lr No",       .at = {.group = "D", .row = 2, .col = 4},               .tab = 35, .limit = 20,  .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "MaskEdBox1", .index = 1,  .field = kLrDate,        .column = "GR_DATE",    .holds = Holds::Date,  .kind = Kind::Date, .label = "Lr Dt", .at = {.group = "D", .row = 3, .col = 1, .span = 2, .width = 112}, .tab = 36, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 45, .field = kParcels,       .column = "PARCLE",                            .label = "Parcels",     .at = {.group = "D", .row = 3, .col = 4},               .tab = 37, .limit = 50,  .keys = Letters},

          {.name = "Label1",     .index = 90, .field = kSupply, .kind = Kind::Label, .at = {.group = "D", .row = 3, .col = 2}, .visible = false, .align = Right},

          {.name = "Text1",      .index = 18, .field = kItemsAmount,   .column = "ITEM_AMT",   .holds = Figure,       .label = "Assible",     .at = {.group = "E", .row = 0, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 1,  .field = kCgstTotal,     .column = "TCGSTRT",    .holds = Figure,       .label = "CGST",        .at = {.group = "E", .row = 1, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 3,  .field = kSgstTotal,     .column = "TSGSTRT",    .holds = Figure,       .label = "SGST",        .at = {.group = "E", .row = 2, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 20, .field = kIgstTotal,     .column = "TIGSTRT",    .holds = Figure,       .label = "IGST",        .at = {.group = "E", .row = 3, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 26, .field = kTotalQuantity, .column = "NO_OF_ITEM", .holds = Figure,       .label = "Tot Qty",     .at = {.group = "E", .row = 0, .col = 3}, .limit = 20, .enabled = false, .align = Right, .style = Style::Primary},
          {.name = "Text1",      .index = 38, .field = kRoundOff,      .column = "ROUND_OFF",  .holds = Figure,       .label = "Round",       .at = {.group = "E", .row = 1, .col = 3}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 28, .field = kNetAmount,     .column = "NET_AMT",    .holds = Figure,       .label = "Bill Amount", .at = {.group = "E", .row = 2, .col = 2, .span = 2, .rows = 2}, .limit = 20, .enabled = false, .align = Right, .money = true, .style = Style::Amount},
          {.name = "Text1", .index = 2, .field = kBook, .limit = 20, .enabled = false, .visible = false},
      }, voucherButtons(38)}),
  };
  // clang-format on
}

const ScreenSpec& GSTSAPU::table(const VoucherKind& kind) {
  static std::map<std::string, ScreenSpec> made;
  const auto found = made.find(kind.code);
  return found != made.end() ? found->second : made.emplace(kind.code, tableOf(kind)).first->second;
}
