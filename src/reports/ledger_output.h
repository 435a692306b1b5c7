#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/date.h"
#include "frame/session.h"

// What the routines of paper, workbook and PDF need beside the grid of a shown ledger.

inline constexpr std::string_view kLedgers = "LEDGERS", kTLedgers = "TLEDGERS";

enum class OutputTarget { Printer, Excel, Pdf };

struct GridOutput {
  std::string caption, period;
  std::array<double, 15> widths{};  // twips; 0 is no column
  std::array<int, 15> numeric{};    // -1: figures, right-aligned
};

// Widths and flags of the two ledgers, as a shown statement publishes them into the session.
void publishColumns(Session& s, std::string_view key);

// Takes the session's columns. Without voucher numbers the particulars have their width too. For
// the printer the session also gets its three heading lines.
GridOutput ledgerOutput(Session& s, std::string_view key, OutputTarget target, const std::string& caption,
                        Date from, Date to, bool withoutVoucherNo);
