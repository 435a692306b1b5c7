#include "vouchers/screens.h"

#include "frame/frmstartup.h"
#include "frame/session.h"
#include "vouchers/bwrcpy.h"
#include "vouchers/frmbrs.h"
#include "vouchers/frmchln.h"
#include "vouchers/frmjrnl.h"
#include "vouchers/frmpost.h"
#include "vouchers/frmquot.h"
#include "vouchers/frmseries.h"
#include "vouchers/gstnote.h"
#include "vouchers/gstsapu.h"
#include "vouchers/posting.h"
#include "vouchers/stock.h"

void addVoucherScreens(Screens& screens) {
  screens.add<GSTSAPU>("GSTSAPU");
  screens.add<GSTNOTE>("GSTNOTE");
  screens.add<FRMQUOT>("FRMQUOT");
  screens.add<FRMCHLN>("FRMCHLN");
  screens.add<bwrcpy>("bwrcpy");
  screens.add<FRMJRNL>("FRMJRNL");
  screens.add<FRMBRS>("FRMBRS");
  screens.add<FRMPOST>("FRMPOST");
  screens.add<FRMSERIES>("FRMSERIES");
}

void setOpeningRoutines() {
  openingRoutines() = {[] { postMissing(data()); }, [] { RebuildStock(data()); }};
}
