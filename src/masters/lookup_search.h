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

// What a search for a number finds, by the numbers of its rows: where those are found sooner than the rows,
// and are few. `condition` is that of the search over the lookup's rows. Nothing otherwise.
std::optional<Select> fewFound(Database& database, const Select& rows, const std::string& condition,
                               const std::string& typed);
