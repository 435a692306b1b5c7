#include "store/database.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <chrono>
#include <iterator>
#include <list>
#include <unordered_map>

#include "base/end_asked.h"
#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/functions.h"
#include "store/lock_file.h"
#include "store/lock_wait.h"
#include "store/safe_file.h"
#include "store/shape.h"
#include "store/stranger.h"

namespace {

constexpr size_t keptStatements = 200;
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

std::string sentence(Kind kind, const std::string& file, const std::string& detail) {
  switch (kind) {
    case Kind::locked:
      return words("{file} is in use by another program. Nothing was stored. Try again in a moment.", "file",
                   file);
    case Kind::full:
      return words("The disk is full. Nothing was stored in {file}. Free some space and try again.", "file",
                   file);
    case Kind::readOnly:
      return words("{file} can only be read: the file or its folder is write-protected.", "file", file);
    case Kind::missing:
      return words("{file} was not found.", "file", file);
    case Kind::cannotOpen:
      return words("{file} cannot be opened or written. Check the rights of its folder.", "file", file);
    case Kind::notDatabase:
      return words("{file} is not a database of this program.", "file", file);
    case Kind::damaged:
      return words("{file} is damaged. Restore it from a backup.", "file", file);
    case Kind::io:
      return words("{file} cannot be read or written: the disk reports an error ({detail}).", "file", file,
                   "detail", detail);
    case Kind::memory:
      return words("There is not enough memory to go on.");
    case Kind::stopped:
      return words("Stopped As You Asked :: Nothing Was Stored");
    case Kind::stranger:
      return words(
          "{file} Was Not Opened :: It Holds {detail}\r\n"
          "No Books Of This Program Hold That, And It Could Change What Is Stored",
          "file", file, "detail", detail);
    case Kind::constraint:
    case Kind::shape:
    case Kind::lost:
    case Kind::denied:
    case Kind::again:
    case Kind::tooOld:
    case Kind::other:
      break;
  }
  return detail;
}

// Called by the engine every so many of its steps, which is more often than anybody wants to be asked.
int endsStatement(void*) {
  using Clock = std::chrono::steady_clock;
  static Clock::time_point last{};
  if (!endAsked() || Clock::now() - last < std::chrono::milliseconds(100)) return 0;
  last = Clock::now();
  return endAsked()() ? 1 : 0;
}

bool changesSchema(std::string_view sql) {
  const std::string text = ltrim(sql);
  return startsWithNoCase(text, "CREATE") || startsWithNoCase(text, "DROP") ||
         startsWithNoCase(text, "ALTER");
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

}  // namespace

int& lockWaitMs() {
  static int wait = 3000;
  return wait;
}

DatabaseError::DatabaseError(Kind kind, const std::string& file, const std::string& detail,
                             std::string statement, int code)
    : std::runtime_error(sentence(kind, file, detail)),
      kind_(kind),
      statement_(std::move(statement)),
      code_(code) {}

DatabaseError::DatabaseError(Kind kind, const Told& told, std::string statement, int code)
    : std::runtime_error(told.sentence), kind_(kind), statement_(std::move(statement)), code_(code) {}

int ColumnNames::find(std::string_view name) const {
  for (size_t i = 0; i < names_.size(); ++i)
    if (sameText(names_[i], name)) return static_cast<int>(i);
  return -1;
}

int ColumnNames::index(std::string_view name) const {
  const int at = find(name);
  if (at < 0) throw StatementError("The result has no column " + std::string(name));
  return at;
}

struct PreparedStatement {
  PreparedStatement(SQLite::Database& database, std::string_view text)
      : sql(text), statement(database, sql) {}
  std::string sql;
  SQLite::Statement statement;
};

struct Database::Handle {
  LockFile lock;
  SQLite::Database sqlite;
  std::list<std::unique_ptr<PreparedStatement>> idle;  // latest used first
  std::unordered_multimap<std::string_view, decltype(idle)::iterator> bySql;
  std::unordered_map<std::string, std::vector<Column>> columns;
  double schemaVersion = -1;

  Handle(const std::filesystem::path& file, int flags) : sqlite(file.string(), flags, lockWaitMs()) {}

  void forget() {
    bySql.clear();
    idle.clear();
    columns.clear();
  }
};

Database::Database() = default;
Database::~Database() { close(); }

// Every failure of the engine passes here and takes its statement along. Codes below 0 are of the calls
// that were made, such as one for a column that there is not.
template <typename Work>
auto Database::checked(std::string_view sql, Work work) -> decltype(work()) {
  try {
    return work();
  } catch (const SQLite::Exception& error) {
    const int code = error.getErrorCode();
    if (code < 0 || code == SQLITE_MISUSE || code == SQLITE_RANGE) throw StatementError(error.what(), sql);
    throw DatabaseError(kindOf(code), shownName(file_), error.what(), std::string(sql),
                        error.getExtendedErrorCode());
  }
}

void Database::open(const std::filesystem::path& file, Access access) {
  close();
  file_ = file;
  const bool inMemory = file == ":memory:";
  // Before the file is opened, which may be replaced while its lock is waited for.
  LockFile lock = inMemory ? LockFile() : LockFile(file);
  if (lock.refused()) throw DatabaseError(Kind::locked, shownName(file), {});
  if (access != Access::create && !inMemory && !isPlainFile(file))
    throw DatabaseError(fileExists(file) ? Kind::notDatabase : Kind::missing, shownName(file), {});
  // The engine would wait for ever at a pipe.
  if (const std::string journal = file.string() + "-journal"; fileExists(journal) && !isPlainFile(journal))
    throw DatabaseError(Kind::other, {}, words("{file} is in the way: it is no file.", "file", journal));

  const int mode = access == Access::readOnly ? SQLite::OPEN_READONLY
                   : access == Access::create ? SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE
                                              : SQLite::OPEN_READWRITE;
  // The program has one thread.
  const int flags = mode | SQLite::OPEN_NOMUTEX;
  try {
    checked("", [&] {
      handle_ = std::make_unique<Handle>(file, flags);
      handle_->lock = std::move(lock);
      useSettings();
    });
    if (const std::string found = inMemory ? "" : strangerIn(*this); !found.empty())
      throw DatabaseError(Kind::stranger, shownName(file), found);
    if (CheckTable(*this, "STRUCTAB") || CheckTable(*this, "T_SLITM")) RemakeWorkTables(*this);
  } catch (const DatabaseError& error) {
    close();
    if (error.kind() != Kind::other) throw;
    throw DatabaseError(Kind::damaged, shownName(file), error.what());  // a format that nobody knows
  } catch (...) {
    close();
    throw;
  }
}

void Database::useSettings() {
  sqlite3* const connection = handle_->sqlite.getHandle();
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
    SQLite::Statement(handle_->sqlite, pragma).executeStep();
  // The first read of the file: what is no database shows here.
  SQLite::Statement(handle_->sqlite, "SELECT COUNT(*) FROM main.sqlite_master").executeStep();
}

void Database::close() noexcept {
  if (!handle_) return;
  handle_->forget();
  handle_.reset();
  depth_ = 0;
}

bool Database::firstUser() const { return !handle_ || handle_->lock.alone(); }

bool Database::inTransaction() const {
  return handle_ && sqlite3_get_autocommit(handle_->sqlite.getHandle()) == 0;
}

void Database::forgetStatements() noexcept {
  if (handle_) handle_->forget();
}

std::unique_ptr<PreparedStatement> Database::take(std::string_view sql) {
  if (!handle_) throw StatementError("No database is open", sql);
  if (const auto found = handle_->bySql.find(sql); found != handle_->bySql.end()) {
    const auto at = found->second;
    auto statement = std::move(*at);
    handle_->bySql.erase(found);
    handle_->idle.erase(at);
    return statement;
  }
  try {
    return checked(sql, [&] { return std::make_unique<PreparedStatement>(handle_->sqlite, sql); });
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::other) throw;
    if (!fitsDeclaredShape(sql)) throw StatementError(error.what(), sql);
    throw DatabaseError(Kind::shape, {}, error.what(), std::string(sql), error.code());
  }
}

// Read through the engine's own handle: closing another one would give up its locks.
std::optional<std::int64_t> Database::changeCount() const {
  constexpr int kPlace = 24;  // of four bytes, by the file format
  sqlite3_file* own = nullptr;
  sqlite3_file_control(handle_->sqlite.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &own);
  std::array<unsigned char, 4> bytes{};
  if (!own || !own->pMethods || own->pMethods->xRead(own, bytes.data(), bytes.size(), kPlace) != SQLITE_OK)
    return {};
  std::int64_t count = 0;
  for (const unsigned char byte : bytes) count = count << 8 | byte;
  return count;
}

bool Database::understands(std::string_view sql) const {
  try {
    const SQLite::Statement prepared(handle_->sqlite, std::string(sql));
    return true;
  } catch (const SQLite::Exception&) {
    return false;
  }
}

void Database::giveBack(std::unique_ptr<PreparedStatement> statement) noexcept {
  statement->statement.tryReset();
  if (!handle_ || changesSchema(statement->sql)) return;
  auto& idle = handle_->idle;
  idle.push_front(std::move(statement));
  handle_->bySql.emplace(idle.front()->sql, idle.begin());
  if (idle.size() <= keptStatements) return;
  const auto oldest = std::prev(idle.end());
  const auto [from, to] = handle_->bySql.equal_range((*oldest)->sql);
  for (auto at = from; at != to; ++at) {
    if (at->second != oldest) continue;
    handle_->bySql.erase(at);
    break;
  }
  idle.pop_back();
}

Rows Database::query(std::string_view sql, const std::vector<Value>& values) {
  auto statement = take(sql);
  if (static_cast<int>(values.size()) != statement->statement.getBindParameterCount())
    throw StatementError("The statement takes another count of values", sql);
  checked(sql, [&] {
    for (size_t i = 0; i < values.size(); ++i)
      bindValue(statement->statement, static_cast<int>(i) + 1, values[i]);
  });
  return Rows(*this, std::move(statement));
}

int Database::exec(std::string_view sql, const std::vector<Value>& values) {
  sqlite3* const connection = handle_ ? handle_->sqlite.getHandle() : nullptr;
  const auto before = connection ? sqlite3_total_changes(connection) : 0;
  {
    auto rows = query(sql, values);
    while (rows.next()) {
    }
  }
  if (changesSchema(sql)) forgetStatements();
  // A statement that is no change leaves the count of the one before it standing.
  return sqlite3_total_changes(connection) == before ? 0 : sqlite3_changes(connection);
}

std::optional<Row> Database::first(std::string_view sql, const std::vector<Value>& values) {
  auto rows = query(sql, values);
  if (!rows.next()) return {};
  return rows.row();
}

Outcome Database::attempt(const Because& because, const std::function<int()>& work) {
  const auto passed = [&](const std::exception& error) -> Outcome {
    logFailure("passed over: " + std::string(because.reason), error);
    return {.error = error.what()};
  };
  try {
    return {.done = true, .changed = work()};
  } catch (const DatabaseError& error) {
    if (!error.mayBePassedOver()) throw;
    return passed(error);
  } catch (const StatementError& error) {
    if (!because.strangersShape) throw;
    return passed(error);
  }
}

void Database::passOver(const Because& because, const std::function<void()>& work) {
  (void)attempt(because, [&] {
    work();
    return 0;
  });
}

void Database::copyPages(const std::filesystem::path& to) {
  if (!handle_) throw StatementError("No database is open");
  try {
    SQLite::Database copy(to.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, lockWaitMs());
    const int result = SQLite::Backup(copy, handle_->sqlite).executeStep();
    if (result != SQLITE_DONE)
      throw DatabaseError(kindOf(result), shownName(file_), sqlite3_errstr(result), {}, result);
  } catch (const SQLite::Exception& error) {
    throw DatabaseError(kindOf(error.getErrorCode()), shownName(to), error.what(), {},
                        error.getExtendedErrorCode());
  }
}

const std::vector<Column>& Database::columns(std::string_view table) {
  // Another program may have updated the database since.
  const double version = number("PRAGMA main.schema_version");
  if (version != handle_->schemaVersion) handle_->columns.clear();
  handle_->schemaVersion = version;

  const std::string key = upper(table);
  if (const auto known = handle_->columns.find(key); known != handle_->columns.end()) return known->second;
  std::string create =
      text("SELECT sql FROM temp.sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE", key);
  if (create.empty())
    create = text("SELECT sql FROM main.sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE", key);
  return handle_->columns.emplace(key, declaredColumns(create)).first->second;
}

Rows::Rows(Database& database, std::unique_ptr<PreparedStatement> statement)
    : database_(&database), statement_(std::move(statement)) {}

Rows::Rows(Rows&&) noexcept = default;

Rows::~Rows() {
  if (statement_) database_->giveBack(std::move(statement_));
}

bool Rows::next() {
  if (done_) return false;
  done_ = !database_->checked(statement_->sql, [&] { return statement_->statement.executeStep(); });
  if (done_) statement_->statement.tryReset();
  return !done_;
}

const ColumnNames& Rows::names() const {
  if (!names_) {
    std::vector<std::string> names;
    for (int i = 0; i < statement_->statement.getColumnCount(); ++i)
      names.emplace_back(statement_->statement.getColumnName(i));
    names_ = std::make_shared<const ColumnNames>(std::move(names));
  }
  return *names_;
}

std::string Rows::declaredType(int column) const {
  try {
    const char* type = statement_->statement.getColumnDeclaredType(column);
    return type == nullptr ? std::string() : std::string(type);
  } catch (const SQLite::Exception&) {
    return {};  // how an expression shows
  }
}

Value Rows::value(int column) const {
  return database_->checked(statement_->sql, [&]() -> Value {
    const auto cell = statement_->statement.getColumn(column);
    if (cell.isNull()) return {};
    if (cell.isInteger()) return cell.getInt64();
    if (cell.isFloat()) return cell.getDouble();
    return cell.getString();
  });
}

std::string Rows::text(int column) const { return value(column).text(); }

double Rows::number(int column) const { return value(column).number(); }

bool Rows::isNull(int column) const {
  return database_->checked(statement_->sql, [&] { return statement_->statement.isColumnNull(column); });
}

Row Rows::row() const {
  names();
  std::vector<Value> values;
  for (int i = 0; i < names_->count(); ++i) values.push_back(value(i));
  return {names_, std::move(values)};
}

Transaction::Transaction(Database& database, Writes what) : database_(database), depth_(database.depth_) {
  // The file's lock is asked for at the start, where waiting for it costs nothing that was done.
  const char* const begin = what == Writes::File ? "BEGIN IMMEDIATE" : "BEGIN DEFERRED";
  database_.exec(depth_ == 0 ? begin : "SAVEPOINT nested_" + std::to_string(depth_));
  ++database_.depth_;
}

Transaction::~Transaction() {
  if (!open_) return;
  database_.depth_ = depth_;
  try {
    // The engine may have rolled back by itself, after a full disk for instance.
    if (!database_.inTransaction()) return;
    if (depth_ == 0) {
      database_.exec("ROLLBACK");
    } else {
      database_.exec("ROLLBACK TO nested_" + std::to_string(depth_));
      database_.exec("RELEASE nested_" + std::to_string(depth_));
    }
    database_.forgetStatements();
  } catch (const std::exception&) {
    // Nothing more can be done here: closing the file rolls back.
  }
}

void Transaction::commit() {
  database_.exec(depth_ == 0 ? "COMMIT" : "RELEASE nested_" + std::to_string(depth_));
  open_ = false;
  database_.depth_ = depth_;
}
