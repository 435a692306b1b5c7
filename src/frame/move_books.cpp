#include "frame/move_books.h"

#include <algorithm>
#include <list>
#include <system_error>

#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/place.h"
#include "store/row_writer.h"
#include "store/safe_file.h"
#include "store/server_books.h"
#include "store/templates.h"

namespace fs = std::filesystem;

namespace {

constexpr const char *kMoving = "_moving", *kMoved = "_moved";

[[noreturn]] void refuse(const std::string& sentence) {
  throw DatabaseError(DatabaseError::Kind::other, DatabaseError::Told(sentence));
}

fs::path catalogueFile(const fs::path& folder) { return folder / "comp.mdb"; }

void giveName(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) throw fileError(from, error);
}

// The name for what is kept, which earlier ones may bear.
fs::path keptName(const fs::path& file) {
  fs::path kept = besideBooks(file, kMoved);
  for (int n = 2; fileExists(kept); ++n) kept = besideBooks(file, kMoved + std::to_string(n));
  return kept;
}

void copyRow(Database& from, Database& to, const CompanyYear& year) {
  const auto row = from.first("SELECT * FROM compny WHERE COMP_ID = ? AND FROMYR = ? ORDER BY rowid LIMIT 1",
                              year.code, year.from);
  if (!row)
    refuse(words("{code} {year} Is No Company Of The Catalogue", "code", year.code, "year", year.from));
  Fields fields;
  for (int i = 0; i < row->count(); ++i) fields.push_back({row->name(i), row->value(i)});
  insertRow(to, "compny", fields);
}

void makeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw fileError(folder, error);
}

}  // namespace

std::vector<FileCompany> companiesInFiles(Database& catalogue, const fs::path& folder) {
  std::vector<FileCompany> found;
  if (!onServer(catalogue.file()) || !isPlainFile(catalogueFile(folder))) return found;
  Database files;
  files.openFile(catalogueFile(folder), Access::readOnly);
  if (!CheckTable(files, "compny")) return found;
  for (const CompanyYear& year : companyYears(files)) {
    const auto there = yearsOf(catalogue, year.code);
    const bool another =
        std::ranges::any_of(there, [&](const CompanyYear& y) { return !sameText(y.name, year.name); });
    if (another || companyYear(catalogue, year.code, year.from) || !isPlainFile(dataFile(folder, year)))
      continue;
    if (found.empty() || !sameText(found.back().code, year.code))
      found.push_back({.code = year.code, .name = year.name});
    found.back().years.push_back(year);
  }
  return found;
}

Moved moveToServer(Database& catalogue, const fs::path& folder, const FileCompany& company,
                   const CopyProgress& progress) {
  Moved moved;
  Database files;
  files.openFile(catalogueFile(folder), Access::readOnly);
  std::list<BooksInMaking> made;
  for (const CompanyYear& year : company.years) {
    const fs::path file = dataFile(folder, year);
    Database from;
    from.openFile(file);
    if (!from.firstUser()) throw DatabaseError(DatabaseError::Kind::locked, shownName(file), {});
    if (!isCompanyYear(from)) throw DatabaseError(DatabaseError::Kind::notDatabase, shownName(file), {});
    const std::string stem = file.stem().string();
    made.emplace_back(file, [&](Database& to) {
      for (const std::string& table : copyBooks(from, to, [&](const std::string&table, double rows) {
             if (progress) progress(stem + " :: " + table, rows);
           }))
        moved.withoutKey.push_back(stem + " " + table);
    });
  }
  auto books = made.begin();
  for (const CompanyYear& year : company.years) (books++)->putInPlace(freeName(dataFile(folder, year)));
  // Out of everybody's reach before the server's row says that the books are there.
  for (const CompanyYear& year : company.years)
    giveName(dataFile(folder, year), besideBooks(dataFile(folder, year), kMoving));
  try {
    whole(catalogue, [&] {
      for (const CompanyYear& year : company.years) copyRow(files, catalogue, year);
    });
  } catch (...) {
    endMoves(catalogue, folder);
    throw;
  }
  for (const CompanyYear& year : company.years) {
    const fs::path file = dataFile(folder, year), kept = keptName(file);
    giveName(besideBooks(file, kMoving), kept);
    moved.kept.push_back(kept.filename().string());
  }
  return moved;
}

void endMoves(Database& catalogue, const fs::path& folder) {
  std::vector<fs::path> left;
  std::error_code error;
  const std::string ending = std::string(kMoving) + ".mdb";
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error))
    if (each->path().filename().string().ends_with(ending)) left.push_back(each->path());
  for (const fs::path& moving : left) {
    const std::string name = moving.filename().string();
    const fs::path file = folder / (name.substr(0, name.size() - ending.size()) + ".mdb");
    const auto years = companyYears(catalogue);
    const bool there = onServer(file) && std::ranges::any_of(years, [&](const CompanyYear& y) {
                         return sameText(dataStem(y.code, y.from), file.stem().string());
                       });
    if (there || !fileExists(file)) giveName(moving, there ? keptName(file) : file);
  }
}

void copyFromServer(Database& catalogue, const std::string& code, const fs::path& into,
                    const CopyProgress& progress) {
  if (onServer(catalogueFile(into)))
    refuse(words("{folder} Belongs To A Server :: Choose Another Folder", "folder", into.string()));
  const auto years = yearsOf(catalogue, code);
  for (const CompanyYear& year : years)
    if (const fs::path file = dataFile(into, year); fileExists(file))
      refuse(words("{file} Stands There Already :: Choose Another Folder", "file", file.string()));
  makeFolder(into);
  if (!fileExists(catalogueFile(into))) makeCatalogue(catalogueFile(into));
  Database files;
  files.openFile(catalogueFile(into));
  for (const CompanyYear& year : years) {
    if (companyYear(files, year.code, year.from))
      refuse(words("{folder} Has A Company {code} :: Choose Another Folder", "folder", into.string(), "code",
                   code));
    Database from;
    from.open(dataFile(catalogue.file().parent_path(), year));
    const std::string stem = dataStem(year.code, year.from);
    buildBeside(dataFile(into, year), [&](const fs::path& making) {
      Database to;
      to.openFile(making, Access::create);
      copyBooks(from, to, [&](const std::string& table, double rows) {
        if (progress) progress(stem + " :: " + table, rows);
      });
    });
  }
  whole(files, [&] {
    for (const CompanyYear& year : years) copyRow(catalogue, files, year);
  });
}
