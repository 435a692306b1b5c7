#include "platform/keys.h"

#include <array>
#include <utility>

#include "base/text.h"
#include "platform/utf8.h"

namespace {

constexpr std::array<std::pair<std::string_view, KeyCode>, 27> kNames{
    {
     {"Enter", KeyCode::Enter}, {"Esc", KeyCode::Esc},
     {"Tab", KeyCode::Tab}, {"Up", KeyCode::Up},
     {"Down", KeyCode::Down}, {"Left", KeyCode::Left},
     {"Right", KeyCode::Right}, {"PgUp", KeyCode::PgUp},
     {"PgDn", KeyCode::PgDn}, {"Home", KeyCode::Home},
     {"End", KeyCode::End}, {"Insert", KeyCode::Insert},
     {"Delete", KeyCode::Delete}, {"Backspace", KeyCode::Backspace},
     {"Space", KeyCode::Space}, {"F1", KeyCode::F1},
     {"F2", KeyCode::F2}, {"F3", KeyCode::F3},
     {"F4", KeyCode::F4}, {"F5", KeyCode::F5},
     {"F6", KeyCode::F6}, {"F7", KeyCode::F7},
     {"F8", KeyCode::F8}, {"F9", KeyCode::F9},
     {"F10", KeyCode::F10}, {"F11", KeyCode::F11},
     {"F12", KeyCode::F12},
     }
};

// Signs that names, addresses and bill numbers are made of.
constexpr std::u32string_view kTextSigns = U" .+()-/&',:;#%@*=_\"\\";

}  // namespace

std::optional<Key> keyByName(std::string_view name) {
  Key key;
  for (size_t plus = name.find('+'); plus != std::string_view::npos && plus + 1 < name.size();
       plus = name.find('+')) {
    const std::string_view held = name.substr(0, plus);
    if (sameText(held, "Ctrl"))
      key.ctrl = true;
    else if (sameText(held, "Alt"))
      key.alt = true;
    else if (sameText(held, "Shift"))
      key.shift = true;
    else
      return std::nullopt;
    name.remove_prefix(plus + 1);
  }
  for (const auto& [known, code] : kNames) {
    if (!sameText(name, known)) continue;
    key.code = code;
    return key;
  }
  const std::u32string letter = utf8::decode(upper(name));
  if (letter.size() != 1) return std::nullopt;
  key.code = KeyCode::Char;
  key.ch = letter.front();
  return key;
}

std::string nameOf(const Key& key) {
  std::string name;
  if (key.ctrl) name += "Ctrl+";
  if (key.alt) name += "Alt+";
  if (key.shift) name += "Shift+";
  if (key.code == KeyCode::Char) return name + utf8::encode(key.ch);
  for (const auto& [known, code] : kNames)
    if (code == key.code) return name + std::string(known);
  return name;
}

char32_t KeyFilter(int mode, char32_t key) {
  const bool digit = key >= U'0' && key <= U'9';
  if (mode == 0) return digit || key == U'.' || key == U'-' ? key : 0;
  if (key >= U'a' && key <= U'z') return key - 32;
  const bool upper = key >= U'A' && key <= U'Z';
  return digit || upper || key >= 0x80 || kTextSigns.find(key) != std::u32string_view::npos ? key : 0;
}

char32_t filtered(KeyClass keys, char32_t key) {
  if (key < U' ' || key == 0x7F) return 0;
  switch (keys) {
    case KeyClass::Number:
      return KeyFilter(0, key);
    case KeyClass::Text:
      return KeyFilter(1, key);
    case KeyClass::Any:
      break;
  }
  return key;
}
