#pragma once

#include <string>
#include <vector>

#include "store/database.h"

// The saved queries that printing reads: blprn, CHLNPRN, GSTBLPRN, GSTTOTQRY, QUOTPRN, QUOTGSTTOT.
//
// Output columns keep their documented order. A column has its bare name where that is unique in
// the query (QUANTITY) and table and name where it repeats ([SALE.VOUCH_NO], [SALEITM.VOUCH_NO],
// [ACCOUNT_1.ACC_NAME]); a column that stands twice gets _1 the second time. A column that the
// dictionary does not hold reads as an empty text. Rows come in no order: the reader says it,
// ORDER BY [SALE.VOUCH_NO], SR_NO.

struct SavedQuery {
  std::string name;
  std::string select;
};

// In the order in which they are made.
std::vector<SavedQuery> savedQueries();

// Every view of the file goes, also one that somebody made by hand.
void DropViews(Database& db);
// Drops all views and makes the saved queries anew; a failure leaves the old ones.
void RemakeViews(Database& db);
