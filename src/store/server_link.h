#pragma once

#include <mysql.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ServerPlace;

// One connection to the server that a folder's server.cnf names, to the first of its hosts that answers.
// Texts of statements come from us; what people typed goes through prepared statements (server_engine) or
// quoted names. Failures are DatabaseError.
class ServerLink {
 public:
  // To no database when the stem is empty; `about` names the books in what is told then. Raises
  // DatabaseError: lost, denied, missing, tooOld.
  explicit ServerLink(const std::filesystem::path& folder, std::string stem = {},
                      const std::string& about = {});
  ~ServerLink() { close(); }
  ServerLink(const ServerLink&) = delete;
  ServerLink& operator=(const ServerLink&) = delete;

  void connect();
  void close() noexcept;
  // False from the moment that the connection was found to be lost.
  bool stands() const { return handle_ != nullptr; }
  // Counts the connections made.
  int generation() const { return generation_; }
  MYSQL* handle() const { return handle_; }

  // One statement without values: the first column of its rows.
  std::vector<std::string> ask(const std::string& sql);
  std::vector<std::vector<std::string>> rows(const std::string& sql);
  bool hasDatabase(const std::string& stem);

  // Throws what the server said of a statement; forgets a connection that is lost.
  [[noreturn]] void fail(std::string_view sql);
  [[noreturn]] void fail(unsigned code, const std::string& text, std::string_view sql);
  // Until the library has what it waits for; `goOn` is told what came. The person may end what lasts. A
  // server that is silent for long is asked over another connection whether it is at the statement: else, and
  // where it does not answer at all, this connection is cut.
  void await(int status, const std::function<int(int)>& goOn);

 private:
  struct SameServer {};
  ServerLink(const ServerLink& other, SameServer);
  void connectTo(const ServerPlace& place, const std::string& host, unsigned port);
  void useSettings();
  bool readyFor(int status, int& came, int milliseconds) const;
  void endStatement() const noexcept;
  bool isAtIt() const noexcept;
  // A node that is no part of its cluster any more, which keeps who reads waiting.
  bool isOutside();
  bool foundOutside() const noexcept;
  void cut() const noexcept;

  const std::filesystem::path folder_;
  const std::string stem_, about_;
  MYSQL* handle_ = nullptr;
  unsigned long thread_ = 0;
  bool made_ = false;  // ready for statements
  std::string host_;
  unsigned port_ = 0;
  int generation_ = 0;
};

// A name in a statement's text, whatever letters it has.
std::string serverName(std::string_view name);
// A text in a statement's text, for the statements that take no values.
std::string serverText(std::string_view text);
// 32 signs that nobody else has.
std::string newToken();
