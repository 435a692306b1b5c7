#pragma once

#include <string>
#include <string_view>
#include <vector>

// UTF-8 text. Lengths and positions count code points; letter case is that of ASCII alone, so
// that Gujarati, Hindi and accented letters stay as they are.

// Blanks only, as a field's text is trimmed.
std::string trim(std::string_view text);
std::string ltrim(std::string_view text);

std::string upper(std::string_view text);
std::string lower(std::string_view text);
bool sameText(std::string_view a, std::string_view b);
bool startsWithNoCase(std::string_view text, std::string_view start);

int length(std::string_view text);
std::string left(std::string_view text, int n);
std::string right(std::string_view text, int n);
// From position start1 (1 is the first), to the end or at most n.
std::string mid(std::string_view text, int start1, int n = -1);
// To what a column of n characters holds.
std::string cut(std::string_view text, int n);

std::string replaceAll(std::string_view text, std::string_view what, std::string_view by);
std::vector<std::string> split(std::string_view text, std::string_view separator);
std::string join(const std::vector<std::string>& parts, std::string_view separator);
// Fills up to n characters in front.
std::string padLeft(std::string_view text, int n, char fill = ' ');
