#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "store/database.h"

// Where books stand. A folder that holds server.cnf, an option file of the server's client library with the
// group [client], keeps its catalogue (comp.mdb) and its company-years (M00126.mdb) on that server, each in a
// database of the file's stem; all else, and every other folder, is files.

inline constexpr const char* kServerFile = "server.cnf";

// Whether `open` finds the books of that name on a server.
bool onServer(const std::filesystem::path& books);
// Whether they are there. Raises DatabaseError when a server does not answer.
bool booksExist(const std::filesystem::path& books);

struct Credentials {
  std::string user, password;
};
// Whether the folder's server.cnf leaves out who signs in.
bool asksWho(const std::filesystem::path& folder);
// Who signs in from now on, kept by this process alone. Raises DatabaseError when the server refuses, and
// keeps who was before.
void signIn(const std::filesystem::path& folder, const Credentials& who);
// The account's name, without its host.
std::string signedInAs(Database& db);

// What server.cnf says, as far as we read it ourselves.
struct ServerPlace {
  std::filesystem::path file;
  std::vector<std::pair<std::string, unsigned>> hosts;  // with ports, 0 for the usual one; in their order
  bool namesUser = false, namesPassword = false;
  bool encrypted = false, verified = false;  // names anything of ssl, or that the certificate is looked at
};
ServerPlace serverPlace(const std::filesystem::path& folder);
// Whoever has signed in; empty when the file names who does.
const Credentials& signedIn();
