#pragma once

#include <optional>
#include <string>

#include "masters/select_text.h"
#include "store/database.h"

// Statements that find the same rows as the plain ones, at less cost over many rows.

// The condition for a typed text in a column of any type, as it shows (`declaredType` as in
// PageRows). A text column of a table that is joined by its key ("SALE.PARTY_CD =
// ACCOUNT.ACC_CD") is searched in that table, once, and not for each row that is joined to it.
std::string typedCondition(const Select& select, const std::string& expression,
                           const std::string& declaredType);

// The distinct filled values of one text column ("select DISTINCT[DESTI] from SALE WHERE
// LEN(DESTI)>0") read in steps from value to value along an index: some values cost the same
// however many rows hold them. Nothing for other selects and columns without an index.
std::optional<Select> valueSteps(Database& database, const Select& select);
