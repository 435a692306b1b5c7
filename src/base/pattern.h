#pragma once

#include <string>
#include <string_view>

// Numbers written by a pattern.

// Pattern signs: 0 a digit that always stands, # one that stands when there is one, the point,
// and a comma among the whole digits for groups of three ("0.00", "000", "#,##0.00"). Other
// signs before and behind stand for themselves. Rounds half away from zero on the decimal form
// of the number's 15 significant digits: 2.675 with "0.00" gives 2.68.
std::string Format(double value, std::string_view pattern);

// Groups a number's whole digits the Indian way: "1234567.5" -> "12,34,567.5".
std::string indianGroups(std::string_view numberText);
