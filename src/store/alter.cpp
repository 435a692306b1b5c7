#include "store/alter.h"

#include <algorithm>

#include "base/text.h"
#include "store/row_writer.h"

namespace {

// The data of old books, or a key, may forbid the new shape.
constexpr Because kKeepsItsShape{.reason = "the column keeps its shape", .strangersShape = true};

constexpr const char *building = "_being_altered", *aside = "_set_aside";

struct NewColumn {
  Column column;
  std::string source;  // expression over the old table
};

std::vector<NewColumn> asTheyStand(const std::vector<Column>& columns) {
  std::vector<NewColumn> plan;
  for (const auto& column : columns) plan.push_back({.column = column, .source = quotedName(column.name)});
  return plan;
}

std::string converted(const Column& from, const Column& to) {
  const std::string name = quotedName(from.name);
  const bool toNumber = to.kind == Column::Kind::number || to.kind == Column::Kind::whole;
  if (to.kind == Column::Kind::text && from.kind == Column::Kind::date)
    return "CASE WHEN ISDATE(" + name + ") THEN SHOWN(" + name + ", 'dd/mmm/yyyy') ELSE " + name + " END";
  if (to.kind == Column::Kind::text) return "NUMTEXT(" + name + ")";
  if (toNumber && from.kind == Column::Kind::text) return "CAST(TRIM(" + name + ") AS NUMERIC)";
  if (to.kind == Column::Kind::date && from.kind == Column::Kind::text)
    return "CASE WHEN ISDATE(" + name + ") THEN SHOWN(" + name + ", 'yyyy-mm-dd') ELSE " + name + " END";
  return name;
}

// A text is tested as it stands, a number or date in the form that it takes as a text.
bool dataFits(Database& db, const std::string& table, const Column& from, const Column& to) {
  const std::string name = quotedName(from.name);
  const std::string tested = from.kind == Column::Kind::text ? name : converted(from, to);
  auto rows = db.query("SELECT DISTINCT " + tested + " FROM main." + quotedName(table) + " WHERE " + name +
                       " IS NOT NULL");
  while (rows.next())
    if (!fitting(to, rows.value(0))) return false;
  return true;
}

// Views name this table and others; the engine would check them all at the renaming.
class WithoutViewChecks {
 public:
  explicit WithoutViewChecks(Database& db) : db_(db) { db_.exec("PRAGMA legacy_alter_table = ON"); }
  ~WithoutViewChecks() {
    try {
      db_.exec("PRAGMA legacy_alter_table = OFF");
    } catch (const DatabaseError&) {
      // The engine is beyond help; what failed first is already on its way.
    }
  }
  WithoutViewChecks(const WithoutViewChecks&) = delete;
  WithoutViewChecks& operator=(const WithoutViewChecks&) = delete;

 private:
  Database& db_;
};

// "CREATE INDEX x ON CAL" would land on the TEMP double of a work table.
std::string inTheFile(const std::string& indexStatement) {
  const auto at = upper(indexStatement).find(" INDEX ") + std::string_view(" INDEX ").size();
  return indexStatement.substr(0, at) + "main." + indexStatement.substr(at);
}

std::vector<std::string> indexStatements(Database& db, const std::string& table) {
  std::vector<std::string> statements;
  for (auto rows = db.query("SELECT sql FROM main.sqlite_master WHERE type = 'index' AND sql IS NOT NULL"
                            " AND tbl_name = ? COLLATE NOCASE",
                            table);
       rows.next();)
    statements.push_back(inTheFile(rows.text(0)));
  return statements;
}

void rebuild(Database& db, const std::string& table, const std::vector<NewColumn>& plan) {
  const WithoutViewChecks unchecked(db);
  Transaction all(db);
  const auto indexes = indexStatements(db, table);
  std::vector<Column> columns;
  std::string names = "rowid";
  std::string sources = "rowid";
  for (const auto& next : plan) {
    columns.push_back(next.column);
    names += ", " + quotedName(next.column.name);
    sources += ", " + next.source;
  }
  const std::string temporary = quotedName(table + building);
  const std::string standing = "main." + quotedName(table);
  db.exec(createTableStatement("main." + temporary, columns));
  db.exec("INSERT INTO main." + temporary + " (" + names + ") SELECT " + sources + " FROM " + standing +
          " ORDER BY rowid");
  db.exec("DROP TABLE " + standing);
  db.exec("ALTER TABLE main." + temporary + " RENAME TO " + quotedName(table));
  for (const auto& index : indexes) db.exec(index);
  all.commit();
}

bool tryChanges(Database& db, const std::string& table, const std::vector<Column>& changed) {
  auto plan = asTheyStand(tableColumns(db, table));
  for (auto& next : plan) {
    const auto change = std::find_if(changed.begin(), changed.end(),
                                     [&](const Column& c) { return sameText(c.name, next.column.name); });
    if (change == changed.end()) continue;
    next.source = converted(next.column, *change);
    next.column.definition = change->definition;
  }
  return db
      .attempt(kKeepsItsShape,
               [&] {
                 rebuild(db, table, plan);
                 return 0;
               })
      .done;
}

}  // namespace

std::vector<Column> tableColumns(Database& db, std::string_view table) {
  return declaredColumns(
      db.text("SELECT sql FROM main.sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE", table));
}

std::string createTableStatement(std::string_view quotedTable, const std::vector<Column>& columns) {
  std::string statement = "CREATE TABLE " + std::string(quotedTable) + " (";
  for (size_t i = 0; i < columns.size(); ++i)
    statement += (i == 0 ? "" : ", ") + quotedName(columns[i].name) + " " + columns[i].definition;
  return statement + ")";
}

SetAside setAside(Database& db, const std::string& table) {
  const WithoutViewChecks unchecked(db);
  const std::string standing = "main." + quotedName(table), old = quotedName(table + aside);
  const auto columns = tableColumns(db, table);
  SetAside result{.table = "main." + old, .indexes = indexStatements(db, table)};
  db.exec("ALTER TABLE " + standing + " RENAME TO " + old);
  db.exec(createTableStatement(standing, columns));
  return result;
}

void dropSetAside(Database& db, const SetAside& old) {
  db.exec("DROP TABLE " + old.table);
  for (const std::string& index : old.indexes) db.exec(index);
}

void alterColumns(Database& db, const std::string& table, const std::vector<Column>& changed) {
  std::vector<Column> possible;
  for (const auto& from : tableColumns(db, table))
    for (const auto& to : changed)
      if (sameText(from.name, to.name) && dataFits(db, table, from, to)) possible.push_back(to);
  if (possible.empty() || tryChanges(db, table, possible) || possible.size() == 1) return;
  for (const auto& column : possible) tryChanges(db, table, {column});
}

void dropColumn(Database& db, const std::string& table, const std::string& column) {
  auto plan = asTheyStand(tableColumns(db, table));
  std::erase_if(plan, [&](const NewColumn& next) { return sameText(next.column.name, column); });
  if (plan.empty()) return;
  db.passOver(kKeepsItsShape, [&] { rebuild(db, table, plan); });
}
