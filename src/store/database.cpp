#include "store/database.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <unordered_map>

#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/lock_wait.h"
#include "store/place.h"
#include "store/safe_file.h"
#include "store/server_engine.h"
#include "store/shape.h"
#include "store/sqlite_engine.h"
#include "store/stranger.h"

namespace {

constexpr size_t keptStatements = 200;

using Kind = DatabaseError::Kind;

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

bool changesSchema(std::string_view sql) {
  sql.remove_prefix(std::min(sql.find_first_not_of(' '), sql.size()));
  return startsWithNoCase(sql, "CREATE") || startsWithNoCase(sql, "DROP") || startsWithNoCase(sql, "ALTER");
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

struct Database::Kept {
  std::list<std::unique_ptr<PreparedStatement>> idle;  // latest used first
  std::unordered_multimap<std::string_view, decltype(idle)::iterator> bySql;
  std::unordered_map<std::string, std::vector<Column>> columns;
  double shapeChanges = -1;
  bool reshaped = false;  // by the transaction that runs

  void forget() {
    bySql.clear();
    idle.clear();
    columns.clear();
  }
};

Database::Database() = default;
Database::~Database() { close(); }

void Database::open(const std::filesystem::path& books, Access access) {
  if (onServer(books)) return openOnServer(books, access);
  openFile(books, access);
}

void Database::openOnServer(const std::filesystem::path& books, Access access) {
  close();
  try {
    begin(books, openServerEngine(*this, books, access));
    if (CheckTable(*this, "STRUCTAB")) RemakeWorkTables(*this);
  } catch (...) {
    close();
    throw;
  }
}

void Database::openFile(const std::filesystem::path& file, Access access) {
  close();
  file_ = file;
  try {
    begin(file, openSqliteEngine(*this, file, access));
    if (const std::string found = file == ":memory:" ? "" : strangerIn(*this); !found.empty())
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

void Database::begin(const std::filesystem::path& file, std::unique_ptr<Engine> engine) {
  file_ = file;
  engine_ = std::move(engine);
  kept_ = std::make_unique<Kept>();
}

void Database::close() noexcept {
  if (!engine_) return;
  kept_->forget();
  engine_.reset();
  depth_ = 0;
}

Engine& Database::engine() const {
  if (!engine_) throw StatementError("No database is open");
  return *engine_;
}

bool Database::firstUser() const { return !engine_ || engine_->firstUser(); }

bool Database::inTransaction() const { return engine_ && engine_->inTransaction(); }

void Database::forgetStatements() noexcept {
  if (engine_) kept_->forget();
}

std::unique_ptr<PreparedStatement> Database::take(std::string_view sql) {
  if (!engine_) throw StatementError("No database is open", sql);
  if (const auto found = kept_->bySql.find(sql); found != kept_->bySql.end()) {
    const auto at = found->second;
    auto statement = std::move(*at);
    kept_->bySql.erase(found);
    kept_->idle.erase(at);
    return statement;
  }
  noteStatement(sql);
  try {
    return engine_->prepare(sql);
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::other) throw;
    if (!fitsDeclaredShape(sql)) throw StatementError(error.what(), sql);
    throw DatabaseError(Kind::shape, {}, error.what(), std::string(sql), error.code());
  }
}

std::optional<std::int64_t> Database::changeCount() const { return engine().changeCount(); }

bool Database::understands(std::string_view sql) const { return engine().understands(sql); }

void Database::giveBack(std::unique_ptr<PreparedStatement> statement) noexcept {
  statement->reset();
  if (!engine_ || changesSchema(statement->sql)) return;
  auto& idle = kept_->idle;
  auto& bySql = kept_->bySql;
  idle.push_front(std::move(statement));
  bySql.emplace(idle.front()->sql, idle.begin());
  if (idle.size() <= keptStatements) return;
  const auto oldest = std::prev(idle.end());
  const auto [from, to] = bySql.equal_range((*oldest)->sql);
  for (auto at = from; at != to; ++at) {
    if (at->second != oldest) continue;
    bySql.erase(at);
    break;
  }
  idle.pop_back();
}

Rows Database::query(std::string_view sql, const std::vector<Value>& values) {
  auto statement = take(sql);
  if (static_cast<int>(values.size()) != statement->parameters())
    throw StatementError("The statement takes another count of values", sql);
  statement->bind(values);
  return Rows(*this, std::move(statement));
}

int Database::exec(std::string_view sql, const std::vector<Value>& values) {
  int changed = 0;
  {
    auto rows = query(sql, values);
    while (rows.next()) {
    }
    changed = rows.statement_->changed();
  }
  if (changesSchema(sql)) {
    forgetStatements();
    kept_->reshaped = true;
  }
  return changed;
}

void Database::later(std::string_view sql, const std::vector<Value>& values) {
  if (!engine().later(sql, values)) {
    exec(sql, values);
    return;
  }
  noteStatement(sql);
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

const std::vector<Column>& Database::columns(std::string_view table) {
  // Another program may have updated the database since.
  const double changes = engine().shapeChanges();
  if (changes != kept_->shapeChanges) kept_->columns.clear();
  kept_->shapeChanges = changes;

  const std::string key = upper(table);
  if (const auto known = kept_->columns.find(key); known != kept_->columns.end()) return known->second;
  return kept_->columns.emplace(key, engine_->columnsHere(key)).first->second;
}

Rows::Rows(Database& database, std::unique_ptr<PreparedStatement> statement)
    : database_(&database), statement_(std::move(statement)) {}

Rows::Rows(Rows&&) noexcept = default;

Rows::~Rows() {
  if (statement_) database_->giveBack(std::move(statement_));
}

bool Rows::next() {
  if (done_) return false;
  done_ = !statement_->step();
  if (done_) statement_->reset();
  return !done_;
}

const ColumnNames& Rows::names() const {
  if (!names_) {
    std::vector<std::string> names;
    const int columns = statement_->columns();
    names.reserve(static_cast<size_t>(columns));
    for (int i = 0; i < columns; ++i) names.emplace_back(statement_->columnName(i));
    names_ = std::make_shared<const ColumnNames>(std::move(names));
  }
  return *names_;
}

std::string Rows::declaredType(int column) const { return statement_->declaredType(column); }

Value Rows::value(int column) const { return statement_->value(column); }

std::string Rows::text(int column) const { return value(column).text(); }

double Rows::number(int column) const { return value(column).number(); }

bool Rows::isNull(int column) const { return statement_->isNull(column); }

Row Rows::row() const {
  names();
  std::vector<Value> values;
  values.reserve(static_cast<size_t>(names_->count()));
  for (int i = 0; i < names_->count(); ++i) values.push_back(value(i));
  return {names_, std::move(values)};
}

Transaction::Transaction(Database& database, Writes what) : database_(database), depth_(database.depth_) {
  if (depth_ == 0) {
    database_.engine().begin(what);
    database_.kept_->reshaped = false;
  } else {
    database_.engine().savepoint(depth_);
  }
  ++database_.depth_;
}

Transaction::~Transaction() {
  if (!open_) return;
  database_.depth_ = depth_;
  try {
    // The engine may have rolled back by itself, after a full disk for instance.
    if (!database_.inTransaction()) return;
    if (depth_ == 0)
      database_.engine().rollBack();
    else
      database_.engine().rollBackTo(depth_);
    if (database_.kept_->reshaped) database_.forgetStatements();
  } catch (const std::exception&) {
    // Nothing more can be done here: closing the file rolls back.
  }
}

void Transaction::commit() {
  if (depth_ == 0)
    database_.engine().commit();
  else
    database_.engine().release(depth_);
  open_ = false;
  database_.depth_ = depth_;
}
