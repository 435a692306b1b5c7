#include "base/number.h"
#include "base/text.h"
#include "frame/session.h"
#include "vouchers/challan_amounts.h"
#include "vouchers/frmchln.h"
#include "vouchers/items.h"

// The line being typed: from its item to the work table and back.

namespace {

constexpr int kLineFields[] = {5, 6, 10, 7, 8, 9, 14};

}  // namespace

Go FRMCHLN::item() {
  const std::string code = trimmed(5);
  if (code.empty()) return helpHere();
  if (endsLines()) return Go::Stay;
  const auto found = readSaleItem(data(), code);
  if (!found) {
    host.message("item does not exist");
    return Go::Stay;
  }
  // A name can have been typed only where the line was the free one already.
  const bool typedName = isMisc() && text1(6).enabled && !trimmed(6).empty();
  if (!typedName) put(6, found->name);
  text1(6).enabled = isMisc();
  put(7, found->unit);
  focus(text1(10));
  return Go::Stay;
}

Go FRMCHLN::unit() {
  if (trimmed(7).empty()) return helpHere();
  const auto rates = readUnit(data(), kind_, trimmed(5), trimmed(7));
  if (!rates) {
    host.message("Unit Not Found");
    return Go::Stay;
  }
  if (value(9) == 0 && rates->rate != 0) put(9, rates->rate);
  return Go::On;
}

void FRMCHLN::quantity() {
  if (trimmed(8).empty()) put(8, "1");
}

void FRMCHLN::rate() {
  if (trimmed(9).empty()) put(9, "0");
  put(14, challanAmount(value(8), value(9)));
}

Go FRMCHLN::amount() {
  if (!entering()) return Go::On;
  if (trimmed(5).empty() || trimmed(7).empty()) {
    focus(text1(5));
    return Go::Stay;
  }
  session().mlastitem = trimmed(5);
  storeLine();
  return Go::Stay;
}

Fields FRMCHLN::lineFields() {
  const Session& s = session();
  // clang-format off
  Fields line = {
      {"SR_NO",      lines_->serial()},
      {"VOUCH_NO",   value(0)},
      {"VOUCH_DT",   date(0)},
      {"BOOK_CD",    kind_.code},
      {"DEPT_CD",    "E001"},
      {"ITEM_CD",    trimmed(5)},
      {"ITEM_NAME",  textOf(6)},
      {"ITEM_DESC",  trimmed(10)},
      {"SIZE_CD",    trimmed(7)},
      {"QUANTITY",   value(8)},
      {"RATE",       value(9)},
      {"NET_AMOUNT", value(14)},
      {"MOBNOCO",    s.mmobile},
      {"DATANM",     s.mdataname},
      {"DATASENT",   "N"},
  };
  // clang-format on
  for (const char* column : {"ITEM_SNAME", "DESC1", "QUALITY"}) line.push_back({column, "."});
  for (const char* column :
       {"SALE_DISC", "AMOUNT", "NOS", "BOXNO", "BOXWT", "TCNO", "ORDER_NO", "LOT_NO", "DANIER"})
    line.push_back({column, 0});
  return line;
}

void FRMCHLN::showLine(const Row& line) {
  put(5, line.text("ITEM_CD"));
  put(6, line.text("ITEM_NAME"));
  text1(6).enabled = isMisc();
  put(10, line.text("ITEM_DESC"));
  put(7, line.text("SIZE_CD"));
  put(8, line.number("QUANTITY"));
  put(9, line.number("RATE"));
  put(14, line.number("NET_AMOUNT"));
}

void FRMCHLN::clearLine() {
  for (const int n : kLineFields) put(n, "");
  text1(6).enabled = false;
}

// Discount and charges come in again when they are entered.
void FRMCHLN::sumLines() {
  const auto sums = lines_->sums({"QUANTITY", "NET_AMOUNT"});
  put(26, sums[0].value_or(0));
  put(18, sums[1].value_or(0));
  put(28, textOf(18));
}

void FRMCHLN::rateHints() {
  if (backFromRates()) return;
  showRates(challanRates(data(), kind_, {trimmed(4), trimmed(5), trimmed(7)}));
  if (at("DataGrid2").visible) ShowHint(host, hintFor(here()) + " :: Down = Earlier Challans");
}
