#pragma once

#include <span>
#include <string>
#include <string_view>

#include "store/database.h"

// The documented primary keys, kept as unique indexes ("SALE_KEY"), and the further indexes that
// measured statements need.

struct TableKey {
  std::string_view table;
  std::string_view columns;
};

// Its key allows an item one unit alone, so that new books go without.
inline constexpr std::string_view kUnitsTable = "ITEMDTL";

// In the order in which an update adds them.
std::span<const TableKey> tableKeys();
std::string keyName(std::string_view table);

void dropKeys(Database& db);
// Fails when the table holds a key twice.
Outcome addKey(Database& db, const TableKey& key);

// Makes the indexes that are missing or stand otherwise; a table that is missing is passed over.
void EnsureIndexes(Database& db);
