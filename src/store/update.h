#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/repair.h"

// Brings an open company-year to the shape that this program must find, and mends its data: the
// dictionary is walked, what it does not declare is dropped, saved queries and print designs are
// remade, rows are repaired, the company's own row is written and the keys are made anew. A second
// update changes nothing. All or nothing: a failure that must reach the user is raised and leaves the
// database as it was, and so is a dictionary that cannot be written, a walk that would lose rows, and a
// database of a newer program; a statement that merely fails is passed over. On a server definitions stand
// one by one: what fails there leaves the shape half walked (kHalfWalked), and the next walk ends it.

struct UpdateFacts {
  std::string companyCode, companyName, fromYear, toYear, mobile, dataname;
  RepairFacts repair;
  bool oneUnit = false;  // the shop wants its books to refuse a second unit for an item
};

using UpdateProgress = std::function<void(std::string_view words)>;

// Whether an item has several, which the key of ITEMDTL would forbid.
bool hasSeveralUnits(Database& db);

// The tables whose key could not be made, since rows of theirs share it. That of ITEMDTL is left out
// unless it is wanted and no item has several units.
std::vector<std::string> updateDatabase(Database& db, const UpdateFacts& facts,
                                        const UpdateProgress& progress = {});
