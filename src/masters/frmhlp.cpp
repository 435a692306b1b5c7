#include "masters/frmhlp.h"

#include <algorithm>

#include "base/text.h"
#include "base/words.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "masters/column_titles.h"
#include "masters/lookup_search.h"
#include "platform/utf8.h"

namespace {

constexpr double kStrip = 30, kHeads = 34, kRow = 25, kFrame = 4, kLane = 14;
constexpr double kWidest = 1350, kNarrowest = 480, kLeastCode = 88;
constexpr int kRowsBelow = 5, kRowsAbove = 12;
constexpr int kCountAfterMs = 500;

// Documented widths are twips of a screen of 800 pixels.
constexpr double kPixelsPerTwip = 1366.0 / 800 / 15;

constexpr Bgr kListColour = 0xE0F0FF;

// The signs of names that a search may hold beside letters, digits and blanks.
constexpr std::u32string_view kSigns = U"():>=,&%*-./?[]{}'+";

// The code on whose row a list of items or accounts opens.
std::string lastWorkedWith(const Select& select) {
  const std::string first = nameOf(select.columns.front());
  if (sameText(first, "ITEM_CD")) return session().mlastitem;
  return sameText(first, "ACC_CD") ? session().mlastacc : std::string();
}

// What the row tells besides stands behind the columns that are shown.
Lookup readAlong(Lookup lookup) {
  if (!lookup.along.empty()) lookup.rows.columns.push_back({lookup.along, 0, "along"});
  return lookup;
}

std::vector<GridColumn> gridColumns(const PageRows& rows, const Select& select, size_t shown) {
  std::vector<GridColumn> columns;
  for (size_t i = 0; i < std::min(shown, rows.columns().size()); ++i) {
    const ColumnTitle t = columnTitle(rows.columns()[i].name);
    const int twips = select.columns[i].width;
    const double title = 9 * length(t.title) + 18;
    const double width = std::max(twips > 0 ? twips * kPixelsPerTwip : t.width, title);
    // The code that is chosen stays whole on a small window.
    const double least = i == 0 ? std::min(width, kLeastCode) : -1;
    columns.push_back({.title = t.title, .width = part(width, least), .align = t.align, .money = t.money});
  }
  return columns;
}

ScreenSpec screenTable(const PageRows& rows, const Lookup& lookup) {
  ScreenSpec table;
  table.name = "FRMHLP";
  table.caption = "Help";
  table.window = Window::Dialog;
  table.focusColour = 0xFFC0FF;
  std::vector<GridColumn> columns =
      gridColumns(rows, lookup.rows, lookup.rows.columns.size() - !lookup.along.empty());
  double width = kLane + kFrame;
  for (const GridColumn& c : columns) width += c.width.n;

  table.layout = {
      .bands = {{.height = px(kHeads),
                 .groups = {{.name = "heads", .frame = Frame::Heads, .columnsOf = "grdDataGrid"}}},
                {.groups = {{.name = "list", .frame = Frame::Plain}}}},
      .width = std::clamp(width, kNarrowest, kWidest),
      .height = kStrip + kHeads + kRow * (lookup.below ? kRowsBelow : kRowsAbove) + kFrame,
      .anchor = lookup.below ? Anchor::Bottom : Anchor::Top,
      .margin = 0,
  };

  const auto titleOf = [&](size_t i) { return i < columns.size() ? columns[i].title : std::string(); };
  const bool two = columns.size() > 1;
  table.controls = {
      {.name = "Text1", .label = titleOf(0), .at = {.group = "heads", .col = 0}, .tab = 1             },
      {.name = "Text2", .label = titleOf(1), .at = {.group = "heads", .col = 1}, .tab = 2,              .visible = two},
      {.name = "grdDataGrid",               .kind = Kind::Grid,              .at = {.group = "list"},                .columns = std::move(columns)},
  };
  return table;
}

}  // namespace

LookupPlan::LookupPlan(const Lookup& theLookup)
    : lookup(readAlong(theLookup)),
      database(lookup.inCatalogue ? catalogue() : data()),
      steps(valueSteps(database, lookup)),
      rows(std::make_shared<PageRows>(database, steps.value_or(lookup.rows), PageRows::Counting::Ahead,
                                      lastWorkedWith(lookup.rows))),
      table(screenTable(*rows, lookup)),
      few_(rows->counted()) {}

std::shared_ptr<PageRows> LookupPlan::found(size_t column, const std::string& typed) const {
  const auto some = [this](const Select& select) {
    return std::make_shared<PageRows>(database, select, PageRows::Counting::Ahead);
  };
  if (typed.empty()) return some(steps.value_or(lookup.rows));
  // Many different values are searched in the rows themselves, in one pass over the index.
  const Select& from = steps && few_ ? *steps : lookup.rows;
  const std::string condition = typedCondition(from.columns[column], rows->columns()[column].type);
  const auto few = fewFound(database, from, condition, typed);
  return some(few ? *few : filtered(from, condition, {anywhere(typed)}));
}

FRMHLP::FRMHLP(Host& theHost, const Opening& opening)
    : LookupPlan(std::any_cast<const Lookup&>(opening.more)), Screen(theHost, table) {
  if (at("Text2").visible) escMeans = words("Right = Next Search  ::  ");
  escMeans += words("Up / Down = Scroll  ::  Esc = Close");
  wire<FRMHLP>(*this, {
                          {"Text1",       On::Change,      &FRMHLP::searchFirst },
                          {"Text2",       On::Change,      &FRMHLP::searchSecond},
                          {"Text1",       KeyCode::Right,  &FRMHLP::toSecond    },
                          {"Text2",       KeyCode::Left,   &FRMHLP::toFirst     },
                          {"grdDataGrid", On::Focus,       &FRMHLP::backToSearch},
                          {"grdDataGrid", On::DoubleClick, &FRMHLP::choose      },
                          {"",            KeyCode::Down,   &FRMHLP::down        },
                          {"",            KeyCode::Up,     &FRMHLP::up          },
                          {"",            KeyCode::PgDn,   &FRMHLP::pageDown    },
                          {"",            KeyCode::PgUp,   &FRMHLP::pageUp      },
                          {"",            KeyCode::Enter,  &FRMHLP::choose      },
                          {"",            KeyCode::Space,  &FRMHLP::chooseOne   },
                          {"",            KeyCode::Esc,    &FRMHLP::escape      },
  });
}

void FRMHLP::opened(const Opening&) {
  at("grdDataGrid").back = kListColour;
  show(rows);
  if (rows->counted() && rows->count() == 0) escMeans = "Nothing To Choose Yet  ::  Esc = Close";
  if (lookup.several) move(static_cast<int>(lookup.several->row));
  at("Text1").visible = !lookup.secondOnly;
  focus(searchField());
}

void FRMHLP::show(std::shared_ptr<PageRows> list) {
  Grid& grid = at("grdDataGrid").grid;
  rows = std::move(list);
  timerMs = rows->counted() ? 0 : kCountAfterMs;
  grid.source = rows;
  grid.moveTo(rows->begin());
  sayWhatCanBeDone();
}

// A list without rows tells how to go on, so that nobody stands before a blank one.
void FRMHLP::sayWhatCanBeDone() {
  std::vector<std::string>& instead = at("grdDataGrid").grid.instead;
  const std::string typedText = typedForSearch();
  if (rows->count() > 0) {
    host.hint(lookup.several ? english("Space = Take It And Go On :: Enter = Take It :: Type To Find")
                             : english("Type To Find and Enter To Proceed"));
    return;
  }
  instead = {typedText.empty() ? words("Nothing Is There To Choose From Yet")
                               : words("Nothing Holds \"{text}\". What Was Typed Stays", "text", typedText)};
  if (lookup.free) instead.push_back(words("Enter = Take What Is Typed Here"));
  const Control& second = at("Text2");
  if (!typedText.empty() && second.visible && second.text.empty())
    instead.push_back(words("Right = Look For It Under {column}", "column", words(second.label)));
  if (!typedText.empty()) instead.push_back(words("Backspace = Look For Less Of It"));
  const std::string keys = lookup.keys.empty() ? "" : " :: " + words(lookup.keys);
  instead.push_back(words("Esc = Close The List") + keys);
  host.hint(instead[0] + " :: " + instead[1]);
}

std::string FRMHLP::typedForSearch() { return trim(searchField().text); }

// A search takes the place of the one before it, so the other field shows nothing of it.
void FRMHLP::search(size_t column) {
  set(at(column == 0 ? "Text2" : "Text1"), "");
  const std::string& typedText = at(column == 0 ? "Text1" : "Text2").text;
  if (column < rows->columns().size()) show(found(column, typedText));
}

void FRMHLP::move(int by) {
  Grid& grid = at("grdDataGrid").grid;
  if (grid.count() == 0) return;
  const auto now = static_cast<long>(grid.current == Grid::kNone ? 0 : grid.current);
  const auto wanted = static_cast<size_t>(std::max(now + by, 0L));
  rows->reach(wanted);
  grid.moveTo(wanted);
}

void FRMHLP::tick() {
  rows->countAll();
  timerMs = 0;
}

// A text that the first column does not hold is looked for in the second; typing takes its place.
void FRMHLP::toSecond() {
  Control& second = at("Text2");
  if (!second.visible) return;
  if (rows->count() == 0 && second.text.empty() && !at("Text1").text.empty()) {
    set(second, at("Text1").text);
    search(1);
  }
  focus(second);
}

void FRMHLP::toFirst() {
  if (at("Text1").visible) focus(at("Text1"));
}

// The list has no cursor keys of its own: a click into it leaves the focus where typing searches.
void FRMHLP::backToSearch() { focus(searchField()); }

Control& FRMHLP::searchField() {
  return at(at("Text1").visible && at("Text2").text.empty() ? "Text1" : "Text2");
}

char32_t FRMHLP::filter(const Control&, char32_t key) {
  const char32_t text = KeyFilter(1, key);
  return text != 0 || kSigns.find(key) == std::u32string_view::npos ? text : key;
}

void FRMHLP::typed(Control& control, char32_t key) {
  const char32_t ch = filter(control, key);
  if (ch == 0) return;
  Control& text = searchField();
  set(text, text.text + utf8::encode(ch));
  search(text.family == "Text1" ? 0 : 1);
}

// A typed text that nothing holds stays where it is, unless the field takes any.
Go FRMHLP::choose() {
  const size_t row = at("grdDataGrid").grid.current;
  const std::string typedText = typedForSearch();
  if (row == Grid::kNone && !typedText.empty() && !lookup.free) return Go::Stay;
  result = row == Grid::kNone ? typedText : rows->text(row, 0);
  if (row != Grid::kNone && !lookup.along.empty())
    lookup.tell(rows->text(row, lookup.rows.columns.size() - 1));
  host.close(*this);
  return Go::Stay;
}

// In a search a blank is typed.
Go FRMHLP::chooseOne() {
  const size_t row = at("grdDataGrid").grid.current;
  if (!lookup.several || row == Grid::kNone || !searchField().text.empty()) return Go::On;
  *lookup.several = {.more = true, .row = row + 1};
  return choose();
}

void FRMHLP::escape() { host.close(*this); }
