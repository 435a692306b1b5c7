#include "platform/workbook/layout.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "base/words.h"

namespace workbook {
namespace {

// What rounding may take away without a row being pushed to the next page.
constexpr double kSlack = 0.5;
constexpr size_t kMaxPages = 2000, kMaxLines = 4000000;

struct Strip {
  int index;
  double size;
};
using Strips = std::vector<Strip>;

Strips visible(int first, int last, const std::function<double(int)>& size) {
  Strips lines;
  for (int i = first; i <= last; ++i)
    if (const double own = size(i); own > 0) lines.push_back({i, own});
  return lines;
}

double total(const Strips& lines) {
  double sum = 0;
  for (const Strip& line : lines) sum += line.size;
  return sum;
}

struct Group {
  size_t first = 0, last = 0;  // last: one behind
  bool titled = false;
};

// One direction of the sheet: the lines of an area and the lines repeated before them.
struct Axis {
  Strips lines, titles{};
  int titlesEnd = 0;
  std::vector<int> breaks{};
  double room = 0;  // on the paper

  // A page ends where the next line would not fit, or behind a break. A line larger than the
  // page stands alone on one.
  std::vector<Group> groups(double scale) const {
    std::vector<Group> found;
    const double titleSize = total(titles) * scale;
    size_t start = 0;
    while (start < lines.size()) {
      // Titles stand on the pages behind those where they stand anyway.
      Group group{.first = start, .last = start, .titled = !titles.empty() && lines[start].index > titlesEnd};
      const double free = room - (group.titled ? titleSize : 0) + kSlack;
      double used = 0;
      while (group.last < lines.size()) {
        const double next = used + lines[group.last].size;
        if (group.last > start &&
            (next * scale > free || broken(lines[group.last - 1].index, lines[group.last].index)))
          break;
        used = next;
        ++group.last;
      }
      start = group.last;
      found.push_back(group);
    }
    return found;
  }

  bool broken(int before, int behind) const {
    const auto found = std::lower_bound(breaks.begin(), breaks.end(), before);
    return found != breaks.end() && *found < behind;
  }

  std::vector<Slice> slices(const Group& group, double scale, double start, bool centred) const {
    std::vector<Slice> found;
    const auto add = [&](const Strip& line) {
      found.push_back({.index = line.index, .at = 0, .size = line.size});
    };
    if (group.titled) std::for_each(titles.begin(), titles.end(), add);
    std::for_each(lines.begin() + static_cast<std::ptrdiff_t>(group.first),
                  lines.begin() + static_cast<std::ptrdiff_t>(group.last), add);
    double size = 0;
    for (Slice& slice : found) {
      slice.at = start + size * scale;
      size += slice.size;
      slice.size *= scale;
    }
    const double shift = centred ? std::max(room - size * scale, 0.0) / 2 : 0;
    for (Slice& slice : found) slice.at += shift;
    return found;
  }
};

[[noreturn]] void tooLarge(const SheetModel& sheet) {
  throw WorkbookError(words("The sheet {sheet} would need more than 2,000 pages.", "sheet", sheet.name));
}

// The cells that print something: contents, fills and borders.
CellBlock usedBlock(const Model& model, const SheetModel& sheet) {
  CellBlock used{.firstRow = 1, .firstColumn = 1, .lastRow = 0, .lastColumn = 0};
  for (const auto& [number, row] : sheet.rows)
    for (const Cell& cell : row.cells) {
      const CellStyle& style = model.styles.style(cell.style);
      if (cell.value.empty() && cell.formula < 0 && !style.fill && !style.border.any()) continue;
      used.lastRow = std::max(used.lastRow, number);
      used.lastColumn = std::max(used.lastColumn, cell.column);
    }
  for (const CellBlock& merge : sheet.merges)
    if (merge.firstRow <= used.lastRow && merge.firstColumn <= used.lastColumn) {
      used.lastRow = std::max(used.lastRow, merge.lastRow);
      used.lastColumn = std::max(used.lastColumn, merge.lastColumn);
    }
  for (const Picture& picture : sheet.pictures) {
    const Anchor& end = picture.to ? *picture.to : picture.from;
    used.lastRow = std::max(used.lastRow, end.row);
    used.lastColumn = std::max(used.lastColumn, end.column);
  }
  return used;
}

// A print area of whole columns or rows ends with the cells that are used.
CellBlock clipped(CellBlock area, const CellBlock& used) {
  if (area.lastRow == kMaxRow) area.lastRow = std::max(used.lastRow, area.firstRow);
  if (area.lastColumn == kMaxColumn) area.lastColumn = std::max(used.lastColumn, area.firstColumn);
  return area;
}

// From the start of line `first` to a point inside line `last`, over what is visible.
template <class Size>
double span(int first, int last, double inside, Size size) {
  double sum = 0;
  for (int i = first; i < last; ++i) sum += size(i);
  return sum + std::min(inside, size(last));
}

PlacedPicture placed(const Picture& picture, const std::function<double(int)>& height,
                     const std::function<double(int)>& width) {
  Anchor from = picture.from;
  if (from.row == 0) {
    for (from.row = 1; from.row < kMaxRow && from.y >= height(from.row); ++from.row)
      from.y -= height(from.row);
    for (from.column = 1; from.column < kMaxColumn && from.x >= width(from.column); ++from.column)
      from.x -= width(from.column);
  }
  PlacedPicture found{.row = from.row,
                      .column = from.column,
                      .x = std::min(from.x, width(from.column)),
                      .y = std::min(from.y, height(from.row)),
                      .w = picture.width,
                      .h = picture.height,
                      .picture = &picture};
  if (picture.to) {
    found.w = span(from.column, picture.to->column, picture.to->x, width) - found.x;
    found.h = span(from.row, picture.to->row, picture.to->y, height) - found.y;
  }
  return found;
}

// The largest whole percent, not above 100, at which the area takes no more pages than allowed.
double fittingScale(const PageSetup& page, const Axis& down, const Axis& across) {
  const auto fits = [](const Axis& axis, int pages, double scale) {
    return pages == 0 || axis.groups(scale).size() <= static_cast<size_t>(pages);
  };
  for (int percent = 100; percent > 10; --percent)
    if (fits(across, page.fitWidth, percent / 100.0) && fits(down, page.fitHeight, percent / 100.0))
      return percent / 100.0;
  return 0.1;
}

// One print area, down and across the paper.
struct Part {
  Axis down, across;
};

Part partOf(const Model& model, const SheetModel& sheet, const CellBlock& area) {
  const PageSetup& page = sheet.page;
  const auto height = [&](int row) { return rowHeight(sheet, row); };
  const auto width = [&](int column) { return columnWidth(model, sheet, column); };
  Axis down{.lines = visible(area.firstRow, area.lastRow, height)};
  Axis across{.lines = visible(area.firstColumn, area.lastColumn, width)};
  down.room = std::max(page.height - page.top - page.bottom, 1.0);
  across.room = std::max(page.width - page.left - page.right, 1.0);
  if (const auto& titles = sheet.titleRows) {
    down.titles = visible(titles->firstRow, titles->lastRow, height);
    down.titlesEnd = titles->lastRow;
  }
  if (const auto& titles = sheet.titleColumns) {
    across.titles = visible(titles->firstColumn, titles->lastColumn, width);
    across.titlesEnd = titles->lastColumn;
  }
  if (!page.fit) {
    down.breaks = sheet.rowBreaks;
    across.breaks = sheet.columnBreaks;
  }
  return {std::move(down), std::move(across)};
}

void addPages(const SheetModel& sheet, const Part& part, int& number, SheetLayout& layout) {
  const PageSetup& page = sheet.page;
  const auto rows = part.down.groups(layout.scale), columns = part.across.groups(layout.scale);
  if (rows.size() * columns.size() + layout.pages.size() > kMaxPages) tooLarge(sheet);
  const size_t outer = page.overThenDown ? rows.size() : columns.size();
  const size_t inner = page.overThenDown ? columns.size() : rows.size();
  for (size_t i = 0; i < outer; ++i)
    for (size_t k = 0; k < inner; ++k) {
      const Group& row = rows[page.overThenDown ? i : k];
      const Group& column = columns[page.overThenDown ? k : i];
      layout.pages.push_back(
          {.rows = part.down.slices(row, layout.scale, page.top, page.centreDown),
           .columns = part.across.slices(column, layout.scale, page.left, page.centreAcross),
           .number = number++});
    }
}

}  // namespace

double rowHeight(const SheetModel& sheet, int row) {
  const auto found = sheet.rows.find(row);
  if (found == sheet.rows.end()) return sheet.defaultHidden ? 0 : sheet.defaultHeight;
  return found->second.hidden ? 0 : found->second.height.value_or(sheet.defaultHeight);
}

double columnWidth(const Model& model, const SheetModel& sheet, int column) {
  const ColumnSpan* span = sheet.span(column);
  if (span && span->hidden) return 0;
  const double width = span ? span->width : sheet.defaultWidth;
  // Digits, counted in 256ths, in whole pixels of 3/4 point.
  const double digit = model.styles.digitWidth();
  return std::trunc((256 * width + std::trunc(128 / digit)) / 256 * digit) * 0.75;
}

SheetLayout layOut(const Model& model, const SheetModel& sheet) {
  const PageSetup& page = sheet.page;
  SheetLayout layout;
  layout.scale = page.fit ? 1 : page.scale;
  const auto height = [&](int row) { return rowHeight(sheet, row); };
  const auto width = [&](int column) { return columnWidth(model, sheet, column); };
  for (const Picture& picture : sheet.pictures)
    if (const PlacedPicture found = placed(picture, height, width); found.w > 0 && found.h > 0)
      layout.pictures.push_back(found);

  const CellBlock used = usedBlock(model, sheet);
  std::vector<CellBlock> areas = sheet.printAreas;
  if (areas.empty() && used.lastRow > 0 && used.lastColumn > 0) areas.push_back(used);
  std::vector<Part> parts;
  size_t lines = 0;
  for (const CellBlock& area : areas) {
    const Part& part = parts.emplace_back(partOf(model, sheet, clipped(area, used)));
    lines += part.down.lines.size() + part.across.lines.size();
    if (lines > kMaxLines) tooLarge(sheet);
    if (page.fit) layout.scale = std::min(layout.scale, fittingScale(page, part.down, part.across));
  }
  int number = page.firstPage.value_or(1);
  for (const Part& part : parts) addPages(sheet, part, number, layout);
  return layout;
}

}  // namespace workbook
