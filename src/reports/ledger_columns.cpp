#include "reports/ledger_columns.h"

#include <utility>

#include "base/words.h"

namespace {

// clang-format off
const std::vector<LedgerColumn> kRunning = {
    {.heading = "V.No.",       .width = px(62, 50),  .twips = 500,  .type = ColumnType::Count},
    {.heading = "Date",        .width = px(96, 72),  .twips = 1200, .type = ColumnType::Date},
    {.heading = "Ref No.",     .width = px(110, 78), .twips = 1300},
    {.heading = "Bk.",         .width = px(50, 36),  .twips = 500},
    {.heading = "Particulars", .width = part(1), .twips = 2800},
    {.heading = "Debit",       .width = px(124, 102), .twips = 1200, .type = ColumnType::Money},
    {.heading = "Credit",      .width = px(124, 102), .twips = 1200, .type = ColumnType::Money},
    {.heading = "Balance",     .width = px(124, 102), .twips = 1200, .type = ColumnType::Money},
    {.heading = "Crdr",        .width = px(56, 46),  .twips = 450},
};
const std::vector<LedgerColumn> kTwoSided = {
    {.heading = "NO.",         .width = px(62, 50),  .twips = 500,  .type = ColumnType::Count},
    {.heading = "",            .width = px(44, 34),  .twips = 500},
    {.heading = "DATE",        .width = px(88, 74),  .twips = 1000, .type = ColumnType::Date},
    {.heading = "PARTICULARS", .width = part(1, 104), .twips = 2000},
    {.heading = "Cr",          .width = px(116, 94), .twips = 1200, .type = ColumnType::Money},
    {.heading = "NO.",         .width = px(62, 50),  .twips = 500,  .type = ColumnType::Count},
    {.heading = "",            .width = px(44, 34),  .twips = 500},
    {.heading = "DATE",        .width = px(88, 74),  .twips = 1000, .type = ColumnType::Date},
    {.heading = "PARTICULARS", .width = part(1, 104), .twips = 2000},
    {.heading = "Dr",          .width = px(116, 94), .twips = 1200, .type = ColumnType::Money},
};
// clang-format on
constexpr size_t kVoucherNo = 0, kParticulars = 4;  // of the running statement

}  // namespace

const std::vector<LedgerColumn>& ledgerColumns(std::string_view key) {
  return key == kTLedgers ? kTwoSided : kRunning;
}

std::vector<GridColumn> screenColumns(std::string_view key) {
  std::vector<GridColumn> columns;
  for (const LedgerColumn& c : ledgerColumns(key)) {
    const bool money = c.type == ColumnType::Money;
    columns.push_back({.title = c.heading,
                       .width = c.width,
                       .align = money || c.type == ColumnType::Count ? Align::Right : Align::Left,
                       .money = money});
  }
  return columns;
}

GridOutput ledgerOutput(std::string_view key, std::shared_ptr<const TypedRows> rows, const GridTarget& target,
                        const LedgerHeading& heading, bool withoutVoucherNo) {
  const char* const pattern = target.onPaper ? "dd/MM/yyyy" : "dd/MMM/yyyy";
  GridOutput out{
      .caption = words(heading.caption),
      .period = words("From : {from} To : {to}", "from", formatDate(heading.from, pattern), "to",
                      formatDate(heading.to, pattern)),
      .rows = std::move(rows),
      .key = std::string(key),
  };
  for (const LedgerColumn& c : ledgerColumns(key))
    out.columns.push_back({.heading = words(c.heading),
                           .twips = c.twips,
                           .type = c.type,
                           .right = c.type == ColumnType::Money});
  if (withoutVoucherNo) out.columns[kParticulars].twips += std::exchange(out.columns[kVoucherNo].twips, 0);
  return out;
}
