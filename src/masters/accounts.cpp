#include "masters/accounts.h"

#include <algorithm>

#include "base/text.h"
#include "base/words.h"
#include "store/balances.h"
#include "store/groups.h"
#include "store/seeds.h"

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

// clang-format off
constexpr Guard kGuards[] = {
    {"SELECT VOUCH_NO FROM SALE WHERE PARTY_CD = ?",
     english("There is SALE Entry For This ACCOUNT Pl. Merge ACCOUNT")},
    // By the row, so that the search stays in its index.
    {"SELECT NUMTEXT(VOUCH_NO) FROM SALE WHERE rowid = (SELECT rowid FROM SALE WHERE CASH_CD = ? LIMIT 1)",
     english("This Account Is The Ship To Of Bill {where}\r\nCan Not Delete")},
    {"SELECT NUMTEXT(VOUCH_NO) FROM CHLN WHERE PARTY_CD = ?",
     english("There Is Challan {where} For This Account\r\nCan Not Delete")},
    {"SELECT NUMTEXT(VOUCH_NO) FROM QUOT WHERE PARTY_CD = ? OR BL_PARTY_CD = ?",
     english("There Is Quotation {where} For This Account\r\nCan Not Delete")},
    {"SELECT NUMTEXT(VOUCH_NO) FROM RPTPAY WHERE PARTY_CD = ? OR CSHBNK_CD = ?",
     english("There Is Receipt Or Payment {where} For This Account\r\nCan Not Delete")},
    {"SELECT BOOK_CD || ' ' || NUMTEXT(VOUCH_NO) FROM JOURNITM WHERE ACC_CD = ?",
     english("There Is Journal Entry {where} For This Account\r\nCan Not Delete")},
    {"SELECT BOOK_CD || ' ' || NUMTEXT(VOUCH_NO) FROM ALEDGER WHERE PARTY_CD = ?",
     english("There Is Ledger Entry {where} For This Account\r\nCan Not Delete :: Posting Removes What Deleted Vouchers Left")},
    {"SELECT SHOWN(OP_BAL, '0.00') FROM ACCOUNT WHERE ACC_CD = ? AND ROUNDED(OP_BAL, 2) <> 0",
     english("The Opening Balance Of This Account Is {where}\r\nCan Not Delete")},
    {"SELECT VOUCH_NM FROM SPSFILE WHERE VOUCH_CD = ?",
     english("This Account Is Set As {where}\r\nCan Not Delete")},
    {"SELECT NAME FROM DISCHTAX WHERE TAX_ACC = ?",
     english("This Account Belongs To The Tax {where}\r\nCan Not Delete")},
    {"SELECT RTYP FROM RCTYP WHERE RTYPACC = ?",
     english("This Account Belongs To The Receipt Type {where}\r\nCan Not Delete")},
};
// clang-format on

}  // namespace

std::optional<Row> findAccount(Database& db, std::string_view code) {
  return db.first("SELECT ACCOUNT.* FROM ACCOUNT WHERE ACC_CD = ?", code);
}

bool accountExists(Database& db, std::string_view code) {
  return db.first("SELECT 1 FROM ACCOUNT WHERE ACC_CD = ?", code).has_value();
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
  return db.first("SELECT 1 WHERE " + underGroups("?", {85, 135}), code).has_value();
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
  return whole(db, [&] {
    if (updateRows(db, "ACCOUNT", fields, "ACC_CD = ?", {code}) == 0) return false;
    db.exec("UPDATE ACCOUNT SET GSTREGTYP = '.' WHERE ACC_CD = ? AND COALESCE(GSTREGTYP, '') = ''", code);
    RebuildOneBalance(db, code);
    return true;
  });
}

std::optional<Refusal> accountRefusal(Database& db, std::string_view code) {
  const std::span guards(kGuards);
  if (auto refused = refusal(db, guards.first(1), code)) return refused;
  if (isSeededAccount(code)) return Refusal{words("This Account Belongs To The System\r\nCan Not Delete")};
  return refusal(db, guards.subspan(1), code);
}

void deleteAccount(Database& db, std::string_view code) {
  db.passOver(kOlderBooks, "DELETE FROM PRTYRATE WHERE ACC_CD = ?", code);
  db.exec("DELETE FROM ACCOUNT WHERE ACC_CD = ?", code);
}
