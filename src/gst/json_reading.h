#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

// Files of the portal as a person hands them over, hostile until proven: cut short, of another kind, of a
// thousand levels, too large. Known to the sources that read such files alone.

using Json = nlohmann::ordered_json;

// Raises std::runtime_error with words for the person.
Json readJson(const std::filesystem::path& file);

// Members of what was read; an empty text, 0 and an empty list where there is none or it is of another type.
// A figure that stands as a text counts.
std::string textOf(const Json& json, const char* key);
double numberOf(const Json& json, const char* key);
const Json& listOf(const Json& json, const char* key);
