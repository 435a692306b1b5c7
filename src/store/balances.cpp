#include "store/balances.h"

#include <map>
#include <string>

#include "store/engine.h"
#include "store/settled.h"

namespace {

// Of one row of ACCOUNT, rounded at each step as the rebuild of all does.
std::string ofLedger(Database& db) {
  return "(SELECT ROUNDED(ROUNDED(ROUNDED(COALESCE(ACCOUNT.OP_BAL, 0), 2) - ROUNDED(COALESCE(" +
         sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'C'") + ", 0), 2), 2) + ROUNDED(COALESCE(" +
         sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'D'") +
         ", 0), 2), 2) FROM ALEDGER WHERE PARTY_CD = ACCOUNT.ACC_CD)";
}

}  // namespace

void RebuildAllBalances(Database& db) {
  Transaction all(db);
  db.passOver(kOlderBooks, "DELETE FROM T_ACLST");
  db.passOver(kOlderBooks,
              "INSERT INTO T_ACLST (ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL)"
              " SELECT ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL FROM ACCOUNT");
  // Summed before the join and by party alone: one walk through the ledger's index, in its order.
  db.passOver(kOlderBooks,
              "INSERT INTO T_ACLST (GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, CL_BAL, TOT_CR, TOT_DR)"
              " WITH SUMS AS (SELECT PARTY_CD, " +
                  sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'C'") + " AS CR, " +
                  sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'D'") +
                  " AS DR FROM ALEDGER GROUP BY PARTY_CD),"
                  " SIDES AS (SELECT PARTY_CD, CR, 0 AS DR FROM SUMS WHERE CR IS NOT NULL"
                  " UNION ALL SELECT PARTY_CD, 0, DR FROM SUMS WHERE DR IS NOT NULL)"
                  " SELECT GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, 0, CR, DR"
                  " FROM SIDES JOIN ACCOUNT ON SIDES.PARTY_CD = ACCOUNT.ACC_CD");
  db.passOver(kOlderBooks, "UPDATE ACCOUNT SET CL_BAL = 0");
  // A missing opening balance is nothing, as it is to one account's rebuild.
  db.passOver(kOlderBooks, "UPDATE ACCOUNT SET CL_BAL = ROUNDED(COALESCE(OP_BAL, 0), 2)");
  // Found by the account's key, row by row: the work table has none.
  db.passOver(kOlderBooks, [&] {
    struct Sides {
      Value debits{0.0}, credits{0.0};
    };
    std::map<std::string, Sides> sums;
    for (auto rows = db.query("SELECT ACC_CD, TOT_DR, TOT_CR FROM T_ACLST WHERE TOT_DR <> 0 OR TOT_CR <> 0");
         rows.next();) {
      Sides& sides = sums[rows.text(0)];
      if (rows.number(1) != 0) sides.debits = rows.value(1);
      if (rows.number(2) != 0) sides.credits = rows.value(2);
    }
    for (const auto& [code, sides] : sums)
      db.exec(
          "UPDATE ACCOUNT SET CL_BAL = ROUNDED(ROUNDED(CL_BAL + ROUNDED(?, 2), 2) - ROUNDED(?, 2), 2)"
          " WHERE ACC_CD = ?",
          sides.debits, sides.credits, code);
  });
  all.commit();
}

double ledgerBalance(Database& db, std::string_view code) {
  return db.number("SELECT " + ofLedger(db) + " FROM ACCOUNT WHERE ACC_CD = ?", code);
}

std::string balanceExpression(Database& db) { return isSettled(db) ? "CL_BAL" : ofLedger(db); }

void RebuildOneBalance(Database& db, std::string_view code) {
  db.exec("UPDATE ACCOUNT SET CL_BAL = " + ofLedger(db) + " WHERE ACC_CD = ?", code);
}
