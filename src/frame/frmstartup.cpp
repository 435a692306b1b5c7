#include "frame/frmstartup.h"

#include <array>

#include "base/words.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "store/balances.h"
#include "store/dictionary.h"
#include "store/settled.h"

namespace {

constexpr int kSteps = 4;
constexpr std::array<const char*, kSteps> kWords = {
    english("Initializing....."),
    english("Loading components....."),
    english("Integrating Database...."),
    english("Please wait..."),
};

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "frmStartup",
      .caption = "Mirav",
      .window = Window::Main,
      .layout = {.bands = {
          {part(1), {{.name = "above", .frame = Frame::Plain}}},
          {px(138), {{.name = "splash", .columns = {part(1)}, .pitch = 44}}},
          {part(1), {{.name = "below", .frame = Frame::Plain}}},
      }, .width = 480},
      .controls = {
          {.name = "Title",  .kind = Kind::Label,    .label = "Mirav", .at = {.group = "splash", .row = 0}, .style = Style::Title},
          {.name = "Label1", .kind = Kind::Label,    .at = {.group = "splash", .row = 1}, .style = Style::Quiet},
          {.name = "Bar",    .kind = Kind::Progress, .at = {.group = "splash", .row = 2}},
      },
  };
  return s;
}
// clang-format on

}  // namespace

std::vector<std::function<void()>>& openingRoutines() {
  static std::vector<std::function<void()>> routines;
  return routines;
}

namespace {

// `done` runs a step and says whether it went through.
void settle(const std::function<bool(const std::function<void()>& step)>& done) {
  if (isSettled(data())) return;
  Settling settling(data());
  bool all = true;
  for (const auto& routine : openingRoutines()) all = done(routine) && all;
  all = done([] { RebuildAllBalances(data()); }) && all;
  if (all) done([&] { settling.done(); });
}

}  // namespace

void runOpeningRoutines(Host& host) {
  settle([&](const std::function<void()>& step) { return passOver(host, step); });
}

void settleAtEnd(Host& host) {
  const Busy busy(host);
  settle([](const std::function<void()>& step) {
    try {
      step();
      return true;
    } catch (const std::exception& error) {
      logFailure("passed over: the next opening does it", error);
      return false;
    }
  });
}

frmStartup::frmStartup(Host& h) : Screen(h, ::spec()) {
  timerMs = 100;
  at("Bar").maximum = kSteps;
}

void frmStartup::opened(const Opening& opening) {
  newCompany_ = opening.value;
  anchor = Anchor::Centre;
  host.hint("");
}

void frmStartup::tick() {
  Control& bar = at("Bar");
  bar.value += 1;
  host.busy(true);
  const auto step = static_cast<size_t>(bar.value);
  set(at("Label1"), words(kWords.at(step - 1)));
  if (step == kSteps) open();
}

void frmStartup::open() {
  timerMs = 0;
  host.refresh();
  runOpeningRoutines(host);
  if (shapeVersion(data()) == kHalfWalked)
    host.message(
        english(
            "The Database Check Of These Books Was Not Ended\r\nDo It Again :: Utilities, Database Check"),
        kMessageTitle);
  host.open("frmmain");
  host.close(*this);
  if (!newCompany_.empty()) host.open("stngs", {.value = newCompany_});
  host.busy(false);
}
