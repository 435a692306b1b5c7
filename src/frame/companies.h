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
  bool operator==(const CompanyYear&) const = default;
};

// Opens the catalogue of a program folder; on a server that has none an empty one is made. Raises
// DatabaseError.
void openCatalogue(Database& catalogue, const std::filesystem::path& folder);

// In the order of the codes, the latest year first; with a search text only those whose name contains it.
std::vector<CompanyYear> companyYears(Database& catalogue, const std::string& search = {});
// Those of one company, in the order in which the store returns them.
std::vector<CompanyYear> yearsOf(Database& catalogue, const std::string& code);
std::optional<CompanyYear> companyYear(Database& catalogue, const std::string& code, const std::string& from);

// The data file's name without extension: "M00124".
std::string dataStem(const std::string& code, const std::string& from);
// Raises DatabaseError for a code or year of other signs than letters and digits, which might lead
// out of the folder.
std::filesystem::path dataFile(const std::filesystem::path& folder, const CompanyYear& which);

// A name under which books that stand in the way of others are put aside: M00326_old1.mdb.
std::filesystem::path freeName(const std::filesystem::path& books);

// "M00" or "M0" and the number after the highest of the catalogue: M001 to M099, M0100 ...
std::string nextCompanyCode(Database& catalogue);

// The two doors to a new company-year differ in their bounds, words and template.
enum class CreateBy { Enter, Button };

// Why the company-year must not be created, in words; empty when it may.
std::string creationRefusal(Database& catalogue, const std::filesystem::path& folder,
                            const CompanyYear& typed, CreateBy by);
// The data file first, then the row that names it: whatever fails in between leaves at most a
// file that no row names, and the next creation of that year takes its place. Books found in
// such a file are kept beside under another name (M00326_old1.mdb). The copy's period is its year,
// and a backup is made at its exits. Raises DatabaseError.
void createCompanyYear(Database& catalogue, const std::filesystem::path& folder, const CompanyYear& typed,
                       CreateBy by, const std::string& mobile);

// Changes the name in the row's year only. Why it may not, in words: another code has the name.
// `shown` is the name as it stands in the screen's field.
std::string renameCompany(Database& catalogue, const CompanyYear& row, const std::string& by,
                          const std::string& shown);

enum class Deletion { Done, InUse, LastOne, NoRow };
struct Deleted {
  Deletion outcome;
  std::filesystem::path backup{};  // made before; none where there was no file
};
// The row and its data file, both or none, after a verified backup named with `stamp` in the folder
// that its settings name. Raises DatabaseError.
Deleted deleteCompanyYear(Database& catalogue, const std::filesystem::path& folder, const CompanyYear& which,
                          const std::string& stamp);
// What a deletion that was killed has left: books whose row stands come back, others go.
void endDeletions(Database& catalogue, const std::filesystem::path& folder);

// Opens the company-year as the session's and fills the session's members of it. Returns
// the words to show when there is no data file; raises DatabaseError when it cannot be opened
// or is no company-year.
std::string openCompanyYear(const CompanyYear& which);
