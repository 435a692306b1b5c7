#include "store/backup.h"

#include <string>
#include <utility>
#include <vector>

#include "store/engine.h"
#include "store/safe_file.h"

namespace {

// Keeps other programs from storing between the copying and the counting.
class ReadLock {
 public:
  explicit ReadLock(Database& db) : db_(db) {
    db_.exec("BEGIN");
    try {
      db_.number("SELECT COUNT(*) FROM main.sqlite_master");
    } catch (...) {
      end();
      throw;
    }
  }
  ~ReadLock() { end(); }
  ReadLock(const ReadLock&) = delete;
  ReadLock& operator=(const ReadLock&) = delete;

 private:
  void end() noexcept {
    try {
      db_.exec("ROLLBACK");
    } catch (const std::exception&) {
      // Nothing was written that could be lost.
    }
  }
  Database& db_;
};

using RowCounts = std::vector<std::pair<std::string, double>>;

RowCounts rowCounts(Database& db) {
  RowCounts counts;
  for (const auto& table : db.all("SELECT name FROM main.sqlite_master WHERE type = 'table' ORDER BY name"))
    counts.emplace_back(table.text(0), standingRows(db, table.text(0)));
  return counts;
}

// A copy of a damaged file is damaged too: what is wrong is the source.
void verify(Database& source, const std::filesystem::path& copy) {
  using Kind = DatabaseError::Kind;
  std::string found;
  try {
    Database read;
    read.open(copy, Access::readOnly);
    found = damageIn(read);
    if (found.empty() && rowCounts(read) != rowCounts(source)) found = "The copy holds other rows.";
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::damaged && error.kind() != Kind::notDatabase) throw;
    found = error.what();
  }
  if (!found.empty()) throw DatabaseError(Kind::damaged, shownName(source.file()), found);
}

}  // namespace

void backUpDatabase(Database& source, const std::filesystem::path& to) {
  buildBeside(to, [&](const std::filesystem::path& making) {
    const ReadLock same(source);
    source.copyPages(making);
    verify(source, making);
  });
}
