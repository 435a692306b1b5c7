#include "platform/qt/layout_measure.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/text.h"
#include "base/words.h"
#include "platform/shown.h"

namespace layout {

using namespace size;

bool roomy(const Group& g) {
  const auto inside = [](const Band& b) { return std::ranges::any_of(b.groups, roomy); };
  return g.pitch > kPitch.usual || std::ranges::any_of(g.bands, inside);
}

namespace {

double insetYOf(const Group& g, bool small) {
  constexpr double kSmall = 6;
  return !framed(g) ? 0 : small ? kSmall : roomy(g) ? 11 : 8;
}

// On a small window rows of fields stand close, and so do the words of a card.
double pitchOf(const Group& g, bool small) {
  constexpr double kMostOfFields = 40, kOfCards = 24;
  if (!small || g.pitch > kMostOfFields) return g.pitch;
  return g.pitch >= kPitch.usual ? kPitch.small : framed(g) ? std::min(g.pitch, kOfCards) : g.pitch;
}

double cellHeightOf(const Group& g, bool small) {
  return g.pitch >= kPitch.usual ? (small ? kField.small : kField.usual) : pitchOf(g, small);
}

}  // namespace

bool framed(const Group& g) { return g.frame == Frame::Panel || g.frame == Frame::Off; }

bool ofLines(const Group& g) {
  return g.frame == Frame::Heads || g.frame == Frame::Entry || g.frame == Frame::Keys;
}

bool labelled(const Control& c) {
  const bool beside = c.editable() || c.kind == Kind::Progress || c.kind == Kind::Picture;
  return beside && !c.label.empty() && c.style != Style::Amount;
}

std::vector<int> shares(const std::vector<Length>& lengths, std::vector<int> fixed,
                        const std::vector<int>& least, int total) {
  const auto isPart = [&](size_t i) { return lengths[i].unit == Length::Unit::Part; };
  const auto leastOf = [&](size_t i) { return i < least.size() ? least[i] : isPart(i) ? 0 : fixed[i]; };
  int needed = 0, spare = 0;
  for (size_t i = 0; i < lengths.size(); ++i) {
    needed += isPart(i) ? leastOf(i) : fixed[i];
    if (!isPart(i)) spare += std::max(0, fixed[i] - leastOf(i));
  }
  if (needed > total && spare > 0) {
    const double share = std::min(1.0, static_cast<double>(needed - total) / spare);
    for (size_t i = 0; i < lengths.size(); ++i)
      if (!isPart(i)) fixed[i] -= static_cast<int>(std::ceil(share * std::max(0, fixed[i] - leastOf(i))));
  }

  // A part that its share would leave below its least is given that, and the others share the rest.
  std::vector<int> out = fixed;
  std::vector<bool> held(lengths.size());
  for (bool again = true; again;) {
    again = false;
    double parts = 0;
    int used = 0;
    for (size_t i = 0; i < lengths.size(); ++i) {
      if (isPart(i) && !held[i])
        parts += lengths[i].n;
      else
        used += out[i];
    }
    const int rest = std::max(0, total - used);
    double taken = 0;
    for (size_t i = 0; i < lengths.size(); ++i) {
      if (!isPart(i) || held[i] || parts <= 0) continue;
      const int from = static_cast<int>(std::lround(rest * taken / parts));
      taken += lengths[i].n;
      out[i] = static_cast<int>(std::lround(rest * taken / parts)) - from;
    }
    for (size_t i = 0; i < lengths.size() && !again; ++i) {
      if (!isPart(i) || held[i] || out[i] >= leastOf(i)) continue;
      out[i] = leastOf(i);
      held[i] = again = true;
    }
  }
  const int used = std::accumulate(out.begin(), out.end(), 0);
  if (used <= total) return out;
  // Too narrow for all that: everything gives way alike.
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

namespace {

struct Widths {
  std::vector<Length> lengths;
  std::vector<int> fixed, least;
};

// What the columns of a grid ask for; one that is hidden or left out asks for nothing.
Widths widthsOf(const std::vector<GridColumn>& columns, const Measure& measure, unsigned without) {
  constexpr double kNarrow = 60, kMoney = 84, kText = 120;
  Widths all;
  bool anyPart = false, anyPx = false;
  for (const GridColumn& c : columns) {
    const bool hidden = (c.width.unit != Length::Unit::Fit && c.width.n <= 0) ||
                        (c.spare > 0 && (without >> c.spare & 1U) != 0);
    all.lengths.push_back(hidden ? ::px(0) : c.width);
    anyPart = anyPart || all.lengths.back().unit == Length::Unit::Part;
    anyPx = anyPx || (!hidden && all.lengths.back().unit == Length::Unit::Px);
  }
  if (!anyPart)  // fixed widths alone share the whole, so that no lane of white is left
    for (Length& l : all.lengths)
      if (l.unit == Length::Unit::Px) l.unit = Length::Unit::Part;
  for (size_t i = 0; i < columns.size(); ++i) {
    const Length& l = all.lengths[i];
    const bool isPx = l.unit == Length::Unit::Px || !anyPart, hidden = isPx && l.n <= 0;
    const int titled =
        hidden ? 0 : measure.width(words(columns[i].title), Style::Key) + 2 * measure.px(kCellInset);
    const int own = l.unit == Length::Unit::Fit ? titled : isPx ? measure.px(l.n) : 0;
    all.fixed.push_back(l.unit == Length::Unit::Part ? 0 : own);
    const int inset = measure.px(2 * (kCellInset.usual - kCellInset.small));
    // What stretches beside fixed columns is a name or a description.
    const int narrow = measure.px(columns[i].money ? kMoney : anyPart && anyPx ? kText : kNarrow);
    all.least.push_back(hidden                        ? 0
                        : l.least >= 0                ? measure.px(l.least)
                        : l.unit == Length::Unit::Fit ? own
                        : isPx                        ? std::max(0, own - inset)
                        : columns[i].headSpan > 1     ? narrow
                                                      : std::max(titled, narrow));
  }
  return all;
}

// Fixed columns give way until the names and descriptions are as wide as reads well.
void makeRoomForNames(Widths& all, int width, const Measure& measure) {
  constexpr double kReadsWell = 220;
  std::vector<int> wanted = all.least;
  for (size_t i = 0; i < wanted.size(); ++i)
    if (all.lengths[i].unit == Length::Unit::Part) wanted[i] = std::max(wanted[i], measure.px(kReadsWell));
  if (std::accumulate(wanted.begin(), wanted.end(), 0) <= width)
    all.least = wanted;
  else
    for (size_t i = 0; i < wanted.size(); ++i)
      if (all.lengths[i].unit != Length::Unit::Part) all.fixed[i] = all.least[i];
}

}  // namespace

int leastColumnsWidth(const std::vector<GridColumn>& columns, const Measure& measure, unsigned without) {
  const Widths all = widthsOf(columns, measure, without);
  return std::accumulate(all.least.begin(), all.least.end(), 0);
}

std::vector<int> columnEdges(const std::vector<GridColumn>& columns, int width, const Measure& measure,
                             unsigned without) {
  Widths all = widthsOf(columns, measure, without);
  if (measure.small) {
    width = std::max(width, std::accumulate(all.least.begin(), all.least.end(), 0));
    makeRoomForNames(all, width, measure);
  } else {
    all.least.clear();
  }
  const std::vector<int> widths = shares(all.lengths, all.fixed, all.least, std::max(0, width));
  std::vector<int> edges{0};
  for (const int w : widths) edges.push_back(edges.back() + w);
  return edges;
}

Sizes::Sizes(const Screen& screen, const Measure& measure) : screen_(screen), m_(measure) {
  for (size_t i = 0; i < screen.controls.size(); ++i) {
    const ControlSpec& spec = *screen.controls[i]->spec;
    if (spec.over.empty() && !spec.at.group.empty()) members_[spec.at.group].push_back(i);
  }
  collectLines(screen.spec.layout.bands);
}

void Sizes::collectLines(const std::vector<Band>& bands) {
  for (const Band& band : bands)
    for (const Group& g : band.groups) {
      if (const Control* grid = ofLines(g) ? gridNamed(g.columnsOf) : nullptr) lines_.insert(grid);
      if (g.frame == Frame::Keys) strips_.insert(strips_.end(), members(g).begin(), members(g).end());
      collectLines(g.bands);
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

bool Sizes::isOfLines(const Control& grid) const { return lines_.contains(&grid); }

int Sizes::groupGap(const Band& band) const {
  const bool wide = std::ranges::any_of(band.groups, roomy);
  return m_.px(wide ? std::max(gap(), m_.of(kColumnGap)) : gap());
}

bool Sizes::allHidden(const Group& g) const {
  const auto shown = [this](size_t i) { return screen_.controls[i]->visible; };
  return !members(g).empty() && std::ranges::none_of(members(g), shown);
}

bool Sizes::chartsAlone(const Band& band) const {
  const auto chart = [this](size_t i) { return screen_.controls[i]->kind == Kind::Chart; };
  const auto alone = [&](const Group& g) {
    return !members(g).empty() && std::ranges::all_of(members(g), chart);
  };
  return !band.groups.empty() && std::ranges::all_of(band.groups, alone);
}

// A chart that is put away leaves its room to the others, too.
bool Sizes::folded(const Band& band) const {
  return (band.folds || chartsAlone(band)) &&
         std::ranges::all_of(band.groups, [this](const Group& g) { return allHidden(g); });
}

int Sizes::rowsOf(const Group& g) const {
  int rows = 0;
  for (const size_t i : members(g)) {
    const Place& at = screen_.controls[i]->spec->at;
    rows = std::max(rows, at.row + at.rows);
  }
  return rows;
}

double Sizes::margin() const {
  const double own = screen_.spec.layout.margin;
  const bool dialog = screen_.spec.window == Window::Dialog;
  return m_.small && !dialog ? std::min(own, kMargin.small) : own;
}

double Sizes::gap() const {
  const double own = screen_.spec.layout.gap;
  return m_.small ? std::min(own, kGap.small) : own;
}

double Sizes::insetX(const Group& g) const {
  constexpr double kSmall = 9;
  if (!framed(g)) return 0;
  return m_.small ? kSmall : g.pitch == kPitch.usual && g.frame == Frame::Panel ? 11 : 15;
}

double Sizes::insetY(const Group& g) const { return insetYOf(g, m_.small); }
double Sizes::cellHeight(const Group& g) const { return cellHeightOf(g, m_.small); }
double Sizes::pitch(const Group& g) const { return pitchOf(g, m_.small); }

double Sizes::rowHeight(const Group& g) const {
  const double own = g.pitch < kPitch.usual ? g.pitch : kGridRow.usual;
  return m_.small ? std::min(own, kGridRow.small) : own;
}

double Sizes::natural(const Group& g, bool small) const {
  const auto of = [small](Size s) { return small ? s.small : s.usual; };
  switch (g.frame) {
    case Frame::Heads:
      return of(kHeads);
    case Frame::Entry:
      return of(kEntry);
    case Frame::Keys:
      return of(kKeys);
    case Frame::Buttons:
      return of(kButtonBand);
    case Frame::Column: {
      const auto n = static_cast<double>(members(g).size());
      return n == 0 ? 0 : (n - 1) * of(kButtonPitch) + of(kButton);
    }
    default:
      break;
  }
  const double inside = g.bands.empty() ? 0 : natural(g.bands, small);
  const int rows = rowsOf(g);
  const double own = rows == 0 ? 0 : (rows - 1) * pitchOf(g, small) + cellHeightOf(g, small);
  return std::max(inside, own) + 2 * insetYOf(g, small);
}

// On a small window a fixed height loses what its contents do.
double Sizes::natural(const Band& band, bool small) const {
  const auto most = [&](bool ofSmall) {
    double height = 0;
    for (const Group& g : band.groups) height = std::max(height, natural(g, ofSmall));
    return height;
  };
  if (band.height.unit != Length::Unit::Px) return most(small);
  if (!small) return band.height.n;
  if (chartsAlone(band)) return std::min(band.height.n, kPicture.small);
  return band.height.n - std::max(0.0, most(false) - most(true));
}

double Sizes::natural(const std::vector<Band>& bands, bool small) const {
  double sum = 0;
  const Band* above = nullptr;
  for (const Band& band : bands) {
    if (band.folds && folded(band)) continue;
    sum += natural(band, small) + (above ? gapBetween(*above, band) : 0);
    above = &band;
  }
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
  if (has(below, buttons)) return m_.of(kGap);
  if (std::ranges::all_of(above.groups, [this](const Group& g) { return isSectionHead(g); }))
    return m_.of(kHeadGap);
  return has(above, free) && has(below, free) ? std::max(gap(), m_.of(kRoomyGap)) : gap();
}

int Sizes::dialogHeight() const {
  const double inside = natural(screen_.spec.layout.bands, m_.small) + margin() * 1.5;
  return m_.px(inside + 2 * m_.of(kDialogFrame) + m_.of(kDialogTitle));
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
