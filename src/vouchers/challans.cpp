#include "vouchers/challans.h"

#include "base/number.h"
#include "base/text.h"
#include "frame/made_from.h"
#include "store/balances.h"
#include "store/row_writer.h"
#include "vouchers/items.h"
#include "vouchers/ledger_rows.h"
#include "vouchers/numbering.h"

namespace {

// Columns that a line has in CHLNITM and in the work table alike.
// clang-format off
constexpr const char* kLineColumns =
    "SR_NO, VOUCH_NO, VOUCH_DT, BOOK_CD, ITEM_CD, DEPT_CD, SIZE_CD, QUANTITY, RATE, NET_AMOUNT,"
    " ITEM_DESC, DESC1, NOS, AMOUNT, BOXNO, BOXWT, TCNO, SALE_DISC, ORDER_NO, LOT_NO,"
    " MOBNOCO, DATANM, DATASENT";
// clang-format on

Fields headRow(const VoucherKind& kind, const Fields& challan, const SaveStamp& stamp) {
  Fields row = trimmedTexts(challan);
  setValue(row, "CHLN_NO", valueOf(row, "CHLN_NO").number());
  if (valueOf(row, "DESTI").text().empty()) setValue(row, "DESTI", ".");
  // clang-format off
  for (Field& f : Fields{
      {"VOUCH_TIME", Clock{stamp.now.hour, stamp.now.minute}},
      {"BOOK_CD",    kind.code},
      {"GR_DATE",    valueOf(challan, "VOUCH_DT")},
      {"SMAN_CD",    "S001"},
  }) row.push_back(std::move(f));
  // clang-format on
  addStamp(row, stamp);
  for (const char* column : {"VEHI_NO", "NARRATION1", "FREIGHT"}) row.push_back({column, "."});
  for (const char* column : {"TAX_CD1", "TAX_AMT1", "TAX_CD2", "TAX_AMT2", "GWDN"})
    row.push_back({column, 0});
  return row;
}

std::vector<LedgerRow> ledgerRows(const VoucherKind& kind, const Fields& challan) {
  const std::string party = trim(valueOf(challan, "PARTY_CD").text());
  const double amount = valueOf(challan, "NET_AMT").number();
  const std::string number = valueOf(challan, "CHLN_NO").text();
  const std::string narration = valueOf(challan, "NARRATION").text();
  return {
      {kind.ledger.partySide,   party,             kind.ledger.goods, amount, number, narration},
      {kind.ledger.otherSide(), kind.ledger.goods, party,             amount, number, narration},
  };
}

// False where a bill stands for it.
bool posts(Database& db, const VoucherKind& kind, double number) {
  return db
      .first("SELECT 1 FROM CHLN AS V WHERE V.VOUCH_NO = ? AND V.BOOK_CD = ?" + standsAlone(db, "V"), number,
             kind.code)
      .has_value();
}

}  // namespace

bool saveChallan(Database& db, const VoucherKind& kind, const Fields& challan, const SaveStamp& stamp,
                 const Saving& how) {
  const double number = valueOf(challan, "VOUCH_NO").number();
  const Date date = valueOf(challan, "VOUCH_DT").date().value();
  return whole(db, [&] {
    if (!how.finds(db, kind, number)) return false;
    const auto partyBefore = how.isFresh() ? std::nullopt : storedParty(db, kind, number);
    deleteVoucher(db, kind, number);
    insertLater(db, "CHLN", headRow(kind, challan, stamp));
    db.later("UPDATE T_CHLNITM SET VOUCH_DT = ?, VOUCH_NO = ?", date, number);
    // A line of no quantity stays behind, though its amount is in the totals.
    const std::string columns = kLineColumns;
    db.later("INSERT INTO CHLNITM (" + columns + ") SELECT " + columns +
                 " FROM T_CHLNITM WHERE VOUCH_NO = ? AND BOOK_CD = ? AND (QUANTITY <> 0 OR ITEM_CD = ?)"
                 " ORDER BY SR_NO, rowid",
             number, kind.code, kMiscItem);
    postVoucher(db, {number, date, kind.code},
                posts(db, kind, number) ? ledgerRows(kind, challan) : std::vector<LedgerRow>());
    if (partyBefore) RebuildBalances(db, {*partyBefore, trim(valueOf(challan, "PARTY_CD").text())});
    return true;
  });
}

bool postChallan(Database& db, const VoucherKind& kind, double number) {
  const auto stored = findChallan(db, kind, number);
  if (!stored || !stored->date("VOUCH_DT")) return false;
  const bool stands = posts(db, kind, number);
  if (stands == isPosted(db, kind, number)) return false;
  Fields challan;
  for (const char* column : {"PARTY_CD", "NET_AMT", "CHLN_NO", "NARRATION"})
    challan.push_back({column, stored->value(column)});
  postVoucher(db, {number, *stored->date("VOUCH_DT"), kind.code},
              stands ? ledgerRows(kind, challan) : std::vector<LedgerRow>());
  return true;
}

std::optional<Row> findChallan(Database& db, const VoucherKind& kind, double number) {
  return db.first("SELECT * FROM CHLN WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
}

void loadChallanLines(Database& db, const VoucherKind& kind, double number) {
  const std::string columns = kLineColumns;
  db.exec("DELETE FROM T_CHLNITM");
  db.exec("INSERT INTO T_CHLNITM (" + columns + ", ITEM_NAME) SELECT " + columns +
              ", (SELECT ITEM_NAME FROM ITEM WHERE ITEM.ITEM_CD = CHLNITM.ITEM_CD)"
              " FROM CHLNITM WHERE BOOK_CD = ? AND VOUCH_NO = ? ORDER BY SR_NO, rowid",
          kind.code, number);
}

double nextChallanNumber(Database& db, const VoucherKind& kind, const std::string& type) {
  const auto last = lastPaperNumber(db, kind, type);
  return last ? Val(*last) + 1 : 1;
}

bool isDuplicateChallan(Database& db, const VoucherKind& kind, const std::string& type,
                        const std::string& number, std::optional<double> changing) {
  // The plus keeps the reader from walking a whole series: few challans share a number.
  std::vector<Value> values{type, kind.code, number, numText(Val(number))};
  if (changing) values.emplace_back(*changing);
  return db
      .first(std::string("SELECT VOUCH_NO FROM CHLN WHERE CHLN_TYP = ? AND +BOOK_CD = ?"
                         " AND CHLN_NO IN (?, ?) AND ") +
                 (changing ? "(VOUCH_NO IS NULL OR VOUCH_NO <> ?)" : "VOUCH_NO IS NOT NULL") + " LIMIT 1",
             values)
      .has_value();
}
