#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"

// Storing, loading and deleting a bill. A save is one transaction: the header row, its lines
// out of the work table and its ledger rows are written afresh as a whole or not at all. Every
// header column that the screen has no field for takes its constant again, so a modify resets
// what it does not show. Balances and stock do not follow a bill.

// The header as the screen holds it; texts are trimmed where the header keeps them.
struct BillHeader {
  double number = 0;
  Date date{};
  std::string party, shipTo, billType, billNumber, orderNumber;
  double challanNumber = 0;
  std::string narration;
  double transportId = 0;
  std::string transport, destination, lrNumber, parcels;
  double creditDays = 0;
  std::optional<Date> lrDate;       // none: the bill's date
  std::optional<Date> partyDate{};  // that the party gave its bill; none: the day of the save
  double items = 0, quantity = 0, cgst = 0, sgst = 0, igst = 0, roundOff = 0, amount = 0;
};

// By whom and when: every save leaves this mark.
struct SaveStamp {
  Moment now;
  std::string user, mobile, dataName;
};

enum class Saving {
  Fresh,  // refused when the number has been stored meanwhile
  Again,  // takes the place of the stored bill
};

// False when a fresh bill's number is taken; nothing has changed then.
bool saveBill(Database& db, const VoucherKind& kind, const BillHeader& bill, const SaveStamp& stamp,
              Saving how);

// Removes header and lines; the ledger keeps its rows until it is built again.
void deleteBill(Database& db, const VoucherKind& kind, double number);

// Some bill of the book can be shown at all.
bool hasBills(Database& db, const VoucherKind& kind);
// Header of a bill that was saved; none for a row that other means have put there.
std::optional<Row> findBill(Database& db, const VoucherKind& kind, double number);
// Puts the stored lines into the emptied work table, with the items' names of today.
void loadLines(Database& db, const VoucherKind& kind, double number);
