#pragma once

#include <string>

#include "documents/page_model.h"
#include "store/database.h"

// The row counts of a design, from HIDELINESET: `key` is the document family, "GST INVOICE",
// "QUOTATION" or "CHALLAN".
PageModel LoadLineSettings(Database& db, const std::string& key, int design);
