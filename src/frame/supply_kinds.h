#pragma once

#include <span>
#include <string>

// What a bill is to the law on GST beside an ordinary supply. SUPPLY.KIND keeps the number.
enum class SupplyKind {
  Ordinary,
  ExportTaxed,  // on payment of integrated tax
  Export,       // under a letter of undertaking, without payment of tax
  SezTaxed,     // to a unit or developer of a special economic zone
  Sez,
  Deemed,
  ImportGoods,  // their tax is owed to customs
  ImportServices,
};

// Those that a bill of ours may be, or one of a supplier, by the number that is typed from 0.
std::span<const SupplyKind> supplyKinds(bool bought);
// Of a stored number; ordinary where it is none.
SupplyKind supplyKind(double stored);
// Its words; empty for an ordinary supply.
std::string supplyName(SupplyKind kind);
// The same where room is narrow.
std::string supplyMark(SupplyKind kind);

bool isExport(SupplyKind kind);
bool isSez(SupplyKind kind);
bool isImport(SupplyKind kind);
// Integrated tax is due also within one state.
bool bearsIntegrated(SupplyKind kind);
// The rates of tax stand and no tax is charged.
bool isZeroRated(SupplyKind kind);
