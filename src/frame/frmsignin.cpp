#include "frame/frmsignin.h"

#include "base/words.h"
#include "frame/field_names.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "frame/start.h"
#include "store/place.h"

using namespace fields;

namespace {

constexpr const char* kKeys = english("Type User And Password  ::  Enter = Next  ::  Esc = Leave");

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "frmsignin",
      .caption = "Who Is Working",
      .window = Window::Main,
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {part(1), {{.name = "above", .frame = Frame::Plain}}},
          {px(72),  {{.name = "head", .frame = Frame::Plain, .columns = {part(1)}, .pitch = 34}}},
          {fit(),   {{.name = "who", .columns = {px(120), px(260), part(1)}, .pitch = 39}}},
          {px(48),  {{.name = "buttons", .frame = Frame::Buttons}}},
          {part(1), {{.name = "below", .frame = Frame::Plain}}},
      }, .width = 580, .gap = 10},
      .controls = {
          {.name = "Title",     .kind = Kind::Label, .label = "Who Is Working", .at = {.group = "head"}, .style = Style::Title},
          {.name = "lblwhere",  .kind = Kind::Label, .label = "These Books Stand On A Server Which Asks Who You Are", .at = {.group = "head", .row = 1}, .style = Style::Quiet},
          {.name = "Text1",     .field = kName,     .label = "User",     .at = {.group = "who", .col = 1}, .tab = 1, .limit = 80},
          {.name = "Text2",     .field = kPassword, .label = "Password", .at = {.group = "who", .row = 1, .col = 1}, .tab = 2, .limit = 100, .secret = true},
          {.name = "cmdsignin", .kind = Kind::Button, .label = "&Sign In", .at = {.group = "buttons"}, .tab = 3, .style = Style::Primary},
          {.name = "cmdleave",  .kind = Kind::Button, .label = "&Leave",   .at = {.group = "buttons"}, .tab = 4},
      },
  };
  return s;
}
// clang-format on

}  // namespace

frmsignin::frmsignin(Host& h) : Screen(h, ::spec()) {
  panels = {"", kKeys};
  wire<frmsignin>(*this, {
                             {kName,       KeyCode::Enter, &frmsignin::nameEntered    },
                             {kPassword,   KeyCode::Enter, &frmsignin::passwordEntered},
                             {"cmdsignin", On::Click,      &frmsignin::signIn         },
                             {"cmdleave",  On::Click,      &frmsignin::leave          },
                             {"",          KeyCode::Esc,   &frmsignin::leave          },
  });
}

void frmsignin::opened(const Opening&) {
  anchor = Anchor::Centre;
  host.hint(kKeys);
}

void frmsignin::focusMoved(Control&) { host.hint(kKeys); }

Go frmsignin::nameEntered() {
  if (!trimmed(kName).empty()) return Go::On;
  host.message(words("Type The User Under Which You Work Here"));
  return Go::Stay;
}

Go frmsignin::passwordEntered() {
  signIn();
  return Go::Stay;
}

void frmsignin::signIn() {
  if (nameEntered() == Go::Stay) return focus(at(kName));
  std::string failure = failureOf(
      host, [this] { ::signIn(session().mapppath, {.user = trimmed(kName), .password = text(kPassword)}); });
  put(kPassword, "");
  if (failure.empty()) failure = openBooks(host);
  if (failure.empty()) return host.close(*this);
  host.message(failure, kMessageTitle);
  focus(at(kPassword));
}

void frmsignin::leave() { host.close(*this); }
