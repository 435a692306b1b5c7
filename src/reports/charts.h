#pragma once

#include <cstddef>

#include "documents/typed_rows.h"
#include "platform/chart.h"
#include "store/database.h"

// Pictures beside the figures of a shown report.

// A bar a day from the first to the last date that stands in the date column.
Chart amountsByDay(const TypedRows& rows, size_t dateColumn, size_t amountColumn, const char* title);

// The ten parties that owe most by the open bills of CAL, by the age of these at the To date.
Chart largestOutstanding(Database& db);
