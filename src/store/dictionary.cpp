#include "store/dictionary.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/number.h"
#include "base/text.h"
#include "store/alter.h"

namespace {

constexpr std::array<std::string_view, 7> works = {"T_SLITM", "T_CHLNITM", "T_QUOTITM", "TEMP_ITMDTL",
                                                   "T_ACLST", "CAL",       "T_FINALNEW"};

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

constexpr Because kWalkGoesOn{"the walk leaves what it cannot make, and goes on", true};

void applyTable(Database& db, const std::string& table, const std::vector<Column>& wanted) {
  if (wanted.empty()) return;
  if (!CheckTable(db, table)) {
    db.passOver(kWalkGoesOn, createTableStatement("main." + quotedName(table), wanted));
    return;
  }
  const auto standing = tableColumns(db, table);
  std::vector<Column> changed;
  for (const auto& column : wanted) {
    const auto same = std::find_if(standing.begin(), standing.end(),
                                   [&](const Column& c) { return sameText(c.name, column.name); });
    if (same == standing.end())
      db.passOver(kWalkGoesOn, "ALTER TABLE main." + quotedName(table) + " ADD COLUMN " +
                                   quotedName(column.name) + " " + column.definition);
    else if (same->definition != column.definition)
      changed.push_back(column);
  }
  if (!changed.empty()) alterColumns(db, table, changed);
}

std::string keyOf(std::string_view table, std::string_view field) {
  return upper(table) + "." + upper(field);
}

}  // namespace

bool isDeclared(std::string_view table, std::string_view field) {
  static const std::set<std::string> all = [] {
    std::set<std::string> keys;
    for (const auto& row : dictionaryRows()) keys.insert(keyOf(row.table, row.field));
    return keys;
  }();
  return all.contains(keyOf(table, field));
}

std::vector<Column> dictionaryColumns(std::string_view table) {
  std::vector<DictionaryRow> rows;
  std::copy_if(dictionaryRows().begin(), dictionaryRows().end(), std::back_inserter(rows),
               [&](const DictionaryRow& row) { return sameText(row.table, table); });
  std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.srno < b.srno; });
  std::vector<Column> columns;
  for (const auto& row : rows) place(columns, columnOf(row.field, row.type, row.size, row.property));
  return columns;
}

bool CheckTable(Database& db, std::string_view name) {
  return db
      .first(
          "SELECT 1 FROM main.sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"
          " AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'",
          name)
      .has_value();
}

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
  db.passOver(kWalkGoesOn, "DELETE FROM main.STRUCTAB");
  all.commit();
}

void CreateDropList(Database& db) {
  Transaction all(db);
  applyTable(db, "DROPLIST", dictionaryColumns("DROPLIST"));
  db.passOver(kWalkGoesOn, "DELETE FROM main.DROPLIST");
  all.commit();
}

void SeedDictionary(Database& db) {
  Transaction all(db);
  db.passOver(kWalkGoesOn, "DELETE FROM main.STRUCTAB");
  for (const auto& row : dictionaryRows())
    db.passOver(
        kWalkGoesOn,
        "INSERT INTO main.STRUCTAB (SRNO, TABNM, FLDNM, DATATYP, DATASIZE, DATAPROP, CONDITN)"
        " VALUES (?, ?, ?, ?, ?, ?, '')",
        row.srno, row.table, row.field, row.type, row.size, row.property);
  all.commit();
}

void ApplyDictionary(Database& db, std::string_view condition) {
  Transaction all(db);
  std::vector<std::string> tables;
  for (auto rows = db.query("SELECT DISTINCT TABNM FROM main.STRUCTAB ORDER BY TABNM"); rows.next();)
    tables.push_back(rows.text(0));
  for (const auto& table : tables) {
    std::vector<Column> wanted;
    for (auto rows = db.query("SELECT * FROM main.STRUCTAB WHERE TABNM = ? ORDER BY SRNO", table);
         rows.next();) {
      const std::string where = rows.text("CONDITN");
      if (!where.empty() && (condition.empty() || where.find(condition) == std::string::npos)) continue;
      place(wanted, columnOf(rows.text("FLDNM"), rows.text("DATATYP"), toInt(rows.number("DATASIZE")),
                             rows.text("DATAPROP")));
    }
    applyTable(db, table, wanted);
  }
  all.commit();
}

void DropUndeclared(Database& db) {
  Transaction all(db);
  db.passOver(kWalkGoesOn, "DELETE FROM main.DROPLIST");
  std::vector<std::string> tables;
  for (auto rows = db.query("SELECT DISTINCT TABNM FROM main.STRUCTAB ORDER BY TABNM"); rows.next();)
    tables.push_back(rows.text(0));
  for (const auto& table : tables)
    for (const auto& column : tableColumns(db, table))
      if (!db.first("SELECT 1 FROM main.STRUCTAB WHERE TABNM = ? AND FLDNM = ?", table, column.name))
        db.passOver(kWalkGoesOn, "INSERT INTO main.DROPLIST (TABNM, FLDNM) VALUES (?, ?)", table, column.name);

  db.passOver(kWalkGoesOn, [&] {
    for (const auto& row :
         db.all("SELECT TABNM, FLDNM FROM main.DROPLIST WHERE FLDNM <> 'TABLENAME' ORDER BY TABNM, FLDNM")) {
      const std::string field = row.text("FLDNM");
      if (!sameText(field, "DESC") && field.find(' ') == std::string::npos)
        dropColumn(db, row.text("TABNM"), field);
    }
  });
  db.passOver(kWalkGoesOn, "DELETE FROM main.DROPLIST");
  DropUndeclaredTables(db);
  all.commit();
}

void DropUndeclaredTables(Database& db) {
  Transaction all(db);
  db.passOver(
      kWalkGoesOn,
      "INSERT INTO main.DROPLIST (TABNM, FLDNM) SELECT name, 'TABLENAME' FROM main.sqlite_master"
      " WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'"
      " AND UPPER(name) NOT IN ('DROPLIST', 'STRUCTAB')"
      " AND name COLLATE NOCASE NOT IN (SELECT TABNM FROM main.STRUCTAB WHERE TABNM IS NOT NULL)");
  db.passOver(kWalkGoesOn, [&] {
    for (const auto& row : db.all("SELECT TABNM FROM main.DROPLIST WHERE FLDNM = 'TABLENAME' ORDER BY TABNM"))
      db.passOver(kWalkGoesOn, "DROP TABLE main." + quotedName(row.text("TABNM")));
  });
  db.passOver(kWalkGoesOn, "DELETE FROM main.DROPLIST");
  all.commit();
}

std::span<const std::string_view> workTables() { return works; }

void RemakeWorkTables(Database& db) {
  for (const auto table : works) {
    db.exec("DROP TABLE IF EXISTS temp." + quotedName(table));
    db.exec(createTableStatement("temp." + quotedName(table), dictionaryColumns(table)));
  }
}
