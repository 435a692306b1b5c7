#include "store/backup.h"

#include <string>
#include <utility>
#include <vector>

#include "store/engine.h"
#include "store/safe_file.h"

namespace {

// A copy of a damaged file is damaged too: what is wrong is the source.
void verify(Database& source, const RowCounts& counts, const std::filesystem::path& copy) {
  using Kind = DatabaseError::Kind;
  std::string found;
  try {
    Database read;
    read.openFile(copy, Access::readOnly);
    found = damageIn(read);
    if (found.empty() && rowsOfTables(read) != counts) found = "The copy holds other rows.";
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::damaged && error.kind() != Kind::notDatabase) throw;
    found = error.what();
  }
  if (!found.empty()) throw DatabaseError(Kind::damaged, shownName(source.file()), found);
}

}  // namespace

void backUpDatabase(Database& source, const std::filesystem::path& to) {
  buildBeside(to, [&](const std::filesystem::path& making) {
    verify(source, source.engine().copyInto(making), making);
  });
}
