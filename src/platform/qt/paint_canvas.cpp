#include "platform/qt/paint_canvas.h"

#include <algorithm>
#include <cmath>

namespace paint {
namespace {

QColor colourOf(Colour colour) { return {colour.r, colour.g, colour.b}; }

QRectF rectOf(const Rect& rect) {
  return {rect.x * kUnits, rect.y * kUnits, rect.w * kUnits, rect.h * kUnits};
}

bool inside(const QRectF& inner, const QRectF& outer) { return outer.contains(inner); }

}  // namespace

void QtCanvas::settle(double dotsPerPoint) {
  painter_.resetTransform();
  painter_.scale(dotsPerPoint / kUnits, dotsPerPoint / kUnits);
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                          QPainter::SmoothPixmapTransform);
}

void QtCanvas::text(const Text& text) {
  if (text.text.empty()) return;
  if (text.turn != 0) return turned(text);
  const QRectF box = rectOf(text.box), clip = rectOf(text.clip);
  const std::shared_ptr<QTextLayout> layout =
      text.wrap ? setter_->wrapped(text, text.box.w, text.halign) : setter_->line(text);
  const double tall = setter_->lineHeight(text) * kUnits * layout->lineCount();
  QPointF at = box.topLeft();
  if (text.valign == VAlign::Middle) at.ry() += (box.height() - tall) / 2;
  if (text.valign == VAlign::Bottom) at.ry() += box.height() - tall;
  double width = box.width();
  if (!text.wrap) {
    width = layout->lineAt(0).naturalTextWidth();
    if (text.halign == HAlign::Centre) at.rx() += (box.width() - width) / 2;
    if (text.halign == HAlign::Right) at.rx() += box.width() - width;
  }
  painter_.setPen(colourOf(text.colour));
  const bool clipped = !clip.isEmpty() && !inside({at.x(), at.y(), width, tall}, clip);
  if (clipped) {
    painter_.save();
    painter_.setClipRect(clip);
  }
  layout->draw(&painter_, at);
  if (clipped) painter_.restore();
}

void QtCanvas::turned(const Text& text) {
  const bool up = text.turn > 0, wrapped = text.wrap && text.upright();
  // Up the page a text that stands at the bottom begins there; down the page it ends there.
  const HAlign along = text.valign == VAlign::Middle           ? HAlign::Centre
                       : (text.valign == VAlign::Bottom) == up ? HAlign::Left
                                                               : HAlign::Right;
  const std::shared_ptr<QTextLayout> layout =
      wrapped ? setter_->wrapped(text, text.box.h, along) : setter_->line(text);
  const double w = wrapped ? text.box.h * kUnits : layout->lineAt(0).naturalTextWidth();
  const double h = setter_->lineHeight(text) * kUnits * layout->lineCount();
  const double angle = text.turn * M_PI / 180, c = std::fabs(std::cos(angle)), s = std::fabs(std::sin(angle));
  const QSizeF room(w * c + h * s, w * s + h * c);
  const auto part = [](int align) { return align / 2.0; };  // start, middle, end
  const int across = text.halign == HAlign::Right ? 2 : text.halign == HAlign::Centre ? 1 : 0;
  const QRectF box = rectOf(text.box);
  const QPointF middle(
      box.x() + (box.width() - room.width()) * part(across) + room.width() / 2,
      box.y() + (box.height() - room.height()) * part(static_cast<int>(text.valign)) + room.height() / 2);
  painter_.save();
  painter_.setPen(colourOf(text.colour));
  if (const QRectF clip = rectOf(text.clip); !clip.isEmpty()) painter_.setClipRect(clip);
  painter_.translate(middle);
  painter_.rotate(-text.turn);
  layout->draw(&painter_, {-w / 2, -h / 2});
  painter_.restore();
}

void QtCanvas::line(double x1, double y1, double x2, double y2, double width, Colour colour, Dash dash) {
  QPen pen(colourOf(colour), width * kUnits, Qt::SolidLine, Qt::FlatCap);
  if (dash == Dash::Dashed) pen.setDashPattern({4, 3});
  if (dash == Dash::Dotted) pen.setDashPattern({1, 2});
  painter_.setPen(pen);
  painter_.drawLine(QPointF(x1 * kUnits, y1 * kUnits), QPointF(x2 * kUnits, y2 * kUnits));
}

void QtCanvas::fill(const Rect& rect, Colour colour) { painter_.fillRect(rectOf(rect), colourOf(colour)); }

const QImage& QtCanvas::image(std::string_view bytes) {
  QImage& image = images_[std::hash<std::string_view>()(bytes)];
  if (image.isNull())
    image = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
  return image;
}

void QtCanvas::picture(const Rect& rect, std::string_view bytes, const Rect& shown) {
  const QImage& picture = image(bytes);
  if (picture.isNull()) return;
  painter_.setRenderHint(QPainter::LosslessImageRendering, !bytes.starts_with("\xFF\xD8"));
  const double w = picture.width(), h = picture.height();
  painter_.drawImage(rectOf(rect), picture, {shown.x * w, shown.y * h, shown.w * w, shown.h * h});
}

}  // namespace paint
