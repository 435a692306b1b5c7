#include "vouchers/frmseries.h"

#include <algorithm>
#include <memory>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "vouchers/numbering.h"
#include "vouchers/quotations.h"

using namespace fields;

namespace {

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "FRMSERIES",
      .caption = "Number Series",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {part(1), {{.name = "list",    .frame = Frame::Plain}}},
          {fit(),   {{.name = "form",    .columns = {fit(), px(150), fit(), px(170), fit(), px(60), fit(), px(170), fit(), px(100), part(1)}}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "lst", .kind = Kind::Grid, .at = {.group = "list"}, .tab = 1, .columns = {
              {.title = "Voucher",     .width = part(1, 150)},
              {.title = "Type",        .width = px(150, 90)},
              {.title = "Prefix",      .width = px(150, 90)},
              {.title = "Digits",      .width = px(70, 50), .align = Align::Right},
              {.title = "Suffix",      .width = px(150, 90)},
              {.title = "First No",    .width = px(90, 70), .align = Align::Right},
              {.title = "Next Number", .width = px(190, 140)}}},
          {.name = "Text1", .index = 0, .field = kSeriesType,  .label = "Type",     .at = {.group = "form", .col = 1}, .tab = 2, .limit = 20, .keys = KeyClass::Text, .hint = "The Type That The Series Is For :: Empty = All That Have None"},
          {.name = "Text1", .index = 1, .field = kPrefix,      .label = "Prefix",   .at = {.group = "form", .col = 3}, .tab = 3, .limit = 20, .hint = "In Front Of The Number :: A To Z, 0 To 9, - And / :: {yy} = The Year"},
          {.name = "Text1", .index = 2, .field = kWidth,       .label = "Digits",   .at = {.group = "form", .col = 5}, .tab = 4, .limit = 2, .keys = KeyClass::Number, .align = Align::Right, .hint = "How Many Digits The Number Has :: 4 = 0001"},
          {.name = "Text1", .index = 3, .field = kSuffix,      .label = "Suffix",   .at = {.group = "form", .col = 7}, .tab = 5, .limit = 20, .hint = "Behind The Number :: A To Z, 0 To 9, - And / :: {yy} = The Year"},
          {.name = "Text1", .index = 4, .field = kFirstNumber, .label = "First No", .at = {.group = "form", .col = 9}, .tab = 6, .limit = 10, .keys = KeyClass::Number, .align = Align::Right, .hint = "Number Of The First Paper Of This Year"},
          {.name = "lblexample", .kind = Kind::Label, .at = {.group = "form", .row = 1, .col = 1, .span = 10}, .style = Style::Section},
          {.name = "lblmeans",   .kind = Kind::Label, .label = "16 Signs At Most :: Each Year Begins Again :: What Has No Series Is Numbered As Ever", .at = {.group = "form", .row = 2, .col = 1, .span = 10}, .style = Style::Quiet},
          {.name = "cmdsave",   .kind = Kind::Button, .label = "&Save",   .at = {.group = "buttons"}, .tab = 7, .style = Style::Primary},
          {.name = "cmdremove", .kind = Kind::Button, .label = "&Remove", .at = {.group = "buttons"}, .tab = 8, .hint = "Press Enter To Number As Without A Series"},
          {.name = "cmdclose",  .kind = Kind::Button, .label = "&Close",  .at = {.group = "buttons"}, .tab = 9},
      },
  };
  return s;
}
// clang-format on

constexpr int kUsualWidth = 4;

// Bills, notes and offers: the numbers of purchases are the party's, those of challans are figures.
bool keepsSeries(const VoucherKind& kind) {
  return kind.numbering.runsOn &&
         (kind.tables.heads == saleKind().tables.heads || kind.tables.heads == "QUOT");
}

bool hasTypes(const VoucherKind& kind) { return !kind.numbering.series.empty(); }

std::vector<std::string> typesOf(const VoucherKind& kind, const std::vector<NumberSeries>& all) {
  std::vector<std::string> types;
  if (!hasTypes(kind)) return types;
  const std::string& type = kind.numbering.series;
  // From one type to the next by the index that begins with it: a book has many vouchers of few types.
  const std::string from = " FROM " + kind.tables.heads + " WHERE " + type;
  std::string last;
  while (const auto next =
             data().first("SELECT " + type + from + " > ? ORDER BY " + type + " LIMIT 1", last)) {
    last = next->text(0);
    if (trim(last) != "." &&
        data().first("SELECT 1" + from + " = ? AND " + kind.tables.key + " = ? LIMIT 1", last, kind.code))
      types.push_back(last);
  }
  for (const NumberSeries& series : all)
    if (sameText(series.book, kind.code) && !series.type.empty() &&
        std::ranges::none_of(types, [&](const std::string& t) { return sameText(t, series.type); }))
      types.push_back(series.type);
  return types;
}

std::string nextNumber(const VoucherKind& kind, const std::string& type) {
  return hasTypes(kind) ? nextBillNumber(data(), kind, type) : nextReference(data(), kind);
}

}  // namespace

FRMSERIES::FRMSERIES(Host& h) : ChildScreen(h, ::spec()) {
  escMeans = english("Esc = Exit");
  wire<FRMSERIES>(*this, {
                             {"lst",        On::Row,         &FRMSERIES::show       },
                             {"lst",        KeyCode::Enter,  &FRMSERIES::change     },
                             {"lst",        On::DoubleClick, &FRMSERIES::change     },
                             {"Text1",      On::Change,      &FRMSERIES::explain    },
                             {kFirstNumber, KeyCode::Enter,  &FRMSERIES::lastEntered},
                             {"cmdsave",    On::Click,       &FRMSERIES::save       },
                             {"cmdremove",  On::Click,       &FRMSERIES::remove     },
                             {"cmdclose",   On::Click,       &FRMSERIES::leave      },
                             {"",           KeyCode::Esc,    &FRMSERIES::escape     },
  });
}

void FRMSERIES::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  fill();
  focus(at("lst"));
}

std::string FRMSERIES::hintFor(const Control& control) const {
  return control.kind == Kind::Grid ? english("Enter = Change :: Up / Down = Voucher")
                                    : ChildScreen::hintFor(control);
}

std::string FRMSERIES::atStake() const {
  return words(current().kind->words.name) + "  " + at("lblexample").text;
}

// The list

const NumberSeries* FRMSERIES::stored(const Line& line) const {
  const auto found = std::ranges::find_if(all_, [&](const NumberSeries& s) {
    return sameText(s.book, line.kind->code) && sameText(s.type, line.type);
  });
  return found == all_.end() ? nullptr : &*found;
}

void FRMSERIES::fill(const std::string& code, const std::string& type) {
  all_ = allSeries(data());
  lines_.clear();
  size_t row = 0;
  auto rows = std::make_shared<CellRows>();
  const auto add = [&](const VoucherKind& kind, const std::string& ofType) {
    if (kind.code == code && sameText(ofType, type)) row = lines_.size();
    lines_.push_back({&kind, ofType});
    const NumberSeries* const series = stored(lines_.back());
    const bool counts = series || !ofType.empty() || !hasTypes(kind);
    const auto shown = [&](const std::string& text) { return Cell{.text = series ? text : ""}; };
    rows->rows.push_back({
        {.text = ofType.empty() ? words(kind.words.name) : "", .bold = true                   },
        {                                                                .text = ofType.empty() && hasTypes(kind) ? words("All") : ofType                                                   },
        shown(series ? series->prefix : ""),
        shown(series ? std::to_string(series->width) : ""),
        shown(series ? series->suffix : ""),
        shown(series ? numText(series->first) : ""),
        { .text = counts ? nextNumber(kind,                                                    ofType) : "", .bold = series != nullptr}
    });
  };
  for (const VoucherKind* kind : voucherKinds()) {
    if (!keepsSeries(*kind)) continue;
    add(*kind, "");
    for (const std::string& ofType : typesOf(*kind, all_)) add(*kind, ofType);
  }
  Grid& grid = at("lst").grid;
  grid.source = rows;
  grid.moveTo(row);
  show();
}

void FRMSERIES::show() {
  const NumberSeries* const series = stored(current());
  at(kSeriesType).enabled = hasTypes(*current().kind);
  put(kSeriesType, current().type);
  put(kPrefix, series ? series->prefix : "");
  put(kWidth, std::to_string(series ? series->width : kUsualWidth));
  put(kSuffix, series ? series->suffix : "");
  put(kFirstNumber, series ? numText(series->first) : "1");
  takeAsShown();
  explain();
}

// What stands in the fields, as the next paper will bear it. The list waits while something typed is not
// saved.
void FRMSERIES::explain() {
  const NumberSeries typed = typedSeries();
  const bool fits = seriesRefusal(typed, session().mstartdt).empty();
  const bool shown = unsaved() || stored(current());
  set(at("lblexample"), !shown ? ""
                        : fits
                            ? words("The Next Number: {number}", "number",
                                    nextInSeries(data(), *current().kind, inYear(typed, session().mstartdt)))
                            : words("This Is No Number For A Paper Yet"));
  at("lst").enabled = !unsaved();
  at("cmdremove").enabled = !unsaved() && stored(current());
}

NumberSeries FRMSERIES::typedSeries() const {
  const auto part = [&](FieldName field) {
    return replaceAll(upper(trimmed(field)), upper(kYearMark), kYearMark);
  };
  return {.book = current().kind->code,
          .type = upper(trimmed(kSeriesType)),
          .prefix = part(kPrefix),
          .suffix = part(kSuffix),
          .width = toInt(value(kWidth)),
          .first = value(kFirstNumber)};
}

// Changing one

Go FRMSERIES::change() {
  focus(at(kPrefix));
  return Go::Stay;
}

Go FRMSERIES::lastEntered() {
  focus(at("cmdsave"));
  return Go::Stay;
}

void FRMSERIES::save() {
  const NumberSeries series = typedSeries();
  if (const std::string refusal = seriesRefusal(series, session().mstartdt); !refusal.empty()) {
    host.message(refusal);
    return focus(at(kPrefix));
  }
  storeSeries(data(), series);
  fill(series.book, series.type);
  focus(at("lst"));
}

void FRMSERIES::remove() {
  const Line line = current();
  if (!host.ask(deleteQuestion(english("Number As Without A Series From Now On ?"),
                               words(line.kind->words.name) + "  " + line.type)))
    return;
  removeSeries(data(), line.kind->code, line.type);
  fill(line.kind->code, line.type);
  focus(at("lst"));
}

void FRMSERIES::leave() { host.close(*this); }

void FRMSERIES::escape() {
  if (focused() == &at("lst")) return leave();
  if (!mayDiscard()) return;
  show();
  focusUnchecked(at("lst"));
}
