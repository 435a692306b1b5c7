#include "store/server_books.h"

#include "base/text.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/server_link.h"
#include "store/server_together.h"
#include "store/views.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kMaking = "_new";
constexpr int kTablesAwaitedSeconds = 10;  // others may be in the middle of a statement

std::string databaseOf(const fs::path& books) { return lower(books.stem().string()); }

// The books in what is told of them, also under a passing name.
std::string shown(const fs::path& books) {
  const std::string stem = books.stem().string();
  return stem.substr(0, stem.find('_'));
}

// Those of the books; what programs tell each other of themselves stays where it is.
std::vector<std::string> tablesIn(ServerLink& link, const std::string& database) {
  std::vector<std::string> tables = link.ask(
      "SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_TYPE = 'BASE TABLE'"
      " AND TABLE_SCHEMA = " +
      serverText(database));
  std::erase_if(tables, isTurnTable);
  return tables;
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
  explicit Exchange(const fs::path& books) : link_(books.parent_path(), {}, shown(books)) {
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
      ensureViews(db);
    }
  }

 private:
  ServerLink link_;
  std::string steps_;
  std::vector<fs::path> made_;
};

void throwAway(const fs::path& making) noexcept {
  try {
    dropOnServer(making);
  } catch (const std::exception& error) {
    logFailure("passed over: it is thrown away when these books are made", error);
  }
}

}  // namespace

fs::path besideBooks(const fs::path& books, std::string_view ending) {
  return books.parent_path() / (books.stem().string() + std::string(ending) + books.extension().string());
}

bool standsOnServer(const fs::path& books) {
  ServerLink link(books.parent_path(), {}, shown(books));
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

BooksInMaking::BooksInMaking(fs::path books, const std::function<void(Database&)>& build)
    : books_(std::move(books)), making_(besideBooks(books_, kMaking)) {
  dropOnServer(making_);
  try {
    Database db;
    db.openOnServer(making_, Access::create);
    build(db);
  } catch (...) {
    throwAway(making_);
    throw;
  }
}

BooksInMaking::~BooksInMaking() { throwAway(making_); }

void BooksInMaking::putInPlace(const fs::path& aside) {
  Exchange exchange(books_);
  exchange.add(books_, aside);
  exchange.add(making_, books_);
  exchange.run();
  throwAway(making_);
}

void renameOnServer(const fs::path& from, const fs::path& to) {
  Exchange exchange(from);
  exchange.add(from, to);
  exchange.run();
  dropOnServer(from);
}

void ensureViews(Database& db) {
  if (CheckTable(db, "SALE") && db.engine().views().empty()) RemakeViews(db);
}

void dropOnServer(const fs::path& books) {
  ServerLink(books.parent_path(), {}, shown(books))
      .rows("DROP DATABASE IF EXISTS " + serverName(databaseOf(books)));
}
