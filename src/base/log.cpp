#include "base/log.h"

#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/spdlog.h>

#include <memory>

#include "base/text.h"

namespace {

constexpr size_t kMostBytes = 512 * 1024, kOlderFiles = 1;
constexpr int kMostOfText = 1000;

struct Log {
  std::filesystem::path folder;
  std::string screen;
  std::shared_ptr<spdlog::logger> lines;  // none before the first line
};

Log& log() {
  // Never destroyed: books that are closed as the process ends may still have something to tell.
  static Log& one = *new Log;
  return one;
}

std::shared_ptr<spdlog::logger> opened(const std::filesystem::path& folder) {
  auto sink = std::make_shared<spdlog::sinks::rotating_file_sink_st>(logFile(folder).string(), kMostBytes,
                                                                     kOlderFiles);
  auto lines = std::make_shared<spdlog::logger>("mirav", std::move(sink));
  lines->set_pattern("%Y-%m-%d %H:%M:%S %v");
  lines->set_error_handler([](const std::string&) {});  // a full disk
  lines->flush_on(spdlog::level::info);
  return lines;
}

// On one line, and not endless.
std::string plain(std::string_view text) {
  std::string line = left(text, kMostOfText);
  for (char& ch : line)
    if (static_cast<unsigned char>(ch) < ' ') ch = ' ';
  return line;
}

}  // namespace

std::filesystem::path logFile(const std::filesystem::path& folder) { return folder / "mirav.log"; }

void keepLog(const std::filesystem::path& folder) {
  log().folder = folder;
  log().lines.reset();
}

void logFailure(std::string_view became, std::string_view error, std::string_view statement) {
  Log& l = log();
  if (l.folder.empty()) return;
  try {
    const auto file = logFile(l.folder);
    // A pipe of its name would be waited for.
    if (!l.lines && std::filesystem::exists(file) && !std::filesystem::is_regular_file(file))
      return l.folder.clear();
    if (!l.lines) l.lines = opened(l.folder);
    l.lines->info("{} | {} | {}{}{}", l.screen.empty() ? "-" : l.screen, plain(became), plain(error),
                  statement.empty() ? "" : " | ", plain(statement));
  } catch (const std::exception&) {
    l.folder.clear();  // asked again for every line it would cost a wait each
  }
}

void logFailure(std::string_view became, const std::exception& error) {
  const auto* const known = dynamic_cast<const WithStatement*>(&error);
  logFailure(became, error.what(), known ? std::string_view(known->statement()) : std::string_view());
}

LogScreen::LogScreen(std::string name) : before_(std::move(log().screen)) { log().screen = std::move(name); }
LogScreen::~LogScreen() { log().screen = std::move(before_); }
