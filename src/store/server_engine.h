#pragma once

#include <filesystem>
#include <memory>

#include "store/engine.h"

// The books on the server that their folder names (store/place.h): a database of the file's stem. With
// Access::create the database is made, with our functions and no table. Raises DatabaseError.
std::unique_ptr<Engine> openServerEngine(Database& face, const std::filesystem::path& books, Access access);
