#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "vouchers/saving.h"

// Numbering, storing, loading and deleting a delivery challan. A save is one transaction: header,
// lines out of the work table and the ledger's pair of rows are written afresh as a whole or not at
// all. A challan stands in its party's ledger like a bill, as long as no bill stands for it
// (frame/made_from).

// False when something else stands under the number than is expected; nothing has changed then. The party is
// not looked at. The ledger takes the challan's number as it was typed, the head its figure.
bool saveChallan(Database& db, const VoucherKind& kind, const Fields& challan, const SaveStamp& stamp,
                 const Saving& how);

std::optional<Row> findChallan(Database& db, const VoucherKind& kind, double number);
// Puts the stored lines into the emptied work table, with the items' names of today.
void loadChallanLines(Database& db, const VoucherKind& kind, double number);
// Brings the ledger's rows of a stored challan in line with what stands for it. False where they were.
bool postChallan(Database& db, const VoucherKind& kind, double number);

// Each type is a series of its own; it goes on from the challan with the highest voucher number,
// whatever its challan number. There is no padding.
double nextChallanNumber(Database& db, const VoucherKind& kind, const std::string& type);
// A challan of the type has the number, as it is typed or as it would be stored; the voucher that
// is being changed does not count.
bool isDuplicateChallan(Database& db, const VoucherKind& kind, const std::string& type,
                        const std::string& number, std::optional<double> changing);
