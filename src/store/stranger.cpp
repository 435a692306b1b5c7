#include "store/stranger.h"

#include <algorithm>

#include "base/text.h"
#include "store/dictionary.h"
#include "store/engine.h"

namespace {

bool standsForTable(const std::string& view) {
  const auto tables = declaredTables();
  return sameText(view, "USER1") ||
         std::ranges::any_of(tables, [&](const std::string& table) { return sameText(table, view); });
}

}  // namespace

std::string strangerIn(Database& db) {
  for (auto rows =
           db.query("SELECT UPPER(type), name FROM main.sqlite_master WHERE type IN ('trigger', 'view')"
                    " OR sql LIKE 'CREATE VIRTUAL %'");
       rows.next();)
    if (rows.text(0) != "VIEW" || standsForTable(rows.text(1))) return rows.text(0) + " " + rows.text(1);
  constexpr int kWorkedOut = 2;  // and 3, where the result is stored
  if (const auto column =
          db.first("SELECT tables.name || '.' || columns.name FROM main.sqlite_master AS tables,"
                   " pragma_table_xinfo(tables.name, 'main') AS columns"
                   " WHERE tables.type = 'table' AND columns.hidden >= ?",
                   kWorkedOut))
    return "COLUMN " + column->text(0);
  // The engine looks at conditions, defaults and indexes when a row is about to be written.
  for (const std::string& table : db.engine().tables())
    if (!db.understands("INSERT INTO " + db.engine().standing(table) + " DEFAULT VALUES"))
      return "TABLE " + table;
  return {};
}
