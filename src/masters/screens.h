#pragma once

#include "platform/screen.h"

// FRMHLP, frmacc, FRMITEM1 and frmtaxmast.
void addMasterScreens(Screens& screens);
