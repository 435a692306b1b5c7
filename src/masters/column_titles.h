#pragma once

#include <string>
#include <string_view>

#include "platform/grid.h"

// How a stored column reads as a column of a lookup: its title, its alignment and the width
// that its content asks for.
struct ColumnTitle {
  std::string title;
  double width = 120;  // pixels at 1366 x 768
  Align align = Align::Left;
  bool money = false;
};

// A column that is not known by name gets its name in words: "PARTY_TYP" reads "Party Typ".
ColumnTitle columnTitle(std::string_view column);
