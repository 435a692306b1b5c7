#pragma once

#include <filesystem>

// The file beside an open database that tells other programs that somebody works in it:
// M00124.LDB for M00124.mdb. An advisory lock is held on it; the last to leave removes it. One
// left behind by a crash is locked by nobody and counts as absent.
class LockFile {
 public:
  // Shared by all who work in the database; Alone by who replaces or removes its file.
  enum class Hold { Shared, Alone };

  LockFile() = default;
  // Who wants to share waits for one who holds it alone, as for any lock; who wants it alone does not.
  // Where no file can be made, who wants to share works without, not knowing who else is there;
  // who wants it alone gets a DatabaseError.
  explicit LockFile(const std::filesystem::path& database, Hold hold = Hold::Shared);
  LockFile(LockFile&& other) noexcept;
  LockFile& operator=(LockFile&& other) noexcept;
  ~LockFile() { release(); }

  // It is held, and nobody else held it when it was taken.
  bool alone() const { return alone_; }
  // Somebody holds it alone.
  bool refused() const { return refused_; }
  void release() noexcept;

  static std::filesystem::path pathFor(const std::filesystem::path& database);

 private:
  std::filesystem::path path_;
  int file_ = -1;
  bool alone_ = true;
  bool refused_ = false;
};
