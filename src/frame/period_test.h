#pragma once

#include <optional>
#include <string>

#include "base/date.h"

// The range test of the date of one voucher. It goes by text (see periodRefusal) and so refuses days
// that lie in the period: such a day is taken when it is entered once more.
class PeriodTest {
 public:
  // The message to show, empty when the date is taken.
  std::string refusal(Date date);

 private:
  std::optional<Date> refused_;  // and may be entered once more
};
