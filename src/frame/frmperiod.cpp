#include "frame/frmperiod.h"

#include "base/words.h"
#include "frame/session.h"

using namespace fields;

namespace {

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "frmperiod",
      .caption = "Accounting Period",
      .window = Window::Dialog,
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
                     {fit(),   {{.name = "what", .frame = Frame::Plain, .pitch = 24}}},
                     {part(1), {{.name = "days", .columns = {px(84), px(132), px(84), px(132), part(1)}}}},
                     {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
                 },
                 .width = 560, .height = 190},
      .controls = {
          {.name = "lblwhat",    .index = 0, .kind = Kind::Label, .at = {.group = "what"}, .style = Style::Section},
          {.name = "lblwhat",    .index = 1, .kind = Kind::Label, .label = "Bills And Other Vouchers Take Dates Of These Days", .at = {.group = "what", .row = 1}, .style = Style::Quiet},
          {.name = "MaskEdBox1", .index = 0, .field = kFrom, .kind = Kind::Date, .label = "First Day", .at = {.group = "days", .col = 1}, .tab = 1},
          {.name = "MaskEdBox1", .index = 1, .field = kTo,   .kind = Kind::Date, .label = "Last Day",  .at = {.group = "days", .col = 3}, .tab = 2},
          {.name = "cmdsave",    .kind = Kind::Button, .label = "&Save",  .at = {.group = "buttons"}, .tab = 3, .style = Style::Primary, .hint = "Press Enter To Set This Period :: Esc = Close"},
          {.name = "cmdclose",   .kind = Kind::Button, .label = "&Close", .at = {.group = "buttons"}, .tab = 4},
      },
  };
  return s;
}
// clang-format on

}  // namespace

frmperiod::frmperiod(Host& h) : ChildScreen(h, ::spec()) {
  escMeans = "Esc = Close";
  wire<frmperiod>(*this, {
                             {"MaskEdBox1", KeyCode::Enter, &frmperiod::dateEntered},
                             {"MaskEdBox1", KeyCode::F2,    &frmperiod::dateF2     },
                             {"MaskEdBox1", KeyCode::Up,    &frmperiod::dateUp     },
                             {"MaskEdBox1", KeyCode::Down,  &frmperiod::dateDown   },
                             {"MaskEdBox1", KeyCode::PgUp,  &frmperiod::datePgUp   },
                             {"MaskEdBox1", KeyCode::PgDn,  &frmperiod::datePgDn   },
                             {"cmdsave",    On::Click,      &frmperiod::save       },
                             {"cmdclose",   On::Click,      &frmperiod::leave      },
                             {"",           KeyCode::Esc,   &frmperiod::leave      },
  });
}

void frmperiod::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  const Session& s = session();
  set(at("lblwhat", 0), words("{company} :: Company-Year {first} - {last}", "company", s.mcompname, "first",
                              s.mfromyr, "last", s.mtoyr));
  put(kFrom, std::optional(s.mstartdt));
  put(kTo, std::optional(s.menddt));
  takeAsShown();
  focus(at(kFrom));
}

std::string frmperiod::hintFor(const Control& control) const {
  return control.editable()
             ? english("Press Enter To Proceed :: Up / Down = Day :: Page Up / Page Down = Month")
             : ChildScreen::hintFor(control);
}

std::optional<Date> frmperiod::checked(FieldName box) {
  const auto typed = date(box);
  if (!typed) {
    host.message(words("{text} Is No Date\r\nType Day, Month And Year, As In 01/04/2026", "text", text(box)));
    focus(at(box));
  }
  return typed;
}

Go frmperiod::dateEntered() { return checked(here().spec->field) ? Go::On : Go::Stay; }

void frmperiod::save() {
  const auto first = checked(kFrom);
  const auto last = first ? checked(kTo) : std::nullopt;
  if (!last) return;
  const Period period{*first, *last};
  if (const std::string refusal = refusalOf(period); !refusal.empty()) {
    host.message(refusal);
    return focus(at(kTo));
  }
  const Outside outside = vouchersOutside(data(), period);
  if (outside.count > 0 &&
      !host.ask(
          {.text = words(outside.count == 1
                             ? english("{count} Voucher Lies Outside This Period\r\nThe First: {voucher}")
                             : english("{count} Vouchers Lie Outside This Period\r\nThe First: {voucher}"),
                         "count", std::to_string(outside.count), "voucher", outside.first),
           .title = kQuestionTitle,
           .yes = english("&Set It All The Same"),
           .no = english("&Back"),
           .facts = words("What Stands Stays, But Would Be Refused On A Change"),
           .loses = true}))
    return focus(at(kFrom));
  whole(data(), [&] { StorePeriod(data(), period.first, period.last); });
  session().mstartdt = period.first;
  session().menddt = period.last;
  closeUnasked();
}

void frmperiod::leave() { host.close(*this); }
