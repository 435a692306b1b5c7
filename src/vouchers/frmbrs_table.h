#pragma once

#include "platform/screen.h"

const ScreenSpec& reconciliationTable();
