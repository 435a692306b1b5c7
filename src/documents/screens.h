#pragma once

#include "platform/screen.h"

// dlg1, mymsgfrm and VSETFRM.
void addDocumentScreens(Screens& screens);
