#include "program/all_screens.h"

#include "documents/screens.h"
#include "frame/screens.h"
#include "masters/screens.h"
#include "reports/screens.h"
#include "vouchers/screens.h"

const Screens& allScreens() {
  static const Screens screens = [] {
    Screens all;
    addFrameScreens(all);
    addMasterScreens(all);
    addReportScreens(all);
    addVoucherScreens(all);
    addDocumentScreens(all);
    setOpeningRoutines();
    return all;
  }();
  return screens;
}
