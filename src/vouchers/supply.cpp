#include "vouchers/supply.h"

#include <array>

#include "base/states.h"
#include "base/text.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/row_writer.h"

namespace {

constexpr const char* kTable = "SUPPLY";

// Of the bills of which a note or bill of the kind is one.
const std::string& billBook(const VoucherKind& kind) { return kind.isNote() ? kind.adjusts.code : kind.code; }

// How the latest bill was marked, of the party where one is given, among two kinds.
SupplyKind lastOf(Database& db, const VoucherKind& kind, const std::string& party, SupplyKind one,
                  SupplyKind other, SupplyKind otherwise) {
  if (!CheckTable(db, kTable)) return otherwise;
  // The marked bills are few, and so are read first.
  std::string sql =
      "SELECT S.KIND FROM SUPPLY AS S CROSS JOIN SALE AS H ON H.VOUCH_NO = S.VOUCH_NO AND H.BOOK_CD ="
      " S.BOOK_CD WHERE S.BOOK_CD = ? AND S.KIND IN (?, ?)";
  std::vector<Value> values = {billBook(kind), static_cast<int>(one), static_cast<int>(other)};
  if (!party.empty()) {
    sql += " AND H.PARTY_CD = ?";
    values.emplace_back(party);
  }
  std::optional<Row> row;
  db.passOver(kOlderBooks, [&] { row = db.first(sql + " ORDER BY S.VOUCH_NO DESC LIMIT 1", values); });
  return row ? supplyKind(row->number(0)) : otherwise;
}

}  // namespace

bool isBought(const VoucherKind& kind) { return kind.ledger.cgst == purchaseKind().ledger.cgst; }

Supply readSupply(Database& db, const VoucherKind& kind, double number) {
  if (!CheckTable(db, kTable)) return {};
  const auto row = db.first("SELECT * FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
  if (!row) return {};
  Supply supply{row->number("REVERSE") == 1, row->number("INELIGIBLE") == 1};
  if (!row->has("KIND")) return supply;
  supply.kind = supplyKind(row->number("KIND"));
  supply.place = row->number("POS");
  supply.shippingBill = row->text("SHIP_NO");
  supply.shippingDate = row->date("SHIP_DT");
  supply.port = row->text("PORT");
  supply.country = row->text("COUNTRY");
  supply.customs = row->text("CUSTOMS");
  return supply;
}

void ensureSupply(Database& db) { ensureTable(db, kTable); }

void storeSupply(Database& db, const VoucherKind& kind, double number, const Supply& supply) {
  if (!supply.any() && !CheckTable(db, kTable)) return;
  db.later("DELETE FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
  if (supply.any())
    insertLater(db, kTable,
                {
                    {"BOOK_CD",    kind.code                    },
                    {"VOUCH_NO",   number                       },
                    {"REVERSE",    supply.reverse ? 1 : 0       },
                    {"INELIGIBLE", supply.ineligible ? 1 : 0    },
                    {"KIND",       static_cast<int>(supply.kind)},
                    {"POS",        supply.place                 },
                    {"SHIP_NO",    supply.shippingBill          },
                    {"SHIP_DT",    supply.shippingDate          },
                    {"PORT",       supply.port                  },
                    {"COUNTRY",    supply.country               },
                    {"CUSTOMS",    supply.customs               },
    });
}

std::vector<Supply> marksOf(Database& db, const VoucherKind& kind) {
  std::vector<Supply> marks;
  if (CheckTable(db, kTable))
    for (const Row& row :
         db.all("SELECT DISTINCT REVERSE, INELIGIBLE, COALESCE(CUSTOMS, '') <> '' FROM SUPPLY"
                " WHERE BOOK_CD = ?",
                kind.code))
      marks.push_back({.reverse = row.number(0) == 1,
                       .ineligible = row.number(1) == 1,
                       .customs = row.number(2) == 1 ? kTheirCustoms : ""});
  return marks;
}

SupplyKind proposedSupply(Database& db, const VoucherKind& kind, const std::string& party, double state,
                          const std::string& registration) {
  using enum SupplyKind;
  if (isBought(kind))
    return state == kAbroad ? lastOf(db, kind, party, ImportGoods, ImportServices, ImportGoods) : Ordinary;
  if (state == kAbroad) return lastOf(db, kind, "", ExportTaxed, Export, Export);
  const bool isRegisteredSo = upper(registration).find("SEZ") != std::string::npos;
  const SupplyKind own = lastOf(db, kind, party, SezTaxed, Sez, Ordinary);
  return own == Ordinary && isRegisteredSo ? lastOf(db, kind, "", SezTaxed, Sez, Sez) : own;
}

double taxedState(const Supply& supply, double partyState) {
  if (bearsIntegrated(supply.kind)) return kAbroad;
  return supply.place != 0 ? supply.place : partyState;
}

// What we owe under reverse charge is a tax of ours like that on our sales and stands in its accounts.
std::vector<TaxPosting> taxPostings(const VoucherKind& kind, const Supply& supply) {
  const auto accounts = [](const VoucherKind::Ledger& l) { return std::array{l.cgst, l.sgst, l.igst}; };
  const auto input = accounts(kind.ledger), owed = accounts(saleKind().ledger);
  std::vector<TaxPosting> rows;
  if (supply.reverse && !isBought(kind)) return rows;
  for (size_t i = 0; i < input.size(); ++i)
    rows.push_back(
        {i, kind.ledger.otherSide(), supply.ineligible && isBought(kind) ? kind.ledger.goods : input[i]});
  for (size_t i = 0; i < owed.size(); ++i) {
    if (supply.reverse) rows.push_back({i, kind.ledger.partySide, owed[i]});
    if (!supply.customs.empty()) rows.push_back({i, kind.ledger.partySide, supply.customs});
  }
  return rows;
}
