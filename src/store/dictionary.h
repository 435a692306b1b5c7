#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

// The shape of a company-year database: which tables and columns this program must find. The
// compiled rows fill the table STRUCTAB, and a walk over STRUCTAB creates, alters and drops until
// the database matches. The walk may be repeated at any time; the second one changes nothing.
// A statement of the walk that fails is passed over: a column whose data does not fit its new
// declaration keeps its old shape. What is dropped follows the compiled rows alone, and nothing is while
// STRUCTAB does not hold them.
//
// Tables and columns of our own stand beside the documented rows and not in STRUCTAB.

// The version of this program, 1.01, as a database carries it that was last shaped by it.
inline constexpr int kShapeVersion = 103;
// Of books on a server whose walk was not ended: there each of its steps stands by itself.
inline constexpr int kHalfWalked = -1;

struct DictionaryRow {
  int srno;  // order of the column in its table
  const char* table;
  const char* field;
  const char* type;  // Text, Double, DATE, INTEGER
  int size;          // characters of a Text
  const char* property;
  int since = 0;  // the shape version that brought it; 0: documented
};

// The documented rows, tables in seed order.
std::span<const DictionaryRow> dictionaryRows();
// Those that we have added.
std::span<const DictionaryRow> ownRows();
// Names of all tables that either declares.
std::vector<std::string> declaredTables();
// Whether the compiled rows declare the column; letter case does not count.
bool isDeclared(std::string_view table, std::string_view field);
// The columns of one table in the store's own words, in their order.
std::vector<Column> dictionaryColumns(std::string_view table);

// Whether the open database file holds the table.
bool CheckTable(Database& db, std::string_view name);
// Whether the open file is a company-year, also one that an update has to complete; a stranger's
// database, whose tables may bear the same names, is none.
bool isCompanyYear(Database& db);

// Makes STRUCTAB where it is missing, and empties it.
void CreateDictionary(Database& db);
// Makes DROPLIST, empty.
void CreateDropList(Database& db);
// Fills STRUCTAB with the compiled rows.
void SeedDictionary(Database& db);
// Creates tables, adds and alters columns, our own after those of STRUCTAB. Rows with a condition apply
// where it holds the given text.
void ApplyDictionary(Database& db, std::string_view condition = {});
// Drops columns that no row declares, DESC and names with a blank apart, then tables. Raises
// std::runtime_error, with the sentence for the user, when STRUCTAB is not what SeedDictionary writes.
void DropUndeclared(Database& db);

// The version of the program that last shaped the file; 0 for files of before there were numbers.
int shapeVersion(Database& db);
// The same of a closed file; 0 where there is none.
int shapeVersion(const std::filesystem::path& file);
// Takes the current version down, inside the transaction that shaped the file.
void stampShape(Database& db);

// Work tables live in the connection: TEMP tables of the declared shape stand before those of
// the file, so that two programs never mix their lines. Opening a company-year makes them; to be
// called again after a walk. Empties them.
void RemakeWorkTables(Database& db);
std::span<const std::string_view> workTables();
