#pragma once

#include <filesystem>

#include "store/database.h"

// Copies an open database into a file that is only given its name after it has been verified:
// opened, checked whole, and found to hold as many rows of each table as the source.
//
// Page by page rather than by VACUUM INTO: a vacuum numbers the rows of tables without a whole
// key anew, and lines without an order of their own are read in the order of these numbers.
//
// Other programs may read meanwhile; their saves wait. Raises DatabaseError, and then no file of
// that name has been made or changed.
void backUpDatabase(Database& source, const std::filesystem::path& to);
