#include "base/text.h"
#include "store/sqlite_connection.h"

// The shape of a file: tables, columns, indexes, views.

namespace {

constexpr const char *building = "_being_altered", *aside = "_set_aside";

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

std::string createTableStatement(std::string_view quotedTable, const std::vector<Column>& columns) {
  std::string statement = "CREATE TABLE " + std::string(quotedTable) + " (";
  for (size_t i = 0; i < columns.size(); ++i)
    statement += (i == 0 ? "" : ", ") + quotedName(columns[i].name) + " " + columns[i].definition;
  return statement + ")";
}

std::string createIndexStatement(const IndexShape& index) {
  return std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " + index.name + " ON " +
         index.table + " (" + index.columns + ")" + (index.rows.empty() ? "" : " WHERE " + index.rows);
}

}  // namespace

std::vector<std::string> SqliteEngine::tables() {
  std::vector<std::string> names;
  for (auto rows = face_.query("SELECT name FROM main.sqlite_master WHERE type = 'table'"
                               " AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
       rows.next();)
    names.push_back(rows.text(0));
  return names;
}

bool SqliteEngine::hasTable(std::string_view name) {
  return face_
      .first(
          "SELECT 1 FROM main.sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"
          " AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'",
          name)
      .has_value();
}

std::vector<Column> SqliteEngine::tableColumns(std::string_view table) {
  return declaredColumns(face_.text(
      "SELECT sql FROM main.sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE", table));
}

std::vector<Column> SqliteEngine::columnsHere(std::string_view table) {
  const std::string here = face_.text(
      "SELECT sql FROM temp.sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE", table);
  return here.empty() ? tableColumns(table) : declaredColumns(here);
}

std::string SqliteEngine::standing(std::string_view table) const { return "main." + quotedName(table); }

double SqliteEngine::standingRows(std::string_view table) {
  return face_.number("SELECT COUNT(*) FROM " + standing(table));
}

void SqliteEngine::createTable(const std::string& table, const std::vector<Column>& columns) {
  face_.exec(createTableStatement(standing(table), columns));
}

void SqliteEngine::addColumn(const std::string& table, const Column& column) {
  face_.exec("ALTER TABLE " + standing(table) + " ADD COLUMN " + quotedName(column.name) + " " +
             column.definition);
}

void SqliteEngine::dropTable(const std::string& table) { face_.exec("DROP TABLE " + standing(table)); }

void SqliteEngine::makeWorkTable(const std::string& table, const std::vector<Column>& columns) {
  const std::string name = "temp." + quotedName(table);
  face_.exec("DROP TABLE IF EXISTS " + name);
  face_.exec(createTableStatement(name, columns));
}

void SqliteEngine::indexWorkTable(const std::string& table, const std::string& columns) {
  face_.exec("CREATE INDEX IF NOT EXISTS temp." + table + "_INDEX ON " + table + " (" + columns + ")");
}

void SqliteEngine::makeList(const std::string& name, const std::string& select) {
  face_.exec("CREATE TABLE temp." + name + " AS " + select);
}

void SqliteEngine::dropList(const std::string& name) { face_.exec("DROP TABLE IF EXISTS temp." + name); }

std::vector<std::string> SqliteEngine::indexStatements(const std::string& table) {
  std::vector<std::string> statements;
  for (auto rows = face_.query("SELECT sql FROM main.sqlite_master WHERE type = 'index' AND sql IS NOT NULL"
                               " AND tbl_name = ? COLLATE NOCASE",
                               table);
       rows.next();)
    statements.push_back(inTheFile(rows.text(0)));
  return statements;
}

// The engine cannot alter a column, so the table is built anew beside the old one and takes its place.
void SqliteEngine::reshape(const std::string& table, const std::vector<NewColumn>& plan) {
  const WithoutViewChecks unchecked(face_);
  Transaction all(face_);
  const auto indexes = indexStatements(table);
  std::vector<Column> columns;
  std::string names = "rowid";
  std::string sources = "rowid";
  for (const auto& next : plan) {
    columns.push_back(next.column);
    names += ", " + quotedName(next.column.name);
    sources += ", " + next.source;
  }
  const std::string made = table + building;
  createTable(made, columns);
  face_.exec("INSERT INTO " + standing(made) + " (" + names + ") SELECT " + sources + " FROM " +
             standing(table) + " ORDER BY rowid");
  dropTable(table);
  face_.exec("ALTER TABLE " + standing(made) + " RENAME TO " + quotedName(table));
  for (const auto& index : indexes) face_.exec(index);
  all.commit();
}

// The old rows stand aside, since pages that are written over would have to be copied first.
std::string SqliteEngine::beginRewriting(const std::string& table,
                                         std::span<const std::string_view> indexes) {
  for (const std::string_view index : indexes) dropIndex(index);
  const WithoutViewChecks unchecked(face_);
  const auto columns = tableColumns(table);
  indexesAside_ = indexStatements(table);
  face_.exec("ALTER TABLE " + standing(table) + " RENAME TO " + quotedName(table + aside));
  createTable(table, columns);
  return table;
}

void SqliteEngine::endRewriting(const std::string& table) {
  dropTable(table + aside);
  for (const std::string& index : indexesAside_) face_.exec(index);
}

bool SqliteEngine::hasIndex(std::string_view name) {
  return face_
      .first("SELECT 1 FROM main.sqlite_master WHERE type = 'index' AND name = ? COLLATE NOCASE", name)
      .has_value();
}

bool SqliteEngine::hasIndex(const IndexShape& index) {
  return face_.text("SELECT sql FROM main.sqlite_master WHERE type = 'index' AND name = ? COLLATE NOCASE",
                    index.name) == createIndexStatement(index);
}

void SqliteEngine::createIndex(const IndexShape& index) {
  face_.exec(inTheFile(createIndexStatement(index)));
}

void SqliteEngine::dropIndex(std::string_view name) {
  face_.exec("DROP INDEX IF EXISTS main." + std::string(name));
}

bool SqliteEngine::isIndexed(std::string_view table, std::string_view column) {
  return face_
      .first(
          "SELECT 1 FROM pragma_index_list(?) AS list, pragma_index_info(list.name) AS part"
          " WHERE part.seqno = 0 AND part.name = ? COLLATE NOCASE AND list.partial = 0",
          table, column)
      .has_value();
}

std::vector<std::string> SqliteEngine::views() {
  std::vector<std::string> names;
  for (auto rows = face_.query("SELECT name FROM main.sqlite_master WHERE type = 'view'"); rows.next();)
    names.push_back(rows.text(0));
  return names;
}

void SqliteEngine::createView(const std::string& name, const std::string& select) {
  face_.exec("CREATE VIEW " + standing(name) + " AS " + select);
}

void SqliteEngine::dropView(const std::string& name) { face_.exec("DROP VIEW " + standing(name)); }

std::string SqliteEngine::sumWhere(std::string_view figure, std::string_view condition) {
  return "SUM(" + std::string(figure) + ") FILTER (WHERE " + std::string(condition) + ")";
}

int SqliteEngine::shapeVersion() { return static_cast<int>(face_.number("PRAGMA main.user_version")); }

void SqliteEngine::stampShape(int version) {
  face_.exec("PRAGMA main.user_version = " + std::to_string(version));
}
