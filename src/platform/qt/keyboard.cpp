#include "platform/qt/keyboard.h"

#include <array>

namespace keyboard {
namespace {

struct Row {
  Qt::Key qt;
  KeyCode code;
};

// clang-format off
constexpr std::array<Row, 17> kKeys{{
    {Qt::Key_Return,    KeyCode::Enter},
    {Qt::Key_Enter,     KeyCode::Enter},
    {Qt::Key_Escape,    KeyCode::Esc},
    {Qt::Key_Tab,       KeyCode::Tab},
    {Qt::Key_Backtab,   KeyCode::Tab},
    {Qt::Key_Up,        KeyCode::Up},
    {Qt::Key_Down,      KeyCode::Down},
    {Qt::Key_Left,      KeyCode::Left},
    {Qt::Key_Right,     KeyCode::Right},
    {Qt::Key_PageUp,    KeyCode::PgUp},
    {Qt::Key_PageDown,  KeyCode::PgDn},
    {Qt::Key_Home,      KeyCode::Home},
    {Qt::Key_End,       KeyCode::End},
    {Qt::Key_Insert,    KeyCode::Insert},
    {Qt::Key_Delete,    KeyCode::Delete},
    {Qt::Key_Backspace, KeyCode::Backspace},
    {Qt::Key_Space,     KeyCode::Space},
}};
// clang-format on

constexpr int kFunctionKeys = 12;

}  // namespace

Key keyOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  Key key;
  key.ctrl = held & Qt::ControlModifier;
  key.alt = held & Qt::AltModifier;
  key.shift = held & Qt::ShiftModifier;
  if (event.key() == Qt::Key_Insert && key.shift && !key.ctrl) return Key::Ctrl('V');
  if (event.key() >= Qt::Key_F1 && event.key() < Qt::Key_F1 + kFunctionKeys) {
    key.code = static_cast<KeyCode>(static_cast<int>(KeyCode::F1) + event.key() - Qt::Key_F1);
    return key;
  }
  for (const Row& row : kKeys) {
    if (row.qt != event.key()) continue;
    key.code = row.code;
    if (row.qt == Qt::Key_Backtab) key.shift = true;
    return key;
  }
  // Letters and digits held with Ctrl or Alt; Qt names them by their upper-case sign, and its own keys
  // begin behind all signs.
  if ((key.ctrl || key.alt) && event.key() > Qt::Key_Space && event.key() < Qt::Key_Escape) {
    key.code = KeyCode::Char;
    key.ch = static_cast<char32_t>(event.key());
    return key;
  }
  return {};
}

std::string textOf(const QKeyEvent& event) {
  const bool ctrl = event.modifiers() & Qt::ControlModifier, alt = event.modifiers() & Qt::AltModifier;
  // Ctrl and Alt together are the AltGr of some keyboards and may type a sign.
  const QString text = event.text();
  const bool printable = !text.isEmpty() && text.at(0).isPrint();
  return printable && ctrl == alt ? text.toStdString() : std::string();
}

Raw rawOf(const Key& key) {
  Raw raw;
  if (key.ctrl) raw.modifiers |= Qt::ControlModifier;
  if (key.alt) raw.modifiers |= Qt::AltModifier;
  if (key.shift) raw.modifiers |= Qt::ShiftModifier;
  if (key.code >= KeyCode::F1 && key.code <= KeyCode::F12)
    raw.key = Qt::Key_F1 + static_cast<int>(key.code) - static_cast<int>(KeyCode::F1);
  for (const Row& row : kKeys)
    if (row.code == key.code && raw.key == 0) raw.key = row.qt;
  if (key == Key::Shift(KeyCode::Tab)) raw.key = Qt::Key_Backtab;
  if (key.code == KeyCode::Space) raw.text = " ";
  if (key.code == KeyCode::Char) {
    raw.key = static_cast<int>(key.ch);
    if (!key.ctrl && !key.alt) raw.text = QString::fromStdU32String(std::u32string(1, key.ch));
  }
  return raw;
}

Raw rawOf(char32_t typed) {
  const QString text = QString::fromStdU32String(std::u32string(1, typed));
  const QChar upper = text.at(0).toUpper();
  return {upper.unicode() < 0x80 ? static_cast<int>(upper.unicode()) : 0, Qt::NoModifier, text};
}

}  // namespace keyboard
