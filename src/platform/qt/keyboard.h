#pragma once

#include <QKeyEvent>

#include "platform/keys.h"

// Keys of Qt and keys of the desk.
namespace keyboard {

// The key that went down; KeyCode::None for modifiers alone and keys that the program has no use for.
Key keyOf(const QKeyEvent& event);
// The text that it types, empty when it is no plain typing.
std::string textOf(const QKeyEvent& event);

struct Raw {
  int key = 0;
  Qt::KeyboardModifiers modifiers;
  QString text;
};
Raw rawOf(const Key& key);
Raw rawOf(char32_t typed);

}  // namespace keyboard
