#include "store/balances.h"

void refreshBalances(Database& db) {
  Transaction all(db);
  db.attempt("DELETE FROM T_ACLST");
  db.attempt(
      "INSERT INTO T_ACLST (ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL)"
      " SELECT ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL FROM ACCOUNT");
  // Summed before the join, so that the ledger is read once and from its index alone.
  db.attempt(
      "WITH SIDES AS MATERIALIZED (SELECT PARTY_CD, VOUCH_TYPE, SUM(VOUCH_AMT) AS AMT FROM ALEDGER"
      " GROUP BY PARTY_CD, VOUCH_TYPE)"
      " INSERT INTO T_ACLST (GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, CL_BAL, TOT_CR, TOT_DR)"
      " SELECT GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, 0,"
      " CASE WHEN VOUCH_TYPE = 'C' THEN AMT ELSE 0 END, CASE WHEN VOUCH_TYPE = 'D' THEN AMT ELSE 0 END"
      " FROM SIDES JOIN ACCOUNT ON SIDES.PARTY_CD = ACCOUNT.ACC_CD");
  db.attempt("UPDATE ACCOUNT SET CL_BAL = 0");
  db.attempt("UPDATE ACCOUNT SET CL_BAL = OP_BAL");
  db.attempt(
      "UPDATE ACCOUNT SET CL_BAL = ACCOUNT.CL_BAL + T_ACLST.TOT_DR FROM T_ACLST"
      " WHERE ACCOUNT.ACC_CD = T_ACLST.ACC_CD AND T_ACLST.TOT_DR <> 0");
  db.attempt(
      "UPDATE ACCOUNT SET CL_BAL = ACCOUNT.CL_BAL - T_ACLST.TOT_CR FROM T_ACLST"
      " WHERE ACCOUNT.ACC_CD = T_ACLST.ACC_CD AND T_ACLST.TOT_CR <> 0");
  all.commit();
}
