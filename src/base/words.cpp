#include "base/words.h"

#include <libintl.h>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "base/text.h"

namespace {

constexpr const char* kDomain = "mirav";

bool opened = false;

std::string askedFor() {
  for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"})
    if (const char* value = std::getenv(name); value && *value) return value;
  return {};
}

// Nothing where the pattern names a place that there is not.
std::optional<std::string> filled(std::string_view pattern, std::initializer_list<std::string_view> given) {
  std::string out;
  for (size_t at = 0; at < pattern.size();) {
    const size_t from = pattern.find('{', at), to = pattern.find('}', from);
    if (to == std::string_view::npos) return out.append(pattern.substr(at));
    const std::string_view name = pattern.substr(from + 1, to - from - 1);
    const auto* place = given.begin();
    while (place != given.end() && *place != name) place += 2;
    if (place == given.end()) return std::nullopt;
    out.append(pattern.substr(at, from - at)).append(place[1]);
    at = to + 1;
  }
  return out;
}

}  // namespace

void openWords(const std::string& folder, const std::string& language) {
  opened = false;
  const std::string wanted = language.empty() ? askedFor() : language;
  const std::string catalogues = folder + "/locale";
  if (wanted.empty() || !std::filesystem::is_directory(catalogues)) return;
  // gettext reads LANGUAGE in any locale but "C", and this one is everywhere, whatever languages
  // the system itself has.
  if (!std::setlocale(LC_MESSAGES, "C.UTF-8")) return;
  setenv("LANGUAGE", wanted.c_str(), 1);
  bindtextdomain(kDomain, catalogues.c_str());
  bind_textdomain_codeset(kDomain, "UTF-8");
  // The empty text stands for a catalogue's head.
  opened = *dgettext(kDomain, "") != '\0';
}

std::string words(std::string_view english) {
  std::string text(english);
  if (!opened || text.empty()) return text;
  // Catalogues end a line with \n alone.
  const std::string key = replaceAll(text, "\r\n", "\n");
  const char* const found = dgettext(kDomain, key.c_str());
  return found == key.c_str() ? text : std::string(found);
}

std::string filledWords(std::string_view pattern, std::initializer_list<std::string_view> namesAndValues) {
  const auto plain = filled(pattern, namesAndValues);
  if (!plain) throw std::logic_error("a place has no value: " + std::string(pattern));
  if (!opened) return *plain;
  return filled(words(pattern), namesAndValues).value_or(*plain);
}
