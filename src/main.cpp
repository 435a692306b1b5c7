#include <QApplication>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "documents/screens.h"
#include "frame/screens.h"
#include "frame/start.h"
#include "masters/screens.h"
#include "platform/qt/look.h"
#include "platform/qt/qt_host.h"
#include "reports/screens.h"
#include "vouchers/screens.h"

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
  dress(application);

  Screens screens;
  addFrameScreens(screens);
  addMasterScreens(screens);
  addReportScreens(screens);
  addVoucherScreens(screens);
  addDocumentScreens(screens);
  setOpeningRoutines();

  QtHost host(screens);
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  if (!startUp(host, program.parent_path())) return 1;
  return host.run();
}
