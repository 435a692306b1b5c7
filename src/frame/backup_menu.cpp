#include "frame/backup_menu.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/text.h"
#include "base/words.h"
#include "frame/backup.h"
#include "frame/companies.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "frame/together.h"
#include "store/place.h"
#include "store/safe_file.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kDone = english("Mirav Information");
constexpr const char* kConfirm = english("Mirav Confirmation Message");

fs::path folder() { return backupFolder(session().mbackuppath, session().mapppath); }

// None while no books are open.
std::optional<fs::path> secondFolder() {
  const Session& s = session();
  const std::string named = s.cndata ? settingOf(*s.cndata, kSecondFolder) : "";
  if (named.empty()) return {};
  return backupFolder(named, s.mapppath);
}

// Where a folder on a disk that is not plugged in were made, the copy would land beside the disk.
void requireFolder(const fs::path& second) {
  std::error_code ignored;
  if (!fs::is_directory(second, ignored))
    throw DatabaseError(
        DatabaseError::Kind::other, {},
        words("{folder} Is Not There :: Is Its Disk Plugged In ?", "folder", second.string()));
}

// The copies that were made, in the first folder and in the second; each failure has been told.
std::vector<fs::path> backUp(Host& host, BackupKind kind) {
  std::vector<fs::path> made;
  const std::string stamp = MakeStamp(host);
  const auto makeIn = [&](const fs::path& place) {
    made.push_back(makeBackup(data(), catalogue(), place, session().mdataname, stamp, kind));
  };
  if (const std::string failure = failureOf(host, [&] { makeIn(folder()); }); !failure.empty())
    host.message(words("Backup Not Done\r\n{why}", "why", words(failure)), kMessageTitle);
  const auto second = secondFolder();
  if (!second) return made;
  const std::string failure = failureOf(host, [&] {
    requireFolder(*second);
    makeIn(*second);
  });
  if (failure.empty()) return made;
  std::string told = words("Second Backup Not Done\r\n{why}", "why", words(failure));
  if (!made.empty()) told += "\r\n" + words("The First Stands In {folder}", "folder", folder().string());
  host.message(told, kMessageTitle);
  return made;
}

std::vector<fs::path> places() {
  std::vector<fs::path> all{folder()};
  if (const auto second = secondFolder()) all.push_back(*second);
  all.emplace_back(session().mapppath);
  return all;
}

// A bare name stands in the backup folder, or beside the books, where the replaced ones are.
fs::path named(const std::string& typed) {
  fs::path name = typed.find('\\') == std::string::npos ? typed : typed.substr(typed.rfind('\\') + 1);
  if (!name.has_extension()) name += ".mdb";
  for (const fs::path& place : places())
    if (backupExists(place / name)) return place / name;
  return folder() / name;
}

std::string factsText(const BackupFacts& facts) {
  const std::string company = facts.company.empty() ? words("Without Company Details") : facts.company;
  std::string text =
      words(facts.bills == 1 ? english("{company} :: {count} Bill") : english("{company} :: {count} Bills"),
            "company", company, "count", std::to_string(facts.bills));
  if (facts.last) text += words(" :: Last Of {date}", "date", formatDate(*facts.last, "dd/MMM/yyyy"));
  if (facts.newer) text += "\r\n" + words("It Was Made By A Newer Program");
  return text;
}

// Whether the person wants the file in the place of the books.
bool agreed(Host& host, const fs::path& file, const std::string& standing) {
  const Session& s = session();
  if (!backupExists(file)) {
    host.message(words("Backup Not Found\r\n{file}", "file", file.string()), kMessageTitle);
    return false;
  }
  const BackupFacts facts = factsOf(file);
  const std::string name = file.filename().string();
  if (!belongsTo(facts, file, s.mdataname, standing)) {
    host.message(words("{file} Is Not A Backup Of {books}\r\n{facts}", "file", name, "books", s.mdataname,
                       "facts", factsText(facts)),
                 kMessageTitle);
    return false;
  }
  return host.ask({.text = words("Do You Want To Restore {file}\r\n{facts}\r\nIn Place Of {books}", "file",
                                 name, "facts", factsText(facts), "books", s.mdbfile),
                   .title = kConfirm,
                   .yes = english("&Yes, Restore"),
                   .no = english("&No, Keep These Books"),
                   .loses = true});
}

// The backup that a person chooses for the session's company-year; `standing` is what its books
// were saved under.
std::optional<fs::path> chosen(Host& host, const std::string& standing) {
  const Session& s = session();
  std::vector<std::string> backups;
  for (const fs::path& place : places())
    if (backups.empty()) backups = backupsOf(place, s.mdataname);
  const auto given =
      host.input(words("Type Name Of Backup To Restore \r\nIn Place Of {books}", "books", s.mdbfile),
                 kConfirm, backups.empty() ? "" : backups.back());
  if (!given || trim(*given).empty()) return {};
  const fs::path file = named(trim(*given));
  if (!agreed(host, file, standing)) return {};
  return file;
}

struct Told {
  bool done;
  std::string text;
};

// The company-year's file is closed meanwhile; `alone` are its books on a server.
Told exchange(Host& host, const fs::path& file, Database* alone) {
  fs::path kept;
  const std::string failure =
      failureOf(host, [&] { kept = restoreBackup(file, session().mdbpath, MakeStamp(host), alone); });
  if (!failure.empty()) return {false, words("Restore Not Done\r\n{why}", "why", words(failure))};
  if (kept.empty()) return {true, english("Restore Done")};
  return {true,
          words("Restore Done\r\nThe Replaced Books Are Kept In {file}", "file", kept.filename().string())};
}

}  // namespace

bool backUpNow(Host& host) {
  const auto made = backUp(host, BackupKind::Asked);
  if (made.empty()) return false;
  std::vector<std::string> names;
  for (const fs::path& copy : made) names.push_back(copy.string());
  host.message(words("Backup Done\r\n{file}", "file", join(names, "\r\n")), kDone);
  return true;
}

void backUpAtExit(Host& host) {
  if (!session().mbackupflag) return;
  const auto made = backUp(host, BackupKind::Exit);
  const int kept = std::max(1, settingNumber(data(), kBackupsKept));
  for (const fs::path& copy : made)
    keepLatest(copy.parent_path(), session().mdataname, static_cast<size_t>(kept), copy);
}

bool restoreNow(Host& host) {
  Session& s = session();
  try {
    const auto file = chosen(host, savedUnder(data()));
    if (!file) return false;
    std::unique_ptr<Database> books;  // goes behind the hold
    HoldBooks alone(host, data(), english("Restore"), HoldBooks::Till::Alone);
    if (!alone) return false;
    books = std::move(s.cndata);
    const bool server = onServer(books->file());
    if (!server) books->close();
    const Told told = exchange(host, *file, server ? books.get() : nullptr);
    books->close();
    if (!openCompanyYear({s.mcompid, s.mcompname, s.mfromyr, s.mtoyr}).empty())
      throw DatabaseError(DatabaseError::Kind::missing, s.mdbfile, {});
    host.message(told.text, told.done ? kDone : kMessageTitle);
    return true;
  } catch (const std::exception& error) {
    tellFailure(host, error);
  }
  // Without books there is nothing to go on with.
  if (!s.cndata) host.quit();
  return false;
}

bool offerRestore(Host& host) {
  try {
    if (backupsOf(folder(), session().mdataname).empty()) return false;
    const auto file = chosen(host, {});
    if (!file) return false;
    const Told told = exchange(host, *file, nullptr);
    host.message(told.text, told.done ? kDone : kMessageTitle);
    return told.done;
  } catch (const std::exception& error) {
    tellFailure(host, error);
  }
  return false;
}
