#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "store/database.h"

// Backups of a company-year. Each is a pair of databases in one folder: the company-year under
// its name and the moment, M00125_260615_1030.mdb, and the catalogue as it stood then,
// M00125_260615_1030_comp.mdb. One made at the exit says so: M00125_260615_1830_exit.mdb.
// Whatever fails, what stood before still stands.

enum class BackupKind { Asked, Exit };

// The folder that the settings name. A path that is foreign to the system (a drive letter where
// there are none) means a folder of its last name in the program folder, none means BACKUP.
std::filesystem::path backupFolder(const std::string& named, const std::filesystem::path& program);

// Why no backup of so many bytes can be made there, in words; empty when one can. Makes the folder where
// only its last part is missing.
std::string folderRefusal(const std::filesystem::path& folder, std::uintmax_t bytes);

// The names of the company-year's backups in the folder, the oldest first.
std::vector<std::string> backupsOf(const std::filesystem::path& folder, const std::string& dataname);

// Verified copies of both databases; `stamp` is MakeStamp's. Makes the folder where only its last
// part is missing. Returns the company-year's copy. Raises DatabaseError.
std::filesystem::path makeBackup(Database& year, Database& catalogue, const std::filesystem::path& folder,
                                 const std::string& dataname, const std::string& stamp, BackupKind kind);

// Deletes the oldest of the company-year's backups of the exit, so that with the one just made at most
// `kept` stay. That one stays whatever the clock said when it was named.
void keepLatest(const std::filesystem::path& folder, const std::string& dataname, size_t kept,
                const std::filesystem::path& made);

// The name that the open company-year's details were last saved under; empty in a new one.
std::string savedUnder(Database& year);

// A file, or on a server in the program folder's stead also books that a restore has put aside there.
bool backupExists(const std::filesystem::path& backup);

// What a person should know of a backup before it takes the place of the books.
struct BackupFacts {
  std::string company{};   // COMP_DET.COMPNM
  std::string dataname{};  // savedUnder
  int bills = 0;
  std::optional<Date> last{};  // date of the latest bill
  bool newer = false;          // shaped by a newer program
};

// Raises DatabaseError for a file that is missing, damaged or no company-year.
BackupFacts factsOf(const std::filesystem::path& file);
// Whether a file of these facts may be restored as the company-year `dataname`: it was saved under
// that name, or under the same name as the books that stand (`standing`); a new one by its own name.
bool belongsTo(const BackupFacts& facts, const std::filesystem::path& file, const std::string& dataname,
               const std::string& standing);

// Puts a verified copy of the backup in the place of the database, which nobody may have open, and
// keeps the replaced file beside under the moment's name (M00125_260615_1030_replaced.mdb), which
// is returned; nothing when there was no file. On a server the copy is a database, and so is what it replaces
// (M00125_260615_1030_replaced); `alone` are its books where this program has them open there, holding all
// others off. Raises DatabaseError.
std::filesystem::path restoreBackup(const std::filesystem::path& backup,
                                    const std::filesystem::path& database, const std::string& stamp,
                                    Database* alone = nullptr);
