#pragma once

#include <filesystem>
#include <memory>

#include "store/engine.h"

// The embedded engine over one file, or ":memory:". Raises DatabaseError when it cannot be opened.
std::unique_ptr<Engine> openSqliteEngine(Database& face, const std::filesystem::path& file, Access access);
