#include <functional>
#include <iostream>

#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "platform/shown.h"
#include "player.h"

namespace {

std::string bare(const std::string& caption) { return trim(replaceAll(caption, "&", "")); }

}  // namespace

const Word& wordAt(const std::vector<Word>& words, size_t i) {
  if (i >= words.size()) throw Stop{"expected a word more, saw the end of the line"};
  return words[i];
}

int wholeAt(const std::vector<Word>& words, size_t i) {
  const std::string& text = wordAt(words, i).text;
  try {
    return std::stoi(text);
  } catch (const std::exception&) {
    throw Stop{"expected a number, saw " + text};
  }
}

std::vector<std::string> rowsOf(const std::string& database, const std::string& statement) {
  constexpr size_t kMost = 1000;
  const auto& db = sameText(database, "catalogue") ? session().cncomp : session().cndata;
  if (!db) throw Stop{"expected an open database, saw none"};
  std::vector<std::string> found;
  auto rows = db->query(statement);
  while (found.size() < kMost && rows.next()) {
    std::vector<std::string> cells;
    for (int i = 0; i < rows.count(); ++i) cells.push_back(rows.text(i));
    found.push_back(join(cells, "|"));
  }
  return found;
}

const std::map<std::string, Player::Command>& Player::commands() {
  static const std::map<std::string, Command> table = {
      {"clock",    &Player::clock      },
      {"online",   &Player::online     },
      {"running",  &Player::running    },
      {"language", &Player::language   },
      {"twips",    &Player::twips      },
      {"tick",     &Player::tick       },
      {"menu",     &Player::menu       },
      {"tool",     &Player::tool       },
      {"press",    &Player::press      },
      {"focus",    &Player::focus      },
      {"fill",     &Player::fill       },
      {"type",     &Player::type       },
      {"enter",    &Player::enter      },
      {"paste",    &Player::paste      },
      {"key",      &Player::key        },
      {"row",      &Player::row        },
      {"dblclick", &Player::doubleClick},
      {"close",    &Player::close      },
      {"answer",   &Player::answer     },
      {"show",     &Player::show       },
      {"sql",      &Player::sql        },
      {"shot",     &Player::shot       },
      {"expect",   &Player::expect     },
  };
  return table;
}

// The machine

void Player::clock(const Words& w) {
  const auto date = parseDate(wordAt(w, 0).text);
  const auto time = parseClock(w.size() > 1 ? w[1].text : "10:00");
  if (!date || !time) fail("clock YYYY-MM-DD HH:MM", wordAt(w, 0).text);
  machine_.clock = Moment{*date, time->hour, time->minute, 0};
}

void Player::online(const Words& w) { machine_.online = sameText(wordAt(w, 0).text, "yes"); }

void Player::running(const Words& w) {
  machine_.running.clear();
  for (const Word& name : w) machine_.running.push_back(name.text);
}

// The words from here on; figures and dates do not change.
void Player::language(const Words& w) { openWords(folder_, wordAt(w, 0).text); }

void Player::twips(const Words& w) {
  const double t = wholeAt(w, 0);
  machine_.display = {1366 * t, 768 * t, t, t};
}

// The person

void Player::tick(const Words& w) {
  for (int n = w.empty() ? 1 : wholeAt(w, 0); n > 0; --n) desk_.tick();
}

void Player::menu(const Words& w) {
  const std::string wanted = trim(wordAt(w, 0).text);
  Screen* const shell = desk_.shell();
  if (!shell) fail("a menu", "no shell");
  bool off = false;
  const std::function<const MenuEntry*(const std::vector<MenuEntry>&, bool)> search =
      [&](const std::vector<MenuEntry>& entries, bool on) -> const MenuEntry* {
    for (const MenuEntry& e : entries) {
      const bool enabled = on && e.enabled;
      const bool named = sameText(e.key.empty() ? e.control : e.key, wanted);
      if (e.entries.empty() && (named || sameText(bare(words(e.caption)), wanted))) {
        off = !enabled;
        return &e;
      }
      if (const MenuEntry* found = search(e.entries, enabled)) return found;
    }
    return nullptr;
  };
  const MenuEntry* const entry = search(shell->menus, true);
  if (!entry) fail("a menu entry \"" + wanted + "\"", "none of that key or caption");
  const MenuEntry copy = *entry;
  if (off || !desk_.menu(copy)) fail("the menu entry \"" + wanted + "\" enabled", "disabled");
}

void Player::tool(const Words& w) {
  const std::string& wanted = wordAt(w, 0).text;
  Screen* const shell = desk_.shell();
  if (!shell) fail("a tool bar", "no shell");
  for (const ToolEntry& t : shell->tools) {
    if (!sameText(t.key, wanted)) continue;
    const ToolEntry copy = t;
    if (!desk_.tool(copy)) fail("the tool " + wanted + " enabled", "disabled");
    return;
  }
  fail("a tool " + wanted, "none of that key");
}

void Player::press(const Words& w) {
  const Word& wanted = wordAt(w, 0);
  Control* button = top().find(wanted.text);
  for (const auto& c : top().controls)
    if (!button && c->kind == Kind::Button && c->visible && sameText(bare(shownText(*c)), bare(wanted.text)))
      button = c.get();
  if (!button) fail("a button " + wanted.text, "none on " + top().spec.name);
  if (!button->visible) fail("the button " + wanted.text + " visible", "hidden");
  if (!button->enabled) fail("the button " + wanted.text + " enabled", "disabled");
  desk_.click(*button);
}

void Player::focusOn(Control& c) {
  const std::string name = c.fullName();
  if (!c.visible) fail(name + " visible", "hidden");
  if (!c.enabled) fail(name + " enabled", "disabled");
  if (!desk_.focusOn(c))
    fail("the focus on " + name, top().focused() ? top().focused()->fullName() : "nowhere");
}

void Player::focus(const Words& w) { focusOn(control(wordAt(w, 0).text)); }

void Player::fill(const Words& w) {
  Control& c = control(wordAt(w, 0).text);
  const std::string text = wordAt(w, 1).text;
  if (!c.editable()) fail(c.fullName() + " to be a field", "none that takes text");
  if (c.locked) fail(c.fullName() + " unlocked", "locked");
  focusOn(c);
  if (!c.text.empty() && c.text != kEmptyDate) {
    fingers_.key(Key::Ctrl('A'));
    fingers_.key(KeyCode::Delete);
  } else {
    fingers_.key(KeyCode::Home);
  }
  fingers_.type(text);
}

void Player::type(const Words& w) { fingers_.type(wordAt(w, 0).text); }

void Player::enter(const Words& w) {
  type(w);
  fingers_.key(KeyCode::Enter);
}

void Player::paste(const Words& w) { desk_.paste(wordAt(w, 0).text); }

void Player::key(const Words& w) {
  for (const Word& name : w) {
    const auto key = keyByName(name.text);
    if (!key) fail("the name of a key", name.text);
    if (key->code == KeyCode::Char && !key->ctrl && !key->alt)
      fingers_.type(name.text);
    else
      fingers_.key(*key);
  }
}

void Player::row(const Words& w) {
  Control& g = grid(wordAt(w, 0).text);
  const int n = wholeAt(w, 1);
  if (n < 0 || static_cast<size_t>(n) >= g.grid.count())
    fail("row " + std::to_string(n) + " in " + g.fullName(), std::to_string(g.grid.count()) + " rows");
  desk_.rowTo(g, static_cast<size_t>(n));
}

void Player::doubleClick(const Words& w) { desk_.doubleClick(grid(wordAt(w, 0).text)); }

void Player::close(const Words&) { desk_.closeTop(); }

void Player::answer(const Words& w) {
  const std::string word = lower(wordAt(w, 0).text);
  if (word == "text")
    machine_.answers.push_back({"", wordAt(w, 1).text});
  else if (w[0].quoted || word == "yes" || word == "no" || word == "ok" || word == "cancel")
    machine_.answers.push_back({word, {}});
  else
    fail("Yes, No, Ok, Cancel, text or the words of a button in quotes", word);
}

void Player::show(const Words&) { printScreen(desk_, top()); }

void Player::sql(const Words& w) {
  for (const std::string& row : rowsOf(wordAt(w, 0).text, wordAt(w, 1).text)) std::cout << row << "\n";
}

void Player::shot(const Words& w) {
  if (fingers_.shot) fingers_.shot(wordAt(w, 0).text);
}
