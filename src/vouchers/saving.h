#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"
#include "store/row_writer.h"

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

enum class Saving {
  Fresh,  // refused when the number has been stored meanwhile
  Again,  // takes the place of the stored bill
};

// False when a fresh bill's number is taken; nothing has changed then. Without a date of the lorry
// receipt (GR_DATE) it has the bill's, without one of the party (PRV_BDT) the day of the save.
bool saveBill(Database& db, const VoucherKind& kind, const Fields& bill, const SaveStamp& stamp, Saving how);

// The party of a stored bill or challan, empty when there is none.
std::string storedParty(Database& db, const VoucherKind& kind, double number);

// Removes header and lines of a bill, challan or offer; the ledger keeps its rows until it is built again.
void deleteVoucher(Database& db, const VoucherKind& kind, double number);

// Some bill of the book can be shown at all.
bool hasBills(Database& db, const VoucherKind& kind);
// Header of a bill that was saved; none for a row that other means have put there.
std::optional<Row> findBill(Database& db, const VoucherKind& kind, double number);
// Puts the stored lines into the emptied work table, with the items' names of today.
void loadLines(Database& db, const VoucherKind& kind, double number);
