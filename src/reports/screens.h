#pragma once

#include "platform/screen.h"

// The screens of this folder by their names.
void addReportScreens(Screens& screens);
