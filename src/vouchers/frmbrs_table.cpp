#include "vouchers/frmbrs_table.h"

#include "frame/field_names.h"

using namespace fields;

// From top to bottom: what is asked; the books at the left, the statement at the right; when the row under
// the cursor was cleared, and what speaks for the proposal; the sums; buttons.

const ScreenSpec& reconciliationTable() {
  // clang-format off
  static const std::vector<GridColumn> bookColumns = {
      {.title = "",            .width = px(34, 24)},
      {.title = "Date",        .width = px(96, 90)},
      {.title = "Particulars", .width = part(1, 90)},
      {.title = "Ref No",      .width = px(112, 70)},
      {.title = "Debit",       .width = px(104, 84), .align = Align::Right, .money = true},
      {.title = "Credit",      .width = px(104, 84), .align = Align::Right, .money = true},
      {.title = "Cleared",     .width = px(112, 104)},
  };
  static const std::vector<GridColumn> statementColumns = {
      {.title = "",                 .width = px(34, 24)},
      {.title = "Date",             .width = px(94, 90)},
      {.title = "Text Of The Bank", .width = part(1, 90)},
      {.title = "Amount",           .width = px(116, 92), .align = Align::Right, .money = true},
  };
  constexpr auto Number = KeyClass::Number, Letters = KeyClass::Text;
  constexpr auto Right = Align::Right;
  static const std::vector<Length> sums = {part(1), px(140, 92)};

  static const ScreenSpec spec = {
      .name = "FRMBRS",
      .caption = "Bank Reconciliation",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {px(48),  {{.name = "F", .columns = {px(56, 40), px(92, 72), part(1), fit(), px(112, 96), fit(), px(112, 96), fit(), px(124, 84), fit(), fit()}}}},
          {part(1), {{.name = "books", .width = part(1.46, 500), .frame = Frame::Plain, .bands = {
                          {px(26),  {{.name = "bookshead", .frame = Frame::Plain, .columns = {part(1)}}}},
                          {part(1), {{.name = "bookrows", .frame = Frame::Plain}}}}},
                     {.name = "right", .width = part(1, 300), .frame = Frame::Plain, .bands = {
                          {px(26),  {{.name = "statementhead", .frame = Frame::Plain, .columns = {part(1)}}}},
                          {part(1), {{.name = "statementrows", .frame = Frame::Plain}}}}}}},
          {px(48),  {{.name = "P", .columns = {px(84), px(124), part(1)}}}},
          {px(98),  {{.name = "L", .width = part(1), .columns = sums, .pitch = 27},
                     {.name = "M", .width = part(1), .columns = sums, .pitch = 27},
                     {.name = "X", .width = px(330, 214), .columns = {part(1)}}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "Text1",      .index = 0, .field = kAccount,     .label = "Bank",       .at = {.group = "F", .col = 1}, .tab = 1, .limit = 6, .keys = Letters, .selectAll = true},
          {.name = "Text1",      .index = 1, .field = kAccountName, .at = {.group = "F", .col = 2}, .enabled = false},
          {.name = "MaskEdBox1", .index = 0, .field = kFrom,        .kind = Kind::Date, .label = "From Dt", .at = {.group = "F", .col = 4}, .tab = 2, .selectAll = true, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "MaskEdBox1", .index = 1, .field = kTo,          .kind = Kind::Date, .label = "TO",      .at = {.group = "F", .col = 6}, .tab = 3, .selectAll = true, .hint = "F1 = First Date :: F2 = Today :: F3 = Last Date"},
          {.name = "Text1",      .index = 2, .field = kBankSays,    .label = "Bank Says", .at = {.group = "F", .col = 8}, .tab = 4, .limit = 16, .keys = Number, .align = Right, .selectAll = true},
          {.name = "cmdshow",    .kind = Kind::Button, .label = "&Show",           .at = {.group = "F", .col = 9},  .tab = 5, .style = Style::Primary},
          {.name = "cmdread",    .kind = Kind::Button, .label = "&Read Statement", .at = {.group = "F", .col = 10}, .tab = 6},

          {.name = "lblbooks",     .kind = Kind::Label, .label = "Books", .at = {.group = "bookshead"}, .style = Style::Section},
          {.name = "Grid1",        .field = kBookRows, .kind = Kind::Grid, .at = {.group = "bookrows"}, .tab = 7, .columns = bookColumns},
          {.name = "lblstatement", .kind = Kind::Label, .label = "Statement", .at = {.group = "statementhead"}, .style = Style::Section},
          {.name = "Grid2",        .field = kStatementRows, .kind = Kind::Grid, .at = {.group = "statementrows"}, .tab = 8, .columns = statementColumns},

          {.name = "MaskEdBox1", .index = 2, .field = kDate, .kind = Kind::Date, .label = "Cleared On", .at = {.group = "P", .row = 0, .col = 1}, .tab = 9, .selectAll = true, .hint = "Enter = Take It :: Empty = Not Cleared :: F2 = Today"},
          {.name = "lblproposal", .kind = Kind::Label, .at = {.group = "P", .row = 0, .col = 2}},

          {.name = "Label1", .index = 0, .kind = Kind::Label, .label = "Balance by the books",             .at = {.group = "L", .row = 0, .col = 0}},
          {.name = "Label1", .index = 1, .field = kByBooks, .kind = Kind::Label,      .at = {.group = "L", .row = 0, .col = 1}, .align = Right, .money = true},
          {.name = "Label1", .index = 2, .kind = Kind::Label, .label = "+ Paid, not yet taken by the bank", .at = {.group = "L", .row = 1, .col = 0}},
          {.name = "Label1", .index = 3, .field = kPaidOpen, .kind = Kind::Label,     .at = {.group = "L", .row = 1, .col = 1}, .align = Right, .money = true},
          {.name = "Label1", .index = 4, .kind = Kind::Label, .label = "- Received, not yet with the bank", .at = {.group = "L", .row = 2, .col = 0}},
          {.name = "Label1", .index = 5, .field = kReceivedOpen, .kind = Kind::Label, .at = {.group = "L", .row = 2, .col = 1}, .align = Right, .money = true},
          {.name = "Label1", .index = 6, .kind = Kind::Label, .label = "Balance that the bank should show", .at = {.group = "M", .row = 0, .col = 0}, .style = Style::Primary},
          {.name = "Label1", .index = 7, .field = kByBank, .kind = Kind::Label,       .at = {.group = "M", .row = 0, .col = 1}, .align = Right, .money = true, .style = Style::Primary},
          {.name = "lblsays",    .kind = Kind::Label, .label = "Bank says", .at = {.group = "M", .row = 1, .col = 0}},
          {.name = "lblsaid",    .kind = Kind::Label, .at = {.group = "M", .row = 1, .col = 1}, .align = Right, .money = true},
          {.name = "Label1", .index = 8, .kind = Kind::Label, .label = "Statement lines not in the books", .at = {.group = "M", .row = 2, .col = 0}},
          {.name = "Label1", .index = 9, .field = kNotInBooks, .kind = Kind::Label,   .at = {.group = "M", .row = 2, .col = 1}, .align = Right, .money = true},
          {.name = "Text1",      .index = 3, .field = kUnexplained, .label = "Unexplained", .at = {.group = "X", .row = 0, .col = 0, .rows = 2}, .enabled = false, .align = Right, .money = true, .style = Style::Amount},

          {.name = "cmdtake",    .kind = Kind::Button, .label = "&Take All Certain", .at = {.group = "buttons"}, .tab = 10},
          {.name = "cmdvoucher", .kind = Kind::Button, .label = "&Write Voucher",    .at = {.group = "buttons"}, .tab = 11},
          {.name = "cmdprint",   .kind = Kind::Button, .label = "&Print",            .at = {.group = "buttons"}, .tab = 12, .hint = "Press Enter To Print :: F2 = Preview"},
          {.name = "cmdexcel",   .kind = Kind::Button, .label = "&Excel",            .at = {.group = "buttons"}, .tab = 13},
          {.name = "Cmdpdf",     .kind = Kind::Button, .label = "P&df",              .at = {.group = "buttons"}, .tab = 14},
          {.name = "cmdclose",   .kind = Kind::Button, .label = "&Close",            .at = {.group = "buttons"}, .tab = 15},
      },
  };
  // clang-format on
  return spec;
}
