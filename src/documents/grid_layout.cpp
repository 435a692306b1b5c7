#include "documents/grid_layout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/date.h"
#include "base/number.h"
#include "base/text.h"

namespace {

constexpr double kWidest = 15000, kTwips = 20;
constexpr double kShortSide = 595, kLongSide = 842;

struct Limits {
  double portrait;  // twips
  int portraitRows, landscapeRows;
};
constexpr Limits kPdfLimits{10400, 54, 36}, kPrinterLimits{10800, 54, 34};

// Reports of their own layout.
constexpr const char* kShortPages = "mcompvldgr";
constexpr const char* kUnruled = "PRTYSTMNTVERTI_ITM";

int rowsOnPage(const std::string& key, bool landscape, GridPaperKind kind) {
  const Limits& limits = kind == GridPaperKind::Pdf ? kPdfLimits : kPrinterLimits;
  const bool few = landscape || key == kShortPages || (kind == GridPaperKind::Pdf && key == kUnruled);
  return few ? limits.landscapeRows : limits.portraitRows;
}

bool isControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

}  // namespace

std::optional<GridLayout> gridLayout(const GridOutput& out, GridPaperKind kind) {
  const double sum = std::accumulate(out.widths.begin(), out.widths.end(), 0.0);
  if (sum > kWidest) return {};
  GridLayout layout;
  layout.landscape = sum > (kind == GridPaperKind::Pdf ? kPdfLimits : kPrinterLimits).portrait;
  layout.pageWidth = layout.landscape ? kLongSide : kShortSide;
  layout.pageHeight = layout.landscape ? kShortSide : kLongSide;
  layout.middle = kind == GridPaperKind::Printer ? layout.pageWidth / 2 : layout.landscape ? 421 : 277;
  layout.top = layout.landscape ? 559 : 806;
  layout.rows = rowsOnPage(out.key, layout.landscape, kind);
  layout.ruled = out.key != kUnruled;
  layout.left = layout.right = Round((layout.pageWidth - sum / kTwips) / 2, 2);
  for (size_t i = 0; i < out.widths.size(); ++i) {
    if (out.widths[i] <= 0) continue;
    const double width = out.widths[i] / kTwips;
    layout.columns.push_back({i, layout.right, width, out.widths[i], out.numeric[i] != 0});
    layout.right += width;
  }
  return layout;
}

std::string tooWideWords(GridPaperKind kind) {
  std::string words =
      "Columns are More than Page Width\r\nPress Excel Button To View In Excel\r\n"
      "Then You Can Resize and Print From Excel";
  if (kind == GridPaperKind::Pdf) words += "\r\nIf You Continue You Shall Get Page Size Column Data ";
  return words;
}

GridWords gridWords(std::string text, double twips, GridPaperKind kind) {
  constexpr double kTwipsOfLetter = 140, kTwipsOfNarrowLetter = 80;
  std::ranges::replace_if(text, isControl, ' ');
  if (length(text) < twips / kTwipsOfLetter) return {text, false};
  const bool mayBeDate = kind == GridPaperKind::Printer || Val(text) == 0;
  if (const auto date = mayBeDate ? parseDate(text) : std::nullopt)
    return {formatDate(*date, "dd/MM/yy"), kind == GridPaperKind::Pdf};
  return {left(text, static_cast<int>(std::nearbyint(twips / kTwipsOfNarrowLetter))), true};
}
