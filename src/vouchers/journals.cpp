#include "vouchers/journals.h"

#include <cmath>
#include <set>

#include "base/figure.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "frame/settling.h"
#include "store/balances.h"
#include "vouchers/cleared.h"

namespace {

std::set<std::string> accountsOf(Database& db, const VoucherKind& kind, double number) {
  std::set<std::string> accounts;
  for (const Row& row :
       db.all("SELECT DISTINCT ACC_CD FROM JOURNITM WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code))
    accounts.insert(upper(row.text(0)));
  return accounts;
}

void unpost(Database& db, const VoucherKind& kind, double number) {
  db.later("DELETE FROM ALEDGER WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
}

Fields headRow(const VoucherKind& kind, const Fields& head, double amount, const SaveStamp& stamp) {
  Fields row = trimmedTexts(head);
  row.push_back({"BOOK_CD", kind.code});
  row.push_back({"AMOUNT", amount});
  addStamp(row, stamp);
  return row;
}

}  // namespace

double JournalSums::difference() const { return Round(debit - credit, 2); }

JournalSums sumJournal(Database& db) {
  const auto sums = db.first("SELECT COUNT(*), SUM(DEBIT), SUM(CREDIT) FROM T_JOURNITM");
  return {.lines = toInt(sums->number(0)),
          .debit = Round(sums->number(1), 2),
          .credit = Round(sums->number(2), 2)};
}

bool saveJournal(Database& db, const VoucherKind& kind, const Fields& head, const SaveStamp& stamp,
                 const Saving& how) {
  const double number = valueOf(head, "VOUCH_NO").number();
  const std::string reference = trim(valueOf(head, "REF_NO").text());
  return whole(db, [&] {
    if (!how.finds(db, kind, number)) return false;
    // What is asked stands before what is written (Database::later).
    std::set<std::string> touched = accountsOf(db, kind, number);
    std::set<std::string> now;
    for (const Row& row : db.all("SELECT DISTINCT ACC_CD FROM T_JOURNITM")) now.insert(upper(row.text(0)));
    if (!how.isFresh()) freeSettled(db, {kind.code, number}, {now.begin(), now.end()});
    touched.merge(now);
    const double amount = sumJournal(db).debit;
    deleteVoucher(db, kind, number);
    insertLater(db, "JOURNAL", headRow(kind, head, amount, stamp));
    db.later(
        "INSERT INTO JOURNITM (VOUCH_NO, BOOK_CD, SR_NO, ACC_CD, DEBIT, CREDIT, NARRATION, CHQ_NO, "
        "CHQ_CLG_DT)"
        " SELECT ?, ?, SR_NO, ACC_CD, DEBIT, CREDIT, NARRATION,"
        " CASE WHEN CHQ_NO IS NULL OR CHQ_NO = '' THEN ? ELSE CHQ_NO END, ? FROM T_JOURNITM ORDER BY SR_NO",
        number, kind.code, reference.empty() ? "." : reference, valueOf(head, "VOUCH_DT"));
    unpost(db, kind, number);
    db.later(journalPosting("(SELECT * FROM JOURNAL WHERE VOUCH_NO = ? AND BOOK_CD = ?)"), number, kind.code);
    forgetUnclear(db, kind.code, number);
    RebuildBalances(db, touched);
    return true;
  });
}

bool deleteJournal(Database& db, const VoucherKind& kind, double number, const Saving& as) {
  return whole(db, [&] {
    const std::set<std::string> touched = accountsOf(db, kind, number);
    if (!deleteVoucher(db, kind, number, as)) return false;
    unpost(db, kind, number);
    forgetUnclear(db, kind.code, number);
    freeSettled(db, {kind.code, number});
    RebuildBalances(db, touched);
    return true;
  });
}

std::optional<Row> findJournal(Database& db, const VoucherKind& kind, double number) {
  return db.first("SELECT * FROM JOURNAL WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
}

void loadJournalLines(Database& db, const VoucherKind& kind, double number) {
  db.exec("DELETE FROM T_JOURNITM");
  db.exec(
      "INSERT INTO T_JOURNITM (VOUCH_NO, BOOK_CD, SR_NO, ACC_CD, ACC_NAME, DEBIT, CREDIT, NARRATION, CHQ_NO)"
      " SELECT VOUCH_NO, BOOK_CD, SR_NO, ACC_CD,"
      " (SELECT ACC_NAME FROM ACCOUNT WHERE ACCOUNT.ACC_CD = JOURNITM.ACC_CD), DEBIT, CREDIT, NARRATION,"
      " CASE WHEN CHQ_NO = '.' OR EXISTS (SELECT 1 FROM JOURNAL AS H WHERE H.VOUCH_NO = JOURNITM.VOUCH_NO"
      " AND H.BOOK_CD = JOURNITM.BOOK_CD AND H.REF_NO = JOURNITM.CHQ_NO) THEN '' ELSE CHQ_NO END"
      " FROM JOURNITM WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY SR_NO, rowid",
      number, kind.code);
  const auto balances = db.all("SELECT ACC_CD, " + balanceExpression(db) +
                               " FROM ACCOUNT WHERE ACC_CD IN (SELECT ACC_CD FROM T_JOURNITM)");
  for (const Row& row : balances)
    db.exec("UPDATE T_JOURNITM SET BAL_AFT = ? WHERE ACC_CD = ?", balanceText(row.number(1)), row.text(0));
}

std::string balanceText(double balance) {
  const double paise = Round(balance, 2);
  const std::string figure = indianGroups(Format(std::fabs(paise), "0.00"));
  return paise == 0 ? figure : figure + (paise > 0 ? " Dr" : " Cr");
}

std::string journalPosting(const std::string& from, const std::string& into) {
  return "INSERT INTO " + into +
         " (VOUCH_NO, VOUCH_DT, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT, NARRATION, BW_AB,"
         " PARTY_BL, NARR1, CHQ_NO, CHQ_CLG_DT, SUB_DESC, SRNO)"
         " SELECT H.VOUCH_NO, H.VOUCH_DT, H.BOOK_CD, CASE WHEN L.DEBIT <> 0 THEN 'D' ELSE 'C' END, L.ACC_CD,"
         " (SELECT O.ACC_CD FROM JOURNITM AS O WHERE O.VOUCH_NO = L.VOUCH_NO AND O.BOOK_CD = L.BOOK_CD"
         " AND CASE WHEN L.DEBIT <> 0 THEN O.CREDIT ELSE O.DEBIT END <> 0"
         " ORDER BY O.DEBIT + O.CREDIT DESC, O.SR_NO LIMIT 1),"
         " L.DEBIT + L.CREDIT,"
         " CASE WHEN L.NARRATION IS NULL OR L.NARRATION = '' THEN H.NARRATION ELSE L.NARRATION END, 'A',"
         " CASE WHEN H.REF_NO IS NULL OR H.REF_NO = '' THEN NUMTEXT(H.VOUCH_NO) ELSE H.REF_NO END, '.',"
         " L.CHQ_NO, L.CHQ_CLG_DT, '0', L.SR_NO"
         " FROM " +
         from +
         " AS H JOIN JOURNITM AS L ON L.VOUCH_NO = H.VOUCH_NO AND L.BOOK_CD = H.BOOK_CD"
         " ORDER BY H.BOOK_CD, H.VOUCH_NO, L.SR_NO";
}
