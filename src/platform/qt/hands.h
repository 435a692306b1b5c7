#pragma once

#include <string>

#include "platform/screen.h"

// What a person does with the mouse or an input method, told by the widgets of one screen.
// The host passes on what happens on the screen on top and drops the rest.
class Hands {
 public:
  virtual ~Hands() = default;
  virtual void pressed(Screen& screen, Control& control) = 0;  // a button or check box
  // Into a field, or dragged on: selection from `anchor` to `caret` in code points.
  virtual void pointed(Screen& screen, Control& control, size_t anchor, size_t caret) = 0;
  // By an input method, in place of what is selected; an empty text takes that away.
  virtual void committed(const std::string& text) = 0;
  virtual void rowPressed(Screen& screen, Control& control, size_t row) = 0;
  virtual void rowDoubled(Screen& screen, Control& control) = 0;
};
