#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/log.h"
#include "store/column.h"
#include "store/value.h"

// One open database: a file, or the books of that name on a database server (store/place.h). Statements
// stand as text where they are used (docs/statements.md), whichever engine keeps the books, and take their
// values as bound parameters:
//
//   auto rows = db.query("SELECT ACC_CD, ACC_NAME FROM ACCOUNT WHERE GROUP_CD = ?", 85);
//   while (rows.next()) list.add(rows.text("ACC_CD"), rows.text(1));
//
// Prepared statements are kept by their text, so a statement asked again is not parsed again.
// Failures are DatabaseError, our own mistakes StatementError. A lock of another program is waited for
// about three seconds. A connection to a server that was lost is made anew by the next statement; what was
// typed into work tables stands in them again.

class DatabaseError : public std::runtime_error, public WithStatement {
 public:
  enum class Kind {
    locked,
    full,
    readOnly,
    missing,
    cannotOpen,
    notDatabase,
    damaged,
    io,
    memory,
    constraint,
    stopped,   // by the person
    stranger,  // the file holds what would run on our reads and writes: store/stranger.h
    shape,     // the file lacks a table or column that this program declares
    lost,      // of a server: the connection, or there is none to be had
    denied,    // by a server: the password, or the right
    again,     // others wrote the same; the whole transaction may be tried once more
    tooOld,    // a server that does not know what is asked
    other
  };

  DatabaseError(Kind kind, const std::string& file, const std::string& detail, std::string statement = {},
                int code = 0);
  // With a sentence of its own.
  struct Told {
    explicit Told(std::string words) : sentence(std::move(words)) {}
    std::string sentence;
  };
  DatabaseError(Kind kind, const Told& told, std::string statement = {}, int code = 0);

  // what() is the sentence for the user.
  Kind kind() const { return kind_; }
  const std::string& statement() const override { return statement_; }
  int code() const { return code_; }
  // False for what must reach the user in any case: lock, full disk, I/O, memory, broken file, lost server.
  bool mayBePassedOver() const {
    return kind_ == Kind::constraint || kind_ == Kind::shape || kind_ == Kind::other;
  }

 private:
  Kind kind_;
  std::string statement_;
  int code_;
};

// A mistake of this program: a statement that is wrong over the declared shape too, another count of
// values than it takes, a column that a result does not have, no open database. Never passed over.
class StatementError : public std::logic_error, public WithStatement {
 public:
  explicit StatementError(const std::string& what, std::string_view statement = {})
      : std::logic_error(what), statement_(statement) {}
  const std::string& statement() const override { return statement_; }

 private:
  std::string statement_;
};

// Column names of a result, found without regard to case; of a repeated name the first counts.
class ColumnNames {
 public:
  explicit ColumnNames(std::vector<std::string> names) : names_(std::move(names)) {}
  int count() const { return static_cast<int>(names_.size()); }
  const std::string& at(int column) const { return names_.at(static_cast<size_t>(column)); }
  bool has(std::string_view name) const { return find(name) >= 0; }
  // Throws StatementError for an unknown name.
  int index(std::string_view name) const;

 private:
  int find(std::string_view name) const;
  std::vector<std::string> names_;
};

// One row, kept after its statement has ended.
class Row {
 public:
  Row() : Row(std::make_shared<ColumnNames>(std::vector<std::string>()), {}) {}
  Row(std::shared_ptr<const ColumnNames> names, std::vector<Value> values)
      : names_(std::move(names)), values_(std::move(values)) {}

  int count() const { return names_->count(); }
  const std::string& name(int column) const { return names_->at(column); }
  bool has(std::string_view column) const { return names_->has(column); }
  const Value& value(int column) const { return values_.at(static_cast<size_t>(column)); }
  const Value& value(std::string_view column) const { return value(names_->index(column)); }

  template <typename Key>
  std::string text(Key column) const {
    return value(column).text();
  }
  template <typename Key>
  double number(Key column) const {
    return value(column).number();
  }
  template <typename Key>
  bool isNull(Key column) const {
    return value(column).isNull();
  }
  template <typename Key>
  std::optional<Date> date(Key column) const {
    return value(column).date();
  }

 private:
  std::shared_ptr<const ColumnNames> names_;
  std::vector<Value> values_;
};

class Database;
class Engine;
class PreparedStatement;

// A running select, read once from its first row to its last. As long as it lives and has not
// reached its end, other programs cannot write a file: read to the end or let it go.
class Rows {
 public:
  Rows(Rows&&) noexcept;
  Rows& operator=(Rows&&) = delete;
  ~Rows();

  bool next();

  int count() const { return names().count(); }
  const ColumnNames& names() const;
  // "TEXT(6)", "DOUBLE", "DATE"; empty for an expression.
  std::string declaredType(int column) const;
  Row row() const;

  Value value(int column) const;
  std::string text(int column) const;
  double number(int column) const;
  bool isNull(int column) const;
  std::optional<Date> date(int column) const { return parseDate(text(column)); }

  Value value(std::string_view column) const { return value(names().index(column)); }
  std::string text(std::string_view column) const { return text(names().index(column)); }
  double number(std::string_view column) const { return number(names().index(column)); }
  bool isNull(std::string_view column) const { return isNull(names().index(column)); }
  std::optional<Date> date(std::string_view column) const { return parseDate(text(column)); }

 private:
  friend class Database;
  Rows(Database& database, std::unique_ptr<PreparedStatement> statement);

  Database* database_;
  std::unique_ptr<PreparedStatement> statement_;
  mutable std::shared_ptr<const ColumnNames> names_;
  bool done_ = false;
};

// What came of a statement whose failure is passed over.
struct [[nodiscard]] Outcome {
  bool done = false;
  int changed = 0;
  std::string error{};
  explicit operator bool() const { return done; }
};

// Why a failure does no harm; it goes into the log with it.
struct Because {
  std::string_view reason;
  // The statement is made from tables as they stand, of whatever origin: that the engine does not
  // understand it tells nothing of this program.
  bool strangersShape = false;
};
inline constexpr Because kOlderBooks{"an update has yet to add what older books lack"};
inline constexpr Because kOtherTrades{"a table of another trade, or one of older books, that may be missing"};

enum class Access { readWrite, readOnly, create };

class Database {
 public:
  Database();
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Closes what was open, then opens the books that the path names, in their file or on the server that
  // its folder names. A missing file is an error unless the access is `create`. On a company-year the
  // connection's own work tables stand ready, empty.
  void open(const std::filesystem::path& books, Access access = Access::readWrite);
  // The file, whatever its folder names.
  void openFile(const std::filesystem::path& file, Access access = Access::readWrite);
  // The database of the path's stem on the server that its folder names, also one under a passing name.
  void openOnServer(const std::filesystem::path& books, Access access = Access::readWrite);
  void close() noexcept;
  bool isOpen() const { return engine_ != nullptr; }
  const std::filesystem::path& file() const { return file_; }
  // Nobody else had the books open when they were opened here.
  bool firstUser() const;
  // What stands behind; raises StatementError when nothing is open.
  Engine& engine() const;

  // Returns the number of rows changed.
  template <typename... Args>
  int exec(std::string_view sql, const Args&... args) {
    return exec(sql, std::vector<Value>{Value(args)...});
  }
  int exec(std::string_view sql, const std::vector<Value>& values);

  // The same where nobody asks how many: within a transaction a server is told it together with what follows,
  // at the latest with the commit. What it refuses is thrown then, and all of the transaction is lost.
  template <typename... Args>
  void later(std::string_view sql, const Args&... args) {
    later(sql, std::vector<Value>{Value(args)...});
  }
  void later(std::string_view sql, const std::vector<Value>& values);

  template <typename... Args>
  Rows query(std::string_view sql, const Args&... args) {
    return query(sql, std::vector<Value>{Value(args)...});
  }
  Rows query(std::string_view sql, const std::vector<Value>& values);

  template <typename... Args>
  std::optional<Row> first(std::string_view sql, const Args&... args) {
    return first(sql, std::vector<Value>{Value(args)...});
  }
  std::optional<Row> first(std::string_view sql, const std::vector<Value>& values);

  template <typename... Args>
  std::vector<Row> all(std::string_view sql, const Args&... args) {
    std::vector<Row> rows;
    for (auto each = query(sql, args...); each.next();) rows.push_back(each.row());
    return rows;
  }

  // The first column of the first row; 0 or an empty text when there is none.
  template <typename... Args>
  double number(std::string_view sql, const Args&... args) {
    const auto row = first(sql, args...);
    return row ? row->number(0) : 0;
  }
  template <typename... Args>
  std::string text(std::string_view sql, const Args&... args) {
    const auto row = first(sql, args...);
    return row ? row->text(0) : std::string();
  }

  // For the places where a failure is passed over; the log keeps it. A lock, a full disk, an I/O error,
  // lack of memory and a broken or read-only file are thrown all the same, and so are our own mistakes.
  template <typename... Args>
  Outcome attempt(const Because& because, std::string_view sql, const Args&... args) {
    return attempt(because, std::function<int()>([&] { return exec(sql, args...); }));
  }
  Outcome attempt(const Because& because, const std::function<int()>& work);
  // Where what came of it changes nothing.
  template <typename... Args>
  void passOver(const Because& because, std::string_view sql, const Args&... args) {
    passOver(because, std::function<void()>([&] { exec(sql, args...); }));
  }
  void passOver(const Because& because, const std::function<void()>& work);

  // The table as it stands, work tables as they stand here; empty when there is none.
  const std::vector<Column>& columns(std::string_view table);
  void forgetStatements() noexcept;

  bool inTransaction() const;
  // How often the books were changed, by whichever program; none in memory. Stands still inside a
  // transaction that has read, and grows by one with each that has written.
  std::optional<std::int64_t> changeCount() const;
  // Whether the engine can make something of the statement here.
  bool understands(std::string_view sql) const;

 private:
  friend class Rows;
  friend class Transaction;
  struct Kept;

  std::unique_ptr<PreparedStatement> take(std::string_view sql);
  void giveBack(std::unique_ptr<PreparedStatement> statement) noexcept;
  void begin(const std::filesystem::path& file, std::unique_ptr<Engine> engine);

  std::filesystem::path file_;
  std::unique_ptr<Engine> engine_;
  std::unique_ptr<Kept> kept_;  // statements and shapes of tables
  int depth_ = 0;
};

// All or nothing. Rolls back at the end of its scope unless committed; one inside another is a
// savepoint.
class Transaction {
 public:
  // WorkTables: writes the connection's own tables alone, so that others may write the file meanwhile;
  // what it reads of the file stands still.
  enum class Writes { File, WorkTables };
  explicit Transaction(Database& database, Writes what = Writes::File);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void commit();

 private:
  Database& database_;
  int depth_;
  bool open_ = true;
};

// The work in a transaction that is committed at its end; returns what the work does. A `false` is a refusal
// and takes all back. Where a server takes it back because another transaction came first, the whole is done
// once more, up to three times: what the work changes outside of the database must be the same then.
template <typename Work>
auto whole(Database& db, Work work) {
  for (int left = db.inTransaction() ? 0 : 3;; --left) {
    try {
      Transaction all(db);
      if constexpr (std::is_void_v<decltype(work())>) {
        work();
        return all.commit();
      } else {
        auto result = work();
        if constexpr (std::is_same_v<decltype(result), bool>) {
          if (!result) return result;
        }
        all.commit();
        return result;
      }
    } catch (const DatabaseError& error) {
      if (error.kind() != DatabaseError::Kind::again || left == 0) throw;
    }
  }
}
