#include "documents/grid_walk.h"

#include <utility>

#include "base/number.h"
#include "base/pattern.h"

namespace {

constexpr double kPitch = 12.5;                     // from row to row
constexpr double kFirst = 13;                       // from the titles to the first row: as tall as the others
constexpr double kTitleTop = 10, kTitleBottom = 5;  // of the rules around the titles
constexpr double kRuleAbove = 8, kEdgeTop = 23;     // above the next row's line
constexpr double kIndent = 4, kFigureEnd = 10;      // from the column's left and right edge
constexpr double kGap = 1.5;                        // at least, from the other edge

void rules(const GridLayout& layout, GridPaper& paper, double bottom, double top) {
  paper.rule(layout.left - 1, bottom, layout.right, bottom);
  paper.rule(layout.left - 1, bottom, layout.left - 1, top);
  for (const GridPlace& place : layout.columns) paper.rule(place.right(), bottom, place.right(), top);
}

GridText inColumn(const GridPlace& place, double y) {
  if (place.toRight)
    return {.x = place.right() - kFigureEnd, .y = y, .room = place.width - kFigureEnd - kGap, .right = true};
  return {.x = place.left + kIndent, .y = y, .room = place.width - kIndent - kGap};
}

void row(const TypedRows& rows, const GridLayout& layout, GridPaper& paper, size_t number, double y) {
  const bool bold = rows.cell(number, 0).text.starts_with('*');
  for (const GridPlace& place : layout.columns) {
    GridText text = inColumn(place, y);
    text.text = rows.cell(number, place.column).text;
    if (text.text.empty()) continue;
    const ColumnType type = rows.type(number, place.column);
    if (type == ColumnType::Money && isNumberText(text.text)) text.text = indianGroups(text.text);
    if (!place.toRight) {
      GridWords shown = gridWords(std::move(text.text), type, place.twips, paper.kind());
      text.text = std::move(shown.text);
      text.narrow = shown.narrow;
    }
    text.bold = bold;
    paper.text(text);
  }
}

}  // namespace

void layTitles(const GridOutput& out, const GridLayout& layout, GridPaper& paper, double y) {
  paper.rule(layout.left - 1, y + kTitleTop, layout.right, y + kTitleTop);
  rules(layout, paper, y - kTitleBottom, y + kTitleTop);
  for (const GridPlace& place : layout.columns) {
    GridText text = inColumn(place, y);
    text.text = out.columns[place.column].heading;
    paper.text(text);
  }
}

void layGrid(const GridOutput& out, const GridLayout& layout, GridPaper& paper) {
  int page = 0, lines = 0;  // on it
  double y = 0;
  const auto newPage = [&] {
    lines = 0;
    y = paper.startPage(++page) - kFirst;
  };
  newPage();
  for (size_t i = 0; i < out.count(); ++i) {
    row(*out.rows, layout, paper, i, y);
    y -= kPitch;
    if (layout.ruled) rules(layout, paper, y + kRuleAbove, y + kEdgeTop);
    if (++lines < layout.rows) continue;
    paper.endPage();
    newPage();
  }
  paper.endPage();
}
