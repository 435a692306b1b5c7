#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/host.h"
#include "store/database.h"

// What a shop may set, one row of a table each. A setting is kept in a row of SPSFILE of the
// company-year; one that is missing, blank or "." counts as its standard.

struct Setting {
  enum class Kind { YesNo, Choice, Count, Folder, Account };

  std::string_view key;  // VOUCH_CD of its row
  int row;               // VOUCH_NO; from 9001 on those that only this program knows
  Kind kind;
  std::string_view standard;
  const char *section, *name, *sentence;
  std::span<const char* const> choices = {};  // words of the values 0, 1, 2 ...
  int most = 0;                               // of a count, which begins at 1
};

// In the order in which they are shown, those of a section together.
std::span<const Setting> settings();

inline constexpr std::string_view kExitBackup = "EXITBACKUP", kBackupsKept = "KEPT", kBackupFolder = "BACKUP",
                                  kSecondFolder = "SECOND", kLedgerNumbers = "LDGRVNO",
                                  kLedgerNarration = "LDGRNARR", kPriceListParts = "PRICELST",
                                  kOutstandingBills = "OUTSTDTL", kOneUnit = "ONEUNIT",
                                  kChallansPost = "CHLNPOST", kDiscountAllowed = "DISCALW",
                                  kDiscountReceived = "DISCREC", kWrittenOff = "WRITEOFF",
                                  kWrittenBack = "WRITEBCK", kTdsReceivable = "TDSREC",
                                  kTdsPayable = "TDSPAY", kComposition = "COMPOSIT",
                                  kCustomsAccount = "CUSTOMS", kSaleDiscount = "SALEDISC",
                                  kSalePacking = "SALEPACK", kSaleFreight = "SALEFRT", kSaleOther = "SALEOTH",
                                  kPurchaseDiscount = "PURDISC", kPurchasePacking = "PURPACK",
                                  kPurchaseFreight = "PURFRT", kPurchaseOther = "PUROTH";

// As text, a choice as its number.
std::string settingOf(Database& db, const Setting& setting);
std::string settingOf(Database& db, std::string_view key);
int settingNumber(Database& db, std::string_view key);
void storeSetting(Database& db, const Setting& setting, const std::string& value);
void storeSetting(Database& db, std::string_view key, int value);
void storeSetting(Database& db, std::string_view key, const std::string& value);

// Those of the company's earlier books into new ones, which make backups at their exits in any case.
void takeSettings(Database& db, Database& earlier);

// The answer to a question of Yes and No that a setting may have given once for all: 0 asks, 1 is
// Yes, 2 is No.
bool askUnlessSet(Host& host, std::string_view key, const Question& question);
