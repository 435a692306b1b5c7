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

void TextSetter::addScripts(const QString& text, int from, int stop, Face& face, Formats& formats) {
  for (int at = from; at < stop;) {
    const Script* script = scriptOf(text[at]);
    int end = at + 1;
    // Blanks, marks and digits take the script before them, for which other fonts are refused.
    const auto belongs = [&](int i) {
      const bool neutral = text[i].script() == QChar::Script_Common || joiner(text[i]);
      return scriptOf(text[i]) == script || (script && neutral);
    };
    while (end < stop && belongs(end)) ++end;
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
      formats.append({at, end - at, format});
    }
    at = end;
  }
}

std::unique_ptr<QTextLayout> TextSetter::layout(const Text& text, bool oneLine) {
  QString whole;
  Formats formats;
  size_t at = 0;
  const auto add = [&](std::string_view piece, Face& own, const Colour* colour) {
    const auto from = static_cast<int>(whole.size());
    whole += lineText(piece);
    const auto end = static_cast<int>(whole.size());
    QTextCharFormat look;
    if (colour) {
      look.setFont(own.font);
      look.setForeground(QColor(colour->r, colour->g, colour->b));
      formats.append({from, end - from, look});
    }
    const auto scripts = formats.size();
    addScripts(whole, from, end, own, formats);
    for (auto i = scripts; colour && i < formats.size(); ++i)
      formats[i].format.setForeground(look.foreground());
  };
  for (const Text::Run& run : text.runs) {
    add(text.text.substr(std::min(at, text.text.size()), run.size), face(run.font), &run.colour);
    at += run.size;
  }
  if (text.runs.empty()) add(text.text, face(text.font), nullptr);
  if (oneLine) whole.replace(QChar::LineSeparator, QLatin1Char(' '));
  auto layout = std::make_unique<QTextLayout>(whole, face(text.font).font);
  if (!formats.isEmpty()) layout->setFormats(formats);
  return layout;
}

double TextSetter::lineHeight(const Font& font) { return face(font).lineHeight; }

double TextSetter::lineHeight(const Text& text) {
  double most = text.runs.empty() ? lineHeight(text.font) : 0;
  for (const Text::Run& run : text.runs) most = std::max(most, lineHeight(run.font));
  return most;
}

double TextSetter::width(std::string_view text, const Font& font) {
  auto& widths = face(font).widths;
  std::string key(text);
  if (const auto found = widths.find(key); found != widths.end()) return found->second;
  const double width =
      line({.text = text, .box = {}, .clip = {}, .font = font, .colour = {}})->lineAt(0).naturalTextWidth() /
      kUnits;
  if (widths.size() >= kMaxWidths) widths.clear();
  widths.emplace(std::move(key), width);
  return width;
}

std::shared_ptr<QTextLayout> TextSetter::line(const Text& text) {
  const Face* const own = text.runs.empty() ? &face(text.font) : nullptr;
  if (own && own == lastFace_ && text.text == lastText_) return last_;
  std::shared_ptr<QTextLayout> layout = TextSetter::layout(text, true);
  QTextOption option(Qt::AlignLeft);
  option.setWrapMode(QTextOption::NoWrap);
  option.setFlags(QTextOption::IncludeTrailingSpaces);
  layout->setTextOption(option);
  layout->beginLayout();
  layout->createLine().setLineWidth(1e6);
  layout->endLayout();
  last_ = layout;
  lastText_ = text.text;
  lastFace_ = own;
  return layout;
}

std::unique_ptr<QTextLayout> TextSetter::wrapped(const Text& text, double width, HAlign align) {
  auto layout = TextSetter::layout(text, false);
  QTextOption option(align == HAlign::Right     ? Qt::AlignRight
                     : align == HAlign::Centre  ? Qt::AlignHCenter
                     : align == HAlign::Justify ? Qt::AlignJustify
                                                : Qt::AlignLeft);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout->setTextOption(option);
  layout->beginLayout();
  const double tall = lineHeight(text) * kUnits;
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
