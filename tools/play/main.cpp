#include <QApplication>

#include <CLI/CLI.hpp>
#include <clocale>
#include <filesystem>
#include <iostream>

#include "frame/move_books.h"
#include "frame/start.h"
#include "platform/qt/look.h"
#include "platform/qt/qt_host.h"
#include "player.h"
#include "program/all_screens.h"
#include "returns_of.h"

namespace {

// Starts the program anew and plays one script on it; returns the checks that passed.
template <class DeskType>
int playOn(DeskType& desk, Machine& machine, const Fingers& fingers, const std::string& folder,
           const Script& script) {
  Player player(desk, machine, fingers, folder);
  player.play(script, [&] { startUp(desk, folder); });
  return player.checks();
}

int playBare(const std::string& folder, const Script& script) {
  Machine machine;
  Played<Bare> desk(machine, allScreens());
  const Fingers fingers{
      [&desk](const Key& key) { desk.key(key); }, [&desk](const std::string& text) { desk.type(text); }, {}};
  return playOn(desk, machine, fingers, folder, script);
}

int playInWindow(const std::string& folder, const Script& script) {
  Machine machine;
  Played<QtHost> desk(machine, allScreens());
  const Fingers fingers{[&desk](const Key& key) {
                          desk.realKey(key);
                          desk.settle();
                        },
                        [&desk](const std::string& text) {
                          desk.realText(text);
                          desk.settle();
                        },
                        [&desk](const std::string& file) {
                          desk.settle();
                          desk.grab(file);
                        }};
  return playOn(desk, machine, fingers, folder, script);
}

// All companies of the folder's files, as their screen does it.
void moveAll(const std::filesystem::path& folder) {
  Database catalogue;
  openCatalogue(catalogue, folder);
  endMoves(catalogue, folder);
  for (const FileCompany& company : companiesInFiles(catalogue, folder)) {
    for (const std::string& file : moveToServer(catalogue, folder, company, {}).kept)
      std::cout << "kept " << file << "\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Plays scripts of keystrokes on the program in a folder"};
  std::string folder;
  std::vector<std::string> scripts;
  bool window = false;
  app.add_option("folder", folder, "Program folder")->required()->check(CLI::ExistingDirectory);
  bool move = false;
  app.add_option("scripts", scripts, "Scripts, each from a fresh start");
  app.add_flag("--move-to-server", move,
               "First moves the folder's companies to the server of its server.cnf");
  std::string books;
  std::vector<std::string> returns;
  app.add_option("--returns", returns, "Then writes GSTR-1 and GSTR-3B of a period, as 102026, into BILLS");
  std::string filedOn;
  app.add_option("--filed", filedOn, "Marks them as filed on a day");
  app.add_option("--books", books, "Of which company-year, as M00124; else of the first");
  app.add_flag("--window", window, "Through the window, with real key events");
  CLI11_PARSE(app, argc, argv);
  if (scripts.empty() && !move && returns.empty()) return app.exit(CLI::RequiredError("scripts"));
  std::unique_ptr<QApplication> application;
  if (window) {
    application = std::make_unique<QApplication>(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    dress(*application);
  }

  folder = std::filesystem::canonical(folder).string();
  int checks = 0;
  try {
    if (move) moveAll(folder);
    for (const std::string& name : scripts) {
      const Script script = readScript(name);
      checks += window ? playInWindow(folder, script) : playBare(folder, script);
    }
    for (const std::string& period : returns) tellReturns(folder, books, period, filedOn);
  } catch (const Stop& stop) {
    std::cout << stop.why << "\n";
    return 1;
  } catch (const std::runtime_error& error) {
    std::cout << error.what() << "\n";
    return 1;
  }
  std::cout << checks << " checks passed\n";
  return 0;
}
