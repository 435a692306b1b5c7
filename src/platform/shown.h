#pragma once

#include <string>

#include "platform/screen.h"

// What stands on the screen for a control's text. Captions of buttons and check boxes are words; so
// is a label that still reads as its table says. Whatever a handler put into a label, a field or a
// cell is data, or words that it has looked up itself. Labels beside fields, captions, titles of
// columns, hints, panels and all else that a screen says are words: hosts pass them through words().
std::string shownText(const Control& control);

// Whether the letter, in upper case, is the one behind & in a button's caption as it is shown.
bool isLetterOf(const Control& button, char32_t letter);
