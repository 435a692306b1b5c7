#pragma once

#include <string>

#include "store/database.h"

// What the law has a sale bill be called, and say, beside what its kind does; empty where it asks for
// nothing.
struct SupplyWords {
  std::string title;     // of what is no tax invoice
  std::string sentence;  // of a composition dealer
  bool reverse = false;  // the buyer owes the tax
};

// `company` is the row of COMP_DET.
SupplyWords supplyWords(Database& db, const Row& company, double number);
