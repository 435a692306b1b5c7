#include "platform/qt/layout_measure.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "base/words.h"
#include "platform/shown.h"

namespace layout {

using namespace size;

bool roomy(const Group& g) {
  const auto inside = [](const Band& b) { return std::ranges::any_of(b.groups, roomy); };
  return g.pitch > kPitch || std::ranges::any_of(g.bands, inside);
}

bool framed(const Group& g) { return g.frame == Frame::Panel || g.frame == Frame::Off; }

bool ofLines(const Group& g) {
  return g.frame == Frame::Heads || g.frame == Frame::Entry || g.frame == Frame::Keys;
}

double insetX(const Group& g) {
  return !framed(g) ? 0 : g.pitch == kPitch && g.frame == Frame::Panel ? 11 : 15;
}

double insetY(const Group& g) { return !framed(g) ? 0 : roomy(g) ? 11 : 8; }

double cellHeight(const Group& g) { return g.pitch >= kPitch ? kField : g.pitch; }

bool labelled(const Control& c) {
  const bool beside = c.editable() || c.kind == Kind::Progress || c.kind == Kind::Picture;
  return beside && !c.label.empty() && c.style != Style::Amount;
}

std::vector<int> shares(const std::vector<Length>& lengths, const std::vector<int>& fixed, int total) {
  std::vector<int> out = fixed;
  double parts = 0;
  int used = 0;
  for (size_t i = 0; i < lengths.size(); ++i) {
    if (lengths[i].unit == Length::Unit::Part)
      parts += lengths[i].n;
    else
      used += fixed[i];
  }
  const int rest = std::max(0, total - used);
  double taken = 0;
  for (size_t i = 0; i < lengths.size(); ++i) {
    if (lengths[i].unit != Length::Unit::Part || parts <= 0) continue;
    const int from = static_cast<int>(std::lround(rest * taken / parts));
    taken += lengths[i].n;
    out[i] = static_cast<int>(std::lround(rest * taken / parts)) - from;
  }
  if (used <= total) return out;
  // Too narrow for what is fixed: all give way alike.
  int at = 0, sum = 0;
  for (int& w : out) {
    sum += w;
    const int to = static_cast<int>(std::lround(static_cast<double>(sum) * total / used));
    w = to - at;
    at = to;
  }
  return out;
}

int Measure::px(double n) const { return static_cast<int>(std::lround(n * scale)); }

std::string plainCaption(const std::string& caption) {
  std::string out;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size() && caption[i + 1] != ' ') ++i;
    out += caption[i];
  }
  return out;
}

std::vector<int> columnEdges(const std::vector<GridColumn>& columns, int width, const Measure& measure) {
  std::vector<Length> lengths;
  std::vector<int> fixed;
  bool anyPart = false;
  for (const GridColumn& c : columns) {
    const bool hidden = c.width.unit != Length::Unit::Fit && c.width.n <= 0;
    lengths.push_back(hidden ? ::px(0) : c.width);
    anyPart = anyPart || lengths.back().unit == Length::Unit::Part;
  }
  if (!anyPart)  // fixed widths alone share the whole, so that no lane of white is left
    for (Length& l : lengths)
      if (l.unit == Length::Unit::Px) l.unit = Length::Unit::Part;
  for (size_t i = 0; i < columns.size(); ++i) {
    const bool fits = lengths[i].unit == Length::Unit::Fit;
    fixed.push_back(fits ? measure.width(words(columns[i].title), Style::Key) + 2 * measure.px(kCellInset)
                    : lengths[i].unit == Length::Unit::Px ? measure.px(lengths[i].n)
                                                          : 0);
  }
  const std::vector<int> widths = shares(lengths, fixed, std::max(0, width));
  std::vector<int> edges{0};
  for (const int w : widths) edges.push_back(edges.back() + w);
  return edges;
}

Sizes::Sizes(const Screen& screen, const Measure& measure) : screen_(screen), m_(measure) {
  for (size_t i = 0; i < screen.controls.size(); ++i) {
    const ControlSpec& spec = *screen.controls[i]->spec;
    if (spec.over.empty() && !spec.at.group.empty()) members_[spec.at.group].push_back(i);
  }
}

const std::vector<size_t>& Sizes::members(const Group& g) const {
  static const std::vector<size_t> none;
  const auto found = members_.find(g.name);
  return found == members_.end() ? none : found->second;
}

const Control* Sizes::gridNamed(const std::string& name) const {
  for (const auto& c : screen_.controls)
    if (c->kind == Kind::Grid && (sameText(c->fullName(), name) || sameText(c->family, name))) return c.get();
  return nullptr;
}

bool Sizes::allHidden(const Group& g) const {
  const auto shown = [this](size_t i) { return screen_.controls[i]->visible; };
  return !members(g).empty() && std::ranges::none_of(members(g), shown);
}

// A chart that is put away leaves its room to the others.
bool Sizes::folded(const Band& band) const {
  const auto chart = [this](size_t i) { return screen_.controls[i]->kind == Kind::Chart; };
  return !band.groups.empty() && std::ranges::all_of(band.groups, [&](const Group& g) {
    return allHidden(g) && std::ranges::all_of(members(g), chart);
  });
}

int Sizes::rowsOf(const Group& g) const {
  int rows = 0;
  for (const size_t i : members(g)) {
    const Place& at = screen_.controls[i]->spec->at;
    rows = std::max(rows, at.row + at.rows);
  }
  return rows;
}

double Sizes::natural(const Group& g) const {
  switch (g.frame) {
    case Frame::Heads:
      return kHeads;
    case Frame::Entry:
      return kEntry;
    case Frame::Keys:
      return kKeys;
    case Frame::Buttons:
      return kButtonBand;
    case Frame::Column: {
      const size_t n = members(g).size();
      return n == 0 ? 0 : static_cast<double>(n) * kButtonPitch - (kButtonPitch - kButton);
    }
    default:
      break;
  }
  const double inside = g.bands.empty() ? 0 : natural(g.bands);
  const int rows = rowsOf(g);
  const double own = rows == 0 ? 0 : (rows - 1) * g.pitch + cellHeight(g);
  return std::max(inside, own) + 2 * insetY(g);
}

double Sizes::natural(const Band& band) const {
  if (band.height.unit == Length::Unit::Px) return band.height.n;
  double most = 0;
  for (const Group& g : band.groups) most = std::max(most, natural(g));
  return most;
}

double Sizes::natural(const std::vector<Band>& bands) const {
  double sum = 0;
  for (size_t i = 0; i < bands.size(); ++i)
    sum += natural(bands[i]) + (i > 0 ? gapBetween(bands[i - 1], bands[i]) : 0);
  return sum;
}

const Control* Sizes::linesOf(const Band& band) const {
  if (band.groups.size() != 1) return nullptr;
  const Group& g = band.groups.front();
  if (ofLines(g)) return gridNamed(g.columnsOf);
  for (const size_t i : members(g))
    if (screen_.controls[i]->kind == Kind::Grid) return screen_.controls[i].get();
  return nullptr;
}

// Rows that belong to one grid of lines stand without a gap between them.
bool Sizes::joined(const Band& above, const Band& below) const {
  return above.groups.size() == 1 && ofLines(above.groups.front()) && linesOf(above) &&
         linesOf(above) == linesOf(below);
}

bool Sizes::isSectionHead(const Group& g) const {
  const auto heading = [this](size_t i) {
    return screen_.controls[i]->kind == Kind::Label && screen_.controls[i]->style == Style::Section;
  };
  return g.frame == Frame::Plain && g.bands.empty() && !members(g).empty() &&
         std::ranges::all_of(members(g), heading);
}

double Sizes::gapBetween(const Band& above, const Band& below) const {
  if (joined(above, below)) return 0;
  const auto has = [](const Band& b, auto test) { return std::ranges::any_of(b.groups, test); };
  const auto buttons = [](const Group& g) { return g.frame == Frame::Buttons; };
  const auto free = [](const Group& g) { return roomy(g) && framed(g); };
  if (has(below, buttons)) return kGap;
  if (std::ranges::all_of(above.groups, [this](const Group& g) { return isSectionHead(g); })) return kHeadGap;
  const double gap = screen_.spec.layout.gap;
  return has(above, free) && has(below, free) ? std::max(gap, kRoomyGap) : gap;
}

int Sizes::dialogHeight() const {
  const Layout& layout = screen_.spec.layout;
  const double inside = natural(layout.bands) + layout.margin * 1.5;
  return m_.px(inside + 2 * kDialogFrame + kDialogTitle);
}

int Sizes::fitWidth(const Group& g) const {
  int sum = 2 * m_.px(insetX(g)), columns = 0;
  for (const Length& l : g.columns) {
    sum += l.unit == Length::Unit::Px ? m_.px(l.n) : fitColumn(g, columns);
    ++columns;
  }
  return sum + std::max(0, columns - 1) * m_.px(kColumnGap);
}

int Sizes::fitColumn(const Group& g, int column) const {
  if (members(g).empty()) return 0;
  int most = 0;
  for (const size_t i : members(g)) {
    const Control& c = *screen_.controls[i];
    const Place& at = c.spec->at;
    if (labelled(c) && at.col == column + 1) most = std::max(most, m_.width(words(c.label), Style::Quiet));
    if (at.col != column || at.span != 1) continue;
    if (c.kind == Kind::Label) most = std::max(most, m_.width(shownText(c), c.style));
    if (c.kind == Kind::Check) most = std::max(most, m_.width(shownText(c), Style::Normal) + m_.px(26));
    if (c.kind == Kind::Button) most = std::max(most, buttonWidth(c));
  }
  return most + m_.px(2);
}

int Sizes::buttonWidth(const Control& c) const {
  const double own = c.spec->at.width;
  if (own > 0) return m_.px(own);
  return std::max(m_.px(kButtonWidth),
                  m_.width(plainCaption(shownText(c)), Style::Head == c.style ? c.style : Style::Key) +
                      2 * m_.px(kButtonInset));
}

}  // namespace layout
