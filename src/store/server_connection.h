#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include "store/engine.h"
#include "store/server_link.h"
#include "store/work_journal.h"

class ServerStatement;

// One database of a server. As with a file, one program writes at a time: a writing transaction begins by
// counting in the row of TURN that all share, and whoever is second waits for it or, on a cluster, is taken
// back at the end (DatabaseError::Kind::again). Each program has its own row of TURN: the count of its last
// transaction, which tells what became of one whose answer was lost, and when it was last seen.
class ServerEngine final : public Engine {
 public:
  ServerEngine(Database& face, const std::filesystem::path& books, Access access);
  ~ServerEngine() override;

  std::unique_ptr<PreparedStatement> prepare(std::string_view sql) override;
  bool understands(std::string_view sql) override;
  std::int64_t insertedRow() override { return inserted_; }
  bool later(std::string_view sql, const std::vector<Value>& values) override;

  void begin(Transaction::Writes what) override;
  void commit() override;
  void rollBack() override;
  void savepoint(int depth) override;
  void release(int depth) override;
  void rollBackTo(int depth) override;
  bool inTransaction() const override { return state_ != State::None; }

  bool firstUser() override { return first_; }
  std::optional<std::int64_t> changeCount() override;
  double othersWrites() override;
  std::string sizeAndShape() override { return {}; }
  double shapeChanges() override { return shapeChanges_; }
  std::string damage() override;
  int shapeVersion() override;
  void stampShape(int version) override;

  std::vector<std::string> tables() override;
  bool hasTable(std::string_view name) override;
  std::vector<Column> tableColumns(std::string_view table) override;
  std::vector<Column> columnsHere(std::string_view table) override;
  double standingRows(std::string_view table) override;
  std::string standing(std::string_view table) const override { return serverName(table); }
  void createTable(const std::string& table, const std::vector<Column>& columns) override;
  void addColumn(const std::string& table, const Column& column) override;
  void reshape(const std::string& table, const std::vector<NewColumn>& plan) override;
  void dropTable(const std::string& table) override;
  void makeWorkTable(const std::string& table, const std::vector<Column>& columns) override;
  void indexWorkTable(const std::string& table, const std::string& columns) override;
  void dropWorkTables() override;

  void makeList(const std::string& name, const std::string& select) override;
  void dropList(const std::string& name) override;

  bool hasIndex(std::string_view name) override;
  bool hasIndex(const IndexShape& index) override;
  void createIndex(const IndexShape& index) override;
  void dropIndex(std::string_view name) override;
  bool isIndexed(std::string_view table, std::string_view column) override;
  bool locksWhatItCopies() const override { return true; }
  bool stepsThroughValues() const override { return false; }
  bool findsFewFirst() const override { return true; }

  std::vector<std::string> views() override;
  void createView(const std::string& name, const std::string& select) override;
  void dropView(const std::string& name) override;

  std::string sumWhere(std::string_view figure, std::string_view condition) override;
  std::string beginRewriting(const std::string& table, std::span<const std::string_view> indexes) override;
  void putRewritten(const std::string& table) override;
  void endRewriting(const std::string& table) override;
  void writesInBulk(bool bulk) override;
  std::string joinCatalogue(const std::filesystem::path& catalogue) override;
  void leaveCatalogue() override {}
  RowCounts copyInto(const std::filesystem::path& file) override;

  bool stillHere() override;
  std::vector<Other> others() override;
  std::optional<Other> takeInHand(const std::string& book, const std::string& number) override;
  void letGo(const std::string& book, const std::string& number) override;
  std::optional<Other> hold(const std::string& what, Hold how) override;
  void endHold() override;
  std::optional<Other> heldBy() override;
  void areExchanged() override;

  // For its statements.
  ServerLink& link() { return link_; }
  // Connects again where the connection was lost and nothing of a transaction was lost with it.
  void stand();
  // Sends what was kept for later. Savepoints alone may wait until something is written.
  void catchUp(bool onlyReads);
  // Runs what writes, in a transaction of its own where there is none.
  void write(const std::string& table, const std::string& sql, const std::vector<Value>& values,
             const std::function<void()>& run);
  void inserted(std::int64_t row) { inserted_ = row; }
  // Throws what the server said; what it took back with it is known from then on.
  [[noreturn]] void fail(unsigned code, const std::string& text, std::string_view sql);
  // The declared type of a column of a result: "TEXT(6)", "DOUBLE", "DATE".
  std::string declaredType(const std::string& table, const std::string& column);

 private:
  enum class State { None, Reading, Writing };
  // A statement of the running transaction that was not sent yet, or the beginning of a savepoint.
  struct Later {
    std::string sql;
    std::vector<Value> values{};
    int savepoint = 0;
  };
  struct Index {
    std::string table, columns, parts;  // the parts as they are written in its definition
    bool unique = false;
  };

  void reach();
  void enter();
  // Who is here (server_together.cpp).
  void takePlace();
  void writePlace();
  void forgetTheDead();
  void leavePlace();
  std::string mine(const char* column) const;
  void unmark(const std::string& book, const std::string& number, const std::string& program);
  void runOwn(std::unique_ptr<ServerStatement>& kept, const char* sql, const std::vector<Value>& values);
  bool changeTurn(const std::string& change);
  std::string holdsEnd() const;
  void tellHold();
  void repeat(const std::vector<WorkJournal::Entry>& entries);
  void start(Transaction::Writes what);
  void takeTurn();
  void countIn();
  void counted(std::int64_t count);
  ServerStatement* together(const std::string& text);
  void sendLater(bool commits);
  bool wasStored();
  std::int64_t lastTurn();
  void forgetTransaction();
  std::vector<std::vector<std::string>> tell(const std::string& sql);
  [[noreturn]] void failed(const DatabaseError& error);
  // A definition, which ends what is in transaction: that is committed and goes on.
  void define(const std::string& sql);
  const std::map<std::string, Index>& indexes();
  std::string createTableText(const std::string& head, const std::vector<Column>& columns) const;
  std::string workTableText(const std::string& table, const std::vector<Column>& columns) const;
  std::string keyParts(const IndexShape& index);

  Database& face_;
  const std::filesystem::path books_;
  const std::string program_;  // our row of TURN
  ServerLink link_;
  State state_ = State::None;
  int savepoints_ = 0;
  std::int64_t turn_ = 0, storedTurn_ = 0;  // of the running and of the last stored transaction
  std::int64_t count_ = -1;                 // the count that all share, as it was seen last
  std::vector<Later> later_;
  std::exception_ptr lostWhole_;  // what a statement that was sent later met
  bool committing_ = false;
  std::unique_ptr<ServerStatement> countsIn_, marks_, unmarks_;
  std::map<std::string, std::unique_ptr<ServerStatement>> together_;  // sent as one, by their text
  std::int64_t inserted_ = 0, stored_ = 0;
  bool first_ = true, entered_ = false;
  bool mayMark_ = true, holds_ = false;
  bool owesEnd_ = false;         // of a hold, which the server does not know yet
  std::string exchanged_ = "0";  // how often the tables had been exchanged when the books were opened
  std::chrono::steady_clock::time_point seen_{};
  int generation_ = 0;
  double shapeChanges_ = 1;
  WorkJournal journal_;
  size_t journalMark_ = 0;
  std::vector<size_t> journalMarks_;
  std::map<std::string, std::vector<Column>> work_;  // work tables of this connection
  std::map<std::string, std::string> workIndexes_;
  std::set<std::string> lists_;
  std::set<std::string> known_;    // tables that were found
  std::set<std::string> missing_;  // and such that were not, until another program writes
  std::optional<std::map<std::string, Index>> indexes_;
  std::map<std::string, std::vector<Column>> shapes_;
};
