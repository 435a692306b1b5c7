#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/paint.h"
#include "platform/workbook/container.h"
#include "platform/workbook/number_format.h"
#include "platform/workbook/xml.h"

// How cells look: the styles part with its colours resolved through palette and theme.
namespace workbook {

enum class Line { None, Hair, Thin, Medium, Thick, Double };

struct Side {
  Line line = Line::None;
  paint::Dash dash = paint::Dash::Solid;
  paint::Colour colour;
  bool operator==(const Side&) const = default;
};

struct Border {
  Side left, right, top, bottom;
  Side up, down;  // from corner to corner
  bool any() const {
    for (const Side* side : {&left, &right, &top, &bottom, &up, &down})
      if (side->line != Line::None) return true;
    return false;
  }
};

enum class Across { General, Left, Centre, Right, Fill, Justify, CentreAcross };

struct CellStyle {
  paint::Font font;
  paint::Colour colour;
  std::optional<paint::Colour> fill;
  Border border;
  uint32_t format = 0;  // place in Styles::formats
  Across across = Across::General;
  paint::VAlign down = paint::VAlign::Bottom;
  bool wrap = false, shrink = false;
  int indent = 0;
  int turn = 0;          // degrees against the clock
  bool stacked = false;  // each letter under the one before
};

class Styles {
 public:
  Styles();  // what a workbook without a styles part has
  Styles(const Container& container, const std::string& stylesPart, const std::string& themePart);

  // A style number that the part does not have is the first style.
  const CellStyle& style(uint32_t number) const { return cells_[number < cells_.size() ? number : 0]; }
  const NumberFormat& format(const CellStyle& style) const { return formats_[style.format]; }
  // A piece of a text by its <rPr>; without one it looks as its cell does, which a font size of 0 says.
  paint::Text::Run run(xml::Node look, size_t size) const;
  // Pixels of a digit in the workbook's own font: the unit of column widths.
  int digitWidth() const { return digitWidth_; }

 private:
  using Node = xml::Node;
  struct Fonts {
    paint::Font font;
    paint::Colour colour;
  };

  void readTheme(const Container& container, const std::string& part);
  std::optional<paint::Colour> colour(Node node) const;
  Fonts font(Node node) const;
  std::optional<paint::Colour> fill(Node node) const;
  Border border(Node node) const;
  Side side(Node node) const;
  void readFormats(Node root, std::vector<std::pair<int, uint32_t>>& ids);
  static void align(Node node, CellStyle& style);

  int digitWidth_ = 7;
  std::array<paint::Colour, 12> theme_;
  std::vector<paint::Colour> palette_;
  std::vector<NumberFormat> formats_;
  std::vector<CellStyle> cells_;
};

}  // namespace workbook
