#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

// Changing a stored table's shape; rows keep their order, indexes stand again.

// The columns of a table of the books; a work table of the connection is not looked at.
std::vector<Column> tableColumns(Database& db, std::string_view table);

// Gives each named column its new definition. One whose data does not fit, and one that a key
// does not allow, stays as it is.
void alterColumns(Database& db, const std::string& table, const std::vector<Column>& changed);

// A column that stands in an index stays.
void dropColumn(Database& db, const std::string& table, const std::string& column);
