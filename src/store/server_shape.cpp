#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "store/copy_books.h"
#include "store/dictionary.h"
#include "store/server_connection.h"
#include "store/server_statement.h"
#include "store/server_together.h"

// The shape of a database on a server. Definitions commit there what is in transaction, so that a table is
// reshaped beside the standing one, which gives way in one step.

namespace {

constexpr const char* kDateCollation = "utf8mb4_nopad_bin";
constexpr size_t kLongestKey = 3072;  // bytes, by the engine
constexpr size_t kBytesOfALetter = 4;

std::string here(const std::string& condition) { return " WHERE TABLE_SCHEMA = DATABASE() AND " + condition; }

std::string is(std::string_view column, std::string_view name) {
  return std::string(column) + " = " + serverText(lower(name));
}

// As the dictionary spells it.
std::string spelled(const std::string& table) {
  for (const std::string& declared : declaredTables())
    if (sameText(declared, table)) return declared;
  return upper(table);
}

std::string afterType(const Column& column) {
  const auto blank = column.definition.find(' ');
  return blank == std::string::npos ? "" : column.definition.substr(blank);
}

// What the declaration is on a server.
std::string serverType(const Column& column) {
  switch (column.kind) {
    case Column::Kind::text:
      return column.size > 0 ? "VARCHAR(" + std::to_string(column.size) + ")" : "TEXT";
    case Column::Kind::number:
      return "DOUBLE" + afterType(column);
    case Column::Kind::whole:
      return "INT" + afterType(column);
    case Column::Kind::date:
      return "VARCHAR(" + std::to_string(kLongestDate) + ") COLLATE " + kDateCollation;
    case Column::Kind::other:
      break;
  }
  return "VARCHAR(255)";
}

// The declaration as the dictionary writes it, of what stands.
Column declared(const std::string& name, const std::string& type, const std::string& size,
                const std::string& byDefault, const std::string& collation) {
  Column column{.name = name};
  const std::string rest = byDefault.empty() || byDefault == "NULL" ? "" : " DEFAULT " + byDefault;
  if (type == "double") {
    column.kind = Column::Kind::number;
    column.definition = "DOUBLE" + rest;
  } else if (type == "int") {
    column.kind = Column::Kind::whole;
    column.definition = "INTEGER" + rest;
  } else if (collation == kDateCollation) {
    column.kind = Column::Kind::date;
    column.definition = "DATE";
  } else {
    column.kind = Column::Kind::text;
    column.size = toInt(Val(size));
    column.definition =
        "TEXT(" + size + ") COLLATE NOCASE CHECK (LENGTH(" + quotedName(name) + ") <= " + size + ")";
  }
  return column;
}

std::vector<std::string> namesIn(const std::string& columns) {
  std::vector<std::string> names;
  for (const std::string& name : split(columns, ",")) names.push_back(upper(trim(name)));
  return names;
}

size_t bytesOf(const Column& column) {
  if (column.kind == Column::Kind::number || column.kind == Column::Kind::whole) return 9;
  const int letters = column.kind == Column::Kind::date ? kLongestDate : column.size;
  return static_cast<size_t>(letters) * kBytesOfALetter + 3;
}

}  // namespace

std::vector<std::string> ServerEngine::tables() {
  std::vector<std::string> names;
  for (const auto& row : tell("SELECT TABLE_NAME FROM information_schema.TABLES" +
                              here("TABLE_TYPE = 'BASE TABLE' ORDER BY TABLE_NAME")))
    if (!isTurnTable(row.front())) names.push_back(spelled(row.front()));
  return names;
}

bool ServerEngine::hasTable(std::string_view name) {
  const std::string key = lower(name);
  if (isTurnTable(name)) return false;
  if (known_.empty())
    for (const std::string& table : tables()) known_.insert(lower(table));
  if (known_.contains(key)) return true;
  if (missing_.contains(key)) return false;
  // Another program may have made it since.
  if (tell("SELECT 1 FROM information_schema.TABLES" +
           here(is("TABLE_NAME", name) + " AND TABLE_TYPE = 'BASE TABLE'"))
          .empty()) {
    missing_.insert(key);
    return false;
  }
  known_.insert(key);
  return true;
}

std::vector<Column> ServerEngine::tableColumns(std::string_view table) {
  std::vector<Column> columns;
  for (const auto& row :
       tell("SELECT COLUMN_NAME, DATA_TYPE, COALESCE(CHARACTER_MAXIMUM_LENGTH, ''),"
            " COALESCE(COLUMN_DEFAULT, ''), COALESCE(COLLATION_NAME, '')"
            " FROM information_schema.COLUMNS" +
            here(is("TABLE_NAME", table) + " AND COLUMN_NAME <> 'rowid' ORDER BY ORDINAL_POSITION")))
    columns.push_back(declared(row[0], row[1], row[2], row[3], row[4]));
  return columns;
}

std::vector<Column> ServerEngine::columnsHere(std::string_view table) {
  const auto own = work_.find(upper(table));
  return own == work_.end() ? tableColumns(table) : own->second;
}

std::string ServerEngine::declaredType(const std::string& table, const std::string& column) {
  const std::string key = upper(table);
  auto shape = shapes_.find(key);
  if (shape == shapes_.end()) shape = shapes_.emplace(key, columnsHere(key)).first;
  for (const Column& one : shape->second)
    if (sameText(one.name, column)) return one.definition.substr(0, one.definition.find(' '));
  return {};
}

double ServerEngine::standingRows(std::string_view table) {
  // The connection's own table would be counted in the place of one that holds nothing.
  if (work_.contains(upper(table))) return 0;
  return Val(tell("SELECT COUNT(*) FROM " + serverName(table)).front().front());
}

void ServerEngine::define(const std::string& sql) {
  const State before = state_;
  const int depth = savepoints_;
  if (before != State::None) commit();
  tell(sql);
  ++shapeChanges_;
  known_.clear();
  missing_.clear();
  indexes_.reset();
  shapes_.clear();
  if (before == State::None) return;
  begin(before == State::Writing ? Transaction::Writes::File : Transaction::Writes::WorkTables);
  for (int each = 1; each <= depth; ++each) savepoint(each);
}

std::string ServerEngine::createTableText(const std::string& head, const std::vector<Column>& columns) const {
  std::string text = head + " (rowid BIGINT NOT NULL AUTO_INCREMENT INVISIBLE PRIMARY KEY";
  for (const Column& column : columns) text += ", " + serverName(column.name) + " " + serverType(column);
  return text + ")";
}

void ServerEngine::createTable(const std::string& table, const std::vector<Column>& columns) {
  define(createTableText("CREATE TABLE " + serverName(table), columns));
}

void ServerEngine::addColumn(const std::string& table, const Column& column) {
  define("ALTER TABLE " + serverName(table) + " ADD COLUMN " + serverName(column.name) + " " +
         serverType(column));
}

void ServerEngine::dropTable(const std::string& table) { define("DROP TABLE " + serverName(table)); }

void ServerEngine::reshape(const std::string& table, const std::vector<NewColumn>& plan) {
  const std::string made = serverName(table + "__new"), old = serverName(table + "__old");
  std::vector<Column> columns;
  std::string names = "rowid", sources = "rowid";
  for (const NewColumn& next : plan) {
    columns.push_back(next.column);
    names += ", " + serverName(next.column.name);
    sources += ", " + next.source;
  }
  define("DROP TABLE IF EXISTS " + made + ", " + old);
  const auto standingIndexes = indexes();
  define(createTableText("CREATE TABLE " + made, columns));
  try {
    tell("INSERT INTO " + made + " (" + names + ") SELECT " + sources + " FROM " + serverName(table) +
         " ORDER BY rowid");
    for (const auto& [name, index] : standingIndexes)
      if (sameText(index.table, table))
        define("CREATE " + std::string(index.unique ? "UNIQUE " : "") + "INDEX " + serverName(name) + " ON " +
               made + " (" + index.parts + ")");
    define("RENAME TABLE " + serverName(table) + " TO " + old + ", " + made + " TO " + serverName(table));
  } catch (...) {
    define("DROP TABLE IF EXISTS " + made);
    throw;
  }
  define("DROP TABLE " + old);
}

std::string ServerEngine::workTableText(const std::string& table, const std::vector<Column>& columns) const {
  std::string text = createTableText("CREATE OR REPLACE TEMPORARY TABLE " + serverName(table), columns);
  if (const auto index = workIndexes_.find(table); index != workIndexes_.end())
    text.insert(text.size() - 1, ", INDEX (" + index->second + ")");
  return text;
}

void ServerEngine::makeWorkTable(const std::string& table, const std::vector<Column>& columns) {
  const std::string key = upper(table);
  // Known before it stands: where the connection is lost meanwhile, it is made with the next.
  work_.insert_or_assign(key, columns);
  journal_.add({"DELETE FROM " + key, {}});
  if (!inTransaction()) journal_.shorten();
  tell(workTableText(key, columns));
}

void ServerEngine::indexWorkTable(const std::string& table, const std::string& columns) {
  const std::string key = upper(table);
  if (workIndexes_.contains(key)) return;
  workIndexes_[key] = columns;
  makeWorkTable(key, std::vector<Column>(work_.at(key)));
}

void ServerEngine::dropWorkTables() {
  for (const auto& [table, columns] : work_) tell("DROP TEMPORARY TABLE " + serverName(table));
  work_.clear();
  journal_.clear();
}

void ServerEngine::makeList(const std::string& name, const std::string& select) {
  tell("CREATE OR REPLACE TEMPORARY TABLE " + serverName(name) +
       " (rowid BIGINT NOT NULL AUTO_INCREMENT INVISIBLE PRIMARY KEY) AS " + onServerText(select));
  lists_.insert(upper(name));
}

void ServerEngine::dropList(const std::string& name) {
  tell("DROP TEMPORARY TABLE IF EXISTS " + serverName(name));
  lists_.erase(upper(name));
}

const std::map<std::string, ServerEngine::Index>& ServerEngine::indexes() {
  if (indexes_) return *indexes_;
  std::map<std::string, Index> found;
  for (const auto& row :
       tell("SELECT INDEX_NAME, TABLE_NAME, COLUMN_NAME, COALESCE(SUB_PART, ''), NON_UNIQUE"
            " FROM information_schema.STATISTICS" +
            here("INDEX_NAME <> 'PRIMARY' ORDER BY TABLE_NAME, INDEX_NAME, SEQ_IN_INDEX"))) {
    Index& index = found[upper(row[0])];
    index.table = upper(row[1]);
    index.columns += (index.columns.empty() ? "" : ", ") + upper(row[2]);
    index.parts +=
        (index.parts.empty() ? "" : ", ") + serverName(row[2]) + (row[3].empty() ? "" : "(" + row[3] + ")");
    index.unique = row[4] == "0";
  }
  return indexes_.emplace(std::move(found));
}

// As many letters of each column as a key may have; what has no room is left out of an index.
std::string ServerEngine::keyParts(const IndexShape& index) {
  const auto columns = tableColumns(index.table);
  std::string parts;
  size_t left = kLongestKey;
  for (const std::string& name : namesIn(index.columns)) {
    const auto column =
        std::ranges::find_if(columns, [&](const Column& c) { return sameText(c.name, name); });
    if (column == columns.end())
      throw DatabaseError(DatabaseError::Kind::shape, {}, index.table + " has no column " + name);
    std::string part = serverName(column->name);
    if (const size_t bytes = bytesOf(*column); bytes > left) {
      const size_t letters = left / kBytesOfALetter;
      if (column->kind != Column::Kind::text || letters < 2) break;
      part += "(" + std::to_string(letters - 1) + ")";
      left = 0;
    } else {
      left -= bytes;
    }
    parts += (parts.empty() ? "" : ", ") + part;
    if (left == 0) break;
  }
  return parts;
}

bool ServerEngine::hasIndex(std::string_view name) { return indexes().contains(upper(name)); }

bool ServerEngine::hasIndex(const IndexShape& index) {
  const auto found = indexes().find(upper(index.name));
  if (found == indexes().end() || !sameText(found->second.table, index.table)) return false;
  // One that had to be cut begins like it.
  return startsWithNoCase(join(namesIn(index.columns), ", ") + ", ", found->second.columns + ", ");
}

void ServerEngine::createIndex(const IndexShape& index) {
  define("CREATE " + std::string(index.unique ? "UNIQUE " : "") + "INDEX " + serverName(index.name) + " ON " +
         serverName(index.table) + " (" + keyParts(index) + ")");
}

void ServerEngine::dropIndex(std::string_view name) {
  const auto found = indexes().find(upper(name));
  if (found == indexes().end()) return;
  const std::string table = found->second.table;
  define("DROP INDEX " + serverName(name) + " ON " + serverName(table));
}

bool ServerEngine::isIndexed(std::string_view table, std::string_view column) {
  return std::ranges::any_of(indexes(), [&](const auto& each) {
    return sameText(each.second.table, table) && sameText(namesIn(each.second.columns).front(), column);
  });
}

std::vector<std::string> ServerEngine::views() {
  std::vector<std::string> names;
  for (const auto& row : tell("SELECT TABLE_NAME FROM information_schema.VIEWS" + here("TRUE")))
    names.push_back(row[0]);
  return names;
}

void ServerEngine::createView(const std::string& name, const std::string& select) {
  define("CREATE SQL SECURITY INVOKER VIEW " + serverName(name) + " AS " + select);
}

void ServerEngine::dropView(const std::string& name) { define("DROP VIEW " + serverName(name)); }
