#include "platform/qt/layout_engine.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/words.h"
#include "platform/qt/layout_measure.h"
#include "platform/shown.h"

namespace layout {
namespace {

using namespace size;

class Engine {
 public:
  Engine(const Screen& screen, const Measure& measure)
      : screen_(screen), m_(measure), sizes_(screen, measure) {
    plan_.spots.resize(screen.controls.size());
  }

  Plan run(int width, int height) {
    const Layout& layout = screen_.spec.layout;
    Rect area{0, 0, width, height};
    if (screen_.spec.window == Window::Dialog) {
      const int frame = m_.px(kDialogFrame);
      area = area.inset(frame, frame);
      cutStrip(area, m_.px(kDialogTitle));
    } else if (screen_.spec.window == Window::Child) {
      cutStrip(area, m_.px(kModeStrip));
    } else if (layout.width > 0 && layout.height <= 0) {
      const int own = std::min(width, m_.px(layout.width + 2 * layout.margin));
      area.x = (width - own) / 2;
      area.w = own;
    }
    area = area.inset(m_.px(sizes_.margin()), m_.px(sizes_.margin() * 0.75));
    placeBands(layout.bands, area);
    placeGrids();
    for (const auto& [group, box] : boxes_) placeControls(*group, box);
    if (m_.small) placeSums();
    placeOverlays();
    joinBlocks();
    return std::move(plan_);
  }

 private:
  void cutStrip(Rect& area, int height) {
    plan_.strip = {area.x, area.y, area.w, height};
    area.y += height;
    area.h -= height;
  }

  size_t indexOf(const Control* control) const {
    const auto at = std::ranges::find_if(screen_.controls, [&](const auto& c) { return c.get() == control; });
    return static_cast<size_t>(at - screen_.controls.begin());
  }

  void placeBands(const std::vector<Band>& all, const Rect& area) {
    std::vector<const Band*> bands;
    for (const Band& band : all)
      if (!sizes_.folded(band)) bands.push_back(&band);
    std::vector<Length> lengths;
    std::vector<int> fixed;
    int gaps = 0;
    for (size_t i = 0; i < bands.size(); ++i) {
      lengths.push_back(bands[i]->height);
      fixed.push_back(bands[i]->height.unit == Length::Unit::Part ? 0 : m_.px(sizes_.natural(*bands[i])));
      if (i > 0) gaps += m_.px(sizes_.gapBetween(*bands[i - 1], *bands[i]));
    }
    const std::vector<int> heights = shares(lengths, fixed, {}, area.h - gaps);
    int y = area.y;
    for (size_t i = 0; i < bands.size(); ++i) {
      if (i > 0) y += m_.px(sizes_.gapBetween(*bands[i - 1], *bands[i]));
      placeGroups(*bands[i], {area.x, y, area.w, heights[i]});
      y += heights[i];
    }
  }

  void placeGroups(const Band& band, const Rect& area) {
    std::vector<Length> lengths;
    std::vector<int> fixed, least;
    for (const Group& g : band.groups) {
      lengths.push_back(g.width);
      if (m_.small) least.push_back(sizes_.leastWidth(g));
      const bool fits = g.width.unit == Length::Unit::Fit;
      fixed.push_back(g.width.unit == Length::Unit::Part ? 0
                      : fits                             ? sizes_.fitWidth(g)
                                                         : sizes_.ownWidth(g));
    }
    const int gap = sizes_.groupGap(band);
    const int gaps = gap * static_cast<int>(band.groups.empty() ? 0 : band.groups.size() - 1);
    const std::vector<int> widths = shares(lengths, fixed, least, area.w - gaps);
    int x = area.x;
    for (size_t i = 0; i < band.groups.size(); ++i) {
      const Group& g = band.groups[i];
      const Rect box{x, area.y, widths[i], area.h};
      boxes_.emplace_back(&g, box);
      plan_.groups.push_back({&g, box, sizes_.allHidden(g)});
      if (!g.bands.empty()) placeBands(g.bands, content(g, box));
      x += widths[i] + gap;
    }
  }

  void placeGrids() {
    for (const auto& [group, box] : boxes_) {
      if (ofLines(*group)) continue;
      const std::vector<size_t>& members = sizes_.members(*group);
      for (const size_t i : members) {
        const Control& c = *screen_.controls[i];
        if (c.kind != Kind::Grid) continue;
        Spot& spot = plan_.spots[i];
        const bool fills = group->columns.empty() && c.spec->at.row == 0 && c.spec->at.rows == 1;
        spot.box = fills ? (framed(*group) && members.size() > 1 ? content(*group, box) : box)
                         : cellOf(*group, box, c.spec->at);
        if (!fills && c.spec->at.rows == 1) spot.box.h = content(*group, box).bottom() - spot.box.y;
        spot.frame = group->frame;
        spot.rowHeight = m_.px(sizes_.rowHeight(*group));
        spot.lane = laneOf(c, spot);
        const unsigned without = m_.small ? leftOut(screen_, c) : 0;
        spot.edges = inner(columnEdges(c.grid.columns, spot.box.w - 2 - spot.lane, m_, without), 1);
      }
    }
  }

  // Lists that are only looked at have a lane when they need one; the others always.
  int laneOf(const Control& c, const Spot& spot) const {
    const size_t rows = static_cast<size_t>(std::max(0, spot.box.h) / std::max(1, spot.rowHeight));
    const bool fits = c.grid.count() + (c.grid.heading ? 1 : 0) <= rows;
    const bool looked = c.tab == 0 && !sizes_.isOfLines(c);
    return looked && (fits || screen_.spec.window == Window::Main) ? 0 : m_.px(kLane);
  }

  static std::vector<int> inner(std::vector<int> edges, int left) {
    for (int& e : edges) e += left;
    return edges;
  }

  Rect content(const Group& g, const Rect& box) const {
    return box.inset(m_.px(sizes_.insetX(g)), m_.px(sizes_.insetY(g)));
  }

  struct Cells {
    std::vector<int> x, w;
  };

  Cells cellsOf(const Group& g, const Rect& box) const {
    Cells cells;
    if (const Control* grid = g.columnsOf.empty() ? nullptr : sizes_.gridNamed(g.columnsOf)) {
      const Spot& spot = plan_.spots[indexOf(grid)];
      for (size_t i = 0; i + 1 < spot.edges.size(); ++i) {
        cells.x.push_back(box.x + spot.edges[i] + 1);
        cells.w.push_back(std::max(0, spot.edges[i + 1] - spot.edges[i] - 2));
      }
      return cells;
    }
    const Rect area = content(g, box);
    if (g.columns.empty()) return {{area.x}, {area.w}};
    std::vector<int> fixed;
    for (size_t i = 0; i < g.columns.size(); ++i) {
      const Length& l = g.columns[i];
      const bool fits = l.unit == Length::Unit::Fit;
      fixed.push_back(l.unit == Length::Unit::Px ? m_.px(l.n)
                      : fits                     ? sizes_.fitColumn(g, static_cast<int>(i))
                                                 : 0);
    }
    const int gap = m_.px(kColumnGap);
    cells.w = shares(g.columns, fixed, m_.small ? sizes_.leastColumns(g) : std::vector<int>{},
                     area.w - gap * static_cast<int>(g.columns.size() - 1));
    int x = area.x;
    for (const int w : cells.w) {
      cells.x.push_back(x);
      x += w + gap;
    }
    return cells;
  }

  bool labelsAlone(const Group& g, int row) const {
    return std::ranges::all_of(sizes_.members(g), [&](size_t i) {
      const Control& c = *screen_.controls[i];
      return c.kind == Kind::Label || c.spec->at.row + c.spec->at.rows - 1 < row;
    });
  }

  // From one row to the next; closer than asked for when the group is too low for its rows.
  double pitchOf(const Group& g, const Rect& area) const {
    const int rows = sizes_.rowsOf(g);
    const double own = sizes_.pitch(g) * m_.scale;
    if (rows < 2) return own;
    // A pixel or two may come off the lower inset instead; a last row of labels alone may reach into it.
    const double last =
        labelsAlone(g, rows - 1) ? std::min(m_.of(kLabelLine), sizes_.cellHeight(g)) : sizes_.cellHeight(g);
    const double room = (area.h + m_.px(2) - m_.px(last)) / static_cast<double>(rows - 1);
    return std::min(own, std::max(1.0, room));
  }

  Rect cellOf(const Group& g, const Rect& box, const Place& at) const {
    const Cells cells = cellsOf(g, box);
    const Rect area = content(g, box);
    const double pitch = pitchOf(g, area);
    const int last = static_cast<int>(cells.x.size()) - 1;
    const int from = std::clamp(at.col, 0, std::max(0, last)),
              to = std::clamp(at.col + at.span - 1, from, std::max(from, last));
    int top = area.y + static_cast<int>(std::lround(at.row * pitch));
    if (g.frame == Frame::Plain && sizes_.rowsOf(g) == 1)
      top += std::max(0, (area.h - m_.px(sizes_.cellHeight(g))) / 2);
    const int most = m_.px(sizes_.cellHeight(g));
    const int height = at.rows > 1 ? static_cast<int>(std::lround((at.rows - 1) * pitch)) + most
                                   : (sizes_.rowsOf(g) > 1 ? std::min(most, static_cast<int>(pitch))
                                                           : std::min(most, area.h));
    if (ofLines(g)) return {cells.x[from], box.y, cells.x[to] + cells.w[to] - cells.x[from], box.h};
    return {cells.x[from], top, cells.x[to] + cells.w[to] - cells.x[from], std::max(height, 1)};
  }

  void placeControls(const Group& g, const Rect& box) {
    const std::vector<size_t>& members = sizes_.members(g);
    if (members.empty()) return;
    if (g.frame == Frame::Buttons) return placeButtons(members, box);
    if (g.frame == Frame::Column) return placeColumn(members, box);
    if (ofLines(g) && !sizes_.gridNamed(g.columnsOf)) return;
    if (m_.small && g.frame == Frame::Keys) return;  // their strip is not there
    for (const size_t i : members) {
      const Control& c = *screen_.controls[i];
      plan_.spots[i].frame = g.frame;
      if (c.kind != Kind::Grid) placeInCell(g, box, c, plan_.spots[i]);
    }
  }

  void placeInCell(const Group& g, const Rect& box, const Control& c, Spot& spot) {
    const Place& at = c.spec->at;
    spot.box = c.kind == Kind::Chart ? box : cellOf(g, box, at);
    const bool titled = g.frame == Frame::Heads || g.frame == Frame::Entry;  // by the heading row
    if (labelled(c) && !titled) placeLabel(g, box, c, spot);
    if (at.width > 0 && m_.px(at.width) < spot.box.w) {
      const int own = m_.px(at.width);
      if (at.right) spot.box.x += spot.box.w - own;
      spot.box.w = own;
    }
    double own = 0;
    if (c.kind == Kind::Button) own = at.rows > 1 ? 0 : m_.small ? kField.small : kButton.usual;
    if (c.editable() && c.style != Style::Amount) own = m_.of(kField);
    if (own > 0) {
      const int h = c.kind == Kind::Button ? m_.px(own) : std::min(m_.px(own), spot.box.h);
      spot.box.y += (spot.box.h - h) / 2;
      spot.box.h = h;
    }
    if (c.style == Style::Amount && c.editable()) {
      const int left = m_.px(10);
      spot.box.x += left;
      spot.box.w -= left;
    }
  }

  void placeLabel(const Group& g, const Rect& box, const Control& c, Spot& spot) {
    Place before = c.spec->at;
    if (before.col > 0) {
      before.col -= 1;
      before.span = 1;
      before.rows = 1;
      spot.label = cellOf(g, box, before);
      spot.label.w -= ofLines(g) ? 0 : m_.px(2);
      return;
    }
    // No cell before it: the label takes its width from the field.
    const int w = m_.width(words(c.label), Style::Quiet) + m_.px(2);
    spot.label = {spot.box.x, spot.box.y, w, spot.box.h};
    spot.box.x += w + m_.px(kColumnGap);
    spot.box.w -= w + m_.px(kColumnGap);
  }

  void placeButtons(const std::vector<size_t>& members, const Rect& box) {
    const int gap = m_.px(kButtonGap), h = m_.px(kButton), y = box.y + (box.h - h) / 2;
    const auto widthOf = [&](const Control& c) {
      return c.kind == Kind::Button ? sizes_.buttonWidth(c)
             : c.spec->at.width > 0 ? m_.px(c.spec->at.width)
                                    : m_.width(plainCaption(shownText(c)), c.style) + m_.px(26);
    };
    int left = box.x, right = box.right();
    for (const size_t i : members) {
      const Control& c = *screen_.controls[i];
      plan_.spots[i].frame = Frame::Buttons;
      if (!c.visible || c.spec->at.right) continue;
      plan_.spots[i].box = {left, y, widthOf(c), h};
      left += widthOf(c) + gap;
    }
    for (auto i = members.rbegin(); i != members.rend(); ++i) {
      const Control& c = *screen_.controls[*i];
      if (!c.visible || !c.spec->at.right) continue;
      right -= widthOf(c);
      plan_.spots[*i].box = {right, y, widthOf(c), h};
      right -= gap;
    }
    if (plan_.reason.empty()) plan_.reason = {left + m_.px(6), y, std::max(0, right - left - m_.px(6)), h};
  }

  // Without the strip of keys its figures stand at the right end of the buttons.
  void placeSums() {
    if (plan_.reason.empty()) return;
    Rect& room = plan_.reason;
    const std::vector<size_t> sums = sizes_.sums();
    for (auto i = sums.rbegin(); i != sums.rend(); ++i) {
      const int w = sizes_.sumWidth(*screen_.controls[*i]);
      plan_.spots[*i].frame = Frame::Buttons;
      plan_.spots[*i].box = {room.right() - w, room.y, w, room.h};
      room.w = std::max(0, room.w - w);
    }
  }

  void placeColumn(const std::vector<size_t>& members, const Rect& box) {
    int y = box.y;
    for (const size_t i : members) {
      const Control& c = *screen_.controls[i];
      plan_.spots[i].frame = Frame::Column;
      if (!c.visible) continue;
      const int h = c.kind == Kind::Button ? m_.px(kButton) : m_.px(kGridRow);
      plan_.spots[i].box = {box.x, y, box.w, h};
      y += h + m_.px(kButtonPitch) - m_.px(kButton);
    }
  }

  void placeOverlays() {
    for (size_t i = 0; i < screen_.controls.size(); ++i) {
      const Control& c = *screen_.controls[i];
      const Control* base = c.spec->over.empty() ? nullptr : sizes_.gridNamed(c.spec->over);
      if (!base || c.kind != Kind::Grid) continue;
      const Spot& under = plan_.spots[indexOf(base)];
      Spot& spot = plan_.spots[i];
      const int frame = m_.px(kDialogFrame);
      spot.overlay = true;
      spot.frame = under.frame;
      spot.rowHeight = under.rowHeight;
      spot.edges = inner(columnEdges(c.grid.columns, m_.px(c.spec->overWidth) - 2 * frame, m_), frame);
      const auto edge = [](const std::vector<int>& e, int n) {
        return e.empty() ? 0 : e[static_cast<size_t>(std::clamp(n, 0, static_cast<int>(e.size()) - 1))];
      };
      // It stands where its table says, whatever columns it shows just now.
      const auto own = inner(columnEdges(c.spec->columns, m_.px(c.spec->overWidth) - 2 * frame, m_), frame);
      const int x = under.box.x + edge(under.edges, c.spec->overIts) - edge(own, c.spec->overOwn);
      const auto rows = static_cast<int>(std::clamp<size_t>(c.grid.count(), 1, 100));
      const int h = (rows + (c.grid.heading ? 1 : 0)) * spot.rowHeight + 2 * frame;
      const int w = m_.px(c.spec->overWidth);
      spot.box = {std::max(std::min(x, under.box.right() - w), under.box.x), under.box.y, w,
                  std::min(h, under.box.h)};
    }
  }

  void joinBlocks() {
    for (const auto& [group, box] : boxes_) {
      if (!ofLines(*group)) continue;
      const Control* grid = sizes_.gridNamed(group->columnsOf);
      if (!grid) continue;
      auto block = std::ranges::find(plan_.blocks, grid, &BlockSpot::grid);
      if (block == plan_.blocks.end()) {
        Spot& spot = plan_.spots[indexOf(grid)];
        spot.joined = true;
        plan_.blocks.push_back({grid, spot.box, {}, {}, {}});
        block = plan_.blocks.end() - 1;
      }
      (group->frame == Frame::Heads   ? block->heads
       : group->frame == Frame::Entry ? block->entry
                                      : block->keys) = box;
      const int top = std::min(block->box.y, box.y), bottom = std::max(block->box.bottom(), box.bottom());
      block->box.y = top;
      block->box.h = bottom - top;
    }
  }

  const Screen& screen_;
  const Measure& m_;
  Plan plan_;
  Sizes sizes_;
  std::vector<std::pair<const Group*, Rect>> boxes_;
};

}  // namespace

bool isSmall(int width, int height) {
  constexpr int kUsualWidth = 1366, kUsualHeight = 690;  // without title bar and task bar
  return width < kUsualWidth || height < kUsualHeight;
}

double scaleFor(int width, int height) {
  const double fits = std::min(width / 1366.0, height / 768.0);
  return std::clamp(std::floor(fits * 4) / 4, 1.0, 1.5);
}

Plan arrange(const Screen& screen, int width, int height, const Measure& measure) {
  return Engine(screen, measure).run(width, height);
}

Rect placeDialog(const Screen& screen, const Rect& window, const Rect& area, const Measure& measure) {
  const Layout& layout = screen.spec.layout;
  const double ownWidth = screen.width > 0 ? screen.width : layout.width;
  const double ownHeight = screen.height > 0 ? screen.height : layout.height;
  const Anchor anchor = screen.anchor.value_or(layout.anchor);
  const int side = measure.px(kGap);
  Rect box;
  const bool fills = ownWidth <= 0 || ownWidth >= kFillingWidth;
  box.w = std::min(fills ? window.w : measure.px(ownWidth), window.w - 2 * side);
  box.h = ownHeight > 0 ? measure.px(ownHeight) : Sizes(screen, measure).dialogHeight();
  box.h = std::min(box.h, window.h - 2 * side);
  box.x = window.x + (window.w - box.w) / 2;
  switch (anchor) {
    case Anchor::Centre:
      box.y = window.y + (window.h - box.h) / 2;
      break;
    case Anchor::Top:
      box.y = area.y + measure.px(kModeStrip) + side;
      break;
    case Anchor::Bottom:
      box.y = window.bottom() - measure.px(kBottomAnchor) - box.h;
      break;
  }
  box.y = std::clamp(box.y, window.y, std::max(window.y, window.bottom() - box.h));
  return box;
}

}  // namespace layout
