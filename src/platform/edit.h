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
// A pasted text as it is, cut to the limit; into a date box only a date's digits.
bool paste(Control& control, std::string_view text);
// Backspace, Delete, Left, Right, Home, End, Ctrl+A; tells whether the key did something
// and whether the text changed.
struct Outcome {
  bool handled = false, changed = false;
};
Outcome key(Control& control, const Key& key);
std::string selection(const Control& control);

}  // namespace edit
