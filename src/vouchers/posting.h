#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "store/database.h"
#include "vouchers/posting_check.h"

// The ledger ALEDGER is derived from the vouchers: receipts and payments, bills of sale and
// purchase, challans. What a save has posted can be thrown away and made again here, one statement for
// each kind of row over all vouchers. Rows made here differ from those of a save in small things (a
// bill's party row carries the destination, its goods row the credit days; taxes of nil and other rows
// of amount 0 are not written); both forms are valid.
//
// Throws the whole ledger away and posts every voucher, then rebuilds the balance of every account:
// all or nothing, also when the program or the machine stops in the middle. A kind of which a voucher
// would be left without its rows raises NotPosted, and nothing has changed then. `progress` is told each step
// as it begins and ends, in the words that are shown for it.
using PostingProgress = std::function<void(std::string_view words)>;
void postAll(Database& db, const PostingProgress& progress = {});

// Posts what has no ledger row of its own yet, and changes nothing else: run twice it does nothing
// the second time, and rows of vouchers that were deleted stay. A statement that fails is passed over and
// the next one runs, so that a table that an update has yet to bring up to date costs its own rows alone;
// the log keeps it. What must reach the user (a lock, a full disk, a broken file) is raised.
void postMissing(Database& db);
