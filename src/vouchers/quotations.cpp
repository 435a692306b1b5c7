#include "vouchers/quotations.h"

#include "base/number.h"
#include "base/text.h"
#include "store/row_writer.h"
#include "vouchers/items.h"
#include "vouchers/numbering.h"

namespace {

constexpr int kReferenceLength = 4;
constexpr const char* kNil[] = {
    "DISC_PERC", "DISC_AMT", "CHRG_AMT", "CHRG_PERC", "TAX_PERC", "TAX_AMT",
    "ATAX_PERC", "ATAX_AMT", "TCSTRT",   "TCSTAMT",   "PI_CH_NO",
};

// Columns of a line that the work table has with the same type. The rest are numbers there and
// number texts where they are stored.
// clang-format off
constexpr const char* kLineColumns =
    "VOUCH_DT, VOUCH_NO, SRNO, ITEM_CD, DEPT_CD, ITEM_NAME, ITEM_SNAME, SIZE_CD, T_NO, DISC, ITEM_DESC,"
    " DESC1, DTL1, DTL2, MOBNOCO, DATANM, DATASENT, DISC2, ENTRY_TYP, CGSTRT, SGSTRT, IGSTRT,"
    " CGSTAMT, SGSTAMT, IGSTAMT, TCSRT, TCSAMT, ASSIVAL";
// clang-format on

Fields headRow(const VoucherKind& kind, const Fields& offer, const SaveStamp& stamp) {
  Fields row = trimmedTexts(offer);
  setValue(row, "NET_AMT", Round(valueOf(row, "NET_AMT").number(), 0));
  row.push_back({"BL_PARTY_CD", valueOf(row, "PARTY_CD")});
  row.push_back({"ENTRY_TYP", kind.code});
  addStamp(row, stamp);
  for (const char* column : kNil) row.push_back({column, 0});
  return row;
}

}  // namespace

bool saveQuotation(Database& db, const VoucherKind& kind, const Fields& offer, const SaveStamp& stamp,
                   const Saving& how) {
  const double number = valueOf(offer, "VOUCH_NO").number();
  return whole(db, [&] {
    if (!how.finds(db, kind, number)) return false;
    // The number alone is the key.
    if (!isStored(db, kind, number) && db.first("SELECT 1 FROM QUOT WHERE VOUCH_NO = ?", number))
      return false;
    deleteVoucher(db, quotationKind(), number);
    insertLater(db, "QUOT", headRow(kind, offer, stamp));
    // Lines typed before number or date were changed belong to the offer all the same.
    db.later("UPDATE T_QUOTITM SET VOUCH_DT = ?, VOUCH_NO = ?", valueOf(offer, "VOUCH_DT"), number);
    const std::string columns = kLineColumns;
    db.later("INSERT INTO QUOTITM (" + columns + ", QUANTITY, RATE, AMOUNT, TNO) SELECT " + columns +
                 ", NUMTEXT(QUANTITY), NUMTEXT(RATE), NUMTEXT(AMOUNT), NUMTEXT(TNO)"
                 " FROM T_QUOTITM WHERE VOUCH_NO = ? AND (QUANTITY <> 0 OR ITEM_CD = ?)"
                 " ORDER BY rowid",
             number, kMiscItem);
    return true;
  });
}

bool hasQuotations(Database& db, const VoucherKind& kind) {
  return db.first("SELECT VOUCH_NO FROM QUOT WHERE ENTRY_TYP = ? LIMIT 1", kind.code).has_value();
}

std::optional<Row> findQuotation(Database& db, const VoucherKind& kind, double number) {
  return db.first("SELECT * FROM QUOT WHERE VOUCH_NO = ? AND ENTRY_TYP = ?", number, kind.code);
}

void loadQuotationLines(Database& db, const VoucherKind& kind, double number) {
  const std::string columns = kLineColumns;
  db.exec("DELETE FROM T_QUOTITM");
  const std::string longer = " WHERE VOUCH_NO = ? AND LEN(ITEM_CD) > 20";
  if (db.first("SELECT 1 FROM QUOTITM" + longer, number))
    db.exec("UPDATE QUOTITM SET ITEM_CD = SUBSTR(ITEM_CD, 1, 20)" + longer, number);
  db.exec("INSERT INTO T_QUOTITM (" + columns + ", QUANTITY, RATE, AMOUNT, TNO) SELECT " + columns +
              ", VAL(QUANTITY), VAL(RATE), VAL(AMOUNT), VAL(TNO)"
              " FROM QUOTITM WHERE VOUCH_NO = ? AND ENTRY_TYP = ? ORDER BY SRNO, rowid",
          number, kind.code);
}

std::string referenceAfter(const std::string& stored) {
  return padLeft(numText(Val(right(stored, kReferenceLength)) + 1), kReferenceLength, '0');
}

std::string nextReference(Database& db, const VoucherKind& kind) {
  if (const auto series = seriesOf(db, kind.code, "")) return nextInSeries(db, kind, *series);
  return referenceAfter(lastPaperNumber(db, kind).value_or(""));
}

bool isDuplicateReference(Database& db, const VoucherKind& kind, const std::string& reference,
                          double number) {
  return db
      .first("SELECT 1 FROM QUOT WHERE REF_NO = ? AND ENTRY_TYP = ? AND +VOUCH_NO <> ? LIMIT 1", reference,
             kind.code, number)
      .has_value();
}

namespace {

// What an older book may lack, and what brings it right, looked for first: an opening that writes waits
// for whoever else writes.
void repair(Database& db, const std::string& needed, const std::string& statement) {
  if (db.first(needed)) db.exec(statement);
}

}  // namespace

void repairQuotations(Database& db) {
  repair(db,
         "SELECT 1 FROM QUOTITM JOIN ITEM ON QUOTITM.ITEM_CD = ITEM.ITEM_CD"
         " WHERE QUOTITM.DEPT_CD IS NULL AND ITEM.DEPT_CD IS NOT NULL",
         "UPDATE QUOTITM SET DEPT_CD = (SELECT ITEM.DEPT_CD FROM ITEM WHERE ITEM.ITEM_CD = QUOTITM.ITEM_CD)"
         " WHERE DEPT_CD IS NULL AND ITEM_CD IN (SELECT ITEM_CD FROM ITEM)");
  const std::string without = " WHERE ENTRY_TYP IS NULL OR ENTRY_TYP = ''";
  for (const std::string table : {"QUOT", "QUOTITM"})
    repair(db, "SELECT 1 FROM " + table + without,
           "UPDATE " + table + " SET ENTRY_TYP = '" + quotationKind().code + "'" + without);
  const std::string billed = " WHERE (BL_PARTY_CD IS NULL OR BL_PARTY_CD = '') AND PARTY_CD <> ''";
  repair(db, "SELECT 1 FROM QUOT" + billed, "UPDATE QUOT SET BL_PARTY_CD = PARTY_CD" + billed);
}
