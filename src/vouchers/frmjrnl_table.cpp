#include "vouchers/frmjrnl.h"
#include "vouchers/voucher_table.h"

using namespace fields;

// Rows of the screen from top to bottom: voucher and narration, what is known of the line's account;
// headings, entry row, keys, grid and total of the lines; what is wrong and the difference; buttons.

const ScreenSpec& FRMJRNL::table() {
  // clang-format off
  static const std::vector<GridColumn> lineColumns = {
      {.title = "Sr",                    .width = px(40, 30),   .align = Align::Right},
      {.title = "Account",               .width = px(92, 84)},
      {.title = "Account Name",          .width = part(1, 150)},
      {.title = "Debit",                 .width = px(130, 100), .align = Align::Right, .money = true},
      {.title = "Credit",                .width = px(130, 100), .align = Align::Right, .money = true},
      {.title = "Cheque",                .width = px(100, 70)},
      {.title = "Narration Of The Line", .width = part(1.4, 150)},
      {.title = "Bal After",             .width = px(140, 110), .align = Align::Right},
  };
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;
  constexpr auto Figure = Holds::Figure;

  static const ScreenSpec spec = [] {
    ScreenSpec s{
      .name = "FRMJRNL",
      .caption = "JOURNAL ENTRY",
      .focusColour = 0xFFC0FF,
      .layout = voucherLayout(
          {px(81), {{.name = "A", .width = part(1.65, 520), .columns = {px(76), px(92), px(52), px(112), px(72), px(150), part(1)}},
                    {.name = "C", .width = part(1, 250), .frame = Frame::Off}}},
          {px(82), {{.name = "D", .width = part(1), .columns = {part(1)}},
                    {.name = "E", .width = px(360, 300), .columns = {fit(), part(1)}}}}),
      .controls = joined({{
          {.name = "Text1",      .index = 0,  .field = kNumber,        .column = "VOUCH_NO",  .holds = Figure,      .label = "V. No",     .at = {.group = "A", .row = 0, .col = 1, .width = 92},  .tab = 1, .limit = 8,   .keys = Number, .align = Right, .hint = "F1 = By Ref No :: F4 = By Amount"},
          {.name = "MaskEdBox1", .index = 0,  .field = kDate,          .column = "VOUCH_DT",  .holds = Holds::Date, .kind = Kind::Date, .label = "Date", .at = {.group = "A", .row = 0, .col = 3, .width = 112}, .tab = 2, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 1,  .field = kReference,     .column = "REF_NO",                          .label = "Ref No",    .at = {.group = "A", .row = 0, .col = 5},               .tab = 3, .limit = 50,  .keys = Letters},
          {.name = "Text1",      .index = 2,  .field = kNarration,     .column = "NARRATION",                       .label = "Narration", .at = {.group = "A", .row = 1, .col = 1, .span = 6},    .tab = 4, .limit = 200, .keys = Letters, .hint = "F1 = Used Before"},
          {.name = "Label1",     .index = 54, .field = kPartyFacts,    .kind = Kind::Label,   .at = {.group = "C", .rows = 2}},

          lineNumber(),
          {.name = "Text1",      .index = 5,  .field = kAccount,       .column = "ACC_CD",                          .label = "Account",               .at = {.group = "entry", .col = 1}, .tab = 5, .limit = 6,   .keys = Letters, .hint = "Insert = New Account :: Page Down = End Lines"},
          {.name = "Text1",      .index = 6,  .field = kAccountName,   .column = "ACC_NAME",                        .label = "Account Name",          .at = {.group = "entry", .col = 2}, .enabled = false},
          {.name = "Text1",      .index = 7,  .field = kDebit,         .column = "DEBIT",     .holds = Figure,      .label = "Debit",                 .at = {.group = "entry", .col = 3}, .tab = 6, .limit = 15,  .keys = Number, .align = Right, .selectAll = true, .hint = "An Amount Here Empties The Other Side :: F6 = Cheque Of The Line"},
          {.name = "Text1",      .index = 8,  .field = kCredit,        .column = "CREDIT",    .holds = Figure,      .label = "Credit",                .at = {.group = "entry", .col = 4}, .tab = 7, .limit = 15,  .keys = Number, .align = Right, .selectAll = true, .hint = "An Amount Here Empties The Other Side :: F6 = Cheque Of The Line"},
          {.name = "Text1",      .index = 9,  .field = kLineNarration, .column = "NARRATION",                       .label = "Narration Of The Line", .at = {.group = "entry", .col = 6}, .tab = 8, .limit = 200, .keys = Letters, .hint = "F1 = Used Before :: F6 = Cheque Of The Line"},
          // Asked for, so that no other line takes a key for it.
          {.name = "Text1",      .index = 12, .field = kCheque,        .column = "CHQ_NO",                          .label = "Cheque",                .at = {.group = "entry", .col = 5}, .tab = 9, .limit = 50,  .keys = Letters, .hint = "Of This Line Alone :: Empty = The Ref No"},
          {.name = "Text1",      .index = 10, .field = kBalanceAfter,  .column = "BAL_AFT",                         .label = "Bal After",             .at = {.group = "entry", .col = 7}, .enabled = false, .align = Right},

          lineKeys(7),
          {.name = "DataGrid1",  .field = kLines, .kind = Kind::Grid, .at = {.group = "lines"}, .hint = "Enter = Change This Line", .columns = lineColumns},
          {.name = "lbltotal",   .kind = Kind::Label, .at = {.group = "total", .col = 2}, .style = Style::Primary},
          {.name = "Label2",     .index = 0, .field = kDebitTotal,     .kind = Kind::Label, .at = {.group = "total", .col = 3}, .align = Right, .money = true, .style = Style::Primary},
          {.name = "Label2",     .index = 1, .field = kCreditTotal,    .kind = Kind::Label, .at = {.group = "total", .col = 4}, .align = Right, .money = true, .style = Style::Primary},
          {.name = "lblwrong",   .kind = Kind::Label, .at = {.group = "D", .row = 0}, .style = Style::Primary},
          {.name = "lblcure",    .kind = Kind::Label, .at = {.group = "D", .row = 1}, .style = Style::Quiet},
          {.name = "Text1",      .index = 11, .field = kDifference, .label = "Difference", .at = {.group = "E", .row = 0, .col = 0, .span = 2, .rows = 2}, .enabled = false, .align = Right, .style = Style::Amount},
      }, voucherButtons(10)}),
    };
    // The total stands between the lines and the foot.
    s.layout.bands.insert(s.layout.bands.end() - 2,
                          Band{px(25), {{.name = "total", .frame = Frame::Keys, .columnsOf = "DataGrid1"}}});
    return s;
  }();
  // clang-format on
  return spec;
}
