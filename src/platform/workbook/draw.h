#pragma once

#include <string_view>

#include "platform/paint.h"
#include "platform/workbook/workbook.h"

namespace workbook {

// Lays the sheet out into pages by its print setup and draws them. Hidden rows and columns
// take no space, a row is never split, and a page ends where the next row would not fit.
// Gives the number of pages drawn: 0 for a sheet with nothing to print. Raises WorkbookError
// when there is no such sheet or the sheet would need more than 2,000 pages.
int draw(Workbook& book, std::string_view sheet, paint::Canvas& canvas, const paint::Metrics& metrics);

}  // namespace workbook
