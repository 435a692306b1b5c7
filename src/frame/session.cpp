#include "frame/session.h"

#include <stdexcept>

Session& session() {
  static Session one;
  return one;
}

namespace {

Database& opened(const std::unique_ptr<Database>& db) {
  if (!db) throw std::logic_error("no database is open");
  return *db;
}

}  // namespace

Database& data() { return opened(session().cndata); }

Database& catalogue() { return opened(session().cncomp); }
