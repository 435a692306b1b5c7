#include "vouchers/frmpost.h"

#include "base/words.h"
#include "frame/books_check.h"
#include "frame/session.h"
#include "frame/together.h"
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
      .layout = progressLayout(520, 296),
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

FRMPOST::FRMPOST(Host& theHost)
    : ProgressDialog(theHost, postingTable(),
                     {.start = "cmdPOST",
                      .cancel = "cmdcancel",
                      .undone = " Posting Was Not Done :: The Books Are As They Were"}) {
  wire(*this, {
                  {"cmdPOST",   On::Click,    &FRMPOST::post },
                  {"cmdcancel", On::Click,    &FRMPOST::close},
                  {"",          KeyCode::Esc, &FRMPOST::close},
  });
}

void FRMPOST::activated() { ShowHint(host, "Press Enter To Do Posting."); }

bool FRMPOST::postHolding() {
  const HoldBooks held(host, data(), english("Full Posting"), HoldBooks::Till::Finished);
  if (!held) return false;
  std::string told;
  run([&] {
    postAll(data(), [&](std::string_view progress) {
      told += progress;
      tell(told);
    });
  });
  return true;
}

void FRMPOST::post() {
  if (!postHolding()) return;
  host.message("POSTING IS COMPLETE", kMessageTitle);
  close();
  tellDisagreement(host, data());
}
