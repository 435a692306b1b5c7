#pragma once

#include <string>

#include "platform/host.h"

// The documents that the print dialog makes, by print key: from what stands in its number
// field, with the kind that goes with the key.
struct Renderer {
  std::string key;
  std::string kind;
  void (*make)(Host& host, const std::string& document, const std::string& kind);
};

// Null for a key that has no document.
const Renderer* rendererOf(const std::string& key);
