#include "store/lock_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include "base/text.h"
#include "store/lock_wait.h"
#include "store/safe_file.h"

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

LockFile::LockFile(const std::filesystem::path& database, Hold hold)
    : path_(pathFor(database)), alone_(false) {
  constexpr int kPauseMs = 20;
  for (int waited = 0; waited <= lockWaitMs(); waited += kPauseMs) {
    if (refused_) std::this_thread::sleep_for(std::chrono::milliseconds(kPauseMs));
    // A pipe of that name would be waited for.
    file_ = open(path_.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
    if (file_ < 0) {
      if (hold == Hold::Shared) return;
      throw fileError(database, std::error_code(errno, std::generic_category()));
    }
    alone_ = flock(file_, LOCK_EX | LOCK_NB) == 0;
    const bool held = hold == Hold::Alone ? alone_ : flock(file_, LOCK_SH | LOCK_NB) == 0;
    refused_ = !held && errno == EWOULDBLOCK;
    if (held && stillStands(file_, path_)) return;
    close(std::exchange(file_, -1));
    if (!held && (hold == Hold::Alone || !refused_)) return;
  }
}

LockFile::LockFile(LockFile&& other) noexcept { *this = std::move(other); }

LockFile& LockFile::operator=(LockFile&& other) noexcept {
  if (this == &other) return *this;
  release();
  path_ = std::move(other.path_);
  file_ = std::exchange(other.file_, -1);
  alone_ = other.alone_;
  refused_ = other.refused_;
  return *this;
}

void LockFile::release() noexcept {
  if (file_ < 0) return;
  if (flock(file_, LOCK_EX | LOCK_NB) == 0) unlink(path_.c_str());
  close(std::exchange(file_, -1));
}
