#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/database.h"

// Books copied from one engine to another.

// Letters of a date column on a server.
inline constexpr int kLongestDate = 20;

// What is being done: "SALE", and how many of its rows are.
using CopyProgress = std::function<void(const std::string& table, double rows)>;

// All tables of `from` into `to`, which has none: shapes, rows with their numbers, keys that stood, indexes,
// saved queries, the version of the shape; then each is read again, and the number of its rows, the sum of
// each column of figures and a digest of all values must be the same, to the last bit. Also tables that the
// dictionary does not declare. What is read stands still meanwhile; work tables that stand before those of
// the books on the connection of `from` go. Returns the tables whose key the new books cannot hold.
//
// Raises DatabaseError, with table, column and row where a value is none of its column's kind (a text among
// numbers), is too long for it or is no text (UTF-8).
std::vector<std::string> copyBooks(Database& from, Database& to, const CopyProgress& progress = {});
