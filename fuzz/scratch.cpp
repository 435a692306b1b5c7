#include "fuzz/scratch.h"

#include <stdlib.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace fs = std::filesystem;

const fs::path& scratch() {
  struct Folder {
    fs::path path;
    Folder() {
      std::string name = (fs::exists("/dev/shm") ? "/dev/shm" : "/tmp") + std::string("/mirav_fuzz_XXXXXX");
      path = mkdtemp(name.data());
      setenv("TMPDIR", path.c_str(), 1);
    }
    ~Folder() { fs::remove_all(path); }
  };
  static const Folder folder;
  return folder.path;
}

fs::path scratchFile(std::string_view name, std::string_view bytes) {
  fs::path path = scratch() / name;
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path;
}
