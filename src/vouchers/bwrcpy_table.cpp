#include "vouchers/bwrcpy_table.h"

#include "frame/field_names.h"

using namespace fields;

// Left the voucher from top to bottom: its number, its two accounts, what is paid, and over a bank how, what
// is deducted and what that settles. Right the vouchers of the book, the latest first, or the party's open
// bills.

const ScreenSpec& bwrcpyTable() {
  // clang-format off
  static const std::vector<GridColumn> listColumns = {
      {.title = "No",      .width = px(72, 48),  .align = Align::Right},
      {.title = "Date",    .width = px(104, 100)},
      {.title = "Party",   .width = part(1.2, 100)},
      {.title = "Amount",  .width = px(112, 92), .align = Align::Right, .money = true},
      {.title = "Remarks", .width = part(1, 80)},
  };
  static const std::vector<GridColumn> billColumns = {
      {.title = "Bill",        .width = px(100, 58)},
      {.title = "Date",        .width = px(112, 100)},
      {.title = "Days",        .width = px(56, 36),  .align = Align::Right},
      {.title = "Bill Amount", .width = px(112, 76), .align = Align::Right, .money = true},
      {.title = "Open",        .width = px(112, 76), .align = Align::Right, .money = true},
      {.title = "Settled Now", .width = px(118, 76), .align = Align::Right, .money = true},
      {.title = "Left",        .width = part(1, 76), .align = Align::Right, .money = true},
  };
  using enum Holds;
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;

  static const ScreenSpec spec = {
      .name = "bwrcpy",
      .caption = "RECEIPT PAYMENT",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {part(1), {{.name = "form", .width = px(560, 420), .frame = Frame::Plain, .bands = {
                         {fit(),   {{.name = "A", .columns = {px(104, 84), px(92), fit(), px(112), part(1)}, .pitch = 39}}},
                         {fit(),   {{.name = "sides", .pitch = 39, .bands = {
                                        {fit(), {{.name = "B", .frame = Frame::Plain, .columns = {px(104, 84), px(92), part(1, 110), fit(), px(104, 92)}, .pitch = 39}}},
                                        {fit(), {{.name = "M", .frame = Frame::Plain, .columns = {px(104, 84), px(46), px(190), part(1)}, .pitch = 39}}, true}}}}},
                         {fit(),   {{.name = "money", .pitch = 39, .bands = {
                                        {fit(), {{.name = "C", .frame = Frame::Plain, .columns = {px(104, 84), px(150, 96), part(1)}, .pitch = 39}}},
                                        {fit(), {{.name = "P", .frame = Frame::Plain, .columns = {px(104, 84), px(150, 96), px(78, 64), part(1), px(112, 96)}, .pitch = 36}}, true},
                                        {fit(), {{.name = "R", .frame = Frame::Plain, .columns = {px(104, 84), part(1)}, .pitch = 39}}}}}}},
                         {fit(),   {{.name = "S", .columns = {px(104, 84), px(150, 96), part(1, 150)}, .pitch = 39}}, true},
                         {part(1), {{.name = "rest", .frame = Frame::Plain, .columns = {part(1)}}}},
                     }},
                     {.name = "pages", .width = part(1, 470), .frame = Frame::Plain, .bands = {
                         {px(30),  {{.name = "tabs", .frame = Frame::Plain, .columns = {px(176, 150), px(176, 150), part(1)}}}, true},
                         {part(1), {{.name = "list", .frame = Frame::Plain}}},
                     }}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "txtFields",  .index = 0,  .field = kNumber,         .column = "VOUCH_NO",   .holds = Figure, .label = "NO",          .at = {.group = "A", .row = 0, .col = 1},            .tab = 1, .limit = 8,   .keys = Number,  .enabled = false, .align = Right, .hint = "F1 = By Ref No :: F3 = By Cheque No :: F4 = By Amount"},
          {.name = "MaskEdBox1", .index = 0,  .field = kDate,           .column = "VOUCH_DT",   .holds = Date,   .kind = Kind::Date, .label = "Date", .at = {.group = "A", .row = 0, .col = 3}, .tab = 2,                          .enabled = false, .selectAll = true, .hint = "F1 = First Date :: F3 = Last Date :: F5 = Cash / Bank"},
          {.name = "txtFields",  .index = 2,  .field = kAccount, .also = kBank, .column = "CSHBNK_CD",                   .label = "Cash / Bank", .at = {.group = "B", .row = 0, .col = 1},            .tab = 3, .limit = 6,   .keys = Letters, .enabled = false, .selectAll = true},
          {.name = "txtFields",  .index = 10, .field = kAccountName,                                             .at = {.group = "B", .row = 0, .col = 2},                                              .enabled = false},
          {.name = "txtFields",  .index = 6,  .field = kAccountBalance,                                          .label = "Bal",         .at = {.group = "B", .row = 0, .col = 4},                                              .enabled = false, .align = Right, .money = true},
          {.name = "txtFields",  .index = 3,  .field = kParty,          .column = "PARTY_CD",                    .label = "Party",       .at = {.group = "B", .row = 1, .col = 1},            .tab = 4, .limit = 6,   .keys = Letters, .enabled = false, .hint = "F2 = By City :: F5 = Cash / Bank"},
          {.name = "txtFields",  .index = 9,  .field = kPartyName,                                               .at = {.group = "B", .row = 1, .col = 2},                                              .enabled = false},
          {.name = "txtFields",  .index = 5,  .field = kPartyBalance,                                            .label = "Bal",         .at = {.group = "B", .row = 1, .col = 4},                                              .enabled = false, .align = Right, .money = true},
          {.name = "txtFields",  .index = 20, .field = kMode,                                                    .label = "Mode",        .at = {.group = "M", .row = 0, .col = 1},            .tab = 5, .limit = 12,  .enabled = false, .visible = false, .selectAll = true},
          {.name = "txtFields",  .index = 21, .field = kModeName,                                                .at = {.group = "M", .row = 0, .col = 2},                                              .enabled = false, .visible = false},
          {.name = "txtFields",  .index = 4,  .field = kAmount,         .column = "AMOUNT",     .holds = Figure, .label = "Amount",      .at = {.group = "C", .row = 0, .col = 1},            .tab = 6, .limit = 15,  .keys = Number,  .enabled = false, .align = Right, .hint = "Enter AMOUNT In Figures"},
          {.name = "txtFields",  .index = 22, .field = kCheque,                                                  .label = "Ref No",      .at = {.group = "P", .row = 0, .col = 1, .span = 2}, .tab = 7, .limit = 50,  .keys = Letters, .enabled = false, .visible = false, .hint = "Number Of The Cheque Or Of The Bank :: Page Down = Bills To Settle"},
          {.name = "MaskEdBox1", .index = 1,  .field = kChequeDate, .kind = Kind::Date,                          .label = "Dt",          .at = {.group = "P", .row = 0, .col = 4},            .tab = 8,                                .enabled = false, .visible = false, .selectAll = true, .hint = "Enter = Date Of The Voucher :: F2 = Today"},
          {.name = "txtFields",  .index = 23, .field = kDiscountAmount, .holds = Figure,                         .label = "Discount",    .at = {.group = "P", .row = 1, .col = 1},            .tab = 9,  .limit = 15, .keys = Number,  .enabled = false, .visible = false, .align = Right, .hint = "F5 = Its Account :: Page Down = Bills To Settle"},
          {.name = "txtFields",  .index = 24, .field = kDiscountAccount,                                         .at = {.group = "P", .row = 1, .col = 2},            .tab = 10, .limit = 6,  .keys = Letters, .enabled = false, .visible = false, .selectAll = true},
          {.name = "txtFields",  .index = 25, .field = kDiscountAccountName,                                     .at = {.group = "P", .row = 1, .col = 3, .span = 2},                                   .enabled = false, .visible = false},
          {.name = "txtFields",  .index = 26, .field = kWriteOff,       .holds = Figure,                         .label = "Write Off",   .at = {.group = "P", .row = 2, .col = 1},            .tab = 11, .limit = 15, .keys = Number,  .enabled = false, .visible = false, .align = Right, .hint = "F5 = Its Account :: Page Down = Bills To Settle"},
          {.name = "txtFields",  .index = 27, .field = kWriteOffAccount,                                         .at = {.group = "P", .row = 2, .col = 2},            .tab = 12, .limit = 6,  .keys = Letters, .enabled = false, .visible = false, .selectAll = true},
          {.name = "txtFields",  .index = 28, .field = kWriteOffAccountName,                                     .at = {.group = "P", .row = 2, .col = 3, .span = 2},                                   .enabled = false, .visible = false},
          {.name = "txtFields",  .index = 29, .field = kTds,            .holds = Figure,                         .label = "TDS",         .at = {.group = "P", .row = 3, .col = 1},            .tab = 13, .limit = 15, .keys = Number,  .enabled = false, .visible = false, .align = Right, .hint = "F5 = Its Account :: Page Down = Bills To Settle"},
          {.name = "txtFields",  .index = 30, .field = kTdsAccount,                                              .at = {.group = "P", .row = 3, .col = 2},            .tab = 14, .limit = 6,  .keys = Letters, .enabled = false, .visible = false, .selectAll = true},
          {.name = "txtFields",  .index = 31, .field = kTdsAccountName,                                          .at = {.group = "P", .row = 3, .col = 3, .span = 2},                                   .enabled = false, .visible = false},
          {.name = "txtFields",  .index = 7,  .field = kNarration,      .column = "NARRATION",                   .label = "Remarks",     .at = {.group = "R", .row = 0, .col = 1},            .tab = 15, .limit = 200, .keys = Letters, .enabled = false, .hint = "F1 = Used Before"},
          {.name = "txtFields",  .index = 32, .field = kToSettle,                                                .label = "To Settle",   .at = {.group = "S", .row = 0, .col = 1},                                              .enabled = false, .visible = false, .align = Right, .money = true},
          {.name = "txtFields",  .index = 33, .field = kSettled,                                                 .label = "Settled",     .at = {.group = "S", .row = 1, .col = 1},                                              .enabled = false, .visible = false, .align = Right, .money = true},
          {.name = "txtFields",  .index = 34, .field = kOnAccount,                                               .label = "On Account",  .at = {.group = "S", .row = 0, .col = 2, .rows = 2},                                   .enabled = false, .visible = false, .align = Right, .money = true, .style = Style::Amount},
          {.name = "SCR1",                    .kind = Kind::Label, .label = "Press Add Button to Enter New Voucher", .at = {.group = "rest"}, .style = Style::Quiet},
          {.name = "cmdbills",                .kind = Kind::Button, .label = "1  Bills To Settle", .at = {.group = "tabs", .col = 0}, .visible = false},
          {.name = "cmdlast",                 .kind = Kind::Button, .label = "2  Last Vouchers",   .at = {.group = "tabs", .col = 1}, .visible = false},
          {.name = "DataGrid1",               .kind = Kind::Grid,  .at = {.group = "list"}, .columns = listColumns},
          {.name = "DataGrid2", .field = kBills, .kind = Kind::Grid, .at = {.group = "list"}, .visible = false, .hint = "Enter = Settle Whole Bill And Go Down :: F6 = Oldest First :: F8 = Clear All", .columns = billColumns},

          {.name = "cmdUpdate",  .kind = Kind::Button, .label = "&Update", .at = {.group = "buttons"}, .tab = 16,  .enabled = false, .visible = false, .hint = "Press Enter To Save"},
          {.name = "cmdCancel",  .kind = Kind::Button, .label = "&Cancel", .at = {.group = "buttons"}, .tab = 17,  .visible = false},
          {.name = "cmdAdd",     .kind = Kind::Button, .label = "&Add",    .at = {.group = "buttons"}, .tab = 18,  .hint = "Press Add Button to Enter New Voucher"},
          {.name = "cmdEdit",    .kind = Kind::Button, .label = "&Modify", .at = {.group = "buttons"}, .tab = 19},
          {.name = "cmdDelete",  .kind = Kind::Button, .label = "&Delete", .at = {.group = "buttons"}, .tab = 20},
          {.name = "Cmdprint",   .kind = Kind::Button, .label = "&Print",  .at = {.group = "buttons"}, .tab = 21},
          {.name = "cmdClose",   .kind = Kind::Button, .label = "&Close",  .at = {.group = "buttons"}, .tab = 22},
          {.name = "Cmdvideo",   .kind = Kind::Button, .label = "&Video",  .at = {.group = "buttons", .right = true}, .tab = 23},
      },
  };
  // clang-format on
  return spec;
}
