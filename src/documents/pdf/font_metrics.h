#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// What a PDF file says of the fonts that it does not carry: names, descriptors and the published
// widths of four families.
namespace pdf {

constexpr int kFirstCharacter = 32, kLastCharacter = 255;
using CharacterWidths = std::array<uint16_t, kLastCharacter - kFirstCharacter + 1>;

struct FontMetrics {
  std::string base;                         // "TimesNewRoman,Bold"
  std::string descriptor;                   // what follows its name in the font descriptor
  const CharacterWidths* widths = nullptr;  // thousandths of the size
};

// Blanks and letter case of the family do not count; an unknown one gets the metrics of Calibri.
// Style: 0 regular, 1 bold, 2 italic, 3 both. Raises std::out_of_range for another.
FontMetrics fontMetrics(std::string_view family, int style);

// Behind the name of a font in that style: "", ",Bold", ",Italic", ",BoldItalic".
std::string_view styleEnding(int style);

const CharacterWidths& timesWidths(int style);
const CharacterWidths& calibriWidths(int style);
const CharacterWidths& courierWidths(int style);
const CharacterWidths& symbolWidths(int style);

}  // namespace pdf
