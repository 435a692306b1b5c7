#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

// Another program that shows the file in a window keeps a lock on it.
class HeldOpen {
 public:
  explicit HeldOpen(const std::filesystem::path& file) {
    int held[2];
    if (pipe(held) != 0 || pipe(end_) != 0) throw std::runtime_error("no pipe");
    child_ = fork();
    if (child_ == 0) {
      const int descriptor = open(file.c_str(), O_RDWR);
      struct flock lock {};
      lock.l_type = F_WRLCK;
      lock.l_whence = SEEK_SET;
      char byte = fcntl(descriptor, F_SETLK, &lock) == 0 ? 'y' : 'n';
      (void)!write(held[1], &byte, 1);
      close(end_[1]);
      (void)!read(end_[0], &byte, 1);
      _exit(0);
    }
    char byte = 'n';
    (void)!read(held[0], &byte, 1);
    close(held[0]);
    close(held[1]);
    EXPECT_EQ(byte, 'y');
  }
  ~HeldOpen() {
    close(end_[1]);
    close(end_[0]);
    waitpid(child_, nullptr, 0);
  }
  HeldOpen(const HeldOpen&) = delete;
  HeldOpen& operator=(const HeldOpen&) = delete;

 private:
  int end_[2] = {};
  pid_t child_ = 0;
};
