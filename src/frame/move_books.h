#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "frame/companies.h"
#include "store/copy_books.h"

// A company's way from files to a server and back. A company goes whole: all its years, compared with what
// they were copied from, then its rows of the catalogue. Whoever is killed in between leaves the books where
// they stood, and the same may be done again. Failures are DatabaseError.

// A company in the files of a folder whose books stand on a server (store/place.h).
struct FileCompany {
  std::string code{}, name{};
  std::vector<CompanyYear> years{};
};

// Those of the folder's file comp.mdb whose books are there and may go to the server: years that its
// catalogue lacks, of codes that are nobody else's there. None in a folder of files.
std::vector<FileCompany> companiesInFiles(Database& catalogue, const std::filesystem::path& folder);

struct Moved {
  std::vector<std::string> kept{};        // the files, put aside: "M00126_moved.mdb"
  std::vector<std::string> withoutKey{};  // tables that the server cannot give their key: "M00126 ACCOUNT"
};
Moved moveToServer(Database& catalogue, const std::filesystem::path& folder, const FileCompany& company,
                   const CopyProgress& progress);
// A file that was on its way when its program was killed stands where it belongs again.
void endMoves(Database& catalogue, const std::filesystem::path& folder);

// All years of the company into files of another folder, beside its comp.mdb, which is made or gets their
// rows. Refuses a folder that belongs to a server or that has such books.
void copyFromServer(Database& catalogue, const std::string& code, const std::filesystem::path& into,
                    const CopyProgress& progress);
