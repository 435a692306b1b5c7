#include "reports/period_screen.h"

#include "frame/session.h"

std::optional<Date> PeriodScreen::checkedDate(FieldName box) {
  const auto typed = date(box);
  if (typed) return typed;
  host.message(session().mhelpline, "Mirav Information");
  focus(at(box));
  return {};
}

std::optional<PeriodScreen::Period> PeriodScreen::checkedPeriod() {
  const auto from = checkedDate(fields::kFrom);
  const auto to = from ? checkedDate(fields::kTo) : std::nullopt;
  if (!to) return {};
  return Period{*from, *to};
}
