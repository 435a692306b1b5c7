#include "frame/backup.h"

#include <algorithm>
#include <regex>
#include <system_error>

#include "base/text.h"
#include "base/words.h"
#include "frame/together.h"
#include "frame/voucher_kinds.h"
#include "platform/whole_file.h"
#include "store/backup.h"
#include "store/copy_books.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/lock_file.h"
#include "store/place.h"
#include "store/safe_file.h"
#include "store/server_books.h"
#include "store/templates.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kFolder = "BACKUP";
constexpr const char* kOfExit = "_exit";
constexpr bool kDriveLetters = fs::path::preferred_separator == '\\';

bool isForeign(const std::string& path) {
  const bool drive = path.size() > 1 && path[1] == ':';
  return !kDriveLetters && (drive || path.find('\\') != std::string::npos);
}

// "M00125_260615_1030_exit" taken apart; `again` counts the copies of one minute from 1.
struct Name {
  std::string stamp;
  int again = 1;
  bool exit = false;
  auto operator<=>(const Name&) const = default;
};

std::string written(const std::string& dataname, const Name& name) {
  return dataname + "_" + name.stamp + (name.again > 1 ? "_" + std::to_string(name.again) : "") +
         (name.exit ? kOfExit : "");
}

std::optional<Name> readName(const std::string& file, const std::string& dataname) {
  static const std::regex form(R"((\d{6}_\d{4})(_(\d{1,4}))?(_exit)?\.mdb)");
  if (!startsWithNoCase(file, dataname + "_")) return {};
  std::smatch parts;
  const std::string rest = file.substr(dataname.size() + 1);
  if (!std::regex_match(rest, parts, form)) return {};
  return Name{parts[1], parts[3].matched ? std::stoi(parts[3]) : 1, parts[4].matched};
}

struct Found {
  Name name;
  std::string file;
};

std::vector<Found> findBackups(const fs::path& folder, const std::string& dataname) {
  std::vector<Found> found;
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
    const std::string file = each->path().filename().string();
    if (const auto name = readName(file, dataname)) found.push_back({*name, file});
  }
  std::ranges::sort(found, {}, &Found::name);
  return found;
}

fs::path catalogueCopy(const fs::path& copy) {
  return copy.parent_path() / (copy.stem().string() + "_comp.mdb");
}

// A file, or what a restore has put aside on a server.
void openBackup(Database& db, const fs::path& backup) {
  if (isPlainFile(backup) || !onServer(backup.parent_path() / "comp.mdb"))
    db.openFile(backup, Access::readOnly);
  else
    db.openOnServer(backup, Access::readOnly);
}

void exchangeOnServer(Database& source, Database& books, const fs::path& aside) {
  const BooksAlone alone(books, english("Restore"));
  BooksInMaking made(books.file(), [&](Database& db) {
    copyBooks(source, db, [&](const auto&, double) { alone.goesOn(); });
  });
  alone.look();
  // Before, so that a program which was asleep since writes nothing whenever this one is killed.
  books.engine().areExchanged();
  made.putInPlace(aside);
}

// Of a path on a drive that is not there no part is made: the copies would land elsewhere.
void ensureFolder(const fs::path& folder) {
  std::error_code error, ignored;
  if (fs::is_directory(folder, ignored)) return;
  if (fileExists(folder))
    throw DatabaseError(DatabaseError::Kind::other, {},
                        words("{file} is a file and no folder.", "file", folder.string()));
  fs::create_directory(folder, error);
  if (error) throw DatabaseError(fileError(folder, error).kind(), folder.string(), error.message());
}

}  // namespace

fs::path backupFolder(const std::string& named, const fs::path& program) {
  const std::string path = trim(named);
  if (path.empty() || path == ".") return program / kFolder;
  if (!isForeign(path)) return program / path;  // an absolute path stands by itself
  const auto parts = split(replaceAll(path, "\\", "/"), "/");
  const auto last = std::find_if(parts.rbegin(), parts.rend(), [](const std::string& part) {
    return !trim(part).empty() && part.find(':') == std::string::npos;
  });
  return program / (last == parts.rend() ? kFolder : upper(trim(*last)));
}

std::string folderRefusal(const fs::path& folder, std::uintmax_t bytes) {
  constexpr std::uintmax_t kMegabyte = 1 << 20;
  try {
    ensureFolder(folder);
    const std::uintmax_t free = fs::space(folder).available;
    if (free < bytes)
      return words("{folder} Has Room For {free} MB :: A Backup Needs {needed} MB", "folder", folder.string(),
                   "free", std::to_string(free / kMegabyte), "needed", std::to_string(bytes / kMegabyte + 1));
    WholeFile probe((folder / "probe.tmp").string());
    probe.write(std::string(kMegabyte, ' '));
    return {};
  } catch (const std::exception& error) {
    return words("{folder} Takes No Backup\r\n{why}", "folder", folder.string(), "why", words(error.what()));
  }
}

std::vector<std::string> backupsOf(const fs::path& folder, const std::string& dataname) {
  std::vector<std::string> names;
  for (const Found& f : findBackups(folder, dataname)) names.push_back(f.file);
  return names;
}

fs::path makeBackup(Database& year, Database& catalogue, const fs::path& folder, const std::string& dataname,
                    const std::string& stamp, BackupKind kind) {
  ensureFolder(folder);
  Name name{.stamp = stamp, .exit = kind == BackupKind::Exit};
  fs::path copy;
  LockFile mine;  // two programs may make one in the same minute
  for (bool taken = true; taken; ++name.again) {
    copy = folder / (written(dataname, name) + ".mdb");
    mine = LockFile(copy, LockFile::Hold::Alone);
    taken = !mine.alone() || fileExists(copy);
  }
  // The catalogue first: a company-year's copy is only found once both stand.
  backUpDatabase(catalogue, catalogueCopy(copy));
  try {
    backUpDatabase(year, copy);
  } catch (...) {
    std::error_code ignored;
    fs::remove(catalogueCopy(copy), ignored);
    throw;
  }
  return copy;
}

void keepLatest(const fs::path& folder, const std::string& dataname, size_t kept, const fs::path& made) {
  auto found = findBackups(folder, dataname);
  std::erase_if(found, [&](const Found& f) { return !f.name.exit || f.file == made.filename(); });
  std::error_code ignored;  // one that cannot go now goes another time
  for (size_t i = 0; i + kept < found.size() + 1; ++i) {
    fs::remove(folder / found[i].file, ignored);
    fs::remove(catalogueCopy(folder / found[i].file), ignored);
  }
}

std::string savedUnder(Database& db) {
  for (const char* sql : {"SELECT DATANM FROM COMP_DET", "SELECT DATANM FROM COMPNY"}) {
    std::string name;
    db.passOver(kOlderBooks, [&] { name = trim(db.text(sql)); });
    if (length(name) > 1) return name;
  }
  return {};
}

bool backupExists(const fs::path& backup) {
  return fileExists(backup) || (onServer(backup.parent_path() / "comp.mdb") && standsOnServer(backup));
}

BackupFacts factsOf(const fs::path& file) {
  using Kind = DatabaseError::Kind;
  Database db;
  openBackup(db, file);
  if (!isCompanyYear(db)) throw DatabaseError(Kind::notDatabase, file.filename().string(), {});
  if (const std::string found = damageIn(db); !found.empty())
    throw DatabaseError(Kind::damaged, file.filename().string(), found);
  BackupFacts facts{.dataname = savedUnder(db), .newer = shapeVersion(db) > kShapeVersion};
  db.passOver(kOlderBooks, [&] { facts.company = db.text("SELECT COMPNM FROM COMP_DET"); });
  db.passOver(kOlderBooks, [&] {
    if (const auto row =
            db.first("SELECT COUNT(*), MAX(VOUCH_DT) FROM SALE WHERE BOOK_CD = ?", saleKind().code)) {
      facts.bills = static_cast<int>(row->number(0));
      facts.last = row->date(1);
    }
  });
  return facts;
}

bool belongsTo(const BackupFacts& facts, const fs::path& file, const std::string& dataname,
               const std::string& standing) {
  if (facts.dataname.empty()) return startsWithNoCase(file.filename().string(), dataname);
  return sameText(facts.dataname, dataname) || sameText(facts.dataname, standing);
}

fs::path restoreBackup(const fs::path& backup, const fs::path& database, const std::string& stamp,
                       Database* alone) {
  const bool server = onServer(database);
  const LockFile lock = server ? LockFile() : LockFile(database, LockFile::Hold::Alone);
  if (!lock.alone()) throw DatabaseError(DatabaseError::Kind::locked, database.filename().string(), {});
  Database source;
  openBackup(source, backup);
  const std::string stem = database.stem().string();
  Name name{.stamp = stamp};
  fs::path aside;
  do aside = database.parent_path() / (written(stem, name) + "_replaced.mdb");
  while ((server ? standsOnServer(aside) : fileExists(aside)) && ++name.again > 1);
  const bool replaces = booksExist(database);
  if (server) {
    Database own;  // of books that are gone too, so that two programs do not bring them back at once
    if (!alone) own.openOnServer(database, replaces ? Access::readWrite : Access::create);
    exchangeOnServer(source, alone ? *alone : own, aside);
    return replaces ? aside.stem() : fs::path();
  }
  if (replaces) copyDatabase(database, aside);
  backUpDatabase(source, database);
  return replaces ? aside : fs::path();
}
