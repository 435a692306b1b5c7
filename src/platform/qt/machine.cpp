#include "platform/qt/machine.h"

#include <unistd.h>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "base/text.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

std::string bare(const std::string& path) {
  std::string name = lower(path.substr(path.find_last_of("/\\") + 1));
  constexpr std::string_view kEnding = ".exe";
  if (name.ends_with(kEnding)) name.resize(name.size() - kEnding.size());
  return name;
}

// By the name it was started by, or the one that the system keeps (a script's own, not its shell's).
bool bears(const fs::path& folder, const std::string& name) {
  std::ifstream line(folder / "cmdline", std::ios::binary), shortName(folder / "comm");
  std::string started, kept;
  return (std::getline(line, started, '\0') && bare(started) == name) ||
         (std::getline(shortName, kept) && bare(kept) == name);
}

std::vector<pid_t> processes(const std::string& process) {
  const std::string name = bare(process);
  std::vector<pid_t> found;
  std::error_code ignored;  // processes end while they are being listed
  for (const auto& entry : fs::directory_iterator("/proc", ignored)) {
    const std::string folder = entry.path().filename().string();
    if (folder.empty() || folder.find_first_not_of("0123456789") != std::string::npos) continue;
    const auto id = static_cast<pid_t>(std::stol(folder));
    if (id != getpid() && !name.empty() && bears(entry.path(), name)) found.push_back(id);
  }
  return found;
}

}  // namespace

Moment now() {
  const std::time_t clock = std::time(nullptr);
  std::tm local{};
  localtime_r(&clock, &local);
  const Date date{std::chrono::year(local.tm_year + 1900),
                  std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
                  std::chrono::day(static_cast<unsigned>(local.tm_mday))};
  return {date, local.tm_hour, local.tm_min, local.tm_sec};
}

bool online() {
  std::ifstream routes("/proc/net/route");
  std::string row;
  std::getline(routes, row);  // its heading
  while (std::getline(routes, row)) {
    std::istringstream columns(row);
    std::string device, destination;
    if (columns >> device >> destination && destination == "00000000" && device != "lo") return true;
  }
  return false;
}

bool running(const std::string& process) { return !processes(process).empty(); }

void endProcess(const std::string& process) {
  for (const pid_t id : processes(process)) kill(id, SIGTERM);
}

}  // namespace machine
