#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>
#include <memory>
#include <string>
#include <unordered_map>

#include "platform/paint.h"

// Text laid out the same way for measuring and for drawing. Lengths are units of 1/100 point,
// so that fonts have whole sizes and no rounding to pixels takes place.
namespace paint {

constexpr double kUnits = 100;  // a point

class TextSetter {
 public:
  // One line.
  double width(std::string_view text, const Font& font);
  double lineHeight(const Font& font);
  double lineHeight(const Text& text);  // of its largest piece
  // Lines broken to the width, in place from (0, 0) down.
  std::unique_ptr<QTextLayout> wrapped(const Text& text, double width, HAlign align);
  std::shared_ptr<QTextLayout> line(const Text& text);

 private:
  struct Key {
    std::string family;
    int size;
    int flags;
    bool operator==(const Key&) const = default;
  };
  struct Hash {
    size_t operator()(const Key& key) const;
  };
  struct Face {
    QFont font;
    double lineHeight = 0;
    std::unordered_map<std::string, double> widths;
    std::unordered_map<const char*, QFont> scripts;
  };
  using Formats = QList<QTextLayout::FormatRange>;

  Face& face(const Font& font);
  // The text with the fonts of its pieces and of the Indian scripts in it.
  std::unique_ptr<QTextLayout> layout(const Text& text, bool oneLine);
  static void addScripts(const QString& text, int from, int end, Face& face, Formats& formats);

  std::unordered_map<Key, Face, Hash> faces_;
  // What was measured last is what is drawn next.
  std::shared_ptr<QTextLayout> last_;
  std::string lastText_;
  const Face* lastFace_ = nullptr;
};

}  // namespace paint
