#pragma once

#include <string_view>

#include "platform/screen.h"

// Typing into a field: text, caret and selection of a control. A date box keeps its mask:
// digits go over the places of "__/__/____".
namespace edit {

void selectAll(Control& control);
void clear(Control& control);  // empties the field (a date box shows its empty mask)
// One character that has passed the filter; false when the field is full.
bool insert(Control& control, char32_t ch);
// Whether a key did something, or a pasted text was taken, and whether the field's text changed.
struct Outcome {
  bool handled = false, changed = false;
};
// A pasted text, cut to the limit; line ends and tabs in it become blanks. A field of figures takes
// what is a number ("Rs. 1,234.50"), as plain digits; all else is not taken. A date box takes a date
// in any form, else the digits.
Outcome paste(Control& control, std::string_view text);
// Backspace, Delete, Left, Right, Home, End, Ctrl+A.
Outcome key(Control& control, const Key& key);
std::string selection(const Control& control);

}  // namespace edit
