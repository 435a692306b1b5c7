#pragma once

#include <cstdlib>
#include <filesystem>

#include "store/copy_books.h"
#include "store/place.h"

// Books that were made in a file go to the server beside which the test runs (tests/server/serve), when one
// does: from then on `open` finds them there, and the file stays as it was. Once for a server.
inline void ontoServer(const std::filesystem::path& books) {
  const char* const server = std::getenv("MIRAV_SERVER");
  if (!server) return;
  std::filesystem::copy_file(std::filesystem::path(server) / kServerFile, books.parent_path() / kServerFile);
  Database file, there;
  file.openFile(books);
  there.openOnServer(books, Access::create);
  copyBooks(file, there);
}
