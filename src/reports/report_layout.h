#pragma once

#include <vector>

#include "platform/grid.h"
#include "reports/report_rows.h"

// A report on the screen. Twips become shares of its width; figures and short texts keep to theirs,
// names and descriptions take what is left. A column is never narrower than its total once that is
// known; totals that leave no room for names are written smaller.
struct ReportLayout {
  std::vector<GridColumn> columns;
  double totalSize = 0;  // points; 0 is the grid's own
};
ReportLayout layoutOf(const ReportRows& rows);
