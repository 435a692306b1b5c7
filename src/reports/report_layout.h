#pragma once

#include <vector>

#include "platform/grid.h"
#include "reports/report_rows.h"

// The columns of a report on the screen. Twips become shares of its width; figures and short texts
// keep to theirs, names and descriptions take what is left. A column is never narrower than its
// total once that is known.
std::vector<GridColumn> gridColumns(const ReportRows& rows);
