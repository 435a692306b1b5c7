#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/number.h"
#include "documents/data_sheet.h"

// What stands in a row of a data sheet, each cell behind the number of its column:
// "3 SHREE GANESH TRADERS | 5 9825012345". Dates are their numbers.
inline std::string rowText(const DataSheet& sheet, int row, int first = 1, int last = 1000) {
  std::string text;
  for (auto at = sheet.cells().lower_bound({row, first}); at != sheet.cells().end(); ++at) {
    const auto& [place, value] = *at;
    if (place.first != row || place.second > last) break;
    text += (text.empty() ? "" : " | ") + std::to_string(place.second) + " ";
    text += value.text() ? *value.text() : numText(*value.number());
  }
  return text;
}

struct ExpectedRow {
  int row, first, last;
  const char* text;
};

inline void expectRows(const DataSheet& sheet, const std::vector<ExpectedRow>& rows) {
  for (const auto& [row, first, last, text] : rows) EXPECT_EQ(rowText(sheet, row, first, last), text) << row;
}
