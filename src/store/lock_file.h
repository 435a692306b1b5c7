#pragma once

#include <filesystem>

// The file beside an open database that tells other programs that somebody works in it:
// M00124.LDB for M00124.mdb. An advisory lock is held on it; the last to leave removes it. One
// left behind by a crash is locked by nobody and counts as absent.
class LockFile {
 public:
  LockFile() = default;
  // Never fails: in a folder where no file can be made nothing is held, and alone() stays true.
  explicit LockFile(const std::filesystem::path& database);
  LockFile(LockFile&& other) noexcept;
  LockFile& operator=(LockFile&& other) noexcept;
  ~LockFile() { release(); }

  // Nobody else held it when it was taken.
  bool alone() const { return alone_; }
  void release() noexcept;

  static std::filesystem::path pathFor(const std::filesystem::path& database);

 private:
  std::filesystem::path path_;
  int file_ = -1;
  bool alone_ = true;
};
