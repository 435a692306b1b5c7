#pragma once

#include <string>

#include "base/date.h"
#include "reports/ledger_output.h"
#include "reports/report.h"

// What the routines of paper, workbook and PDF need beside the grid of a shown report.

// The layout as the session carries it: widths, headings, flags and their count.
void publishLayout(Session& s, const std::vector<ReportColumn>& columns);

// Takes the session's layout; for the printer the session also gets its three heading lines.
GridOutput reportOutput(Session& s, const std::string& key, OutputTarget target, const std::string& caption,
                        Date from, Date to);
