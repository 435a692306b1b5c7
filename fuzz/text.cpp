#include <cmath>
#include <cstdint>

#include "base/date.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "documents/messaging.h"
#include "documents/page_model.h"
#include "documents/pdf/ascii85.h"
#include "documents/pdf/pdf_text.h"
#include "documents/pdf/win_ansi.h"
#include "documents/words.h"
#include "frame/select.h"
#include "masters/gstin.h"
#include "platform/edit.h"
#include "platform/keys.h"
#include "platform/utf8.h"
#include "platform/workbook/decimal.h"
#include "platform/workbook/formula.h"
#include "platform/workbook/number_format.h"
#include "store/column.h"
#include "store/value.h"

// The small readers of texts that people type or files bring: the first line is a pattern, the
// second an amount, the rest any text. Some of their promises are tested with them.
namespace {

void promise(bool kept) {
  if (!kept) __builtin_trap();
}

void numbers(const std::string& pattern, const std::string& typed) {
  const double x = Val(typed);
  promise(std::isfinite(x));
  promise(isNumberText(numText(x)));
  const std::string shown = Format(x, pattern);
  promise(x == 0 || !Format(x, "0.00").empty());
  indianGroups(shown);
  indianGroups(typed);
  for (const int places : {-400, -20, -2, 0, 2, 15, 20, 400}) promise(std::isfinite(Round(x, places)));
  RoundUp(x);
  AmountInWords(x);
  NumberWords(x);
  Value(x).whole();
  Value(typed).whole();
  Value(typed).number();
  rowsToHide({.head = x, .foot = Val(pattern), .slots = 25, .slot = Val(pattern), .pages = x}, 30,
             SlotsKept::LinesOfLargePages);
  try {
    pdf::numberText(x);
  } catch (const std::invalid_argument&) {
  }

  double number = 0;
  workbook::numberIn(typed, number);
  const workbook::NumberFormat format(pattern);
  for (const double value : {x, number, -x, 46188.4, x * 1e-300})
    format.show(std::isfinite(value) ? value : 0.0, 8);
  format.show(typed);
  format.show(true);
  workbook::generalText(x, 5);
  workbook::joinedText(x);
}

void dates(const std::string& pattern, const std::string& typed) {
  if (const auto date = parseDate(typed)) {
    promise(date->ok() && parseDate(isoDate(*date)) == date);
    formatDate(*date, pattern);
    addMonths(addDays(*date, 40), -13);
    daysBetween(*date, Date{std::chrono::year{2026}, std::chrono::April, std::chrono::day{1}});
  }
  if (const auto clock = parseClock(typed))
    formatTime({.date = {}, .hour = clock->hour, .minute = clock->minute, .second = 0}, pattern);
}

void texts(const std::string& pattern, const std::string& text) {
  const int n = length(text);
  for (const int at : {-1, 0, 1, n / 2, n, n + 1})
    promise(left(text, at) + mid(text, std::max(at, 0) + 1) == text);
  right(text, n / 2);
  padLeft(text, 12);
  promise(join(split(text, pattern), pattern) == text || pattern.empty());
  replaceAll(text, pattern, text);
  utf8::encode(utf8::decode(text));
  pdf::winAnsi(text);
  pdf::textString(text);
  pdf::nameText(text);
  promise(pdf::ascii85(text).ends_with("~>"));
  whatsAppHandOff("/folder", pattern, text);
  gstinHint(text);
  gstinParts(text);
}

void statements(const std::string& text) {
  declaredColumns(text);
  quotedName(text);
  anywhere(text);
}

struct OneSheet : workbook::Names {
  int sheet(std::string_view name) const override { return name == "S" ? 0 : -1; }
};

void formulas(const std::string& text) {
  int row = 0, column = 0;
  workbook::parseCell(text, row, column);
  workbook::movedFormula(text, 3, -2);
  try {
    workbook::parseFormula(text, 5, 5, OneSheet());
  } catch (const workbook::FormulaError&) {
  }
}

void typing(const std::string& names, const std::string& text) {
  for (const std::string& name : split(names, " ")) keyByName(name);
  for (const Kind kind : {Kind::Text, Kind::Date}) {
    Control control;
    control.kind = kind;
    control.limit = 10;
    edit::clear(control);
    for (const char32_t ch : utf8::decode(text)) {
      if (ch < 0x20)
        edit::key(control, Key(static_cast<KeyCode>(ch)));
      else if (const char32_t passed = KeyFilter(kind == Kind::Text, ch))
        edit::insert(control, passed);
      edit::selection(control);
    }
    edit::selectAll(control);
    edit::paste(control, text);
    promise(length(control.text) <= 10);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view all(reinterpret_cast<const char*>(data), size);
  const size_t first = std::min(all.find('\n'), all.size());
  const std::string_view behind = all.substr(std::min(first + 1, all.size()));
  const size_t second = std::min(behind.find('\n'), behind.size());
  const std::string pattern(all.substr(0, first)), typed(behind.substr(0, second));
  const std::string text(behind.substr(std::min(second + 1, behind.size())));
  numbers(pattern, typed);
  dates(pattern, typed);
  texts(pattern, text);
  statements(text);
  formulas(text);
  typing(pattern, text);
  return 0;
}
