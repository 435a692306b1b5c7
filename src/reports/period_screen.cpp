#include "reports/period_screen.h"

#include "base/words.h"
#include "frame/routines.h"
#include "frame/session.h"

std::optional<Date> PeriodScreen::checkedDate(FieldName box) {
  const auto typed = date(box);
  if (typed) return typed;
  host.message(dateHelp(host), "Mirav Information");
  focus(at(box));
  return {};
}

std::optional<PeriodScreen::Period> PeriodScreen::checkedPeriod() {
  const auto from = checkedDate(fields::kFrom);
  const auto to = from ? checkedDate(fields::kTo) : std::nullopt;
  if (!to) return {};
  return Period{*from, *to};
}

void PeriodScreen::outputs(bool on) {
  for (const std::string& button : outputButtons()) at(button).enabled = on;
  reason = on ? "" : english("Print, Excel and Pdf open after Show");
  shownFor_ = on ? std::optional(asked()) : std::nullopt;
}

bool PeriodScreen::standsAsShown() {
  if (shownFor_ && *shownFor_ != asked()) outputs(false);
  return shownFor_.has_value();
}

void PeriodScreen::focusMoved(Control& control) {
  standsAsShown();
  ChildScreen::focusMoved(control);
}

std::string PeriodScreen::asked() const {
  std::string all;
  for (const auto& c : controls)
    if (c->editable() && c->enabled) all += c->text + "\n";
  return all;
}
