#include "reports/balances.h"

#include "store/groups.h"

namespace {

std::vector<Row> groupSummary(Database& db) {
  return db.all(
      "SELECT GROUP_CD, GROUP_NAME, SUM(OP_BALDR) AS OP_BALDR, SUM(OP_BALCR) AS OP_BALCR,"
      " SUM(OP_BALTDR) AS OP_BALTDR, SUM(OP_BALTCR) AS OP_BALTCR,"
      " SUM(TR_BALDR) AS TR_BALDR, SUM(TR_BALCR) AS TR_BALCR,"
      " SUM(OP_BALDR) + SUM(OP_BALTDR) + SUM(TR_BALDR) AS totdrcl,"
      " SUM(OP_BALCR) + SUM(OP_BALTCR) + SUM(TR_BALCR) AS totcrcl,"
      " (SUM(OP_BALDR) + SUM(OP_BALTDR) + SUM(TR_BALDR))"
      " - (SUM(OP_BALCR) + SUM(OP_BALTCR) + SUM(TR_BALCR)) AS finclosing"
      " FROM T_FINALNEW GROUP BY GROUP_CD, GROUP_NAME ORDER BY GROUP_CD, GROUP_NAME");
}

// One row for each side of each party, of ledger rows of neither side too. They are summed by the party
// alone, which is one walk through the ledger's index in its order.
void addSides(Database& db, const std::string& columns, const std::string& condition,
              const std::vector<Value>& values) {
  db.exec(
      "WITH SUMS AS MATERIALIZED (SELECT PARTY_CD, SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'C') AS CR,"
      " SUM(VOUCH_AMT) FILTER (WHERE VOUCH_TYPE = 'D') AS DR,"
      " COUNT(*) FILTER (WHERE VOUCH_TYPE IS NOT 'C' AND VOUCH_TYPE IS NOT 'D') AS OTHERS"
      " FROM ALEDGER WHERE " +
          condition + " GROUP BY PARTY_CD) INSERT INTO T_FINALNEW (ACC_CD, " + columns +
          ") SELECT PARTY_CD, CR, 0 FROM SUMS WHERE CR IS NOT NULL"
          " UNION ALL SELECT PARTY_CD, 0, DR FROM SUMS WHERE DR IS NOT NULL"
          " UNION ALL SELECT PARTY_CD, 0, 0 FROM SUMS WHERE OTHERS > 0",
      values);
}

void fillFinalTable(Database& db, Date from, Date to) {
  Transaction all(db, Transaction::Writes::WorkTables);
  db.exec("DELETE FROM T_FINALNEW");
  db.exec(
      "INSERT INTO T_FINALNEW (GROUP_CD, GROUP_NAME, ACC_CD, ACC_NAME, OP_BALDR, OP_BALCR)"
      " SELECT ACCOUNT.GROUP_CD, GROUP_NAME, ACC_CD, ACC_NAME,"
      " CASE WHEN OP_BAL > 0 THEN OP_BAL ELSE 0 END, CASE WHEN OP_BAL < 0 THEN -OP_BAL ELSE 0 END"
      " FROM GRP JOIN ACCOUNT ON GRP.GROUP_CD = ACCOUNT.GROUP_CD ORDER BY ACCOUNT.GROUP_CD, ACC_CD");
  // The "+" keeps each row's date from being tried as a number.
  addSides(db, "TR_BALCR, TR_BALDR", "+VOUCH_DT >= ? AND +VOUCH_DT <= ?", {from, to});
  addSides(db, "OP_BALTCR, OP_BALTDR",
           "VOUCH_DT < ? AND PARTY_CD IN (SELECT ACC_CD FROM ACCOUNT WHERE GROUP_CD = 10 OR GROUP_CD >= 70)",
           {from});
  db.exec(
      "UPDATE T_FINALNEW SET GROUP_CD = ACCOUNT.GROUP_CD, ACC_NAME = ACCOUNT.ACC_NAME"
      " FROM ACCOUNT WHERE T_FINALNEW.ACC_CD = ACCOUNT.ACC_CD");
  db.exec(
      "UPDATE T_FINALNEW SET GROUP_NAME = GRP.GROUP_NAME"
      " FROM GRP WHERE T_FINALNEW.GROUP_CD = GRP.GROUP_CD");
  all.commit();
}

}  // namespace

std::vector<Row> BuildFinalTable(Database& db, Date from, Date to, std::string_view reportKey) {
  fillFinalTable(db, from, to);
  return reportKey == kClosingBalanceList ? std::vector<Row>() : groupSummary(db);
}

std::string closingBalancesText() {
  return "WITH SIDES AS (SELECT ACC_CD, ACC_NAME, GROUP_CD, SGROUP_NAME,"
         " SUM(OP_BALDR) + SUM(OP_BALTDR) + SUM(TR_BALDR) AS DEBITS,"
         " SUM(OP_BALCR) + SUM(OP_BALTCR) + SUM(TR_BALCR) AS CREDITS"
         " FROM T_FINALNEW GROUP BY ACC_NAME, ACC_CD, GROUP_CD, SGROUP_NAME)"
         " SELECT SIDES.ACC_CD, SIDES.ACC_NAME,"
         " FORMAT(CASE WHEN DEBITS > CREDITS THEN DEBITS - CREDITS ELSE 0 END, '0.00') AS Dr,"
         " FORMAT(CASE WHEN DEBITS < CREDITS THEN CREDITS - DEBITS ELSE 0 END, '0.00') AS Cr,"
         " ACCOUNT.AREA, ACCOUNT.PHONE1, FORMAT(DEBITS - CREDITS, '0.00') AS cbl,"
         " SIDES.GROUP_CD, ACCOUNT.ANOTHER_CD, ACCOUNT.CITY"
         " FROM SIDES JOIN ACCOUNT ON ACCOUNT.ACC_CD = SIDES.ACC_CD"
         " WHERE " +
         underGroups("SIDES.GROUP_CD", {85}) +
         " AND (?1 = '' OR ACCOUNT.AREA = ?1) AND (?2 = '' OR ACCOUNT.CITY = ?2)"
         " ORDER BY SIDES.ACC_NAME, SIDES.ACC_CD";
}

// Opening and closing on their sides, what moved between them; accounts on which nothing stands stay out.
std::string groupedBalancesText(const std::string& condition) {
  return "WITH SIDES AS (SELECT ACC_CD, ACC_NAME, GROUP_CD, GROUP_NAME,"
         " ROUND(TOTAL(OP_BALDR) + TOTAL(OP_BALTDR) - TOTAL(OP_BALCR) - TOTAL(OP_BALTCR), 2) AS OPENING,"
         " ROUND(TOTAL(TR_BALDR), 2) AS DEBITS, ROUND(TOTAL(TR_BALCR), 2) AS CREDITS"
         " FROM T_FINALNEW GROUP BY GROUP_CD, GROUP_NAME, ACC_NAME, ACC_CD)"
         " SELECT GROUP_NAME, SIDES.ACC_CD, SIDES.ACC_NAME, FORMAT(OPENING, '0.00'), FORMAT(DEBITS, '0.00'),"
         " FORMAT(CREDITS, '0.00'), FORMAT(MAX(OPENING + DEBITS - CREDITS, 0), '0.00'),"
         " FORMAT(MAX(CREDITS - OPENING - DEBITS, 0), '0.00')"
         " FROM SIDES JOIN ACCOUNT ON ACCOUNT.ACC_CD = SIDES.ACC_CD"
         " WHERE (OPENING <> 0 OR DEBITS <> 0 OR CREDITS <> 0)" +
         (condition.empty() ? "" : " AND " + condition) +
         " ORDER BY SIDES.GROUP_CD, SIDES.ACC_NAME, SIDES.ACC_CD";
}

std::vector<Row> closingBalances(Database& db, std::string_view area, std::string_view city) {
  return db.all(closingBalancesText(), area, city);
}
