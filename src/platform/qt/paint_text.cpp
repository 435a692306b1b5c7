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
// For signs that a family lacks.
constexpr std::array<const char*, 5> kOthers{"Carlito", "Liberation Sans", "Noto Sans", "DejaVu Sans",
                                             "Noto Sans Symbols2"};

// The families "Noto Sans <name>" and "Lohit <name>" are asked for a script at once: they shape
// it, and no search through the other families takes place.
struct Script {
  char16_t first, last;
  const char* name;
};
constexpr std::array<Script, 9> kScripts{
    {
     {0x0900, 0x097F, "Devanagari"},
     {0x0980, 0x09FF, "Bengali"},
     {0x0A00, 0x0A7F, "Gurmukhi"},
     {0x0A80, 0x0AFF, "Gujarati"},
     {0x0B00, 0x0B7F, "Oriya"},
     {0x0B80, 0x0BFF, "Tamil"},
     {0x0C00, 0x0C7F, "Telugu"},
     {0x0C80, 0x0CFF, "Kannada"},
     {0x0D00, 0x0D7F, "Malayalam"},
     }
};

const Script* scriptOf(QChar c) {
  for (const Script& script : kScripts)
    if (c.unicode() >= script.first && c.unicode() <= script.last) return &script;
  return nullptr;
}

bool joiner(QChar c) { return c.unicode() == 0x200C || c.unicode() == 0x200D; }

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

std::unique_ptr<QTextLayout> TextSetter::layout(const QString& text, Face& face) {
  auto layout = std::make_unique<QTextLayout>(text, face.font);
  QList<QTextLayout::FormatRange> ranges;
  for (int at = 0; at < text.size();) {
    const Script* script = scriptOf(text[at]);
    int end = at + 1;
    const auto belongs = [&](int i) {
      const bool between =
          script && text[i] == QLatin1Char(' ') && i + 1 < text.size() && scriptOf(text[i + 1]) == script;
      return scriptOf(text[i]) == script || between || (script && joiner(text[i]));
    };
    while (end < text.size() && belongs(end)) ++end;
    if (script) {
      const auto [found, fresh] = face.scripts.try_emplace(script->name, face.font);
      if (fresh) {
        QStringList list;
        for (const char* foundry : {"Noto Sans ", "Lohit "})
          if (const QString family = QLatin1String(foundry) + QLatin1String(script->name); installed(family))
            list << family;
        found->second.setFamilies(list + face.font.families());
      }
      QTextCharFormat format;
      format.setFont(found->second);
      ranges.append({at, end - at, format});
    }
    at = end;
  }
  if (!ranges.isEmpty()) layout->setFormats(ranges);
  return layout;
}

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
  auto layout = TextSetter::layout(one, face(font));
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
  auto layout = TextSetter::layout(lineText(text), face(font));
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
