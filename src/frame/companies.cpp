#include "frame/companies.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <system_error>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "store/dictionary.h"
#include "store/lock_file.h"
#include "store/safe_file.h"
#include "store/templates.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kTaken = english("year and company Already Exists");

CompanyYear read(const Rows& row) {
  return {row.text("COMP_ID"), row.text("COMP_NAME"), row.text("FROMYR"), row.text("TOYR")};
}

std::vector<CompanyYear> readAll(Rows rows) {
  std::vector<CompanyYear> years;
  while (rows.next()) years.push_back(read(rows));
  return years;
}

// A typed search text is a literal part of the name.
std::string containing(const std::string& text) {
  std::string escaped;
  for (const char ch : text) {
    if (ch == '%' || ch == '_' || ch == '\\') escaped += '\\';
    escaped += ch;
  }
  return "%" + escaped + "%";
}

fs::path dataFile(const fs::path& folder, const CompanyYear& which) {
  return folder / (dataStem(which.code, which.from) + ".mdb");
}

// What a crash may have left beside the file.
fs::path journalOf(const fs::path& file) { return file.string() + "-journal"; }

// A file keeps its journal, without which it may not be whole.
void moveFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (fileExists(journalOf(from))) fs::rename(journalOf(from), journalOf(to), error);
  if (!error) fs::rename(from, to, error);
  if (error) throw fileError(from, error);
}

CompanyYear asStored(const CompanyYear& typed) {
  const double year = Val(typed.from);
  return {trim(typed.code), trim(typed.name), numText(year), numText(year + 1)};
}

fs::path templateFile(const fs::path& folder, CreateBy by) {
  return folder / (by == CreateBy::Enter ? "SMPL.MDB" : "BLNK.MDB");
}

bool sameBytes(const fs::path& a, const fs::path& b) {
  std::error_code ignored;
  if (fs::file_size(a, ignored) != fs::file_size(b, ignored)) return false;
  using Bytes = std::istreambuf_iterator<char>;
  std::ifstream first(a, std::ios::binary), second(b, std::ios::binary);
  return std::equal(Bytes(first), Bytes(), Bytes(second), Bytes());
}

// A copy of a template that a crash has left is worth nothing; anything else may be somebody's books.
void putAside(const fs::path& file, const fs::path& folder) {
  if (!fileExists(file)) return;
  for (const CreateBy by : {CreateBy::Enter, CreateBy::Button})
    if (sameBytes(file, templateFile(folder, by))) return;
  fs::path aside;
  int n = 0;
  do aside = folder / (file.stem().string() + "_old" + std::to_string(++n) + ".mdb");
  while (fileExists(aside));
  moveFile(file, aside);
}

bool opensAsCompanyYear(const fs::path& file) {
  Database db;
  db.open(file, Access::readOnly);
  return isCompanyYear(db);
}

// In-use marks that a crash has left behind. Books that cannot be written to, which every save
// will tell, can be read all the same.
void clearMarks(Database& year) {
  using Kind = DatabaseError::Kind;
  try {
    for (const int mark : {221, 222, 223, 224, 225, 226})
      year.passOver({"the mark decides nothing"},
                    "UPDATE SPSFILE SET VOUCH_FLAG = 0 WHERE VOUCH_NO = ? AND VOUCH_FLAG IS NOT 0", mark);
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::full && error.kind() != Kind::readOnly && error.kind() != Kind::io) throw;
    logFailure("passed over: the books can be read", error);
  }
}

// A new data file goes again, unless the catalogue may name it after all.
void takeBack(Database& catalogue, const CompanyYear& which, const fs::path& file) noexcept {
  try {
    if (companyYear(catalogue, which.code, which.from)) return;
    std::error_code ignored;
    fs::remove(file, ignored);
  } catch (const std::exception&) {
    // A file without a row does no harm.
  }
}

std::string yearRefusal(const std::string& year, CreateBy by) {
  const double y = Val(year);
  const bool whole = y == std::floor(y);
  if (by == CreateBy::Enter) {
    if (whole && y >= 2020 && y < 2035) return {};
    return english(
        "Year Entered is not Valid\r\n"
        "Please Enter Year in 4 Digit Format E.G. 2024\r\n"
        "You Can Enter Year Between 2020 and 2034");
  }
  if (trim(year).empty()) return english("Enter Valid Year");
  return whole && y >= 2000 && y <= 2050 ? "" : english("Year Entered is not Valid");
}

}  // namespace

std::vector<CompanyYear> companyYears(Database& catalogue, const std::string& search) {
  if (search.empty())
    return readAll(
        catalogue.query("SELECT COMP_ID, COMP_NAME, FROMYR, TOYR FROM compny ORDER BY COMP_ID, FROMYR DESC"));
  return readAll(
      catalogue.query("SELECT COMP_ID, COMP_NAME, FROMYR, TOYR FROM compny"
                      " WHERE COMP_NAME LIKE ? ESCAPE '\\' ORDER BY COMP_ID, FROMYR DESC",
                      containing(search)));
}

std::vector<CompanyYear> yearsOf(Database& catalogue, const std::string& code) {
  return readAll(catalogue.query(
      "SELECT COMP_ID, COMP_NAME, FROMYR, TOYR FROM compny WHERE COMP_ID = ? ORDER BY rowid", code));
}

std::optional<CompanyYear> companyYear(Database& catalogue, const std::string& code,
                                       const std::string& from) {
  const auto found =
      readAll(catalogue.query("SELECT COMP_ID, COMP_NAME, FROMYR, TOYR FROM compny"
                              " WHERE COMP_ID = ? AND FROMYR = ? ORDER BY rowid LIMIT 1",
                              code, from));
  if (found.empty()) return {};
  return found.front();
}

std::string dataStem(const std::string& code, const std::string& from) {
  return trim(code) + trim(right(trim(from), 2));
}

std::optional<std::string> nextCompanyCode(Database& catalogue) {
  const auto last = catalogue.first("SELECT COMP_ID FROM compny ORDER BY COMP_ID DESC LIMIT 1");
  if (!last) return {};
  const double n = Val(right(last->text(0), 3)) + 1;
  return (n < 10 ? "M00" : "M0") + numText(n);
}

std::string creationRefusal(Database& catalogue, const fs::path& folder, const CompanyYear& typed,
                            CreateBy by) {
  if (trim(typed.name).empty())
    return english("Company Name Can Not Be Blank\r\nType Company Name and Press Enter");
  if (std::string refusal = yearRefusal(typed.from, by); !refusal.empty()) return refusal;
  const CompanyYear wanted = asStored(typed);
  // A year that was renamed is no duplicate by its name, but its books must not be written over.
  if (catalogue.first("SELECT 1 FROM compny WHERE COMP_NAME = ? AND FROMYR = ?", wanted.name, wanted.from) ||
      companyYear(catalogue, wanted.code, wanted.from))
    return kTaken;
  if (!fileExists(templateFile(folder, by)))
    return words("Template {file} Not Found", "file", templateFile(folder, by).filename().string());
  return {};
}

void createCompanyYear(Database& catalogue, const fs::path& folder, const CompanyYear& typed, CreateBy by,
                       const std::string& mobile) {
  using Kind = DatabaseError::Kind;
  const CompanyYear wanted = asStored(typed);
  const fs::path file = dataFile(folder, wanted);
  const LockFile lock(file);
  if (!lock.alone()) throw DatabaseError(Kind::locked, file.filename().string(), {});
  bool made = false;
  try {
    // Begun before the file is made, so that of two programs only one makes it.
    Transaction row(catalogue);
    if (companyYear(catalogue, wanted.code, wanted.from))
      throw DatabaseError(Kind::constraint, file.filename().string(), kTaken);
    putAside(file, folder);
    copyDatabase(templateFile(folder, by), file);
    made = true;
    if (!opensAsCompanyYear(file))
      throw DatabaseError(Kind::notDatabase, templateFile(folder, by).filename().string(), {});
    catalogue.exec(
        "INSERT INTO compny (COMP_ID, COMP_NAME, FROMYR, TOYR, MOBNOCO, DATANM, DATASENT)"
        " VALUES (?, ?, ?, ?, ?, ?, 'N')",
        wanted.code, wanted.name, wanted.from, wanted.to, mobile, dataStem(wanted.code, wanted.from));
    row.commit();
  } catch (...) {
    if (made) takeBack(catalogue, wanted, file);
    throw;
  }
}

void renameCompany(Database& catalogue, const std::string& old, const std::string& by,
                   const std::string& shown, const std::string& from) {
  Transaction both(catalogue);
  catalogue.exec("UPDATE compny SET COMP_NAME = ? WHERE COMP_NAME = ? AND FROMYR = ?", cut(upper(by), 100),
                 old, from);
  catalogue.exec("UPDATE compny SET DATASENT = 'N' WHERE COMP_NAME = ? AND FROMYR = ?", shown, from);
  both.commit();
}

bool deleteCompanyYear(Database& catalogue, const fs::path& folder, const CompanyYear& which) {
  const fs::path file = dataFile(folder, which);
  const fs::path going = file.string() + ".deleted";
  const LockFile lock = fileExists(file) ? LockFile(file) : LockFile();
  if (!lock.alone()) return false;
  Transaction row(catalogue);
  catalogue.exec("DELETE FROM compny WHERE COMP_ID = ? AND FROMYR = ? AND TOYR = ?", which.code, which.from,
                 which.to);
  const bool there = fileExists(file);
  if (there) moveFile(file, going);
  try {
    row.commit();
  } catch (...) {
    if (there) moveFile(going, file);
    throw;
  }
  std::error_code ignored;  // the file bears no company's name any more
  fs::remove(going, ignored);
  fs::remove(journalOf(going), ignored);
  return true;
}

std::string openCompanyYear(const CompanyYear& which) {
  Session& s = session();
  s.mdataname = dataStem(which.code, which.from);
  s.mdbfile = s.mdataname + ".mdb";
  s.mdbpath = (fs::path(s.mapppath) / s.mdbfile).string();
  s.mfromyr = trim(which.from);
  s.mtoyr = trim(which.to);
  if (!fileExists(s.mdbpath)) return english("Company Data Not Found");

  auto opened = std::make_unique<Database>();
  opened->open(s.mdbpath);
  if (!isCompanyYear(*opened)) throw DatabaseError(DatabaseError::Kind::notDatabase, s.mdbfile, {});
  RemakeWorkTables(*opened);
  if (opened->firstUser()) s.mfirstuser = true;
  if (s.mfirstuser && CheckTable(*opened, "SPSFILE")) clearMarks(*opened);
  s.cndata = std::move(opened);

  s.mcompname = which.name;
  s.mcompid = which.code;
  s.myr2 = right(which.from, 2);
  s.myrpair = s.myr2 + right(which.to, 2);
  // Constants until the settings give the true period.
  s.mstartdt = Date{std::chrono::year{2023}, std::chrono::April, std::chrono::day{1}};
  s.menddt = Date{std::chrono::year{2034}, std::chrono::March, std::chrono::day{31}};
  return {};
}
