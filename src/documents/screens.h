#pragma once

#include "platform/screen.h"

// dlg1 and mymsgfrm.
void addDocumentScreens(Screens& screens);
