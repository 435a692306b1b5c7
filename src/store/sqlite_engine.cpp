#include "store/sqlite_engine.h"

#include <SQLiteCpp/Backup.h>
#include <sqlite3.h>

#include <array>
#include <chrono>

#include "base/end_asked.h"
#include "base/words.h"
#include "store/functions.h"
#include "store/lock_wait.h"
#include "store/safe_file.h"
#include "store/sqlite_connection.h"

namespace {

constexpr int kLongestRow = 64 << 20;
constexpr int kStepsUnasked = 100'000;  // about a millisecond

using Kind = DatabaseError::Kind;

Kind kindOf(int code) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return Kind::locked;
    case SQLITE_FULL:
      return Kind::full;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return Kind::readOnly;
    case SQLITE_CANTOPEN:
      return Kind::cannotOpen;
    case SQLITE_NOTADB:
      return Kind::notDatabase;
    case SQLITE_CORRUPT:
    case SQLITE_TOOBIG:
      return Kind::damaged;
    case SQLITE_IOERR:
      return Kind::io;
    case SQLITE_NOMEM:
      return Kind::memory;
    case SQLITE_CONSTRAINT:
      return Kind::constraint;
    case SQLITE_INTERRUPT:
      return Kind::stopped;
    default:
      return Kind::other;
  }
}

// Called by the engine every so many of its steps, which is more often than anybody wants to be asked.
int endsStatement(void*) {
  using Clock = std::chrono::steady_clock;
  static Clock::time_point last{};
  if (!endAsked() || Clock::now() - last < std::chrono::milliseconds(100)) return 0;
  last = Clock::now();
  return endAsked()() ? 1 : 0;
}

void bindValue(SQLite::Statement& statement, int index, const Value& value) {
  if (value.isNull())
    statement.bind(index);
  else if (value.isWhole())
    statement.bind(index, value.whole());
  else if (value.isText())
    statement.bind(index, value.text());
  else
    statement.bind(index, value.number());
}

// Every failure of the engine passes here and takes its statement along. Codes below 0 are of the calls
// that were made, such as one for a column that there is not.
template <typename Work>
auto checked(const std::filesystem::path& file, std::string_view sql, Work work) -> decltype(work()) {
  try {
    return work();
  } catch (const SQLite::Exception& error) {
    const int code = error.getErrorCode();
    if (code < 0 || code == SQLITE_MISUSE || code == SQLITE_RANGE) throw StatementError(error.what(), sql);
    throw DatabaseError(kindOf(code), shownName(file), error.what(), std::string(sql),
                        error.getExtendedErrorCode());
  }
}

class SqliteStatement final : public PreparedStatement {
 public:
  SqliteStatement(SQLite::Database& database, const std::filesystem::path& file, std::string_view text)
      : PreparedStatement(std::string(text)),
        file_(file),
        connection_(database.getHandle()),
        statement_(database, sql) {}

  int parameters() const override { return statement_.getBindParameterCount(); }
  void bind(const std::vector<Value>& values) override {
    checked(file_, sql, [&] {
      for (size_t i = 0; i < values.size(); ++i) bindValue(statement_, static_cast<int>(i) + 1, values[i]);
    });
  }
  bool step() override {
    if (!running_) before_ = sqlite3_total_changes(connection_);
    running_ = true;
    return checked(file_, sql, [&] { return statement_.executeStep(); });
  }
  void reset() noexcept override {
    statement_.tryReset();
    running_ = false;
  }
  // A statement that is no change leaves the count of the one before it standing.
  int changed() const override {
    return sqlite3_total_changes(connection_) == before_ ? 0 : sqlite3_changes(connection_);
  }
  int columns() const override { return statement_.getColumnCount(); }
  std::string columnName(int column) const override { return statement_.getColumnName(column); }
  std::string declaredType(int column) const override {
    try {
      const char* type = statement_.getColumnDeclaredType(column);
      return type == nullptr ? std::string() : std::string(type);
    } catch (const SQLite::Exception&) {
      return {};  // how an expression shows
    }
  }
  Value value(int column) const override {
    return checked(file_, sql, [&]() -> Value {
      const auto cell = statement_.getColumn(column);
      switch (cell.getType()) {
        case SQLITE_NULL:
          return {};
        case SQLITE_INTEGER:
          return cell.getInt64();
        case SQLITE_FLOAT:
          return cell.getDouble();
        default:
          return cell.getString();
      }
    });
  }
  bool isNull(int column) const override {
    return checked(file_, sql, [&] { return statement_.isColumnNull(column); });
  }

 private:
  const std::filesystem::path& file_;
  sqlite3* connection_;
  mutable SQLite::Statement statement_;
  int before_ = 0;
  bool running_ = false;
};

}  // namespace

std::unique_ptr<Engine> openSqliteEngine(Database& face, const std::filesystem::path& file, Access access) {
  // Nobody asks how much memory the engine has; without the count it takes no lock at each piece.
  [[maybe_unused]] static const int uncounted = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  const bool inMemory = file == ":memory:";
  // Before the file is opened, which may be replaced while its lock is waited for.
  LockFile lock = inMemory ? LockFile() : LockFile(file);
  if (lock.refused()) throw DatabaseError(Kind::locked, shownName(file), {});
  if (access != Access::create && !inMemory && !isPlainFile(file))
    throw DatabaseError(fileExists(file) ? Kind::notDatabase : Kind::missing, shownName(file), {});
  // The engine would wait for ever at a pipe.
  if (const std::string journal = file.string() + "-journal"; fileExists(journal) && !isPlainFile(journal))
    throw DatabaseError(Kind::cannotOpen,
                        DatabaseError::Told{words("{file} is in the way: it is no file.", "file", journal)});

  const int mode = access == Access::readOnly ? SQLite::OPEN_READONLY
                   : access == Access::create ? SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE
                                              : SQLite::OPEN_READWRITE;
  // The program has one thread.
  return checked(file, "", [&] {
    return std::make_unique<SqliteEngine>(face, file, mode | SQLite::OPEN_NOMUTEX, std::move(lock));
  });
}

SqliteEngine::SqliteEngine(Database& face, const std::filesystem::path& file, int flags, LockFile lock)
    : face_(face), file_(file), lock_(std::move(lock)), sqlite_(file.string(), flags, lockWaitMs()) {
  useSettings();
}

void SqliteEngine::useSettings() {
  sqlite3* const connection = sqlite_.getHandle();
  sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  // What a file's own shape may do: call nothing that reaches out of it, and not its own shape.
  sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, kLongestRow);
  sqlite3_limit(connection, SQLITE_LIMIT_ATTACHED, 1);
  sqlite3_progress_handler(connection, kStepsUnasked, endsStatement, nullptr);
  registerFunctions(connection);
  // The page size is that of a new file. Work tables stay in memory as long as they are small; a large
  // sort does not.
  for (const char* pragma :
       {"PRAGMA page_size = 8192", "PRAGMA temp_store = FILE", "PRAGMA synchronous = FULL",
        "PRAGMA cache_size = -32000", "PRAGMA journal_mode = DELETE"})
    SQLite::Statement(sqlite_, pragma).executeStep();
  // The first read of the file: what is no database shows here.
  SQLite::Statement(sqlite_, "SELECT COUNT(*) FROM main.sqlite_master").executeStep();
}

std::unique_ptr<PreparedStatement> SqliteEngine::prepare(std::string_view sql) {
  return checked(file_, sql, [&] { return std::make_unique<SqliteStatement>(sqlite_, file_, sql); });
}

bool SqliteEngine::understands(std::string_view sql) {
  try {
    const SQLite::Statement prepared(sqlite_, std::string(sql));
    return true;
  } catch (const SQLite::Exception&) {
    return false;
  }
}

std::int64_t SqliteEngine::insertedRow() {
  return static_cast<std::int64_t>(sqlite3_last_insert_rowid(sqlite_.getHandle()));
}

void SqliteEngine::begin(Transaction::Writes what) {
  // The file's lock is asked for at the start, where waiting for it costs nothing that was done.
  face_.exec(what == Transaction::Writes::File ? "BEGIN IMMEDIATE" : "BEGIN DEFERRED");
}

void SqliteEngine::commit() { face_.exec("COMMIT"); }

void SqliteEngine::rollBack() { face_.exec("ROLLBACK"); }

void SqliteEngine::savepoint(int depth) { face_.exec("SAVEPOINT nested_" + std::to_string(depth)); }

void SqliteEngine::release(int depth) { face_.exec("RELEASE nested_" + std::to_string(depth)); }

void SqliteEngine::rollBackTo(int depth) {
  face_.exec("ROLLBACK TO nested_" + std::to_string(depth));
  release(depth);
}

bool SqliteEngine::inTransaction() const { return sqlite3_get_autocommit(sqlite_.getHandle()) == 0; }

// Read through the engine's own handle: closing another one would give up its locks.
std::optional<std::int64_t> SqliteEngine::changeCount() {
  constexpr int kPlace = 24;  // of four bytes, by the file format
  sqlite3_file* own = nullptr;
  sqlite3_file_control(sqlite_.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &own);
  std::array<unsigned char, 4> bytes{};
  if (!own || !own->pMethods || own->pMethods->xRead(own, bytes.data(), bytes.size(), kPlace) != SQLITE_OK)
    return {};
  std::int64_t count = 0;
  for (const unsigned char byte : bytes) count = count << 8 | byte;
  return count;
}

double SqliteEngine::othersWrites() { return face_.number("PRAGMA main.data_version"); }

std::string SqliteEngine::sizeAndShape() {
  std::string state;
  for (const char* pragma : {"page_count", "schema_version"})
    state += std::string(" ") + pragma + " " + face_.text(std::string("PRAGMA main.") + pragma);
  return state;
}

double SqliteEngine::shapeChanges() { return face_.number("PRAGMA main.schema_version"); }

std::string SqliteEngine::damage() {
  const std::string found = face_.text("PRAGMA main.integrity_check");
  return found == "ok" ? "" : found;
}

void SqliteEngine::writesInBulk(bool bulk) {
  if (bulk) {
    blanking_ = face_.text("PRAGMA main.secure_delete");
    kept_ = face_.text("PRAGMA main.cache_size");
  }
  for (const char* schema : {"main", "temp"})
    face_.exec(std::string("PRAGMA ") + schema + ".secure_delete = " + (bulk ? "OFF" : blanking_));
  face_.exec("PRAGMA main.cache_size = " + (bulk ? "-6000" : kept_));
  face_.exec(std::string("PRAGMA ignore_check_constraints = ") + (bulk ? "ON" : "OFF"));
}

std::string SqliteEngine::joinCatalogue(const std::filesystem::path& catalogue) {
  face_.exec("ATTACH ? AS catalogue", catalogue.string());
  return "catalogue.compny";
}

void SqliteEngine::leaveCatalogue() { face_.exec("DETACH ?", "catalogue"); }

RowCounts SqliteEngine::copyInto(const std::filesystem::path& file) {
  // Others store nothing between the copying and the counting.
  const Transaction same(face_, Transaction::Writes::WorkTables);
  tables();
  try {
    SQLite::Database copy(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, lockWaitMs());
    const int result = SQLite::Backup(copy, sqlite_).executeStep();
    if (result != SQLITE_DONE)
      throw DatabaseError(kindOf(result), shownName(file_), sqlite3_errstr(result), {}, result);
    return rowsOfTables(face_);
  } catch (const SQLite::Exception& error) {
    throw DatabaseError(kindOf(error.getErrorCode()), shownName(file), error.what(), {},
                        error.getExtendedErrorCode());
  }
}
