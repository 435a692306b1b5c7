#include "store/balances.h"

#include <string>
#include <vector>

#include "base/text.h"
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

// Of one row of ACCOUNT, out of the work table, where each side of each party has a row.
std::string ofSide(const std::string& sum) {
  return "ROUNDED(COALESCE((SELECT MAX(" + sum +
         ") FROM T_ACLST AS S WHERE S.ACC_CD = ACCOUNT.ACC_CD AND S." + sum + " <> 0), 0), 2)";
}

void sumSides(Database& db) {
  // Which may empty the table.
  db.passOver(kOlderBooks, [&] { indexWorkTable(db, "T_ACLST", "ACC_CD"); });
  db.passOver(kOlderBooks, "DELETE FROM T_ACLST");
  db.passOver(kOlderBooks,
              "INSERT INTO T_ACLST (ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL)"
              " SELECT ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL FROM ACCOUNT");
  // Summed before the joins and by party alone: one walk through the ledger's index, in its order.
  db.passOver(kOlderBooks,
              "INSERT INTO T_ACLST (GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, CL_BAL, TOT_CR, TOT_DR)"
              " WITH SUMS AS (SELECT PARTY_CD, " +
                  sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'C'") + " AS CR, " +
                  sumWhere(db, "VOUCH_AMT", "VOUCH_TYPE = 'D'") +
                  " AS DR FROM ALEDGER GROUP BY PARTY_CD)"
                  " SELECT GROUP_CD, ACC_CD, ACC_NAME, OP_BAL, 0, CASE SIDE WHEN 'C' THEN CR ELSE 0 END,"
                  " CASE SIDE WHEN 'D' THEN DR ELSE 0 END"
                  " FROM SUMS CROSS JOIN (SELECT 'C' AS SIDE UNION ALL SELECT 'D') AS SIDES"
                  " JOIN ACCOUNT ON SUMS.PARTY_CD = ACCOUNT.ACC_CD"
                  " WHERE CASE SIDE WHEN 'C' THEN CR ELSE DR END IS NOT NULL");
}

}  // namespace

// Others wait for the writing alone, unless one of them stored something since the sums.
void RebuildAllBalances(Database& db) {
  const auto summed = readStill(db, [&] { sumSides(db); });
  whole(db, [&] {
    if (db.changeCount() != summed) sumSides(db);
    // A missing opening balance is nothing, as it is to one account's rebuild.
    db.passOver(kOlderBooks,
                "UPDATE ACCOUNT SET CL_BAL = ROUNDED(ROUNDED(ROUNDED(COALESCE(OP_BAL, 0), 2) + " +
                    ofSide("TOT_DR") + ", 2) - " + ofSide("TOT_CR") + ", 2)");
  });
}

double ledgerBalance(Database& db, std::string_view code) {
  return db.number("SELECT " + ofLedger(db) + " FROM ACCOUNT WHERE ACC_CD = ?", code);
}

std::string balanceExpression(Database& db) { return isSettled(db) ? "CL_BAL" : ofLedger(db); }

void RebuildOneBalance(Database& db, std::string_view code) { RebuildBalances(db, {std::string(code)}); }

void RebuildBalances(Database& db, const std::set<std::string>& codes) {
  if (codes.empty()) return;
  const std::string marks = join(std::vector<std::string>(codes.size(), "?"), ", ");
  db.later("UPDATE ACCOUNT SET CL_BAL = " + ofLedger(db) + " WHERE ACC_CD IN (" + marks + ")",
           std::vector<Value>(codes.begin(), codes.end()));
}
