#include "store/server_books.h"

#include "base/text.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/server_link.h"
#include "store/views.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kMaking = "_new";
constexpr int kTablesAwaitedSeconds = 10;  // others may be in the middle of a statement

std::string databaseOf(const fs::path& books) { return lower(books.stem().string()); }

// Those of the books; what programs tell each other of themselves stays where it is.
std::vector<std::string> tablesIn(ServerLink& link, const std::string& database) {
  return link.ask(
      "SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_TYPE = 'BASE TABLE'"
      " AND TABLE_NAME NOT IN ('turn', 'inhand') AND TABLE_SCHEMA = " +
      serverText(database));
}

// The version of the shape stands beside the tables that go.
void takeVersion(const fs::path& from, const fs::path& to) {
  Database source, made;
  source.openOnServer(from, Access::readOnly);
  made.openOnServer(to, Access::create);
  made.engine().stampShape(shapeVersion(source));
}

class Exchange {
 public:
  explicit Exchange(const fs::path& folder) : link_(folder) {
    link_.rows("SET SESSION lock_wait_timeout = " + std::to_string(kTablesAwaitedSeconds));
  }
  void add(const fs::path& from, const fs::path& to) {
    if (tablesIn(link_, databaseOf(from)).empty()) return;
    takeVersion(from, to);
    made_.push_back(to);
    for (const std::string& table : tablesIn(link_, databaseOf(from)))
      steps_ += (steps_.empty() ? "" : ", ") + serverName(databaseOf(from)) + "." + serverName(table) +
                " TO " + serverName(databaseOf(to)) + "." + serverName(table);
  }
  void run() {
    if (steps_.empty()) return;
    link_.rows("RENAME TABLE " + steps_);
    for (const fs::path& books : made_) {
      Database db;
      db.openOnServer(books);
      if (CheckTable(db, "SALE")) RemakeViews(db);
    }
  }

 private:
  ServerLink link_;
  std::string steps_;
  std::vector<fs::path> made_;
};

}  // namespace

fs::path besideBooks(const fs::path& books, std::string_view ending) {
  return books.parent_path() / (books.stem().string() + std::string(ending) + books.extension().string());
}

bool standsOnServer(const fs::path& books) {
  ServerLink link(books.parent_path());
  return !tablesIn(link, databaseOf(books)).empty();
}

bool nobodyIn(const fs::path& books) {
  if (!standsOnServer(books)) return true;
  Database db;
  db.openOnServer(books);
  return db.firstUser();
}

std::vector<fs::path> booksOnServer(const fs::path& folder, std::string_view ending) {
  std::vector<fs::path> found;
  for (const std::string& name : ServerLink(folder).ask("SHOW DATABASES"))
    if (name.size() > ending.size() && name.ends_with(ending))
      found.push_back(folder / (upper(name) + ".mdb"));
  return found;
}

void buildOnServer(const fs::path& books, const fs::path& aside,
                   const std::function<void(Database&)>& build) {
  const fs::path making = besideBooks(books, kMaking);
  dropOnServer(making);
  try {
    Database db;
    db.openOnServer(making, Access::create);
    build(db);
  } catch (...) {
    try {
      dropOnServer(making);
    } catch (const std::exception& error) {
      logFailure("passed over: it is thrown away when these books are made", error);
    }
    throw;
  }
  Exchange exchange(books.parent_path());
  exchange.add(books, aside);
  exchange.add(making, books);
  exchange.run();
  dropOnServer(making);
}

void renameOnServer(const fs::path& from, const fs::path& to) {
  Exchange exchange(from.parent_path());
  exchange.add(from, to);
  exchange.run();
  dropOnServer(from);
}

void ensureViews(Database& db) {
  if (CheckTable(db, "SALE") && db.engine().views().empty()) RemakeViews(db);
}

void dropOnServer(const fs::path& books) {
  ServerLink(books.parent_path()).rows("DROP DATABASE IF EXISTS " + serverName(databaseOf(books)));
}
