#pragma once

#include "formats/book.h"

namespace formats {

// An ornament that stands for a company's own mark until it is replaced in a spreadsheet
// program. Raises BookError when it cannot be drawn.
const Picture& logo();

}  // namespace formats
