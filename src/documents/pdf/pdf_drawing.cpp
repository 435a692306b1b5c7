#include <algorithm>
#include <cmath>
#include <numbers>

#include "documents/pdf/pdf_creator.h"
#include "documents/pdf/pdf_text.h"
#include "documents/pdf/win_ansi.h"

// What is drawn on a page or form, an operation a line.

namespace {

constexpr double kFullSize = 1000;   // of the unit of widths
constexpr double kRoundness = 0.55;  // control points of a quarter circle
constexpr double kQuarterStep = 5;   // degrees of an arc's step
constexpr double kRadian = std::numbers::pi / 180;
constexpr double kFullColour = 255;

}  // namespace

void clsPDFCreator::number(double value) {
  pdf::appendNumber(operation_, value);
  operation_ += ' ';
}

template <class... Numbers>
void clsPDFCreator::operation(std::string_view operatorName, Numbers... numbers) {
  operation_.clear();
  (number(numbers), ...);
  operation_ += operatorName;
  operation_ += "\r\n";
  out(operation_);
}

// State

void clsPDFCreator::SetWordSpacing(double value) {
  wordSpacing_ = value;
  operation("Tw", value);
}
void clsPDFCreator::SetCharSpacing(double value) { operation("Tc", value); }
void clsPDFCreator::SetTextHorizontalScaling(double percent) { operation("Tz", percent); }
void clsPDFCreator::SetTextRenderingMODE(int value) { operation("Tr", value); }
void clsPDFCreator::SetLineWidth(double value) { operation("w", value); }
void clsPDFCreator::SetLineCap(int value) { operation("J", value); }
void clsPDFCreator::SetLineJoin(int value) { operation("j", value); }
void clsPDFCreator::SetMiterLimit(double value) { operation("M", value); }

void clsPDFCreator::SetColorStroke(Colour colour) {
  const double r = (colour & 255) / kFullColour, g = (colour >> 8 & 255) / kFullColour,
               b = (colour >> 16 & 255) / kFullColour;
  if (r == g && g == b)
    operation("G", r);
  else
    operation("RG", r, g, b);
}

void clsPDFCreator::SetColorFill(Colour colour) {
  const double r = (colour & 255) / kFullColour, g = (colour >> 8 & 255) / kFullColour,
               b = (colour >> 16 & 255) / kFullColour;
  if (r == g && g == b)
    operation("g", r);
  else
    operation("rg", r, g, b);
}

void clsPDFCreator::SetDash(double dash, double gap) {
  if (dash == 0 && gap == 0) return line("[ ] 0 d");
  line("[" + pdf::numberText(dash) + " " + pdf::numberText(gap) + "] 0 d");
}

// Text

double clsPDFCreator::lengthOf(std::string_view bytes, std::string_view font, double size) const {
  const auto found = fontTable_.find(font);
  if (found == fontTable_.end()) return 0;
  const pdf::CharacterWidths& widths = *found->second;
  long sum = 0, gaps = 0;
  for (const char c : bytes) {
    const int code = static_cast<unsigned char>(c);
    if (code >= pdf::kFirstCharacter) sum += widths[static_cast<size_t>(code - pdf::kFirstCharacter)];
    if (c == ' ') ++gaps;
  }
  return static_cast<double>(sum) * size / kFullSize + static_cast<double>(gaps) * wordSpacing_;
}

double clsPDFCreator::Length(std::string_view text, std::string_view font, double size) const {
  return lengthOf(pdf::winAnsi(text).bytes, font, size) / points(1);
}

void clsPDFCreator::DrawText(double left, double base, std::string_view text, std::string_view font,
                             double size, int alignment, double angle) {
  const pdf::AnsiText written = pdf::winAnsi(text);
  lost_ += written.lost;
  double atX = x(left);
  const double atY = y(base);
  if (alignment == kRight) atX -= lengthOf(written.bytes, font, size);
  if (alignment == kCentre) atX -= lengthOf(written.bytes, font, size) / 2;

  operation_ = "BT\r\n" + pdf::nameText(font) + " ";
  number(size);
  operation_ += "Tf\r\n";
  if (angle != 0) {
    const double cosine = std::cos(angle * kRadian), sine = std::sin(angle * kRadian);
    for (const double part : {cosine, sine, -sine, cosine}) number(part);
  }
  number(atX);
  number(atY);
  operation_ += angle != 0 ? "Tm\r\n(" : "Td\r\n(";
  pdf::appendEscaped(operation_, written.bytes);
  operation_ += ") Tj\r\nET\r\n";
  out(operation_);
}

// Lines

void clsPDFCreator::paintWith(int paint) {
  const bool stroke = (paint & kStroke) != 0, close = (paint & kClose) != 0, fill = (paint & kFill) != 0;
  if (fill) return line(!stroke ? "f" : close ? "b" : "B");
  if (close) line("h");
  if (stroke) line("S");
}

void clsPDFCreator::MoveTo(double left, double bottom) { operation("m", x(left), y(bottom)); }

void clsPDFCreator::LineTo(double left, double bottom, int paint) {
  operation("l", x(left), y(bottom));
  paintWith(paint);
}

void clsPDFCreator::Curve(double x1, double y1, double x2, double y2, double x3, double y3, int paint) {
  operation("c", x(x1), y(y1), x(x2), y(y2), x(x3), y(y3));
  paintWith(paint);
}

void clsPDFCreator::Rectangle(double left, double bottom, double width, double height, int paint,
                              double round) {
  if (round == 0)
    operation("re", x(left), y(bottom), points(width), points(height));
  else
    roundedPath(left, bottom, width, height, round);
  paintWith(paint);
}

void clsPDFCreator::roundedPath(double left, double bottom, double width, double height, double round) {
  const double r = std::min({std::abs(round), std::abs(width) / 2, std::abs(height) / 2});
  const double right = left + width, top = bottom + height, k = r * (1 - kRoundness);
  MoveTo(left + r, bottom);
  LineTo(right - r, bottom, 0);
  Curve(right - k, bottom, right, bottom + k, right, bottom + r, 0);
  LineTo(right, top - r, 0);
  Curve(right, top - k, right - k, top, right - r, top, 0);
  LineTo(left + r, top, 0);
  Curve(left + k, top, left, top - k, left, top - r, 0);
  LineTo(left, bottom + r, 0);
  Curve(left, bottom + k, left + k, bottom, left + r, bottom, 0);
}

void clsPDFCreator::DrawCircle(double centreX, double centreY, double radius, int paint) {
  const double r = radius, k = radius * kRoundness, cx = centreX, cy = centreY;
  MoveTo(cx + r, cy);
  Curve(cx + r, cy + k, cx + k, cy + r, cx, cy + r, 0);
  Curve(cx - k, cy + r, cx - r, cy + k, cx - r, cy, 0);
  Curve(cx - r, cy - k, cx - k, cy - r, cx, cy - r, 0);
  Curve(cx + k, cy - r, cx + r, cy - k, cx + r, cy, paint);
}

void clsPDFCreator::DrawArc(double centreX, double centreY, double radius, double from, double to,
                            int paint) {
  const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(to - from) / kQuarterStep)));
  line("n");
  for (int i = 0; i <= steps; ++i) {
    const double angle = (from + (to - from) * i / steps) * kRadian;
    const double left = centreX + radius * std::cos(angle), bottom = centreY + radius * std::sin(angle);
    if (i == 0)
      MoveTo(left, bottom);
    else
      LineTo(left, bottom, i == steps ? paint : 0);
  }
}

// Forms and pictures

void clsPDFCreator::DrawImg(std::string_view name, double left, double top, double width, double height) {
  line("q");
  operation("cm", points(width), 0.0, 0.0, -points(height), x(left), y(top));
  line(pdf::nameText(name) + " Do");
  line("Q");
}

void clsPDFCreator::DrawObject(std::string_view name) { line(pdf::nameText(name) + " Do"); }
