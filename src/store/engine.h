#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

// What stands behind the face (store/database): the embedded file (store/sqlite_engine) or a server
// (store/server_engine). Screens and rules know neither; what their statements need beside
// themselves are the functions below the classes: docs/statements.md tells what a statement may use, and
// everything else is asked for here or in the store's own files.

class PreparedStatement {
 public:
  explicit PreparedStatement(std::string text) : sql(std::move(text)) {}
  virtual ~PreparedStatement() = default;
  PreparedStatement(const PreparedStatement&) = delete;
  PreparedStatement& operator=(const PreparedStatement&) = delete;

  const std::string sql;
  virtual int parameters() const = 0;
  virtual void bind(const std::vector<Value>& values) = 0;
  // Runs it the first time; false behind the last row.
  virtual bool step() = 0;
  virtual void reset() noexcept = 0;
  // The rows that the run changed.
  virtual int changed() const = 0;
  // Of the result, columns from 0.
  virtual int columns() const = 0;
  virtual std::string columnName(int column) const = 0;
  virtual std::string declaredType(int column) const = 0;
  virtual Value value(int column) const = 0;
  virtual bool isNull(int column) const = 0;
};

// A column of a new shape and the expression over the old one that fills it.
struct NewColumn {
  Column column;
  std::string source;
};

// An index as it is declared: columns as written, and a condition for those over some rows only.
struct IndexShape {
  std::string name, table, columns, rows{};
  bool unique = false;
};

using RowCounts = std::vector<std::pair<std::string, double>>;

// How far a program keeps the others away: it asks them to leave the books, or to finish what they have in
// hand, or holds their writing back, or their opening of the books too.
enum class Hold { AsksToLeave = -1, Asks = 0, Closes = 1, Shuts = 2 };

// Another program at the same books of a server.
struct Other {
  std::string who;             // "ram On COUNTER2"
  int seconds = 0;             // how long already
  std::string book, number;    // of what it has in hand for a change; of a hold `book` says what for
  std::optional<Hold> hold{};  // of the books
};

// One connection. Tables are named without brackets; work tables are looked past unless said otherwise.
class Engine {
 public:
  virtual ~Engine() = default;

  virtual std::unique_ptr<PreparedStatement> prepare(std::string_view sql) = 0;
  virtual bool understands(std::string_view sql) = 0;
  virtual std::int64_t insertedRow() = 0;
  // Keeps what changes rows for the next journey of the transaction; false where it is to be run at once.
  virtual bool later(std::string_view /*sql*/, const std::vector<Value>& /*values*/) { return false; }

  virtual void begin(Transaction::Writes what) = 0;
  virtual void commit() = 0;
  virtual void rollBack() = 0;
  virtual void savepoint(int depth) = 0;
  virtual void release(int depth) = 0;
  virtual void rollBackTo(int depth) = 0;
  virtual bool inTransaction() const = 0;

  virtual bool firstUser() = 0;
  virtual std::optional<std::int64_t> changeCount() = 0;
  // Another number after each commit of another connection.
  virtual double othersWrites() = 0;
  // Size and shape in a word or two: another text after a change of either from outside.
  virtual std::string sizeAndShape() = 0;
  // Another number after a change of any table's shape, by whichever program.
  virtual double shapeChanges() = 0;
  // What is wrong with what is stored; empty when it is whole.
  virtual std::string damage() = 0;
  // The version of the program that last shaped the books.
  virtual int shapeVersion() = 0;
  virtual void stampShape(int version) = 0;

  virtual std::vector<std::string> tables() = 0;
  virtual bool hasTable(std::string_view name) = 0;
  // Empty where there is no such table.
  virtual std::vector<Column> tableColumns(std::string_view table) = 0;
  // The same, work tables as they stand here.
  virtual std::vector<Column> columnsHere(std::string_view table) = 0;
  virtual double standingRows(std::string_view table) = 0;
  // What a statement calls the table that no work table stands before.
  virtual std::string standing(std::string_view table) const = 0;
  virtual void createTable(const std::string& table, const std::vector<Column>& columns) = 0;
  virtual void addColumn(const std::string& table, const Column& column) = 0;
  // The table with these columns alone; rows keep their order, indexes stand again.
  virtual void reshape(const std::string& table, const std::vector<NewColumn>& plan) = 0;
  virtual void dropTable(const std::string& table) = 0;
  // An empty one, before a table of its name, for this connection alone.
  virtual void makeWorkTable(const std::string& table, const std::vector<Column>& columns) = 0;
  virtual void indexWorkTable(const std::string& table, const std::string& columns) = 0;
  // So that what they stand before can be read; where that needs it.
  virtual void dropWorkTables() {}

  // Lists: tables of the connection's own, made of a select.
  virtual void makeList(const std::string& name, const std::string& select) = 0;
  virtual void dropList(const std::string& name) = 0;

  virtual bool hasIndex(std::string_view name) = 0;
  // It stands exactly so.
  virtual bool hasIndex(const IndexShape& index) = 0;
  virtual void createIndex(const IndexShape& index) = 0;
  virtual void dropIndex(std::string_view name) = 0;
  // An index over all rows begins with the column.
  virtual bool isIndexed(std::string_view table, std::string_view column) = 0;
  // The different values of an indexed column are found sooner by a recursive select, which looks for each
  // next one, than by DISTINCT.
  virtual bool stepsThroughValues() const = 0;
  // The few rows that a search leaves are found sooner by their numbers alone, over an index, and read then.
  virtual bool findsFewFirst() const { return false; }
  // Within a transaction over work tables, what is copied into them is locked against whoever saves.
  virtual bool locksWhatItCopies() const = 0;

  virtual std::vector<std::string> views() = 0;
  virtual void createView(const std::string& name, const std::string& select) = 0;
  virtual void dropView(const std::string& name) = 0;

  // The sum of a figure over the rows for which the condition holds.
  virtual std::string sumWhere(std::string_view figure, std::string_view condition) = 0;
  // A table's rows go, for others to be written into the table whose name is returned; from putRewritten on
  // the table holds what was written. A file sets the old rows aside until endRewriting, without the indexes
  // named, which the caller makes again. A server changes those alone that differ, counted by voucher.
  virtual std::string beginRewriting(const std::string& table, std::span<const std::string_view> indexes) = 0;
  virtual void putRewritten(const std::string& table) = 0;
  virtual void endRewriting(const std::string& table) = 0;
  // How the engine works while a whole table is written.
  virtual void writesInBulk(bool bulk) = 0;
  // The catalogue's table beside the books, between the two calls, in one transaction with them.
  virtual std::string joinCatalogue(const std::filesystem::path& catalogue) = 0;
  virtual void leaveCatalogue() = 0;
  // Together with others; a file's locks do without all of this. What a program marks ends with it, at the
  // latest a minute after it was seen last.
  // Tells the others, now and then, that this program still runs. False where there is nobody to tell, or a
  // lost server that the next statement is to find.
  virtual bool stillHere() { return false; }
  // Who else has the books open, and what each has in hand.
  virtual std::vector<Other> others() { return {}; }
  // Marks a voucher or a master as ours to change; returns who else has it, and marks nothing then.
  virtual std::optional<Other> takeInHand(const std::string& /*book*/, const std::string& /*number*/) {
    return {};
  }
  virtual void letGo(const std::string& /*book*/, const std::string& /*number*/) {}
  // Returns who else holds the books, and holds nothing then. To be said again every few minutes.
  virtual std::optional<Other> hold(const std::string& /*what*/, Hold /*how*/) { return {}; }
  virtual void endHold() {}
  // Who else asks for the books or holds them.
  virtual std::optional<Other> heldBy() { return {}; }
  // All tables are exchanged for others: programs that have the books open from before write nothing more.
  virtual void areExchanged() {}

  // Copies all into a new file as it stands at one moment; returns how many rows each table had then.
  virtual RowCounts copyInto(const std::filesystem::path& file) = 0;
};

// The row number of the row that was inserted last over this connection.
std::int64_t insertedRow(Database& db);

// The sum of a figure over the rows for which the condition holds, NULL where there is none: an expression
// for walks through a whole ledger, where SUM(CASE ...) takes a tenth longer on SQLite.
std::string sumWhere(Database& db, std::string_view figure, std::string_view condition);

// A list of the connection's own, made of a select under a name that no table bears. It stands before
// a table of that name, also one that a file of other origin brings.
void makeList(Database& db, const std::string& name, const std::string& select);
void dropList(Database& db, const std::string& name);
// Lets rows of a work table be found by the columns; once for a connection.
void indexWorkTable(Database& db, const std::string& table, const std::string& columns);

// Runs what fills work tables from the books; once more, three times at most, where somebody stored something
// meanwhile. Returns how often the books had been changed when it began (Database::changeCount).
std::optional<std::int64_t> readStill(Database& db, const std::function<void()>& read);

// A table that the dictionary declares, where it or some of its columns are missing.
void ensureTable(Database& db, std::string_view table);

// How many rows the table of the books has, also where a work table stands before it.
double standingRows(Database& db, const std::string& table);
RowCounts rowsOfTables(Database& db);
bool hasIndex(Database& db, std::string_view name);
// An index over all rows begins with the column.
bool isIndexed(Database& db, std::string_view table, std::string_view column);

// How the engine works while a whole table is written anew: a file does not blank the pages that it is about
// to fill again, nor measure texts that fit by the lengths of the columns that they come from; and what
// has been written is not wanted again soon, so that little of it is kept in memory.
class BulkWriting {
 public:
  explicit BulkWriting(Database& db);
  ~BulkWriting();
  BulkWriting(const BulkWriting&) = delete;
  BulkWriting& operator=(const BulkWriting&) = delete;

 private:
  Database& db_;
};

// The catalogue among the tables of the books, so that one transaction writes both or none.
class WithCatalogue {
 public:
  WithCatalogue(Database& year, const std::filesystem::path& catalogue);
  ~WithCatalogue();
  WithCatalogue(const WithCatalogue&) = delete;
  WithCatalogue& operator=(const WithCatalogue&) = delete;
  // What a statement calls the table compny meanwhile.
  const std::string& compny() const { return compny_; }

 private:
  Database& year_;
  std::string compny_;
};

// What is wrong with the books as stored; empty when they are whole.
std::string damageIn(Database& db);

// Adds a statement to the file that MIRAV_STATEMENTS names, once for a program: so the tests know what is
// asked of an engine (tests/server/statements). Nothing without that.
void noteStatement(std::string_view sql);
