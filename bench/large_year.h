#pragma once

#include "base/date.h"
#include "store/database.h"

// A company-year of a busy shop for measuring: parties, items, bills of three lines and
// receipts with their ledger rows, made by one statement a table. The same counts always
// make the same books. The file must hold the schema and the seeds.
struct LargeYear {
  int parties = 1000;
  int items = 500;
  int bills = 100'000;
  int receipts = 20'000;
  Date first{std::chrono::year{2026}, std::chrono::April, std::chrono::day{1}};
};

void makeLargeYear(Database& db, const LargeYear& size = {});
