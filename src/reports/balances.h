#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "store/balances.h"

// Balances of a period, worked out into the work table T_FINALNEW: several rows an account, which
// its readers sum up. All columns are positive figures of one side.
//
//   OP_BALDR,  OP_BALCR   the account's opening balance by its sign
//   OP_BALTDR, OP_BALTCR  ledger rows before the period, of opening stock (group 10) and of groups
//                         from 70 up; all other accounts start each period at their opening balance
//   TR_BALDR,  TR_BALCR   ledger rows inside the period
//
// Closing is the sum of the three debits against that of the three credits. A ledger row of a
// code without an account stands in group 0 without a name. (The stored balance ACCOUNT.CL_BAL,
// which knows no period, is rebuilt by store/balances.)

inline constexpr std::string_view kClosingBalanceList = "accmastclbl";

// Fills T_FINALNEW and returns its summary by group, or nothing for the closing balance list:
// GROUP_CD, GROUP_NAME, the six sums, totdrcl, totcrcl and finclosing, debit positive, in order of
// GROUP_CD. Raises DatabaseError, and then leaves the table as it was.
std::vector<Row> BuildFinalTable(Database& db, Date from, Date to, std::string_view reportKey);

// The closing balances of T_FINALNEW as it stands: ACC_CD, ACC_NAME, Dr, Cr, area, PHONE1, cbl,
// group_cd, another_cd, city by ACC_NAME. Dr, Cr and cbl (their difference) are texts "0.00".
// Customers (group 85 and those below it) only; an empty area or city takes all.
std::vector<Row> closingBalances(Database& db, std::string_view area = {}, std::string_view city = {});
// Its statement; its values are the area twice and the city twice.
std::string closingBalancesText();

// Of accounts of all groups, by group and name, from T_FINALNEW as it stands: GROUP_NAME, ACC_CD, ACC_NAME,
// the opening balance (debit positive), debits, credits, and the closing balance on its side, as texts
// "0.00". The condition is over the columns of SIDES (GROUP_CD) and ACCOUNT.
std::string groupedBalancesText(const std::string& condition);
