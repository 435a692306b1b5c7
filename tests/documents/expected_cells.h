#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "base/number.h"
#include "documents/data_sheet.h"

// What must stand on a data sheet, cell by cell; Value() for a cell that stays empty.
struct Expected {
  int row, column;
  workbook::Value value;
};

inline std::string shown(const workbook::Value& value) {
  if (value.text()) return *value.text();
  return value.number() ? numText(*value.number()) : std::string("(empty)");
}

inline void expectCells(const DataSheet& sheet, const std::vector<Expected>& cells) {
  for (const auto& [row, column, value] : cells) {
    const workbook::Value found = sheet.at(row, column);
    const bool close = value.number() && found.number() && std::abs(*value.number() - *found.number()) < 1e-9;
    EXPECT_TRUE(close || found == value)
        << "R" << row << "C" << column << " is " << shown(found) << ", not " << shown(value);
  }
}

// Labels in row 3 over values in row 4 of the company that the tests bill for.
inline void expectCompanyPairs(const DataSheet& sheet) {
  using workbook::Value;
  expectCells(sheet, {
                         {3, 1,  "12, ASHRAM ROAD"    },
                         {3, 2,  Value()              },
                         {3, 3,  "079-26580001"       },
                         {3, 5,  "9825012345"         },
                         {3, 9,  "STATE"              },
                         {4, 9,  "GUJARAT"            },
                         {3, 16, "BANK NAME"          },
                         {4, 16, "STATE BANK OF INDIA"},
                         {3, 17, "BRANCH"             },
                         {4, 17, "NAVRANGPURA"        },
                         {3, 18, "IFSC"               },
                         {4, 18, Value()              },
                         {3, 19, "AC_NO"              },
                         {4, 19, "30012345678"        },
                         {3, 20, "EMAIL"              },
                         {4, 20, "ganesh@example.com" },
                         {3, 24, "GSTINNO"            },
                         {4, 24, "24ABCDE1234F1Z5"    },
                         {3, 26, "STATECD"            },
                         {4, 26, "24"                 },
                         {3, 27, "CITY"               },
                         {4, 27, "."                  },
                         {3, 28, "STATE"              },
                         {4, 28, "AHMEDABAD"          },
  });
}
