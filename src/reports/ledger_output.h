#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/date.h"
#include "documents/grid_output.h"
#include "frame/session.h"

// What the routines of paper, workbook and PDF need beside the grid of a shown ledger.

inline constexpr std::string_view kLedgers = "LEDGERS", kTLedgers = "TLEDGERS";

// Widths and flags of the two ledgers, as a shown statement publishes them into the session.
void publishColumns(Session& s, std::string_view key);

// Takes the session's columns. Without voucher numbers the particulars have their width too. For
// the printer the session also gets its three heading lines.
GridOutput ledgerOutput(Session& s, std::string_view key, OutputTarget target, const std::string& caption,
                        Date from, Date to, bool withoutVoucherNo);
