#pragma once

#include <string_view>

// Whether the engine understands the statement over a database of the shape that this program
// declares, of a company-year or of the catalogue. A statement that fails over a file and is right here
// meets an older file, which an update will complete; any other is our own mistake.
bool fitsDeclaredShape(std::string_view sql);
