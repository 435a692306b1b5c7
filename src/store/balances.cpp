#include "store/balances.h"

#include "base/number.h"

void RebuildAllBalances(Database& db) {
  Transaction all(db);
  db.passOver(kOlderBooks, "DELETE FROM T_ACLST");
  db.passOver(kOlderBooks,
              "INSERT INTO T_ACLST (ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL)"
              " SELECT ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL FROM ACCOUNT");
  // Summed before the join and by party alone: one walk through the ledger's index, in its order.
  db.passOver(kOlderBooks,
              "WITH SUMS AS MATERIALIZED (SELECT PARTY_CD,"
              " SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'C') AS CR,"
              " SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'D') AS DR FROM ALEDGER GROUP BY PARTY_CD),"
              " SIDES AS (SELECT PARTY_CD, CR, 0 AS DR FROM SUMS WHERE CR IS NOT NULL"
              " UNION ALL SELECT PARTY_CD, 0, DR FROM SUMS WHERE DR IS NOT NULL)"
              " INSERT INTO T_ACLST (GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, CL_BAL, TOT_CR, TOT_DR)"
              " SELECT GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, 0, CR, DR"
              " FROM SIDES JOIN ACCOUNT ON SIDES.PARTY_CD = ACCOUNT.ACC_CD");
  db.passOver(kOlderBooks, "UPDATE ACCOUNT SET CL_BAL = 0");
  // A missing opening balance is nothing, as it is to one account's rebuild.
  db.passOver(kOlderBooks, "UPDATE ACCOUNT SET CL_BAL = COALESCE(OP_BAL, 0)");
  db.passOver(kOlderBooks,
              "UPDATE ACCOUNT SET CL_BAL = ACCOUNT.CL_BAL + T_ACLST.TOT_DR FROM T_ACLST"
              " WHERE ACCOUNT.ACC_CD = T_ACLST.ACC_CD AND T_ACLST.TOT_DR <> 0");
  db.passOver(kOlderBooks,
              "UPDATE ACCOUNT SET CL_BAL = ACCOUNT.CL_BAL - T_ACLST.TOT_CR FROM T_ACLST"
              " WHERE ACCOUNT.ACC_CD = T_ACLST.ACC_CD AND T_ACLST.TOT_CR <> 0");
  all.commit();
}

void RebuildOneBalance(Database& db, std::string_view code) {
  const auto account = db.first("SELECT OP_BAL FROM ACCOUNT WHERE ACC_CD = ?", code);
  if (!account) return;
  const auto sides = db.first(
      "SELECT SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'C'),"
      " SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'D') FROM ALEDGER WHERE PARTY_CD = ?",
      code);
  double balance = Round(account->number(0), 2) - Round(sides->number(0), 2);
  balance = Round(balance, 2) + Round(sides->number(1), 2);
  db.exec("UPDATE ACCOUNT SET CL_BAL = ? WHERE ACC_CD = ?", Round(balance, 2), code);
}
