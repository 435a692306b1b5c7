#include "platform/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "base/words.h"

namespace {

constexpr size_t kBuffer = 1 << 16;

}  // namespace

WholeFile::WholeFile(const std::string& path) : path_(path), making_(path + "~" + std::to_string(getpid())) {
  file_ = open(making_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file_ < 0) fail(errno);
  buffer_.reserve(2 * kBuffer);
}

WholeFile::~WholeFile() {
  if (file_ < 0) return;
  close(file_);
  std::remove(making_.c_str());
}

void WholeFile::fail(int error) const {
  throw std::system_error(
      error, std::generic_category(),
      words("{file} cannot be written", "file", std::filesystem::path(path_).filename().string()));
}

void WholeFile::write(std::string_view bytes) {
  buffer_ += bytes;
  if (buffer_.size() >= kBuffer) flush();
}

void WholeFile::flush() {
  for (size_t at = 0; at < buffer_.size();) {
    const ssize_t taken = ::write(file_, buffer_.data() + at, buffer_.size() - at);
    if (taken < 0 && errno == EINTR) continue;
    if (taken <= 0) fail(taken < 0 ? errno : ENOSPC);
    at += static_cast<size_t>(taken);
  }
  written_ += buffer_.size();
  buffer_.clear();
}

void WholeFile::finish() {
  flush();
  if (fsync(file_) != 0) fail(errno);
  if (std::rename(making_.c_str(), path_.c_str()) != 0) fail(errno);
  close(file_);
  file_ = -1;
}

bool lockedElsewhere(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  struct flock wanted {};
  wanted.l_type = F_WRLCK;
  wanted.l_whence = SEEK_SET;
  const bool held = fcntl(file, F_GETLK, &wanted) == 0 && wanted.l_type != F_UNLCK;
  close(file);
  return held;
}
