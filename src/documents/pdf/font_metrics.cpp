#include "documents/pdf/font_metrics.h"

#include <algorithm>
#include <stdexcept>

#include "base/text.h"

namespace pdf {
namespace {

constexpr int kBold = 1, kItalic = 2, kStyles = 4;
constexpr int kBoldFlag = 16384, kItalicFlag = 64;

struct Family {
  const char* key;
  const char* base;
  int flags;
  const char* box;
  int missing, stem, boldStem, italicAngle, capHeight, xHeight, ascent, descent, leading, widest;
  std::array<int, kStyles> average;
  const CharacterWidths& (*widths)(int style);
};

// clang-format off
constexpr Family kFamilies[] = {
    {.key = "TIMESNEWROMAN", .base = "TimesNewRoman", .flags = 34, .box = "-250 -216 1200 1000", .missing = 333, .stem = 73,  .boldStem = 136, .italicAngle = -16, .capHeight = 891, .xHeight = 446, .ascent = 891,  .descent = -216, .leading = 149, .widest = 1000, .average = {401, 427, 402, 412}, .widths = timesWidths},
    {.key = "COURIERNEW",    .base = "CourierNew",    .flags = 34, .box = "-250 -300 720 1000",  .missing = 600, .stem = 109, .boldStem = 191, .italicAngle = -12, .capHeight = 833, .xHeight = 417, .ascent = 833,  .descent = -300, .leading = 133, .widest = 600,  .average = {600, 600, 600, 600}, .widths = courierWidths},
    {.key = "SYMBOL",        .base = "Symbol",        .flags = 6,  .box = "-250 -220 1246 1005", .missing = 332, .stem = 109, .boldStem = 191, .italicAngle = -12, .capHeight = 729, .xHeight = 500, .ascent = 1005, .descent = -220, .leading = 225, .widest = 1042, .average = {600, 600, 600, 600}, .widths = symbolWidths},
    {.key = "CALIBRI",       .base = "Calibri",       .flags = 32, .box = "-250 -221 1190 1000", .missing = 272, .stem = 80,  .boldStem = 138, .italicAngle = -11, .capHeight = 905, .xHeight = 453, .ascent = 905,  .descent = -212, .leading = 150, .widest = 992,  .average = {441, 479, 441, 479}, .widths = calibriWidths},
};
// clang-format on

const Family& familyOf(std::string_view name) {
  const std::string key = replaceAll(upper(name), " ", "");
  const auto* const found =
      std::find_if(std::begin(kFamilies), std::end(kFamilies), [&](const Family& f) { return key == f.key; });
  return found == std::end(kFamilies) ? *std::prev(std::end(kFamilies)) : *found;
}

std::string descriptorOf(const Family& f, int style) {
  const bool bold = (style & kBold) != 0, italic = (style & kItalic) != 0;
  const auto text = [](int number) { return std::to_string(number); };
  const std::string stem = text(bold ? f.boldStem : f.stem);
  const int flags = f.flags + (bold ? kBoldFlag : 0) + (italic ? kItalicFlag : 0);
  return "/Flags " + text(flags) + " /FontBBox [" + f.box + "] \r" +               //
         "/MissingWidth " + text(f.missing) + " /StemV " + stem + " \r" +          //
         "/StemH " + stem + " /ItalicAngle " + text(italic ? f.italicAngle : 0) +  //
         " /CapHeight " + text(f.capHeight) + " /XHeight " + text(f.xHeight) + " \r" + "/Ascent " +
         text(f.ascent) + " /Descent " + text(f.descent) + " /Leading " + text(f.leading) + " \r" +
         "/MaxWidth " + text(f.widest) + " /AvgWidth " + text(f.average[static_cast<size_t>(style)]);
}

}  // namespace

std::string_view styleEnding(int style) {
  constexpr std::array<std::string_view, kStyles> kEndings{"", ",Bold", ",Italic", ",BoldItalic"};
  if (style < 0 || style >= kStyles)
    throw std::out_of_range("there is no font style " + std::to_string(style));
  return kEndings[static_cast<size_t>(style)];
}

FontMetrics fontMetrics(std::string_view family, int style) {
  const std::string_view ending = styleEnding(style);
  const Family& f = familyOf(family);
  return {f.base + std::string(ending), descriptorOf(f, style), &f.widths(style)};
}

}  // namespace pdf
