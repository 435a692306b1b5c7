#include "documents/grid_layout.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "base/date.h"
#include "base/number.h"
#include "base/text.h"
#include "base/words.h"

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
  const std::span columns(out.columns.data(), std::min(out.columns.size(), kPaperColumns));
  double sum = 0;
  for (const TypedColumn& column : columns) sum += column.twips;
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
  for (size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].twips <= 0) continue;
    const double width = columns[i].twips / kTwips;
    layout.columns.push_back({i, layout.right, width, columns[i].twips, columns[i].right});
    layout.right += width;
  }
  return layout;
}

std::string tooWideWords(GridPaperKind kind) {
  std::string text = words(
      "Columns are More than Page Width\r\nPress Excel Button To View In Excel\r\n"
      "Then You Can Resize and Print From Excel");
  if (kind == GridPaperKind::Pdf)
    text += "\r\n" + words("If You Continue You Shall Get Page Size Column Data ");
  return text;
}

GridWords gridWords(std::string text, ColumnType type, double twips, GridPaperKind kind) {
  constexpr double kTwipsOfLetter = 140, kTwipsOfNarrowLetter = 80;
  std::ranges::replace_if(text, isControl, ' ');
  if (length(text) < twips / kTwipsOfLetter) return {text, false};
  if (isFigure(type)) return {text, true};
  const bool shortens = type == ColumnType::Date && kind == GridPaperKind::Printer;
  if (const auto date = shortens ? parseDate(text) : std::nullopt)
    return {formatDate(*date, "dd/MM/yy"), false};
  return {left(text, static_cast<int>(std::nearbyint(twips / kTwipsOfNarrowLetter))), true};
}
