#pragma once

#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

#include "support/temp_folder.h"

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

// What is seen of a folder after its work was killed, at moments over all its length and closer together
// towards its end, and how often each. The folder stands anew before each. Empty where processes may not be
// watched.
inline std::map<std::string, int> seenAfterKills(const std::filesystem::path& folder,
                                                 const std::function<void()>& work,
                                                 const std::function<std::string()>& seen) {
  namespace fs = std::filesystem;
  constexpr int kMoments = 16;
  constexpr auto kAll = fs::copy_options::recursive;
  const TempFolder kept;
  fs::copy(folder, kept.path(), kAll);
  std::map<std::string, int> found;
  const Killed whole = killedAt(0, work);
  if (!whole.possible) return found;
  bool ended = false;
  for (int call = 1; !ended; call += call < whole.calls - kMoments ? whole.calls / kMoments + 1 : 2) {
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry);
    fs::copy(kept.path(), folder, kAll);
    ended = killedAt(call, work).ended;
    ++found[seen()];
  }
  return found;
}
