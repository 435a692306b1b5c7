#include "store/server_operators.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "base/words.h"
#include "store/place.h"

namespace {

constexpr int kLongestName = 20;  // of USER_CD, which every voucher has
constexpr int kShortestPassword = 8, kLongestPassword = 100;
constexpr const char* kCatalogue = "comp";
constexpr std::string_view kAnyYear = "__";

struct Grant {
  const char* name;
  const char* column;  // of mysql.db
  Right from;          // the least right that has it
};
constexpr std::array kGrants{
    Grant{"SELECT",                  "Select_priv",           Right::Look},
    Grant{"EXECUTE",                 "Execute_priv",          Right::Look},
    Grant{"CREATE TEMPORARY TABLES", "Create_tmp_table_priv", Right::Look},
    Grant{"SHOW VIEW",               "Show_view_priv",        Right::Look},
    Grant{"INSERT",                  "Insert_priv",           Right::Bill},
    Grant{"UPDATE",                  "Update_priv",           Right::Bill},
    Grant{"DELETE",                  "Delete_priv",           Right::Bill},
    Grant{"CREATE",                  "Create_priv",           Right::All },
    Grant{"DROP",                    "Drop_priv",             Right::All },
    Grant{"ALTER",                   "Alter_priv",            Right::All },
    Grant{"INDEX",                   "Index_priv",            Right::All },
    Grant{"CREATE VIEW",             "Create_view_priv",      Right::All },
    Grant{"CREATE ROUTINE",          "Create_routine_priv",   Right::All },
    Grant{"ALTER ROUTINE",           "Alter_routine_priv",    Right::All },
};

template <class Test>
std::string grantNames(Test test) {
  std::vector<std::string> names;
  for (const Grant& grant : kGrants)
    if (test(grant)) names.emplace_back(grant.name);
  return join(names, ", ");
}

// The databases of all years of a company, and those that stand aside while one is worked on (m00126_new):
// _ is any sign in a grant, \_ is itself.
// A code without a figure could name mysql or comp so.
std::string years(const std::string& company) {
  const std::string code = lower(trim(company));
  const auto figure = [](char ch) { return ch >= '0' && ch <= '9'; };
  const auto plain = [&](char ch) { return figure(ch) || (ch >= 'a' && ch <= 'z'); };
  if (!std::ranges::all_of(code, plain) || std::ranges::none_of(code, figure))
    throw DatabaseError(
        DatabaseError::Kind::other,
        DatabaseError::Told(words("{code} Is No Company Code\r\nLetters And Digits Only, And At "
                                  "Least One Digit",
                                  "code", company)));
  return code + std::string(kAnyYear);
}
std::string aside(const std::string& company) { return years(company) + "\\_%"; }

// The server takes no values in these statements, so it makes them itself, of values that were handed over
// as everywhere; in texts ' is doubled, in names ". No failure has a password in its statement.
constexpr std::string_view kCreate =
    "BEGIN NOT ATOMIC EXECUTE IMMEDIATE CONCAT('CREATE USER ''', REPLACE(?, '''', ''''''), '''@''',"
    " REPLACE(?, '''', ''''''), ''' IDENTIFIED BY ''', REPLACE(?, '''', ''''''), ''''); END";
constexpr std::string_view kAlter =
    "BEGIN NOT ATOMIC EXECUTE IMMEDIATE CONCAT('ALTER USER ''', REPLACE(?, '''', ''''''), '''@''',"
    " REPLACE(?, '''', ''''''), ''' IDENTIFIED BY ''', REPLACE(?, '''', ''''''), ''''); END";
constexpr std::string_view kDrop =
    "BEGIN NOT ATOMIC EXECUTE IMMEDIATE CONCAT('DROP USER ''', REPLACE(?, '''', ''''''), '''@''',"
    " REPLACE(?, '''', ''''''), ''''); END";
constexpr std::string_view kKill =
    "BEGIN NOT ATOMIC EXECUTE IMMEDIATE CONCAT('KILL USER ''', REPLACE(?, '''', ''''''), '''@''',"
    " REPLACE(?, '''', ''''''), ''''); END";
constexpr std::string_view kGrant =
    "BEGIN NOT ATOMIC EXECUTE IMMEDIATE CONCAT('GRANT ', ?, ' ON \"', REPLACE(?, '\"', '\"\"'), '\".* TO ''',"
    " REPLACE(?, '''', ''''''), '''@''', REPLACE(?, '''', ''''''), ''''); END";
constexpr std::string_view kRevoke =
    "BEGIN NOT ATOMIC EXECUTE IMMEDIATE CONCAT('REVOKE ', ?, ' ON \"', REPLACE(?, '\"', '\"\"'), '\".* FROM"
    " ''', REPLACE(?, '''', ''''''), '''@''', REPLACE(?, '''', ''''''), ''''); END";

void grant(Database& db, const Operator& who, const std::string& databases, Right right) {
  db.exec(kGrant, grantNames([&](const Grant& g) { return g.from <= right; }), databases, who.name, who.host);
}

// Of what was granted there, which must be something.
void revokeAbove(Database& db, const Operator& who, const std::string& databases, Right right) {
  const std::string names = grantNames([&](const Grant& g) { return g.from > right; });
  if (!names.empty()) db.exec(kRevoke, names, databases, who.name, who.host);
}

bool anythingGranted(Database& db, const Operator& who, const std::string& databases) {
  return db
      .first("SELECT 1 FROM mysql.db AS D WHERE D.[User] = ? AND D.[Host] = ? AND D.Db = ?", who.name,
             who.host, databases)
      .has_value();
}

void setGrants(Database& db, const Operator& who, const std::string& databases, Right right) {
  if (right != Right::None) grant(db, who, databases, right);
  if (right != Right::None || anythingGranted(db, who, databases)) revokeAbove(db, who, databases, right);
}

void setInCompany(Database& db, const Operator& who, const std::string& company, Right right) {
  setGrants(db, who, years(company), right);
  setGrants(db, who, aside(company), right == Right::All ? Right::All : Right::None);
}

// Grants count from the next time that a connection turns to its database.
void cutOff(Database& db, const Operator& who) {
  try {
    db.exec(kKill, who.name, who.host);
  } catch (const DatabaseError& error) {
    if (error.kind() != DatabaseError::Kind::denied) throw;
    logFailure("passed over: it counts when he signs in again", error);
  }
}

Right rightIn(const Row& row) {
  Right right = Right::All;
  for (const Grant& grant : kGrants)
    if (!sameText(row.text(grant.column), "Y"))
      right = std::min(right, static_cast<Right>(static_cast<int>(grant.from) - 1));
  return right;
}

// CURRENT_USER() is name@host, and a name may hold an @.
Operator whoIsHere(Database& db) {
  const std::string account = db.text("SELECT CURRENT_USER()");
  const size_t at = account.rfind('@');
  if (at == std::string::npos) return {.name = account};
  return {.name = account.substr(0, at), .host = account.substr(at + 1)};
}

}  // namespace

Right Operator::highest() const {
  if (owner) return Right::All;
  Right most = Right::None;
  for (const auto& [company, right] : rights) most = std::max(most, right);
  return most;
}

bool mayMakeOperators(Database& db) {
  if (!onServer(db.file())) return false;
  const Operator me = whoIsHere(db);
  return db.number(
             "SELECT COUNT(*) FROM information_schema.USER_PRIVILEGES AS P"
             " WHERE P.PRIVILEGE_TYPE = 'CREATE USER' AND P.GRANTEE = CONCAT('''', ?, '''@''', ?, '''')",
             me.name, me.host) > 0;
}

std::vector<Operator> operators(Database& db) {
  std::vector<Operator> all;
  for (auto rows = db.query(
           "SELECT U.[User] AS NAME, U.[Host] AS FROM_WHERE, U.Create_user_priv AS OWNER FROM mysql.user AS U"
           " WHERE U.is_role = 'N' AND (U.Create_user_priv = 'Y' OR EXISTS (SELECT 1 FROM mysql.db AS D"
           " WHERE D.[User] = U.[User] AND D.[Host] = U.[Host] AND D.Db = ?)) ORDER BY 3, 1, 2",
           kCatalogue);
       rows.next();)
    all.push_back({.name = rows.text("NAME"),
                   .host = rows.text("FROM_WHERE"),
                   .owner = sameText(rows.text("OWNER"), "Y")});
  std::vector<std::string> columns;
  for (const Grant& grant : kGrants) columns.push_back(std::string("D.") + grant.column);
  for (const Row& row : db.all("SELECT D.[User] AS NAME, D.[Host] AS FROM_WHERE, D.Db AS YEARS, " +
                               join(columns, ", ") + " FROM mysql.db AS D")) {
    const std::string pattern = row.text("YEARS");
    const auto who = std::ranges::find_if(all, [&](const Operator& o) {
      return o.name == row.text("NAME") && o.host == row.text("FROM_WHERE");
    });
    if (who == all.end() || !pattern.ends_with(kAnyYear)) continue;
    const std::string company = upper(pattern.substr(0, pattern.size() - kAnyYear.size()));
    if (const Right right = rightIn(row); right != Right::None) who->rights[company] = right;
  }
  return all;
}

std::string nameRefusal(const std::string& name, const std::vector<Operator>& all) {
  if (trim(name).empty()) return words("Type The Name Under Which The Operator Signs In");
  if (length(name) > kLongestName)
    return words("{name}\r\nVouchers Have Room For {most} Letters Of A Name", "name", cut(name, 60), "most",
                 std::to_string(kLongestName));
  const auto taken = std::ranges::find_if(all, [&](const Operator& o) { return sameText(o.name, name); });
  return taken == all.end() ? "" : words("{name} Is An Operator Already", "name", taken->name);
}

std::string passwordRefusal(const std::string& password, const std::string& again) {
  if (length(password) < kShortestPassword || length(password) > kLongestPassword)
    return words("A Password Has {least} To {most} Letters", "least", std::to_string(kShortestPassword),
                 "most", std::to_string(kLongestPassword));
  return password == again ? "" : words("The Two Passwords Are Not The Same\r\nType Both Again");
}

void addOperator(Database& db, const std::string& name, const std::string& password) {
  const Operator who{.name = name, .host = "%"};
  db.exec(kCreate, who.name, who.host, password);
  grant(db, who, kCatalogue, Right::Look);
}

void removeOperator(Database& db, const Operator& who) {
  db.exec(kDrop, who.name, who.host);
  cutOff(db, who);
}

void setPassword(Database& db, const Operator& who, const std::string& password) {
  db.exec(kAlter, who.name, who.host, password);
  cutOff(db, who);
}

void setRight(Database& db, const Operator& who, const std::string& company, Right right) {
  setInCompany(db, who, company, right);
  // The list of companies is written by who may do all in one of them.
  Operator after = who;
  after.rights[upper(trim(company))] = right;
  setGrants(db, who, kCatalogue, after.highest() == Right::All ? Right::Bill : Right::Look);
  cutOff(db, who);
}

void giveSameRights(Database& db, const std::string& from, const std::string& to) {
  for (const Operator& who : operators(db))
    if (const auto given = who.rights.find(upper(trim(from))); given != who.rights.end())
      setInCompany(db, who, to, given->second);
}
