#include "frame/start.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <regex>
#include <system_error>

#include "base/text.h"
#include "base/words.h"
#include "frame/companies.h"
#include "frame/move_books.h"
#include "store/place.h"
#include "store/safe_file.h"
#include "store/templates.h"

namespace fs = std::filesystem;

namespace {

constexpr int kLongestStamp = 20;  // of USER_CD

std::string withoutSeparator(const fs::path& folder) {
  std::string path = trim(folder.string());
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

fs::path catalogueOf(const Session& s) { return fs::path(s.mapppath) / "comp.mdb"; }

// Why the catalogue cannot be used; empty when it stands open.
std::string openCatalogue(Session& s) {
  try {
    if (!onServer(catalogueOf(s)) && !fileExists(catalogueOf(s))) return english("No Database Found");
    s.cncomp = std::make_unique<Database>();
    openCatalogue(*s.cncomp, s.mapppath);
    s.mfirstuser = s.cncomp->firstUser();
    s.musername = cut(signedInAs(*s.cncomp), kLongestStamp);
  } catch (const DatabaseError& error) {
    logFailure(kTold, error);
    s.cncomp.reset();
    return error.what();
  }
  return {};
}

// A server may not be there yet.
bool triesAgain(Host& host, const std::string& failure) {
  if (onServer(catalogueOf(session())))
    return host.ask(
        {.text = failure, .title = kMessageTitle, .yes = english("&Try Again"), .no = english("&Leave")});
  host.message(failure, kMessageTitle);
  return false;
}

// Templates that a folder has lost. One that cannot be made now is missed, in words, when a
// company is created.
void remakeTemplates(const fs::path& folder) {
  if (onServer(folder / "comp.mdb")) return;
  try {
    for (const char* name : {"SMPL.MDB", "BLNK.MDB"})
      if (!fileExists(folder / name)) makeCompanyDatabase(folder / name);
  } catch (const DatabaseError& error) {
    logFailure("passed over: missed when a company is created", error);
  }
}

// "BILL.pdf~4711" of a program that runs no more, and a database that was being built.
bool isLeftover(const std::string& name) {
  static const std::regex unfinished(R"(.+\.[A-Za-z]+~([1-9]\d{0,8}))"),
      building(R"(.+\.mdb\.new(-journal)?)", std::regex::icase);
  std::smatch parts;
  if (std::regex_match(name, parts, unfinished))
    return kill(static_cast<pid_t>(std::atol(parts[1].str().c_str())), 0) != 0 && errno == ESRCH;
  return std::regex_match(name, building);
}

// What a killed run has left. Files that are being built are another program's as long as there is one.
void clearLeftovers(Session& s) {
  try {
    endDeletions(*s.cncomp, s.mapppath);
    endMoves(*s.cncomp, s.mapppath);
  } catch (const std::exception& error) {
    logFailure("passed over: tried again at the next start", error);
  }
  if (!s.mfirstuser) return;
  for (const char* part : {"", "BILLS", "BACKUP"}) {
    std::vector<fs::path> left;
    std::error_code error;
    for (fs::directory_iterator each(fs::path(s.mapppath) / part, error), end; !error && each != end;
         each.increment(error))
      if (isPlainFile(each->path()) && isLeftover(each->path().filename().string()))
        left.push_back(each->path());
    for (const fs::path& file : left) fs::remove(file, error);
  }
}

// A server is new to the shop, whose companies stand in files beside.
bool onlyInFiles(Session& s) {
  try {
    return companyYears(*s.cncomp).empty() && !companiesInFiles(*s.cncomp, s.mapppath).empty();
  } catch (const DatabaseError& error) {
    logFailure("passed over: files that cannot be read are not moved", error);
    return false;
  }
}

}  // namespace

void setScreenFactors(Session& s, const ScreenSize& display) {
  const double t = display.twipsPerPixelX;
  const double grown = t == 15 ? 1 : t == 12 ? 1.25 : t == 10 ? 1.5 : 0;
  if (grown == 0) return;
  s.mtwipx = t * grown;
  s.mtwipy = display.twipsPerPixelY * grown;
  s.mxscale = display.widthTwips / s.mtwipx / s.mbasewidth;
  s.myscale = display.heightTwips / s.mtwipy / s.mbaseheight;
}

bool startUp(Host& host, const fs::path& folder) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file at the limit of its size is told like a full disk
  session() = Session{};
  Session& s = session();
  s.mapppath = withoutSeparator(folder);
  keepLog(s.mapppath);
  s.mbasewidth = 800;
  s.mbaseheight = 600;
  s.mversion = "1.01";
  s.mdbtype = onServer(catalogueOf(s)) ? "MYSQL" : "ACCESS";
  setScreenFactors(s, host.display());
  s.mcolor1 = 16448240;  // FAFAF0
  s.mcolor2 = 16769248;  // FFE0E0
  s.mcolor6 = 14741759;  // E0F0FF
  if (asksWho(s.mapppath)) {
    host.open("frmsignin");
    return true;
  }
  for (;;) {
    const std::string failure = openBooks(host);
    if (failure.empty()) return true;
    if (!triesAgain(host, failure)) break;
  }
  host.quit();
  return false;
}

std::string openBooks(Host& host) {
  Session& s = session();
  if (const std::string failure = openCatalogue(s); !failure.empty()) return failure;
  clearLeftovers(s);
  remakeTemplates(s.mapppath);

  std::error_code ignored;  // printing into the folder fails later
  fs::create_directory(fs::path(s.mapppath) / "BILLS", ignored);

  host.open("FRMCOMP");
  if (onlyInFiles(s)) host.open("frmmove");
  return {};
}
