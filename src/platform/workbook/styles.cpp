#include "platform/workbook/styles.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/text.h"

namespace workbook {
namespace {

using paint::Colour;

// clang-format off
constexpr std::array<uint32_t, 12> kTheme{
  0xFFFFFF, 0x000000, 0xEEECE1, 0x1F497D, 0x4F81BD, 0xC0504D, 0x9BBB59, 0x8064A2, 0x4BACC6, 0xF79646, 0x0000FF, 0x800080};
// A colour number counts light before dark; the theme names them dark, light.
constexpr std::array<const char*, 12> kThemeNames{
  "lt1", "dk1", "lt2", "dk2", "accent1", "accent2", "accent3", "accent4", "accent5", "accent6", "hlink", "folHlink"};
constexpr std::array<uint32_t, 64> kPalette{
  0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,
  0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,
  0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080,
  0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF,
  0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF,
  0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
  0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,
  0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};

struct NamedLine { const char* name; Line line; paint::Dash dash; };
constexpr std::array<NamedLine, 13> kLines{{
  {"hair",             Line::Hair,   paint::Dash::Dotted},
  {"thin",             Line::Thin,   paint::Dash::Solid},
  {"dotted",           Line::Thin,   paint::Dash::Dotted},
  {"dashed",           Line::Thin,   paint::Dash::Dashed},
  {"dashDot",          Line::Thin,   paint::Dash::Dashed},
  {"dashDotDot",       Line::Thin,   paint::Dash::Dotted},
  {"medium",           Line::Medium, paint::Dash::Solid},
  {"mediumDashed",     Line::Medium, paint::Dash::Dashed},
  {"mediumDashDot",    Line::Medium, paint::Dash::Dashed},
  {"mediumDashDotDot", Line::Medium, paint::Dash::Dotted},
  {"slantDashDot",     Line::Medium, paint::Dash::Dashed},
  {"thick",            Line::Thick,  paint::Dash::Solid},
  {"double",           Line::Double, paint::Dash::Solid},
}};

struct NamedPattern { const char* name; double ink; };  // share of the foreground colour
constexpr std::array<NamedPattern, 6> kPatterns{{
  {"solid", 1}, {"darkGray", 0.75}, {"mediumGray", 0.5}, {"lightGray", 0.25}, {"gray125", 0.125}, {"gray0625", 0.0625},
}};

struct NamedAcross { const char* name; Across across; };
constexpr std::array<NamedAcross, 7> kAcross{{
  {"left", Across::Left},       {"center", Across::Centre},   {"right", Across::Right},
  {"fill", Across::Fill},       {"justify", Across::Justify}, {"distributed", Across::Justify},
  {"centerContinuous", Across::CentreAcross},
}};
// clang-format on

Colour fromNumber(uint32_t rgb) {
  return {static_cast<uint8_t>(rgb >> 16), static_cast<uint8_t>(rgb >> 8), static_cast<uint8_t>(rgb)};
}

// Pixels of a digit at 96 dots an inch.
int digitPixels(const paint::Font& font) {
  struct Family {
    const char* name;
    double digit;  // in parts of the font's size
  };
  constexpr Family kFamilies[] = {
      {"Calibri",          0.507},
      {"Carlito",          0.507},
      {"Times New Roman",  0.5  },
      {"Liberation Serif", 0.5  },
      {"Courier New",      0.6  },
      {"Liberation Mono",  0.6  },
      {"Verdana",          0.636},
      {"DejaVu Sans",      0.636},
  };
  double digit = 0.556;  // of Arial and most others
  for (const Family& family : kFamilies)
    if (sameText(font.family, family.name)) digit = family.digit;
  return std::max(static_cast<int>(std::lround(digit * font.size * 96 / 72)), 1);
}

std::optional<Colour> fromHex(std::string_view hex) {
  if (hex.size() < 6) return {};
  hex = hex.substr(hex.size() - 6);
  uint32_t rgb = 0;
  const auto [end, error] = std::from_chars(hex.data(), hex.data() + hex.size(), rgb, 16);
  if (error != std::errc() || end != hex.data() + hex.size()) return {};
  return fromNumber(rgb);
}

uint8_t channel(double x) { return static_cast<uint8_t>(std::lround(std::clamp(x, 0.0, 1.0) * 255)); }

// Lightness moved toward black (below 0) or white, hue and saturation kept.
Colour tinted(Colour colour, double tint) {
  const double r = colour.r / 255.0, g = colour.g / 255.0, b = colour.b / 255.0;
  const double high = std::max({r, g, b}), low = std::min({r, g, b}), span = high - low;
  const double light = (high + low) / 2;
  const double target = tint < 0 ? light * (1 + tint) : light * (1 - tint) + tint;
  if (span == 0) return {channel(target), channel(target), channel(target)};
  const double saturation = span / (1 - std::fabs(2 * light - 1));
  const double chroma = (1 - std::fabs(2 * target - 1)) * saturation;
  const auto moved = [&](double x) { return channel(target + ((x - low) / span - 0.5) * chroma); };
  return {moved(r), moved(g), moved(b)};
}

}  // namespace

Styles::Styles() : formats_(1), cells_(1) {
  for (size_t i = 0; i < kTheme.size(); ++i) theme_[i] = fromNumber(kTheme[i]);
  for (const uint32_t rgb : kPalette) palette_.push_back(fromNumber(rgb));
  cells_.front().font.family = "Calibri";
}

Styles::Styles(const Container& container, const std::string& stylesPart, const std::string& themePart)
    : Styles() {
  if (container.has(themePart)) readTheme(container, themePart);
  if (!container.has(stylesPart)) return;
  const xml::Document document(container, stylesPart);
  const Node root = document.root();

  if (const Node indexed = xml::child(xml::child(root, "colors"), "indexedColors")) {
    size_t place = 0;
    for (const Node node : xml::children(indexed, "rgbColor"))
      if (const auto own = fromHex(xml::text(node, "rgb")); own && place < palette_.size())
        palette_[place++] = *own;
  }
  std::vector<std::pair<int, uint32_t>> formatIds;
  readFormats(root, formatIds);
  std::vector<Fonts> fonts;
  std::vector<std::optional<Colour>> fills;
  std::vector<Border> borders;
  for (const Node node : xml::children(xml::child(root, "fonts"), "font")) fonts.push_back(font(node));
  if (!fonts.empty()) digitWidth_ = digitPixels(fonts.front().font);
  for (const Node node : xml::children(xml::child(root, "fills"), "fill")) fills.push_back(fill(node));
  for (const Node node : xml::children(xml::child(root, "borders"), "border"))
    borders.push_back(border(node));

  std::vector<CellStyle> cells;
  for (const Node node : xml::children(xml::child(root, "cellXfs"), "xf")) {
    CellStyle style = cells_.front();
    const auto pick = [&](const char* attribute, const auto& list) {
      const int index = xml::whole(node, attribute, 0);
      return index >= 0 && index < static_cast<int>(list.size()) ? &list[static_cast<size_t>(index)]
                                                                 : nullptr;
    };
    if (const Fonts* chosen = pick("fontId", fonts)) {
      style.font = chosen->font;
      style.colour = chosen->colour;
    }
    if (const auto* chosen = pick("fillId", fills)) style.fill = *chosen;
    if (const Border* chosen = pick("borderId", borders)) style.border = *chosen;
    const int id = xml::whole(node, "numFmtId", 0);
    auto known =
        std::find_if(formatIds.begin(), formatIds.end(), [id](const auto& pair) { return pair.first == id; });
    if (known == formatIds.end()) {
      formats_.emplace_back(NumberFormat::builtin(id));
      known = formatIds.insert(formatIds.end(), {id, static_cast<uint32_t>(formats_.size() - 1)});
    }
    style.format = known->second;
    if (const Node alignment = xml::child(node, "alignment")) align(alignment, style);
    cells.push_back(std::move(style));
  }
  if (!cells.empty()) cells_ = std::move(cells);
}

void Styles::readTheme(const Container& container, const std::string& part) {
  const xml::Document document(container, part);
  const Node scheme = xml::child(xml::child(document.root(), "themeElements"), "clrScheme");
  for (size_t i = 0; i < kThemeNames.size(); ++i) {
    const Node named = xml::child(scheme, kThemeNames[i]).first_child();
    for (Node node = named; node; node = node.next_sibling()) {
      const auto own = fromHex(xml::is(node, "sysClr") ? xml::text(node, "lastClr") : xml::text(node, "val"));
      if (own) theme_[i] = *own;
    }
  }
}

void Styles::readFormats(Node root, std::vector<std::pair<int, uint32_t>>& ids) {
  for (const Node node : xml::children(xml::child(root, "numFmts"), "numFmt")) {
    formats_.emplace_back(xml::text(node, "formatCode"));
    ids.emplace_back(xml::whole(node, "numFmtId", -1), static_cast<uint32_t>(formats_.size() - 1));
  }
}

std::optional<Colour> Styles::colour(Node node) const {
  if (!node || xml::flag(node, "auto")) return {};
  std::optional<Colour> base;
  if (node.attribute("rgb")) {
    base = fromHex(xml::text(node, "rgb"));
  } else if (node.attribute("theme")) {
    const int index = xml::whole(node, "theme", 1);
    if (index >= 0 && index < static_cast<int>(theme_.size())) base = theme_[static_cast<size_t>(index)];
  } else if (node.attribute("indexed")) {
    const int index = xml::whole(node, "indexed", 64);
    if (index >= 0 && index < static_cast<int>(palette_.size())) base = palette_[static_cast<size_t>(index)];
    if (index == 65) base = Colour{255, 255, 255};
  }
  const double tint = std::clamp(xml::number(node, "tint").value_or(0), -1.0, 1.0);
  return base && tint != 0 ? tinted(*base, tint) : base;
}

Styles::Fonts Styles::font(Node node) const {
  Fonts result;
  result.font.family = "Calibri";
  for (const char* element : {"name", "rFont"})
    if (const std::string_view name = xml::text(xml::child(node, element), "val"); !name.empty())
      result.font.family = name;
  result.font.size = std::clamp(xml::number(xml::child(node, "sz"), "val").value_or(11), 1.0, 409.0);
  result.font.bold = xml::flagChild(node, "b");
  result.font.italic = xml::flagChild(node, "i");
  result.font.strike = xml::flagChild(node, "strike");
  const Node underline = xml::child(node, "u");
  result.font.underline = underline && xml::text(underline, "val") != "none";
  result.colour = colour(xml::child(node, "color")).value_or(Colour{});
  return result;
}

paint::Text::Run Styles::run(Node look, size_t size) const {
  paint::Text::Run run{.size = size, .font = {.size = 0}, .colour = {}};
  if (!look) return run;
  const Fonts own = font(look);
  run.font = own.font;
  run.colour = own.colour;
  return run;
}

std::optional<Colour> Styles::fill(Node node) const {
  const Node pattern = xml::child(node, "patternFill");
  const std::string_view type = xml::text(pattern, "patternType");
  for (const NamedPattern& named : kPatterns) {
    if (type != named.name) continue;
    const Colour ink = colour(xml::child(pattern, "fgColor")).value_or(Colour{});
    const Colour ground = colour(xml::child(pattern, "bgColor")).value_or(Colour{255, 255, 255});
    const auto mixed = [&](uint8_t a, uint8_t b) {
      return channel((a * named.ink + b * (1 - named.ink)) / 255);
    };
    return Colour{mixed(ink.r, ground.r), mixed(ink.g, ground.g), mixed(ink.b, ground.b)};
  }
  return {};
}

Side Styles::side(Node node) const {
  const std::string_view style = xml::text(node, "style");
  for (const NamedLine& named : kLines)
    if (style == named.name)
      return {.line = named.line,
              .dash = named.dash,
              .colour = colour(xml::child(node, "color")).value_or(Colour{})};
  return {};
}

Border Styles::border(Node node) const {
  const auto either = [&](const char* name, const char* newer) {
    const Node found = xml::child(node, name);
    return side(found ? found : xml::child(node, newer));
  };
  const Side across = side(xml::child(node, "diagonal"));
  return {.left = either("left", "start"),
          .right = either("right", "end"),
          .top = side(xml::child(node, "top")),
          .bottom = side(xml::child(node, "bottom")),
          .up = xml::flag(node, "diagonalUp") ? across : Side{},
          .down = xml::flag(node, "diagonalDown") ? across : Side{}};
}

void Styles::align(Node node, CellStyle& style) {
  const std::string_view across = xml::text(node, "horizontal"), down = xml::text(node, "vertical");
  for (const NamedAcross& named : kAcross)
    if (across == named.name) style.across = named.across;
  if (down == "top" || down == "justify") style.down = paint::VAlign::Top;
  if (down == "center" || down == "distributed") style.down = paint::VAlign::Middle;
  style.wrap = xml::flag(node, "wrapText") || style.across == Across::Justify || down == "justify";
  style.shrink = xml::flag(node, "shrinkToFit") && !style.wrap;
  style.indent = std::clamp(xml::whole(node, "indent", 0), 0, 250);
  // 91 to 180 are degrees with the clock, 255 is a column of letters.
  const int turn = xml::whole(node, "textRotation", 0);
  style.stacked = turn == 255;
  style.turn = turn >= 0 && turn <= 90 ? turn : turn > 90 && turn <= 180 ? 90 - turn : 0;
}

}  // namespace workbook
