#include "reports/report_layout.h"

#include <algorithm>
#include <numeric>

#include "base/pattern.h"
#include "base/text.h"

namespace {

constexpr double kRoom = 1330;          // pixels of the grid without its scroll bar
constexpr double kPixelsPerTwip = 0.1;  // of a column that does not stretch
constexpr double kStretches = 1500;     // twips from which a text takes spare width
constexpr double kName = 180;           // pixels that such a text should have
constexpr double kLeastName = 96;       // and has at the least on a small window
constexpr double kLetter = 8.8, kDigit = 8.5, kSign = 4, kInsets = 16;
constexpr double kPlainSize = 11, kSmallSize = 9;  // points

bool ofFigures(const ReportColumn& column) { return isFigure(column.type); }

bool stretches(const ReportColumn& column) { return !ofFigures(column) && column.twips >= kStretches; }

// A total as the painter groups it.
double widthOf(const std::string& total, double size) {
  double width = 0;
  for (const char ch : indianGroups(total)) width += ch >= '0' && ch <= '9' ? kDigit : kSign;
  return total.empty() ? 0 : width * size / kPlainSize + kInsets;
}

// Pixels of the columns that do not stretch, 0 for the others.
std::vector<double> fixedWidths(const ReportRows& rows, double totalSize) {
  double twips = 1;
  for (const ReportColumn& c : rows.columns()) twips += c.twips;
  const double scale = std::min(kPixelsPerTwip, kRoom / twips);
  std::vector<double> widths;
  for (size_t i = 0; i < rows.columns().size(); ++i) {
    const ReportColumn& c = rows.columns()[i];
    const bool fixed = c.twips > 0 && !stretches(c);
    const double heading = length(c.heading) * kLetter + kInsets;
    widths.push_back(fixed ? std::max({c.twips * scale, c.pixels, heading, widthOf(rows.total(i), totalSize)})
                           : 0);
  }
  return widths;
}

// To which a small window narrows a column: its total with both decimals, a date, most of a text.
double leastOf(const ReportColumn& column, double width, std::string total) {
  constexpr double kFigure = 58, kDate = 106, kOfText = 0.55, kText = 62, kCloser = 6;
  const double heading = length(column.heading) * kLetter + kInsets;
  double least = std::max(heading, column.pixels);
  if (column.type == ColumnType::Money && !total.empty() && total.find('.') == std::string::npos)
    total += ".00";
  if (column.type == ColumnType::Date)
    least = std::max(least, kDate);
  else if (!ofFigures(column))
    least = std::max({least, width * kOfText, kText});
  else
    least = std::max({least, total.empty() ? width : widthOf(total, kPlainSize), kFigure});
  return std::min(least, width) - kCloser;
}

}  // namespace

ReportLayout layoutOf(const ReportRows& rows) {
  const auto& columns = rows.columns();
  ReportLayout layout;
  std::vector<double> widths = fixedWidths(rows, kPlainSize);
  const double left = kRoom - std::reduce(widths.begin(), widths.end());
  if (left < kName * static_cast<double>(std::ranges::count_if(columns, stretches))) {
    layout.totalSize = kSmallSize;
    widths = fixedWidths(rows, kSmallSize);
  }
  for (size_t i = 0; i < columns.size(); ++i) {
    const ReportColumn& c = columns[i];
    layout.columns.push_back({
        .title = c.heading,
        .width =
            stretches(c) ? part(c.twips, kLeastName) : px(widths[i], leastOf(c, widths[i], rows.total(i))),
        .align = ofFigures(c) ? Align::Right : Align::Left,
        .money = ofFigures(c),
    });
  }
  return layout;
}
