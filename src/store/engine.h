#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "store/database.h"

// What statements need beside themselves and an engine says in its own way: docs/statements.md tells
// what a statement may use, and everything else is asked for here or in the store's own files.

// The row number of the row that was inserted last over this connection.
std::int64_t insertedRow(Database& db);

// The sum of a figure over the rows for which the condition holds, NULL where there is none: an expression
// for walks through a whole ledger, where SUM(CASE ...) takes a tenth longer on SQLite.
std::string sumWhere(std::string_view figure, std::string_view condition);

// A list of the connection's own, made of a select under a name that no table bears. It stands before
// a table of that name, also one that a file of other origin brings.
std::string makeListText(std::string_view name, std::string_view select);
std::string dropListText(std::string_view name);
// Lets rows of a work table be found by the columns; once for a connection.
std::string indexWorkTableText(std::string_view table, std::string_view columns);

// A table that the dictionary declares, where it is missing.
void ensureTable(Database& db, std::string_view table);

void dropIndex(Database& db, std::string_view name);
// How many rows the table of the file has, also where a work table stands before it.
double standingRows(Database& db, const std::string& table);
bool hasIndex(Database& db, std::string_view name);
// An index over all rows begins with the column.
bool isIndexed(Database& db, std::string_view table, std::string_view column);

// How the engine works while a whole table is written anew: it does not blank the pages that it is about
// to fill again, nor measure texts that fit by the lengths of the columns that they come from; and what
// has been written is not wanted again soon, so that little of it is kept in memory.
class BulkWriting {
 public:
  explicit BulkWriting(Database& db);
  ~BulkWriting();
  BulkWriting(const BulkWriting&) = delete;
  BulkWriting& operator=(const BulkWriting&) = delete;

 private:
  void set(const std::string& blanking, const std::string& kept, const std::string& measuringOff);

  Database& db_;
  const std::string blanking_, kept_;
};

// The catalogue among the tables of the books, as catalogue.compny, so that one transaction writes both
// or none.
class WithCatalogue {
 public:
  WithCatalogue(Database& year, const std::filesystem::path& catalogue);
  ~WithCatalogue();
  WithCatalogue(const WithCatalogue&) = delete;
  WithCatalogue& operator=(const WithCatalogue&) = delete;

 private:
  Database& year_;
};

// What is wrong with the file; empty when it is whole.
std::string damageIn(Database& db);

// Size and shape of the file in a word or two: another text after a change of either.
std::string sizeAndShape(Database& db);
// Another number after each commit of another connection.
double othersWrites(Database& db);
