#include "base/number.h"
#include "base/text.h"
#include "frame/session.h"
#include "vouchers/frmquot.h"
#include "vouchers/items.h"

// The line being typed: from its item to the work table and back.

namespace {

constexpr int kTotals[] = {21, 45, 42, 43, 44};
constexpr int kLineFields[] = {12, 5, 15, 10, 8, 9, 16, 36, 37, 38, 39, 40, 41, 14, 47};

}  // namespace

Go FRMQUOT::item() {
  const std::string code = trimmed(12);
  if (code.empty()) return helpHere();
  if (endsLines()) return Go::Stay;
  text1(5).enabled = isMisc();
  if (isMisc()) {
    focus(text1(5));
    return Go::Stay;
  }
  const auto found = readQuotedItem(data(), code);
  if (!found) {
    host.message("Check Item Code");
    put(12, "");
    textChanged();
    return Go::Stay;
  }
  put(5, found->name);
  fillRate(found->rate);
  put(10, found->unit);
  fillRates(found->rateOfTax);
  focus(text1(15));
  return Go::Stay;
}

void FRMQUOT::fillRates(const std::optional<double>& rateOfTax) {
  const auto texts = splitTax(Val(session().mstatecd), partyState_, rateOfTax);
  if (!texts) {
    host.message("SPECIFY RATE OF TAX IN ITEM");
    return;
  }
  put(36, texts->cgst);
  put(38, texts->sgst);
  put(40, texts->igst);
}

// A rate that has been typed stays.
void FRMQUOT::fillRate(double rate) {
  if (value(9) == 0) put(9, rate);
}

// A name that the item master knows brings its rate and unit; any other is as good.
Go FRMQUOT::itemName() {
  const std::string name = trimmed(5);
  if (name.empty()) return helpHere();
  const auto found = readQuotedItemByName(data(), name);
  if (!found) return Go::On;
  fillRate(found->rate);
  put(10, found->unit);
  return Go::On;
}

Go FRMQUOT::unit() {
  if (trimmed(10).empty()) return helpHere();
  const auto rates = readUnit(data(), kind_, trimmed(12), trimmed(10));
  if (rates && rates->rate > 0) fillRate(rates->rate);
  if (rates && rates->discount > 0 && value(16) == 0) put(16, rates->discount);
  focus(text1(8));
  return Go::Stay;
}

void FRMQUOT::figure() {
  set(here(), numText(Val(here().text)));
  valueLine();
}

Go FRMQUOT::discount() {
  figure();
  focus(text1(14));
  return Go::Stay;
}

// Amounts of tax follow their rates, also where another has been typed.
void FRMQUOT::valueLine() {
  const QuotedLine line = quotedLine(value(8), value(9), value(16), {value(36), value(38), value(40)});
  put(37, line.taxes.cgst);
  put(39, line.taxes.sgst);
  put(41, line.taxes.igst);
  put(47, line.assess);
  put(14, line.amount);
}

Go FRMQUOT::lastTax() {
  valueLine();
  focus(text1(14));
  return Go::Stay;
}

Go FRMQUOT::amount() {
  if (!entering()) return Go::On;
  if (trimmed(12).empty()) {
    focus(text1(12));
    return Go::Stay;
  }
  session().mlastitem = trimmed(12);
  storeLine();
  return Go::Stay;
}

Fields FRMQUOT::lineFields() {
  const Session& s = session();
  const double serial = lines_->serial();
  // clang-format off
  return {
      {"SRNO",       serial},
      {"TNO",        serial},
      {"T_NO",       serial},
      {"VOUCH_NO",   value(0)},
      {"VOUCH_DT",   date(0)},
      {"ITEM_CD",    trimmed(12)},
      {"SIZE_CD",    trimmed(10)},
      {"ITEM_NAME",  trimmed(5)},
      {"ITEM_SNAME", trimmed(5)},
      {"ITEM_DESC",  trimmed(15)},
      {"DEPT_CD",    "E001"},
      {"QUANTITY",   value(8)},
      {"RATE",       value(9)},
      {"DISC",       value(16)},
      {"AMOUNT",     value(14)},
      {"CGSTRT",     value(36)},
      {"SGSTRT",     value(38)},
      {"IGSTRT",     value(40)},
      {"CGSTAMT",    value(37)},
      {"SGSTAMT",    value(39)},
      {"IGSTAMT",    value(41)},
      {"ASSIVAL",    value(47)},
      {"DISC2",      0},
      {"DTL1",       0},
      {"DTL2",       0},
      {"TCSRT",      0},
      {"TCSAMT",     0},
      {"ENTRY_TYP",  kind_.code},
      {"MOBNOCO",    s.mmobile},
      {"DATANM",     s.mdataname},
      {"DATASENT",   "N"},
  };
  // clang-format on
}

void FRMQUOT::showLine(const Row& line) {
  struct Shown {
    int field;
    const char* column;
  };
  constexpr Shown kTexts[] = {
      {12, "ITEM_CD"  },
      {5,  "ITEM_NAME"},
      {15, "ITEM_DESC"},
      {10, "SIZE_CD"  },
  };
  constexpr Shown kFigures[] = {
      {8,  "QUANTITY"},
      {9,  "RATE"    },
      {16, "DISC"    },
      {36, "CGSTRT"  },
      {37, "CGSTAMT" },
      {38, "SGSTRT"  },
      {39, "SGSTAMT" },
      {40, "IGSTRT"  },
      {41, "IGSTAMT" },
      {14, "AMOUNT"  },
      {47, "ASSIVAL" },
  };
  for (const auto& [field, column] : kTexts) put(field, line.text(column));
  for (const auto& [field, column] : kFigures) put(field, line.number(column));
  text1(5).enabled = isMisc();
}

void FRMQUOT::clearLine() {
  for (const int n : kLineFields) put(n, "");
  text1(5).enabled = false;
}

// What is offered no more is not in the totals either.
void FRMQUOT::dropLine() {
  const size_t before = lines_->count();
  deleteLine();
  if (lines_->count() == before) return;
  for (const int n : kTotals) put(n, "");
  sumLines();
}

// A column that sums to nothing leaves its field as it is.
void FRMQUOT::sumLines() {
  const auto sums = lines_->sums({"AMOUNT", "QUANTITY", "CGSTAMT", "SGSTAMT", "IGSTAMT"});
  for (size_t i = 0; i < sums.size(); ++i)
    if (sums[i]) put(kTotals[i], *sums[i]);
  put(27, quotedTotal(value(21)));
}

// What the party has been billed for the item; an offer itself leaves no such trace.
void FRMQUOT::earlierSalesKey() {
  showRates(earlierSales(data(), saleKind(), {trimmed(4), trimmed(12), trimmed(10)}));
}
