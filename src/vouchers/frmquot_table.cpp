#include "vouchers/frmquot.h"
#include "vouchers/voucher_table.h"

using namespace fields;

// Rows of the screen from top to bottom: voucher and party, whom it is for and what about;
// headings, entry row, keys and grid of the lines; terms, in pairs, and totals; buttons.

const ScreenSpec& FRMQUOT::table() {
  // clang-format off
  static const std::vector<GridColumn> lineColumns = {
      {.title = "Sr",        .width = px(40, 30),  .align = Align::Right},
      {.title = "Code",      .width = px(92, 84)},
      {.title = "Item Name", .width = part(1, 150)},
      {.title = "Detail",    .width = px(144, 92)},
      {.title = "Unit",      .width = px(62, 50)},
      {.title = "Qty",       .width = px(86, 70),  .align = Align::Right},
      {.title = "Rate",      .width = px(92, 78),  .align = Align::Right, .money = true},
      {.title = "Disc",      .width = px(54, 44),  .align = Align::Right},
      {.title = "Cgst",      .width = px(48, 34),  .align = Align::Right, .headSpan = 2, .spare = 1},
      {.title = "",          .width = px(84, 76),  .align = Align::Right, .money = true, .spare = 1},
      {.title = "Sgst",      .width = px(48, 34),  .align = Align::Right, .headSpan = 2, .spare = 1},
      {.title = "",          .width = px(84, 76),  .align = Align::Right, .money = true, .spare = 1},
      {.title = "Igst",      .width = px(48, 34),  .align = Align::Right, .headSpan = 2, .spare = 2},
      {.title = "",          .width = px(84, 76),  .align = Align::Right, .money = true, .spare = 2},
      {.title = "Amt",       .width = px(112, 92), .align = Align::Right, .money = true},
  };
  static const std::vector<GridColumn> rateColumns = {
      {.title = "V. No",       .width = px(112), .align = Align::Right},
      {.title = "Date",        .width = px(172)},
      {.title = "Qty",         .width = px(86),  .align = Align::Right},
      {.title = "Rate",        .width = px(92),  .align = Align::Right, .money = true},
      {.title = "D%",          .width = px(54),  .align = Align::Right},
      {.title = "Bill Amount", .width = part(1), .align = Align::Right, .money = true},
  };
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;
  constexpr auto Figure = Holds::Figure;

  static const ScreenSpec spec = {
      .name = "FRMQUOT",
      .caption = "QUOTATION ENTRY ",
      .focusColour = 0xFFC0FF,
      .layout = voucherLayout(
          {px(116), {{.name = "A", .width = part(1), .columns = {fit(), px(92), px(46), part(1)}},
                     {.name = "B", .width = part(1), .columns = {fit(), part(1)}}}},
          {px(150), {{.name = "D", .width = part(1), .columns = {fit(), part(1), fit(), part(1)}},
                     {.name = "E", .width = px(420, 380), .columns = {fit(), px(122), fit(), part(1)}}}}),
      .controls = joined({{
          {.name = "Text1",      .index = 0,  .field = kNumber,            .column = "VOUCH_NO",    .holds = Figure,      .label = "Vouch No :",  .at = {.group = "A", .row = 0, .col = 1, .width = 92},  .tab = 8,  .limit = 8,   .keys = Number, .align = Right, .hint = "F1 = By Area :: F2 = By City :: F4 = By Amount"},
          {.name = "MaskEdBox1", .index = 0,  .field = kDate,              .column = "VOUCH_DT",    .holds = Holds::Date, .kind = Kind::Date, .label = "Date :", .at = {.group = "A", .row = 0, .col = 3, .width = 112}, .tab = 9, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 4,  .field = kParty,             .column = "PARTY_CD",                          .label = "Party :",     .at = {.group = "A", .row = 1, .col = 1, .width = 92},  .tab = 10, .limit = 6,   .keys = Letters, .hint = "F1 = All Accounts :: Insert = New Party"},
          {.name = "Text2", .field = kPartyName, .at = {.group = "A", .row = 1, .col = 2, .span = 2},    .enabled = false},
          {.name = "Text1",      .index = 35, .field = kReference,         .column = "REF_NO",                            .label = "Ref No :",    .at = {.group = "A", .row = 2, .col = 1, .span = 3, .width = 250}, .tab = 12, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 2,  .field = kAttention,         .column = "TO_NAME",                           .label = "Kind Attn :", .at = {.group = "B", .row = 0, .col = 1},               .tab = 13, .limit = 150, .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "Text1",      .index = 3,  .field = kSubject,           .column = "SUB_DESC",                          .label = "Subject :",   .at = {.group = "B", .row = 1, .col = 1},               .tab = 14, .limit = 150, .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "Text1",      .index = 11, .field = kYourReference,     .column = "YOUR_REF_NO",                       .label = "Your Ref:",   .at = {.group = "B", .row = 2, .col = 1},               .tab = 15, .limit = 150, .keys = Letters},

          lineNumber(),
          {.name = "Text1",      .index = 12, .field = kItem,              .column = "ITEM_CD",                           .label = "Code",        .at = {.group = "entry", .col = 1},  .tab = 20, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 5,  .field = kItemName,          .column = "ITEM_NAME",                         .label = "Item Name",   .at = {.group = "entry", .col = 2},  .tab = 21, .limit = 100, .keys = Letters, .enabled = false},
          {.name = "Text1",      .index = 15, .field = kDetail,            .column = "ITEM_DESC",                         .label = "Detail",      .at = {.group = "entry", .col = 3},  .tab = 22, .limit = 250, .keys = Letters, .hint = "F1 = Used Before :: F2 = Of This Item"},
          {.name = "Text1",      .index = 10, .field = kUnit,              .column = "SIZE_CD",                           .label = "Unit",        .at = {.group = "entry", .col = 4},  .tab = 23, .limit = 10,  .keys = Letters},
          {.name = "Text1",      .index = 8,  .field = kQuantity,          .column = "QUANTITY",    .holds = Figure,      .label = "Qty",         .at = {.group = "entry", .col = 5},  .tab = 24, .limit = 15,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 9,  .field = kRate,              .column = "RATE",        .holds = Figure,      .label = "Rate",        .at = {.group = "entry", .col = 6},  .tab = 25, .limit = 15,  .keys = Number, .align = Right, .hint = "F4 = Earlier Sales"},
          {.name = "Text1",      .index = 16, .field = kDiscount,          .column = "DISC",        .holds = Figure,      .label = "Disc",        .at = {.group = "entry", .col = 7},  .tab = 26, .limit = 8,   .keys = Number, .align = Right},
          {.name = "Text1",      .index = 36, .field = kCgstRate,          .column = "CGSTRT",      .holds = Figure,      .label = "Cgst",        .at = {.group = "entry", .col = 8},  .tab = 27, .limit = 15,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 37, .field = kCgstAmount,        .column = "CGSTAMT",     .holds = Figure,      .at = {.group = "entry", .col = 9},  .tab = 28, .limit = 15,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 38, .field = kSgstRate,          .column = "SGSTRT",      .holds = Figure,      .label = "Sgst",        .at = {.group = "entry", .col = 10}, .tab = 29, .limit = 15,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 39, .field = kSgstAmount,        .column = "SGSTAMT",     .holds = Figure,      .at = {.group = "entry", .col = 11}, .tab = 30, .limit = 15,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 40, .field = kIgstRate,          .column = "IGSTRT",      .holds = Figure,      .label = "Igst",        .at = {.group = "entry", .col = 12}, .tab = 31, .limit = 15,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 41, .field = kIgstAmount,        .column = "IGSTAMT",     .holds = Figure,      .at = {.group = "entry", .col = 13}, .tab = 32, .limit = 15,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 14, .field = kAmount,            .column = "AMOUNT",      .holds = Figure,      .label = "Amt",         .at = {.group = "entry", .col = 14}, .tab = 33, .limit = 8,   .keys = Number, .align = Right},
          {.name = "Text1",      .index = 47, .field = kAssessable,        .column = "ASSIVAL",     .holds = Figure, .at = {.group = "entry"}, .limit = 20, .enabled = false, .visible = false},

          lineKeys(10),
      }, lineGrids(lineColumns, rateColumns, 2, 632), {
          {.name = "Text1",      .index = 1,  .field = kValidity,          .column = "DESC8",                             .label = "Validity. :",  .at = {.group = "D", .row = 0, .col = 1}, .tab = 35, .limit = 150, .keys = Letters},
          {.name = "Text1",      .index = 7,  .field = kRateTerms,         .column = "DESC1",                             .label = "Rate Specs :", .at = {.group = "D", .row = 0, .col = 3}, .tab = 36, .limit = 150, .keys = Letters},
          {.name = "Text1",      .index = 29, .field = kPaymentTerms,      .column = "DESC2",                             .label = "Pay Terms :",  .at = {.group = "D", .row = 1, .col = 1}, .tab = 37, .limit = 150, .keys = Letters},
          {.name = "Text1",      .index = 33, .field = kTaxTerms,          .column = "DESC3",                             .label = "Taxes :",      .at = {.group = "D", .row = 1, .col = 3}, .tab = 38, .limit = 150, .keys = Letters},
          {.name = "Text1",      .index = 18, .field = kDeliveryTerms,     .column = "DESC4",                             .label = "Deli Terms",   .at = {.group = "D", .row = 2, .col = 1}, .tab = 39, .limit = 150, .keys = Letters},
          {.name = "Text1",      .index = 26, .field = kPackingTerms,      .column = "DESC5",                             .label = "Pckng-Fwd",    .at = {.group = "D", .row = 2, .col = 3}, .tab = 40, .limit = 150, .keys = Letters},
          {.name = "Text1",      .index = 28, .field = kInstallationTerms, .column = "DESC6",                             .label = "Instl Chrg",   .at = {.group = "D", .row = 3, .col = 1}, .tab = 41, .limit = 150, .keys = Letters},
          {.name = "Text1",      .index = 6,  .field = kSubjectTo,         .column = "DESC7",                             .label = "Subject To :", .at = {.group = "D", .row = 3, .col = 3}, .tab = 42, .limit = 150, .keys = Letters},

          {.name = "Text1",      .index = 42, .field = kCgstTotal,         .column = "TCGST",       .holds = Figure,      .label = "Cgst",         .at = {.group = "E", .row = 0, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 43, .field = kSgstTotal,         .column = "TSGST",       .holds = Figure,      .label = "Sgst",         .at = {.group = "E", .row = 1, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 44, .field = kIgstTotal,         .column = "TIGST",       .holds = Figure,      .label = "IGST",         .at = {.group = "E", .row = 2, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 45, .field = kTotalQuantity,     .column = "TOTQTY",      .holds = Figure,      .label = "T-Qty",        .at = {.group = "E", .row = 0, .col = 3}, .limit = 20, .enabled = false, .align = Right, .style = Style::Primary},
          {.name = "Text1",      .index = 21, .field = kItemsAmount,       .column = "ITEM_AMT",    .holds = Figure,      .label = "Total",        .at = {.group = "E", .row = 1, .col = 3}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 27, .field = kNetAmount,         .column = "NET_AMT",     .holds = Figure,      .label = "G.Total",      .at = {.group = "E", .row = 2, .col = 2, .span = 2, .rows = 2}, .limit = 20, .enabled = false, .align = Right, .money = true, .style = Style::Amount},
      }, voucherButtons(43)}),
  };
  // clang-format on
  return spec;
}
