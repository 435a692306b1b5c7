#include "store/seeds.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "store/row_writer.h"

namespace {

using namespace std::chrono_literals;

// clang-format off
struct Group { int code; const char* name; int parent; };
constexpr Group groups[] = {
    {  1, "TRADING EXPENSE",             0},
    {  2, "TRADING INCOME",              0},
    {  3, "P&L EXPENSE",                 0},
    {  4, "P&L INCOME",                  0},
    {  5, "ASSETS",                      0},
    {  6, "CAPITAL & LIABILITY",         0},
    { 10, "OPENING STOCK",               1},
    { 11, "PURCHASE ACCOUNTS",           1},
    { 13, "DIRECT EXPENSES",             1},
    { 15, "STOCK IN",                    1},
    { 16, "WASTAGE",                     1},
    { 21, "SALES ACCOUNTS",              2},
    { 22, "SALES CHARGES",               2},
    { 25, "STOCK OUT",                   2},
    { 26, "WASTAGE GOODS OUT",           2},
    { 33, "INDIRECT EXPENSES",           3},
    { 35, "ADMINISTRATIVE EXPENSES",     3},
    { 37, "SALARY EXPENSES",            35},
    { 40, "MISC. EXPENSES",              3},
    { 51, "MISC. INCOMES",               4},
    { 75, "FIXED ASSETS",                5},
    { 76, "INVESTMENTS",                 5},
    { 77, "DEPOSITS - ASSET",            5},
    { 78, "CURRENT ASSETS",              5},
    { 81, "LOANS & ADVANCES - ASSET",   78},
    { 85, "SUNDRY DEBITORS",            78},
    { 87, "BANK ACCOUNTS",              78},
    { 88, "CASH ACCOUNTS",              78},
    { 95, "PRE-OPERATIVE EXPENSES",      5},
    {121, "CAPITAL ACCOUNTS",            6},
    {122, "EQUITY",                      6},
    {125, "LOANS - LIABILITY",           6},
    {127, "BANK O/D ACCOUNTS",         125},
    {128, "SECURED LOANS",             125},
    {129, "UNSECURED LOANS",           125},
    {130, "CURRENT LIABILITY ",          6},
    {132, "DUTIES & TAXES",            130},
    {133, "PROVISIONS",                130},
    {135, "SUNDRY CreditORS",          130},
};

struct Account { const char* code; const char* name; int group; };
constexpr Account accounts[] = {
    {"X90001", "PURCHASE A/C",                    11},
    {"X90002", "SALES A/C",                       21},
    {"X90004", "SALES TAX A/C",                  132},
    {"X90005", "CASH A/C",                        88},
    {"X90006", "SALES DISCOUNT A/C",              40},
    {"X90007", "PACKING & FORWARDING CHARGES",    51},
    {"X90015", "ROUND OFF",                       40},
    {"X90061", "OUTPUT CGST",                    132},
    {"X90062", "OUTPUT SGST",                    132},
    {"X90063", "OUTPUT IGST",                    132},
    {"X90064", "INPUT CGST",                     132},
    {"X90065", "INPUT SGST",                     132},
    {"X90066", "INPUT IGST",                     132},
};

// The second row carries the name of the first one's account.
struct Tax { int code; const char* name; const char* account; const char* accountName; };
constexpr Tax taxes[] = {
    {31, "CGST", "X90061", "OUTPUT CGST"},
    {32, "SGST", "X90062", "OUTPUT CGST"},
    {33, "IGST", "X90063", "OUTPUT IGST"},
};

struct Design {
  int number; const char* name; const char* file; const char* sheet; const char* query;
  int head, foot, slots, perItem, pages; const char* button; int copies;
};
constexpr Design designs[] = {
    {1, "GST INVOICE", "INVGST1", "BILL", "GSTBLPRN", 16, 12, 24, 1, 3, "GST INVOICE", 1},
    {2, "GST INVOICE", "INVGST2", "BILL", "GSTBLPRN", 21, 14, 22, 1, 3, "GST INVOICE", 1},
    {3, "GST INVOICE", "INVGST3", "BILL", "GSTBLPRN", 17, 14, 22, 1, 7, "GST INVOICE", 1},
    {4, "GST INVOICE", "INVGST4", "BILL", "GSTBLPRN", 15, 16, 20, 1, 2, "GST INVOICE", 1},
    {5, "GST INVOICE", "INVGST5", "BILL", "GSTBLPRN", 21, 14, 22, 1, 3, "GST INVOICE", 1},
    {6, "GST INVOICE", "INVGST6", "BILL", "GSTBLPRN", 17, 14, 22, 1, 7, "GST INVOICE", 1},
    {7, "QUOTATION",   "QUOTITM", "QUOT", "QUOTPRN",  15, 14, 22, 1, 7, "QUOTATION",   1},
    {8, "CHALLAN",     "INVGEN1", "D_C",  "CHLNPRN",   4,  4, 17, 1, 6, "CHALLAN",     1},
    {9, "CHALLAN",     "INVGEN2", "D_C",  "CHLNPRN",   6,  4, 26, 1, 3, "CHALLAN",     1},
};

// The seed of an account row at 159 lands in the tax account; the round-off account keeps what
// it was until the row is read at the next opening.
struct SettingAccount { int number; const char* code; const char* name; std::string Settings::*seeded; std::string Settings::*read; };
constexpr SettingAccount settingAccounts[] = {
    {152, "X90002", "SALES A/c Code",        &Settings::msalesac,      &Settings::msalesac     },
    {154, "X90006", "SALES DISC A/C CODE",   &Settings::msalesdiscac,  &Settings::msalesdiscac },
    {156, "X90007", "SALE CHARGES A/C CODE", &Settings::msalechargeac, &Settings::msalechargeac},
    {158, "X90004", "SALES Tax A/c Code",    &Settings::msalestaxac,   &Settings::msalestaxac  },
    {159, "X90015", "Round Off A/c Code",    &Settings::msalestaxac,   &Settings::mroundac     },
    {160, "X90005", "CASH A/c",              &Settings::mcashac,       &Settings::mcashac      },
};

struct SettingDesign { int number; const char* name; int seed; int Settings::*member; };
constexpr SettingDesign settingDesigns[] = {
    {371, "Bill Format",    1, &Settings::mbillformat},
    {372, "Quot Format",    7, &Settings::mquotformat},
    {373, "Challan Format", 8, &Settings::mchlnformat},
};
// clang-format on

struct SettingRow {
  int number;
  const char* code;
  const char* name;
  int quantity = 0;
};

// The row of that number; a missing one is added and none is returned.
std::optional<Row> settingOrAdd(Database& db, const SettingRow& seed, Date date) {
  auto row = db.first("SELECT * FROM SPSFILE WHERE VOUCH_NO = ?", seed.number);
  if (!row)
    db.exec(
        "INSERT INTO SPSFILE (VOUCH_NO, VOUCH_DT, VOUCH_CD, VOUCH_NM, VOUCH_QTY, VOUCH_AMT, VOUCH_FLAG)"
        " VALUES (?, ?, ?, ?, ?, 0, 0)",
        seed.number, date, seed.code, seed.name, seed.quantity);
  return row;
}

constexpr Because kSeeds{"a seed that cannot be stored is tried again at the next opening"};

void passOver(Database& db, const std::function<void()>& work) {
  try {
    db.passOver(kSeeds, work);
  } catch (const DatabaseError& error) {
    if (error.kind() != DatabaseError::Kind::denied) throw;
    logFailure("passed over: the next opening of somebody who may write seeds", error);
  }
}

constexpr SettingRow kFirstDay{211, "FRDT", "A/c Start Date"}, kLastDay{212, "TODT", "A/c End Date"};

void ensurePeriod(Database& db, Settings& settings) {
  passOver(db, [&] {
    const auto row = settingOrAdd(db, kFirstDay, settings.mstartdt);
    if (row) settings.mstartdt = row->date("VOUCH_DT").value_or(settings.mstartdt);
  });
  passOver(db, [&] {
    const auto row = settingOrAdd(db, kLastDay, 2034y / 3 / 31);
    if (row && !row->text("VOUCH_CD").empty())
      settings.menddt = row->date("VOUCH_DT").value_or(settings.menddt);
  });
}

void ensureBackup(Database& db, Settings& settings) {
  passOver(db, [&] {
    const auto row = settingOrAdd(db, {234, "BACKUP", "D:\\BACKUP"}, settings.mstartdt);
    settings.mbackuppath = row ? row->text("VOUCH_NM") : "D:\\BACKUP";
    if (!row)
      settings.mbackupflag = false;
    else if (!row->isNull("VOUCH_QTY"))
      settings.mbackupflag = row->number("VOUCH_QTY") != 0;
  });
}

// Those of the rows whose key does not stand in the table, found by one statement.
template <typename Seed, size_t N, typename Key>
std::vector<const Seed*> missing(Database& db, const std::string& table, const std::string& column,
                                 const Seed (&seeds)[N], Key Seed::*key) {
  std::vector<Value> keys;
  for (const Seed& seed : seeds) keys.emplace_back(seed.*key);
  std::set<std::string> standing;
  for (const Row& row : db.all("SELECT " + column + " FROM " + table + " WHERE " + column + " IN (" +
                                   join(std::vector<std::string>(N, "?"), ", ") + ")",
                               keys))
    standing.insert(upper(row.text(0)));
  std::vector<const Seed*> none;
  for (const Seed& seed : seeds)
    if (!standing.contains(upper(Value(seed.*key).text()))) none.push_back(&seed);
  return none;
}

void addDesign(Database& db, const Design& design) {
  db.passOver(kSeeds,
              "INSERT INTO HIDELINESET (SRNO, PRNNAME, FILENM, SHEETNM, QUERYNM, HDLINES, FTLINES, INVLINES, "
              "ITMLINES, BLPGS,"
              " BTNNM, PRNCPY) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
              design.number, design.name, design.file, design.sheet, design.query, design.head, design.foot,
              design.slots, design.perItem, design.pages, design.button, design.copies);
}

}  // namespace

void EnsureSettings(Database& db, Settings& settings) {
  for (const auto& account : settingAccounts)
    passOver(db, [&] {
      const auto row = settingOrAdd(db, {account.number, account.code, account.name}, settings.mstartdt);
      if (!row)
        settings.*account.seeded = account.code;
      else if (!row->text("VOUCH_CD").empty())
        settings.*account.read = row->text("VOUCH_CD");
    });
  ensurePeriod(db, settings);
  ensureBackup(db, settings);
  passOver(db, [&] { settingOrAdd(db, {351, "", "SALE BILL SERIES"}, settings.mstartdt); });
  for (const auto& design : settingDesigns)
    passOver(db, [&] {
      const auto row = settingOrAdd(db, {design.number, "", design.name, design.seed}, settings.mstartdt);
      settings.*design.member = row ? toInt(row->number("VOUCH_QTY")) : design.seed;
    });
}

bool isSeededAccount(std::string_view code) {
  return std::ranges::any_of(accounts, [&](const Account& account) { return sameText(code, account.code); });
}

void StorePeriod(Database& db, Date first, Date last) {
  for (const auto& [row, date] : {std::pair(kFirstDay, first), std::pair(kLastDay, last)})
    // The last day is read from a row with a code alone.
    if (settingOrAdd(db, row, date))
      db.exec("UPDATE SPSFILE SET VOUCH_DT = ?, VOUCH_CD = ? WHERE VOUCH_NO = ?", date, row.code, row.number);
}

void EnsureAccounts(Database& db) {
  for (const Account* account : missing(db, "ACCOUNT", "ACC_CD", accounts, &Account::code))
    passOver(db, [&] {
      insertRow(db, "ACCOUNT",
                {
                    {"ACC_CD",     account->code },
                    {"ACC_NAME",   account->name },
                    {"GROUP_CD",   account->group},
                    {"AREA",       "."           },
                    {"CITY",       "."           },
                    {"PINCODE",    "."           },
                    {"TRANSPORT1", "."           }, // stands in books of before alone
                    {"OP_BAL",     0             },
                    {"CL_BAL",     0             },
                    {"CREDIT_DAY", 0             },
                    {"ANOTHER_CD", "S001"        }
      });
    });
}

void EnsureGroups(Database& db) {
  // It is always made anew; where it stands as it is made, the books are spared the change, and where all
  // stands nobody is waited for.
  constexpr std::string_view kOtherwise =
      " FROM GRP WHERE GROUP_NAME = 'INDIRECT EXPENSES' AND (GROUP_CD IS NULL OR GROUP_CD <> 33"
      " OR SUB_GROUP IS NULL OR SUB_GROUP <> 3 OR HEX(GROUP_NAME) <> HEX('INDIRECT EXPENSES'))";
  const auto lacking = [&] { return missing(db, "GRP", "GROUP_CD", groups, &Group::code); };
  if (lacking().empty() && !db.first("SELECT 1" + std::string(kOtherwise)) &&
      !db.first("SELECT 1 FROM GRP WHERE GROUP_CD = ?", kPassingGroup))
    return;
  whole(db, [&] {
    db.passOver(kSeeds, "DELETE" + std::string(kOtherwise));
    db.passOver(kSeeds, "DELETE FROM GRP WHERE GROUP_CD = ?", kPassingGroup);
    const bool fresh = db.number(
                           "SELECT COUNT(*) FROM GRP WHERE GROUP_NAME IS NULL"
                           " OR GROUP_NAME <> 'INDIRECT EXPENSES'") == 0;
    for (const Group* group : lacking())
      db.passOver(kSeeds, "INSERT INTO GRP (GROUP_CD, GROUP_NAME, SUB_GROUP) VALUES (?, ?, ?)", group->code,
                  group->name, group->parent);
    if (fresh) {
      db.passOver(kSeeds, "DELETE FROM GRP WHERE GROUP_CD = 141");
      db.passOver(kSeeds, "UPDATE ACCOUNT SET GROUP_CD = 133 WHERE GROUP_CD = ?", kPassingGroup);
    }
  });
}

void EnsureTaxes(Database& db) {
  for (const Tax* tax : missing(db, "DISCHTAX", "CODE", taxes, &Tax::code))
    passOver(db, [&] {
      insertRow(db, "DISCHTAX",
                {
                    {"CODE",     tax->code       },
                    {"NAME",     tax->name       },
                    {"RATE",     0               },
                    {"TAX_ACC",  tax->account    },
                    {"TAX_ACNM", tax->accountName}
      });
    });
}

void EnsureDesigns(Database& db) {
  for (const Design* design : missing(db, "HIDELINESET", "SRNO", designs, &Design::number))
    addDesign(db, *design);
}
