#include <QApplication>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "base/words.h"
#include "frame/start.h"
#include "frame/together.h"
#include "platform/qt/look.h"
#include "platform/qt/qt_host.h"
#include "program/all_screens.h"

namespace {

// Without one Qt would abort and speak of reinstalling.
bool screenIsNamed() {
  constexpr std::array kNames{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  return std::ranges::any_of(kNames, [](const char* name) {
    const char* const value = std::getenv(name);
    return value && *value;
  });
}

}  // namespace

// The program's folder is the whole installation: databases, designs and papers lie beside it.
int main(int argc, char** argv) {
  if (!screenIsNamed()) {
    std::cerr << "Mirav needs a screen: start it in a desktop session.\n";
    return 1;
  }
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");  // Qt has taken the person's; figures are written one way
  dress(application);

  const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  openWords(folder);
  QtHost host(allScreens());
  host.onBeat = [&host] { stillHere(host); };
  if (!startUp(host, folder)) return 1;
  return host.run();
}
