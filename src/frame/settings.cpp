#include "frame/settings.h"

#include <algorithm>
#include <stdexcept>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"

namespace {

using How = Setting::Kind;

constexpr const char* kYesNo[] = {english("No"), english("Yes")};
constexpr const char* kNumbers[] = {english("Ask Each Time"), english("Leave Them Out"),
                                    english("Print Them")};
constexpr const char* kNarration[] = {english("Ask Each Time"), english("Leave It Out"), english("Show It")};
constexpr const char* kParts[] = {english("Ask Each Time"), english("Category By Category"),
                                  english("In One List")};
constexpr const char* kDetail[] = {english("Ask Each Time"), english("With The Bills"),
                                   english("Parties Alone")};
constexpr const char* kUnits[] = {english("Asked At Database Check"), english("One For Each Item"),
                                  english("As Many As Needed")};
constexpr const char* kAlone[] = {english("Where No Bill Stands For Them"),
                                  english("Always, Also Beside Their Bill")};

constexpr const char *kBackup = english("Backup"), *kPrint = english("Before Print"),
                     *kBooks = english("Books"), *kMoney = english("Receipts and payments"),
                     *kBills = english("Discount and charges of bills");

// clang-format off
constexpr Setting kSettings[] = {
    {kExitBackup,       234,  How::YesNo,  "0",           kBackup, english("Backup at the exit"),         english("A copy of these books is made whenever the program is left"), kYesNo},
    {kBackupsKept,      9001, How::Count,  "10",          kBackup, english("Backups of the exit kept"),   english("Older ones go; those asked for by hand stay"), {}, 999},
    {kBackupFolder,     234,  How::Folder, "D:\\BACKUP", kBackup, english("Folder of the backups"),      english("A path of another system means a folder beside the program")},
    {kSecondFolder,     9002, How::Folder, "",            kBackup, english("Second folder"),              english("Each backup is made there too; best on a stick or another disk")},

    {kLedgerNumbers,    9003, How::Choice, "0",           kPrint,  english("Ledger: voucher numbers"),    english("What the ledger asks before it goes on paper"), kNumbers},
    {kLedgerNarration,  9004, How::Choice, "0",           kPrint,  english("Ledger: narration"),          english("What the ledger asks before it is shown"), kNarration},
    {kPriceListParts,   9005, How::Choice, "0",           kPrint,  english("Price list: parts"),          english("What the price list asks before it is shown"), kParts},
    {kOutstandingBills, 9006, How::Choice, "0",           kPrint,  english("Outstanding list: bills"),    english("What the outstanding list asks before it is shown"), kDetail},

    {kOneUnit,          9007, How::Choice, "0",           kBooks,  english("Units of an item"),           english("With one for each item the books refuse a second; set by Database Check"), kUnits},
    {kChallansPost,     9010, How::Choice, "0",           kBooks,  english("Challans post as sales"),     english("Goods count once while a bill takes their place; another choice shows after Posting"), kAlone},
    {kComposition,      9012, How::YesNo,  "0",           kBooks,  english("Composition dealer"),         english("New bills collect no tax, new purchases bring no input credit; papers are bills of supply"), kYesNo},
    {kCustomsAccount,   9040, How::Account, "",           kBooks,  english("Customs"),                    english("Account that the tax on imported goods is owed to; the first import asks")},

    {kDiscountAllowed,  9021, How::Account, "X90006",     kMoney,  english("Discount allowed"),           english("Account of the discount in a receipt")},
    {kDiscountReceived, 9022, How::Account, "X90006",     kMoney,  english("Discount received"),          english("Account of the discount in a payment")},
    {kWrittenOff,       9023, How::Account, "X90015",     kMoney,  english("Written off"),                english("Account of what a customer need not pay")},
    {kWrittenBack,      9024, How::Account, "X90015",     kMoney,  english("Written back"),               english("Account of what a supplier leaves us")},
    {kTdsReceivable,    9025, How::Account, "",           kMoney,  english("TDS receivable"),             english("Account of the tax that customers deduct; the first receipt with TDS asks")},
    {kTdsPayable,       9026, How::Account, "",           kMoney,  english("TDS payable"),                english("Account of the tax that we deduct; the first payment with TDS asks")},

    {kSaleDiscount,     9031, How::Account, "X90006",     kBills,  english("Sales: discount"),            english("Account of the discount on a whole bill; Posting takes all bills along")},
    {kSalePacking,      9032, How::Account, "X90007",     kBills,  english("Sales: packing"),             english("Account of packing and forwarding that customers pay")},
    {kSaleFreight,      9033, How::Account, "X90007",     kBills,  english("Sales: freight"),             english("Account of the freight that customers pay")},
    {kSaleOther,        9034, How::Account, "X90007",     kBills,  english("Sales: other charges"),       english("Account of what else customers pay before tax")},
    {kPurchaseDiscount, 9035, How::Account, "X90001",     kBills,  english("Purchases: discount"),        english("Account of a supplier's discount on a whole bill; that of the goods lowers their cost")},
    {kPurchasePacking,  9036, How::Account, "X90001",     kBills,  english("Purchases: packing"),         english("Account of packing and forwarding that suppliers charge")},
    {kPurchaseFreight,  9037, How::Account, "X90001",     kBills,  english("Purchases: freight"),         english("Account of the freight that suppliers charge")},
    {kPurchaseOther,    9038, How::Account, "X90001",     kBills,  english("Purchases: other charges"),   english("Account of what else suppliers charge before tax")},
};
// clang-format on

const Setting& settingBy(std::string_view key) {
  const auto* const found = std::ranges::find(kSettings, key, &Setting::key);
  if (found == std::end(kSettings)) throw std::logic_error("no setting " + std::string(key));
  return *found;
}

bool isText(const Setting& setting) { return setting.kind == How::Folder || setting.kind == How::Account; }

std::string columnOf(const Setting& setting) { return isText(setting) ? "VOUCH_NM" : "VOUCH_QTY"; }

}  // namespace

std::span<const Setting> settings() { return kSettings; }

std::string settingOf(Database& db, const Setting& setting) {
  std::string value;
  db.passOver(kOlderBooks, [&] {
    value = trim(db.text("SELECT " + columnOf(setting) + " FROM SPSFILE WHERE VOUCH_NO = ?", setting.row));
  });
  if (value.empty() || value == ".") return std::string(setting.standard);
  return isText(setting) ? value : numText(Val(value));
}

std::string settingOf(Database& db, std::string_view key) { return settingOf(db, settingBy(key)); }

int settingNumber(Database& db, std::string_view key) { return toInt(Val(settingOf(db, key))); }

void storeSetting(Database& db, const Setting& setting, const std::string& value) {
  const Value stored = isText(setting) ? Value(value) : Value(Val(value));
  whole(db, [&] {
    if (db.exec("UPDATE SPSFILE SET " + columnOf(setting) + " = ? WHERE VOUCH_NO = ?", stored, setting.row) >
        0)
      return;
    db.exec(
        "INSERT INTO SPSFILE (VOUCH_NO, VOUCH_CD, VOUCH_QTY, VOUCH_AMT, VOUCH_FLAG) VALUES (?, ?, 0, 0, '0')",
        setting.row, setting.key);
    db.exec("UPDATE SPSFILE SET " + columnOf(setting) + " = ? WHERE VOUCH_NO = ?", stored, setting.row);
  });
}

void storeSetting(Database& db, std::string_view key, int value) {
  storeSetting(db, settingBy(key), std::to_string(value));
}

void storeSetting(Database& db, std::string_view key, const std::string& value) {
  storeSetting(db, settingBy(key), value);
}

void takeSettings(Database& db, Database& earlier) {
  for (const Setting& setting : kSettings) {
    const std::string value = settingOf(earlier, setting);
    if (setting.key != kExitBackup && value != setting.standard) storeSetting(db, setting, value);
  }
}

bool askUnlessSet(Host& host, std::string_view key, const Question& question) {
  const int answer = settingNumber(data(), key);
  return answer == 0 ? host.ask(question) : answer == 1;
}
