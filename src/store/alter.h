#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

// Changing a stored table's shape. The engine cannot alter a column, so the table is built anew
// beside the old one and takes its place; rows keep their order, indexes are made again.

// The columns of a table of the file; a work table's TEMP double is not looked at.
std::vector<Column> tableColumns(Database& db, std::string_view table);

std::string createTableStatement(std::string_view quotedTable, const std::vector<Column>& columns);

// Puts an empty table of the same columns in a table's place. The old one stands aside with its rows
// and indexes until it is dropped, when the new one gets the same indexes.
struct SetAside {
  std::string table;
  std::vector<std::string> indexes;  // the statements that make them
};
SetAside setAside(Database& db, const std::string& table);
void dropSetAside(Database& db, const SetAside& old);

// Gives each named column its new definition. One whose data does not fit, and one that a key
// does not allow, stays as it is.
void alterColumns(Database& db, const std::string& table, const std::vector<Column>& changed);

// A column that stands in an index stays.
void dropColumn(Database& db, const std::string& table, const std::string& column);
