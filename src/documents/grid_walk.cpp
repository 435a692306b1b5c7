#include "documents/grid_walk.h"

#include "base/number.h"
#include "frame/session.h"

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
  if (place.numeric)
    return {.x = place.right() - kFigureEnd,
            .y = y,
            .room = place.width - kFigureEnd - kGap,
            .right = true,
            .column = place.column};
  return {.x = place.left + kIndent, .y = y, .room = place.width - kIndent - kGap, .column = place.column};
}

void row(const Grid& grid, const GridLayout& layout, GridPaper& paper, size_t number, double y) {
  const bool bold = grid.cell(number, 0).text.starts_with('*');
  for (const GridPlace& place : layout.columns) {
    GridText text = inColumn(place, y);
    std::string words = grid.cell(number, place.column).text;
    if (words.empty()) continue;
    if (place.numeric) {
      text.text = std::move(words);
    } else {
      GridWords shown = gridWords(std::move(words), place.twips, paper.kind());
      text.text = std::move(shown.text);
      text.narrow = shown.narrow;
    }
    text.bold = bold;
    paper.text(text);
  }
}

}  // namespace

void layTitles(const Grid& grid, const GridLayout& layout, GridPaper& paper, double y) {
  paper.rule(layout.left - 1, y + kTitleTop, layout.right, y + kTitleTop);
  rules(layout, paper, y - kTitleBottom, y + kTitleTop);
  for (const GridPlace& place : layout.columns) {
    if (place.column >= grid.columns.size()) continue;
    GridText text = inColumn(place, y);
    text.text = grid.columns[place.column].title;
    paper.text(text);
  }
}

void layGrid(const Grid& grid, const GridLayout& layout, GridPaper& paper) {
  Session& s = session();
  int page = 0;
  double y = 0;
  const auto newPage = [&] {
    s.mpageno = numText(++page);
    s.mlinecount = 1;
    y = paper.startPage(page) - kFirst;
  };
  newPage();
  for (size_t i = 0; i < grid.count(); ++i) {
    row(grid, layout, paper, i, y);
    y -= kPitch;
    if (layout.ruled) rules(layout, paper, y + kRuleAbove, y + kEdgeTop);
    s.mlinecount += 1;
    if (s.mlinecount <= layout.rows) continue;
    paper.endPage();
    newPage();
  }
  paper.endPage();
}
