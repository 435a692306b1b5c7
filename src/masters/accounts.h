#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "masters/guards.h"
#include "store/database.h"
#include "store/row_writer.h"

// Rows of ACCOUNT and what is asked of them. Balances: debit is positive, credit negative.

// The group that a new account stands in unless told otherwise.
inline constexpr const char* kDebtorGroup = "SUNDRY DEBITORS";

std::optional<Row> findAccount(Database& db, std::string_view code);
bool accountExists(Database& db, std::string_view code);
bool accountNameInUse(Database& db, std::string_view name);
// The code as number text, empty when there is no group of that name.
std::string groupCode(Database& db, std::string_view name);
// None when there is no group of that code.
std::optional<std::string> groupName(Database& db, double code);

// Whether accounts of the group are billed: debtors, creditors and the groups that stand under these.
bool isPartyGroup(Database& db, double code);

// Fields as typed; what the screen has no field for takes its fixed value. The opening balance
// is written as closing balance too: the true one comes at the next refresh of balances.
void addAccount(Database& db, Fields fields);
// False when there is no such account. Its balance is rebuilt.
bool changeAccount(Database& db, std::string_view code, Fields fields);

// An account goes only when nothing names it, nothing is open on it and the system can do without it.
std::optional<Refusal> accountRefusal(Database& db, std::string_view code);
// With the rates that were agreed with it. Inside a transaction.
void deleteAccount(Database& db, std::string_view code);
