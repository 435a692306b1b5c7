#pragma once

#include <QImage>
#include <QPainter>
#include <memory>
#include <unordered_map>

#include "platform/qt/paint_text.h"

// What the three papers share: drawing through a QPainter in units of 1/100 point.
namespace paint {

class QtCanvas : public Canvas {
 public:
  explicit QtCanvas(std::shared_ptr<TextSetter> setter) : setter_(std::move(setter)) {}

  void text(const Text& text) override;
  void line(double x1, double y1, double x2, double y2, double width, Colour colour, Dash dash) override;
  void fill(const Rect& rect, Colour colour) override;
  void picture(const Rect& rect, std::string_view bytes, const Rect& shown) override;

 protected:
  // After each page began; `dotsPerPoint` is the device's.
  void settle(double dotsPerPoint);

  QPainter painter_;

 private:
  void turned(const Text& text);
  const QImage& image(std::string_view bytes);

  std::shared_ptr<TextSetter> setter_;
  std::unordered_map<size_t, QImage> images_;
};

}  // namespace paint
