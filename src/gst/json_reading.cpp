#include "gst/json_reading.h"

#include <fstream>
#include <stdexcept>

#include "base/number.h"
#include "base/words.h"

namespace {

constexpr std::uintmax_t kMostBytes = 32'000'000;
constexpr int kMostLevels = 40;

[[noreturn]] void refuse(const std::filesystem::path& file, const std::string& why) {
  throw std::runtime_error(words("{file}: {why}", "file", file.filename().string(), "why", why));
}

}  // namespace

Json readJson(const std::filesystem::path& file) {
  std::error_code failed;
  const std::uintmax_t size = std::filesystem::file_size(file, failed);
  if (failed || !std::filesystem::is_regular_file(file)) refuse(file, words("There is no such file"));
  if (size > kMostBytes) refuse(file, words("It is too large for a file of the portal"));
  std::ifstream in(file, std::ios::binary);
  if (!in) refuse(file, words("It cannot be read"));
  bool deep = false;
  const auto levels = [&](int depth, Json::parse_event_t, Json&) {
    deep = deep || depth > kMostLevels;
    return !deep;
  };
  Json json;
  try {
    json = Json::parse(in, levels);
  } catch (const Json::exception&) {
    refuse(file, words("It is no JSON file, or cut short"));
  }
  if (deep) refuse(file, words("It is no file of the portal"));
  return json;
}

std::string textOf(const Json& json, const char* key) {
  if (!json.is_object()) return {};
  const auto found = json.find(key);
  if (found == json.end()) return {};
  if (found->is_string()) return found->get<std::string>();
  return found->is_number() ? numText(found->get<double>()) : "";
}

double numberOf(const Json& json, const char* key) { return Val(textOf(json, key)); }

const Json& listOf(const Json& json, const char* key) {
  static const Json none = Json::array();
  if (!json.is_object()) return none;
  const auto found = json.find(key);
  return found != json.end() && found->is_array() ? *found : none;
}
