#include "vouchers/supply.h"

#include <array>

#include "store/dictionary.h"
#include "store/engine.h"

namespace {

constexpr const char* kTable = "SUPPLY";

}  // namespace

bool isBought(const VoucherKind& kind) { return kind.ledger.cgst == purchaseKind().ledger.cgst; }

Supply readSupply(Database& db, const VoucherKind& kind, double number) {
  if (!CheckTable(db, kTable)) return {};
  const auto row = db.first("SELECT REVERSE, INELIGIBLE FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ?",
                            number, kind.code);
  return row ? Supply{row->number(0) == 1, row->number(1) == 1} : Supply{};
}

void ensureSupply(Database& db) { ensureTable(db, kTable); }

void storeSupply(Database& db, const VoucherKind& kind, double number, const Supply& supply) {
  if (!supply.any() && !CheckTable(db, kTable)) return;
  db.exec("DELETE FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
  if (supply.any())
    db.exec("INSERT INTO SUPPLY (BOOK_CD, VOUCH_NO, REVERSE, INELIGIBLE) VALUES (?, ?, ?, ?)", kind.code,
            number, supply.reverse ? 1 : 0, supply.ineligible ? 1 : 0);
}

std::vector<Supply> marksOf(Database& db, const VoucherKind& kind) {
  std::vector<Supply> marks;
  if (CheckTable(db, kTable))
    for (const Row& row :
         db.all("SELECT DISTINCT REVERSE, INELIGIBLE FROM SUPPLY WHERE BOOK_CD = ?", kind.code))
      marks.push_back({row.number(0) == 1, row.number(1) == 1});
  return marks;
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
  if (supply.reverse)
    for (size_t i = 0; i < owed.size(); ++i) rows.push_back({i, kind.ledger.partySide, owed[i]});
  return rows;
}
