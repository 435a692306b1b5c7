#include "store/server_engine.h"

#include <errmsg.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

#include "base/end_asked.h"
#include "base/text.h"
#include "base/words.h"
#include "store/copy_books.h"
#include "store/server_connection.h"
#include "store/server_errors.h"
#include "store/server_functions.h"
#include "store/server_statement.h"
#include "store/server_together.h"

using Kind = DatabaseError::Kind;
using namespace std::chrono_literals;

namespace {

constexpr auto kAnswerAwaited = 20s;  // as long as a cluster may take to go on without a node
constexpr const char* kShapeRow = "shape";
constexpr size_t kMostTogether = 40, kTogetherKept = 30;

// What only asks, and what concerns the connection alone, is said again over a new one.
bool mayBeSaidAgain(std::string_view sql) {
  constexpr std::array kVerbs{"SELECT ",
                              "SHOW ",
                              "EXPLAIN ",
                              "CHECK TABLE ",
                              "SET ",
                              "DROP TEMPORARY ",
                              "CREATE OR REPLACE TEMPORARY "};
  return std::ranges::any_of(kVerbs, [&](const char* verb) { return startsWithNoCase(sql, verb); });
}

void makeDatabase(const std::filesystem::path& folder, const std::string& stem) {
  ServerLink(folder, {}, stem)
      .rows("CREATE DATABASE IF NOT EXISTS " + serverName(stem) +
            " CHARACTER SET utf8mb4 COLLATE utf8mb4_uca1400_nopad_as_ci");
  ServerLink link(folder, stem);
  for (const ServerFunction& function : serverFunctions()) {
    link.rows(std::string("DROP FUNCTION IF EXISTS ") + function.name);
    link.rows(function.create);
  }
  makeTurnTables(link);
}

std::string stemOf(const std::filesystem::path& books) { return books.stem().string(); }

}  // namespace

std::unique_ptr<Engine> openServerEngine(Database& face, const std::filesystem::path& books, Access access) {
  if (access == Access::create) makeDatabase(books.parent_path(), stemOf(books));
  return std::make_unique<ServerEngine>(face, books, access);
}

ServerEngine::ServerEngine(Database& face, const std::filesystem::path& books, Access)
    : face_(face), books_(books), program_(newToken()), link_(books.parent_path(), stemOf(books)) {
  enter();
}

ServerEngine::~ServerEngine() { leavePlace(); }

// On every connection anew: our row of TURN, and the work tables with what was written into them.
void ServerEngine::enter() {
  generation_ = link_.generation();
  try {
    takePlace();
    known_.clear();
    missing_.clear();
    indexes_.reset();
    shapes_.clear();
    lists_.clear();
    for (const auto& [table, columns] : work_) link_.rows(workTableText(table, columns));
    repeat(journal_.entries());
  } catch (...) {
    link_.close();  // what stands is either whole or not there
    throw;
  }
}

// Rows get the numbers that they had, whatever was taken back in between. Where the connection is lost once
// more, the next one has written all by the time that the statement stands.
void ServerEngine::repeat(const std::vector<WorkJournal::Entry>& entries) {
  const int over = generation_;
  for (const WorkJournal::Entry& entry : std::vector(entries)) {
    ServerStatement again(*this, entry.sql);
    if (generation_ != over) return;
    if (entry.row != 0)
      link_.rows("ALTER TABLE " + serverName(WorkJournal::target(entry.sql)) +
                 " AUTO_INCREMENT = " + std::to_string(entry.row));
    again.bind(entry.values);
    again.rerun();
  }
}

void ServerEngine::reach() {
  if (!link_.stands()) link_.connect();
  if (generation_ != link_.generation()) enter();
}

void ServerEngine::stand() {
  if (state_ == State::None) return reach();
  if (!link_.stands() || generation_ != link_.generation())
    failed(serverError(CR_SERVER_LOST, {}, stemOf(books_), {}));
  if (lostWhole_) std::rethrow_exception(lostWhole_);
}

std::unique_ptr<PreparedStatement> ServerEngine::prepare(std::string_view sql) {
  return std::make_unique<ServerStatement>(*this, std::string(sql));
}

bool ServerEngine::understands(std::string_view sql) {
  try {
    const ServerStatement prepared(*this, std::string(sql));
    return true;
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::other) throw;
    return false;
  }
}

void ServerEngine::fail(unsigned code, const std::string& text, std::string_view sql) {
  if (committing_) link_.fail(code, text, sql);
  try {
    link_.fail(code, text, sql);
  } catch (const DatabaseError& error) {
    failed(error);
  }
}

// What the server took back with it is known from then on. Nothing is to be saved again where nothing was
// stored.
void ServerEngine::failed(const DatabaseError& error) {
  const bool stores = state_ == State::Writing;
  const bool lost = error.kind() == Kind::lost;
  if (lost) forgetTransaction();
  // Not every refusal has taken all back on the server, and the next transaction would store what is left.
  if (error.kind() == Kind::again) rollBack();
  if (lost && !stores) throw whileAsking(error);
  throw error;
}

void ServerEngine::forgetTransaction() {
  if (state_ != State::None) journal_.backTo(journalMark_);
  state_ = State::None;
  savepoints_ = 0;
  journalMarks_.clear();
  later_.clear();
  lostWhole_ = nullptr;
}

std::vector<std::vector<std::string>> ServerEngine::tell(const std::string& sql) {
  const bool within = inTransaction();
  stand();
  catchUp(startsWithNoCase(sql, "SELECT "));
  try {
    return link_.rows(sql);
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::lost || within || !mayBeSaidAgain(sql)) failed(error);
  }
  stand();
  return link_.rows(sql);
}

// ---- one writer at a time

// Lost at its beginning, a transaction has done nothing yet and begins over a new connection.
void ServerEngine::begin(Transaction::Writes what) {
  try {
    start(what);
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::lost) throw;
    start(what);
  }
}

void ServerEngine::start(Transaction::Writes what) {
  if (what == Transaction::Writes::File) return takeTurn();
  tell("SET TRANSACTION ISOLATION LEVEL REPEATABLE READ");
  tell("START TRANSACTION WITH CONSISTENT SNAPSHOT");
  state_ = State::Reading;
  journalMark_ = journal_.mark();
}

void ServerEngine::commit() {
  if (state_ == State::None) throw serverError(CR_SERVER_LOST, {}, stemOf(books_), {});
  stand();  // never over another connection
  const bool wrote = state_ == State::Writing;
  try {
    if (later_.empty())
      link_.rows("COMMIT");
    else
      sendLater(true);
  } catch (const DatabaseError& error) {
    if (!wrote || error.kind() != Kind::lost) failed(error);
    if (!wasStored()) throw;
    logFailure("passed over: the server had stored it", error);
  }
  state_ = State::None;
  savepoints_ = 0;
  journalMarks_.clear();
  journal_.shorten();
  if (!wrote) return;
  storedTurn_ = turn_;
  count_ = turn_;
  ++stored_;
}

// The answer to our commit was lost: whether it was done stands in our row of TURN, on whichever node.
bool ServerEngine::wasStored() {
  // Work tables are as before it, until it is known.
  const auto its = journal_.since(journalMark_);
  forgetTransaction();
  const auto until = std::chrono::steady_clock::now() + kAnswerAwaited;
  while (std::chrono::steady_clock::now() < until && !(endAsked() && endAsked()())) {
    try {
      reach();
      if (lastTurn() != turn_) return false;
      for (const WorkJournal::Entry& entry : its) journal_.add(entry);
      if (!its.empty()) link_.close();  // the next statement finds them repeated with the others
      return true;
    } catch (const DatabaseError& error) {
      if (error.kind() != Kind::lost && error.kind() != Kind::locked) throw;
      std::this_thread::sleep_for(250ms);
    }
  }
  return false;
}

// By its lock: what a lost connection has left under way is waited for.
std::int64_t ServerEngine::lastTurn() {
  const auto found = link_.ask("SELECT N FROM TURN WHERE " + mine("PROGRAM") + " FOR UPDATE");
  return found.empty() ? 0 : std::stoll(found.front());
}

void ServerEngine::rollBack() {
  const bool stands = link_.stands() && state_ != State::None;
  forgetTransaction();
  if (!stands) return;
  try {
    link_.rows("ROLLBACK");
  } catch (const DatabaseError& error) {
    logFailure("passed over: it is taken back with the connection", error);
    link_.close();
  }
}

void ServerEngine::savepoint(int depth) {
  const std::string point = "SAVEPOINT nested_" + std::to_string(depth);
  stand();
  if (state_ == State::Writing)
    later_.push_back({.sql = point, .savepoint = depth});
  else
    tell(point);
  savepoints_ = depth;
  journalMarks_.resize(static_cast<size_t>(depth), journal_.mark());
}

// On the server it goes with the transaction, or when another takes its name.
void ServerEngine::release(int depth) {
  if (state_ == State::None) throw serverError(CR_SERVER_LOST, {}, stemOf(books_), {});
  savepoints_ = depth - 1;
  journalMarks_.resize(static_cast<size_t>(depth - 1));
}

void ServerEngine::rollBackTo(int depth) {
  if (static_cast<size_t>(depth) <= journalMarks_.size())
    journal_.backTo(journalMarks_[static_cast<size_t>(depth) - 1]);
  const auto point = std::ranges::find(later_, depth, &Later::savepoint);
  const bool sent = point == later_.end();
  // What is not sent yet came behind a point that is.
  later_.erase(sent ? later_.begin() : point, later_.end());
  if (sent && !lostWhole_) tell("ROLLBACK TO SAVEPOINT nested_" + std::to_string(depth));
  release(depth);
}

// ---- what can wait for the next journey

bool ServerEngine::later(std::string_view sql, const std::vector<Value>& values) {
  if (state_ != State::Writing) return false;
  stand();
  const std::string table = WorkJournal::target(sql);
  const bool own = work_.contains(table);
  // The number of a row of ours is to be known.
  if (lists_.contains(table) || (own && startsWithNoCase(sql, "INSERT")) || sql.ends_with(" DEFAULT VALUES"))
    return false;
  later_.push_back({std::string(sql), values});
  if (own) journal_.add({std::string(sql), values});
  if (later_.size() >= kMostTogether) sendLater(false);
  return true;
}

void ServerEngine::catchUp(bool onlyReads) {
  const auto writes = [](const Later& one) { return one.savepoint == 0; };
  if (!later_.empty() && (!onlyReads || std::ranges::any_of(later_, writes))) sendLater(false);
}

// None where the server does not understand one of them.
ServerStatement* ServerEngine::together(const std::string& text) {
  if (together_.size() >= kTogetherKept) together_.clear();
  auto& statement = together_[text];
  try {
    if (!statement) statement = std::make_unique<ServerStatement>(*this, text);
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::other) throw;
  }
  return statement.get();
}

// Who goes on after a failure would store the rest: nobody can say what was done before it.
void ServerEngine::sendLater(bool commits) {
  const std::vector<Later> all = std::exchange(later_, {});
  std::string text = "BEGIN NOT ATOMIC ";
  std::vector<Value> values;
  for (const Later& one : all) {
    text += one.sql + "; ";
    values.insert(values.end(), one.values.begin(), one.values.end());
  }
  text += commits ? "COMMIT; END" : "END";
  committing_ = commits;
  try {
    if (ServerStatement* const as = together(text)) {
      if (static_cast<size_t>(as->parameters()) != values.size())
        throw StatementError("The statements take another count of values", text);
      as->bind(values);
      as->rerun();
    } else {
      // One by one, it is said which it is.
      for (const Later& one : all) {
        ServerStatement alone(*this, one.sql);
        alone.bind(one.values);
        alone.rerun();
      }
      if (commits) link_.rows("COMMIT");
    }
  } catch (...) {
    committing_ = false;
    if (!commits && state_ == State::Writing) lostWhole_ = std::current_exception();
    throw;
  }
  committing_ = false;
}

void ServerEngine::write(const std::string& table, const std::string& sql, const std::vector<Value>& values,
                         const std::function<void()>& run) {
  const bool ownTable = work_.contains(table) || lists_.contains(table);
  if (!ownTable) {
    if (state_ != State::None) return run();
    return whole(face_, run);
  }
  const bool within = state_ != State::None;
  const bool anew = WorkJournal::empties(sql) && !within && work_.contains(table);
  const auto once = [&] {
    // Made anew, its rows are numbered from 1 again.
    if (anew)
      makeWorkTable(table, std::vector<Column>(work_.at(table)));
    else
      run();
  };
  try {
    once();
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::lost || within) throw;
    stand();
    once();
  }
  if (work_.contains(table) && !anew)
    journal_.add({sql, values, startsWithNoCase(sql, "INSERT") ? inserted_ : 0});
}

std::optional<std::int64_t> ServerEngine::changeCount() {
  // Our own transaction counts itself at its beginning, and others wait.
  if (state_ == State::Writing) return turn_ - 1;
  const auto found = tell("SELECT N FROM TURN WHERE PROGRAM = ''");
  if (found.empty()) return {};
  const std::int64_t count = std::stoll(found.front().front());
  counted(count);
  return count;
}

// A table that was missing may have been made by whoever wrote since.
void ServerEngine::counted(std::int64_t count) {
  if (count != count_) missing_.clear();
  count_ = count;
}

double ServerEngine::othersWrites() { return static_cast<double>(changeCount().value_or(0) - stored_); }

int ServerEngine::shapeVersion() {
  const auto found = tell(std::string("SELECT N FROM TURN WHERE PROGRAM = '") + kShapeRow + "'");
  return found.empty() ? 0 : std::stoi(found.front().front());
}

void ServerEngine::stampShape(int version) {
  // Who has no right to it is refused before anything says that it was begun.
  tell("DROP TABLE IF EXISTS SHAPED");
  tell(std::string("INSERT INTO TURN (PROGRAM, N) VALUES ('") + kShapeRow + "', " + std::to_string(version) +
       ") ON DUPLICATE KEY UPDATE N = VALUES(N)");
}

std::string ServerEngine::damage() {
  std::string list;
  for (const std::string& table : tables()) list += (list.empty() ? "" : ", ") + serverName(table);
  for (const auto& row : tell("CHECK TABLE " + list))
    if (row.size() > 3 && row[2] == "error") return row[0] + ": " + row[3];
  return {};
}

// A side of the ledger is one letter: its collation takes longer to compare than the row to read.
std::string ServerEngine::sumWhere(std::string_view figure, std::string_view condition) {
  std::string when(condition);
  when = replaceAll(when, "VOUCH_TYPE = 'C'", "ASCII(VOUCH_TYPE) IN (67, 99)");
  when = replaceAll(when, "VOUCH_TYPE = 'D'", "ASCII(VOUCH_TYPE) IN (68, 100)");
  return "SUM(CASE WHEN " + when + " THEN " + std::string(figure) + " END)";
}

std::string ServerEngine::joinCatalogue(const std::filesystem::path& catalogue) {
  return serverName(stemOf(catalogue)) + ".compny";
}

// Over a connection of its own, where no work table stands before what is copied.
RowCounts ServerEngine::copyInto(const std::filesystem::path& file) {
  Database same, copy;
  same.openOnServer(books_, Access::readOnly);
  copy.openFile(file, Access::create);
  copyBooks(same, copy);
  return rowsOfTables(copy);
}
