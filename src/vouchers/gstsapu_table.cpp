#include <map>

#include "vouchers/gstsapu.h"

// Rows of the screen from top to bottom: voucher and party, bill references, what is known of
// the party; headings, entry row, keys and grid of the lines; foot and totals; buttons.

namespace {

ScreenSpec tableOf(const VoucherKind& kind) {
  const bool ours = kind.words.billDate.empty();
  // clang-format off
  static const std::vector<GridColumn> lineColumns = {
      {.title = "Sr",               .width = px(40),  .align = Align::Right},
      {.title = "Item",             .width = px(92)},
      {.title = "Item Description", .width = part(1)},
      {.title = "Ex Detail",        .width = px(132)},
      {.title = "Unit",             .width = px(62)},
      {.title = "Qty",              .width = px(86),  .align = Align::Right},
      {.title = "Rate",             .width = px(92),  .align = Align::Right, .money = true},
      {.title = "D%",               .width = px(54),  .align = Align::Right},
      {.title = "Cgst",             .width = px(48),  .align = Align::Right, .headSpan = 2},
      {.title = "",                 .width = px(84),  .align = Align::Right, .money = true},
      {.title = "Sgst",             .width = px(48),  .align = Align::Right, .headSpan = 2},
      {.title = "",                 .width = px(84),  .align = Align::Right, .money = true},
      {.title = "Igst",             .width = px(48),  .align = Align::Right, .headSpan = 2},
      {.title = "",                 .width = px(84),  .align = Align::Right, .money = true},
      {.title = "Amount",           .width = px(112), .align = Align::Right, .money = true},
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

  return {
      .name = "GSTSAPU",
      .caption = "GST SALE / PURCHASE ENTRY",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {px(116), {{.name = "A", .width = part(1.15), .columns = {px(56), px(92), px(44), part(1)}},
                     {.name = "B", .width = px(356),    .columns = {px(58), px(92), fit(), part(1)}},
                     {.name = "C", .width = part(1),    .frame = Frame::Off}}},
          {px(25),  {{.name = "heads",   .frame = Frame::Heads, .columnsOf = "DataGrid1"}}},
          {px(34),  {{.name = "entry",   .frame = Frame::Entry, .columnsOf = "DataGrid1"}}},
          {px(24),  {{.name = "keys",    .frame = Frame::Keys,  .columnsOf = "DataGrid1"}}},
          {part(1), {{.name = "lines",   .frame = Frame::Plain}}},
          {px(150), {{.name = "D", .width = part(1), .columns = {fit(), px(44), part(1.15), fit(), part(1)}},
                     {.name = "E", .width = px(506), .columns = {fit(), px(132), fit(), part(1)}}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "Text1",      .index = 0,  .label = "V. No",     .at = {.group = "A", .row = 0, .col = 1, .width = 92},  .tab = 8,  .limit = 8,   .keys = Number, .align = Right, .hint = "F1 = By Bill No :: F4 = By Amount :: F8 = By Gstin"},
          {.name = "MaskEdBox1", .index = 0,  .kind = Kind::Date, .label = "Date", .at = {.group = "A", .row = 0, .col = 3, .width = 112}, .tab = 9, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 4,  .label = "Party",     .at = {.group = "A", .row = 1, .col = 1, .width = 92},  .tab = 10, .limit = 6,   .keys = Letters, .hint = "F1 = By Area :: F2 = By City :: Insert = New Party"},
          {.name = "Text2",                                         .at = {.group = "A", .row = 1, .col = 2, .span = 2},    .enabled = false},
          {.name = "Text1",      .index = 32, .label = "Ship To",   .at = {.group = "A", .row = 2, .col = 1, .width = 92},  .tab = 11, .limit = 6,   .keys = Number, .hint = "F8 = By Gstin :: Tab = Leave Empty"},
          {.name = "Text3",                                         .at = {.group = "A", .row = 2, .col = 2, .span = 2},    .enabled = false},
          {.name = "Text1",      .index = 47, .label = "B.Type",    .at = {.group = "B", .row = 0, .col = 1, .width = 92},  .tab = 12, .limit = 10,  .keys = Letters},
          {.name = "Text1",      .index = 43, .label = "B.No",      .at = {.group = "B", .row = 0, .col = 3},               .tab = 13, .limit = 20,  .keys = Letters},
          // The party's own date follows its number, of which it shares the place in the walk.
          {.name = "MaskEdBox1", .index = 2,  .kind = Kind::Date, .label = kind.words.billDate, .at = {.group = "B", .row = 1, .col = 3, .width = 112}, .tab = 13, .visible = !ours, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 62, .label = "Chln No",   .at = {.group = "B", .row = 1, .col = 1, .span = ours ? 3 : 1}, .tab = 14, .limit = 50,  .keys = Number},
          {.name = "Text1",      .index = 16, .label = "Ordr No",   .at = {.group = "B", .row = 2, .col = 1, .span = 3},    .tab = 15, .limit = 50,  .keys = Letters},
          {.name = "Label1",     .index = 54, .kind = Kind::Label,  .at = {.group = "C", .rows = 3}},

          {.name = "Label1",     .index = 0,  .kind = Kind::Label,  .at = {.group = "entry", .col = 0}, .align = Right, .style = Style::Key},
          {.name = "Text1",      .index = 5,  .label = "Item",             .at = {.group = "entry", .col = 1},  .tab = 16, .limit = 15,  .keys = Letters, .hint = "F2 = With Stock :: Insert = New Item"},
          {.name = "Text1",      .index = 6,  .label = "Item Description", .at = {.group = "entry", .col = 2},  .tab = 17, .limit = 100, .keys = Letters, .enabled = false},
          {.name = "Text1",      .index = 46, .label = "Ex Detail",        .at = {.group = "entry", .col = 3},  .tab = 18, .limit = 250, .keys = Letters, .hint = "F1 = Used Before :: F2 = Of This Item"},
          {.name = "Text1",      .index = 7,  .label = "Unit",             .at = {.group = "entry", .col = 4},  .tab = 19, .limit = 20,  .keys = Letters},
          {.name = "Text1",      .index = 8,  .label = "Qty",              .at = {.group = "entry", .col = 5},  .tab = 20, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 9,  .label = "Rate",             .at = {.group = "entry", .col = 6},  .tab = 21, .limit = 15,  .keys = Number,  .align = Right, .hint = kind.words.rateHint},
          {.name = "Text1",      .index = 11, .label = "D%",               .at = {.group = "entry", .col = 7},  .tab = 22, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 12, .label = "Cgst",             .at = {.group = "entry", .col = 8},  .tab = 23, .limit = 15,  .keys = Number,  .align = Right},
          {.name = "Text1",      .index = 13,                              .at = {.group = "entry", .col = 9},  .tab = 24, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 10, .label = "Sgst",             .at = {.group = "entry", .col = 10}, .tab = 25, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 15,                              .at = {.group = "entry", .col = 11}, .tab = 26, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 19, .label = "Igst",             .at = {.group = "entry", .col = 12}, .tab = 27, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 31,                              .at = {.group = "entry", .col = 13}, .tab = 28, .limit = 15,  .keys = Letters, .align = Right},
          {.name = "Text1",      .index = 14, .label = "Amount",           .at = {.group = "entry", .col = 14}, .tab = 29, .limit = 15,  .keys = Number,  .align = Right},

          {.name = "lblkeys",                 .kind = Kind::Label, .label = "Up / Down = Line  ::  F10 = Delete Line  ::  00 or Page Down = End Lines", .at = {.group = "keys", .col = 0, .span = 10}, .style = Style::Quiet},
          {.name = "Label1",     .index = 32, .kind = Kind::Label, .label = "Assival", .at = {.group = "keys", .col = 12, .span = 2}, .align = Right, .style = Style::Quiet},
          {.name = "Label1",     .index = 31, .kind = Kind::Label, .label = "0.00",    .at = {.group = "keys", .col = 14}, .align = Right, .money = true, .style = Style::Primary},
          {.name = "DataGrid1",               .kind = Kind::Grid,  .at = {.group = "lines"}, .hint = "Enter = Change This Line", .columns = lineColumns},
          {.name = "DataGrid2",               .kind = Kind::Grid,  .visible = false, .hint = "Enter = Back To The Rate", .columns = rateColumns, .over = "DataGrid1", .overOwn = 4, .overIts = 5, .overWidth = 632},

          {.name = "Text1",      .index = 29, .label = "Narration",   .at = {.group = "D", .row = 0, .col = 1, .span = 4},    .tab = 30, .limit = 200, .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "Text1",      .index = 55, .label = "Transport",   .at = {.group = "D", .row = 1, .col = 1, .width = 44},  .limit = 20, .enabled = false, .align = Right},
          {.name = "Text1",      .index = 42,                         .at = {.group = "D", .row = 1, .col = 2},               .tab = 32, .limit = 100,  .keys = Letters},
          {.name = "Text1",      .index = 27, .label = "Cr Days",     .at = {.group = "D", .row = 1, .col = 4, .width = 96},  .tab = 33, .limit = 20,  .keys = Number, .align = Right},
          {.name = "Text1",      .index = 41, .label = "Destination", .at = {.group = "D", .row = 2, .col = 1, .span = 2},    .tab = 34, .limit = 40,  .keys = Letters},
          {.name = "Text1",      .index = 40, .label = "Lr No",       .at = {.group = "D", .row = 2, .col = 4},               .tab = 35, .limit = 20,  .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "MaskEdBox1", .index = 1,  .kind = Kind::Date, .label = "Lr Dt", .at = {.group = "D", .row = 3, .col = 1, .span = 2, .width = 112}, .tab = 36, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 45, .label = "Parcels",     .at = {.group = "D", .row = 3, .col = 4},               .tab = 37, .limit = 50,  .keys = Letters},

          {.name = "Text1",      .index = 18, .label = "Assible",     .at = {.group = "E", .row = 0, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 1,  .label = "CGST",        .at = {.group = "E", .row = 1, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 3,  .label = "SGST",        .at = {.group = "E", .row = 2, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 20, .label = "IGST",        .at = {.group = "E", .row = 3, .col = 1}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 26, .label = "Tot Qty",     .at = {.group = "E", .row = 0, .col = 3}, .limit = 20, .enabled = false, .align = Right, .style = Style::Primary},
          {.name = "Text1",      .index = 38, .label = "Round",       .at = {.group = "E", .row = 1, .col = 3}, .limit = 20, .enabled = false, .align = Right, .money = true},
          {.name = "Text1",      .index = 28, .label = "Bill Amount", .at = {.group = "E", .row = 2, .col = 2, .span = 2, .rows = 2}, .limit = 20, .enabled = false, .align = Right, .money = true, .style = Style::Amount},
          {.name = "Text1",      .index = 2,                                                                    .limit = 20, .enabled = false, .visible = false},

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
}

}  // namespace

const ScreenSpec& GSTSAPU::table(const VoucherKind& kind) {
  static std::map<std::string, ScreenSpec> made;
  const auto found = made.find(kind.code);
  return found != made.end() ? found->second : made.emplace(kind.code, tableOf(kind)).first->second;
}
