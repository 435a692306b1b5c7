#pragma once

#include <filesystem>
#include <vector>

#include "gst/gstr1.h"

// The file of GSTR-1 for the portal: GSTR1_<GSTIN>_<MMYYYY>.json in the folder, in parts where it is too
// large for one. It says what the vouchers say, also where the portal will refuse it (gst/gstr1_checks.h).
// Failures are std::system_error.
std::vector<std::filesystem::path> writeGstr1(const Gstr1& gstr1, const std::filesystem::path& folder);
