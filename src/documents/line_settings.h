#pragma once

#include <string>

#include "documents/page_model.h"

// Reads the row counts of a design into the session (mhdlines, mftlines, minvlines, mitmlines,
// mblpgs, mprncopies): `key` is the document family, "GST INVOICE", "QUOTATION" or "CHALLAN".
// A design without a row counts 1 everywhere.
void LoadLineSettings(const std::string& key, const std::string& sheet, int design);

// The page model of the design that was loaded last.
PageModel loadedPageModel();
