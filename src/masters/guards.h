#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/host.h"
#include "store/database.h"

// Why a row of a master may not go: something elsewhere names it. A statement that must find nothing, with
// the code for each "?"; what it finds first stands in the words as {where}.
struct Guard {
  std::string_view statement;
  std::string_view words;
  std::string_view title = kMessageTitle;
};

struct Refusal {
  std::string words, title = kMessageTitle;
};

// By the first guard that finds something. One over a table that the database does not have finds nothing.
std::optional<Refusal> refusal(Database& db, std::span<const Guard> guards, const Value& code);
