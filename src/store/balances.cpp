#include "store/balances.h"

#include <string>

#include "store/settled.h"

namespace {

// Of one row of ACCOUNT, rounded at each step as the rebuild of all does.
constexpr const char* kOfLedger =
    "(SELECT ROUND(ROUND(ROUND(COALESCE(ACCOUNT.OP_BAL, 0), 2)"
    " - ROUND(COALESCE(SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'C'), 0), 2), 2)"
    " + ROUND(COALESCE(SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'D'), 0), 2), 2)"
    " FROM ALEDGER WHERE PARTY_CD = ACCOUNT.ACC_CD)";

}  // namespace

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
  db.passOver(kOlderBooks, "UPDATE ACCOUNT SET CL_BAL = ROUND(COALESCE(OP_BAL, 0), 2)");
  db.passOver(kOlderBooks,
              "UPDATE ACCOUNT SET CL_BAL = ROUND(ACCOUNT.CL_BAL + ROUND(T_ACLST.TOT_DR, 2), 2) FROM T_ACLST"
              " WHERE ACCOUNT.ACC_CD = T_ACLST.ACC_CD AND T_ACLST.TOT_DR <> 0");
  db.passOver(kOlderBooks,
              "UPDATE ACCOUNT SET CL_BAL = ROUND(ACCOUNT.CL_BAL - ROUND(T_ACLST.TOT_CR, 2), 2) FROM T_ACLST"
              " WHERE ACCOUNT.ACC_CD = T_ACLST.ACC_CD AND T_ACLST.TOT_CR <> 0");
  all.commit();
}

double ledgerBalance(Database& db, std::string_view code) {
  return db.number(std::string("SELECT ") + kOfLedger + " FROM ACCOUNT WHERE ACC_CD = ?", code);
}

const char* balanceExpression(Database& db) { return isSettled(db) ? "CL_BAL" : kOfLedger; }

void RebuildOneBalance(Database& db, std::string_view code) {
  db.exec(std::string("UPDATE ACCOUNT SET CL_BAL = ") + kOfLedger + " WHERE ACC_CD = ?", code);
}
