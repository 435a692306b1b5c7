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

// What is said of exports, of supplies to a special economic zone and of a place of supply beyond the party's
// state, on bills and notes.
struct ExportWords {
  std::string endorsement;  // with the shipping bill
  std::string currency;     // the amount in the bill's currency
  double place = 0;         // state code; 0: the party's
};
// `line` is any line of the voucher as GSTBLPRN has it.
ExportWords exportWords(Database& db, const Row& line, const std::string& book, double number);

// `company` is the row of COMP_DET.
SupplyWords supplyWords(Database& db, const Row& company, double number);
