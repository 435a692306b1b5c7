#pragma once

#include <string>
#include <string_view>

// Numbers as the screens and statements use them: 64-bit floating point read from text and
// written to text, the same on every machine whatever its regional settings.

// The number at the start of a text: leading blanks, sign, digits, point, exponent. Anything
// else ends it; a text without a number gives 0. Never an infinity, never "not a number".
double Val(std::string_view text);
// The whole text, blanks around it aside, is one number as Val reads it.
bool isNumberText(std::string_view text);

// To d decimals, the scaled double's exact half going to the even neighbour: 2.5 -> 2, 0.125 -> 0.12.
double Round(double x, int d);

// At most 15 significant digits, no trailing zeros: 12.5, 30, 0.1. Never "-0".
std::string numText(double x);

// The next whole number upward; a whole number stays. Used for page counts.
long RoundUp(double x);

// The whole part; what an int cannot hold stays at its limit, and "not a number" is 0.
int toInt(double x);
