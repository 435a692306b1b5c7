#include "frame/settling.h"

#include <algorithm>

#include "base/date.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/child_screen.h"
#include "store/dictionary.h"

namespace {

constexpr double kPaisa = 0.005;

struct SettledBy {
  VoucherKey voucher;
  std::string party, date;
  double amount = 0;
};

std::vector<SettledBy> settledBy(Database& db, const VoucherKey& voucher) {
  std::vector<SettledBy> found;
  if (!CheckTable(db, kSettlements)) return found;
  auto rows = db.query(
      "SELECT S.BOOK_CD, S.VOUCH_NO, S.PARTY_CD, SUM(S.AMOUNT),"
      " (SELECT MAX(L.VOUCH_DT) FROM ALEDGER AS L WHERE L.VOUCH_NO = S.VOUCH_NO AND L.BOOK_CD = S.BOOK_CD) "
      "AS "
      "DT"
      " FROM SETTLES AS S WHERE S.BILL_BOOK = ? AND S.BILL_VNO = ? AND S.WHAT = 'B'"
      " GROUP BY S.BOOK_CD, S.VOUCH_NO, S.PARTY_CD ORDER BY S.BOOK_CD, S.VOUCH_NO",
      voucher.book, voucher.number);
  while (rows.next())
    found.push_back({
        .voucher = {.book = rows.text(0), .number = rows.number(1)},
        .party = rows.text(2),
        .date = rows.text(4),
        .amount = rows.number(3)
    });
  return found;
}

std::string sentence(const std::vector<SettledBy>& all) {
  constexpr size_t kMost = 5;
  std::vector<std::string> told;
  double sum = 0;
  for (const SettledBy& by : all) {
    sum += by.amount;
    if (told.size() == kMost) continue;
    const auto day = parseDate(by.date);
    told.push_back(by.voucher.book + " " + numText(by.voucher.number) +
                   (day ? " " + formatDate(*day, "dd/MM/yyyy") : ""));
  }
  if (all.size() > kMost) told.emplace_back("...");
  return words("Settled With {amount} By {vouchers}", "amount", indianGroups(Format(sum, "0.00")), "vouchers",
               join(told, ", "));
}

}  // namespace

std::string usedOfVoucher(const std::string& book, const std::string& number, const std::string& party) {
  const auto sum = [&](const std::string& bookColumn, const std::string& numberColumn) {
    return "COALESCE((SELECT SUM(U.AMOUNT) FROM SETTLES AS U WHERE U." + bookColumn + " = " + book +
           " AND U." + numberColumn + " = " + number + " AND U.WHAT = 'B' AND U.PARTY_CD = " + party +
           "), 0)";
  };
  return "(" + sum("BILL_BOOK", "BILL_VNO") + " + " + sum("BOOK_CD", "VOUCH_NO") + ")";
}

std::string standingOfVoucher(const std::string& book, const std::string& number, const std::string& party) {
  return "CASE WHEN " + book + " = '" + kOpeningBook +
         "' THEN COALESCE((SELECT ABS(A.OP_BAL) FROM ACCOUNT AS A WHERE A.ACC_CD = " + party +
         "), 0) ELSE COALESCE((SELECT SUM(L.VOUCH_AMT) FROM ALEDGER AS L WHERE L.VOUCH_NO = " + number +
         " AND L.BOOK_CD = " + book + " AND L.PARTY_CD = " + party + "), 0) END";
}

std::string settledWords(Database& db, const VoucherKey& voucher) {
  const auto all = settledBy(db, voucher);
  return all.empty() ? "" : sentence(all);
}

std::optional<Question> settledQuestion(Database& db, const VoucherKey& voucher, const std::string& party,
                                        double amount) {
  const auto all = settledBy(db, voucher);
  double sum = 0;
  bool anothers = false;
  for (const SettledBy& by : all) {
    sum += by.amount;
    anothers = anothers || !sameText(by.party, party);
  }
  if (all.empty() || (!anothers && sum <= amount + kPaisa)) return std::nullopt;
  return Question{.text = sentence(all) + "\n" +
                          (anothers ? words("Under Another Party That Money Goes On Account")
                                    : words("Its Amount Would Be {amount} Now", "amount",
                                            indianGroups(Format(amount, "0.00")))) +
                          "\n" + words("Save It All The Same ?"),
                  .title = kQuestionTitle,
                  .yes = english("&Yes, Save It"),
                  .no = english("&No, Back To The Voucher"),
                  .loses = true};
}

void freeSettled(Database& db, const VoucherKey& voucher, const std::vector<std::string>& keeps) {
  for (const SettledBy& by : settledBy(db, voucher)) {
    if (std::ranges::any_of(keeps, [&](const std::string& party) { return sameText(by.party, party); }))
      continue;
    db.exec(
        "DELETE FROM SETTLES WHERE BILL_BOOK = ? AND BILL_VNO = ? AND WHAT = 'B' AND PARTY_CD = ?"
        " AND BOOK_CD = ? AND VOUCH_NO = ?",
        voucher.book, voucher.number, by.party, by.voucher.book, by.voucher.number);
    if (db.first("SELECT 1 FROM SETTLES WHERE BOOK_CD = ? AND VOUCH_NO = ? AND WHAT = 'B' LIMIT 1",
                 by.voucher.book, by.voucher.number))
      continue;
    db.exec("UPDATE RPTPAY SET RPTPAY_DTL = 'A' WHERE BOOK_CD = ? AND VOUCH_NO = ? AND RPTPAY_DTL = 'B'",
            by.voucher.book, by.voucher.number);
    db.exec("UPDATE ALEDGER SET BW_AB = 'A' WHERE BOOK_CD = ? AND VOUCH_NO = ? AND BW_AB = 'B'",
            by.voucher.book, by.voucher.number);
  }
}
