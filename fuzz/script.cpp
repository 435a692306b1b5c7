#include <iostream>

#include "base/text.h"
#include "frame/start.h"
#include "fuzz/program.h"
#include "fuzz/scratch.h"
#include "player.h"

// A script of the player. Its author may do with the machine what he likes, so the lines that reach
// beyond the folder (statements of his own, programs that read a paper) are left out.
namespace {

bool ownBusiness(const Line& line) {
  std::string words;
  for (const Word& word : line.words) words += lower(word.text) + " ";
  for (const char* start : {"sql ", "expect sql ", "expect pdf ", "shot "})
    if (words.starts_with(start)) return true;
  return words.starts_with("tick ") && line.words.size() > 1 && line.words[1].text.size() > 2;
}

// A line that fails ends a script; here the next one is played.
void playEach(Player& player, const Script& script) {
  for (const Line& line : script.lines) {
    try {
      player.play({script.name, {line}});
    } catch (const Stop&) {
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  confine(*argc, *argv);
  std::cout.setstate(std::ios::failbit);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string& folder = freshFolder();
  try {
    Script script = readScript(scratchFile("script.keys", {reinterpret_cast<const char*>(data), size}));
    std::erase_if(script.lines, ownBusiness);
    Machine machine;
    machine.clock = Moment{*parseDate("2026-06-15"), 10, 30, 0};
    Played<Bare> desk(machine, allScreens());
    Player player(desk, machine,
                  {[&desk](const Key& key) { desk.key(key); },
                   [&desk](const std::string& text) { desk.type(text); },
                   {}},
                  folder);
    startUp(desk, folder);
    playEach(player, script);
  } catch (const Stop&) {
  }
  return 0;
}
