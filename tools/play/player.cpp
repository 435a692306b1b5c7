#include "player.h"

#include <iostream>
#include <utility>

#include "base/text.h"
#include "store/database.h"

Player::Player(Desk& desk, Machine& machine, Fingers fingers, std::string folder)
    : desk_(desk), machine_(machine), fingers_(std::move(fingers)), folder_(std::move(folder)) {
  machine_.step = [this] { return step(); };
}

void Player::play(const Script& script, const std::function<void()>& start) {
  script_ = &script;
  next_ = 0;
  machine_.live = script.live;
  try {
    start();
    while (step()) {
    }
    if (!machine_.answers.empty() && !script.live)
      throw Stop{"expected every answer to be asked for, saw some left at the end"};
  } catch (const Ended&) {
    if (!machine_.answers.empty() && !script.live)
      throw Stop{script.name + ": an answer nobody asked for is left at the end"};
  } catch (const Stop& stop) {
    const int line = next_ > 0 ? script.lines[next_ - 1].number : 0;
    throw Stop{script.name + ":" + std::to_string(line) + ": " + stop.why};
  }
}

bool Player::step() {
  if (script_->live) return hear();
  if (next_ >= script_->lines.size() || desk_.quitting()) {
    if (next_ < script_->lines.size()) throw Stop{"expected the program to run, saw it end"};
    return false;
  }
  const Line& line = script_->lines[next_++];
  run(line.words);
  return true;
}

// A line that fails is told, and the next may do better.
bool Player::hear() {
  std::cout << "ready" << std::endl;
  std::string line;
  if (desk_.quitting() || !std::getline(std::cin, line)) return false;
  try {
    const Words words = wordsOf(line, "the line");
    if (!words.empty()) run(words);
  } catch (const Stop& stop) {
    std::cout << "failed: " << stop.why << "\n";
  } catch (const DatabaseError& error) {  // of a server that is gone while we look
    std::cout << "failed: " << error.what() << "\n";
  }
  return true;
}

void Player::run(const Words& words) {
  const auto command = commands().find(lower(words[0].text));
  if (command == commands().end()) fail("a command", words[0].text);
  (this->*command->second)(Words(words.begin() + 1, words.end()));
}

Screen& Player::top() const {
  Screen* const screen = desk_.top();
  if (!screen) fail("a screen", "none");
  return *screen;
}

Control& Player::control(const std::string& name) const {
  Control* const found = top().find(name);
  if (!found) fail("a control " + name, "none on " + top().spec.name);
  return *found;
}

Control& Player::grid(const std::string& name) const {
  Control& c = control(name);
  if (c.kind != Kind::Grid) fail(name + " to be a grid or list", "another control");
  return c;
}

void Player::fail(const std::string& expected, const std::string& saw) const {
  throw Stop{"expected " + expected + ", saw " + saw};
}

std::string Player::path(const std::string& name) const {
  return name.starts_with('/') ? name : folder_ + "/" + name;
}
