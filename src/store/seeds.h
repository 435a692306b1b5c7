#pragma once

#include <string>

#include "store/database.h"

// The rows without which a company-year cannot work: settings, account groups, system accounts,
// the three GST heads and the print designs. Each routine adds what is missing and leaves what
// stands, so it also repairs a database; a table that is missing must be tested by the caller
// (CheckTable). A failing statement is passed over.

// What the settings rows of SPSFILE give the session, by their names there.
struct Settings {
  std::string msalesac{};
  std::string msalesdiscac{};
  std::string msalechargeac{};
  std::string msalestaxac{};
  std::string mroundac{};
  std::string mcashac{};
  Date mstartdt{};
  Date menddt{};
  std::string mbackuppath{};
  bool mbackupflag = false;
  int mbillformat = 0;
  int mquotformat = 0;
  int mchlnformat = 0;
};

// Reads the settings, adding the missing rows with their seed. The start date of the period is
// read into new rows as it stands at that moment.
void EnsureSettings(Database& db, Settings& settings);
// The first and last day into their rows. Raises DatabaseError.
void StorePeriod(Database& db, Date first, Date last);
void EnsureAccounts(Database& db);
bool isSeededAccount(std::string_view code);
// A group of this code is deleted each time.
inline constexpr int kPassingGroup = 31;
// Group 33 and any group named "INDIRECT EXPENSES" are deleted and added again each time.
void EnsureGroups(Database& db);
void EnsureTaxes(Database& db);
void EnsureDesigns(Database& db);
