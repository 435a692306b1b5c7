#include "store/server_together.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "store/server_connection.h"
#include "store/server_statement.h"
#include "store/together.h"

using Kind = DatabaseError::Kind;
using namespace std::chrono_literals;

namespace {

constexpr auto kSeenEvery = 15s;
constexpr const char* kLive = "SEEN > UTC_TIMESTAMP() - INTERVAL 60 SECOND";
// Renewed by who holds, and the end of a hold whose program has died.
constexpr const char* kHoldEnds = "UTC_TIMESTAMP() + INTERVAL 5 MINUTE";

struct OwnColumn {
  const char* name = nullptr;
  const char* type = nullptr;
};
struct OwnTable {
  const char* name;
  const char* keys;
  std::array<OwnColumn, 12> columns;
};
constexpr const char* kTurn = "TURN";
// clang-format off
constexpr std::array kOwnTables{
    OwnTable{kTurn, "PRIMARY KEY (PROGRAM)",
        {{{"PROGRAM",    "VARCHAR(40) NOT NULL DEFAULT ''"},
          {"N",          "BIGINT NOT NULL DEFAULT 0"},
          {"USER_NAME",  "VARCHAR(130) NOT NULL DEFAULT ''"},
          {"MACHINE",    "VARCHAR(64) NOT NULL DEFAULT ''"},
          {"CAME",       "DATETIME NOT NULL DEFAULT '2000-01-01'"},
          {"SEEN",       "DATETIME NOT NULL DEFAULT '2000-01-01'"},
          {"HOLDER",     "VARCHAR(40) NOT NULL DEFAULT ''"},
          {"HELD_FOR",   "VARCHAR(60) NOT NULL DEFAULT ''"},
          {"HELD_SINCE", "DATETIME NOT NULL DEFAULT '2000-01-01'"},
          {"HELD_TILL",  "DATETIME NOT NULL DEFAULT '2000-01-01'"},
          {"CLOSED",     "INT NOT NULL DEFAULT 0"},
          {"EXCHANGED",  "INT NOT NULL DEFAULT 0"}}}},
    OwnTable{"INHAND", "PRIMARY KEY (BOOK, ITS_NO), KEY (PROGRAM)",
        {{{"BOOK",    "VARCHAR(40) NOT NULL DEFAULT ''"},
          {"ITS_NO",  "VARCHAR(60) NOT NULL DEFAULT ''"},
          {"PROGRAM", "VARCHAR(40) NOT NULL DEFAULT ''"},
          {"SINCE",   "DATETIME NOT NULL DEFAULT '2000-01-01'"}}}},
};
// clang-format on

std::string secondsSince(const std::string& column) {
  return "TIMESTAMPDIFF(SECOND, " + column + ", UTC_TIMESTAMP())";
}

std::string machine() {
  std::array<char, 65> name{};
  gethostname(name.data(), name.size() - 1);
  return name.data();
}

// "ram@%" and the machine.
std::string who(const std::string& account, const std::string& machine) {
  const std::string user = account.substr(0, account.rfind('@'));
  return machine.empty() ? user : words("{user} On {machine}", "user", user, "machine", machine);
}

// Of rows that begin so.
constexpr const char* kWho = "COALESCE(P.USER_NAME, ''), COALESCE(P.MACHINE, ''), ";

Other otherOf(const Row& row) {
  return {.who = who(row.text(0), row.text(1)),
          .seconds = toInt(row.number(2)),
          .book = row.text(3),
          .number = row.text(4)};
}

std::vector<std::string> missingOf(const OwnTable& table, const std::vector<std::string>& standing) {
  std::vector<std::string> missing;
  for (const OwnColumn& column : table.columns)
    if (column.name &&
        std::ranges::find(standing, lower(std::string(table.name) + "." + column.name)) == standing.end())
      missing.push_back(std::string(column.name) + " " + column.type);
  return missing;
}

bool stands(const OwnTable& table, const std::vector<std::string>& columns) {
  return std::ranges::any_of(columns, [&](const std::string& each) {
    return startsWithNoCase(each, std::string(table.name) + ".");
  });
}

}  // namespace

void makeTurnTables(ServerLink& link) {
  const auto standing = link.ask(
      "SELECT LOWER(CONCAT(TABLE_NAME, '.', COLUMN_NAME)) FROM information_schema.COLUMNS"
      " WHERE TABLE_SCHEMA = DATABASE() AND TABLE_NAME IN ('turn', 'inhand')");
  try {
    for (const OwnTable& table : kOwnTables) {
      const std::string name = table.name;
      const auto missing = missingOf(table, standing);
      if (missing.empty()) continue;
      // Two programs may do it at once.
      if (!stands(table, standing))
        link.rows("CREATE TABLE IF NOT EXISTS " + name + " (" + join(missing, ", ") + ", " + table.keys +
                  ")");
      else
        link.rows("ALTER TABLE " + name + " ADD COLUMN IF NOT EXISTS " +
                  join(missing, ", ADD COLUMN IF NOT EXISTS "));
      if (name == kTurn) link.rows("INSERT INTO TURN (PROGRAM) VALUES ('') ON DUPLICATE KEY UPDATE N = N");
    }
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::denied || standing.empty()) throw;
    throw DatabaseError(Kind::denied,
                        DatabaseError::Told(words("An Older Program Made These Books On The Server\r\n"
                                                  "Who Makes Operators Opens Them Once, Then You")),
                        error.statement(), error.code());
  }
}

bool isTurnTable(std::string_view table) {
  return std::ranges::any_of(kOwnTables, [&](const OwnTable& one) { return sameText(one.name, table); });
}

std::string ServerEngine::mine(const char* column) const {
  return std::string(column) + " = '" + program_ + "'";
}

// ---- who is here

void ServerEngine::takePlace() {
  if (!entered_) {
    makeTurnTables(link_);
    const auto found =
        link_.rows(std::string("SELECT (SELECT COUNT(*) FROM TURN WHERE USER_NAME <> '' AND ") + kLive +
                   "), EXCHANGED FROM TURN WHERE PROGRAM = ''");
    first_ = found.empty() || found.front()[0] == "0";
    exchanged_ = found.empty() ? "0" : found.front()[1];
  }
  try {
    forgetTheDead();
    writePlace();
    if (owesEnd_) link_.rows("UPDATE TURN SET " + holdsEnd());
    mayMark_ = true;
    owesEnd_ = false;
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::denied) throw;
    mayMark_ = false;  // who may only look
  }
  entered_ = true;
}

void ServerEngine::writePlace() {
  link_.rows("INSERT INTO TURN (PROGRAM, N, USER_NAME, MACHINE, CAME, SEEN) VALUES ('" + program_ + "', " +
             std::to_string(storedTurn_) + ", CURRENT_USER(), " + serverText(machine()) +
             ", UTC_TIMESTAMP(), UTC_TIMESTAMP()) ON DUPLICATE KEY UPDATE SEEN = VALUES(SEEN)");
  seen_ = std::chrono::steady_clock::now();
}

// By their keys: a search would wait for whoever writes.
void ServerEngine::forgetTheDead() {
  for (const std::string& program : link_.ask("SELECT PROGRAM FROM TURN WHERE USER_NAME <> '' AND SEEN < "
                                              "UTC_TIMESTAMP() - INTERVAL 1 DAY AND NOT " +
                                              mine("PROGRAM")))
    for (const OwnTable& table : kOwnTables)
      link_.rows(std::string("DELETE FROM ") + table.name + " WHERE PROGRAM = " + serverText(program));
}

void ServerEngine::leavePlace() {
  if (!link_.stands() || !mayMark_) return;
  try {
    endHold();
    for (const OwnTable& table : kOwnTables)
      link_.rows(std::string("DELETE FROM ") + table.name + " WHERE " + mine("PROGRAM"));
  } catch (const std::exception& error) {
    logFailure("passed over: a program that is not seen any more counts as gone", error);
  }
}

bool ServerEngine::stillHere() {
  // What a transaction writes is seen by nobody yet.
  if (inTransaction()) return false;
  const bool due = std::chrono::steady_clock::now() - seen_ >= kSeenEvery;
  if (!link_.stands()) {
    if (!due || !owesEnd_) return false;
    seen_ = std::chrono::steady_clock::now();
    stand();
  }
  if (!mayMark_ || !due) return true;
  if (!changeTurn("SEEN = UTC_TIMESTAMP() WHERE " + mine("PROGRAM"))) writePlace();
  seen_ = std::chrono::steady_clock::now();
  return true;
}

std::vector<Other> ServerEngine::others() {
  std::vector<Other> all;
  for (const Row& row :
       face_.all(std::string("SELECT ") + kWho + secondsSince("COALESCE(SINCE, CAME)") +
                     ", COALESCE(BOOK, ''), COALESCE(ITS_NO, '') FROM TURN AS P LEFT JOIN INHAND"
                     " ON INHAND.PROGRAM = P.PROGRAM WHERE USER_NAME <> '' AND " +
                     kLive + " AND P.PROGRAM <> ? ORDER BY USER_NAME, MACHINE, BOOK, ITS_NO",
                 program_))
    all.push_back(otherOf(row));
  return all;
}

// ---- what is in hand

std::optional<Other> ServerEngine::takeInHand(const std::string& book, const std::string& number) {
  if (!mayMark_) return {};
  stillHere();
  for (int tries = 0; tries < 3; ++tries) {
    if (const auto held = heldBy()) return held;
    const auto found = face_.first(std::string("SELECT ") + kWho + secondsSince("SINCE") +
                                       ", BOOK, ITS_NO, INHAND.PROGRAM, COALESCE(" + kLive +
                                       ", 0) FROM INHAND LEFT JOIN TURN AS P ON P.PROGRAM = INHAND.PROGRAM"
                                       " WHERE BOOK = ? AND ITS_NO = ?",
                                   book, number);
    if (found && found->text(5) == program_) return {};
    if (found && found->number(6) != 0) return otherOf(*found);
    try {
      // Of two who find it free, or find the mark of a dead program, the second looks once more.
      if (found) unmark(book, number, found->text(5));
      runOwn(marks_, "INSERT INTO INHAND (BOOK, ITS_NO, PROGRAM, SINCE) VALUES (?, ?, ?, UTC_TIMESTAMP())",
             {book, number, program_});
      return {};
    } catch (const DatabaseError& error) {
      if (error.kind() != Kind::constraint && error.kind() != Kind::again) throw;
    }
  }
  return {};  // the save compares what stands all the same
}

void ServerEngine::unmark(const std::string& book, const std::string& number, const std::string& program) {
  runOwn(unmarks_, "DELETE FROM INHAND WHERE BOOK = ? AND ITS_NO = ? AND PROGRAM = ?",
         {book, number, program});
}

// In no transaction of its own; said twice it means the same.
void ServerEngine::runOwn(std::unique_ptr<ServerStatement>& kept, const char* sql,
                          const std::vector<Value>& values) {
  const bool within = inTransaction();
  stand();
  if (!kept) kept = std::make_unique<ServerStatement>(*this, sql);
  kept->bind(values);
  try {
    kept->rerun();
  } catch (const DatabaseError& error) {
    if (error.kind() != Kind::lost || within) throw;
    stand();
    kept->rerun();
  }
}

void ServerEngine::letGo(const std::string& book, const std::string& number) {
  if (mayMark_) unmark(book, number, program_);
}

// ---- who holds the books

std::optional<Other> ServerEngine::heldBy() {
  const auto found =
      face_.first(std::string("SELECT ") + kWho + secondsSince("T.HELD_SINCE") +
                      ", T.HELD_FOR, '', T.CLOSED FROM TURN AS T LEFT JOIN TURN AS P ON P.PROGRAM = T.HOLDER"
                      " WHERE T.PROGRAM = '' AND T.HOLDER NOT IN ('', ?) AND T.HELD_TILL > UTC_TIMESTAMP()",
                  program_);
  if (!found) return {};
  Other other = otherOf(*found);
  other.hold = static_cast<Hold>(toInt(found->number(5)));
  return other;
}

// Of the row that all share, in no transaction; returns whether its condition held.
bool ServerEngine::changeTurn(const std::string& change) {
  for (int left = 3;; --left) {
    try {
      tell("UPDATE TURN SET " + change);
      return mysql_affected_rows(link_.handle()) > 0;
    } catch (const DatabaseError& error) {
      const bool cut = error.kind() == Kind::lost && left == 3;  // said twice it means the same
      if (!cut && (error.kind() != Kind::again || left == 0)) throw;
    }
  }
}

std::optional<Other> ServerEngine::hold(const std::string& what, Hold how) {
  const std::string change =
      "HELD_SINCE = CASE WHEN " + mine("HOLDER") + " THEN HELD_SINCE ELSE UTC_TIMESTAMP() END, HOLDER = '" +
      program_ + "', HELD_FOR = " + serverText(what) + ", HELD_TILL = " + kHoldEnds +
      ", CLOSED = " + std::to_string(static_cast<int>(how)) + " WHERE PROGRAM = '' AND (HOLDER IN ('', '" +
      program_ + "') OR HELD_TILL <= UTC_TIMESTAMP())";
  for (int tries = 0; tries < 3; ++tries) {
    owesEnd_ = !holds_;  // of one whose answer is lost
    holds_ = changeTurn(change);
    owesEnd_ = false;
    if (holds_) return {};
    if (const auto other = heldBy()) return other;  // else it ended between the two
  }
  throw DatabaseError(Kind::locked, books_.filename().string(), {});
}

std::string ServerEngine::holdsEnd() const {
  return "HOLDER = '', CLOSED = 0, HELD_TILL = UTC_TIMESTAMP() WHERE PROGRAM = '' AND " + mine("HOLDER");
}

// Where the connection is lost the next one says it, so that nobody waits for what has ended.
void ServerEngine::endHold() {
  if (!std::exchange(holds_, false)) return;
  owesEnd_ = true;
  changeTurn(holdsEnd());
  owesEnd_ = false;
}

void ServerEngine::areExchanged() {
  changeTurn("N = N + 1, EXCHANGED = EXCHANGED + 1 WHERE PROGRAM = ''");
  exchanged_ = link_.ask("SELECT EXCHANGED FROM TURN WHERE PROGRAM = ''").front();
}

// ---- one writer at a time

// Begins the transaction.
void ServerEngine::takeTurn() {
  stand();
  state_ = State::Writing;
  journalMark_ = journal_.mark();
  try {
    countIn();
  } catch (...) {
    if (state_ != State::None) rollBack();
    throw;
  }
}

// Our row holds the last turn of ours that was stored. Another than we know of had its answer lost, and was
// stored after it was told as lost: it must not be stored twice.
void ServerEngine::countIn() {
  if (!countsIn_)
    countsIn_ = std::make_unique<ServerStatement>(
        *this,
        "BEGIN NOT ATOMIC START TRANSACTION;"
        " UPDATE TURN SET N = LAST_INSERT_ID(N + 1) WHERE PROGRAM = '' AND EXCHANGED = ?"
        " AND (CLOSED < 1 OR HOLDER = ? OR HELD_TILL <= UTC_TIMESTAMP());"
        " IF ROW_COUNT() > 0 THEN"
        " UPDATE TURN SET N = LAST_INSERT_ID(), SEEN = UTC_TIMESTAMP() WHERE PROGRAM = ? AND N = ?;"
        " SELECT LAST_INSERT_ID(), ROW_COUNT(); END IF; END");
  countsIn_->bind({std::stoll(exchanged_), program_, program_, storedTurn_});
  std::vector<std::int64_t> answer;
  try {
    answer = countsIn_->answer();
  } catch (const DatabaseError& error) {
    if (error.kind() == Kind::locked) tellHold();
    throw;
  }
  if (answer.empty()) {
    tellHold();
    throw DatabaseError(Kind::missing,
                        DatabaseError::Told(words("These Books Were Exchanged For Others Meanwhile\r\n"
                                                  "Nothing Was Stored :: Close Them And Open Them Again")));
  }
  turn_ = answer[0];
  counted(turn_ - 1);
  if (answer[1] > 0) return;
  if (const std::int64_t last = lastTurn(); last != 0 && last != storedTurn_) {
    storedTurn_ = last;
    throw DatabaseError(Kind::other, {},
                        words("What You Stored When The Server Went Was Stored After All\r\n"
                              "Look At It Before You Store It Again"));
  }
  // Taken for dead, the row had been deleted.
  writePlace();
  tell("UPDATE TURN SET N = " + std::to_string(turn_) + " WHERE " + mine("PROGRAM"));
}

// Who holds the books, where somebody does and saves have to wait for it.
void ServerEngine::tellHold() {
  if (const auto other = heldBy(); other && *other->hold >= Hold::Closes)
    throw DatabaseError(Kind::locked, DatabaseError::Told(holdWords(*other)));
}
