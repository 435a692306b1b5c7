#include "output_of.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "script.h"

std::string outputOf(const std::vector<std::string>& command) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw Stop{"a pipe could not be made"};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  pid_t child = 0;
  const int failed = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  std::string output;
  std::array<char, 65536> part{};
  for (ssize_t n = 0; failed == 0 && (n = read(ends[0], part.data(), part.size())) > 0;)
    output.append(part.data(), static_cast<size_t>(n));
  ::close(ends[0]);
  int status = 0;
  if (failed != 0 || waitpid(child, &status, 0) < 0 || status != 0)
    throw Stop{command[0] + " could not be run"};
  return output;
}
