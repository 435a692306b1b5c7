#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "machine.h"
#include "script.h"

// How the player's keys reach the desk: straight, or as real key events of the window.
struct Fingers {
  std::function<void(const Key&)> key;
  std::function<void(const std::string&)> type;
  std::function<void(const std::string&)> shot;  // empty without a window
};

// Plays a script on a desk, command by command.
class Player {
 public:
  Player(Desk& desk, Machine& machine, Fingers fingers, std::string folder);

  // Starts the program and plays the script. Raises Stop ("SCRIPT:LINE: expected ..., saw ...") on a failed
  // line.
  void play(const Script& script, const std::function<void()>& start);
  int checks() const { return checks_; }

 private:
  using Words = std::vector<Word>;
  using Command = void (Player::*)(const Words&);
  static const std::map<std::string, Command>& commands();
  static const std::map<std::string, Command>& expectations();
  bool step();
  bool hear();
  void run(const Words& words);

  // What a person does (commands.cpp).
  void clock(const Words&);
  void online(const Words&);
  void running(const Words&);
  void language(const Words&);
  void twips(const Words&);
  void tick(const Words&);
  void menu(const Words&);
  void tool(const Words&);
  void press(const Words&);
  void focus(const Words&);
  void fill(const Words&);
  void type(const Words&);
  void enter(const Words&);
  void paste(const Words&);
  void key(const Words&);
  void row(const Words&);
  void doubleClick(const Words&);
  void close(const Words&);
  void answer(const Words&);
  void show(const Words&);
  void sql(const Words&);
  void shot(const Words&);
  void expect(const Words&);

  // What the program should show (expectations.cpp). Words begin behind the kind.
  void expectControl(const Words&);
  void expectLabel(const Words&);
  void expectCaption(const Words&);
  void expectHint(const Words&);
  void expectMode(const Words&);
  void expectPanel(const Words&);
  void expectColour(const Words&);
  void expectMessage(const Words&);
  void expectScreen(const Words&);
  void expectFocus(const Words&);
  void expectEnabled(const Words&);
  void expectVisible(const Words&);
  void expectLocked(const Words&);
  void expectGrid(const Words&);
  void expectRows(const Words&);
  void expectSql(const Words&);
  void expectFile(const Words&);
  void expectPdf(const Words&);
  void expectViewed(const Words&);
  void expectPrinted(const Words&);
  void expectLink(const Words&);

  Screen& top() const;
  Control& control(const std::string& name) const;
  Control& grid(const std::string& name) const;
  void focusOn(Control& control);
  // `contains "text"` or "text" from the given word on.
  void match(const std::string& what, const std::string& saw, const Words& words, size_t from);
  void expectFlag(const std::string& what, bool saw, const Words& words);
  [[noreturn]] void fail(const std::string& expected, const std::string& saw) const;
  std::string path(const std::string& name) const;

  Desk& desk_;
  Machine& machine_;
  Fingers fingers_;
  std::string folder_;
  const Script* script_ = nullptr;
  size_t next_ = 0;
  int checks_ = 0;
};

const Word& wordAt(const std::vector<Word>& words, size_t i);
int wholeAt(const std::vector<Word>& words, size_t i);
// The rows of a statement on the open company ("data") or the catalogue, columns joined by |.
std::vector<std::string> rowsOf(const std::string& database, const std::string& statement);
void printScreen(const Desk& desk, const Screen& screen);
