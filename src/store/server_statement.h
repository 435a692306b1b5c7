#pragma once

#include <mysql.h>

#include <string>
#include <string_view>
#include <vector>

#include "store/server_connection.h"

// A statement in a server's own words.
std::string onServerText(std::string_view statement);

// A statement on a server, sent once and run with its values as often as wanted; on another connection it is
// sent again. What it selects is read at once, so that other statements may run between its rows.
class ServerStatement final : public PreparedStatement {
 public:
  // Raises DatabaseError; Kind::other for what the server does not understand.
  ServerStatement(ServerEngine& engine, std::string text);
  ~ServerStatement() override;

  int parameters() const override { return parameters_; }
  void bind(const std::vector<Value>& values) override { values_ = values; }
  bool step() override;
  // Runs it over the connection as it stands, in no transaction of its own.
  void rerun() { execute(); }
  // The same of several statements in one; returns the row that one of them selects, if one did.
  std::vector<std::int64_t> answer();
  void reset() noexcept override;
  int changed() const override { return changed_; }
  int columns() const override { return static_cast<int>(cells_.size()); }
  std::string columnName(int column) const override { return cells_.at(static_cast<size_t>(column)).name; }
  std::string declaredType(int column) const override;
  Value value(int column) const override;
  bool isNull(int column) const override { return cells_.at(static_cast<size_t>(column)).null != 0; }

 private:
  struct Cell {
    std::string name{};
    enum_field_types read = MYSQL_TYPE_STRING;  // LONGLONG, DOUBLE or STRING
    long long whole = 0;
    double number = 0;
    std::vector<char> text{};
    unsigned long length = 0;
    my_bool null = 0;
  };

  void prepare();
  void close() noexcept;
  void run();
  void execute();
  void readShape();
  void bindValues();
  void readResult();
  void await(int status, int (*goOn)(int*, MYSQL_STMT*, int), int& result);
  [[noreturn]] void fail();

  ServerEngine& engine_;
  const std::string target_;  // the table that it writes
  MYSQL_STMT* handle_ = nullptr;
  int generation_ = 0, parameters_ = 0, changed_ = 0;
  bool running_ = false;
  std::vector<Value> values_;
  std::vector<MYSQL_BIND> bound_;
  std::vector<long long> wholes_;
  std::vector<double> numbers_;
  std::vector<std::string> texts_, origins_;
  std::vector<Cell> cells_;
};
