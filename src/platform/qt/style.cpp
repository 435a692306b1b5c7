#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleHintReturn>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <map>
#include <memory>

#include "base/number.h"
#include "base/pattern.h"
#include "platform/qt/look.h"
#include "platform/qt/palette.h"

namespace {

struct FaceRow {
  double points;  // of the usual window
  QFont::Weight weight;
  double small;  // of a small one
};

// In the order of Look::Face.
constexpr std::array<FaceRow, 8> kFaces{
    {
     {11, QFont::Normal, 11},
     {11, QFont::DemiBold, 11},
     {12, QFont::Bold, 12},
     {12, QFont::DemiBold, 12},
     {15, QFont::DemiBold, 15},
     {17, QFont::Bold, 15},
     {20, QFont::Bold, 17},
     {24, QFont::Bold, 20},
     }
};

// Type has whole pixels in Qt; the letters are moved by what the rounding takes or adds, so
// that a text is as wide as its points say at every scale. Points are those of 96 dots an
// inch whatever the display says: type and boxes scale together.
void setSize(QFont& font, double points, double scale) {
  const double pixels = points * scale * 96 / 72, whole = std::max(1.0, std::round(pixels));
  font.setPixelSize(static_cast<int>(whole));
  font.setLetterSpacing(QFont::PercentageSpacing, 100 * pixels / whole);
}

QFont fontOf(double points, QFont::Weight weight, double scale) {
  QFont font;
  font.setFamilies({"Noto Sans", "Noto Sans Devanagari", "Noto Sans Gujarati", "DejaVu Sans"});
  setSize(font, points, scale);
  font.setWeight(weight);
  font.setHintingPreference(QFont::PreferNoHinting);  // the same proportions at every scale
  return font;
}

template <size_t... I>
std::array<QFont, 8> allFonts(double scale, bool small, std::index_sequence<I...>) {
  return {fontOf(small ? kFaces[I].small : kFaces[I].points, kFaces[I].weight, scale)...};
}

template <size_t... I>
std::array<QFontMetrics, 8> allMetrics(const std::array<QFont, 8>& fonts, std::index_sequence<I...>) {
  return {QFontMetrics(fonts[I])...};
}

class PlainStyle : public QProxyStyle {
 public:
  PlainStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    switch (hint) {
      case SH_UnderlineShortcut:
      case SH_MenuBar_AltKeyNavigation:
        return 1;
      case SH_Widget_Animate:
      case SH_Menu_FadeOutOnHide:
        return 0;
      default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
  }
};

QString hex(QRgb colour) { return QColor(colour).name(); }

}  // namespace

Look::Look(double scale, bool small)
    : scale_(scale),
      fonts_(allFonts(scale, small, std::make_index_sequence<8>{})),
      metrics_(allMetrics(fonts_, std::make_index_sequence<8>{})) {
  measure_.scale = scale;
  measure_.small = small;
  measure_.width = [this](const std::string& text, Style style) {
    const auto face = static_cast<size_t>(faceOf(style));
    const auto [at, fresh] = widths_[face].try_emplace(text, 0);
    if (fresh) at->second = metrics_[face].horizontalAdvance(QString::fromStdString(text));
    return at->second;
  };
}

const Look& Look::at(double scale, bool small) {
  static std::map<std::pair<double, bool>, std::unique_ptr<Look>> looks;
  std::unique_ptr<Look>& look = looks[{scale, small}];
  if (!look) look.reset(new Look(scale, small));
  return *look;
}

QFont Look::sized(Face face, double points) const {
  QFont font = fonts_[static_cast<size_t>(face)];
  setSize(font, points, scale_);
  return font;
}

Look::Face Look::faceOf(Style style) {
  switch (style) {
    case Style::Section:
      return Face::Section;
    case Style::Title:
    case Style::Company:
      return Face::Company;
    case Style::Figure:
      return Face::Figure;
    case Style::Head:
      return Face::Head;
    case Style::Amount:
      return Face::Amount;
    case Style::Key:
    case Style::Primary:
      return Face::Strong;
    case Style::Normal:
    case Style::Quiet:
    case Style::Warn:
    case Style::Secondary:
      break;
  }
  return Face::Plain;
}

QColor Look::inkOf(Style style) {
  switch (style) {
    case Style::Quiet:
      return palette::kQuiet;
    case Style::Section:
    case Style::Key:
      return palette::kAccent;
    default:
      return palette::kInk;
  }
}

void dress(QApplication& application) {
  using namespace palette;
  application.setStyle(new PlainStyle);
  application.setFont(fontOf(11, QFont::Normal, 1));
  QPalette colours;
  const auto set = [&](QPalette::ColorRole role, QRgb colour) { colours.setColor(role, QColor(colour)); };
  set(QPalette::Window, kScreen);
  set(QPalette::WindowText, kInk);
  set(QPalette::Base, kField);
  set(QPalette::AlternateBase, kGridZebra);
  set(QPalette::Text, kInk);
  set(QPalette::Button, kField);
  set(QPalette::ButtonText, kInk);
  set(QPalette::Highlight, kAccent);
  set(QPalette::HighlightedText, kWhiteText);
  set(QPalette::ToolTipBase, kPanel);
  set(QPalette::ToolTipText, kInk);
  application.setPalette(colours);
  QToolTip::setPalette(colours);
  QApplication::setCursorFlashTime(0);
  QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
  QApplication::setEffectEnabled(Qt::UI_FadeMenu, false);
  QApplication::setEffectEnabled(Qt::UI_AnimateTooltip, false);
  QApplication::setEffectEnabled(Qt::UI_FadeTooltip, false);
}

QString menuSheet(const Look& look) {
  using namespace palette;
  const auto n = [&](double pixels) { return QString::number(look.px(pixels)) + "px"; };
  const double above = look.small() ? 2 : 5, below = look.small() ? 1 : 2;
  return QString(
             "QMenuBar { background: %1; border: none; border-bottom: 1px solid %2; padding-left: %3; "
             "spacing: 0; }"
             "QMenuBar::item { background: transparent; color: %4; padding: %5 %9 %10 %6; }"
             "QMenuBar::item:selected { background: %7; color: white; }"
             "QMenuBar::item:disabled { color: %8; background: transparent; }")
             .arg(hex(kMenu), hex(kPanelLine), n(4), hex(kInk), n(above), n(14), hex(kAccent), hex(kOffText),
                  n(13), n(below)) +
         QString(
             "QMenu { background: %1; border: 1px solid %2; padding: %3 0; }"
             "QMenu::item { color: %4; padding: %5 %6 %5 %7; }"
             "QMenu[crowded=\"true\"]::item { padding: %10 %6 %10 %7; }"
             "QMenu::item:selected { background: %8; color: white; }"
             "QMenu::item:disabled { color: %9; background: transparent; }")
             .arg(hex(kPanel), hex(kFieldLine), n(4), hex(kInk), n(5), n(36), n(18), hex(kAccent),
                  hex(kOffText), n(2)) +
         QString("QMenu::separator { height: 1px; background: %1; margin: %2 %3; }")
             .arg(hex(kPanelLine), n(4), n(10));
}

namespace draw {

void box(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& line, int width,
         double radius, bool dashed) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, radius > 0);
  const double half = width / 2.0;
  const QRectF inner = QRectF(rect).adjusted(half, half, -half, -half);
  QPen pen(line, width);
  pen.setJoinStyle(Qt::MiterJoin);
  if (dashed) pen.setDashPattern({3, 2});
  painter.setPen(pen);
  painter.setBrush(fill);
  if (radius > 0)
    painter.drawRoundedRect(inner, radius, radius);
  else
    painter.drawRect(inner);
  painter.restore();
}

void line(QPainter& painter, const QRect& rect, const QString& text, Qt::Alignment align, bool mnemonic) {
  if (text.isEmpty()) return;
  const int flags =
      static_cast<int>(align | Qt::AlignVCenter) | Qt::TextSingleLine | (mnemonic ? Qt::TextShowMnemonic : 0);
  const QFontMetrics metrics = painter.fontMetrics();
  const int advance = metrics.horizontalAdvance(text);
  const bool fits = advance <= rect.width();
  // A figure that is cut reads as another figure: it is drawn narrower instead.
  if (!fits && align.testFlag(Qt::AlignRight) && rect.width() > 0) {
    painter.save();
    painter.translate(rect.left(), 0);
    painter.scale(double(rect.width()) / advance, 1);
    painter.drawText(QRect(0, rect.top(), advance, rect.height()), flags, text);
    painter.restore();
    return;
  }
  painter.drawText(rect, flags,
                   fits || mnemonic ? text : metrics.elidedText(text, Qt::ElideRight, rect.width()));
}

}  // namespace draw

std::string groupedFigures(const std::string& text) {
  const bool sign = !text.empty() && text.front() == '-';
  bool digit = false;
  for (size_t i = sign ? 1 : 0; i < text.size(); ++i) {
    if (text[i] >= '0' && text[i] <= '9')
      digit = true;
    else if (text[i] != '.')
      return text;
  }
  return digit ? indianGroups(text) : text;
}

std::string groupedMoney(const std::string& text) {
  if (!isNumberText(text)) return groupedFigures(text);
  const size_t point = text.find('.');
  const size_t decimals = point == std::string::npos ? 0 : text.size() - point - 1;
  std::string whole = text;
  if (point == std::string::npos) whole += '.';
  if (decimals < 2) whole.append(2 - decimals, '0');
  return groupedFigures(whole);
}
