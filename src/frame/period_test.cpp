#include "frame/period_test.h"

#include <utility>

#include "frame/child_screen.h"
#include "frame/session.h"

std::string PeriodTest::refusal(Date date) {
  const auto before = std::exchange(refused_, std::nullopt);
  std::string refusal = periodRefusal(date);
  if (refusal.empty() || before == date) return {};
  if (date >= session().mstartdt && date <= session().menddt) refused_ = date;
  return refusal;
}
