#include "reports/period_screen.h"

#include "frame/session.h"

std::optional<Date> PeriodScreen::checkedDate(int box) {
  const auto typed = parseDate(at("MaskEdBox1", box).text);
  if (typed) return typed;
  host.message(session().mhelpline, "Mirav Information");
  focus(at("MaskEdBox1", box));
  return {};
}

std::optional<PeriodScreen::Period> PeriodScreen::checkedPeriod() {
  const auto from = checkedDate(0);
  const auto to = from ? checkedDate(1) : std::nullopt;
  if (!to) return {};
  return Period{*from, *to};
}
