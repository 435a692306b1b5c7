#pragma once

#include <string>

namespace workbook {

// Whether a spreadsheet program has the file open, as its lock or the mark that it left beside the
// file says. A mark that a crash left behind does not count where the system can tell.
bool heldElsewhere(const std::string& path);

}  // namespace workbook
