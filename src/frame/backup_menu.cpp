#include "frame/backup_menu.h"

#include <optional>

#include "base/text.h"
#include "frame/backup.h"
#include "frame/companies.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "store/safe_file.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kDone = "Mirav Information";
constexpr const char* kConfirm = "Mirav Confirmation Message";
constexpr size_t kKeptOfExit = 10;

fs::path folder() { return backupFolder(session().mbackuppath, session().mapppath); }

// The copy's path, or nothing after a failure, which has been told.
fs::path backUp(Host& host, BackupKind kind) {
  fs::path copy;
  const std::string failure = failureOf(host, [&] {
    copy = makeBackup(data(), catalogue(), folder(), session().mdataname, MakeStamp(host), kind);
  });
  if (!failure.empty()) host.message("Backup Not Done\r\n" + failure, kMessageTitle);
  return copy;
}

// A bare name stands in the backup folder, or beside the books, where the replaced ones are.
fs::path named(const std::string& typed) {
  fs::path name = typed.find('\\') == std::string::npos ? typed : typed.substr(typed.rfind('\\') + 1);
  if (!name.has_extension()) name += ".mdb";
  for (const fs::path& place : {folder(), fs::path(session().mapppath)})
    if (fileExists(place / name)) return place / name;
  return folder() / name;
}

std::string factsText(const BackupFacts& facts) {
  std::string text = facts.company.empty() ? "Without Company Details" : facts.company;
  text += " :: " + std::to_string(facts.bills) + (facts.bills == 1 ? " Bill" : " Bills");
  if (facts.last) text += " :: Last Of " + formatDate(*facts.last, "dd/MMM/yyyy");
  return text;
}

// Whether the person wants the file in the place of the books.
bool agreed(Host& host, const fs::path& file, const std::string& standing) {
  const Session& s = session();
  if (!fileExists(file)) {
    host.message("Backup Not Found\r\n" + file.string(), kMessageTitle);
    return false;
  }
  const BackupFacts facts = factsOf(file);
  const std::string name = file.filename().string();
  if (!belongsTo(facts, file, s.mdataname, standing)) {
    host.message(name + " Is Not A Backup Of " + s.mdataname + "\r\n" + factsText(facts), kMessageTitle);
    return false;
  }
  return host.ask(
      "Do You Want To Restore " + name + "\r\n" + factsText(facts) + "\r\nIn Place Of " + s.mdbfile,
      kConfirm);
}

// The backup that a person chooses for the session's company-year; `standing` is what its books
// were saved under.
std::optional<fs::path> chosen(Host& host, const std::string& standing) {
  const Session& s = session();
  const auto backups = backupsOf(folder(), s.mdataname);
  const auto given = host.input("Type Name Of Backup To Restore \r\nIn Place Of " + s.mdbfile, kConfirm,
                                backups.empty() ? "" : backups.back());
  if (!given || trim(*given).empty()) return {};
  const fs::path file = named(trim(*given));
  if (!agreed(host, file, standing)) return {};
  return file;
}

struct Words {
  std::string text, title;
};

// The company-year's file is closed meanwhile.
Words exchange(Host& host, const fs::path& file) {
  fs::path kept;
  const std::string failure =
      failureOf(host, [&] { kept = restoreBackup(file, session().mdbpath, MakeStamp(host)); });
  if (!failure.empty()) return {"Restore Not Done\r\n" + failure, kMessageTitle};
  if (kept.empty()) return {"Restore Done", kDone};
  return {"Restore Done\r\nThe Replaced Books Are Kept In " + kept.filename().string(), kDone};
}

}  // namespace

bool backUpNow(Host& host) {
  const fs::path copy = backUp(host, BackupKind::Asked);
  if (copy.empty()) return false;
  host.message("Backup Done\r\n" + copy.string(), kDone);
  return true;
}

void backUpAtExit(Host& host) {
  if (!session().mbackupflag) return;
  if (!backUp(host, BackupKind::Exit).empty()) keepLatest(folder(), session().mdataname, kKeptOfExit);
}

bool restoreNow(Host& host) {
  Session& s = session();
  try {
    const auto file = chosen(host, savedUnder(data()));
    if (!file) return false;
    s.cndata.reset();
    const Words words = exchange(host, *file);
    if (!openCompanyYear({s.mcompid, s.mcompname, s.mfromyr, s.mtoyr}).empty())
      throw DatabaseError(DatabaseError::Kind::missing, s.mdbfile, {});
    host.message(words.text, words.title);
    return true;
  } catch (const std::exception& error) {
    host.message(error.what(), kMessageTitle);
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
    const Words words = exchange(host, *file);
    host.message(words.text, words.title);
    return words.title == kDone;
  } catch (const std::exception& error) {
    host.message(error.what(), kMessageTitle);
  }
  return false;
}
