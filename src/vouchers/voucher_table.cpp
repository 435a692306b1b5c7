#include "vouchers/voucher_table.h"

#include <utility>

#include "frame/field_names.h"

using namespace fields;

// clang-format off
Layout voucherLayout(Band head, Band foot, const std::vector<Band>& folding) {
  Layout layout{.bands = {
      std::move(head),
      {px(25),  {{.name = "heads",   .frame = Frame::Heads, .columnsOf = "DataGrid1"}}},
      {px(34),  {{.name = "entry",   .frame = Frame::Entry, .columnsOf = "DataGrid1"}}},
      {px(24),  {{.name = "keys",    .frame = Frame::Keys,  .columnsOf = "DataGrid1"}}},
      {part(1), {{.name = "lines",   .frame = Frame::Plain}}},
      std::move(foot),
      {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
  }};
  layout.bands.insert(layout.bands.end() - 2, folding.begin(), folding.end());
  return layout;
}

ControlSpec lineNumber() {
  return {.name = "Label1", .index = 0, .field = kLineNumber, .kind = Kind::Label, .at = {.group = "entry", .col = 0}, .align = Align::Right, .style = Style::Key};
}

ControlSpec lineKeys(int span) {
  return {.name = "lblkeys", .kind = Kind::Label, .label = "Up / Down = Line  ::  F10 = Delete Line  ::  00 or Page Down = End Lines", .at = {.group = "keys", .col = 0, .span = span}, .style = Style::Quiet};
}

std::vector<ControlSpec> lineGrids(const std::vector<GridColumn>& lines,
                                   const std::vector<GridColumn>& earlierRates, int own, double width) {
  return {
      {.name = "DataGrid1", .field = kLines,        .kind = Kind::Grid, .at = {.group = "lines"}, .hint = "Enter = Change This Line", .columns = lines},
      {.name = "DataGrid2", .field = kEarlierRates, .kind = Kind::Grid, .visible = false, .hint = "Enter = Back To The Rate", .columns = earlierRates, .over = "DataGrid1", .overOwn = own, .overIts = 5, .overWidth = width},
  };
}

std::vector<ControlSpec> voucherButtons(int firstTab) {
  int tab = firstTab;
  return {
      {.name = "CMDSAVE",   .kind = Kind::Button, .label = "&Save",   .at = {.group = "buttons"}, .tab = tab++, .enabled = false, .visible = false, .hint = "Press Enter To Save"},
      {.name = "CMDCANCEL", .kind = Kind::Button, .label = "&Cancel", .at = {.group = "buttons"}, .tab = tab++, .visible = false},
      {.name = "cmdadd",    .kind = Kind::Button, .label = "&Add",    .at = {.group = "buttons"}, .tab = tab++, .hint = "Press Add Button For New Entry"},
      {.name = "cmdEDIT",   .kind = Kind::Button, .label = "&Modify", .at = {.group = "buttons"}, .tab = tab++},
      {.name = "CMDDELETE", .kind = Kind::Button, .label = "&Delete", .at = {.group = "buttons"}, .tab = tab++},
      {.name = "cmdprint",  .kind = Kind::Button, .label = "&Print",  .at = {.group = "buttons"}, .tab = tab++},
      {.name = "cmdclose",  .kind = Kind::Button, .label = "&Close",  .at = {.group = "buttons"}, .tab = tab++},
      {.name = "Cmdvideo",  .kind = Kind::Button, .label = "&Video",  .at = {.group = "buttons", .right = true}, .tab = tab++},
  };
}
// clang-format on

std::vector<ControlSpec> joined(std::initializer_list<std::vector<ControlSpec>> parts) {
  std::vector<ControlSpec> all;
  for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}
