#include "reports/screens.h"

#include "reports/frmreport.h"
#include "reports/regdlg1.h"

void addReportScreens(Screens& screens) {
  screens.add<regdlg1>("regdlg1");
  screens.add<frmreport>("frmreport");
}
