#include "platform/workbook/held.h"

#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/text.h"
#include "platform/whole_file.h"

namespace fs = std::filesystem;

namespace workbook {
namespace {

// ",user,machine,15.06.2026 10:30,..." names the machine third.
bool ofThisMachine(const fs::path& mark) {
  std::string line;
  std::getline(std::ifstream(mark), line);
  const std::vector<std::string> parts = split(line, ",");
  std::array<char, 256> name{};
  gethostname(name.data(), name.size() - 1);
  return parts.size() > 2 && trim(parts[2]) == name.data();
}

// Whether any process but this one has the file open, as far as this user may look.
bool openSomewhere(const fs::path& file) {
  std::error_code ignored;
  const fs::path own = fs::canonical(file, ignored), self = std::to_string(getpid());
  for (fs::directory_iterator process("/proc", ignored), end; process != end; process.increment(ignored)) {
    if (process->path().filename() == self) continue;
    for (fs::directory_iterator open(process->path() / "fd", ignored); open != end; open.increment(ignored))
      if (fs::read_symlink(open->path(), ignored) == own) return true;
  }
  return false;
}

}  // namespace

bool heldElsewhere(const std::string& path) {
  const fs::path file(path);
  const std::string name = file.filename().string();
  std::error_code ignored;
  if (!fs::exists(file, ignored)) return false;
  if (lockedElsewhere(path)) return true;
  if (fs::exists(file.parent_path() / ("~$" + name), ignored)) return true;
  const fs::path mark = file.parent_path() / (".~lock." + name + "#");
  if (!fs::exists(mark, ignored)) return false;
  const bool knowable = ofThisMachine(mark) && fs::exists("/proc/self/fd", ignored);
  return !knowable || openSomewhere(file);
}

}  // namespace workbook
