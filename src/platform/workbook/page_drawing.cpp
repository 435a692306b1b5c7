#include "platform/workbook/page_drawing.h"

#include <algorithm>
#include <cmath>

#include "base/words.h"
#include "platform/utf8.h"
#include "platform/workbook/evaluate.h"

namespace workbook {
namespace {

using paint::Colour;
using paint::HAlign;
using paint::Rect;

// Points before scaling.
constexpr double kPadding = 2.25, kIndent = 6.75;
// Vowel signs of Indian scripts stand above and below the line.
constexpr double kClipSlack = 3;
constexpr size_t kMaxSpots = 500000, kMaxMerged = 2000000, kMaxLetters = 20000000;

double widthOf(Line line) {
  switch (line) {
    case Line::None:
      return 0;
    case Line::Hair:
      return 0.25;
    case Line::Thin:
      return 0.5;
    case Line::Medium:
      return 1.25;
    case Line::Thick:
      return 2;
    case Line::Double:
      return 0.5;
  }
  return 0;
}

// Where two cells disagree about the line between them, the heavier one stands.
void strengthen(Side& side, const Side& other) {
  if (other.line > side.line) side = other;
}

template <class Found>
auto lowerSlice(Found& slices, int index) {
  return std::lower_bound(slices.begin(), slices.end(), index,
                          [](const Slice& slice, int wanted) { return slice.index < wanted; });
}

bool visibleBetween(int first, int end, const auto& size) {
  for (int i = first; i < end; ++i)
    if (size(i) > 0) return true;
  return false;
}

// Each letter on a line of its own.
std::string stacked(const std::string& text) {
  std::u32string lines;
  for (const char32_t letter : utf8::decode(text)) {
    if (!lines.empty()) lines += U'\n';
    lines += letter;
  }
  return utf8::encode(lines);
}

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

}  // namespace

PageDrawing::PageDrawing(const Model& model, const SheetModel& sheet, const SheetLayout& layout, size_t page,
                         paint::Canvas& canvas, const paint::Metrics& metrics, size_t& letters)
    : model_(model),
      sheet_(sheet),
      layout_(layout),
      page_(layout.pages[page]),
      scale_(layout.scale),
      canvas_(canvas),
      metrics_(metrics),
      letters_(letters) {
  if (page_.rows.size() * page_.columns.size() > kMaxSpots) tooMuch();
}

void PageDrawing::tooMuch() const {
  throw WorkbookError(words("The sheet {sheet} has too much on one page.", "sheet", sheet_.name));
}

void PageDrawing::draw() {
  if (page_.rows.empty() || page_.columns.empty()) return;
  gather();
  gatherMerges();
  fills();
  texts();
  borders();
  diagonals();
  pictures();
}

Rect PageDrawing::rect(int firstRow, int firstColumn, int lastRow, int lastColumn) const {
  const Slice& top = page_.rows[static_cast<size_t>(firstRow)];
  const Slice& bottom = page_.rows[static_cast<size_t>(lastRow)];
  const Slice& left = page_.columns[static_cast<size_t>(firstColumn)];
  const Slice& right = page_.columns[static_cast<size_t>(lastColumn)];
  return {left.at, top.at, right.at + right.size - left.at, bottom.at + bottom.size - top.at};
}

void PageDrawing::gather() {
  spots_.resize(page_.rows.size() * page_.columns.size());
  std::vector<const CellStyle*> columnStyles;
  for (const Slice& column : page_.columns) {
    const ColumnSpan* span = sheet_.span(column.index);
    columnStyles.push_back(&model_.styles.style(span ? span->style.value_or(0) : 0));
  }
  for (int r = 0; r < rows(); ++r) {
    const auto row = sheet_.rows.find(page_.rows[static_cast<size_t>(r)].index);
    const Row* own = row == sheet_.rows.end() ? nullptr : &row->second;
    for (int c = 0; c < columns(); ++c) {
      Spot& place = spot(r, c);
      place.cell = own ? own->find(page_.columns[static_cast<size_t>(c)].index) : nullptr;
      place.style = place.cell          ? &model_.styles.style(place.cell->style)
                    : own && own->style ? &model_.styles.style(*own->style)
                                        : columnStyles[static_cast<size_t>(c)];
    }
  }
}

void PageDrawing::gatherMerges() {
  const auto range = [](const std::vector<Slice>& slices, int first, int last) {
    const auto from = lowerSlice(slices, first), to = lowerSlice(slices, last + 1);
    return std::pair(static_cast<int>(from - slices.begin()), static_cast<int>(to - slices.begin()) - 1);
  };
  size_t merged = 0;
  for (const CellBlock& block : sheet_.merges) {
    const auto [top, bottom] = range(page_.rows, block.firstRow, block.lastRow);
    const auto [left, right] = range(page_.columns, block.firstColumn, block.lastColumn);
    if (top > bottom || left > right) continue;
    const bool starts = !visibleBetween(block.firstRow, page_.rows[static_cast<size_t>(top)].index,
                                        [&](int row) { return rowHeight(sheet_, row); }) &&
                        !visibleBetween(block.firstColumn, page_.columns[static_cast<size_t>(left)].index,
                                        [&](int column) { return columnWidth(model_, sheet_, column); });
    merged += static_cast<size_t>(bottom - top + 1) * static_cast<size_t>(right - left + 1);
    if (merged > kMaxMerged) tooMuch();
    for (int r = top; r <= bottom; ++r)
      for (int c = left; c <= right; ++c) spot(r, c).merge = static_cast<int>(merges_.size());
    merges_.push_back({.firstRow = top,
                       .firstColumn = left,
                       .lastRow = bottom,
                       .lastColumn = right,
                       .cell = sheet_.cell(block.firstRow, block.firstColumn),
                       .style = &model_.styles.style(sheet_.styleAt(block.firstRow, block.firstColumn)),
                       .starts = starts});
  }
}

bool PageDrawing::blank(int row, int column) {
  const Spot& place = spot(row, column);
  return place.merge < 0 && (!place.cell || (place.cell->value.empty() && place.cell->formula < 0));
}

void PageDrawing::fills() {
  const auto fillAt = [&](int row, int column) {
    const Spot& place = spot(row, column);
    return place.merge < 0 ? place.style->fill : merges_[static_cast<size_t>(place.merge)].style->fill;
  };
  for (int r = 0; r < rows(); ++r)
    for (int c = 0; c < columns();) {
      const auto colour = fillAt(r, c);
      int last = c;
      while (last + 1 < columns() && fillAt(r, last + 1) == colour) ++last;
      if (colour) canvas_.fill(rect(r, c, r, last), *colour);
      c = last + 1;
    }
}

// The lines between cells are gathered first, so that each is drawn once and in one piece.
void PageDrawing::borders() {
  const auto width = static_cast<size_t>(columns()) + 1;
  std::vector<Side> above(static_cast<size_t>(rows() + 1) * width),
      before(static_cast<size_t>(rows() + 1) * width);
  const auto at = [&](std::vector<Side>& sides, int row, int column) -> Side& {
    return sides[static_cast<size_t>(row) * width + static_cast<size_t>(column)];
  };
  const Side grid{
      .line = Line::Hair, .dash = paint::Dash::Solid, .colour = {128, 128, 128}
  };
  for (int r = 0; r < rows(); ++r)
    for (int c = 0; c < columns(); ++c) {
      const Spot& place = spot(r, c);
      const Merge* merge = place.merge < 0 ? nullptr : &merges_[static_cast<size_t>(place.merge)];
      const auto put = [&](std::vector<Side>& sides, int row, int column, bool edge, const Side& side) {
        if (!edge) return;
        strengthen(at(sides, row, column), side);
        if (sheet_.page.gridLines) strengthen(at(sides, row, column), grid);
      };
      const Border& border = place.style->border;
      put(above, r, c, !merge || merge->firstRow == r, border.top);
      put(above, r + 1, c, !merge || merge->lastRow == r, border.bottom);
      put(before, r, c, !merge || merge->firstColumn == c, border.left);
      put(before, r, c + 1, !merge || merge->lastColumn == c, border.right);
    }
  const auto edge = [](const std::vector<Slice>& slices, int i) {
    return i < static_cast<int>(slices.size()) ? slices[static_cast<size_t>(i)].at
                                               : slices.back().at + slices.back().size;
  };
  const auto runs = [&](bool across, int lines, int places) {
    for (int line = 0; line <= lines; ++line)
      for (int first = 0; first < places;) {
        const auto side = [&](int i) -> Side& { return across ? at(above, line, i) : at(before, i, line); };
        int last = first;
        while (last + 1 < places && side(last + 1) == side(first)) ++last;
        rule(across, edge(across ? page_.rows : page_.columns, line),
             edge(across ? page_.columns : page_.rows, first),
             edge(across ? page_.columns : page_.rows, last + 1), side(first));
        first = last + 1;
      }
  };
  runs(true, rows(), columns());
  runs(false, columns(), rows());
}

// Lines from corner to corner, of a merged block once.
void PageDrawing::diagonals() {
  const auto cross = [&](const Border& border, const Rect& box) {
    const auto draw = [&](const Side& side, double from, double to) {
      if (side.line != Line::None)
        canvas_.line(box.x, from, box.x + box.w, to, widthOf(side.line) * scale_, side.colour, side.dash);
    };
    draw(border.up, box.y + box.h, box.y);
    draw(border.down, box.y, box.y + box.h);
  };
  for (int r = 0; r < rows(); ++r)
    for (int c = 0; c < columns(); ++c)
      if (spot(r, c).merge < 0) cross(spot(r, c).style->border, rect(r, c, r, c));
  for (const Merge& merge : merges_)
    cross(merge.style->border, rect(merge.firstRow, merge.firstColumn, merge.lastRow, merge.lastColumn));
}

void PageDrawing::rule(bool across, double along, double from, double to, const Side& side) {
  if (side.line == Line::None) return;
  const double width = widthOf(side.line) * scale_;
  const double reach = side.dash == paint::Dash::Solid ? width / 2 : 0;  // closes the corners
  const auto draw = [&](double place) {
    if (across)
      canvas_.line(from - reach, place, to + reach, place, width, side.colour, side.dash);
    else
      canvas_.line(place, from - reach, place, to + reach, width, side.colour, side.dash);
  };
  if (side.line == Line::Double) {
    draw(along - width);
    draw(along + width);
  } else {
    draw(along);
  }
}

void PageDrawing::texts() {
  for (int r = 0; r < rows(); ++r)
    for (int c = 0; c < columns(); ++c) {
      const Spot& place = spot(r, c);
      if (place.cell && place.merge < 0 && !place.cell->value.empty())
        text(r, c, *place.cell, *place.style, rect(r, c, r, c), false);
    }
  for (const Merge& merge : merges_)
    if (merge.starts && merge.cell && !merge.cell->value.empty())
      text(merge.firstRow, merge.firstColumn, *merge.cell, *merge.style,
           rect(merge.firstRow, merge.firstColumn, merge.lastRow, merge.lastColumn), true);
}

// A number that its format makes too wide loses decimals when the format is General, else
// it shows as "####".
std::string PageDrawing::fitted(const Cell& cell, const CellStyle& style, const paint::Font& font,
                                double room, Colour& colour) const {
  const NumberFormat& format = model_.styles.format(style);
  Shown shown = format.show(cell.value);
  if (shown.colour) colour = *shown.colour;
  if (!cell.value.number()) return shown.text;
  const double width = metrics_.width(shown.text, font);
  if (shown.fillAt && width < room && !shown.fill.empty()) {
    const double each = metrics_.width(shown.fill, font);
    const auto count = each > 0 ? static_cast<size_t>(std::min((room - width) / each, 500.0)) : 0;
    std::string filling;
    for (size_t i = 0; i < count; ++i) filling += shown.fill;
    shown.text.insert(*shown.fillAt, filling);
  }
  if (width <= room || style.shrink) return shown.text;
  if (format.general())
    for (int places = 10; places > 0; --places) {
      shown = format.show(cell.value, places);
      if (metrics_.width(shown.text, font) <= room) return shown.text;
    }
  const double sign = metrics_.width("#", font);
  return std::string(static_cast<size_t>(std::clamp(room / std::max(sign, 0.1), 1.0, 255.0)), '#');
}

// Where the cell's text stands by its style, without its words.
paint::Text PageDrawing::placed(const Value& value, const CellStyle& style, Rect box) const {
  const bool words = value.text() != nullptr;
  paint::Text text{.text = {}, .box = {}, .clip = box, .font = style.font, .colour = style.colour};
  text.font.size *= scale_;
  switch (style.across) {
    case Across::General:
      text.halign = words ? HAlign::Left : value.number() ? HAlign::Right : HAlign::Centre;
      break;
    case Across::Left:
    case Across::Fill:
      text.halign = HAlign::Left;
      break;
    case Across::Right:
      text.halign = HAlign::Right;
      break;
    case Across::Justify:
      text.halign = HAlign::Justify;
      break;
    case Across::Centre:
    case Across::CentreAcross:
      text.halign = HAlign::Centre;
      break;
  }
  text.valign = style.down;
  text.wrap = style.wrap && words;
  const double padding = kPadding * scale_;
  const double indent = text.halign == HAlign::Centre ? 0 : style.indent * kIndent * scale_;
  text.turn = style.turn;
  if (style.stacked && style.across == Across::General) text.halign = HAlign::Centre;
  text.box = {box.x + padding + (text.halign == HAlign::Right ? 0 : indent), box.y,
              std::max(box.w - 2 * padding - indent, 0.1), box.h};
  return text;
}

void PageDrawing::text(int row, int column, const Cell& cell, const CellStyle& style, Rect box, bool merged) {
  int last = column;
  if (style.across == Across::CentreAcross && !merged) {
    while (last + 1 < columns() && blank(row, last + 1) &&
           spot(row, last + 1).style->across == Across::CentreAcross)
      ++last;
    box = rect(row, column, row, last);
  }
  paint::Text drawn = placed(cell.value, style, box);
  const double along = drawn.turn == 0 ? drawn.box.w + kPadding * scale_ : box.h;
  std::string shown = fitted(cell, style, drawn.font, along, drawn.colour);
  if (style.stacked) {
    shown = stacked(shown);
    drawn.wrap = true;
  }
  if (!drawn.wrap) shown = oneLine(std::move(shown));
  if (shown.empty()) return;
  if ((letters_ += shown.size()) > kMaxLetters) tooMuch();
  drawn.text = shown;
  drawn.runs = runsOf(cell, drawn);
  const double width = drawn.wrap ? 0 : metrics_.width(drawn), room = drawn.box.w;
  if (drawn.turn != 0) {
    const double slack = kClipSlack * scale_;
    drawn.clip.x -= slack;
    drawn.clip.w += 2 * slack;
    drawn.wrap = drawn.wrap && drawn.upright();
  } else if (drawn.wrap) {
    // What does not fit is cut at its end, not at its beginning.
    if (drawn.valign != paint::VAlign::Top &&
        metrics_.wrappedHeight(shown, drawn.font, room) > box.h + kClipSlack * scale_)
      drawn.valign = paint::VAlign::Top;
  } else if (style.across == Across::Fill) {
    const std::string once = shown;
    for (double filled = 2 * width; width > 0 && filled <= room && shown.size() < 1000; filled += width)
      shown += once;
  } else if (style.shrink && width > room) {
    drawn.font.size = std::max(drawn.font.size * room / width, 1.0);
    for (paint::Text::Run& run : drawn.runs) run.font.size = std::max(run.font.size * room / width, 1.0);
  } else if (cell.value.text() && !merged && width > room) {
    drawn.clip = overflow(row, column, last, box.w + width - room, drawn.halign, box);
  }
  drawn.text = shown;
  drawn.clip.y -= kClipSlack * scale_;
  drawn.clip.h += 2 * kClipSlack * scale_;
  canvas_.text(drawn);
}

// The pieces of a text that has a look of its own.
std::vector<paint::Text::Run> PageDrawing::runsOf(const Cell& cell, const paint::Text& text) const {
  if (cell.rich < 0) return {};
  std::vector<paint::Text::Run> runs = model_.richTexts[static_cast<size_t>(cell.rich)];
  for (paint::Text::Run& run : runs) {
    if (run.font.size > 0) {
      run.font.size *= scale_;
    } else {
      run.font = text.font;
      run.colour = text.colour;
    }
  }
  return runs;
}

// The cell with the blank ones beside it that a long text may flow into.
Rect PageDrawing::overflow(int row, int firstColumn, int lastColumn, double needed, HAlign align, Rect box) {
  const double extra = needed - box.w;
  double left = align == HAlign::Right ? extra : align == HAlign::Centre ? extra / 2 : 0;
  double right = align == HAlign::Right ? 0 : align == HAlign::Centre ? extra / 2 : extra;
  while (left > 0 && firstColumn > 0 && blank(row, firstColumn - 1))
    left -= page_.columns[static_cast<size_t>(--firstColumn)].size;
  while (right > 0 && lastColumn + 1 < columns() && blank(row, lastColumn + 1))
    right -= page_.columns[static_cast<size_t>(++lastColumn)].size;
  return rect(row, firstColumn, row, lastColumn);
}

void PageDrawing::pictures() {
  for (const PlacedPicture& placed : layout_.pictures) {
    const auto row = lowerSlice(page_.rows, placed.row);
    const auto column = lowerSlice(page_.columns, placed.column);
    if (row == page_.rows.end() || row->index != placed.row || column == page_.columns.end() ||
        column->index != placed.column)
      continue;
    const Rect rect{column->at + placed.x * scale_, row->at + placed.y * scale_, placed.w * scale_,
                    placed.h * scale_};
    canvas_.picture(rect, *placed.picture->bytes, placed.picture->shown);
  }
}

}  // namespace workbook
