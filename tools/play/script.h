#pragma once

#include <string>
#include <vector>

// A script of keystrokes: one command a line, words apart by blanks, texts in double
// quotes with \", \\ and \n; # begins a comment.
struct Word {
  std::string text;
  bool quoted = false;
};

struct Line {
  int number = 0;
  std::vector<Word> words;
};

struct Script {
  std::string name;
  std::vector<Line> lines;
  bool live = false;  // the lines come from the standard input, each when it is wanted
};

// What stops a script. Not a std::exception, so that no screen takes it for its own failure.
struct Stop {
  std::string why;
};
// The script has come to its end while a box or a modal screen still stands.
struct Ended {};

// Raises Stop for a file that cannot be read or a quote that does not close. "-" is the standard input.
Script readScript(const std::string& path);
// The words of a line; none when it says nothing.
std::vector<Word> wordsOf(const std::string& line, const std::string& where);
