#pragma once

#include <optional>

#include "base/date.h"
#include "frame/child_screen.h"

// A screen over a period: its first and last date stand in the fields from and to.
class PeriodScreen : public ChildScreen {
 protected:
  using ChildScreen::ChildScreen;

  struct Period {
    Date from, to;
  };
  // Nothing for a box without a date, which is told of and takes the focus.
  std::optional<Date> checkedDate(FieldName box);
  std::optional<Period> checkedPeriod();
};
