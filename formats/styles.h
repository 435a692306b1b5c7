#pragma once

#include <string>

#include "formats/book.h"

// Number formats, styles and formula pieces that the blocks share.
namespace formats {

// Amounts in lakhs and crores: 1,23,456.78.
inline constexpr const char* kMoney = R"([>=10000000]##\,##\,##\,##0.00;[>=100000]##\,##\,##0.00;##,##0.00)";
// The same with up to four decimals.
inline constexpr const char* kRate =
    R"([>=10000000]##\,##\,##\,##0.00##;[>=100000]##\,##\,##0.00##;##,##0.00##)";
inline constexpr const char* kRupees =
    R"([>=10000000]"₹ "##\,##\,##\,##0.00;[>=100000]"₹ "##\,##\,##0.00;"₹ "##,##0.00)";
inline constexpr const char* kDay = "dd/mm/yyyy";

inline Style with(Style style, Edges edges) {
  style.edges = edges;
  return style;
}

inline std::string unlessZero(const std::string& number) {
  return "IF(ROUND(" + number + ",4)=0,\"\"," + number + ")";
}

inline std::string sum(const std::string& range) { return "SUM(" + range + ")"; }

}  // namespace formats
