#include "documents/page_model.h"

#include <algorithm>

#include "base/number.h"

namespace {

// A row number far outside of every sheet stays one (a design without slots).
int rowNumber(double row) { return static_cast<int>(std::clamp(row, -1e9, 1e9)); }

}  // namespace

RowRange rowsToHide(const PageModel& model, int lines, SlotsKept kept) {
  const auto pages = static_cast<double>(RoundUp(static_cast<double>(lines) / model.slots));
  const bool byLines = model.pages == 1 && (kept == SlotsKept::Lines ||
                                            (kept == SlotsKept::LinesOfLargePages && model.slots > 25));
  const double used = byLines ? lines : model.slots;
  const double first = used * model.slot * pages + model.head * pages + (pages - 1) * model.foot + 1;
  const double last =
      model.slots * model.slot * model.pages + model.head * model.pages + (model.pages - 1) * model.foot;
  return {.first = rowNumber(first), .last = rowNumber(last)};
}
