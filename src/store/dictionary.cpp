#include "store/dictionary.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <stdexcept>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "store/alter.h"
#include "store/engine.h"
#include "store/place.h"
#include "store/safe_file.h"

namespace {

constexpr std::array<std::string_view, 8> works = {"T_SLITM",     "T_CHLNITM", "T_QUOTITM", "T_JOURNITM",
                                                   "TEMP_ITMDTL", "T_ACLST",   "CAL",       "T_FINALNEW"};

// A dictionary row in the store's own words; no definition when the row makes no sense.
Column columnOf(std::string_view field, std::string_view type, int size, std::string_view property) {
  Column column{.name = std::string(field)};
  const std::string name = upper(type);
  const std::string byDefault = startsWithNoCase(property, "DEFAULT") ? std::string(property) : "DEFAULT 0";
  if (name == "TEXT" && size > 0) {
    column.kind = Column::Kind::text;
    column.size = size;
    const std::string n = std::to_string(size);
    column.definition =
        "TEXT(" + n + ") COLLATE NOCASE CHECK (LENGTH(" + quotedName(field) + ") <= " + n + ")";
  } else if (name == "DOUBLE" || name == "INTEGER") {
    column.kind = name == "DOUBLE" ? Column::Kind::number : Column::Kind::whole;
    column.definition = name + " " + byDefault;
  } else if (name == "DATE") {
    column.kind = Column::Kind::date;
    column.definition = name;
  }
  return column;
}

// A column that stands twice counts once, in its last form.
void place(std::vector<Column>& columns, Column column) {
  if (column.name.empty() || column.definition.empty()) return;
  const auto same = std::find_if(columns.begin(), columns.end(),
                                 [&](const Column& c) { return sameText(c.name, column.name); });
  if (same == columns.end())
    columns.push_back(std::move(column));
  else
    *same = std::move(column);
}

constexpr Because kWalkGoesOn{.reason = "the walk leaves what it cannot make, and goes on",
                              .strangersShape = true};

void applyTable(Database& db, const std::string& table, const std::vector<Column>& wanted) {
  if (wanted.empty()) return;
  if (!CheckTable(db, table)) {
    db.passOver(kWalkGoesOn, [&] { db.engine().createTable(table, wanted); });
    return;
  }
  const auto standing = tableColumns(db, table);
  std::vector<Column> changed;
  for (const auto& column : wanted) {
    const auto same = std::find_if(standing.begin(), standing.end(),
                                   [&](const Column& c) { return sameText(c.name, column.name); });
    if (same == standing.end())
      db.passOver(kWalkGoesOn, [&] { db.engine().addColumn(table, column); });
    else if (same->definition != column.definition)
      changed.push_back(column);
  }
  if (!changed.empty()) alterColumns(db, table, changed);
}

std::string keyOf(std::string_view table, std::string_view field) {
  return upper(table) + "." + upper(field);
}

bool isDeclaredTable(const std::string& table) {
  const auto tables = declaredTables();
  return std::ranges::any_of(tables, [&](const std::string& one) { return sameText(one, table); });
}

// Whether STRUCTAB holds the compiled rows, each once, and no other.
bool holdsTheRows(Database& db) {
  std::multiset<std::string> compiled, stored;
  const auto written = [](auto... parts) { return join({Value(parts).text()...}, "|"); };
  for (const auto& row : dictionaryRows())
    compiled.insert(written(row.srno, row.table, row.field, row.type, row.size, row.property));
  for (auto rows = db.query("SELECT SRNO, TABNM, FLDNM, DATATYP, DATASIZE, DATAPROP FROM STRUCTAB");
       rows.next();)
    stored.insert(
        written(rows.text(0), rows.text(1), rows.text(2), rows.text(3), rows.text(4), rows.text(5)));
  return compiled == stored;
}

// Into DROPLIST: columns of declared tables, and tables (as TABLENAME), that no row declares.
void listUndeclared(Database& db) {
  const auto list = [&](const std::string& table, const std::string& field) {
    db.passOver(kWalkGoesOn, "INSERT INTO DROPLIST (TABNM, FLDNM) VALUES (?, ?)", table, field);
  };
  for (const auto& table : declaredTables())
    for (const auto& column : tableColumns(db, table))
      if (!isDeclared(table, column.name)) list(table, column.name);
  for (const std::string& table : db.engine().tables())
    if (!isDeclaredTable(table)) list(table, "TABLENAME");
}

}  // namespace

bool isDeclared(std::string_view table, std::string_view field) {
  static const std::set<std::string> all = [] {
    std::set<std::string> keys;
    for (const auto& rows : {dictionaryRows(), ownRows()})
      for (const auto& row : rows) keys.insert(keyOf(row.table, row.field));
    return keys;
  }();
  return all.contains(keyOf(table, field));
}

std::vector<std::string> declaredTables() {
  std::set<std::string> tables;
  for (const auto& rows : {dictionaryRows(), ownRows()})
    for (const auto& row : rows) tables.insert(row.table);
  return {tables.begin(), tables.end()};
}

std::vector<Column> dictionaryColumns(std::string_view table) {
  std::vector<DictionaryRow> rows;
  for (const auto& all : {dictionaryRows(), ownRows()})
    std::copy_if(all.begin(), all.end(), std::back_inserter(rows),
                 [&](const DictionaryRow& row) { return sameText(row.table, table); });
  std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.srno < b.srno; });
  std::vector<Column> columns;
  for (const auto& row : rows) place(columns, columnOf(row.field, row.type, row.size, row.property));
  return columns;
}

bool CheckTable(Database& db, std::string_view name) { return db.engine().hasTable(name); }

bool isCompanyYear(Database& db) {
  const auto holds = [&](std::string_view table, std::string_view field) {
    const auto columns = tableColumns(db, table);
    return std::any_of(columns.begin(), columns.end(),
                       [&](const Column& c) { return sameText(c.name, field); });
  };
  return holds("STRUCTAB", "TABNM") || holds("ACCOUNT", "ACC_CD");
}

void CreateDictionary(Database& db) {
  Transaction all(db);
  applyTable(db, "STRUCTAB", dictionaryColumns("STRUCTAB"));
  db.passOver(kWalkGoesOn, "DELETE FROM STRUCTAB");
  all.commit();
}

void CreateDropList(Database& db) {
  Transaction all(db);
  applyTable(db, "DROPLIST", dictionaryColumns("DROPLIST"));
  db.passOver(kWalkGoesOn, "DELETE FROM DROPLIST");
  all.commit();
}

void SeedDictionary(Database& db) {
  Transaction all(db);
  db.passOver(kWalkGoesOn, "DELETE FROM STRUCTAB");
  for (const auto& row : dictionaryRows())
    db.passOver(kWalkGoesOn,
                "INSERT INTO STRUCTAB (SRNO, TABNM, FLDNM, DATATYP, DATASIZE, DATAPROP, CONDITN)"
                " VALUES (?, ?, ?, ?, ?, ?, '')",
                row.srno, row.table, row.field, row.type, row.size, row.property);
  all.commit();
}

void ApplyDictionary(Database& db, std::string_view condition) {
  Transaction all(db);
  std::vector<std::string> tables;
  for (auto rows = db.query("SELECT DISTINCT TABNM FROM STRUCTAB ORDER BY TABNM"); rows.next();)
    tables.push_back(rows.text(0));
  for (const auto& table : tables) {
    std::vector<Column> wanted;
    for (auto rows = db.query("SELECT * FROM STRUCTAB WHERE TABNM = ? ORDER BY SRNO", table); rows.next();) {
      const std::string where = rows.text("CONDITN");
      if (!where.empty() && (condition.empty() || where.find(condition) == std::string::npos)) continue;
      place(wanted, columnOf(rows.text("FLDNM"), rows.text("DATATYP"), toInt(rows.number("DATASIZE")),
                             rows.text("DATAPROP")));
    }
    applyTable(db, table, wanted);
  }
  for (const auto& row : ownRows()) applyTable(db, row.table, dictionaryColumns(row.table));
  all.commit();
}

void DropUndeclared(Database& db) {
  Transaction all(db);
  if (!holdsTheRows(db))
    throw std::runtime_error(
        words("The Dictionary Could Not Be Written :: Nothing Was Changed\r\n"
              "Something Forbids The Rows Of STRUCTAB In {file}",
              "file", shownName(db.file())));
  db.passOver(kWalkGoesOn, "DELETE FROM DROPLIST");
  listUndeclared(db);
  for (const auto& row :
       db.all("SELECT TABNM, FLDNM FROM DROPLIST WHERE FLDNM <> 'TABLENAME' ORDER BY TABNM, FLDNM")) {
    const std::string table = row.text("TABNM"), field = row.text("FLDNM");
    if (!isDeclared(table, field) && !sameText(field, "DESC") && field.find(' ') == std::string::npos)
      dropColumn(db, table, field);
  }
  for (const auto& row : db.all("SELECT TABNM FROM DROPLIST WHERE FLDNM = 'TABLENAME' ORDER BY TABNM"))
    if (!isDeclaredTable(row.text("TABNM")))
      db.passOver(kWalkGoesOn, [&] { db.engine().dropTable(row.text("TABNM")); });
  db.passOver(kWalkGoesOn, "DELETE FROM DROPLIST");
  all.commit();
}

int shapeVersion(Database& db) { return db.engine().shapeVersion(); }

int shapeVersion(const std::filesystem::path& file) {
  if (onServer(file)) {
    if (!booksExist(file)) return 0;
    Database db;
    db.open(file, Access::readOnly);
    return shapeVersion(db);
  }
  if (!isPlainFile(file)) return 0;
  // Where the file format keeps it; a file that is no database tells so when it is opened.
  constexpr std::string_view kDatabase = "SQLite format 3";
  constexpr size_t kPlace = 60;
  std::array<char, 64> head{};
  std::ifstream(file, std::ios::binary).read(head.data(), head.size());
  if (std::string_view(head.data(), kDatabase.size()) != kDatabase) return 0;
  int version = 0;
  for (size_t i = kPlace; i < head.size(); ++i) version = version << 8 | static_cast<unsigned char>(head[i]);
  return version;
}

void stampShape(Database& db) { db.engine().stampShape(kShapeVersion); }

std::span<const std::string_view> workTables() { return works; }

void RemakeWorkTables(Database& db) {
  for (const auto table : works) db.engine().makeWorkTable(std::string(table), dictionaryColumns(table));
}
