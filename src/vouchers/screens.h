#pragma once

#include "platform/screen.h"

// The screens of this folder by their names.
void addVoucherScreens(Screens& screens);
// What is posted when a company-year is opened.
void setOpeningRoutines();
