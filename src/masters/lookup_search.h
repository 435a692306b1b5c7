#pragma once

#include <optional>
#include <string>

#include "frame/lookup.h"
#include "store/database.h"

// The condition for a typed text in a column as it shows (`declaredType` as in PageRows).
std::string typedCondition(const SelectColumn& column, const std::string& declaredType);

// The lookup's values read in steps from value to value along an index: some values cost the same
// however many rows hold them. Nothing for other lookups and for columns without an index.
std::optional<Select> valueSteps(Database& database, const Lookup& lookup);
