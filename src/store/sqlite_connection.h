#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include "store/engine.h"
#include "store/lock_file.h"

// The embedded engine. What it asks by itself goes through the face, where prepared statements are kept.
class SqliteEngine final : public Engine {
 public:
  SqliteEngine(Database& face, const std::filesystem::path& file, int flags, LockFile lock);

  std::unique_ptr<PreparedStatement> prepare(std::string_view sql) override;
  bool understands(std::string_view sql) override;
  std::int64_t insertedRow() override;

  void begin(Transaction::Writes what) override;
  void commit() override;
  void rollBack() override;
  void savepoint(int depth) override;
  void release(int depth) override;
  void rollBackTo(int depth) override;
  bool inTransaction() const override;

  bool firstUser() override { return lock_.alone(); }
  std::optional<std::int64_t> changeCount() override;
  double othersWrites() override;
  std::string sizeAndShape() override;
  double shapeChanges() override;
  std::string damage() override;
  int shapeVersion() override;
  void stampShape(int version) override;

  std::vector<std::string> tables() override;
  bool hasTable(std::string_view name) override;
  std::vector<Column> tableColumns(std::string_view table) override;
  std::vector<Column> columnsHere(std::string_view table) override;
  double standingRows(std::string_view table) override;
  std::string standing(std::string_view table) const override;
  void createTable(const std::string& table, const std::vector<Column>& columns) override;
  void addColumn(const std::string& table, const Column& column) override;
  void reshape(const std::string& table, const std::vector<NewColumn>& plan) override;
  void dropTable(const std::string& table) override;
  void makeWorkTable(const std::string& table, const std::vector<Column>& columns) override;
  void indexWorkTable(const std::string& table, const std::string& columns) override;

  void makeList(const std::string& name, const std::string& select) override;
  void dropList(const std::string& name) override;

  bool hasIndex(std::string_view name) override;
  bool hasIndex(const IndexShape& index) override;
  void createIndex(const IndexShape& index) override;
  void dropIndex(std::string_view name) override;
  bool isIndexed(std::string_view table, std::string_view column) override;
  bool locksWhatItCopies() const override { return false; }
  bool stepsThroughValues() const override { return true; }

  std::vector<std::string> views() override;
  void createView(const std::string& name, const std::string& select) override;
  void dropView(const std::string& name) override;

  std::string sumWhere(std::string_view figure, std::string_view condition) override;
  std::string beginRewriting(const std::string& table, std::span<const std::string_view> indexes) override;
  void putRewritten(const std::string&) override {}
  void endRewriting(const std::string& table) override;
  void writesInBulk(bool bulk) override;
  std::string joinCatalogue(const std::filesystem::path& catalogue) override;
  void leaveCatalogue() override;
  RowCounts copyInto(const std::filesystem::path& file) override;

 private:
  void useSettings();
  std::vector<std::string> indexStatements(const std::string& table);

  Database& face_;
  const std::filesystem::path file_;
  LockFile lock_;
  SQLite::Database sqlite_;
  std::string blanking_, kept_;              // the settings of before bulk writing
  std::vector<std::string> indexesAside_{};  // the statements that make them
};
