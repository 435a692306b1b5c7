#pragma once

#include <span>

// The rows that the program was built with; what they mean stands in gst/tables.h.

struct GstTableRow {
  const char *name, *key, *from, *value;
};
std::span<const GstTableRow> gstTableRows();
