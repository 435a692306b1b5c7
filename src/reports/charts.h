#pragma once

#include <cstddef>

#include "platform/chart.h"
#include "platform/grid.h"
#include "store/database.h"

// Pictures beside the figures of a shown report.

// A bar a day from the first to the last date that stands in a column of the rows.
Chart amountsByDay(const RowSource& rows, size_t dateColumn, size_t amountColumn, const char* title);

// The ten parties that owe most by the open bills of CAL, by the age of these at the To date.
Chart largestOutstanding(Database& db);
