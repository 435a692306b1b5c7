#pragma once

#include <filesystem>
#include <string>

// Writes GSTR-1 and GSTR-3B of a period ("102026", a quarter "Q122026", "IFF102026") into the folder's BILLS,
// and prints what they come to and what the portal would refuse, one line each, columns split by |. The books
// are those of the stem, else the first of the catalogue. Marks them as filed on the day where one is given.
// Raises std::runtime_error.
void tellReturns(const std::filesystem::path& folder, const std::string& books, const std::string& period,
                 const std::string& filedOn);
