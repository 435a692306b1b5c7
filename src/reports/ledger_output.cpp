#include "reports/ledger_output.h"

#include <initializer_list>

namespace {

constexpr std::array<double, 15> kRunningWidths = {500, 1200, 1300, 500, 2800, 1200, 1200, 1200, 450};
constexpr std::array<double, 15> kTWidths = {500, 500, 1000, 2000, 1200, 500, 500, 1000, 2000, 1200};
constexpr int kSet = -1;

std::array<int, 15> flags(std::initializer_list<size_t> columns) {
  std::array<int, 15> set{};
  for (const size_t column : columns) set[column] = kSet;
  return set;
}

// To a workbook the book of the running statement counts as a figure too.
std::array<int, 15> numericColumns(std::string_view key, OutputTarget target) {
  if (key == kTLedgers) return flags({4, 9});
  return target == OutputTarget::Excel ? flags({3, 5, 6, 7}) : flags({5, 6, 7});
}

}  // namespace

void publishColumns(Session& s, std::string_view key) {
  const bool t = key == kTLedgers;
  s.mhdrcaps.clear();
  s.mcolwidth = t ? kTWidths : kRunningWidths;
  s.mcolnum = flags(t ? std::initializer_list<size_t>{4, 9} : std::initializer_list<size_t>{});
  s.mcolcount = t ? 10 : 9;
}

GridOutput ledgerOutput(Session& s, std::string_view key, OutputTarget target, const std::string& caption,
                        Date from, Date to, bool withoutVoucherNo) {
  const char* const pattern = onPaper(target) ? "dd/MM/yyyy" : "dd/MMM/yyyy";
  GridOutput out{
      .caption = caption,
      .period = "From : " + formatDate(from, pattern) + " To : " + formatDate(to, pattern),
      .widths = s.mcolwidth,
      .numeric = numericColumns(key, target),
      .key = std::string(key),
  };
  if (withoutVoucherNo) {
    out.widths[4] += out.widths[0];
    out.widths[0] = 0;
  }
  if (!onPaper(target)) return out;
  s.mpageheader1 = s.mcompname;
  s.mpageheader2 = out.caption;
  s.mpageheader3 = out.period;
  for (size_t i = 1; i < s.mcolsub.size(); ++i) s.mcolsub[i] = 0;
  return out;
}
