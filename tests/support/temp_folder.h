#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// A folder that goes with its scope.
class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "mirav_XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  // What lies in it, or in a folder of it.
  std::vector<std::string> names(const std::string& below = "") const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path_ / below))
      found.push_back(entry.path().filename().string());
    return found;
  }

 private:
  std::filesystem::path path_;
};

inline std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}
