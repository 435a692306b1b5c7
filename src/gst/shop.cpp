#include "gst/shop.h"

#include "base/number.h"
#include "base/states.h"
#include "base/text.h"
#include "frame/settings.h"
#include "masters/gstin.h"
#include "store/dictionary.h"

namespace {

// As the master says it, else as the number tells.
PartyKind kindOf(const TaxParty& party, const std::string& told) {
  const std::string word = upper(told);
  if (word.starts_with("SEZ")) return PartyKind::Sez;
  if (word.starts_with("COMPOS")) return PartyKind::Composition;
  if (word.starts_with("OVERSEAS") || word.starts_with("EXPORT") || party.state == kAbroad)
    return PartyKind::Overseas;
  switch (gstinKind(party.gstin)) {
    case GstinKind::Uin:
      return PartyKind::Uin;
    case GstinKind::NonResident:
      return PartyKind::Overseas;
    default:
      return party.registered() ? PartyKind::Regular : PartyKind::Unregistered;
  }
}

int stateOf(double stored, const std::string& gstin) {
  if (stored > 0 && stored < 100) return toInt(stored);
  return gstin.size() > 2 ? toInt(Val(gstin.substr(0, 2))) : 0;
}

TaxParty partyOf(const Rows& row) {
  TaxParty party{.code = row.text(0), .name = row.text(1), .gstin = upper(filled(row.text(2)))};
  if (length(party.gstin) == 1) party.gstin.clear();
  party.state = stateOf(row.number(3), party.gstin);
  party.kind = kindOf(party, filled(row.text(4)));
  return party;
}

}  // namespace

std::string filled(const std::string& text) {
  std::string bare = trim(text);
  return bare == "." ? "" : bare;
}

const TaxParty& TaxShop::party(const std::string& code) const {
  static const TaxParty nobody;
  const auto found = parties.find(upper(code));
  return found == parties.end() ? nobody : found->second;
}

const TaxItem& TaxShop::item(const std::string& code) const {
  static const TaxItem nothing;
  const auto found = items.find(upper(code));
  return found == items.end() ? nothing : found->second;
}

std::string TaxShop::unitCode(const std::string& unit, const TaxItem& item, Date on) const {
  if (item.service()) return "NA";
  std::string code = tables.text(kUnitCode, unit, on);
  if (code.empty()) code = tables.text(kUnitCode, item.unit, on);
  return code.empty() ? "OTH" : code;
}

std::shared_ptr<const TaxShop> readTaxShop(Database& db, GstTables tables) {
  auto shop = std::make_shared<TaxShop>();
  shop->tables = std::move(tables);
  if (CheckTable(db, "COMP_DET"))
    if (const auto company = db.first("SELECT GSTINNO, STATECD FROM COMP_DET")) {
      shop->gstin = upper(filled(company->text(0)));
      shop->state = stateOf(Val(company->text(1)), shop->gstin);
    }
  shop->composition = settingNumber(db, kComposition) == 1;
  for (auto rows = db.query("SELECT ACC_CD, ACC_NAME, GSTINNO, STATECD, GSTREGTYP FROM ACCOUNT");
       rows.next();) {
    TaxParty party = partyOf(rows);
    shop->parties.emplace(upper(party.code), std::move(party));
  }
  for (auto rows = db.query("SELECT ITEM_CD, ITEM_NAME, HSNCODE, UOM FROM ITEM"); rows.next();)
    shop->items.emplace(upper(rows.text(0)), TaxItem{.code = rows.text(0),
                                                     .name = rows.text(1),
                                                     .hsn = filled(rows.text(2)),
                                                     .unit = filled(rows.text(3))});
  return shop;
}
