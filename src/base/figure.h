#pragma once

#include <string_view>

#include "base/words.h"

// Figures as people type and paste them.

// One that no book holds: endless, beyond 10^13 on either side of 0, or of more than 15 digits, the
// last of which would be lost.
bool figureRefused(std::string_view text);
inline constexpr const char* kFigureRefused =
    english("This Figure Is Above 10000000000000\nOr Has More Than 15 Digits, Correct It");

// Digits of Devanagari and Gujarati are digits; all else is itself.
char32_t plainDigit(char32_t ch);
