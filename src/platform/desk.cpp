#include "platform/desk.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/figure.h"
#include "base/log.h"
#include "base/text.h"
#include "base/words.h"
#include "platform/edit.h"
#include "platform/shown.h"
#include "platform/utf8.h"

namespace {

// Handlers that send the focus round in circles are a fault of a screen; this ends them.
constexpr int kMostSettlings = 50;

constexpr int kMostToldLetters = 40;  // of a text that a message repeats

}  // namespace

Desk::~Desk() = default;

Screen* Desk::top() const {
  for (auto s = open_.rbegin(); s != open_.rend(); ++s)
    if ((*s)->visible && !(*s)->closing_) return s->get();
  return nullptr;
}

Screen* Desk::shell() const {
  for (const auto& s : open_)
    if (!s->menus.empty()) return s.get();
  return nullptr;
}

Screen* Desk::find(const std::string& name) {
  for (const auto& s : open_)
    if (s->spec.name == name && !s->closing_) return s.get();
  return nullptr;
}

bool Desk::isOpen(const Screen& screen) const {
  return std::ranges::any_of(open_, [&](const auto& s) { return s.get() == &screen && !s->closing_; });
}

// Events

// False when the handler ended in an exception, which the person has then been told.
bool Desk::run(Screen& screen, const std::function<void()>& handler) {
  pending_.emplace_back();
  const bool outerChecked = std::exchange(enterChecked_, false),
             outerChecking = std::exchange(checking_, false);
  std::string failure;
  const LogScreen here(screen.spec.name);
  try {
    handler();
    if (isOpen(screen)) settle(screen);
  } catch (const std::exception& error) {
    failure = error.what();
    logFailure(kTold, error);
    screen.pendingFocus_ = screen.pendingEnter_ = nullptr;
  } catch (...) {
    pending_.pop_back();
    throw;
  }
  enterChecked_ = outerChecked;
  checking_ = outerChecking;
  std::vector<Request> requests = std::move(pending_.back());
  pending_.pop_back();
  if (!failure.empty()) {
    busy(false);
    message(failure, kMessageTitle);
  }
  take(requests);
  if (pending_.empty()) {
    leaving_.clear();
    if (open_.empty()) quitting_ = true;
  }
  changed();
  return failure.empty();
}

Go Desk::fire(Screen& screen, Control* control, const Trigger& trigger, Go otherwise) {
  const Screen::Bound* rule = screen.rule(control, trigger);
  if (!rule) return otherwise;
  Control* const before = screen.here_;
  screen.here_ = control;
  const Go answer = rule->run();
  screen.here_ = before;
  return answer;
}

void Desk::settle(Screen& screen) {
  for (int i = 0; i < kMostSettlings && isOpen(screen); ++i) {
    if (settleFocus(screen)) continue;
    if (Control* again = std::exchange(screen.pendingEnter_, nullptr)) {
      enterKey(screen, again);
      continue;
    }
    return;
  }
}

// True when something happened that may have asked for more.
bool Desk::settleFocus(Screen& screen) {
  if (Control* target = std::exchange(screen.pendingFocus_, nullptr)) {
    const bool validate = !enterChecked_ && !std::exchange(screen.unchecked_, false);
    moveFocus(screen, *target, validate);
    return true;
  }
  if (screen.focused_ && !screen.focused_->focusable() && !screen.walk_.empty()) {
    const bool any = std::ranges::any_of(screen.walk_, [](const Control* c) { return c->focusable(); });
    if (any)
      step(screen, +1, false);
    else
      screen.focused_ = nullptr;
    return any;
  }
  return false;
}

// The field that has the focus checks its text and does what Enter would have done for it.
bool Desk::mayLeave(Screen& screen, Control& target) {
  Control* const field = screen.focused_;
  const bool outer = std::exchange(checking_, true);
  const bool goes = fire(screen, field, On::Validate, Go::On) == Go::On && isOpen(screen) &&
                    (!screen.worksOnLeaving(target) || screen.work(*field));
  checking_ = outer;
  return goes && isOpen(screen);
}

bool Desk::moveFocus(Screen& screen, Control& target, bool validate) {
  Control* const old = screen.focused_;
  if (&target == old) return true;
  if (!target.focusable()) return false;
  if (old) {
    // The work of the field may have switched the target off.
    if (validate && old->focusable() && (!mayLeave(screen, target) || !target.focusable())) return false;
    fire(screen, old, On::Leave, Go::On);
    // Leaving it may have switched the target off, too, or closed the screen.
    if (!isOpen(screen) || !target.focusable()) return false;
    old->refused = old->declined = false;
    if (old->editable()) old->back = kWhite;
  }
  screen.focused_ = &target;
  if (target.editable()) {
    target.back = screen.spec.focusColour;
    if (target.selectAll || target.given)
      edit::selectAll(target);
    else
      target.caret = target.anchor = utf8::length(target.text);
  }
  if (target.kind == Kind::Grid && target.grid.current == Grid::kNone) target.grid.moveTo(0);
  screen.focusMoved(target);
  fire(screen, &target, On::Focus, Go::On);
  return true;
}

void Desk::step(Screen& screen, int direction, bool validate) {
  const auto& walk = screen.walk_;
  if (walk.empty()) return;
  const auto n = static_cast<int>(walk.size());
  const auto found = std::ranges::find(walk, screen.focused_);
  int i = found == walk.end() ? (direction > 0 ? -1 : 0) : static_cast<int>(found - walk.begin());
  if (found == walk.end() && screen.focused_) {
    // The focus stands outside the walk (a lone grid): go on from its place in the table.
    for (int k = 0; k < n; ++k)
      if (walk[k]->tab <= screen.focused_->tab) i = k;
  }
  for (int k = 0; k < n; ++k) {
    i = (i + direction + n) % n;
    if (!walk[i]->focusable()) continue;
    // What the field's work opens or shuts is known before the next one is chosen.
    Control* const old = screen.focused_;
    if (validate && old && old->focusable() && screen.unworked(*old) && screen.worksOnLeaving(*walk[i])) {
      if (mayLeave(screen, *walk[i])) step(screen, direction, true);
      return;
    }
    moveFocus(screen, *walk[i], validate);
    return;
  }
}

// Keys

void Desk::key(const Key& key) {
  Screen* const screen = top();
  if (!screen) return;
  run(*screen, [&] {
    Control* const control = screen->focused_;
    const bool plainEnter = key == Key(KeyCode::Enter);
    if (plainEnter)
      enterKey(*screen, control);
    else
      plainKey(*screen, control, key);
  });
}

void Desk::enterKey(Screen& screen, Control* control) {
  const bool checks = screen.rule(control, KeyCode::Enter) != nullptr;
  if (!checks && control && control->kind == Kind::Button) {
    fire(screen, control, On::Click, Go::On);
    return;
  }
  if (!checks && control && control->kind == Kind::Grid) {
    fire(screen, control, On::DoubleClick, Go::On);
    return;
  }
  const bool outerChecking = std::exchange(checking_, true);
  const Go answer = fire(screen, control, KeyCode::Enter, Go::On);
  checking_ = outerChecking;
  if (!isOpen(screen)) return;
  if (checks && control && control->editable() && (answer == Go::On || screen.pendingFocus_))
    control->worked = control->text;
  const bool outer = std::exchange(enterChecked_, checks);
  if (screen.pendingFocus_)
    settleFocus(screen);
  else if (answer == Go::On && screen.focused_ == control)
    step(screen, +1, !checks);
  enterChecked_ = outer;
}

void Desk::plainKey(Screen& screen, Control* control, const Key& key) {
  if (fire(screen, control, key, Go::On) == Go::Stay || !isOpen(screen)) return;
  if (key.alt && key.code == KeyCode::Char) {
    mnemonic(screen, key.ch);
    return;
  }
  if (key.code == KeyCode::Tab) {
    step(screen, key.shift ? -1 : +1, true);
    return;
  }
  if (!control) return;
  if (control->kind == Kind::Grid)
    gridKey(screen, *control, key);
  else if (control->kind == Kind::Button || control->kind == Kind::Check)
    buttonKey(screen, *control, key);
  else if (control->editable())
    editKey(screen, *control, key);
}

bool Desk::mnemonic(Screen& screen, char32_t letter) {
  for (const auto& c : screen.controls) {
    if (c->kind != Kind::Button || !c->enabled || !c->visible || !isLetterOf(*c, letter)) continue;
    // As a click does: the focus goes to the button first, and the field may refuse.
    if (c->tab > 0 && !moveFocus(screen, *c, true)) return true;
    if (isOpen(screen)) fire(screen, c.get(), On::Click, Go::On);
    return true;
  }
  return false;
}

bool Desk::gridKey(Screen& screen, Control& control, const Key& key) {
  constexpr size_t kPage = 10;
  Grid& grid = control.grid;
  const size_t old = grid.current, count = grid.count();
  if (count == 0) return false;
  const size_t at = old == Grid::kNone ? 0 : old;
  switch (key.code) {
    case KeyCode::Down:
      grid.moveTo(old == Grid::kNone ? 0 : at + 1);
      break;
    case KeyCode::Up:
      grid.moveTo(at > 0 ? at - 1 : 0);
      break;
    case KeyCode::PgDn:
      grid.moveTo(at + kPage);
      break;
    case KeyCode::PgUp:
      grid.moveTo(at > kPage ? at - kPage : 0);
      break;
    case KeyCode::Home:
      grid.moveTo(0);
      break;
    case KeyCode::End:
      grid.moveTo(count - 1);
      break;
    default:
      return false;
  }
  if (grid.current != old) fire(screen, &control, On::Row, Go::On);
  return true;
}

bool Desk::buttonKey(Screen& screen, Control& control, const Key& key) {
  if (key == Key(KeyCode::Space)) {
    if (control.kind == Kind::Check) control.value = control.value == 0 ? 1 : 0;
    fire(screen, &control, On::Click, Go::On);
    return true;
  }
  const bool back = key.code == KeyCode::Left || key.code == KeyCode::Up;
  const bool on = key.code == KeyCode::Right || key.code == KeyCode::Down;
  if (back || on) step(screen, back ? -1 : +1, true);
  return back || on;
}

bool Desk::editKey(Screen& screen, Control& control, const Key& key) {
  if (key.ctrl && (key.ch == U'C' || key.ch == U'X')) {
    const std::string chosen = edit::selection(control);
    if (chosen.empty()) return true;
    setClipboard(chosen);
    if (key.ch == U'X' && !control.locked && edit::key(control, KeyCode::Delete).changed)
      edited(screen, control);
    return true;
  }
  if (key.ctrl && key.ch == U'V') {
    if (control.locked) return true;
    const std::string text = clipboard();
    const edit::Outcome pasted = edit::paste(control, text);
    if (pasted.changed) edited(screen, control);
    if (!pasted.handled)
      message(words("{text}\nIs No Figure That Fits Here, Nothing Is Pasted", "text",
                    cut(text, kMostToldLetters)));
    return true;
  }
  const bool erases = key.code == KeyCode::Backspace || key.code == KeyCode::Delete;
  if (erases && control.locked) return true;
  const edit::Outcome outcome = edit::key(control, key);
  if (outcome.changed) edited(screen, control);
  return outcome.handled;
}

void Desk::edited(Screen& screen, Control& control) {
  control.refused = control.given = control.declined = false;
  fire(screen, &control, On::Change, Go::On);
}

void Desk::type(std::string_view text) {
  for (const char32_t typed : utf8::decode(text)) {
    Screen* const screen = top();
    if (!screen) return;
    run(*screen, [&] {
      Control* const control = screen->focused_;
      if (!control) return;
      const Key asKey = typed == U' ' ? Key(KeyCode::Space) : Key(KeyCode::Char, typed, false, false, false);
      if (fire(*screen, control, asKey, Go::On) == Go::Stay || !isOpen(*screen)) return;
      if (control->kind == Kind::Button || control->kind == Kind::Check) {
        buttonKey(*screen, *control, asKey);
        return;
      }
      if (control->kind == Kind::Grid) {
        screen->typed(*control, typed);
        return;
      }
      if (control->locked) return;
      const bool figures =
          control->kind == Kind::Date || control->keys == KeyClass::Number || control->ofFigures();
      const char32_t ch = screen->filter(*control, figures ? plainDigit(typed) : typed);
      if (ch == 0 || !control->editable()) return;
      if (edit::insert(*control, ch)) edited(*screen, *control);
    });
  }
}

// The way that a person has: there is no other into a field.
void Desk::paste(std::string_view text) {
  setClipboard(std::string(text));
  key(Key::Ctrl('V'));
}

void Desk::select(Control& control, size_t anchor, size_t caret) {
  if (!ofTop(control)) return;
  const size_t length = utf8::length(control.text);
  control.anchor = std::min(anchor, length);
  control.caret = std::min(caret, length);
  changed();
}

// Pointer

// The screen on top when the control is one of its own, else null.
Screen* Desk::ofTop(const Control& control) const {
  Screen* const screen = top();
  const bool own =
      screen && std::ranges::any_of(screen->controls, [&](const auto& c) { return c.get() == &control; });
  return own ? screen : nullptr;
}

bool Desk::click(Control& control) {
  Screen* const screen = ofTop(control);
  if (!screen || !control.enabled || !control.visible) return false;
  run(*screen, [&] {
    if (control.tab > 0 && !moveFocus(*screen, control, true)) return;
    if (control.kind == Kind::Check) control.value = control.value == 0 ? 1 : 0;
    if (isOpen(*screen)) fire(*screen, &control, On::Click, Go::On);
  });
  return true;
}

bool Desk::focusOn(Control& control) {
  Screen* const screen = ofTop(control);
  if (!screen || !control.focusable()) return false;
  run(*screen, [&] { moveFocus(*screen, control, true); });
  return isOpen(*screen) && screen->focused_ == &control;
}

void Desk::rowTo(Control& grid, size_t row) {
  Screen* const screen = ofTop(grid);
  if (!screen) return;
  run(*screen, [&] {
    if (grid.focusable() && !moveFocus(*screen, grid, true)) return;
    const size_t old = grid.grid.current;
    grid.grid.moveTo(row);
    if (grid.grid.current != old) fire(*screen, &grid, On::Row, Go::On);
  });
}

void Desk::doubleClick(Control& grid) {
  Screen* const screen = ofTop(grid);
  if (!screen || !grid.enabled || !grid.visible) return;
  run(*screen, [&] { fire(*screen, &grid, On::DoubleClick, Go::On); });
}

void Desk::tick() {
  Screen* const screen = top();
  if (screen && screen->timerMs > 0) run(*screen, [&] { screen->tick(); });
}

bool Desk::menu(const MenuEntry& entry) {
  Screen* const screen = shell();
  if (!screen || !entry.enabled || top() != screen) return false;
  run(*screen, [&] { screen->chosen(entry); });
  return true;
}

bool Desk::tool(const ToolEntry& entry) {
  Screen* const screen = shell();
  if (!screen || !entry.enabled || top() != screen) return false;
  run(*screen, [&] { screen->toolChosen(entry); });
  return true;
}

void Desk::closeTop() {
  Screen* const screen = top();
  if (screen) run(*screen, [&] { close(*screen); });
}
