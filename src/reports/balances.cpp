#include "reports/balances.h"

#include "store/engine.h"
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
  db.exec("INSERT INTO T_FINALNEW (ACC_CD, " + columns + ") WITH SUMS AS (SELECT PARTY_CD, " +
              sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'C'") + " AS CR, " +
              sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'D'") + " AS DR, " +
              sumWhere(db, "1", "VOUCH_TYPE IS NULL OR VOUCH_TYPE NOT IN ('C', 'D')") +
              " AS OTHERS"
              " FROM ALEDGER WHERE " +
              condition +
              " GROUP BY PARTY_CD) SELECT PARTY_CD, CASE SIDE WHEN 'C' THEN CR ELSE 0 END,"
              " CASE SIDE WHEN 'D' THEN DR ELSE 0 END FROM SUMS"
              " CROSS JOIN (SELECT 'C' AS SIDE UNION ALL SELECT 'D' UNION ALL SELECT '') AS SIDES"
              " WHERE CASE SIDE WHEN 'C' THEN CR WHEN 'D' THEN DR ELSE OTHERS END IS NOT NULL",
          values);
}

void fillFinalTable(Database& db, Date from, Date to) {
  readStill(db, [&] {
    db.exec("DELETE FROM T_FINALNEW");
    db.exec(
        "INSERT INTO T_FINALNEW (GROUP_CD, GROUP_NAME, ACC_CD, ACC_NAME, OP_BALDR, OP_BALCR)"
        " SELECT ACCOUNT.GROUP_CD, GROUP_NAME, ACC_CD, ACC_NAME,"
        " CASE WHEN OP_BAL > 0 THEN OP_BAL ELSE 0 END, CASE WHEN OP_BAL < 0 THEN -OP_BAL ELSE 0 END"
        " FROM GRP JOIN ACCOUNT ON GRP.GROUP_CD = ACCOUNT.GROUP_CD ORDER BY ACCOUNT.GROUP_CD, ACC_CD");
    // The "+" keeps each row's date from being tried as a number.
    addSides(db, "TR_BALCR, TR_BALDR", "+VOUCH_DT >= ? AND +VOUCH_DT <= ?", {from, to});
    addSides(
        db, "OP_BALTCR, OP_BALTDR",
        "VOUCH_DT < ? AND PARTY_CD IN (SELECT ACC_CD FROM ACCOUNT WHERE GROUP_CD = 10 OR GROUP_CD >= 70)",
        {from});
    db.exec(
        "UPDATE T_FINALNEW SET"
        " GROUP_CD = (SELECT A.GROUP_CD FROM ACCOUNT AS A WHERE A.ACC_CD = T_FINALNEW.ACC_CD),"
        " ACC_NAME = (SELECT A.ACC_NAME FROM ACCOUNT AS A WHERE A.ACC_CD = T_FINALNEW.ACC_CD)"
        " WHERE ACC_CD IN (SELECT ACC_CD FROM ACCOUNT)");
    db.exec(
        "UPDATE T_FINALNEW SET"
        " GROUP_NAME = (SELECT GRP.GROUP_NAME FROM GRP WHERE GRP.GROUP_CD = T_FINALNEW.GROUP_CD)"
        " WHERE GROUP_CD IN (SELECT GROUP_CD FROM GRP)");
  });
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
         " SHOWN(CASE WHEN DEBITS > CREDITS THEN DEBITS - CREDITS ELSE 0 END, '0.00') AS Dr,"
         " SHOWN(CASE WHEN DEBITS < CREDITS THEN CREDITS - DEBITS ELSE 0 END, '0.00') AS Cr,"
         " ACCOUNT.AREA, ACCOUNT.PHONE1, SHOWN(DEBITS - CREDITS, '0.00') AS cbl,"
         " SIDES.GROUP_CD, ACCOUNT.ANOTHER_CD, ACCOUNT.CITY"
         " FROM SIDES JOIN ACCOUNT ON ACCOUNT.ACC_CD = SIDES.ACC_CD"
         " WHERE " +
         underGroups("SIDES.GROUP_CD", {85}) +
         " AND (? = '' OR ACCOUNT.AREA = ?) AND (? = '' OR ACCOUNT.CITY = ?)"
         " ORDER BY SIDES.ACC_NAME, SIDES.ACC_CD";
}

// Opening and closing on their sides, what moved between them; accounts on which nothing stands stay out.
std::string groupedBalancesText(const std::string& condition) {
  return "WITH SIDES AS (SELECT ACC_CD, ACC_NAME, GROUP_CD, GROUP_NAME,"
         " ROUNDED(COALESCE(SUM(OP_BALDR), 0) + COALESCE(SUM(OP_BALTDR), 0) - COALESCE(SUM(OP_BALCR), 0)"
         " - COALESCE(SUM(OP_BALTCR), 0), 2) AS OPENING,"
         " ROUNDED(COALESCE(SUM(TR_BALDR), 0), 2) AS DEBITS, ROUNDED(COALESCE(SUM(TR_BALCR), 0), 2) AS "
         "CREDITS"
         " FROM T_FINALNEW GROUP BY GROUP_CD, GROUP_NAME, ACC_NAME, ACC_CD)"
         " SELECT GROUP_NAME, SIDES.ACC_CD, SIDES.ACC_NAME, SHOWN(OPENING, '0.00'), SHOWN(DEBITS, '0.00'),"
         " SHOWN(CREDITS, '0.00'),"
         " SHOWN(CASE WHEN OPENING + DEBITS - CREDITS > 0 THEN OPENING + DEBITS - CREDITS ELSE 0 END, "
         "'0.00'),"
         " SHOWN(CASE WHEN CREDITS - OPENING - DEBITS > 0 THEN CREDITS - OPENING - DEBITS ELSE 0 END, '0.00')"
         " FROM SIDES JOIN ACCOUNT ON ACCOUNT.ACC_CD = SIDES.ACC_CD"
         " WHERE (OPENING <> 0 OR DEBITS <> 0 OR CREDITS <> 0)" +
         (condition.empty() ? "" : " AND " + condition) +
         " ORDER BY SIDES.GROUP_CD, SIDES.ACC_NAME, SIDES.ACC_CD";
}

std::vector<Row> closingBalances(Database& db, std::string_view area, std::string_view city) {
  return db.all(closingBalancesText(), area, area, city, city);
}
