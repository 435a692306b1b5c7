#include "vouchers/frmpost.h"

#include "frame/session.h"
#include "vouchers/posting.h"

namespace {

// The routine always does all that there is to do, so no choice of postings is offered.
const ScreenSpec& postingTable() {
  // clang-format off
  static const ScreenSpec spec = {
      .name = "FRMPOST",
      .caption = "Posting",
      .window = Window::Dialog,
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
                     {fit(),   {{.name = "what", .frame = Frame::Plain, .pitch = 24}}},
                     {part(1), {{.name = "progress"}}},
                     {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
                 },
                 .width = 520, .height = 296},
      .controls = {
          {.name = "lblwhat",   .kind = Kind::Label,  .label = "Makes The Ledger And All Balances Again From The Vouchers", .at = {.group = "what"}, .style = Style::Quiet},
          {.name = "Label1",    .kind = Kind::Label,  .at = {.group = "progress", .rows = 5}},
          {.name = "cmdPOST",   .kind = Kind::Button, .label = "&Ok",     .at = {.group = "buttons"}, .tab = 1, .style = Style::Primary, .hint = "Press Enter To Do Posting."},
          {.name = "cmdcancel", .kind = Kind::Button, .label = "&Cancel", .at = {.group = "buttons"}, .tab = 2},
      },
  };
  // clang-format on
  return spec;
}

}  // namespace

FRMPOST::FRMPOST(Host& theHost) : ChildScreen(theHost, postingTable()) {
  escMeans = "Esc = Close";
  wire(*this, {
                  {"cmdPOST",   On::Click,    &FRMPOST::post },
                  {"cmdcancel", On::Click,    &FRMPOST::close},
                  {"",          KeyCode::Esc, &FRMPOST::close},
  });
}

void FRMPOST::opened(const Entry& entry) {
  ChildScreen::opened(entry);
  focus(at("cmdPOST"));
}

void FRMPOST::activated() { ShowHint(host, "Press Enter To Do Posting."); }

void FRMPOST::tell(std::string_view words) {
  at("Label1").text += words;
  host.refresh();
}

void FRMPOST::post() {
  Control& cancel = at("cmdcancel");
  at("Label1").text.clear();
  cancel.enabled = false;
  host.busy(true);
  try {
    postAll(data(), [this](std::string_view words) { tell(words); });
  } catch (...) {
    cancel.enabled = true;
    tell("\n Posting Was Not Done :: The Books Are As They Were");
    throw;
  }
  host.busy(false);
  host.message("POSTING IS COMPLETE", "Mirav Message");
  host.close(*this);
}
