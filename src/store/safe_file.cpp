#include "store/safe_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace fs = std::filesystem;

namespace {

void flushToDisk(const fs::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool flushed = file >= 0 && fsync(file) == 0;
  const std::error_code error(errno, std::generic_category());
  if (file >= 0) close(file);
  if (!flushed) throw fileError(path, error);
}

// A journal that a crash left beside the old file would be played into the new one.
void putInPlace(const fs::path& whole, const fs::path& file) {
  std::error_code error;
  fs::remove(file.string() + "-journal", error);
  if (!error) fs::rename(whole, file, error);
  if (error) throw fileError(file, error);
  flushToDisk(file.has_parent_path() ? file.parent_path() : fs::path("."));
}

}  // namespace

bool fileExists(const fs::path& file) noexcept {
  std::error_code ignored;
  return fs::exists(file, ignored);
}

bool isPlainFile(const fs::path& file) noexcept {
  std::error_code ignored;
  return fs::is_regular_file(file, ignored);
}

std::string shownName(const fs::path& file) {
  const bool passing = file.extension() == kBuilding || file.extension() == kGoing;
  return (passing ? file.stem() : file.filename()).string();
}

DatabaseError fileError(const fs::path& file, const std::error_code& error) {
  using Kind = DatabaseError::Kind;
  const bool full = error == std::errc::no_space_on_device || error.value() == EDQUOT;
  const bool missing = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
  const bool readOnly = error == std::errc::permission_denied ||
                        error == std::errc::operation_not_permitted ||
                        error == std::errc::read_only_file_system;
  const Kind kind = full ? Kind::full : missing ? Kind::missing : readOnly ? Kind::readOnly : Kind::io;
  return {kind, shownName(file), error.message()};
}

void buildBeside(const fs::path& named, const std::function<void(const fs::path&)>& build) {
  std::error_code ignored;
  const fs::path file = fs::is_symlink(named, ignored) ? fs::weakly_canonical(named, ignored) : named;
  const fs::path making = file.string() + kBuilding;
  const auto cleared = [&] {
    fs::remove(making, ignored);
    fs::remove(making.string() + "-journal", ignored);
  };
  cleared();
  try {
    build(making);
    if (fileExists(file)) fs::permissions(making, fs::status(file, ignored).permissions(), ignored);
    flushToDisk(making);
    putInPlace(making, file);
  } catch (...) {
    cleared();
    throw;
  }
}

void copyFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (!fs::copy_file(from, to, error))
    throw fileError(error == std::errc::no_such_file_or_directory ? from : to, error);
  fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, error);
}
