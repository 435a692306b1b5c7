#include <string_view>

#include "frame/start.h"
#include "fuzz/program.h"

// Hands that press whatever can be pressed: each byte chooses what they do next on the screen on
// top, most of them followed by bytes that say which control or what is typed.
namespace {

constexpr KeyCode kCodes[] = {
    KeyCode::Enter, KeyCode::Esc,    KeyCode::Tab,    KeyCode::Up,        KeyCode::Down,
    KeyCode::Left,  KeyCode::Right,  KeyCode::PgUp,   KeyCode::PgDn,      KeyCode::Home,
    KeyCode::End,   KeyCode::Insert, KeyCode::Delete, KeyCode::Backspace, KeyCode::Space,
    KeyCode::F1,    KeyCode::F2,     KeyCode::F3,     KeyCode::F4,        KeyCode::F5,
    KeyCode::F6,    KeyCode::F7,     KeyCode::F8,     KeyCode::F9,        KeyCode::F10};
constexpr std::string_view kTyped[] = {
    "1",        "0",          "-1", "99999999999", "1e300", "0.005",      "A00001", "I0000001", "E001",
    "31/12/99", "29/02/2027", "Y",  "N",           "%_'\"", "--",         "",       " ",        ".",
    "12.5",     "NOS",        "24", "85",          "ANAND", "01/04/2026", "2026",   "X90005",   "T001"};

class Hands : public Person {
 public:
  Hands(const uint8_t* data, size_t size) : next_(data), end_(data + size) {}

  bool act() override {
    if (next_ == end_ || ++acts_ > 400 || !top() || quitting()) return false;
    const uint8_t what = byte();
    if (what < 0x40)
      press(what);
    else if (what < 0x60)
      key({KeyCode::Char, static_cast<char32_t>('A' + what % 26), what >= 0x52, what < 0x52, false});
    else if (what < 0x80)
      type(kTyped[what % std::size(kTyped)]);
    else if (what < 0xA0)
      fill(what);
    else if (what < 0xC0)
      click();
    else if (what < 0xD0)
      choose();
    else if (what < 0xD8)
      rows(what);
    else if (what < 0xF0)
      write(what & 7);
    else
      other(what);
    return true;
  }

 private:
  uint8_t byte() { return next_ == end_ ? 0 : *next_++; }

  void press(uint8_t what) {
    Key pressed(kCodes[what % std::size(kCodes)]);
    pressed.ctrl = what >= 0x38;
    pressed.shift = what >= 0x32 && what < 0x38;
    key(pressed);
  }

  // The n-th control that fits, round and round.
  template <class Fits>
  Control* control(Fits fits) {
    std::vector<Control*> some;
    for (const auto& c : top()->controls)
      if (fits(*c)) some.push_back(c.get());
    const uint8_t n = byte();
    return some.empty() ? nullptr : some[n % some.size()];
  }

  void fill(uint8_t what) {
    Control* const field = control([](const Control& c) { return c.editable() && c.focusable(); });
    if (!field || !focusOn(*field)) return;
    key(Key::Ctrl('A'));
    key(KeyCode::Delete);
    type(kTyped[what % std::size(kTyped)]);
    if (what % 3) key(KeyCode::Enter);
  }

  void click() {
    if (Control* const button =
            control([](const Control& c) { return c.kind == Kind::Button && c.focusable(); }))
      Desk::click(*button);
  }

  void choose() {
    if (!shell()) return;
    std::vector<MenuEntry> entries = shell()->menus;
    while (!entries.empty()) {
      const MenuEntry entry = entries[byte() % entries.size()];
      if (!entry.enabled) return;
      if (entry.entries.empty()) menu(entry);
      entries = entry.entries;
    }
  }

  void rows(uint8_t what) {
    Control* const grid = control([](const Control& c) { return c.kind == Kind::Grid && c.visible; });
    if (!grid || grid->grid.count() == 0) return;
    rowTo(*grid, byte() % grid->grid.count());
    if (what & 1) doubleClick(*grid);
  }

  // Bytes of the input as they are, typed or pasted.
  void write(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>(byte());
    if (count & 1)
      type(text);
    else
      paste(text);
  }

  void other(uint8_t what) {
    Screen* const window = shell();
    if (what < 0xF4)
      tick();
    else if (what < 0xF8 && window && !window->tools.empty())
      tool(ToolEntry(window->tools[byte() % window->tools.size()]));
    else if (what == 0xF8)
      closeTop();
  }

  const uint8_t *next_, *const end_;
  int acts_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  confine(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto& folder = freshFolder();
  Hands hands(data, size);
  if (!startUp(hands, folder)) __builtin_trap();
  hands.key(KeyCode::Enter);
  for (int i = 0; i < 4; ++i) hands.tick();
  while (hands.act()) {
  }
  refuseFaults(hands);
  return 0;
}
