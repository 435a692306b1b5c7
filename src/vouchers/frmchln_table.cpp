#include "vouchers/frmchln.h"

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

  static const ScreenSpec spec = {
      .name = "FRMCHLN",
      .caption = "Sales Challan Entry",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {px(81),  {{.name = "A", .width = part(1.15), .columns = {px(56), px(92), px(44), part(1)}},
                     {.name = "B", .width = px(356),    .columns = {px(72), px(92), fit(), part(1)}},
                     {.name = "C", .width = part(1),    .frame = Frame::Off}}},
          {px(25),  {{.name = "heads",   .frame = Frame::Heads, .columnsOf = "DataGrid1"}}},
          {px(34),  {{.name = "entry",   .frame = Frame::Entry, .columnsOf = "DataGrid1"}}},
          {px(24),  {{.name = "keys",    .frame = Frame::Keys,  .columnsOf = "DataGrid1"}}},
          {part(1), {{.name = "lines",   .frame = Frame::Plain}}},
          {px(116), {{.name = "D", .width = part(1), .columns = {fit(), part(1), fit(), part(1), fit(), part(1)}},
                     {.name = "E", .width = px(440), .columns = {fit(), px(132), fit(), part(1)}}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "Text1",      .index = 0,  .label = "No",       .at = {.group = "A", .row = 0, .col = 1, .width = 92},  .tab = 8,  .limit = 8,   .keys = Number, .align = Right, .hint = "F1 = By Chln No :: F2 = By Order No"},
          {.name = "MaskEdBox1", .index = 0,  .kind = Kind::Date, .label = "Date", .at = {.group = "A", .row = 0, .col = 3, .width = 112}, .tab = 9, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 4,  .label = "Party",    .at = {.group = "A", .row = 1, .col = 1, .width = 92},  .tab = 10, .limit = 6,   .keys = Letters, .hint = "Insert = New Party"},
          {.name = "Text2",                                        .at = {.group = "A", .row = 1, .col = 2, .span = 2},    .enabled = false},
          {.name = "Text1",      .index = 15, .label = "Order No", .at = {.group = "B", .row = 0, .col = 1, .span = 3},    .tab = 11, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 23, .label = "Type",     .at = {.group = "B", .row = 1, .col = 1, .width = 92},  .tab = 12, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 24, .label = "Chln No",  .at = {.group = "B", .row = 1, .col = 3},               .tab = 13, .limit = 20,  .keys = Number},
          {.name = "Label1",     .index = 54, .kind = Kind::Label, .at = {.group = "C", .rows = 2}},

          {.name = "Label1",     .index = 0,  .kind = Kind::Label, .at = {.group = "entry", .col = 0}, .align = Right, .style = Style::Key},
          {.name = "Text1",      .index = 5,  .label = "Code",     .at = {.group = "entry", .col = 1}, .tab = 15, .limit = 8,   .keys = Letters, .hint = "Insert = New Item"},
          {.name = "Text1",      .index = 6,  .label = "NAME",     .at = {.group = "entry", .col = 2}, .tab = 16, .limit = 100, .keys = Letters, .enabled = false},
          {.name = "Text1",      .index = 10, .label = "Detail",   .at = {.group = "entry", .col = 3}, .tab = 17, .limit = 100, .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "Text1",      .index = 7,  .label = "Unit",     .at = {.group = "entry", .col = 4}, .tab = 18, .limit = 20,  .keys = Letters, .hint = "F1 = With Item Name :: Up / Down = Line"},
          {.name = "Text1",      .index = 8,  .label = "QTY",      .at = {.group = "entry", .col = 5}, .tab = 19, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 9,  .label = "Rate",     .at = {.group = "entry", .col = 6}, .tab = 20, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 14, .label = "Amount",   .at = {.group = "entry", .col = 7}, .tab = 21, .keys = Number,  .locked = true, .align = Right},

          {.name = "lblkeys",                 .kind = Kind::Label, .label = "Up / Down = Line  ::  F10 = Delete Line  ::  00 or Page Down = End Lines", .at = {.group = "keys", .col = 0, .span = 4}, .style = Style::Quiet},
          {.name = "SCR1",                    .kind = Kind::Label, .label = "Press Add Button For New Entry", .at = {.group = "keys", .col = 4, .span = 4}, .align = Right, .style = Style::Quiet},
          {.name = "DataGrid1",               .kind = Kind::Grid,  .at = {.group = "lines"}, .hint = "Enter = Change This Line", .columns = lineColumns},
          {.name = "DataGrid2",               .kind = Kind::Grid,  .visible = false, .hint = "Enter = Back To The Rate", .columns = rateColumns, .over = "DataGrid1", .overOwn = 2, .overIts = 5, .overWidth = 536},

          {.name = "Text1",      .index = 29, .label = "Remarks",   .at = {.group = "D", .row = 0, .col = 1, .span = 5}, .tab = 22, .limit = 80,  .keys = Letters},
          {.name = "Text1",      .index = 19, .label = "Disc %",    .at = {.group = "D", .row = 1, .col = 1},            .tab = 23, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 20, .label = "Disc Amt",  .at = {.group = "D", .row = 1, .col = 3},            .tab = 24, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 21, .label = "Chrgs",     .at = {.group = "D", .row = 1, .col = 5},            .tab = 25, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 1,  .label = "Transport", .at = {.group = "D", .row = 2, .col = 1},            .tab = 26, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 3,  .label = "Lr No",     .at = {.group = "D", .row = 2, .col = 3},            .tab = 27, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 11, .label = "Desti",     .at = {.group = "D", .row = 2, .col = 5},            .tab = 28, .limit = 20,  .keys = Letters},

          {.name = "Text1",      .index = 18, .label = "Item Amt",  .at = {.group = "E", .row = 0, .col = 1}, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 26, .label = "Item Qty",  .at = {.group = "E", .row = 0, .col = 3}, .enabled = false, .align = Right, .style = Style::Primary},
          {.name = "Text1",      .index = 28, .label = "Net_Amt",   .at = {.group = "E", .row = 1, .col = 0, .span = 4, .rows = 2}, .enabled = false, .align = Right, .money = true, .style = Style::Amount},
          {.name = "Text1",      .index = 2,                                                                  .enabled = false, .visible = false},

          {.name = "CMDSAVE",    .kind = Kind::Button, .label = "&Save",   .at = {.group = "buttons"}, .tab = 38, .enabled = false, .visible = false, .hint = "Press Enter To Save"},
          {.name = "CMDCANCEL",  .kind = Kind::Button, .label = "&Cancel", .at = {.group = "buttons"}, .tab = 39, .visible = false},
          {.name = "cmdadd",     .kind = Kind::Button, .label = "&Add",    .at = {.group = "buttons"}, .tab = 40, .hint = "Press Add Button For New Entry"},
          {.name = "cmdEDIT",    .kind = Kind::Button, .label = "&Modify", .at = {.group = "buttons"}, .tab = 41},
          {.name = "CMDDELETE",  .kind = Kind::Button, .label = "&Delete", .at = {.group = "buttons"}, .tab = 42},
          {.name = "cmdprint",   .kind = Kind::Button, .label = "&Print",  .at = {.group = "buttons"}, .tab = 43},
          {.name = "cmdclose",   .kind = Kind::Button, .label = "&Close",  .at = {.group = "buttons"}, .tab = 44},
          {.name = "Cmdvideo",   .kind = Kind::Button, .label = "&Video",  .at = {.group = "buttons", .right = true}, .tab = 45},
      },
  };
  // clang-format on
  return spec;
}
