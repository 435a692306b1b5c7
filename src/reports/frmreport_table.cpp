#include "base/words.h"
#include "reports/frmreport.h"

// From top to bottom: filters three by two with the dates and Show under them, and beside them what
// the keys do; the report and, when it is wanted, its picture; the outputs.

const ScreenSpec& frmreport::table() {
  // clang-format off
  constexpr const char* kFromHint = english("Press Enter To Proceed :: F1 = First Date :: F2 = Today :: F3 = Last Date");
  constexpr const char* kToHint = english("Press Enter To Proceed :: F1 = First Date :: F2 = Today :: F3 = Last Date :: F4 = From Date");
  constexpr const char* kKeys =
      english("  Alt+P To PRINT Report \n  Alt+C To Close Report\n  Alt+E To VIEW In Excel\n  Alt+D To VIEW In Pdf");
  static const ScreenSpec spec = {
      .name = "frmreport",
      .caption = "Reports",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {px(118), {{.name = "filters", .columns = {px(76), part(1), px(92), part(1), px(100), part(0.51), px(120)}},
                     {.name = "keys",    .width = px(230)}}},
          {part(1), {{.name = "grid",    .frame = Frame::Plain}}},
          {px(232), {{.name = "picture", .frame = Frame::Plain}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "Text1",      .index = 0, .field = kParty, .label = "For Party",    .at = {.group = "filters", .row = 0, .col = 1}, .tab = 1, .limit = 6,   .enabled = false, .selectAll = true, .hint = "Press F1 To Select Party"},
          {.name = "Text1",      .index = 1, .field = kCity, .label = "For City",     .at = {.group = "filters", .row = 0, .col = 3}, .tab = 2, .limit = 100, .enabled = false, .selectAll = true, .hint = "Press F1 To Select City"},
          {.name = "Text1",      .index = 2, .field = kState, .label = "For State",    .at = {.group = "filters", .row = 0, .col = 5, .span = 2}, .tab = 3, .limit = 100, .enabled = false, .selectAll = true, .hint = "Press F1 To Select State"},
          {.name = "Text1",      .index = 3, .field = kItem, .label = "For Item",     .at = {.group = "filters", .row = 1, .col = 1}, .tab = 4, .limit = 20,  .enabled = false, .selectAll = true, .hint = "Press F1 To Select Item"},
          {.name = "Text1",      .index = 4, .field = kCategory, .label = "For Category", .at = {.group = "filters", .row = 1, .col = 3}, .tab = 5, .limit = 4,   .enabled = false, .selectAll = true, .hint = "Press F1 To Select Category"},
          {.name = "Text1",      .index = 5, .field = kSalesman, .label = "For Salesman", .at = {.group = "filters", .row = 1, .col = 5, .span = 2}, .tab = 6, .limit = 20,  .enabled = false, .selectAll = true, .hint = "Press Enter To Proceed"},
          {.name = "MaskEdBox1", .index = 0, .field = fields::kFrom, .kind = Kind::Date, .label = "From Date", .at = {.group = "filters", .row = 2, .col = 1, .width = 112}, .tab = 7, .selectAll = true, .hint = kFromHint},
          {.name = "MaskEdBox1", .index = 1, .field = fields::kTo, .kind = Kind::Date, .label = "To Date",   .at = {.group = "filters", .row = 2, .col = 3, .width = 112}, .tab = 8, .selectAll = true, .hint = kToHint},
          {.name = "Label1",     .index = 7, .field = fields::kPhone, .kind = Kind::Label,                      .at = {.group = "filters", .row = 2, .col = 5}, .style = Style::Quiet},
          {.name = "cmdshowrpt", .kind = Kind::Button, .label = "&Show", .at = {.group = "filters", .row = 2, .col = 6}, .tab = 9, .style = Style::Primary, .hint = "Press Enter To See The Report"},

          {.name = "Label1",     .index = 6, .kind = Kind::Label, .label = kKeys, .at = {.group = "keys", .rows = 3}, .style = Style::Quiet},
          {.name = "Label1",     .index = 8, .kind = Kind::Label},

          {.name = "Grid1",      .kind = Kind::Grid,   .at = {.group = "grid"}, .tab = 10, .visible = false},

          {.name = "Chart1",     .kind = Kind::Chart,  .at = {.group = "picture"}, .visible = false},

          {.name = "cmdprint",   .kind = Kind::Button, .label = "&Print", .at = {.group = "buttons"}, .tab = 11, .enabled = false, .hint = "Press Enter To Print :: F2 = Preview"},
          {.name = "cmdPrtToXl", .kind = Kind::Button, .label = "&Excel", .at = {.group = "buttons"}, .tab = 12, .enabled = false},
          {.name = "Cmdpdf",     .kind = Kind::Button, .label = "P&df",   .at = {.group = "buttons"}, .tab = 13, .enabled = false},
          {.name = "cmdmail",    .kind = Kind::Button, .label = "&Mail",  .at = {.group = "buttons"}, .visible = false},
          {.name = "Cmdwapp",    .kind = Kind::Button, .label = "&W-App", .at = {.group = "buttons"}, .visible = false},
          {.name = "cmdclose",   .kind = Kind::Button, .label = "&Close", .at = {.group = "buttons"}, .tab = 14},
          {.name = "Cmdvideo",   .kind = Kind::Button, .label = "&Video", .at = {.group = "buttons", .right = true}, .tab = 15},
      },
  };
  // clang-format on
  return spec;
}
