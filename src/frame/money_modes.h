#pragma once

#include <span>
#include <string>
#include <string_view>

// In which way money is paid: what RPTPAY.VOUCH_TYPE holds, and its words.
struct MoneyMode {
  std::string_view code;
  const char* name;
};

// Cash is the first.
std::span<const MoneyMode> moneyModes();
// In the words of the language; of a code that is none of these, that of cash.
std::string moneyModeName(std::string_view code);
// By its place from 1, its code or the beginning of its name; null where it is none.
const MoneyMode* moneyModeTyped(std::string_view typed);
