#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QRect>
#include <array>
#include <string>
#include <unordered_map>

#include "platform/qt/layout_engine.h"

class QPainter;
class QApplication;

// Type and sizes at one scale step, and the few shapes that everything is drawn with.
class Look {
 public:
  enum class Face { Plain, Strong, Strip, Section, Head, Company, Figure, Amount };

  // One for each step of the scale, and one for small windows; it stays to the end of the program.
  static const Look& at(double scale, bool small = false);
  Look(const Look&) = delete;
  Look& operator=(const Look&) = delete;

  double scale() const { return scale_; }
  bool small() const { return measure_.small; }
  int px(double n) const { return measure_.px(n); }
  int px(layout::Size s) const { return measure_.px(s); }
  double of(layout::Size s) const { return measure_.of(s); }
  const QFont& font(Face face) const { return fonts_[static_cast<size_t>(face)]; }
  const QFontMetrics& metrics(Face face) const { return metrics_[static_cast<size_t>(face)]; }
  QFont sized(Face face, double points) const;
  const layout::Measure& measure() const { return measure_; }

  static Face faceOf(Style style);
  static QColor inkOf(Style style);

 private:
  Look(double scale, bool small);

  double scale_;
  std::array<QFont, 8> fonts_;
  std::array<QFontMetrics, 8> metrics_;
  layout::Measure measure_;
  mutable std::array<std::unordered_map<std::string, int>, 8> widths_;
};

namespace draw {

inline QRect rect(const layout::Rect& r) { return {r.x, r.y, r.w, r.h}; }
// A box with a frame of whole pixels and rounded corners.
void box(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& line, int width,
         double radius, bool dashed = false);
// One line of text, cut with an ellipsis when the box is too narrow. Mnemonics are underlined.
void line(QPainter& painter, const QRect& rect, const QString& text, Qt::Alignment align,
          bool mnemonic = false);

}  // namespace draw

// Sets the program's style, palette and type once, at its start.
void dress(QApplication& application);
// The style sheet of the menu bar and its menus.
QString menuSheet(const Look& look);

// Figures of a field or cell that is only shown, grouped the Indian way; any other text as it is.
std::string groupedFigures(const std::string& text);
// The same for an amount: with two decimals at the least.
std::string groupedMoney(const std::string& text);
