#include "vouchers/receipts.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/text.h"
#include "store/balances.h"
#include "store/groups.h"
#include "store/row_writer.h"
#include "vouchers/cleared.h"

namespace {

bool says(const Fields& row, std::string_view column) {
  return std::ranges::any_of(row, [&](const Field& f) { return sameText(f.column, column); });
}

bool isUnder(Database& db, std::string_view code, std::initializer_list<int> groups) {
  return db.first("SELECT 1 FROM ACCOUNT WHERE ACC_CD = ? AND " + underGroups("GROUP_CD", groups), code)
      .has_value();
}

Fields rowOf(const VoucherKind& kind, const Fields& voucher, const Settlement& settles) {
  Fields row = trimmedTexts(voucher);
  for (Field& f : Fields{
           {"REF_NO",     valueOf(voucher, "VOUCH_NO").text()},
           {"BOOK_CD",            kind.code                  },
           {"VOUCH_TYPE",            "."},
           {"CHQ_NO",            "."                      },
           {"NARRATION1",            "."},
           {"NARRATION2",            "."                      },
           {"CHQ_CLG_DT",            valueOf(voucher,"VOUCH_DT")},
           {"RPTPAY_DTL", settles.bills.empty() ? "A" : "B"                      }
  })
    if (!says(row, f.column)) row.push_back(std::move(f));
  return row;
}

void unpost(Database& db, const std::string& bookCode, double number) {
  db.later("DELETE FROM ALEDGER WHERE BOOK_CD = ? AND VOUCH_NO = ?", bookCode, number);
}

void post(Database& db, const VoucherKind& kind, double number, const Settlement& settles) {
  unpost(db, kind.code, number);
  if (!kind.ledger.formerCode.empty()) unpost(db, kind.ledger.formerCode, number);
  const MoneyRows rows{.billNumber = "NUMTEXT(V.VOUCH_NO)",
                       .subDesc = "'0'",
                       .vouchers = "RPTPAY",
                       .condition = "V.BOOK_CD = ? AND V.RPTPAY_DTL IN ('A', 'B') AND V.VOUCH_NO = ?"};
  const auto write = [&](const std::array<std::string, 2>& statements) {
    for (size_t i = 0; i < statements.size(); ++i) db.later(statements[i], sides(kind)[i], kind.code, number);
  };
  write(postingStatements(rows));
  if (!settles.deductions.empty()) write(deductionStatements(rows));
  forgetUnclear(db, kind.code, number);
}

// Every account with ledger rows of the voucher as it stands.
std::set<std::string> accountsOf(Database& db, const VoucherKind& kind, double number,
                                 const std::optional<Row>& standing) {
  std::set<std::string> accounts;
  if (!standing) return accounts;
  for (const char* side : {"CSHBNK_CD", "PARTY_CD"}) accounts.insert(standing->text(side));
  for (const auto& deduction : readSettlement(db, kind, number).deductions)
    accounts.insert(deduction.account);
  return accounts;
}

void storeOver(Database& db, const VoucherKind& kind, const Fields& voucher, const Settlement& settles,
               const std::optional<Row>& standing) {
  const double number = valueOf(voucher, "VOUCH_NO").number();
  const Fields row = rowOf(kind, voucher, settles);
  if (standing)
    updateLater(db, "RPTPAY", row, "rowid = ?", {standing->value("ITS_ROW")});
  else
    insertLater(db, "RPTPAY", row);
  storeSettlement(db, kind, number, valueOf(row, "PARTY_CD").text(), settles);
  post(db, kind, number, settles);
}

std::string insertion(const MoneyRows& rows, const std::string& account, const std::string& against,
                      const std::string& amount, const std::string& from) {
  return "INSERT INTO " + rows.into +
         " (VOUCH_NO, VOUCH_DT, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT,"
         " NARRATION, BW_AB, PARTY_BL, NARR1, CHQ_NO, CHQ_CLG_DT, SUB_DESC, SRNO)"
         " SELECT V.VOUCH_NO, V.VOUCH_DT, V.BOOK_CD, ?, " +
         account + ", " + against + ", " + amount + ", V.NARRATION, V.RPTPAY_DTL, " + rows.billNumber +
         ", V.NARRATION1, V.CHQ_NO, V.CHQ_CLG_DT, " + rows.subDesc + ", V.VOUCH_NO FROM " + from + " WHERE " +
         rows.condition;
}

}  // namespace

std::optional<Row> findMoneyVoucher(Database& db, const VoucherKind& kind, double number) {
  return db.first(
      "SELECT RPTPAY.rowid AS ITS_ROW, RPTPAY.* FROM RPTPAY WHERE BOOK_CD = ? AND VOUCH_NO = ?"
      " ORDER BY RPTPAY.rowid LIMIT 1",
      kind.code, number);
}

void storeMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher,
                       const Settlement& settles) {
  storeOver(db, kind, voucher, settles, findMoneyVoucher(db, kind, valueOf(voucher, "VOUCH_NO").number()));
}

bool saveMoneyVoucher(Database& db, const VoucherKind& kind, const Fields& voucher, const Saving& how,
                      const Settlement& settles) {
  const double number = valueOf(voucher, "VOUCH_NO").number();
  return whole(db, [&] {
    if (!how.finds(db, kind, number)) return false;
    // What is asked stands before what is written (Database::later).
    const auto standing = how.isFresh() ? std::nullopt : findMoneyVoucher(db, kind, number);
    std::set<std::string> touched = accountsOf(db, kind, number, standing);
    for (const char* side : {"CSHBNK_CD", "PARTY_CD"}) touched.insert(trim(valueOf(voucher, side).text()));
    for (const auto& deduction : settles.deductions) touched.insert(deduction.account);
    if (standing) freeSettled(db, {kind.code, number}, {trim(valueOf(voucher, "PARTY_CD").text())});
    // A repair that has its place here: statements print the number as it stands.
    db.later("UPDATE ACCOUNT SET GSTINNO = '.' WHERE GSTINNO IS NULL");
    storeOver(db, kind, voucher, settles, standing);
    if (!settles.bills.empty()) checkSettlement(db, kind, number);
    RebuildBalances(db, touched);
    return true;
  });
}

bool deleteMoneyVoucher(Database& db, const VoucherKind& kind, double number, const Saving& as) {
  return whole(db, [&] {
    if (!as.finds(db, kind, number)) return false;
    const auto standing = findMoneyVoucher(db, kind, number);
    if (!standing) return true;
    const std::set<std::string> touched = accountsOf(db, kind, number, standing);
    unpost(db, kind.code, number);
    forgetUnclear(db, kind.code, number);
    db.later("DELETE FROM RPTPAY WHERE rowid = ?", standing->value("ITS_ROW"));
    storeSettlement(db, kind, number, "", {});
    freeSettled(db, {kind.code, number});
    RebuildBalances(db, touched);
    return true;
  });
}

bool isCashOrBank(Database& db, std::string_view code) {
  return sameText(code, kCashAccount) || isUnder(db, code, {87, 88, 127});
}

bool isBank(Database& db, std::string_view code) { return isUnder(db, code, {87, 127}); }

std::array<std::string, 2> postingStatements(const MoneyRows& rows) {
  const auto statement = [&](const char* account, const char* against) {
    return insertion(rows, account, against, "V.AMOUNT", rows.vouchers + " AS V");
  };
  return {statement("V.CSHBNK_CD", "V.PARTY_CD"), statement("V.PARTY_CD", "V.CSHBNK_CD")};
}

std::array<std::string, 2> deductionStatements(const MoneyRows& rows) {
  const auto statement = [&](const char* account, const char* against) {
    return insertion(rows, account, against, "S.AMOUNT",
                     rows.vouchers +
                         " AS V JOIN SETTLES AS S ON S.BOOK_CD = V.BOOK_CD AND S.VOUCH_NO = V.VOUCH_NO"
                         " AND S.WHAT <> 'B'");
  };
  return {statement("S.ACC_CD", "V.PARTY_CD"), statement("V.PARTY_CD", "S.ACC_CD")};
}

std::array<std::string, 2> sides(const VoucherKind& kind) {
  return {kind.ledger.otherSide(), kind.ledger.partySide};
}
