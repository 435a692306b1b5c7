#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "gst/tables.h"
#include "store/database.h"

// Whom a return is for and with whom it deals, read once for all of its vouchers.

enum class PartyKind { Regular, Unregistered, Composition, Sez, Overseas, Uin };

struct TaxParty {
  std::string code, name, gstin;  // the number in capitals; empty where there is none
  int state = 0;                  // 0: not known
  PartyKind kind = PartyKind::Unregistered;
  bool registered() const { return !gstin.empty(); }
};

struct TaxItem {
  std::string code, name, hsn, unit;
  bool service() const { return hsn.starts_with("99"); }
};

struct TaxShop {
  std::string gstin;
  int state = 0;
  bool composition = false;
  GstTables tables;
  std::unordered_map<std::string, TaxParty> parties;  // by code in capitals
  std::unordered_map<std::string, TaxItem> items;

  const TaxParty& party(const std::string& code) const;
  const TaxItem& item(const std::string& code) const;
  // The code for the unit of a line, else for that of its item, else OTH; NA for services.
  std::string unitCode(const std::string& unit, const TaxItem& item, Date on) const;
};

// Raises DatabaseError.
std::shared_ptr<const TaxShop> readTaxShop(Database& db, GstTables tables);

// What a master keeps in place of nothing counts as nothing: "." and blanks.
std::string filled(const std::string& text);
