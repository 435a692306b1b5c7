#include "frame/frmothers.h"

#include <algorithm>

#include "base/words.h"
#include "frame/session.h"
#include "frame/together.h"
#include "store/together.h"

namespace {

constexpr int kEvery = 2000;  // milliseconds

// clang-format off
const ScreenSpec& table() {
  static const ScreenSpec s{
      .name = "frmothers",
      .caption = "Others At These Books",
      .window = Window::Dialog,
      .layout = {.bands = {
                     {fit(),   {{.name = "what", .frame = Frame::Plain, .pitch = 24}}},
                     {part(1), {{.name = "others", .frame = Frame::Plain, .pitch = 28}}},
                     {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
                 },
                 .width = 620, .height = 330},
      .controls = {
          {.name = "lblwhat",   .index = 0, .kind = Kind::Label, .at = {.group = "what"}, .style = Style::Section},
          {.name = "lblwhat",   .index = 1, .kind = Kind::Label, .at = {.group = "what", .row = 1}, .style = Style::Quiet},
          {.name = "DataGrid1", .kind = Kind::Grid, .at = {.group = "others"}, .tab = 1, .columns = {
              {.title = "Who",     .width = part(1, 180)},
              {.title = "In Hand", .width = part(1, 160)},
              {.title = "Since",   .width = px(80), .align = Align::Right}}},
          {.name = "cmdok",     .kind = Kind::Button, .label = "&Go On",  .at = {.group = "buttons"}, .tab = 2, .hint = "Press Enter To Go On :: What They Save Afterwards Is Compared And Stored As Ever"},
          {.name = "cmdclose",  .kind = Kind::Button, .label = "&Leave It", .at = {.group = "buttons"}, .tab = 3, .style = Style::Primary},
      },
  };
  return s;
}
// clang-format on

}  // namespace

std::vector<Other> awaited(Database& db, const OthersAwaited& wanted) {
  std::vector<Other> others = db.engine().others();
  if (!wanted.all) std::erase_if(others, [](const Other& other) { return other.book.empty(); });
  return others;
}

frmothers::frmothers(Host& theHost, const Opening& opening)
    : ChildScreen(theHost, table()), wanted_(std::any_cast<const OthersAwaited&>(opening.more)) {
  timerMs = kEvery;
  escMeans = "Esc = Leave It";
  wire<frmothers>(*this, {
                             {"cmdok",    On::Click,    &frmothers::goOn },
                             {"cmdclose", On::Click,    &frmothers::leave},
                             {"",         KeyCode::Esc, &frmothers::leave},
  });
}

void frmothers::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  set(at("lblwhat", 0), words("{what} Waits For These To Finish", "what", words(wanted_.what)));
  set(at("lblwhat", 1),
      words(wanted_.all ? english("Ask Them To Close This Company :: It Goes On When Nobody Is Left")
                        : english("Ask Them To Save Or Cancel :: It Goes On When Nobody Is Left")));
  at("cmdok").visible = !wanted_.all;
  show(awaited(data(), wanted_));
  focus(at("cmdclose"));
}

void frmothers::show(const std::vector<Other>& others) {
  auto rows = std::make_shared<CellRows>();
  for (const Other& other : others)
    rows->rows.push_back({{.text = other.who},
                          {.text = other.book.empty() ? "" : whatInHand(other.book, other.number)},
                          {.text = since(other.seconds)}});
  Grid& grid = at("DataGrid1").grid;
  grid.source = std::move(rows);
  grid.current = Grid::kNone;
}

void frmothers::tick() {
  const auto others = awaited(data(), wanted_);
  show(others);
  if (others.empty()) goOn();
}

void frmothers::goOn() {
  result = "go";
  host.close(*this);
}
