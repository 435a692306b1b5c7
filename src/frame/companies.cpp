#include "frame/companies.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/backup.h"
#include "frame/number_series.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "frame/together.h"
#include "store/dictionary.h"
#include "store/lock_file.h"
#include "store/place.h"
#include "store/safe_file.h"
#include "store/server_books.h"
#include "store/server_operators.h"
#include "store/templates.h"
#include "store/together.h"

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

// What a crash may have left beside the file.
fs::path journalOf(const fs::path& file) { return file.string() + "-journal"; }

constexpr const char* kGoingOnServer = "_deleted";

fs::path goingName(const fs::path& books) {
  return onServer(books) ? besideBooks(books, kGoingOnServer) : fs::path(books.string() + kGoing);
}

// A file keeps its journal, without which it may not be whole.
void moveFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (fileExists(journalOf(from))) fs::rename(journalOf(from), journalOf(to), error);
  if (!error) fs::rename(from, to, error);
  if (error) throw fileError(from, error);
}

void moveBooks(const fs::path& from, const fs::path& to) {
  return onServer(from) || onServer(to) ? renameOnServer(from, to) : moveFile(from, to);
}

// Nobody else has the books open, nor can open them as long as this stands.
class Alone {
 public:
  explicit Alone(const fs::path& books) {
    if (!onServer(books))
      lock_ = LockFile(books, LockFile::Hold::Alone);
    else if (standsOnServer(books))
      hold(books);
  }
  explicit operator bool() const { return alone_ && lock_.alone(); }

 private:
  void hold(const fs::path& books) {
    books_.openOnServer(books);
    try {
      held_.emplace(books_, english("Company Deletion"));
    } catch (const DatabaseError& error) {
      if (error.kind() != DatabaseError::Kind::locked) throw;
      logFailure(kTold, error);
      alone_ = false;
    }
  }

  LockFile lock_;
  Database books_;
  std::optional<BooksAlone> held_;
  bool alone_ = true;
};

CompanyYear asStored(const CompanyYear& typed) {
  const double year = Val(typed.from);
  return {trim(typed.code), trim(typed.name), numText(year), numText(year + 1)};
}

fs::path templateFile(const fs::path& folder, CreateBy by) {
  return folder / (by == CreateBy::Enter ? "SMPL.MDB" : "BLNK.MDB");
}

bool sameBytes(const fs::path& a, const fs::path& b) {
  std::error_code ignored;
  if (!isPlainFile(a) || !isPlainFile(b)) return false;
  if (fs::file_size(a, ignored) != fs::file_size(b, ignored)) return false;
  using Bytes = std::istreambuf_iterator<char>;
  std::ifstream first(a, std::ios::binary), second(b, std::ios::binary);
  return std::equal(Bytes(first), Bytes(), Bytes(second), Bytes());
}

// New books' own year is their period, and their exits make backups.
void beginBooks(Database& db, const CompanyYear& which) {
  const std::chrono::year first{static_cast<int>(Val(which.from))};
  whole(db, [&] {
    db.passOver(kOlderBooks,
                [&] { StorePeriod(db, first / 4 / 1, (first + std::chrono::years(1)) / 3 / 31); });
    db.passOver(kOlderBooks, "UPDATE SPSFILE SET VOUCH_QTY = 1 WHERE VOUCH_NO = 234");
  });
}

// What the shop has set for its latest year before this one goes on.
void takeLastSettings(Database& db, const std::optional<fs::path>& before) {
  if (!before || !booksExist(*before)) return;
  try {
    Database earlier;
    earlier.open(*before, Access::readOnly);
    whole(db, [&] {
      takeSettings(db, earlier);
      takeSeries(db, earlier);
    });
  } catch (const DatabaseError& error) {
    if (error.kind() == DatabaseError::Kind::full) throw;
    logFailure("passed over: the settings are as delivered", error);
  }
}

// A new copy that a crash has left is worth nothing; anything else may be somebody's books.
void beginFile(const fs::path& file, const CompanyYear& which, const fs::path& from,
               const std::optional<fs::path>& before) {
  buildBeside(file, [&](const fs::path& making) {
    copyFile(from, making);
    Database db;
    db.open(making);
    if (!isCompanyYear(db))
      throw DatabaseError(DatabaseError::Kind::notDatabase, from.filename().string(), {});
    beginBooks(db, which);
    takeLastSettings(db, before);
    db.close();
    if (fileExists(file) && !sameBytes(making, file)) moveFile(file, freeName(file));
  });
}

void beginOnServer(const fs::path& books, const CompanyYear& which, const std::optional<fs::path>& before) {
  BooksInMaking(books, [&](Database& db) {
    fillCompanyDatabase(db);
    beginBooks(db, which);
    takeLastSettings(db, before);
  }).putInPlace(freeName(books));
}

void begin(const fs::path& books, const CompanyYear& which, const fs::path& from,
           const std::optional<fs::path>& before) {
  return onServer(books) ? beginOnServer(books, which, before) : beginFile(books, which, from, before);
}

std::optional<fs::path> lastBooks(Database& catalogue, const fs::path& folder, const CompanyYear& wanted) {
  std::optional<CompanyYear> last;
  for (const CompanyYear& year : yearsOf(catalogue, wanted.code))
    if (Val(year.from) < Val(wanted.from) && (!last || Val(year.from) > Val(last->from))) last = year;
  if (!last) return {};
  return dataFile(folder, *last);
}

// Those that operators have in the last year of the company's name, which may bear another code.
void takeRights(Database& catalogue, const CompanyYear& made) {
  try {
    const auto before = catalogue.first(
        "SELECT COMP_ID FROM compny WHERE COMP_NAME = ? AND COMP_ID <> ? ORDER BY FROMYR DESC, rowid DESC "
        "LIMIT 1",
        made.name, made.code);
    if (before) giveSameRights(catalogue, before->text(0), made.code);
  } catch (const DatabaseError& error) {
    logFailure("passed over: rights are given under Operators too", error);
  }
}

Deletion mayGo(Database& catalogue, const CompanyYear& which) {
  if (!catalogue.first("SELECT 1 FROM compny WHERE COMP_ID = ? AND FROMYR = ? AND TOYR = ?", which.code,
                       which.from, which.to))
    return Deletion::NoRow;
  return catalogue.number("SELECT COUNT(*) FROM compny") < 2 ? Deletion::LastOne : Deletion::Done;
}

Deletion deleteRow(Database& catalogue, const CompanyYear& which) {
  return whole(catalogue, [&] {
    const Deletion outcome = mayGo(catalogue, which);
    if (outcome == Deletion::Done)
      catalogue.exec("DELETE FROM compny WHERE COMP_ID = ? AND FROMYR = ? AND TOYR = ?", which.code,
                     which.from, which.to);
    return outcome;
  });
}

fs::path backUpBefore(Database& catalogue, const fs::path& file, const std::string& stamp) {
  Database year;
  if (onServer(file))
    year.openOnServer(goingName(file));
  else
    year.openFile(goingName(file));
  if (!isCompanyYear(year)) throw DatabaseError(DatabaseError::Kind::notDatabase, shownName(file), {});
  std::string named;
  year.passOver(kOlderBooks, [&] { named = year.text("SELECT VOUCH_NM FROM SPSFILE WHERE VOUCH_NO = 234"); });
  return makeBackup(year, catalogue, backupFolder(named, file.parent_path()), file.stem().string(), stamp,
                    BackupKind::Asked);
}

void removeWithJournal(const fs::path& file) {
  std::error_code ignored;  // the file bears no company's name any more
  fs::remove(file, ignored);
  fs::remove(journalOf(file), ignored);
}

// In-use marks that a crash has left behind. Books that cannot be written to, which every save
// will tell, can be read all the same.
void clearMarks(Database& year) {
  using Kind = DatabaseError::Kind;
  try {
    const std::string set =
        " WHERE VOUCH_NO BETWEEN 221 AND 226 AND (VOUCH_FLAG IS NULL OR VOUCH_FLAG <> '0')";
    year.passOver({"the mark decides nothing"}, [&] {
      if (year.first("SELECT 1 FROM SPSFILE" + set)) year.exec("UPDATE SPSFILE SET VOUCH_FLAG = '0'" + set);
    });
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::full && error.kind() != Kind::readOnly && error.kind() != Kind::io &&
        error.kind() != Kind::denied)
      throw;
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

void openCatalogue(Database& catalogue, const fs::path& folder) {
  const fs::path books = folder / "comp.mdb";
  if (onServer(books) && !booksExist(books)) BooksInMaking(books, fillCatalogue).putInPlace(freeName(books));
  catalogue.open(books);
  if (!CheckTable(catalogue, "compny"))
    throw DatabaseError(DatabaseError::Kind::notDatabase, books.filename().string(), {});
}

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

fs::path dataFile(const fs::path& folder, const CompanyYear& which) {
  const std::string stem = dataStem(which.code, which.from);
  const auto plain = [](unsigned char ch) { return ch < 128 && std::isalnum(ch); };
  if (!std::ranges::all_of(stem, plain))
    throw DatabaseError(DatabaseError::Kind::other, {},
                        words("{code} Is No Company Code\r\nLetters And Digits Only", "code", stem));
  return folder / (stem + ".mdb");
}

fs::path freeName(const fs::path& books) {
  fs::path aside;
  int n = 0;
  do aside = besideBooks(books, "_old" + std::to_string(++n));
  while (onServer(books) ? standsOnServer(aside) : fileExists(aside));
  return aside;
}

std::string nextCompanyCode(Database& catalogue) {
  double n = 1;
  for (auto codes = catalogue.query("SELECT COMP_ID FROM compny WHERE COMP_ID LIKE 'M_%'"); codes.next();) {
    const std::string number = codes.text(0).substr(1);
    if (number.find_first_not_of("0123456789") == std::string::npos) n = std::max(n, Val(number) + 1);
  }
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
  if (!onServer(dataFile(folder, wanted)) && !fileExists(templateFile(folder, by)))
    return words("Template {file} Not Found", "file", templateFile(folder, by).filename().string());
  return {};
}

void createCompanyYear(Database& catalogue, const fs::path& folder, const CompanyYear& typed, CreateBy by,
                       const std::string& mobile) {
  using Kind = DatabaseError::Kind;
  const CompanyYear wanted = asStored(typed);
  const fs::path file = dataFile(folder, wanted);
  const Alone alone(file);
  if (!alone) throw DatabaseError(Kind::locked, file.filename().string(), {});
  bool made = false;
  try {
    // Begun before the file is made, so that of two programs only one makes it.
    whole(catalogue, [&] {
      if (companyYear(catalogue, wanted.code, wanted.from))
        throw DatabaseError(Kind::constraint, file.filename().string(), kTaken);
      if (!made) begin(file, wanted, templateFile(folder, by), lastBooks(catalogue, folder, wanted));
      made = true;
      catalogue.exec(
          "INSERT INTO compny (COMP_ID, COMP_NAME, FROMYR, TOYR, MOBNOCO, DATANM, DATASENT)"
          " VALUES (?, ?, ?, ?, ?, ?, 'N')",
          wanted.code, wanted.name, wanted.from, wanted.to, mobile, dataStem(wanted.code, wanted.from));
    });
  } catch (...) {
    if (made && !onServer(file)) takeBack(catalogue, wanted, file);
    throw;
  }
  if (mayMakeOperators(catalogue)) takeRights(catalogue, wanted);
}

std::string renameCompany(Database& catalogue, const CompanyYear& row, const std::string& by,
                          const std::string& shown) {
  const std::string name = cut(upper(by), 100);
  return whole(catalogue, [&]() -> std::string {
    if (const auto other = catalogue.first("SELECT COMP_ID FROM compny WHERE COMP_NAME = ? AND COMP_ID <> ?",
                                           name, row.code))
      return words("{name} Is The Name Of {code}", "name", name, "code", other->text(0));
    catalogue.exec("UPDATE compny SET COMP_NAME = ? WHERE COMP_ID = ? AND FROMYR = ?", name, row.code,
                   row.from);
    catalogue.exec("UPDATE compny SET DATASENT = 'N' WHERE COMP_NAME = ? AND COMP_ID = ? AND FROMYR = ?",
                   shown, row.code, row.from);
    return {};
  });
}

Deleted deleteCompanyYear(Database& catalogue, const fs::path& folder, const CompanyYear& which,
                          const std::string& stamp) {
  const fs::path file = dataFile(folder, which), going = goingName(file);
  const Alone alone(file);
  if (!alone) return {Deletion::InUse};
  Deleted result{mayGo(catalogue, which)};
  if (result.outcome != Deletion::Done) return result;
  // Out of reach under its other name; who is killed from here on leaves it to endDeletions.
  const bool there = booksExist(file);
  if (there) moveBooks(file, going);
  const auto back = [&] {
    if (there) moveBooks(going, file);
  };
  try {
    if (there) result.backup = backUpBefore(catalogue, file, stamp);
    result.outcome = deleteRow(catalogue, which);
  } catch (...) {
    back();
    throw;
  }
  if (result.outcome != Deletion::Done)
    back();
  else if (onServer(file))
    dropOnServer(going);
  else
    removeWithJournal(going);
  return result;
}

void endDeletions(Database& catalogue, const fs::path& folder) {
  const auto named = [&](const fs::path& books) {
    return std::ranges::any_of(companyYears(catalogue), [&](const CompanyYear& y) {
      return sameText(dataStem(y.code, y.from), books.stem().string());
    });
  };
  if (onServer(catalogue.file())) {
    for (const fs::path& going : booksOnServer(folder, kGoingOnServer)) {
      const std::string stem = going.stem().string();
      const fs::path books =
          folder / (stem.substr(0, stem.size() - std::string_view(kGoingOnServer).size()) + ".mdb");
      if (!nobodyIn(going)) continue;  // another program is about it
      if (named(books) && !booksExist(books))
        moveBooks(going, books);
      else
        dropOnServer(going);
    }
    return;
  }
  std::vector<fs::path> left;
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
    const std::string name = each->path().filename().string(), mark = std::string(".mdb") + kGoing;
    for (const std::string& ending : {mark, mark + "-journal"})
      if (name.ends_with(ending))
        left.push_back(folder / (name.substr(0, name.size() - ending.size()) + ".mdb"));
  }
  for (const fs::path& file : left) {
    const LockFile lock(file, LockFile::Hold::Alone);
    if (!lock.alone()) continue;                     // another program is about it
    const bool half = !fileExists(goingName(file));  // killed behind the journal
    if (!named(file) || (fileExists(file) && !half))
      removeWithJournal(goingName(file));
    else if (half)
      fs::rename(journalOf(goingName(file)), journalOf(file), error);
    else
      moveFile(goingName(file), file);
  }
}

std::string openCompanyYear(const CompanyYear& which) {
  Session& s = session();
  const fs::path file = dataFile(s.mapppath, which);
  s.mdataname = file.stem().string();
  s.mdbfile = file.filename().string();
  s.mdbpath = file.string();
  s.mfromyr = trim(which.from);
  s.mtoyr = trim(which.to);
  // Its file bears another name while it is being deleted.
  if (!onServer(file) && LockFile(file).refused())
    throw DatabaseError(DatabaseError::Kind::locked, s.mdbfile, {});
  if (!booksExist(file)) return english("Company Data Not Found");

  auto opened = std::make_unique<Database>();
  opened->open(s.mdbpath);
  if (const auto other = opened->engine().heldBy(); other && other->hold == Hold::Shuts)
    throw DatabaseError(DatabaseError::Kind::locked, DatabaseError::Told(holdWords(*other)));
  if (!isCompanyYear(*opened)) throw DatabaseError(DatabaseError::Kind::notDatabase, s.mdbfile, {});
  RemakeWorkTables(*opened);
  if (onServer(file)) ensureViews(*opened);
  if (opened->firstUser()) s.mfirstuser = true;
  // Whoever was first at the catalogue may find others in these books.
  if (opened->firstUser() && CheckTable(*opened, "SPSFILE")) clearMarks(*opened);
  s.cndata = std::move(opened);

  s.mcompname = which.name;
  s.mcompid = which.code;
  s.myr2 = right(which.from, 2);
  s.myrpair = s.myr2 + right(which.to, 2);
  // Nothing of other books stays where a row of these is blank; the period is a constant until the
  // settings give the true one.
  static_cast<Settings&>(s) = {
      .mstartdt = Date{std::chrono::year{2023}, std::chrono::April, std::chrono::day{1} },
      .menddt = Date{std::chrono::year{2034}, std::chrono::March, std::chrono::day{31}}
  };
  return {};
}
