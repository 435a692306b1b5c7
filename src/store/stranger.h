#pragma once

#include <string>

#include "store/database.h"

// What a database from elsewhere may hold that would run on our reads and writes: triggers, views in
// the place of tables, virtual tables, columns that are worked out, conditions that call what only a
// statement may call. Views of other names are read by nobody and go with the next update.
//
// The first such thing, "TRIGGER NAME"; empty where there is none.
std::string strangerIn(Database& db);
