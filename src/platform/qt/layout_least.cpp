#include <algorithm>
#include <numeric>
#include <sstream>

#include "base/number.h"
#include "base/words.h"
#include "platform/qt/layout_measure.h"
#include "platform/shown.h"

// What a small window's screen needs at the least, and what it does without.
namespace layout {
namespace {

using namespace size;

constexpr double kLeastField = 56, kLeastText = 40, kLeastGrid = 130, kLeastPicture = 200, kLeastFacts = 150;

// The widest of the lines of a text.
int widest(const std::string& text, Style style, const Measure& measure) {
  int most = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) most = std::max(most, measure.width(line, style));
  return most;
}

bool hasFigure(const std::string& text) { return Val(text) != 0; }

}  // namespace

double Sizes::leastHeight(const Group& g) const {
  double own = natural(g, m_.small);
  if (!g.bands.empty()) own = std::max(own, leastHeight(g.bands) + 2 * insetY(g));
  for (const size_t i : members(g)) {
    const Control& c = *screen_.controls[i];
    if (c.kind == Kind::Picture) own = std::min(own, kLeastPicture);
    if (c.kind != Kind::Grid) continue;
    const int least = screen_.spec.window == Window::Main ? kLeastRowsOfShell : kLeastRows;
    const int rows = least + (c.grid.heading && !isOfLines(c) ? 1 : 0);
    own = std::max(own, rows * rowHeight(g) + 2 + 2 * insetY(g));
  }
  return own;
}

double Sizes::leastHeight(const std::vector<Band>& bands) const {
  double sum = 0;
  const Band* above = nullptr;
  for (const Band& band : bands) {
    if (folded(band)) continue;
    if (above) sum += gapBetween(*above, band);
    above = &band;
    double most = 0;
    if (band.height.unit != Length::Unit::Part)
      most = natural(band);
    else
      for (const Group& g : band.groups) most = std::max(most, leastHeight(g));
    sum += most;
  }
  return sum;
}

// What a control asks for in its cell.
int Sizes::leastOf(const Control& c) const {
  const double own = c.spec->at.width;
  if (own > 0) return m_.px(own);
  switch (c.kind) {
    case Kind::Button:
      return buttonWidth(c);
    case Kind::Check:
      return m_.width(shownText(c), Style::Normal) + m_.px(26);
    case Kind::Text:
    case Kind::Date:
      return m_.px(kLeastField);
    case Kind::Grid:
      return m_.px(kLeastGrid);
    case Kind::Label:
      // Words are shown whole, facts as far as there is room.
      if (c.text == c.spec->label) return widest(shownText(c), c.style, m_);
      return m_.px(kLeastText);
    default:
      return m_.px(kLeastText);
  }
}

std::vector<size_t> Sizes::sums() const {
  std::vector<size_t> all;
  for (const size_t i : strips_)
    if (const Control& c = *screen_.controls[i]; c.visible && c.align == Align::Right) all.push_back(i);
  return all;
}

int Sizes::sumWidth(const Control& c) const {
  constexpr double kMoney = 104, kInsets = 14;
  return c.money ? m_.px(kMoney) : m_.width(shownText(c), c.style) + m_.px(kInsets);
}

std::vector<int> Sizes::leastColumns(const Group& g) const {
  std::vector<int> all;
  for (size_t i = 0; i < g.columns.size(); ++i) {
    const Length& l = g.columns[i];
    const auto column = static_cast<int>(i);
    int most = 0;
    bool filled = false;
    for (const size_t m : members(g)) {
      const Control& c = *screen_.controls[m];
      if (c.spec->at.col != column || !c.visible) continue;
      filled = true;
      if (c.spec->at.span == 1) most = std::max(most, leastOf(c));
    }
    // A column of labels is as narrow as they are; fields keep the width that their contents were given.
    if (l.least >= 0)
      most = m_.px(l.least);
    else if (l.unit == Length::Unit::Px)
      most = filled ? m_.px(l.n) : std::min(m_.px(l.n), fitColumn(g, column));
    else if (l.unit == Length::Unit::Fit || !filled)
      most = fitColumn(g, column);
    all.push_back(most);
  }
  for (const size_t m : members(g)) {
    const Control& c = *screen_.controls[m];
    const auto from = static_cast<size_t>(c.spec->at.col), to = from + static_cast<size_t>(c.spec->at.span);
    if (c.spec->at.span < 2 || to > all.size() || !c.visible) continue;
    const int gaps = m_.px(kColumnGap) * (c.spec->at.span - 1);
    const int missing =
        leastOf(c) - gaps -
        std::accumulate(all.begin() + c.spec->at.col, all.begin() + static_cast<std::ptrdiff_t>(to), 0);
    if (missing > 0) all[to - 1] += missing;
  }
  return all;
}

int Sizes::ownWidth(const Group& g) const {
  return m_.small && g.width.least >= 0 ? leastWidth(g) : m_.px(g.width.n);
}

int Sizes::leastWidth(const Group& g) const {
  const int border = 2 * m_.px(insetX(g));
  const bool isPx = g.width.unit == Length::Unit::Px;
  if (g.width.least >= 0 && !isPx) return m_.px(g.width.least);
  if (ofLines(g)) {
    const Control* grid = gridNamed(g.columnsOf);
    return grid ? leastColumnsWidth(grid->grid.columns, m_, leftOut(screen_, *grid)) + 2 + m_.px(kLane) : 0;
  }
  int own = g.bands.empty() ? 0 : leastWidth(g.bands) + border;
  if (g.frame == Frame::Buttons) {
    for (const size_t i : members(g))
      if (screen_.controls[i]->visible) own += leastOf(*screen_.controls[i]) + m_.px(kButtonGap);
    for (const size_t i : sums()) own += sumWidth(*screen_.controls[i]);
    return own;
  }
  if (!g.columns.empty()) {
    const std::vector<int> columns = leastColumns(g);
    const int gaps = m_.px(kColumnGap) * static_cast<int>(columns.size() - 1);
    own = std::max(own, std::accumulate(columns.begin(), columns.end(), gaps) + border);
  } else {
    for (const size_t i : members(g)) {
      const Control& c = *screen_.controls[i];
      if (!c.visible && c.kind != Kind::Grid) continue;
      const bool facts = c.kind == Kind::Label && c.text != c.spec->label;
      const int label = labelled(c) ? m_.width(words(c.label), Style::Quiet) + m_.px(kColumnGap) : 0;
      own = std::max(own, (facts ? m_.px(kLeastFacts) : leastOf(c)) + label + border);
    }
  }
  if (isPx) own = std::clamp(own, m_.px(std::max(0.0, g.width.least)), m_.px(g.width.n));
  return own;
}

int Sizes::leastWidth(const std::vector<Band>& bands) const {
  int most = 0;
  for (const Band& band : bands) {
    if (band.folds && folded(band)) continue;
    int sum = groupGap(band) * static_cast<int>(band.groups.empty() ? 0 : band.groups.size() - 1);
    for (const Group& g : band.groups) sum += leastWidth(g);
    most = std::max(most, sum);
  }
  return most;
}

Rect leastSize(const Screen& screen, const Measure& measure) {
  const bool empty = std::ranges::none_of(screen.controls, [](const auto& c) { return c->visible; });
  if (!measure.small || empty) return {};
  const Sizes sizes(screen, measure);
  const Layout& layout = screen.spec.layout;
  const bool dialog = screen.spec.window == Window::Dialog;
  const double frame = dialog ? 2 * measure.of(kDialogFrame) : 0;
  const double strip = dialog                                ? measure.of(kDialogTitle)
                       : screen.spec.window == Window::Child ? measure.of(kModeStrip)
                                                             : 0;
  const double height = sizes.leastHeight(layout.bands) + 1.5 * sizes.margin() + frame + strip;
  return {0, 0, sizes.leastWidth(layout.bands) + measure.px(2 * sizes.margin() + frame), measure.px(height)};
}

unsigned leftOut(const Screen& screen, const Control& grid) {
  unsigned all = 0, full = 0;
  const std::vector<GridColumn>& columns = grid.grid.columns;
  const auto bit = [&](size_t column) { return 1U << columns[column].spare; };
  for (size_t column = 0; column < columns.size(); ++column) {
    if (columns[column].spare <= 0) continue;
    all |= bit(column);
    for (size_t row = 0; row < grid.grid.count() && (full & bit(column)) == 0; ++row)
      if (hasFigure(grid.grid.cell(row, column).text)) full |= bit(column);
  }
  if (all == 0) return 0;
  for (const auto& c : screen.controls) {
    const auto column = static_cast<size_t>(c->spec->at.col);
    if (!c->ofLine() || column >= columns.size() || columns[column].spare <= 0) continue;
    if (hasFigure(c->text) || c.get() == screen.focused()) full |= bit(column);
  }
  const unsigned out = all & ~full;
  return out == all ? all & (all - 1) : out;
}

}  // namespace layout
