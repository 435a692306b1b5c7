#include "reports/report_output.h"

#include <algorithm>

namespace {

constexpr int kSet = -1;
constexpr size_t kHeadings = 20;

}  // namespace

void publishLayout(Session& s, const std::vector<ReportColumn>& columns) {
  s.mcolwidth.fill(0);
  s.mcolnum.fill(0);
  s.mcolsub.fill(0);
  s.mcolfont.fill(0);
  s.mcoltotal.fill(0);
  s.mhdrcaps.assign(kHeadings, "");
  s.mcolcount = 0;
  for (size_t i = 0; i < std::min(columns.size(), s.mcolwidth.size()); ++i) {
    const ReportColumn& column = columns[i];
    s.mcolwidth[i] = column.twips;
    s.mhdrcaps[i] = column.heading;
    if (column.money) s.mcolnum[i] = kSet;
    if (column.detailMoney) s.mcolsub[i] = kSet;
    if (column.twips > 0) s.mcolcount = static_cast<int>(i) + 1;
  }
}

GridOutput reportOutput(Session& s, const std::string& key, OutputTarget target, const std::string& caption,
                        Date from, Date to) {
  GridOutput out{
      .caption = caption,
      .period = "From : " + formatDate(from, "dd/MMM/yyyy") + " To : " + formatDate(to, "dd/MMM/yyyy"),
      .widths = s.mcolwidth,
      .numeric = s.mcolnum,
      .key = key,
  };
  if (!onPaper(target)) return out;
  out.period = "FROM " + formatDate(from, "dd/MM/yyyy") + " TO " + formatDate(to, "dd/MM/yyyy");
  s.mpageheader1 = s.mcompname;
  s.mpageheader2 = caption;
  s.mpageheader3 = out.period;
  return out;
}
