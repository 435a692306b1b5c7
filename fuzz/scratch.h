#pragma once

#include <filesystem>
#include <string_view>

// A folder in memory that goes with the process; files made on the way stay in it.
const std::filesystem::path& scratch();

// Puts the bytes into a file of that name there and returns its path.
std::filesystem::path scratchFile(std::string_view name, std::string_view bytes);
