#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "store/database.h"

// The catalogue of company-years, table compny of comp.mdb: one row and one database file
// (M00124.mdb) for each company and financial year.

struct CompanyYear {
  std::string code{};  // COMP_ID, "M001"
  std::string name{};
  std::string from{}, to{};  // four-digit years
};

// In the order of the codes, the latest year first; with a search text only those whose name contains it.
std::vector<CompanyYear> companyYears(Database& catalogue, const std::string& search = {});
// Those of one company, in the order in which the store returns them.
std::vector<CompanyYear> yearsOf(Database& catalogue, const std::string& code);
std::optional<CompanyYear> companyYear(Database& catalogue, const std::string& code, const std::string& from);

// The data file's name without extension: "M00124".
std::string dataStem(const std::string& code, const std::string& from);

// "M00" or "M0" and the number after that of the last row; nothing for an empty catalogue.
std::optional<std::string> nextCompanyCode(Database& catalogue);

// The two doors to a new company-year differ in their bounds, words and template.
enum class CreateBy { Enter, Button };

// Why the company-year must not be created, in words; empty when it may.
std::string creationRefusal(Database& catalogue, const std::filesystem::path& folder,
                            const CompanyYear& typed, CreateBy by);
// The data file first, then the row that names it: whatever fails in between leaves at most a
// file that no row names, and the next creation of that year takes its place. Books found in
// such a file are kept beside under another name (M00326_old1.mdb). Raises DatabaseError.
void createCompanyYear(Database& catalogue, const std::filesystem::path& folder, const CompanyYear& typed,
                       CreateBy by, const std::string& mobile);

// Changes the name in one year only. `shown` is the name as it stands in the screen's field.
void renameCompany(Database& catalogue, const std::string& old, const std::string& by,
                   const std::string& shown, const std::string& from);
// The row and its data file, both or none. An open data file is deleted by nobody: false, and
// nothing has changed. Raises DatabaseError.
bool deleteCompanyYear(Database& catalogue, const std::filesystem::path& folder, const CompanyYear& which);

// Opens the company-year as the session's and fills the session's members of it. Returns
// the words to show when there is no data file; raises DatabaseError when it cannot be opened
// or is no company-year.
std::string openCompanyYear(const CompanyYear& which);
