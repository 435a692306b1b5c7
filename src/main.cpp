#include <QApplication>

#include <filesystem>

#include "documents/screens.h"
#include "frame/screens.h"
#include "frame/start.h"
#include "masters/screens.h"
#include "platform/qt/look.h"
#include "platform/qt/qt_host.h"
#include "reports/screens.h"
#include "vouchers/screens.h"

// The program's folder is the whole installation: databases, designs and papers lie beside it.
int main(int argc, char** argv) {
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
