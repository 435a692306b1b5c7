#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

#include "store/database.h"

// Files that stand whole or not at all, whatever fails in between: built beside their place under
// another name, flushed to the disk, then given their name in one step. Failures are DatabaseError.

// Calls `build` with the name to build under; an old file of the final name is replaced, whose rights
// the new one keeps (behind a link the file that it leads to), one left by a crash under the building
// name is thrown away.
void buildBeside(const std::filesystem::path& file,
                 const std::function<void(const std::filesystem::path& making)>& build);

// The endings of a file that is being built, and of one that is about to go.
inline constexpr const char* kBuilding = ".new";
inline constexpr const char* kGoing = ".deleted";

// False also where it cannot be told.
bool fileExists(const std::filesystem::path& file) noexcept;
// No folder, pipe or device, which would be waited for.
bool isPlainFile(const std::filesystem::path& file) noexcept;

// The file's name for a message; one under a passing name goes by its own.
std::string shownName(const std::filesystem::path& file);

// What the system says of a file, in the words of the store.
DatabaseError fileError(const std::filesystem::path& file, const std::error_code& error);

// A plain copy of a file that nobody writes to; the copy can be written.
void copyFile(const std::filesystem::path& from, const std::filesystem::path& to);
