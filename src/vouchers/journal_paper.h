#pragma once

#include "frame/voucher_kinds.h"
#include "platform/host.h"
#include "store/database.h"

// A stored journal or contra as a paper: its lines with the sums of both sides, under number, date,
// reference and narration. Shown as BILLS/PREVIEW.pdf.
void showJournalPaper(Host& host, Database& db, const VoucherKind& kind, double number);
