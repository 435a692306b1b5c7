#include "store/lock_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "base/text.h"

namespace {

// The file may have been removed by its last holder between opening and locking.
bool stillStands(int file, const std::filesystem::path& path) {
  struct stat held = {};
  struct stat standing = {};
  return fstat(file, &held) == 0 && stat(path.c_str(), &standing) == 0 && held.st_ino == standing.st_ino &&
         held.st_dev == standing.st_dev;
}

}  // namespace

std::filesystem::path LockFile::pathFor(const std::filesystem::path& database) {
  return database.parent_path() / (upper(database.stem().string()) + ".LDB");
}

LockFile::LockFile(const std::filesystem::path& database) : path_(pathFor(database)) {
  constexpr int attempts = 10;
  for (int i = 0; i < attempts; ++i) {
    file_ = open(path_.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666);
    if (file_ < 0) return;
    alone_ = flock(file_, LOCK_EX | LOCK_NB) == 0;
    const bool held = flock(file_, LOCK_SH) == 0;
    if (held && stillStands(file_, path_)) return;
    close(std::exchange(file_, -1));
    if (!held) return;
  }
}

LockFile::LockFile(LockFile&& other) noexcept { *this = std::move(other); }

LockFile& LockFile::operator=(LockFile&& other) noexcept {
  if (this == &other) return *this;
  release();
  path_ = std::move(other.path_);
  file_ = std::exchange(other.file_, -1);
  alone_ = other.alone_;
  return *this;
}

void LockFile::release() noexcept {
  if (file_ < 0) return;
  if (flock(file_, LOCK_EX | LOCK_NB) == 0) unlink(path_.c_str());
  close(std::exchange(file_, -1));
}
