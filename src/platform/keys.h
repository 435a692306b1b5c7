#pragma once

#include <optional>
#include <string>
#include <string_view>

enum class KeyCode {
  None,
  Char,
  Enter,
  Esc,
  Tab,
  Up,
  Down,
  Left,
  Right,
  PgUp,
  PgDn,
  Home,
  End,
  Insert,
  Delete,
  Backspace,
  Space,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
};

// One key as it goes down. Letters and digits that are held with Ctrl or Alt come as
// Char with the upper-case letter; plain typed text does not come as keys but through
// Desk::type.
struct Key {
  KeyCode code = KeyCode::None;
  char32_t ch = 0;
  bool ctrl = false, alt = false, shift = false;

  constexpr Key() = default;
  constexpr Key(KeyCode c) : code(c) {}  // NOLINT: a code is a key without modifiers
  constexpr Key(KeyCode c, char32_t letter, bool withCtrl, bool withAlt, bool withShift)
      : code(c), ch(letter), ctrl(withCtrl), alt(withAlt), shift(withShift) {}

  static constexpr Key Ctrl(char letter) {
    return {KeyCode::Char, static_cast<char32_t>(letter), true, false, false};
  }
  static constexpr Key Alt(char letter) {
    return {KeyCode::Char, static_cast<char32_t>(letter), false, true, false};
  }
  static constexpr Key Ctrl(KeyCode code) { return {code, 0, true, false, false}; }
  static constexpr Key Shift(KeyCode code) { return {code, 0, false, false, true}; }

  constexpr bool operator==(const Key&) const = default;
};

// "Enter", "Shift+Tab", "Ctrl+L", "Alt+P", "Ctrl+F2" (without regard to case); nothing for an unknown name.
std::optional<Key> keyByName(std::string_view name);
std::string nameOf(const Key& key);

// Which characters a field takes.
enum class KeyClass { Any, Number, Text };

// The character that reaches a field, or 0 when the key does nothing. Mode 0 takes
// digits, "." and "-"; mode 1 turns lower case to upper and takes letters, digits,
// blanks and the signs of names and addresses. Letters outside ASCII pass mode 1.
char32_t KeyFilter(int mode, char32_t key);
char32_t filtered(KeyClass keys, char32_t key);
