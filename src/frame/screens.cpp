#include "frame/screens.h"

#include "frame/frmcomp.h"
#include "frame/frmmain.h"
#include "frame/frmmove.h"
#include "frame/frmoperators.h"
#include "frame/frmothers.h"
#include "frame/frmperiod.h"
#include "frame/frmsettings.h"
#include "frame/frmsignin.h"
#include "frame/frmstartup.h"
#include "frame/stngs.h"
#include "frame/update_database.h"

void addFrameScreens(Screens& screens) {
  screens.add<FRMCOMP>("FRMCOMP");
  screens.add<frmStartup>("frmStartup");
  screens.add<frmmain>("frmmain");
  screens.add<frmoperators>("frmoperators");
  screens.add<frmmove>("frmmove");
  screens.add<frmcopy>("frmcopy");
  screens.add<frmothers>("frmothers");
  screens.add<frmperiod>("frmperiod");
  screens.add<frmsettings>("frmsettings");
  screens.add<frmsignin>("frmsignin");
  screens.add<stngs>("stngs");
  screens.add<UpdateDatabase>("struct");
}
