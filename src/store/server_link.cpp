#include "store/server_link.h"

#include <errmsg.h>
#include <mysqld_error.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <random>

#include "base/end_asked.h"
#include "base/log.h"
#include "base/text.h"
#include "base/words.h"
#include "store/lock_wait.h"
#include "store/place.h"
#include "store/server_errors.h"

using namespace std::chrono_literals;

namespace {

constexpr unsigned kConnectSeconds = 5;
constexpr int kAskMs = 100;
constexpr auto kSilence = 8s;
constexpr unsigned long kOldest = 101000;  // the first whose collations compare as the books need it
// A machine that dies in a transaction holds the others up for half a minute and no longer.
constexpr const char* kSettings =
    "SET SESSION sql_mode = 'MSSQL,STRICT_ALL_TABLES,NO_BACKSLASH_ESCAPES', time_zone = '+00:00',"
    " autocommit = 1, auto_increment_increment = 1, auto_increment_offset = 1,"
    " optimizer_switch = 'semijoin=off',"  // else a search among the parties of bills sorts all bills
    " wsrep_sync_wait = 1, idle_write_transaction_timeout = 30, innodb_lock_wait_timeout = ";

// Another host of the list may answer.
bool mayBeElsewhere(unsigned code) {
  constexpr std::array kCodes{CR_CONNECTION_ERROR,  CR_CONN_HOST_ERROR, CR_UNKNOWN_HOST,
                              CR_SERVER_GONE_ERROR, CR_SERVER_LOST,     ER_CON_COUNT_ERROR,
                              ER_UNKNOWN_COM_ERROR};
  return std::ranges::find(kCodes, static_cast<int>(code)) != kCodes.end();
}

bool isLost(const DatabaseError& error) { return error.kind() == DatabaseError::Kind::lost; }

// A machine that is gone says nothing; long statements may still last.
void noticeSilence(MYSQL* handle) {
  const int socket = static_cast<int>(mysql_get_socket(handle));
  const auto set = [&](int level, int option, int value) {
    setsockopt(socket, level, option, &value, sizeof value);
  };
  set(SOL_SOCKET, SO_KEEPALIVE, 1);
  set(IPPROTO_TCP, TCP_KEEPIDLE, 5);
  set(IPPROTO_TCP, TCP_KEEPINTVL, 3);
  set(IPPROTO_TCP, TCP_KEEPCNT, 3);
  set(IPPROTO_TCP, TCP_USER_TIMEOUT, 15000);
}

}  // namespace

ServerLink::ServerLink(const std::filesystem::path& folder, std::string stem, const std::string& about)
    : folder_(folder), stem_(std::move(stem)), about_(about.empty() ? stem_ : about) {
  connect();
}

// To that machine and no other of the list: what runs there is known by a number of its own.
ServerLink::ServerLink(const ServerLink& other, SameServer) : folder_(other.folder_), about_(other.about_) {
  try {
    connectTo(serverPlace(folder_), other.host_, other.port_);
  } catch (...) {
    close();
    throw;
  }
}

void ServerLink::connect() {
  close();
  const ServerPlace place = serverPlace(folder_);
  for (size_t i = 0; i < place.hosts.size(); ++i) {
    const auto& [host, port] = place.hosts[i];
    try {
      connectTo(place, host, port);
      useSettings();
      made_ = true;
      ++generation_;
      return;
    } catch (const DatabaseError& error) {
      close();
      const bool last = i + 1 == place.hosts.size();
      if (last || !(isLost(error) || mayBeElsewhere(static_cast<unsigned>(error.code())))) throw;
      logFailure("passed over: the next host of the list may answer", error);
    }
  }
}

void ServerLink::connectTo(const ServerPlace& place, const std::string& host, unsigned port) {
  // A fresh handle for each host: one used twice has lost what the option file says.
  handle_ = mysql_init(nullptr);
  if (!handle_) throw DatabaseError(DatabaseError::Kind::memory, {}, {});
  const std::string file = (folder_ / kServerFile).string();
  const unsigned seconds = kConnectSeconds, no = 0;
  const my_bool yes = 1;
  mysql_options(handle_, MYSQL_READ_DEFAULT_FILE, file.c_str());
  mysql_options(handle_, MYSQL_READ_DEFAULT_GROUP, "client");
  mysql_options(handle_, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  mysql_options(handle_, MYSQL_OPT_CONNECT_TIMEOUT, &seconds);
  mysql_options(handle_, MYSQL_OPT_LOCAL_INFILE, &no);  // a server must not ask for files of ours
  mysql_options(handle_, MYSQL_OPT_NONBLOCK, nullptr);
  // The library passes over an option of these without a value, and over a server without encryption.
  if (place.encrypted) mysql_options(handle_, MYSQL_OPT_SSL_ENFORCE, &yes);
  if (place.verified) mysql_options(handle_, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &yes);
  const Credentials& who = signedIn();
  const auto given = [](const std::string& text) { return text.empty() ? nullptr : text.c_str(); };
  if (!mysql_real_connect(handle_, given(host), given(who.user),
                          who.user.empty() ? nullptr : who.password.c_str(), given(stem_), port, nullptr,
                          CLIENT_FOUND_ROWS))
    fail("");
  if (place.encrypted && !mysql_get_ssl_cipher(handle_))
    fail(CR_SSL_CONNECTION_ERROR, words("The Server Offers No Encryption"), "");
  noticeSilence(handle_);
  host_ = host;
  port_ = port;
  thread_ = mysql_thread_id(handle_);
}

void ServerLink::useSettings() {
  if (!mariadb_connection(handle_) || mysql_get_server_version(handle_) < kOldest)
    throw DatabaseError(DatabaseError::Kind::tooOld, {},
                        words("The Server Of These Books Is {version}\r\nMariaDB 10.10 Or Newer Is Needed",
                              "version", mysql_get_server_info(handle_)));
  if (isOutside()) fail(ER_UNKNOWN_COM_ERROR, {}, "");
  // Bound values take the collation of this statement too, and of no other.
  ask("SET NAMES utf8mb4 COLLATE utf8mb4_uca1400_nopad_as_ci");
  ask(kSettings + std::to_string(std::max(1, (lockWaitMs() + 500) / 1000)));
  // Else what is copied into work tables would be locked against whoever saves. Writers come one by one, so
  // that nothing changes under them.
  ask("SET SESSION TRANSACTION ISOLATION LEVEL READ COMMITTED");
  if (ask("SELECT @@lower_case_table_names").front() == "0")
    throw DatabaseError(DatabaseError::Kind::tooOld, {},
                        words("The Option File Of The Server Must Say lower_case_table_names = 1"));
  // A cluster counts rows in steps of its own else, and work that is written again after a node has gone
  // would not have the numbers that it had.
  if (ask("SELECT @@auto_increment_increment").front() != "1")
    throw DatabaseError(DatabaseError::Kind::tooOld, {},
                        words("The Option File Of The Server Must Say wsrep_auto_increment_control = OFF"));
}

void ServerLink::close() noexcept {
  if (handle_) mysql_close(handle_);
  handle_ = nullptr;
  thread_ = 0;
  made_ = false;
}

std::vector<std::vector<std::string>> ServerLink::rows(const std::string& sql) {
  if (!handle_) connect();
  int failed = 0;
  await(mysql_real_query_start(&failed, handle_, sql.data(), sql.size()),
        [&](int came) { return mysql_real_query_cont(&failed, handle_, came); });
  if (failed != 0) fail(sql);
  std::vector<std::vector<std::string>> all;
  MYSQL_RES* result = nullptr;
  await(mysql_store_result_start(&result, handle_),
        [&](int came) { return mysql_store_result_cont(&result, handle_, came); });
  if (!result) {
    if (mysql_errno(handle_) != 0) fail(sql);
    return all;
  }
  const unsigned columns = mysql_num_fields(result);
  while (MYSQL_ROW row = mysql_fetch_row(result)) {
    const unsigned long* const lengths = mysql_fetch_lengths(result);
    auto& cells = all.emplace_back();
    for (unsigned i = 0; i < columns; ++i)
      cells.emplace_back(row[i] ? std::string(row[i], lengths[i]) : std::string());
  }
  mysql_free_result(result);
  return all;
}

std::vector<std::string> ServerLink::ask(const std::string& sql) {
  std::vector<std::string> cells;
  for (auto& row : rows(sql)) cells.push_back(std::move(row.front()));
  return cells;
}

bool ServerLink::hasDatabase(const std::string& stem) {
  return !rows("SELECT 1 FROM information_schema.SCHEMATA WHERE SCHEMA_NAME = " + serverText(lower(stem)))
              .empty();
}

void ServerLink::fail(std::string_view sql) { fail(mysql_errno(handle_), mysql_error(handle_), sql); }

void ServerLink::fail(unsigned code, const std::string& text, std::string_view sql) {
  // Once a connection stands, the end of its encryption is its own end.
  if (code == CR_SSL_CONNECTION_ERROR && thread_ != 0) code = CR_SERVER_LOST;
  // Before, nobody has answered yet.
  if (!made_ && (code == CR_SERVER_LOST || code == CR_SERVER_GONE_ERROR)) code = CR_CONN_HOST_ERROR;
  if (made_ && code == ER_LOCK_WAIT_TIMEOUT && foundOutside()) code = ER_UNKNOWN_COM_ERROR;
  const DatabaseError error = serverError(code, text, about_, sql);
  if (isLost(error)) close();
  throw error;
}

bool ServerLink::readyFor(int status, int& came, int milliseconds) const {
  pollfd socket{.fd = static_cast<int>(mysql_get_socket(handle_)), .events = 0, .revents = 0};
  if (status & MYSQL_WAIT_READ) socket.events |= POLLIN;
  if (status & MYSQL_WAIT_WRITE) socket.events |= POLLOUT;
  if (poll(&socket, 1, milliseconds) <= 0) return false;
  came =
      (socket.revents & POLLOUT ? MYSQL_WAIT_WRITE : 0) | (socket.revents & ~POLLOUT ? MYSQL_WAIT_READ : 0);
  return true;
}

void ServerLink::await(int status, const std::function<int(int)>& goOn) {
  using Clock = std::chrono::steady_clock;
  bool ended = false;
  auto heard = Clock::now();
  for (int came = 0; status != 0;) {
    if (readyFor(status, came, kAskMs)) {
      status = goOn(came);
      heard = Clock::now();
    } else if (!ended && endAsked() && endAsked()()) {
      ended = true;
      endStatement();
    } else if (Clock::now() - heard > kSilence) {
      if (!isAtIt() && !readyFor(status, came, 0)) cut();
      heard = Clock::now();
    }
  }
}

void ServerLink::cut() const noexcept { shutdown(static_cast<int>(mysql_get_socket(handle_)), SHUT_RDWR); }

void ServerLink::endStatement() const noexcept {
  try {
    ServerLink(*this, SameServer{}).ask("KILL QUERY " + std::to_string(thread_));
  } catch (const DatabaseError& error) {
    logFailure("passed over: the statement goes on", error);
    if (isLost(error)) cut();
  } catch (const std::exception& error) {
    logFailure("passed over: the statement goes on", error);
  }
}

bool ServerLink::isAtIt() const noexcept {
  try {
    const auto does =
        ServerLink(*this, SameServer{})
            .ask("SELECT COMMAND FROM information_schema.PROCESSLIST WHERE ID = " + std::to_string(thread_));
    return !does.empty() && does.front() != "Sleep";
  } catch (const DatabaseError& error) {
    logFailure("passed over: the server was asked what it does", error);
    return !isLost(error);  // it answers all the same
  } catch (const std::exception& error) {
    logFailure("passed over: the server was asked what it does", error);
    return true;
  }
}

bool ServerLink::isOutside() {
  const auto says = [&](const char* what) {
    const auto found = rows(what);
    return found.empty() ? "" : found.front().back();
  };
  return says("SHOW STATUS LIKE 'wsrep_ready'") == "OFF" && says("SHOW VARIABLES LIKE 'wsrep_on'") == "ON";
}

// Over a connection that does not wait before it reads.
bool ServerLink::foundOutside() const noexcept {
  try {
    return ServerLink(*this, SameServer{}).isOutside();
  } catch (const std::exception& error) {
    logFailure("passed over: the server was asked whether it is in its cluster", error);
    return false;
  }
}

std::string serverName(std::string_view name) {
  return "\"" + replaceAll(std::string(name), "\"", "\"\"") + "\"";
}

std::string serverText(std::string_view text) { return "'" + replaceAll(std::string(text), "'", "''") + "'"; }

std::string newToken() {
  std::random_device random;
  std::string token;
  for (int i = 0; i < 32; ++i) token += "0123456789abcdef"[random() % 16];
  return token;
}
