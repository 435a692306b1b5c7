#pragma once

#include "store/database.h"

// Books are settled when every voucher is posted and every balance summed. Then an opening has nothing
// to do, and writes nothing. That they are is remembered in the file, in the table SETTLED: how often
// the file had been changed when it was found so (a counter that each writing program raises), with its
// size and the last rows of the tables concerned. Whatever was written since, by whichever program,
// makes the mark stale, and any doubt counts as not settled. A copy of a settled file is settled; a
// file that older versions make or write is not.

// Outside of transactions.
bool isSettled(Database& db);

// Stands from before the work that settles the books.
class Settling {
 public:
  explicit Settling(Database& db);
  // All of the work went well: remembers it, unless another program has written meanwhile.
  void done();

 private:
  Database& db_;
  double before_;
};
