#include "platform/qt/paint_text.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cmath>

namespace paint {
namespace {

constexpr size_t kMaxWidths = 4096;

struct Twin {
  const char* family;
  const char* twin;
};
constexpr std::array<Twin, 8> kTwins{
    {
     {"Calibri", "Carlito"},
     {"Cambria", "Caladea"},
     {"Arial", "Liberation Sans"},
     {"Arial Narrow", "Liberation Sans Narrow"},
     {"Helvetica", "Liberation Sans"},
     {"Times New Roman", "Liberation Serif"},
     {"Courier New", "Liberation Mono"},
     {"Verdana", "DejaVu Sans"},
     }
};
// For scripts and signs that a family lacks.
constexpr std::array<const char*, 9> kOthers{"Carlito",        "Liberation Sans",      "Noto Sans Gujarati",
                                             "Lohit Gujarati", "Noto Sans Devanagari", "Lohit Devanagari",
                                             "Noto Sans",      "DejaVu Sans",          "Noto Sans Symbols2"};

bool installed(const QString& family) {
  static const QStringList families = QFontDatabase::families();
  return families.contains(family, Qt::CaseInsensitive);
}

QStringList families(const std::string& wanted) {
  QStringList list;
  const QString own = QString::fromStdString(wanted);
  if (installed(own)) list << own;
  for (const Twin& twin : kTwins)
    if (own.compare(QLatin1String(twin.family), Qt::CaseInsensitive) == 0 &&
        installed(QLatin1String(twin.twin)))
      list << QLatin1String(twin.twin);
  for (const char* other : kOthers)
    if (installed(QLatin1String(other)) && !list.contains(QLatin1String(other))) list << QLatin1String(other);
  if (list.empty()) list << own;
  return list;
}

QString lineText(std::string_view text) {
  QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  line.replace(QLatin1Char('\n'), QChar::LineSeparator);
  line.remove(QLatin1Char('\r'));
  return line;
}

}  // namespace

size_t TextSetter::Hash::operator()(const Key& key) const {
  return std::hash<std::string>()(key.family) ^
         (static_cast<size_t>(key.size) * 31 + static_cast<size_t>(key.flags));
}

TextSetter::Face& TextSetter::face(const Font& font) {
  const int size = std::max(static_cast<int>(std::lround(font.size * kUnits)), 1);
  const int flags = font.bold | font.italic << 1 | font.underline << 2 | font.strike << 3;
  const auto [found, fresh] = faces_.try_emplace(Key{font.family, size, flags});
  Face& face = found->second;
  if (!fresh) return face;
  face.font.setFamilies(families(font.family));
  face.font.setPixelSize(size);
  face.font.setBold(font.bold);
  face.font.setItalic(font.italic);
  face.font.setUnderline(font.underline);
  face.font.setStrikeOut(font.strike);
  face.font.setHintingPreference(QFont::PreferNoHinting);
  face.font.setKerning(true);
  // Any spacing keeps letters apart that would become one ligature, whose parts are lost
  // when the text is taken out of the paper again.
  face.font.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 32);
  const QFontMetricsF metrics(face.font);
  face.lineHeight = (metrics.ascent() + metrics.descent()) / kUnits;
  return face;
}

QFont TextSetter::font(const Font& font) { return face(font).font; }

double TextSetter::lineHeight(const Font& font) { return face(font).lineHeight; }

double TextSetter::width(std::string_view text, const Font& font) {
  auto& widths = face(font).widths;
  std::string key(text);
  if (const auto found = widths.find(key); found != widths.end()) return found->second;
  const double width = line(text, font)->lineAt(0).naturalTextWidth() / kUnits;
  if (widths.size() >= kMaxWidths) widths.clear();
  widths.emplace(std::move(key), width);
  return width;
}

std::unique_ptr<QTextLayout> TextSetter::line(std::string_view text, const Font& font) {
  QString one = lineText(text);
  one.replace(QChar::LineSeparator, QLatin1Char(' '));
  auto layout = std::make_unique<QTextLayout>(one, face(font).font);
  QTextOption option(Qt::AlignLeft);
  option.setWrapMode(QTextOption::NoWrap);
  option.setFlags(QTextOption::IncludeTrailingSpaces);
  layout->setTextOption(option);
  layout->beginLayout();
  layout->createLine().setLineWidth(1e6);
  layout->endLayout();
  return layout;
}

std::unique_ptr<QTextLayout> TextSetter::wrapped(std::string_view text, const Font& font, double width,
                                                 HAlign align) {
  auto layout = std::make_unique<QTextLayout>(lineText(text), face(font).font);
  QTextOption option(align == HAlign::Right     ? Qt::AlignRight
                     : align == HAlign::Centre  ? Qt::AlignHCenter
                     : align == HAlign::Justify ? Qt::AlignJustify
                                                : Qt::AlignLeft);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout->setTextOption(option);
  layout->beginLayout();
  const double tall = face(font).lineHeight * kUnits;
  double y = 0;
  for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
    line.setLineWidth(std::max(width * kUnits, 1.0));
    line.setPosition({0, y});
    y += tall;
  }
  layout->endLayout();
  return layout;
}

}  // namespace paint
