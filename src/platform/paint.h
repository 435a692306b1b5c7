#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Pages of text, lines and pictures. One Canvas is one paper: a PDF file, a print
// job or an image. All lengths are points (1/72 inch), the origin is the top left
// corner of the sheet, y grows downward.
namespace paint {

struct Colour {
  uint8_t r = 0, g = 0, b = 0;
  bool operator==(const Colour&) const = default;
};

struct Rect {
  double x = 0, y = 0, w = 0, h = 0;
};

struct Font {
  std::string family = "Carlito";
  double size = 11;  // points
  bool bold = false, italic = false, underline = false, strike = false;
};

enum class HAlign { Left, Centre, Right, Justify };
enum class VAlign { Top, Middle, Bottom };

// A text inside a box. A text that is not wrapped stands on one line and is cut at `clip`, not
// at the box, so that a cell may flow into empty neighbours. A turned one (degrees against the
// clock) is put into the box by the room that it takes when turned; only upright lines, of 90
// and -90 degrees, are wrapped, into the height of the box.
struct Text {
  // A piece that looks its own way.
  struct Run {
    size_t size = 0;  // bytes
    Font font;
    Colour colour;
  };

  std::string_view text;
  Rect box;
  Rect clip;
  Font font;
  Colour colour;
  HAlign halign = HAlign::Left;
  VAlign valign = VAlign::Bottom;
  bool wrap = false;
  double turn = 0;
  std::vector<Run> runs = {};  // side by side; without any the whole text looks alike

  bool upright() const { return turn == 90 || turn == -90; }
};

enum class Dash { Solid, Dashed, Dotted };

// Raised when a paper cannot be written (read-only folder, full disk) or there is no printer.
struct PaintError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Canvas {
 public:
  virtual ~Canvas() = default;

  // Begins the next sheet of paper; the first call begins the first.
  virtual void page(double width, double height) = 0;
  virtual void text(const Text& text) = 0;
  virtual void line(double x1, double y1, double x2, double y2, double width, Colour colour,
                    Dash dash = Dash::Solid) = 0;
  virtual void fill(const Rect& rect, Colour colour) = 0;
  // The bytes of a PNG, JPEG, GIF or BMP file, stretched to the rectangle. `shown` is the part of
  // the picture that is drawn, in parts of its width and height.
  virtual void picture(const Rect& rect, std::string_view bytes, const Rect& shown = {0, 0, 1, 1}) = 0;

  // Ends the paper and makes it stand under its name; raises PaintError when it could
  // not be written whole. A canvas that is dropped without this leaves no file.
  virtual void finish() = 0;
};

// Measures text as every Canvas of the same painter draws it.
class Metrics {
 public:
  virtual ~Metrics() = default;
  virtual double width(std::string_view text, const Font& font) const = 0;
  virtual double lineHeight(const Font& font) const = 0;
  // Height of the text when wrapped into the given width.
  virtual double wrappedHeight(std::string_view text, const Font& font, double width) const = 0;
  // On one line, with its pieces.
  double width(const Text& text) const {
    if (text.runs.empty()) return width(text.text, text.font);
    double sum = 0;
    size_t at = 0;
    for (const Text::Run& run : text.runs) {
      sum += width(text.text.substr(std::min(at, text.text.size()), run.size), run.font);
      at += run.size;
    }
    return sum;
  }
};

// What makes canvases; the machine has one. PDF files carry their fonts inside.
class Painter {
 public:
  virtual ~Painter() = default;
  virtual const Metrics& metrics() const = 0;
  virtual std::unique_ptr<Canvas> pdf(const std::string& path) = 0;
  // A picture of each page at the given dots per inch, PNG or by its name JPEG: path "x.png"
  // gives "x.png", "x-2.png", ...
  virtual std::unique_ptr<Canvas> image(const std::string& path, double dpi) = 0;
  // The default printer, one copy.
  virtual std::unique_ptr<Canvas> printer() = 0;
};

}  // namespace paint
