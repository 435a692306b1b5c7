#include "reports/report_layout.h"

#include <algorithm>

#include "base/pattern.h"

namespace {

constexpr double kRoom = 1330;          // pixels of the grid without its scroll bar
constexpr double kPixelsPerTwip = 0.1;  // of a column that does not stretch
constexpr double kStretches = 1500;     // twips from which a text takes spare width
constexpr double kDigit = 9, kSign = 4.5, kInsets = 18;

double widthOf(const std::string& figure) {
  double width = kInsets;
  for (const char ch : figure) width += ch >= '0' && ch <= '9' ? kDigit : kSign;
  return width;
}

bool isFigure(const ReportColumn& column) { return column.money || column.detailMoney || column.figure; }

}  // namespace

std::vector<GridColumn> gridColumns(const ReportRows& rows) {
  const auto& columns = rows.columns();
  double twips = 0;
  for (const ReportColumn& c : columns) twips += c.twips;
  const double scale = std::min(kPixelsPerTwip, kRoom / std::max(twips, 1.0));
  std::vector<GridColumn> shown;
  for (size_t i = 0; i < columns.size(); ++i) {
    const ReportColumn& c = columns[i];
    const double least = std::max(c.pixels, widthOf(indianGroups(rows.total(i))));
    const bool stretches = !isFigure(c) && c.twips >= kStretches;
    shown.push_back({
        .title = c.heading,
        .width = c.twips <= 0 ? px(0)
                 : stretches  ? part(c.twips)
                              : px(std::max(c.twips * scale, least)),
        .align = isFigure(c) ? Align::Right : Align::Left,
        .money = isFigure(c),
    });
  }
  return shown;
}
