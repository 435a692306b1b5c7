#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "vouchers/saving.h"

// Storing, loading and deleting an offer. Kinds share the table and are told apart by ENTRY_TYP,
// which takes the entry type; the number alone is the key. Neither ledger nor stock follows an offer.

// One transaction. The stored offer that it takes the place of is looked for among quotations
// alone, so an offer of another kind is not replaced: saving it again fails on its number and
// changes nothing. False when something else stands under the number than is expected, of whatever kind.
bool saveQuotation(Database& db, const VoucherKind& kind, const Fields& offer, const SaveStamp& stamp,
                   const Saving& how);

bool hasQuotations(Database& db, const VoucherKind& kind);
std::optional<Row> findQuotation(Database& db, const VoucherKind& kind, double number);
// Puts the stored lines into the emptied work table.
void loadQuotationLines(Database& db, const VoucherKind& kind, double number);

// The reference after that of the offer with the highest number. Only the last four characters
// of a stored one count, so a prefix is not carried on and 9999 is followed by 10000 and 0001.
std::string nextReference(Database& db, const VoucherKind& kind);
std::string referenceAfter(const std::string& stored);
// Another offer of the kind has the reference.
bool isDuplicateReference(Database& db, const VoucherKind& kind, const std::string& reference, double number);

// Fills what older rows lack: category of a line, kind, party of the bill.
void repairQuotations(Database& db);
