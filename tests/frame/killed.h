#pragma once

#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <functional>
#include <stdexcept>

// Runs work in a child process that is killed before its n-th call of the system: what a program
// leaves on the disk changes by such calls alone, so that these are all the moments there are.
// Databases must be closed before.
struct Killed {
  bool possible = true;  // false where processes may not be watched
  bool ended = false;    // the work was done before the n-th call
  int calls = 0;         // those that it made
};

inline Killed killedAt(int n, const std::function<void()>& work) {
  constexpr int kNotAllowed = 77, kFailed = 78;
  const pid_t child = fork();
  if (child == 0) {
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(kNotAllowed);
    raise(SIGSTOP);
    try {
      work();
    } catch (const std::exception&) {
      _exit(kFailed);
    }
    _exit(0);
  }
  Killed result;
  int status = 0;
  waitpid(child, &status, 0);
  ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_EXITKILL);
  bool entering = true;
  while (WIFSTOPPED(status)) {
    if (WSTOPSIG(status) == SIGTRAP) {
      if (entering && ++result.calls == n) kill(child, SIGKILL);
      entering = !entering;
    }
    if (ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) != 0 && errno != ESRCH) break;
    waitpid(child, &status, 0);
  }
  result.ended = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  result.possible = !(WIFEXITED(status) && WEXITSTATUS(status) == kNotAllowed);
  if (WIFEXITED(status) && WEXITSTATUS(status) == kFailed) throw std::runtime_error("the work itself failed");
  return result;
}
