#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/voucher_opening.h"
#include "platform/host.h"
#include "store/database.h"

// What a voucher settles stands in a table of our own, SETTLES, a row each:
//
//   WHAT 'B'            AMOUNT of the bill BILL_BOOK BILL_VNO of PARTY_CD; book "OP" is its opening balance
//   WHAT 'D', 'W', 'T'  discount, write-off or TDS of the account ACC_CD, beside the money
//
// A bill is whatever stands on the other side of the party's account, so that a payment can give a receipt
// back. Both of a pair are used up by it: a voucher settles, and is settled, for no more than it stands in
// the ledger with.

inline constexpr const char *kSettlements = "SETTLES", *kOpeningBook = "OP";

// How much of a voucher is used, and with how much it stands in the ledger: expressions of a statement
// over its book, number and party.
std::string usedOfVoucher(const std::string& book, const std::string& number, const std::string& party);
std::string standingOfVoucher(const std::string& book, const std::string& number, const std::string& party);

// By what a voucher is settled, in a sentence; empty where nothing settles it.
std::string settledWords(Database& db, const VoucherKey& voucher);
// Asked before it is stored with a smaller amount than is settled, or under another party.
std::optional<Question> settledQuestion(Database& db, const VoucherKey& voucher, const std::string& party,
                                        double amount);
// Takes away what is settled of it, so that the money is on account again; of other parties than `keeps`
// alone where these are given. To be called inside the transaction that deletes or stores the voucher.
void freeSettled(Database& db, const VoucherKey& voucher, const std::vector<std::string>& keeps = {});
