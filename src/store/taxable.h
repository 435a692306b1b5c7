#pragma once

#include <string>

// Taxable value in statements. The amount of a line (SALEITM.AMOUNT) is that of its goods; what the bill lets
// off or asks for beside them before tax stands in its head, and the line's share of it in DISC4. Tables are
// given by their name in the statement, with the point; older books may hold Null.

// Of a line.
inline std::string taxableOf(const std::string& line = "") {
  return "(" + line + "AMOUNT + COALESCE(" + line + "DISC4, 0))";
}

// What a head's charges come to, less its discount.
inline std::string chargesOf(const std::string& head = "") {
  return "(COALESCE(" + head + "CHRG_AMT1, 0) + COALESCE(" + head + "CHRG_AMT2, 0) + COALESCE(" + head +
         "CHRG_AMT3, 0) - COALESCE(" + head + "DISC_AMT1, 0))";
}

// Of a head: its goods with them.
inline std::string headTaxableOf(const std::string& head) {
  return "(" + head + "ITEM_AMT + " + chargesOf(head) + ")";
}
