#include "vouchers/frmpost.h"

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
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

// A line for the vouchers that were posted and do not balance, the first of them by number; all of them in
// the log. Empty when there is none.
std::string notBalanced(const std::vector<Unbalanced>& vouchers) {
  constexpr size_t kShown = 20;
  if (vouchers.empty()) return {};
  std::vector<std::string> numbers;
  for (const Unbalanced& voucher : vouchers)
    numbers.push_back(voucher.kind->code + " " + numText(voucher.number));
  for (size_t i = 0; i < numbers.size(); i += kShown) {
    const auto from = numbers.begin() + static_cast<std::ptrdiff_t>(i);
    const auto to = numbers.size() - i < kShown ? numbers.end() : from + kShown;
    logFailure("posted, head and items disagree", join({from, to}, ", "));
  }
  const size_t more = numbers.size() > kShown ? numbers.size() - kShown : 0;
  numbers.resize(numbers.size() - more);
  if (more > 0) numbers.push_back(words("And {count} More", "count", std::to_string(more)));
  return "\r\n" + words("Head And Items Disagree :: {numbers}", "numbers", join(numbers, ", "));
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

void FRMPOST::post() {
  std::string told;
  std::vector<Unbalanced> unbalanced;
  run([&] {
    unbalanced = postAll(data(), [&](std::string_view progress) {
      told += progress;
      tell(told);
    });
  });
  host.message(words("POSTING IS COMPLETE") + notBalanced(unbalanced), kMessageTitle);
  close();
}
