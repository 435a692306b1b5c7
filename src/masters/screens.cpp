#include "masters/screens.h"

#include "masters/frmacc.h"
#include "masters/frmhlp.h"
#include "masters/frmitem1.h"
#include "masters/frmtaxmast.h"

void addMasterScreens(Screens& screens) {
  screens.add<FRMHLP>("FRMHLP");
  screens.add<frmacc>("frmacc");
  screens.add<FRMITEM1>("FRMITEM1");
  screens.add<frmtaxmast>("frmtaxmast");
}
