#pragma once

#include "frame/voucher_kinds.h"
#include "platform/host.h"
#include "store/database.h"

// A stored receipt, payment, income or expense on paper, as a preview: who paid whom, how, what it settles
// and what of it is on account, with the amount in words. Nothing where there is none of that number.
void showMoneyPaper(Host& host, Database& db, const VoucherKind& kind, double number);
