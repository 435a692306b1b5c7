#include "vouchers/bwrcpy_table.h"

#include "frame/field_names.h"

using namespace fields;

// Left the voucher from top to bottom: its number, its two accounts, what is paid. Right the
// vouchers of the book, the latest first.

const ScreenSpec& bwrcpyTable() {
  // clang-format off
  static const std::vector<GridColumn> listColumns = {
      {.title = "No",      .width = px(72, 48),  .align = Align::Right},
      {.title = "Date",    .width = px(104, 100)},
      {.title = "Party",   .width = part(1.2, 100)},
      {.title = "Amount",  .width = px(112, 92), .align = Align::Right, .money = true},
      {.title = "Remarks", .width = part(1, 80)},
  };
  using enum Holds;
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;

  static const ScreenSpec spec = {
      .name = "bwrcpy",
      .caption = "RECEIPT PAYMENT",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {part(1), {{.name = "form", .frame = Frame::Plain, .bands = {
                         {fit(),   {{.name = "A", .columns = {px(104), px(92), fit(), px(112), part(1)}, .pitch = 39}}},
                         {fit(),   {{.name = "B", .columns = {px(104), px(92), part(1), fit(), px(150)}, .pitch = 39}}},
                         {fit(),   {{.name = "C", .columns = {px(104), px(150), part(1)}, .pitch = 39}}},
                         {part(1), {{.name = "rest", .frame = Frame::Plain}}},
                     }},
                     {.name = "list", .width = px(600), .frame = Frame::Plain}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "txtFields",  .index = 0,  .field = kNumber,         .column = "VOUCH_NO",   .holds = Figure, .label = "NO",          .at = {.group = "A", .row = 0, .col = 1},            .tab = 1, .limit = 8,   .keys = Number,  .enabled = false, .align = Right, .hint = "F1 = By Ref No :: F3 = By Cheque No :: F4 = By Amount"},
          {.name = "MaskEdBox1", .index = 0,  .field = kDate,           .column = "VOUCH_DT",   .holds = Date,   .kind = Kind::Date, .label = "Date", .at = {.group = "A", .row = 0, .col = 3}, .tab = 2,                          .enabled = false, .selectAll = true, .hint = "F1 = First Date :: F3 = Last Date :: F5 = Cash / Bank"},
          {.name = "txtFields",  .index = 2,  .field = kAccount,        .column = "CSHBNK_CD",                   .label = "Cash / Bank", .at = {.group = "B", .row = 0, .col = 1},            .tab = 3, .limit = 6,   .keys = Letters, .enabled = false, .selectAll = true},
          {.name = "txtFields",  .index = 10, .field = kAccountName,                                             .at = {.group = "B", .row = 0, .col = 2},                                              .enabled = false},
          {.name = "txtFields",  .index = 6,  .field = kAccountBalance,                                          .label = "Balance",     .at = {.group = "B", .row = 0, .col = 4},                                              .enabled = false, .align = Right, .money = true},
          {.name = "txtFields",  .index = 3,  .field = kParty,          .column = "PARTY_CD",                    .label = "Party",       .at = {.group = "B", .row = 1, .col = 1},            .tab = 4, .limit = 6,   .keys = Letters, .enabled = false, .hint = "F2 = By City :: F5 = Cash / Bank"},
          {.name = "txtFields",  .index = 9,  .field = kPartyName,                                               .at = {.group = "B", .row = 1, .col = 2},                                              .enabled = false},
          {.name = "txtFields",  .index = 5,  .field = kPartyBalance,                                            .label = "Balance",     .at = {.group = "B", .row = 1, .col = 4},                                              .enabled = false, .align = Right, .money = true},
          {.name = "txtFields",  .index = 4,  .field = kAmount,         .column = "AMOUNT",     .holds = Figure, .label = "Amount",      .at = {.group = "C", .row = 0, .col = 1},            .tab = 5, .limit = 15,  .keys = Number,  .enabled = false, .align = Right, .hint = "Enter AMOUNT In Figures"},
          {.name = "txtFields",  .index = 7,  .field = kNarration,      .column = "NARRATION",                   .label = "Remarks",     .at = {.group = "C", .row = 1, .col = 1, .span = 2}, .tab = 6, .limit = 200, .keys = Letters, .enabled = false, .hint = "F1 = Used Before"},
          {.name = "SCR1",                    .kind = Kind::Label, .label = "Press Add Button to Enter New Voucher", .at = {.group = "A", .row = 0, .col = 4}, .style = Style::Quiet},
          {.name = "DataGrid1",               .kind = Kind::Grid,  .at = {.group = "list"}, .columns = listColumns},

          {.name = "cmdUpdate",  .kind = Kind::Button, .label = "&Update", .at = {.group = "buttons"}, .tab = 7,  .enabled = false, .visible = false, .hint = "Press Enter To Save"},
          {.name = "cmdCancel",  .kind = Kind::Button, .label = "&Cancel", .at = {.group = "buttons"}, .tab = 8,  .visible = false},
          {.name = "cmdAdd",     .kind = Kind::Button, .label = "&Add",    .at = {.group = "buttons"}, .tab = 9,  .hint = "Press Add Button to Enter New Voucher"},
          {.name = "cmdEdit",    .kind = Kind::Button, .label = "&Modify", .at = {.group = "buttons"}, .tab = 10},
          {.name = "cmdDelete",  .kind = Kind::Button, .label = "&Delete", .at = {.group = "buttons"}, .tab = 11},
          {.name = "Cmdprint",   .kind = Kind::Button, .label = "&Print",  .at = {.group = "buttons"}, .tab = 12},
          {.name = "cmdClose",   .kind = Kind::Button, .label = "&Close",  .at = {.group = "buttons"}, .tab = 13},
          {.name = "Cmdvideo",   .kind = Kind::Button, .label = "&Video",  .at = {.group = "buttons", .right = true}, .tab = 14},
      },
  };
  // clang-format on
  return spec;
}
