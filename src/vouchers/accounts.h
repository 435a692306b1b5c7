#pragma once

#include <optional>
#include <string>

#include "store/database.h"

// What a voucher screen wants to know of an account.
struct AccountFacts {
  std::string name;
  std::optional<double> stateCode;  // none when it is not filled in
  double balance = 0;               // the ledger's, since the stored one knows no bill of today
  std::string gstin, registration, phone, address1, address2, area, person;
  std::optional<double> creditDays;
};

// "3" as the code that it is short for ("A00003"); a code that stands, and all else, as it was typed.
std::string fullCode(Database& db, const std::string& typed);

// Nothing when there is no such account.
std::optional<AccountFacts> readAccount(Database& db, const std::string& code);

// The facts of a party as the voucher screens show them, in four lines.
std::string partyLines(const AccountFacts& party);
