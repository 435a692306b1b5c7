#pragma once

#include "platform/screen.h"

// FRMCOMP, frmStartup, frmmain and stngs.
void addFrameScreens(Screens& screens);
