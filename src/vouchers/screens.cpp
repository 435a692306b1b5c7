#include "vouchers/screens.h"

#include "vouchers/gstsapu.h"

void addVoucherScreens(Screens& screens) { screens.add<GSTSAPU>("GSTSAPU"); }
