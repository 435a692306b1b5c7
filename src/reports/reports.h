#pragma once

#include <string_view>

#include "reports/report.h"

// The reports of the report screen by their keys; null for a key without one.
const Report* reportByKey(std::string_view key);

// Each piece, in its own report_*.cpp.
