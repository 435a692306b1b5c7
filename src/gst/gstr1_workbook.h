#pragma once

#include <filesystem>

#include "gst/gstr1.h"

// GSTR-1 as a workbook for the accountant, with the sheets and headings that the portal's offline tool
// imports: GSTR1_<GSTIN>_<MMYYYY>.xlsx in the folder. Dates are texts, as the tool wants them. Amendments are
// in the JSON file alone. Raises workbook::WorkbookError.
std::filesystem::path writeGstr1Workbook(const Gstr1& gstr1, const std::filesystem::path& folder);
