#include "vouchers/receipts.h"

#include <utility>

#include "base/text.h"
#include "store/balances.h"
#include "store/groups.h"
#include "store/row_writer.h"
#include "vouchers/cleared.h"

namespace {

Fields rowOf(const VoucherKind& kind, const Fields& voucher) {
  Fields row = trimmedTexts(voucher);
  for (Field& f : Fields{
           {"REF_NO",     valueOf(voucher, "VOUCH_NO").text()},
           {"BOOK_CD",            kind.code                  },
           {"VOUCH_TYPE",            "."},
           {"CHQ_NO",            "."                      },
           {"NARRATION1",            "."},
           {"NARRATION2",            "."                      },
           {"CHQ_CLG_DT",            valueOf(voucher,"VOUCH_DT")},
           {"RPTPAY_DTL", "A"                      }
  })
    row.push_back(std::move(f));
  return row;
}

void unpost(Database& db, const std::string& bookCode, double number) {
  db.exec("DELETE FROM ALEDGER WHERE BOOK_CD = ? AND VOUCH_NO = ?", bookCode, number);
}

void post(Database& db, const VoucherKind& kind, double number) {
  unpost(db, kind.code, number);
  if (!kind.ledger.formerCode.empty()) unpost(db, kind.ledger.formerCode, number);
  const auto statements =
      postingStatements({.billNumber = "NUMTEXT(VOUCH_NO)",
                         .subDesc = "'0'",
                         .from = "RPTPAY WHERE BOOK_CD = ? AND RPTPAY_DTL = 'A' AND VOUCH_NO = ?"});
  for (size_t i = 0; i < statements.size(); ++i) db.exec(statements[i], sides(kind)[i], kind.code, number);
  db.exec("UPDATE ALEDGER SET BW_AB = 'A' WHERE BOOK_CD = ? AND VOUCH_NO = ?", kind.code, number);
  forgetUnclear(db, kind.code, number);
}

}  // namespace

std::optional<Row> findMoneyVoucher(Database& db, const VoucherKind& kind, double number) {
  return db.first(
      "SELECT RPTPAY.rowid AS ITS_ROW, RPTPAY.* FROM RPTPAY WHERE BOOK_CD = ? AND VOUCH_NO = ?"
      " ORDER BY RPTPAY.rowid LIMIT 1",
      kind.code, number);
}

void storeMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher) {
  const double number = valueOf(voucher, "VOUCH_NO").number();
  const auto standing = findMoneyVoucher(db, kind, number);
  const Fields row = rowOf(kind, voucher);
  if (standing)
    updateRows(db, "RPTPAY", row, "rowid = ?", {standing->value("ITS_ROW")});
  else
    insertRow(db, "RPTPAY", row);
  post(db, kind, number);
}

bool saveMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher, const Saving& how) {
  const double number = valueOf(voucher, "VOUCH_NO").number();
  return whole(db, [&] {
    if (!how.finds(db, kind, number)) return false;
    const auto before = findMoneyVoucher(db, kind, number);
    // A repair that has its place here: statements print the number as it stands.
    db.exec("UPDATE ACCOUNT SET GSTINNO = '.' WHERE GSTINNO IS NULL");
    storeMoneyVoucher(db, kind, voucher);
    for (const char* side : {"CSHBNK_CD", "PARTY_CD"}) {
      if (before) RebuildOneBalance(db, before->text(side));
      RebuildOneBalance(db, trim(valueOf(voucher, side).text()));
    }
    return true;
  });
}

bool deleteMoneyVoucher(Database& db, const VoucherKind& kind, double number, const Saving& as) {
  return whole(db, [&] {
    if (!as.finds(db, kind, number)) return false;
    const auto standing = findMoneyVoucher(db, kind, number);
    if (!standing) return true;
    unpost(db, kind.code, number);
    forgetUnclear(db, kind.code, number);
    db.exec("DELETE FROM RPTPAY WHERE rowid = ?", standing->value("ITS_ROW"));
    RebuildOneBalance(db, standing->text("CSHBNK_CD"));
    RebuildOneBalance(db, standing->text("PARTY_CD"));
    return true;
  });
}

bool isCashOrBank(Database& db, std::string_view code) {
  return sameText(code, kCashAccount) ||
         db.first("SELECT 1 FROM ACCOUNT WHERE ACC_CD = ? AND " + underGroups("GROUP_CD", {87, 88}), code)
             .has_value();
}

std::array<std::string, 2> postingStatements(const MoneyRows& rows) {
  const auto statement = [&](const std::string& account, const std::string& against) {
    return "INSERT INTO " + rows.into +
           " (VOUCH_NO, VOUCH_DT, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT,"
           " NARRATION, BW_AB, PARTY_BL, NARR1, CHQ_NO, CHQ_CLG_DT, SUB_DESC, SRNO)"
           " SELECT VOUCH_NO, VOUCH_DT, BOOK_CD, ?, " +
           account + ", " + against + ", AMOUNT, NARRATION, RPTPAY_DTL, " + rows.billNumber +
           ", NARRATION1, CHQ_NO, CHQ_CLG_DT, " + rows.subDesc + ", VOUCH_NO FROM " + rows.from;
  };
  return {statement("CSHBNK_CD", "PARTY_CD"), statement("PARTY_CD", "CSHBNK_CD")};
}

std::array<std::string, 2> sides(const VoucherKind& kind) {
  return {kind.ledger.otherSide(), kind.ledger.partySide};
}
