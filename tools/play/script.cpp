#include "script.h"

#include <fstream>

std::vector<Word> wordsOf(const std::string& line, const std::string& where) {
  std::vector<Word> words;
  for (size_t i = 0; i < line.size();) {
    if (line[i] == ' ' || line[i] == '\t' || line[i] == '\r') {
      ++i;
    } else if (line[i] == '#') {
      break;
    } else if (line[i] == '"') {
      Word word{"", true};
      for (++i; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) {
          ++i;
          word.text += line[i] == 'n' ? '\n' : line[i];
        } else {
          word.text += line[i];
        }
      }
      if (i >= line.size()) throw Stop{where + ": a text in quotes does not end"};
      ++i;
      words.push_back(std::move(word));
    } else {
      const size_t end = line.find_first_of(" \t\r", i);
      words.push_back({line.substr(i, end == std::string::npos ? end : end - i), false});
      i = end == std::string::npos ? line.size() : end;
    }
  }
  return words;
}

Script readScript(const std::string& path) {
  if (path == "-") return {.name = path, .live = true};
  std::ifstream file(path);
  if (!file) throw Stop{path + ": cannot be read"};
  Script script{.name = path};
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    auto words = wordsOf(line, path + ":" + std::to_string(number));
    if (!words.empty()) script.lines.push_back({number, std::move(words)});
  }
  return script;
}
