#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

// Whole books on a server, named as ever by a path in the folder of server.cnf (store/place.h). Beside
// M00126.mdb stand others of a name of their own, M00126_new.mdb or M00126_old1.mdb, which only these
// functions and Database::openOnServer reach. Definitions commit there one by one; therefore books are made
// under such a name, and all their tables are given the books' name in one step. Failures are DatabaseError.

// The path of books with an ending behind their name: "M00126_old1.mdb".
std::filesystem::path besideBooks(const std::filesystem::path& books, std::string_view ending);

// Whether a table stands there; a database that has lost its tables to another is none.
bool standsOnServer(const std::filesystem::path& books);
// Whether no program has them open.
bool nobodyIn(const std::filesystem::path& books);
// The folder's books whose name has that ending: "_deleted".
std::vector<std::filesystem::path> booksOnServer(const std::filesystem::path& folder,
                                                 std::string_view ending);

// Books under their passing name, which are thrown away with this unless they were put in place.
class BooksInMaking {
 public:
  // Calls `build` with empty books.
  BooksInMaking(std::filesystem::path books, const std::function<void(Database&)>& build);
  ~BooksInMaking();
  BooksInMaking(const BooksInMaking&) = delete;
  BooksInMaking& operator=(const BooksInMaking&) = delete;
  // Gives them their own name. What stood there bears the name `aside` from then on.
  void putInPlace(const std::filesystem::path& aside);

 private:
  std::filesystem::path books_, making_;
};
// Gives books another name, which none may bear.
void renameOnServer(const std::filesystem::path& from, const std::filesystem::path& to);
// The saved queries do not go with the tables: for who opens books whose giver was killed.
void ensureViews(Database& db);
void dropOnServer(const std::filesystem::path& books);
