#pragma once

#include <span>
#include <string_view>

// State codes of GST registration numbers, with their names in English.

struct State {
  int code;
  const char* name;
};

std::span<const State> states();
// Empty for what is no state's code.
std::string_view stateName(int code);

inline constexpr int kAbroad = 96;  // any other country
