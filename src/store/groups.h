#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// Account groups form a tree: GRP.SUB_GROUP names the group above. A shop that made "DEALERS" under
// SUNDRY DEBTORS (85) means its accounts to be debtors.

// Holds for a column that names one of the groups or a group below one of them. The tree is read once
// for a statement, whatever the number of its rows.
std::string underGroups(std::string_view column, std::initializer_list<int> groups);
// The same for the group whose code stands in a text bound to the one "?".
std::string underGroupAsked(std::string_view column);
