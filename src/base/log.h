#pragma once

#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

// What failed, for whoever helps the shop: `mirav.log` in the program folder, a line for each failure
// with its time, the screen whose handler ran, what became of it, the error and the statement. Values
// never stand there. The log keeps to half a megabyte and one older file of that size, is made by its
// first line, and never fails itself: in a folder that cannot be written nothing is kept.

// Implemented by errors that know which statement failed.
class WithStatement {
 public:
  virtual ~WithStatement() = default;
  virtual const std::string& statement() const = 0;
};

std::filesystem::path logFile(const std::filesystem::path& folder);
// Where the lines go from now on; before, and with an empty folder, they go nowhere.
void keepLog(const std::filesystem::path& folder);

// `became` in a few words: kTold, "passed over: <why>".
inline constexpr const char* kTold = "told";
void logFailure(std::string_view became, std::string_view error, std::string_view statement = {});
void logFailure(std::string_view became, const std::exception& error);

// The screen whose handler runs, as long as this stands.
class LogScreen {
 public:
  explicit LogScreen(std::string name);
  ~LogScreen();
  LogScreen(const LogScreen&) = delete;
  LogScreen& operator=(const LogScreen&) = delete;

 private:
  std::string before_;
};
