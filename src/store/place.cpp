#include "store/place.h"

#include <cctype>
#include <fstream>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "store/safe_file.h"
#include "store/server_books.h"
#include "store/server_link.h"

namespace fs = std::filesystem;

namespace {

Credentials& who() {
  static Credentials signedIn;
  return signedIn;
}

bool isDigit(char ch) { return std::isdigit(static_cast<unsigned char>(ch)) != 0; }

// "M00126", and no template, backup or file put aside.
bool namesBooks(const std::string& stem) {
  if (sameText(stem, "comp")) return true;
  for (const char ch : stem)
    if (static_cast<unsigned char>(ch) >= 0x80 || !std::isalnum(static_cast<unsigned char>(ch))) return false;
  return stem.size() > 2 && isDigit(stem[stem.size() - 1]) && isDigit(stem[stem.size() - 2]);
}

// "name=value" or "name = 'value'".
std::pair<std::string, std::string> option(const std::string& line) {
  const auto equals = line.find('=');
  std::string name = replaceAll(lower(trim(line.substr(0, equals))), "_", "-");
  std::string value = equals == std::string::npos ? "" : trim(line.substr(equals + 1));
  if (value.size() > 1 && (value.front() == '\'' || value.front() == '"') && value.back() == value.front())
    value = value.substr(1, value.size() - 2);
  return {std::move(name), std::move(value)};
}

// "a:3307,b"
std::vector<std::pair<std::string, unsigned>> hostsOf(const std::string& list, unsigned port) {
  std::vector<std::pair<std::string, unsigned>> hosts;
  for (const std::string& each : split(list, ",")) {
    const std::string entry = trim(each);
    const auto colon = entry.rfind(':');
    const bool alone = colon == std::string::npos || entry.find(':') != colon;  // an address of colons
    if (!entry.empty())
      hosts.emplace_back(alone ? entry : entry.substr(0, colon),
                         alone ? port : static_cast<unsigned>(toInt(Val(entry.substr(colon + 1)))));
  }
  if (hosts.empty()) hosts.emplace_back("", port);
  return hosts;
}

}  // namespace

bool onServer(const fs::path& books) {
  return sameText(books.extension().string(), ".mdb") && namesBooks(books.stem().string()) &&
         isPlainFile(books.parent_path() / kServerFile);
}

bool booksExist(const fs::path& books) { return onServer(books) ? standsOnServer(books) : fileExists(books); }

ServerPlace serverPlace(const fs::path& folder) {
  ServerPlace place{.file = folder / kServerFile};
  std::ifstream in(place.file);
  std::string hosts;
  unsigned port = 0;
  bool ours = false;
  for (std::string line; std::getline(in, line);) {
    line = trim(replaceAll(line, "\xEF\xBB\xBF", ""));
    if (line.empty() || line[0] == '#' || line[0] == ';') continue;
    if (line[0] == '[') ours = sameText(line, "[client]");
    if (!ours || line[0] == '[') continue;
    const auto [name, value] = option(line);
    if (name == "host") hosts = value;
    if (name == "port") port = static_cast<unsigned>(toInt(Val(value)));
    if (name == "user") place.namesUser = !value.empty();
    if (name == "password") place.namesPassword = true;
    const bool off = value == "0" || sameText(value, "off") || sameText(value, "false");
    if (startsWithNoCase(name, "ssl")) place.encrypted = place.encrypted || !off;
    if (name == "ssl-verify-server-cert") place.verified = !off;
  }
  place.hosts = hostsOf(hosts, port);
  return place;
}

bool asksWho(const fs::path& folder) {
  if (!isPlainFile(folder / kServerFile)) return false;
  const ServerPlace place = serverPlace(folder);
  return !place.namesUser || !place.namesPassword;
}

void signIn(const fs::path& folder, const Credentials& typed) {
  const Credentials before = std::exchange(who(), typed);
  try {
    ServerLink(folder).ask("SELECT 1");
  } catch (...) {
    who() = before;
    throw;
  }
}

const Credentials& signedIn() { return who(); }

std::string signedInAs(Database& db) {
  const std::string account = onServer(db.file()) ? db.text("SELECT CURRENT_USER()") : "";
  return account.substr(0, account.rfind('@'));
}
