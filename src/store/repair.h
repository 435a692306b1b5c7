#pragma once

#include <string>

#include "store/database.h"

// What an update mends in the data of a company-year: rows that cannot be valid are deleted, and
// fields that are empty get their default. A table that is missing is passed over, and so is a
// default that does not fit its column.

struct RepairFacts {
  Date periodStart{};
  std::string timeOfDay;  // "HH:MM"
};

void repairRows(Database& db, const RepairFacts& facts);

// Removes every row of a key that stands more than once in PRTYRATE and SPSFILE.
void removeDoubles(Database& db);
