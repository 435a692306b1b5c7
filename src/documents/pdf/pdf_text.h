#pragma once

#include <string>
#include <string_view>

// The small parts of a PDF file's text.
namespace pdf {

// Rounded to four decimals, a full stop whatever the machine's regional settings, no exponent.
// Raises std::invalid_argument for what is no number or beyond what a page can hold.
void appendNumber(std::string& to, double value);
std::string numberText(double value);

// "/Fnt1"; signs that a name cannot hold are written by their code.
std::string nameText(std::string_view name);

// Bytes with their parentheses and back-slashes escaped.
void appendEscaped(std::string& to, std::string_view bytes);

// "(text)"; a text that is not plain ASCII as "<FEFF...>".
std::string textString(std::string_view utf8);

}  // namespace pdf
