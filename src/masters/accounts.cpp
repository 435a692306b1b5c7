#include "masters/accounts.h"

#include <algorithm>

#include "base/text.h"
#include "store/balances.h"

namespace {

const Field* findField(const Fields& fields, std::string_view column) {
  const auto found = std::ranges::find_if(fields, [&](const Field& f) { return sameText(f.column, column); });
  return found == fields.end() ? nullptr : &*found;
}

void addDerived(Fields& fields) {
  if (const Field* opening = findField(fields, "OP_BAL")) fields.push_back({"CL_BAL", opening->value});
  // The name that the column has in older databases; a column that is not there is passed over.
  if (const Field* email = findField(fields, "EMAIL")) fields.push_back({"EMAIL_ID", email->value});
}

}  // namespace

std::optional<Row> findAccount(Database& db, std::string_view code) {
  return db.first("SELECT ACCOUNT.* FROM ACCOUNT WHERE ACC_CD = ?", code);
}

bool accountNameInUse(Database& db, std::string_view name) {
  return db.first("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_NAME = ?", name).has_value();
}

std::string groupCode(Database& db, std::string_view name) {
  return db.text("SELECT GROUP_CD FROM GRP WHERE GROUP_NAME = ?", name);
}

std::optional<std::string> groupName(Database& db, double code) {
  const auto row = db.first("SELECT GROUP_NAME FROM GRP WHERE GROUP_CD = ?", code);
  if (!row) return {};
  return row->text(0);
}

bool isPartyGroup(Database& db, double code) {
  return db
      .first(
          "WITH RECURSIVE UP(CODE) AS (SELECT ? UNION SELECT SUB_GROUP FROM GRP JOIN UP ON GROUP_CD = CODE)"
          " SELECT 1 FROM UP WHERE CODE IN (85, 135)",
          code)
      .has_value();
}

void addAccount(Database& db, Fields fields) {
  addDerived(fields);
  const Fields fixed{
      {"ANOTHER_CD", "S001"},
      {"GSTREGTYP",  "."   },
      {"REMARK1",    "."   },
      {"PRTYKM",     0     },
  };
  fields.insert(fields.end(), fixed.begin(), fixed.end());
  insertRow(db, "ACCOUNT", fields);
}

bool changeAccount(Database& db, std::string_view code, Fields fields) {
  addDerived(fields);
  fields.push_back({"ANOTHER_CD", "S001"});
  Transaction all(db);
  if (updateRows(db, "ACCOUNT", fields, "ACC_CD = ?", {code}) == 0) return false;
  db.exec("UPDATE ACCOUNT SET GSTREGTYP = '.' WHERE ACC_CD = ? AND COALESCE(GSTREGTYP, '') = ''", code);
  RebuildOneBalance(db, code);
  all.commit();
  return true;
}

bool accountHasSales(Database& db, std::string_view code) {
  return db.first("SELECT VOUCH_NO FROM SALE WHERE PARTY_CD = ?", code).has_value();
}

void deleteAccount(Database& db, std::string_view code) {
  db.exec("DELETE FROM ACCOUNT WHERE ACC_CD = ?", code);
}
