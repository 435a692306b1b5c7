#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// A file being made that stands under its name whole or not at all: it is written beside it under
// another name, flushed to the disk and then put in its place. Without finish() nothing is left.
// Failures (no folder, no right, a full disk) are std::system_error with a text for the user.
class WholeFile {
 public:
  explicit WholeFile(const std::string& path);
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  // The name to write under, for a library that writes by name.
  const std::string& making() const { return making_; }
  void write(std::string_view bytes);
  // What has been written by write().
  uint64_t position() const { return written_ + buffer_.size(); }
  void finish();

 private:
  void flush();
  [[noreturn]] void fail(int error) const;

  std::string path_, making_;
  int file_ = -1;
  std::string buffer_;
  uint64_t written_ = 0;
};

// Whether another program keeps a lock on the file, as those do that show it for changing.
bool lockedElsewhere(const std::string& path);
