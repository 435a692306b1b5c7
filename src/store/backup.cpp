#include "store/backup.h"

#include <string>
#include <utility>
#include <vector>

#include "store/engine.h"
#include "store/safe_file.h"

namespace {

using RowCounts = std::vector<std::pair<std::string, double>>;

RowCounts rowCounts(Database& db) {
  RowCounts counts;
  for (const std::string& table : db.engine().tables()) counts.emplace_back(table, standingRows(db, table));
  return counts;
}

// A copy of a damaged file is damaged too: what is wrong is the source.
void verify(Database& source, const std::filesystem::path& copy) {
  using Kind = DatabaseError::Kind;
  std::string found;
  try {
    Database read;
    read.openFile(copy, Access::readOnly);
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
    // Others store nothing between the copying and the counting.
    const Transaction same(source, Transaction::Writes::WorkTables);
    source.engine().tables();
    source.engine().copyInto(making);
    verify(source, making);
  });
}
