#pragma once

#include <string>
#include <string_view>

#include "store/database.h"

// What a database server and its client library say by number, as the kinds of DatabaseError and in the
// words of this program. `text` is the server's own and stands only where a person can do something with
// it; `name` is that of the books. The statement decides which right was missing.
DatabaseError serverError(unsigned code, const std::string& text, const std::string& name,
                          std::string_view statement = {});
// The same of a lost connection in the words for who asked only and has nothing to save.
DatabaseError whileAsking(const DatabaseError& error);
DatabaseError::Kind kindOfServer(unsigned code);
