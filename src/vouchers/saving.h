#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "store/row_writer.h"
#include "vouchers/as_stored.h"
#include "vouchers/supply.h"

// Storing, loading and deleting a bill. A save is one transaction: the header row, its lines
// out of the work table and its ledger rows are written afresh as a whole or not at all. Every
// header column that the screen has no field for takes its constant again, so a modify resets
// what it does not show. Balances and stock do not follow a fresh bill; a bill that is stored again has
// the balances of its party and of the one it leaves behind rebuilt.

// The head of a voucher comes as its screen holds it: each column with its value, texts as typed. They
// are trimmed where the head keeps them; the ledger takes them as they are.
//
// What a row says of a column; Null where it says nothing.
Value valueOf(const Fields& row, std::string_view column);
void setValue(Fields& row, std::string_view column, Value value);
Fields trimmedTexts(Fields row);

// By whom and when: every save leaves this mark.
struct SaveStamp {
  Moment now;
  std::string user, mobile, dataName;
};
void addStamp(Fields& row, const SaveStamp& stamp);

// False when something else stands under the number than is expected; nothing has changed then. Without a
// date of the lorry receipt (GR_DATE) it has the bill's, without one of the party (PRV_BDT) the day of the
// save.
bool saveBill(Database& db, const VoucherKind& kind, const Fields& bill, const SaveStamp& stamp,
              const Saving& how, const Supply& supply = {});

// The party of a stored bill or challan.
std::optional<std::string> storedParty(Database& db, const VoucherKind& kind, double number);

// Removes header and lines of a bill, challan or offer; the ledger keeps its rows until it is built again.
// False, and nothing is removed, when the voucher is another than `as` expects.
bool deleteVoucher(Database& db, const VoucherKind& kind, double number, const Saving& as = Saving::Again);
// The same for good, and not in order to store it again: posting is due from then on (frame/posting_due).
// Raises std::runtime_error where notes stand against it or another voucher was made of it.
bool deleteForGood(Database& db, const VoucherKind& kind, double number, const Saving& as);
// Rows of the voucher stand in the ledger.
bool isPosted(Database& db, const VoucherKind& kind, double number);

// Some bill of the book can be shown at all.
bool hasBills(Database& db, const VoucherKind& kind);
// Header of a bill that was saved; none for a row that other means have put there.
std::optional<Row> findBill(Database& db, const VoucherKind& kind, double number);
// Puts the stored lines into the emptied work table, with the items' names of today.
void loadLines(Database& db, const VoucherKind& kind, double number);
