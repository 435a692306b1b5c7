// Reports as a person waits for them: from the Show button to the first rows and to the last.

#include "bench_desk.h"
#include "frame/session.h"

namespace {

using State = benchmark::State;
using Clock = std::chrono::steady_clock;

struct Shown {
  const char* menu;
  bool answer = false;  // to its question, where it has one
};

// The whole year, without a filter.
void report(State& state, const Shown& report) {
  BenchDesk& d = desk();
  d.choose(report.menu);
  require(d.onTop() == "frmreport", "the report does not open");
  double first = 0;
  each(
      state, [&] { d.answers.assign(1, report.answer), d.shownEarly.reset(); },
      [&] {
        const auto pressed = Clock::now();
        d.press("cmdshowrpt");
        const auto shown = d.shownEarly.value_or(Clock::now());
        first += std::chrono::duration<double, std::milli>(shown - pressed).count();
      });
  d.answers.clear();
  require(d.messages.empty() || state.iterations() == 0, d.lastMessage());
  state.counters["first_ms"] = benchmark::Counter(first, benchmark::Counter::kAvgIterations);
  state.counters["rows"] = static_cast<double>(d.at("Grid1").grid.count());
  d.press("cmdclose");
}

// From one end of a register with all its lines to the other, page by page.
void scroll(State& state) {
  BenchDesk& d = desk();
  d.choose("slblreg");
  d.press("cmdshowrpt");
  each(
      state, [] {}, [&] { d.key(KeyCode::PgDn); });
  d.press("cmdclose");
}

// clang-format off
constexpr Shown kReports[] = {
    {"SALEBILLSUMMARY"},
    {"slblreg"},
    {"recipt"},
    {"accmastclbl"},
    {"accmastADD"},
    {"priclstprn"},
    {"priclstprn", true},
    {"GSTR1-RD"},
    {"ONACRCV"},
    {"ONACRCV", true},
};
// clang-format on

}  // namespace

void addMeasurements() {
  for (const Shown& shown : kReports)
    measure(
        std::string("Report/") + shown.menu + (shown.answer ? "/Yes" : ""),
        [shown](State& state) { report(state, shown); }, true);
  measure("Report/Sale Bill Detailed Register/page down", scroll);
}
