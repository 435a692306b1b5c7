#pragma once

#include <filesystem>

#include "platform/host.h"
#include "store/database.h"

// The list of item categories as a workbook, FORMATS/list.xlsx in the program folder.

// Returns the workbook's path. Raises WorkbookError or DatabaseError.
std::filesystem::path writeCategoryList(Database& db, const std::filesystem::path& program);

// Writes it and shows it; a failure is told.
void showCategoryList(Host& host);
