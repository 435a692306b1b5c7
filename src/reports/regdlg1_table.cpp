#include "base/words.h"
#include "reports/regdlg1.h"

// From top to bottom: account, period and Show with the address under them; the statement with
// the shortcuts to vouchers beside it; the outputs.

const ScreenSpec& regdlg1::table() {
  // clang-format off
  constexpr const char* kDateHint = english("Press Enter To Proceed :: F1 = First Date :: F2 = Today :: F3 = Last Date");
  static const ScreenSpec spec = {
      .name = "regdlg1",
      .caption = "Account Ledgers",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {px(73),  {{.name = "filter", .bands = {
              {px(30), {{.name = "line",  .frame = Frame::Plain, .columns = {px(41), px(92), fit(), part(1), fit(), px(112), fit(), px(112), px(96)}}}},
              {px(21), {{.name = "facts", .frame = Frame::Plain, .columns = {px(41), fit(), px(24), fit(), px(24), fit(), part(1)}, .pitch = 21}}}}}}},
          {part(1), {{.name = "grid",     .frame = Frame::Plain},
                     {.name = "vouchers", .width = px(156), .frame = Frame::Column}}},
          {px(34),  {{.name = "buttons",  .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "Text1",      .field = fields::kParty, .label = "CODE",    .at = {.group = "line", .col = 1}, .tab = 1, .limit = 6, .keys = KeyClass::Text},
          {.name = "Text2",      .field = fields::kPartyName, .label = "NAME",    .at = {.group = "line", .col = 3}, .enabled = false},
          {.name = "MaskEdBox1", .index = 0, .field = fields::kFrom, .kind = Kind::Date, .label = "From Dt", .at = {.group = "line", .col = 5}, .tab = 2, .hint = kDateHint},
          {.name = "MaskEdBox1", .index = 1, .field = fields::kTo, .kind = Kind::Date, .label = "TO",      .at = {.group = "line", .col = 7}, .tab = 3, .hint = kDateHint},
          {.name = "cmdshow",    .kind = Kind::Button, .label = "&Show", .at = {.group = "line", .col = 8}, .tab = 4, .enabled = false, .hint = "Press Enter To See The Statement"},

          {.name = "lbldate",    .index = 1, .field = fields::kAddress, .kind = Kind::Label, .at = {.group = "facts", .col = 1}, .style = Style::Quiet},
          {.name = "Label7",     .field = fields::kEmail, .kind = Kind::Label, .at = {.group = "facts", .col = 3}, .style = Style::Quiet},
          {.name = "Label9",     .field = fields::kPhone, .kind = Kind::Label, .at = {.group = "facts", .col = 5}, .style = Style::Quiet},
          {.name = "Label10",                 .kind = Kind::Label, .at = {.group = "facts", .col = 6}, .style = Style::Quiet},

          {.name = "Grid1",      .kind = Kind::Grid, .at = {.group = "grid"}, .tab = 5, .visible = false},

          {.name = "cmdprint",   .kind = Kind::Button, .label = "&Print", .at = {.group = "buttons"}, .tab = 14, .enabled = false, .hint = "Press Enter To Print :: F2 = Preview"},
          {.name = "cmdexcel",   .kind = Kind::Button, .label = "&Excel", .at = {.group = "buttons"}, .tab = 15, .hint = "Press Enter To View In Excel :: F2 = Csv File"},
          {.name = "cmdpdf",     .kind = Kind::Button, .label = "P&df",   .at = {.group = "buttons"}, .tab = 16},
          {.name = "cmdmail",    .kind = Kind::Button, .label = "&Mail",  .at = {.group = "buttons"}, .visible = false},
          {.name = "Cmdwapp",    .kind = Kind::Button, .label = "&W-App", .at = {.group = "buttons"}, .visible = false},
          {.name = "cmdclose",   .kind = Kind::Button, .label = "&Close", .at = {.group = "buttons"}, .tab = 17},
          {.name = "Cmdvideo",   .kind = Kind::Button, .label = "&Video", .at = {.group = "buttons", .right = true}, .tab = 18},

          {.name = "Frame1",     .kind = Kind::Picture},
          {.name = "cmdsale",    .index = 0, .kind = Kind::Button, .label = "&Sale",            .at = {.group = "vouchers"}, .tab = 6,  .hint = "Press Enter For GST Sales Entry"},
          {.name = "cmdsale",    .index = 1, .kind = Kind::Button, .label = "P&urchase",        .at = {.group = "vouchers"}, .tab = 7,  .hint = "Press Enter For Delivery Challan"},
          {.name = "cmdsale",    .index = 2, .kind = Kind::Button, .label = "&Receipt",         .at = {.group = "vouchers"}, .tab = 8,  .hint = "Press Enter For Receipts"},
          {.name = "cmdsale",    .index = 3, .kind = Kind::Button, .label = "&Payment",         .at = {.group = "vouchers"}, .tab = 9,  .hint = "Press Enter For Payments"},
          {.name = "cmdsale",    .index = 4, .kind = Kind::Button, .label = "&Income",          .at = {.group = "vouchers"}, .tab = 10, .hint = "Press Enter For Incomes"},
          {.name = "cmdsale",    .index = 5, .kind = Kind::Button, .label = "&Expense",         .at = {.group = "vouchers"}, .tab = 11, .hint = "Press Enter For Expenses"},
          {.name = "cmdsale",    .index = 6, .kind = Kind::Button, .label = "&Journel Voucher", .at = {.group = "vouchers"}, .tab = 12, .hint = "Press Enter For Journal Vouchers"},
          {.name = "cmdsale",    .index = 7, .kind = Kind::Button, .label = "E&xit",            .at = {.group = "vouchers"}, .tab = 13, .hint = "Press Enter To Go To The Statement"},
      },
  };
  // clang-format on
  return spec;
}
