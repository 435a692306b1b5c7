#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "frame/session.h"
#include "vouchers/gstsapu.h"
#include "vouchers/items.h"

// The line being typed: from its item to the work table and back.

namespace {

constexpr int kLineFields[] = {5, 6, 46, 7, 8, 9, 11, 12, 13, 10, 15, 19, 31, 14};

}  // namespace

Go GSTSAPU::item() {
  const std::string code = trimmed(5);
  if (code.empty()) return helpHere();
  if (endsLines()) return Go::Stay;
  text1(6).enabled = isMisc();
  const auto found = readSaleItem(data(), code);
  if (!found) {
    host.message("Check Item Code");
    put(5, "");
    textChanged();
    text1(6).enabled = false;
    return Go::Stay;
  }
  if (!isMisc()) put(6, found->name);
  fillRates(found->rateOfTax);
  put(7, found->unit);
  if (!fillFromUnit()) host.message("Check Unit For This Item in Item Master");
  focus(text1(46));
  return Go::Stay;
}

void GSTSAPU::fillRates(const std::optional<double>& rateOfTax) {
  const auto texts = splitTax(Val(session().mstatecd), partyState_, rateOfTax);
  if (!texts) {
    host.message("SPECIFY RATE OF TAX IN ITEM");
    return;
  }
  put(12, texts->cgst);
  put(10, texts->sgst);
  put(19, texts->igst);
}

// Rate and discount of the unit, where none has been typed; false when the item lacks the unit.
bool GSTSAPU::fillFromUnit() {
  if (isMisc()) return true;
  const auto rates = readUnit(data(), kind_, trimmed(5), trimmed(7));
  if (!rates) return false;
  if (rates->rate > 0 && value(9) == 0) put(9, rates->rate);
  if (rates->discount > 0 && value(11) == 0) put(11, rates->discount);
  return true;
}

Go GSTSAPU::itemName() { return trimmed(6).empty() ? helpHere() : Go::On; }

Go GSTSAPU::unit() {
  if (trimmed(7).empty()) return helpHere();
  if (fillFromUnit()) return Go::On;
  host.message("Check unit for this item");
  return Go::Stay;
}

void GSTSAPU::quantity() { put(8, quantityText(textOf(8))); }

void GSTSAPU::rate() {
  put(9, value(9));
  valueLine();
}

Go GSTSAPU::discount() {
  put(11, value(11));
  if (discountRefused(value(11))) {
    host.message("Discount can not be greater than 100%");
    put(11, "");
    return Go::Stay;
  }
  valueLine();
  line_.tax({value(12), value(10), value(19)});
  put(13, line_.amounts.cgst);
  put(15, line_.amounts.sgst);
  put(31, line_.amounts.igst);
  showNet();
  focus(text1(14));
  return Go::Stay;
}

// A rate typed by hand gives its amount, on the value last worked out.
Go GSTSAPU::taxRate() {
  struct Pair {
    int rate, amount;
    double Taxes::*tax;
  };
  for (const Pair p : {
           Pair{12, 13, &Taxes::cgst},
           {10, 15, &Taxes::sgst},
           {19, 31, &Taxes::igst}
  }) {
    if (here().index != p.rate) continue;
    line_.rates.*p.tax = value(p.rate);
    line_.amounts.*p.tax = line_.taxAt(value(p.rate));
    put(p.amount, line_.amounts.*p.tax);
    focus(text1(p.amount));
  }
  return Go::Stay;
}

// An amount typed by hand stands.
Go GSTSAPU::taxAmount() {
  valueLine();
  line_.take(typedTaxes());
  showNet();
  focus(text1(here().index == 13 ? 10 : here().index == 15 ? 19 : 14));
  return Go::Stay;
}

void GSTSAPU::valueLine() {
  line_.value(value(8), value(9), value(11));
  showAssess();
  showNet();
  const BillTotal preview = billPreview(value(18), {value(1), value(3), value(20)});
  put(38, preview.roundOff);
  put(28, preview.amount);
}

void GSTSAPU::showAssess() { at("Label1", 31).text = Format(line_.assess, "0.00"); }

void GSTSAPU::showNet() { put(14, line_.shownNet()); }

Go GSTSAPU::amount() {
  if (trimmed(5).empty() || trimmed(7).empty()) {
    focus(text1(5));
    return Go::Stay;
  }
  session().mlastitem = trimmed(5);
  storeLine();
  return Go::Stay;
}

Fields GSTSAPU::lineFields() {
  const Session& s = session();
  const Moment now = host.now();
  // clang-format off
  Fields line = {
      {"VOUCH_NO",   value(0)},
      {"VOUCH_DT",   date(0)},
      {"VOUCH_TIME", Clock{now.hour, now.minute}},
      {"BOOK_CD",    kind_.code},
      {"SR_NO",      lines_->serial()},
      {"ITEM_CD",    trimmed(5)},
      {"ITEM_NAME",  trimmed(6)},
      {"SIZE_CD",    textOf(7)},
      {"QUANTITY",   value(8)},
      {"RATE",       value(9)},
      {"SALE_DISC",  value(11)},
      {"AMOUNT",     storedAmount(value(8), value(9), value(11))},
      {"NET_AMOUNT", value(14)},
      {"ORDER_NO",   value(16)},
      {"ITEM_DESC",  trimmed(46)},
      {"CHLN_DT",    date(0)},
      {"BLTYPE",     "TAX"},
      {"CGSTRT",     value(12)},
      {"SGSTRT",     value(10)},
      {"IGSTRT",     value(19)},
      {"CGSTAMT",    value(13)},
      {"SGSTAMT",    value(15)},
      {"IGSTAMT",    value(31)},
      {"GSTPOST",    1},
      {"DEPT_CD",    "E001"},
      {"MOBNOCO",    s.mmobile},
      {"DATANM",     s.mdataname},
      {"DATASENT",   "N"},
  };
  // clang-format on
  for (const char* column : {"ITEM_SNAME", "MFG_DT", "EXP_DT", "YOUR_REF", "CUR_NM"})
    line.push_back({column, "."});
  for (const char* column : {"SALE_DISC1", "TAX_CD", "TAX_RT", "TAX_AMT", "VAT_AMT", "BRKRG", "DESC1",
                             "CESS_PERC1", "CESS_AMT1", "CUR_RT", "CUR_ITM_RT", "CUR_AMT", "DISC3", "DISC4"})
    line.push_back({column, 0});
  return line;
}

void GSTSAPU::showLine(const Row& line) {
  put(5, line.text("ITEM_CD"));
  put(6, line.text("ITEM_NAME"));
  text1(6).enabled = isMisc();
  put(46, line.text("ITEM_DESC"));
  put(7, line.text("SIZE_CD"));
  put(8, quantityText(line.text("QUANTITY")));
  put(9, line.number("RATE"));
  put(11, line.number("SALE_DISC"));
  put(12, line.number("CGSTRT"));
  put(13, line.number("CGSTAMT"));
  put(10, line.number("SGSTRT"));
  put(15, line.number("SGSTAMT"));
  put(19, line.number("IGSTRT"));
  put(31, line.number("IGSTAMT"));
  put(14, line.number("NET_AMOUNT"));
  // What a tax rate typed over is worked out on; the taxes themselves are figured anew.
  line_.value(value(8), value(9), value(11));
  showAssess();
}

void GSTSAPU::clearLine() {
  for (const int n : kLineFields) put(n, "");
  text1(6).enabled = false;
  line_ = {};
  showAssess();
}

// A column that sums to nothing leaves its field as it is.
void GSTSAPU::sumLines() {
  const auto sums = lines_->sums({"AMOUNT", "QUANTITY", "CGSTAMT", "SGSTAMT", "IGSTAMT"});
  constexpr int kTotals[] = {18, 26, 1, 3, 20};
  for (size_t i = 0; i < sums.size(); ++i)
    if (sums[i]) put(kTotals[i], Round(*sums[i], 2));
  const BillTotal total = billTotal(value(18), {value(1), value(3), value(20)});
  put(28, total.amount);
  put(38, total.roundOff);
}

// The rate grid

void GSTSAPU::rateHints() {
  if (!backFromRates()) showRates(latestSales(data(), kind_, rateQuery()));
}

void GSTSAPU::earlierSalesKey() { showRates(earlierSales(data(), kind_, rateQuery())); }

void GSTSAPU::partyRatesKey() { showRates(partyRates(data(), kind_, rateQuery())); }

void GSTSAPU::purchaseRatesKey() { showRates(purchaseRates(data(), rateQuery())); }
