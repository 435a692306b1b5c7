#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/lookup.h"
#include "frame/made_from.h"

// Challans and offers as what a bill or another challan is made from: what they bring along, and how they
// stand beside what was made of them.

struct SourceHead {
  std::string name;  // "Challan DC / 12"
  std::string party, number, orderNumber, transport, lrNumber;
  double discount = 0, charges = 0;  // in one sum, which no line carries
};

struct SourceLine {
  std::string item, name, detail, unit;
  double quantity = 0, rate = 0, discount = 0;
  std::optional<double> taxRate{};  // the item's of today, else what was offered
};

// The open ones of a party, of all where it is empty, and those that are taken already, newest first. The row
// tells its book besides. `number` is that of the stored voucher that is being changed, or 0.
Lookup openSources(Database& db, const VoucherKind& kind, const std::string& party,
                   const std::vector<MadeFrom>& taken, double number);

// None where it has been deleted.
std::optional<SourceHead> readSource(Database& db, const MadeFrom& from);
std::vector<SourceLine> readSourceLines(Database& db, const MadeFrom& from);
// "From Challan DC / 12, Quotation 0003"; empty without any.
std::string fromWords(Database& db, const std::vector<MadeFrom>& from);

// Whether it is made from any, or was when it was stored.
bool touchesSources(Database& db, const VoucherKind& kind, double number, const std::vector<MadeFrom>& from);
// For such a voucher, inside the transaction that stores it: keeps what it is made from, and brings the
// ledger's rows of all challans that are taken or left with it in line. Raises std::runtime_error where one
// has gone, is of another party, or was taken by another voucher.
void keepSources(Database& db, const VoucherKind& kind, double number, const std::string& party,
                 const std::vector<MadeFrom>& from);
// Why a challan or offer is not deleted: another voucher was made of it. Empty when none was.
std::string sourceRefuses(Database& db, const VoucherKind& kind, double number);
