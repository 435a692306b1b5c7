#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "platform/paint.h"

// A canvas that remembers, and metrics whose every character is half its size wide.
namespace books {

struct DrawnText : paint::Text {
  explicit DrawnText(const paint::Text& drawn) : paint::Text(drawn), text(drawn.text) {}
  std::string text;  // its own
};

struct DrawnLine {
  double x1, y1, x2, y2, width;
};

struct DrawnFill {
  paint::Rect rect;
  paint::Colour colour;
};

struct Page {
  double width, height;
  std::vector<DrawnText> texts;
  std::vector<DrawnLine> lines;
  std::vector<DrawnFill> fills;
  std::vector<paint::Rect> pictures;

  const DrawnText* find(const std::string& text) const {
    for (const DrawnText& drawn : texts)
      if (drawn.text == text) return &drawn;
    return nullptr;
  }
};

class Recorder : public paint::Canvas {
 public:
  std::vector<Page> pages;
  std::vector<paint::Rect> shownParts;  // of all pictures

  void page(double width, double height) override { pages.push_back({width, height, {}, {}, {}, {}}); }
  void text(const paint::Text& drawn) override { pages.back().texts.emplace_back(drawn); }
  void line(double x1, double y1, double x2, double y2, double width, paint::Colour, paint::Dash) override {
    pages.back().lines.push_back({x1, y1, x2, y2, width});
  }
  void fill(const paint::Rect& rect, paint::Colour colour) override {
    pages.back().fills.push_back({rect, colour});
  }
  void picture(const paint::Rect& rect, std::string_view, const paint::Rect& shown) override {
    pages.back().pictures.push_back(rect);
    shownParts.push_back(shown);
  }
  void finish() override {}
};

class HalfMetrics : public paint::Metrics {
 public:
  double width(std::string_view text, const paint::Font& font) const override {
    double letters = 0;
    for (const char c : text) letters += (c & 0xC0) != 0x80;
    return letters * font.size / 2;
  }
  double lineHeight(const paint::Font& font) const override { return font.size * 1.2; }
  double wrappedHeight(std::string_view text, const paint::Font& font, double room) const override {
    return std::ceil(width(text, font) / room) * lineHeight(font);
  }
};

}  // namespace books
