#pragma once

#include "store/database.h"

// All tables of one database into another that has none, whichever engines keep them: shapes, rows with their
// numbers, indexes, views, the version that shaped it. What is read stands still meanwhile. Raises
// DatabaseError.
void copyBooks(Database& from, Database& to);
