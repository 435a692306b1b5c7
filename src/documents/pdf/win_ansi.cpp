#include "documents/pdf/win_ansi.h"

#include <algorithm>
#include <array>

#include "platform/utf8.h"

namespace pdf {
namespace {

constexpr char32_t kDelete = 0x7F;

// The codes 80 to 9F; 0 where there is none.
constexpr std::array<char16_t, 32> kUpper = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

// Latin letters by their base letter, from the Unicode character database.
constexpr char32_t kLatinA = 0x0100, kLatinMore = 0x1E00;
constexpr std::string_view kLatinABase =
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlL"
    "lLlNnNnNnnNnOoOoOoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
constexpr std::string_view kLatinMoreBase =
    "AaBbBbBbCcDdDdDdDdDdEeEeEeEeEeFfGgHhHhHhHhHhIiIiKkKkKkLlLlLlLlMm"
    "MmMmNnNnNnNnOoOoOoOoPpPpRrRrRrRrSsSsSsSsSsTtTtTtTtUuUuUuUuUuVvVv"
    "WwWwWwWwWwXxXxYyZzZzZzhtwyasssSdAaAaAaAaAaAaAaAaAaAaAaAaEeEeEeEe"
    "EeEeEeEeIiIiOoOoOoOoOoOoOoOoOoOoOoOoUuUuUuUuUuUuUuYyYyYyYyLlVvYy";

struct Range {
  char32_t first, last;
  const char* by;
};
// clang-format off
constexpr Range kRanges[] = {
    {0x0300, 0x036F, ""  },  // accents that follow their letter
    {0x2000, 0x200A, " " },
    {0x200B, 0x200F, ""  },  // joiners and directions
    {0x2010, 0x2012, "-" },
    {0x2015, 0x2015, "-" },
    {0x201B, 0x201B, "'" },
    {0x201F, 0x201F, "\""},
    {0x2028, 0x2029, " " },
    {0x202A, 0x202E, ""  },
    {0x202F, 0x202F, " " },
    {0x2032, 0x2032, "'" },
    {0x2033, 0x2033, "\""},
    {0x2044, 0x2044, "/" },
    {0x205F, 0x205F, " " },
    {0x2060, 0x2064, ""  },
    {0x20A8, 0x20A8, "Rs"},
    {0x20B9, 0x20B9, "Rs"},
    {0x2103, 0x2103, "\xB0" "C"},
    {0x2116, 0x2116, "No"},
    {0x2190, 0x2190, "<-"},
    {0x2192, 0x2192, "->"},
    {0x2212, 0x2212, "-" },
    {0x2260, 0x2260, "<>"},
    {0x2264, 0x2264, "<="},
    {0x2265, 0x2265, ">="},
    {0x3000, 0x3000, " " },
    {0xFB01, 0xFB01, "fi"},
    {0xFB02, 0xFB02, "fl"},
    {0xFE00, 0xFE0F, ""  },  // which picture of the sign before
    {0xFEFF, 0xFEFF, ""  },
};
// clang-format on

bool plain(char32_t c) { return c >= ' ' && c < kDelete; }

void append(AnsiText& text, char32_t c) {
  constexpr char32_t kFirstUpper = 0x80, kFirstLatin = 0xA0, kEnd = 0x100;
  constexpr char32_t kWideFirst = 0xFF01, kWideLast = 0xFF5E;
  if (plain(c) || (c >= kFirstLatin && c < kEnd)) {
    text.bytes += static_cast<char>(c);
  } else if (c < ' ' || (c >= kDelete && c < kFirstLatin)) {
    text.bytes += ' ';
  } else if (const auto* upper = std::find(kUpper.begin(), kUpper.end(), c); upper != kUpper.end()) {
    text.bytes += static_cast<char>(kFirstUpper + static_cast<char32_t>(upper - kUpper.begin()));
  } else if (c < kLatinA + kLatinABase.size()) {
    text.bytes += kLatinABase[c - kLatinA];
  } else if (c >= kLatinMore && c < kLatinMore + kLatinMoreBase.size()) {
    text.bytes += kLatinMoreBase[c - kLatinMore];
  } else if (c >= kWideFirst && c <= kWideLast) {
    text.bytes += static_cast<char>(c - kWideFirst + '!');
  } else if (const auto* range = std::find_if(std::begin(kRanges), std::end(kRanges),
                                              [&](const Range& r) { return c >= r.first && c <= r.last; });
             range != std::end(kRanges)) {
    text.bytes += range->by;
  } else {
    text.bytes += '?';
    ++text.lost;
  }
}

}  // namespace

AnsiText winAnsi(std::string_view utf8) {
  if (std::ranges::all_of(utf8, [](char c) { return plain(static_cast<unsigned char>(c)); }))
    return {std::string(utf8)};
  AnsiText text;
  for (const char32_t c : utf8::decode(utf8)) append(text, c);
  return text;
}

}  // namespace pdf
