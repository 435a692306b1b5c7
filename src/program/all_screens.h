#pragma once

#include "platform/screen.h"

// Every screen of the program by its name. The first call also sets the routines that an opening of a
// company-year runs.
const Screens& allScreens();
