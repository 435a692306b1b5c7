#pragma once

#include <filesystem>
#include <string>

#include "store/database.h"

// The databases that a delivered folder starts from. Each file is built beside its place under
// another name and takes its place when it is whole. Failures are DatabaseError.

// An empty company-year: tables, seeds, in-use marks, counters, keys, indexes, saved queries and
// the free-text item MISC.
void makeCompanyDatabase(const std::filesystem::path& file);
// SMPL.MDB and BLNK.MDB.
void makeTemplates(const std::filesystem::path& folder);
// comp.mdb without a row: tables compny and USER1.
void makeCatalogue(const std::filesystem::path& file);
void makeUserTable(Database& db);
// The same in databases that stand open and empty.
void fillCompanyDatabase(Database& db);
void fillCatalogue(Database& db);

// Copies a closed database; an old file of that name is replaced. The copy is on the disk when
// this returns, so that a row naming it may be stored after.
void copyDatabase(const std::filesystem::path& from, const std::filesystem::path& to);
